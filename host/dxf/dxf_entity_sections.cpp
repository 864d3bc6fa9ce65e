#include "host/dxf/dxf_sections.h"

#include "host/dxf/dxf_entity_reader.h"

namespace dxf {

namespace {

bool isFrame(Reading const& reading)
{
    return reading.isAt(0, "BLOCK") || reading.isAt(0, "ENDBLK");
}

bool isSectionEnd(Reading const& reading)
{
    return reading.isAt(0, "ENDSEC") || reading.isAt(0, "SECTION") || reading.isAt(0, "EOF");
}

/// The record of a block: by its name, else by the handle of its owner, else a new one.
OdDbBlockTableRecord& recordOf(Reading& reading, OdDbBlockBegin const& begin, RecordHead const& head)
{
    std::string const name = begin.fileName().toUtf8();
    OdDbObjectId id = reading.names().find(OdDbTableKind::kBlock, name);
    if (!id.isValid())
        id = reading.database().getOdDbObjectId(head.owner);
    if (id.isValid() && odCast<OdDbBlockTableRecord>(id.stub()->object))
        return *id.open<OdDbBlockTableRecord>();
    if (name.empty())
        reading.fail(L"A block has neither a name nor a block record");
    id = reading.names().addRecord(OdDbTableKind::kBlock, name);
    reading.note(head.line, id.getHandle(),
                 odFormat(L"The block \"%ls\" had no block record; one is added", begin.fileName().c_str()));
    return *id.open<OdDbBlockTableRecord>();
}

/// Reads BLOCK and returns the block that it begins.
OdDbBlockTableRecord& readBlockBegin(Reading& reading)
{
    OdSmartPtr<OdDbBlockBegin> const begin = new OdDbBlockBegin;
    RecordHead const head = reading.readRecord(*begin);
    if (begin->layerId().isNull())
        begin->setLayer(reading.names().byName(OdDbTableKind::kLayer, "0"));
    OdDbBlockTableRecord& block = recordOf(reading, *begin, head);
    block.setImplied(false);
    if (block.beginId().isNull()) {
        reading.add(*begin, block.objectId(), head);
        block.adoptBegin(*begin);
    } else {
        reading.note(
            head.line, head.handle,
            odFormat(L"The block \"%ls\" is there twice; its entities are joined", block.getName().c_str()));
    }
    return block;
}

void readBlockEnd(Reading& reading, OdDbBlockTableRecord& block)
{
    if (!reading.isAt(0, "ENDBLK")) {
        reading.note(reading.line(), block.getDbHandle(),
                     odFormat(L"The block \"%ls\" has no end mark ENDBLK; one is added", block.getName().c_str()));
        return;
    }
    OdSmartPtr<OdDbBlockEnd> const end = new OdDbBlockEnd;
    RecordHead const head = reading.readRecord(*end);
    if (!block.endId().isNull())
        return;
    if (end->layerId().isNull())
        end->setLayer(reading.names().byName(OdDbTableKind::kLayer, "0"));
    reading.add(*end, block.objectId(), head);
    block.adoptEnd(*end);
}

} // namespace

void readBlocks(Reading& reading)
{
    while (!reading.isAt(0, "ENDSEC")) {
        if (!reading.isAt(0, "BLOCK"))
            reading.fail(L"BLOCK or ENDSEC is expected here");
        OdDbBlockTableRecord& block = readBlockBegin(reading);
        EntityReader entities(reading);
        while (!isFrame(reading) && !isSectionEnd(reading))
            entities.read(&block);
        entities.endSequence();
        readBlockEnd(reading, block);
    }
}

void readEntities(Reading& reading)
{
    EntityReader entities(reading);
    while (!isSectionEnd(reading)) {
        if (isFrame(reading))
            reading.fail(L"A block stands outside the section BLOCKS");
        entities.read(nullptr);
    }
    entities.endSequence();
}

} // namespace dxf
