#include "testapi/ta_test_helper.h"
#include "testapi/ta_test_helper_create.h"

namespace ta {

namespace {

/// Where a block reference stands and how.
struct Placement
{
    OdGePoint3d const& position;
    double rotation;
    OdGeScale3d const& scale;
};

void showBlock(OdDbBlockReference& reference, OdDbObjectId const& blockId, OdDbObjectId const& ownerId,
               Placement const& placement)
{
    reference.setBlockTableRecord(blockId);
    // The reference is in no drawing yet, so that it could not tell.
    if (blockId.database() != ownerId.database())
        throw OdError(eWrongDatabase);
    reference.setPosition(placement.position);
    reference.setRotation(placement.rotation);
    reference.setScaleFactors(placement.scale);
}

} // namespace

OdDbObjectId TestHelperEx::createBTR(OdDbObjectId const& ownerId, OdString const& name, OdGePoint3d const& origin)
{
    auto const table = ownerId.open<OdDbSymbolTable>(OdDb::kForWrite);
    if (ownerId != ownerId.database()->getBlockTableId())
        throw OdError(eInvalidInput, L"Blocks stand in the block table, not in another table");
    OdDbBlockTableRecordPtr const block(new OdDbBlockTableRecord);
    block->setName(name);
    OdDbObjectId const id = table->add(block);
    block->setOrigin(origin);
    return id;
}

OdDbObjectId TestHelperEx::createInsert(OdDbObjectId const& ownerId, OdDbObjectId const& blockId,
                                        OdGePoint3d const& position, double rotation, OdGeVector3d const* normal,
                                        OdGeScale3d const& scale)
{
    return createEntity<OdDbBlockReference>(ownerId, {normal}, [&](OdDbBlockReference& reference) {
        showBlock(reference, blockId, ownerId, {position, rotation, scale});
    });
}

OdDbObjectId TestHelperEx::createInsert(OdDbObjectId const& blockId, OdGePoint3d const& position, double rotation,
                                        OdGeVector3d const* normal)
{
    if (blockId.isNull())
        throw OdError(eNullObjectId);
    return createInsert(oa::getActiveSpace(blockId.database()), blockId, position, rotation, normal, {});
}

OdDbObjectId TestHelperEx::createMinsert(OdDbObjectId const& ownerId, OdDbObjectId const& blockId,
                                         OdGePoint3d const& position, double rotation, OdGeVector3d const* normal,
                                         OdGeScale3d const& scale, int columns, int rows, double columnSpacing,
                                         double rowSpacing)
{
    return createEntity<OdDbMInsertBlock>(ownerId, {normal}, [&](OdDbMInsertBlock& grid) {
        showBlock(grid, blockId, ownerId, {position, rotation, scale});
        grid.setColumns(columns);
        grid.setRows(rows);
        grid.setColumnSpacing(columnSpacing);
        grid.setRowSpacing(rowSpacing);
    });
}

} // namespace ta
