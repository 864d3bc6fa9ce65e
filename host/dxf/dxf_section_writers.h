#pragma once

#include "host/db/od_db_database.h"

namespace dxf {

// Writers of the sections of a drawing, each for what stands between the name of the section and ENDSEC.

void writeHeader(OdDbDatabase const& database, OdDbTagSink& sink);
void writeClasses(OdDbDatabase const& database, OdDbTagSink& sink);
void writeTables(OdDbDatabase const& database, OdDbTagSink& sink);
void writeBlocks(OdDbDatabase const& database, OdDbTagSink& sink);
void writeEntities(OdDbDatabase const& database, OdDbTagSink& sink);
void writeObjects(OdDbDatabase const& database, OdDbTagSink& sink);

} // namespace dxf
