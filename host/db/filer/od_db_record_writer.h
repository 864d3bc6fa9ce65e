#pragma once

#include "host/db/od_db_object.h"

/// Writes one object as a record: its name, envelope, sections and everything that was kept of its file.
/// References to erased objects are left out of the envelope.
void odDbWriteRecord(OdDbObject const& object, OdDbTagSink& sink);
