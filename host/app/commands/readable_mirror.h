#pragma once

#include "host/db/od_db_entity.h"

namespace ca {

/// As OdDbEntity::transformBy, but a text that would come out mirrored reads as before: it fills the place of its
/// mirror image, so that what was aligned left is aligned right. The attributes of a block reference are such
/// texts too; those inside its block are not.
OdResult mirrorReadably(OdDbEntity& entity, OdGeMatrix3d const& transformation);

} // namespace ca
