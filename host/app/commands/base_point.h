#pragma once

#include "host/db/od_db_entity.h"

namespace ca {

/// The point by which drafters think of an entity as placed: the center of what is round, the insertion point of
/// texts and blocks, the start of other curves; where there is none of these, the center of its box.
OdGePoint3d basePointOf(OdDbEntity const& entity);

} // namespace ca
