#pragma once

#include "host/dxf/dxf_reading.h"

namespace dxf {

// Readers of the sections whose contents become part of the drawing. Each begins behind the name of its section
// and leaves the reading at ENDSEC.

void readHeader(Reading& reading);
void readTables(Reading& reading);
void readBlocks(Reading& reading);
void readEntities(Reading& reading);
void readObjects(Reading& reading);

} // namespace dxf
