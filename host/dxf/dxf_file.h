#pragma once

#include "host/db/od_db_database.h"

#include <vector>

// Drawing files: this is the header for everybody who opens or saves drawings. How they are read: start at
// dxf_drawing_reader.h; how they are written: dxf_drawing_writer.h.

namespace dxf {

/// Format codes of saving.
enum class EFormat : int
{
    kCurrent = 60, ///< newest release (R2018) as text in UTF-8
};

/// The format of a code as programs pass it. Throws OdError(eUnsupportedFormat) for other numbers.
EFormat formatOfCode(int code);

/// Something in a file that was mended or left out.
struct ReadNote
{
    std::size_t line = 0;
    OdDbHandle handle; ///< null when the note is not about one object
    OdString text;
};

struct ReadReport
{
    OdString release; ///< such as "R2000"
    std::vector<ReadNote> notes;
};

/// Opens a drawing, recognised by its content whatever the extension. Undo of the new drawing is on and empty.
/// Throws OdError whose text begins with "<path>:" and, where a place can be named, "<line>:" - eFileNotFound,
/// eFileAccess, eUnsupportedFormat (a drawing, but of a kind that is not read), eInvalidFile (damaged or no
/// drawing).
OdDbDatabasePtr readFile(OdString const& path, ReadReport* report = nullptr);

/// Saves the drawing under a path, whatever the extension; the file that was there is replaced as a whole or stays
/// as it was. The drawing itself is not changed: equal drawings give equal bytes. Throws OdError as
/// ut::AtomicFile.
void writeFile(OdDbDatabase const& database, OdString const& path, EFormat format = EFormat::kCurrent);

} // namespace dxf
