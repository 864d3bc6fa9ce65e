#pragma once

#include "host/db/audit/od_db_audit_info.h"

class OdDbDatabase;

/// Looks through a whole drawing for what drawings must not hold: see OdDbObject::audit for what single objects
/// say; besides, what only the drawing as a whole can tell - records that every drawing has, current records,
/// owners, blocks within themselves, references that multiply beyond measure. Time grows with the number of
/// objects alone, whatever refers to whatever.
void odDbAudit(OdDbDatabase& database, OdDbAuditInfo& info);
