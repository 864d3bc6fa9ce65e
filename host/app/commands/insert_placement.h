#pragma once

#include "host/app/editor.h"
#include "host/db/entities/od_db_block_reference.h"

#include <optional>

namespace ca {

// What -INSERT and MINSERT ask for: block, place, factors and rotation.

struct InsertPlacement
{
    OdGePoint3d point;
    OdGeScale3d factors;
    double rotation = 0;             ///< counted from the X axis of the user coordinate system
    std::optional<OdGePoint3d> base; ///< in the block, comes to the insertion point instead of the block's own
};

/// The block; null when the user had the blocks listed.
Task<OdDbObjectId> askInsertBlock(Editor& editor);
Task<InsertPlacement> askInsertPlacement(Editor& editor);
/// Makes a new reference show the block there.
void placeReference(Editor& editor, OdDbBlockReference& reference, OdDbObjectId block,
                    InsertPlacement const& placement);

} // namespace ca
