#pragma once

#include "host/db/audit/od_db_audit_info.h"

class OdDbDatabase;

/// Looks for blocks that contain themselves, directly or through others, and for references that multiply to more
/// entities than any program can show.
void odDbAuditBlocks(OdDbDatabase& database, OdDbAuditInfo& info);
