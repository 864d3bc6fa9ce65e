#include "host/dxf/dxf_sections.h"

#include "host/dxf/dxf_entity_reader.h"

namespace dxf {

namespace {

bool isFrame(Reading const& reading)
{
    return reading.isAt(0, "BLOCK") || reading.isAt(0, "ENDBLK");
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
    id = reading.names().addRecord(OdDbTableKind::kBlock, name.empty() ? reading.names().freeName() : name);
    OdString const given = id.open<OdDbBlockTableRecord>()->getName();
    // Block records came with R13.
    if (name.empty())
        reading.note(head.place, id.getHandle(),
                     odFormat(L"A block had no name; it is \"%ls\" now", given.c_str()));
    else if (reading.release() >= ERelease::kR13)
        reading.note(head.place, id.getHandle(),
                     odFormat(L"The block \"%ls\" had no block record; one is added", given.c_str()));
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
            head.place, head.handle,
            odFormat(L"The block \"%ls\" is there twice; its entities are joined", block.getName().c_str()));
    }
    return block;
}

void readBlockEnd(Reading& reading, OdDbBlockTableRecord& block)
{
    if (!reading.isAt(0, "ENDBLK")) {
        reading.note(reading.place(), block.getDbHandle(),
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

/// Damage between blocks: goes to the next one or to the end of the section.
void skipToBlock(Reading& reading)
{
    reading.note(L"BLOCK or ENDSEC is expected here; what stands up to the next block is left out");
    while (!reading.isAt(0, "BLOCK") && !reading.isAtSectionEnd())
        reading.advance();
}

} // namespace

void readBlocks(Reading& reading)
{
    std::vector<OdDbStub*> order;
    while (!reading.isAtSectionEnd()) {
        if (!reading.isAt(0, "BLOCK")) {
            skipToBlock(reading);
            continue;
        }
        OdDbBlockTableRecord& block = readBlockBegin(reading);
        order.push_back(block.objectId().stub());
        EntityReader entities(reading);
        while (!isFrame(reading) && !reading.isAtSectionEnd())
            entities.read(&block);
        entities.endSequence();
        readBlockEnd(reading, block);
    }
    // Without a table of block records, blocks come into being when they are first named.
    if (reading.release() < ERelease::kR13)
        reading.names().table(OdDbTableKind::kBlock).putInFront(order);
}

void readEntities(Reading& reading)
{
    reading.skipToRecord();
    EntityReader entities(reading);
    while (!reading.isAtSectionEnd()) {
        if (isFrame(reading)) {
            reading.note(odFormat(L"%ls stands outside the section BLOCKS; it is left out",
                                  OdString::fromUtf8(reading.tag().text).c_str()));
            reading.skipRecord();
        } else {
            entities.read(nullptr);
        }
    }
    entities.endSequence();
}

} // namespace dxf
