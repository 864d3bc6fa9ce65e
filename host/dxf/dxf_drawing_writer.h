#pragma once

#include "host/db/od_db_database.h"

namespace dxf {

/// Writes a whole drawing as the current release: sections and tables in the order of the file that it came from,
/// those that the file lacked in the usual order. Erased objects are left out, and so are records that were only
/// implied by the use of their names.
void writeDrawing(OdDbDatabase const& database, OdDbTagSink& sink);

} // namespace dxf
