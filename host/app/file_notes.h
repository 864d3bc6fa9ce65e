#pragma once

#include "host/dxf/dxf_file.h"

namespace ca {

class CommandLine;

/// What opening mended or left out, as one line: "<path>:<line>: <text> (handle 2F)".
OdString noteText(OdString const& path, dxf::ReadReport const& report, dxf::ReadNote const& note);
/// What saving could not keep, as one line: "<path>: <text> (3 times, first 2F)".
OdString noteText(OdString const& path, dxf::SaveNote const& note);

/// Show the first notes, and how many there are besides.
void showNotes(CommandLine& commandLine, OdString const& path, dxf::ReadReport const& report);
void showNotes(CommandLine& commandLine, OdString const& path, dxf::SaveReport const& report);

} // namespace ca
