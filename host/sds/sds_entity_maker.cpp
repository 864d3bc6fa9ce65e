#include "host/sds/sds_entity_maker.h"

#include "host/db/audit/od_db_audit_info.h"
#include "host/db/entities/od_db_attribute.h"
#include "host/db/entities/od_db_sequence_end.h"
#include "host/db/oa_space.h"
#include "host/db/od_db_database.h"

namespace ca {
namespace {

constexpr std::string_view kPolyline = "POLYLINE";
constexpr std::string_view kBlock = "BLOCK";
constexpr std::string_view kBlockEnd = "ENDBLK";
constexpr std::string_view kSequenceEnd = "SEQEND";

/// Types that stand within a sequence alone.
bool isPartOfSequence(std::string_view type)
{
    return type == kSequenceEnd || type == "ATTRIB" || type == "VERTEX";
}

bool beginsSequence(SdsRecord const& record)
{
    constexpr int kFollowFlag = 66;
    return record.type == kPolyline || (record.type == "INSERT" && odDbIntegerOf(record.tags, kFollowFlag) != 0);
}

bool isSound(OdDbEntity const& entity)
{
    OdDbAuditInfo info;
    entity.audit(info);
    return info.errorsFound() == 0;
}

} // namespace

bool SdsEntityMaker::make(sds_resbuf const* list)
{
    std::optional<SdsRecord> const record = recordOf(list, *m_database);
    if (!record)
        return false;
    if (m_sequence)
        return record->type == kSequenceEnd ? endSequence(*record) : makePart(*record);
    if (record->type == kBlock)
        return beginBlock(*record);
    if (record->type == kBlockEnd)
        return endBlock(*record);
    return !isPartOfSequence(record->type) && makeEntity(*record);
}

void SdsEntityMaker::cancel()
{
    m_sequence.reset();
    m_block.reset();
}

std::optional<SdsEntityMaker::Part> SdsEntityMaker::read(SdsRecord const& record, OdDbEntityPtr const& entity)
{
    Part made{entity, SdsNames(*m_database), false};
    made.names.noteApplications(record.tags);
    if (!entity || !readTags(withFlatPoints(record.tags, record.type), *entity, made.names) ||
        !hasRequiredGroups(*entity))
        return std::nullopt;
    return made;
}

bool SdsEntityMaker::makeEntity(SdsRecord const& record)
{
    std::optional<Part> made = read(record, newEntityOf(record, nullptr));
    if (!made)
        return false;
    if (made->entity->layerId().isNull())
        made->entity->setLayer(m_database->getCLAYER());
    bool const isHead = beginsSequence(record);
    bool const lacksVertices = record.type == kPolyline; // it is sound with them alone
    if (showsSpace(*made->entity) || (!lacksVertices && !isSound(*made->entity)))
        return false;
    Whole whole{*std::move(made), {}, {}, record.isInPaperSpace.value_or(false)};
    if (!isHead)
        return place(std::move(whole));
    m_sequence = std::move(whole);
    return true;
}

bool SdsEntityMaker::makePart(SdsRecord const& record)
{
    OdDbEntity const& head = *m_sequence->head.entity;
    std::optional<Part> made = read(record, newEntityOf(record, &head));
    if (!made || !head.takesPart(*made->entity))
        return false;
    made->isOnLayerOfWhole = made->entity->layerId().isNull();
    if (made->isOnLayerOfWhole)
        made->entity->setLayer(head.layerId());
    if (!isSound(*made->entity))
        return false;
    m_sequence->parts.push_back(*std::move(made));
    return true;
}

bool SdsEntityMaker::endSequence(SdsRecord const& record)
{
    Whole whole = *std::move(m_sequence);
    m_sequence.reset();
    std::optional<Part> end = read(record, new OdDbSequenceEnd);
    if (!end)
        return false;
    whole.end = end->entity;
    for (Part const& part : whole.parts)
        whole.head.entity->appendPart(part.entity.get());
    return isSound(*whole.head.entity) && place(std::move(whole));
}

/// Into the block that is being defined, or into a space.
bool SdsEntityMaker::place(Whole&& whole)
{
    if (m_block) {
        m_block->entities.push_back(std::move(whole));
        return true;
    }
    OdDbObjectId const space =
        whole.goesToPaperSpace ? m_database->getPaperSpaceId() : oa::getActiveSpace(m_database);
    append(whole, *space.open<OdDbBlockTableRecord>(OdDb::kForWrite));
    return true;
}

void SdsEntityMaker::append(Whole const& whole, OdDbBlockTableRecord& block)
{
    OdDbEntity& head = *whole.head.entity;
    std::vector<OdDbObjectId> layers;
    for (Part const& part : whole.parts)
        layers.push_back(part.entity->layerId());
    whole.head.names.complete(head); // some classes give their layer to all parts
    for (std::size_t i = 0; i < layers.size(); ++i) {
        Part const& part = whole.parts[i];
        part.entity->setLayer(part.isOnLayerOfWhole ? head.layerId() : layers[i]);
        part.names.complete(*part.entity);
    }
    block.appendOdDbEntity(&head);
    if (head.sequenceEnd().isNull() || !whole.end)
        return;
    if (whole.end->layerId().isNull())
        whole.end->setLayer(head.layerId());
    head.sequenceEnd().open<OdDbSequenceEnd>(OdDb::kForWrite)->takeFieldsOf(*whole.end);
}

bool SdsEntityMaker::beginBlock(SdsRecord const& record)
{
    constexpr int kFlags = 70;
    constexpr std::int64_t kExternal = 4 | 8 | 16 | 32;
    if (m_block || (odDbIntegerOf(record.tags, kFlags) & kExternal) != 0)
        return false;
    OdSmartPtr<OdDbBlockBegin> const begin(new OdDbBlockBegin);
    std::optional<Part> made = read(record, begin);
    if (!made)
        return false;
    if (begin->layerId().isNull())
        begin->setLayer(m_database->getLayerZeroId());
    Block block{*std::move(made), freeBlockName(begin->fileName()), {}};
    if (!isSound(*begin) || !mayDefine(block))
        return false;
    m_block = std::move(block);
    return true;
}

/// A name such as "*U" asks for a block without a name that anybody chose: it gets a number.
OdString SdsEntityMaker::freeBlockName(OdString const& name) const
{
    if (!name.startsWith(L"*") || name.getLength() != 2)
        return name;
    OdDbSymbolTable const& blocks = m_database->table(OdDbTableKind::kBlock);
    for (std::size_t number = blocks.records().size();; ++number)
        if (OdString free = odFormat(L"%ls%zu", name.c_str(), number); !blocks.has(free))
            return free;
}

bool SdsEntityMaker::mayDefine(Block const& block) const
{
    OdDbObjectId const id = m_database->table(OdDbTableKind::kBlock).getAt(block.name);
    if (id.isNull())
        return OdDbSymbolTable::isValidName(block.name) && !block.name.left(2).equalsNoCase(L"*M") &&
               !block.name.left(2).equalsNoCase(L"*P");
    auto const present = id.open<OdDbBlockTableRecord>();
    if (present->isLayout() || present->isAnonymous() || present->isFromExternalReference())
        return false;
    return std::ranges::none_of(block.entities,
                                [id](Whole const& whole) { return isLoop(*whole.head.entity, id); });
}

OdDbBlockTableRecordPtr SdsEntityMaker::emptyBlock(OdString const& name)
{
    auto const blocks = m_database->getBlockTableId().open<OdDbSymbolTable>(OdDb::kForWrite);
    if (OdDbObjectId const id = blocks->getAt(name); !id.isNull()) {
        auto block = id.open<OdDbBlockTableRecord>(OdDb::kForWrite);
        for (OdDbObjectIterator it = block->newIterator(); !it.done(); it.step())
            it.entity(OdDb::kForWrite)->erase();
        block->setImplied(false);
        return block;
    }
    OdDbBlockTableRecordPtr block(new OdDbBlockTableRecord);
    block->setName(name);
    blocks->add(block);
    block->upgradeOpen();
    return block;
}

bool SdsEntityMaker::endBlock(SdsRecord const& record)
{
    if (!m_block)
        return false;
    Block const made = *std::move(m_block);
    m_block.reset();
    if (!read(record, new OdDbBlockEnd) || !mayDefine(made))
        return false;
    OdDbBlockTableRecordPtr const block = emptyBlock(made.name);
    made.begin.names.complete(*made.begin.entity);
    block->beginId().open<OdDbBlockBegin>(OdDb::kForWrite)->takeFieldsOf(*made.begin.entity);
    for (Whole const& whole : made.entities)
        append(whole, *block);
    return true;
}

} // namespace ca
