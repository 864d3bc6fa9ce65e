#pragma once

#include "host/dxf/dxf_file.h"
#include "host/dxf/dxf_tag_source.h"

namespace dxf {

/// Reads a whole drawing, section by section, into an empty database and completes what every drawing must have.
/// How it goes on from here: dxf_sections.h (one reader for each section), dxf_reading.h (what they share).
void readDrawing(OdDbDatabase& database, TagSource& source, Release const& release, ReadReport& report);

} // namespace dxf
