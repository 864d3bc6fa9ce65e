#pragma once

#include "host/db/records/od_db_block_table_record.h"

/// Appends a copy of the entity, with everything that belongs to it, to a block of the same drawing, open for
/// writing. Throws OdError(eNotApplicable) for entities that the host only keeps: what their tags refer to cannot
/// be copied.
OdDbEntityPtr odDbCopyEntity(OdDbEntity const& entity, OdDbBlockTableRecord& target);
