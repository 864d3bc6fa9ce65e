#pragma once

#include "host/dxf/dxf_file.h"

#include <stdexcept>
#include <string_view>

/// What has to hold of every drawing file, however damaged: it is refused, or it is opened, looked at, saved and
/// opened again without trouble.
namespace drawingRound {

/// A drawing did not behave as drawings have to; anything else that is thrown or crashes is a fault as well.
class Fault : public std::logic_error
{
public:
    using std::logic_error::logic_error;
};

/// Null for bytes that are refused; the refusal names the file.
OdDbDatabasePtr open(std::string_view bytes, dxf::ReadReport* report = nullptr);

/// Calls what looks at a whole drawing: its objects, the extents of its blocks, the audit.
void lookAt(OdDbDatabase& database);

/// Saves the drawing, opens what was saved and saves that, and so once more: it opens without new notes, and the
/// second and the third file are equal. The first one may differ: groups of damaged records that came too early to
/// mean anything stand behind all others there. Releases before R2000 lack objects that are added whenever their
/// files are opened, so that their next free handle may differ, too.
void save(OdDbDatabase const& database, dxf::FileFormat format);

/// The round of a whole file; the format to save in follows from the bytes.
void run(std::string_view bytes);
/// As run, for a binary file; bytes without the sentinel of such files get it.
void runBinary(std::string_view bytes);

} // namespace drawingRound
