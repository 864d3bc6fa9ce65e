// Sections that hold entities and objects.
#include "host/db/filer/od_db_record_writer.h"
#include "host/db/records/od_db_block_table_record.h"
#include "host/dxf/dxf_section_writers.h"

namespace dxf {

namespace {

void writeEntity(OdDbEntity const& entity, OdDbTagSink& sink)
{
    odDbWriteRecord(entity, sink);
    bool hasParts = false;
    for (OdDbStub const* const part : entity.subentities()) {
        if (part->erased)
            continue;
        odDbWriteRecord(*part->object, sink);
        hasParts = true;
    }
    OdDbObjectId const end = entity.sequenceEnd();
    if (hasParts && !end.isErased())
        odDbWriteRecord(*end.stub()->object, sink);
}

void writeEntitiesOf(OdDbBlockTableRecord const& block, OdDbTagSink& sink)
{
    for (OdDbStub const* const stub : block.entities())
        if (!stub->erased)
            writeEntity(*static_cast<OdDbEntity const*>(stub->object), sink);
}

void writeIfThere(OdDbObjectId id, OdDbTagSink& sink)
{
    if (!id.isErased())
        odDbWriteRecord(*id.stub()->object, sink);
}

} // namespace

void writeBlocks(OdDbDatabase const& database, OdDbTagSink& sink)
{
    for (OdDbStub const* const stub : database.table(OdDbTableKind::kBlock).records()) {
        auto const& block = *static_cast<OdDbBlockTableRecord const*>(stub->object);
        if (stub->erased || block.isImplied())
            continue;
        writeIfThere(block.beginId(), sink);
        // The entities of model space and of the sheet in use have a section of their own.
        if (block.objectId() != database.getModelSpaceId() && block.objectId() != database.getPaperSpaceId())
            writeEntitiesOf(block, sink);
        writeIfThere(block.endId(), sink);
    }
}

void writeEntities(OdDbDatabase const& database, OdDbTagSink& sink)
{
    for (OdDbObjectId const id : {database.getModelSpaceId(), database.getPaperSpaceId()})
        writeEntitiesOf(*id.open<OdDbBlockTableRecord>(), sink);
}

void writeObjects(OdDbDatabase const& database, OdDbTagSink& sink)
{
    // The dictionary of named objects comes first.
    OdDbObjectId const root = database.getNamedObjectsDictionaryId();
    writeIfThere(root, sink);
    for (OdDbStub const* const stub : database.fileObjects())
        if (!stub->erased && stub != root.stub())
            odDbWriteRecord(*stub->object, sink);
}

} // namespace dxf
