#pragma once

#include "host/db/od_db_database.h"
#include "host/dxf/dxf_release.h"
#include "host/dxf/dxf_save_report.h"

#include <string>
#include <vector>

// Drawing files: this is the header for everybody who opens or saves drawings. How they are read: start at
// dxf_drawing_reader.h; how they are written: dxf_drawing_writer.h.

namespace dxf {

/// What a drawing is saved as.
struct FileFormat
{
    ERelease release = kCurrentRelease;
    bool isBinary = false;
};

/// Format code of the newest release as text in UTF-8.
inline constexpr int kCurrentFormatCode = 60;
/// The format of a code as programs pass it: 60 for the current release as text, 61, 62 ... for the releases
/// before it down to R12 (68); 80 to 88 are the same in binary form. Throws OdError(eUnsupportedFormat) for other
/// numbers.
FileFormat formatOfCode(int code);

/// Something in a file that was mended or left out.
struct ReadNote
{
    std::size_t place = 0; ///< line from 1, or offset in bytes in a binary file
    OdDbHandle handle;     ///< null when the note is not about one object
    OdString text;
};

struct ReadReport
{
    OdString release; ///< such as "R2000"
    bool isBinary = false;
    std::vector<ReadNote> notes; ///< of a hopelessly damaged file the first thousand
    std::size_t moreNotes = 0;   ///< how many there are besides
};

/// Where a note stands, as messages begin: "<path>:<line>", or "<path>: byte <offset>".
OdString locationOf(OdString const& path, ReadReport const& report, ReadNote const& note);

/// Opens a drawing, recognised by its content whatever the extension. Undo of the new drawing is on and empty.
/// What is damaged is mended or left out as far as can be, and noted. Throws OdError whose text begins with
/// "<path>:" and, where a place can be named, the place - eFileNotFound, eFileAccess, eUnsupportedFormat (a
/// drawing, but of a kind that is not read), eInvalidFile (too damaged, or no drawing).
OdDbDatabasePtr readFile(OdString const& path, ReadReport* report = nullptr);
/// As readFile, from memory; the path stands in messages.
OdDbDatabasePtr readBytes(OdString const& path, std::string_view bytes, ReadReport* report = nullptr);

/// Saves the drawing under a path, whatever the extension; the file that was there is replaced as a whole or stays
/// as it was. The drawing itself is not changed: equal drawings give equal bytes. Throws OdError as
/// ut::AtomicFile.
void writeFile(OdDbDatabase const& database, OdString const& path, FileFormat format = {},
               SaveReport* report = nullptr);
/// As writeFile, into memory.
std::string writeBytes(OdDbDatabase const& database, FileFormat format = {}, SaveReport* report = nullptr);

} // namespace dxf
