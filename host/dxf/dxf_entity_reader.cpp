#include "host/dxf/dxf_entity_reader.h"

#include "host/db/entities/od_db_attribute.h"
#include "host/db/entities/od_db_block_reference.h"
#include "host/db/entities/od_db_sequence_end.h"
#include "host/db/filer/od_db_class_registry.h"
#include "host/db/od_db_raw_object.h"

namespace dxf {

namespace {

/// Entities with parts, and the name of the parts.
struct Sequence
{
    std::string_view entity;
    std::string_view part;
};

constexpr Sequence s_sequences[] = {
    {"POLYLINE", "VERTEX"},
    {"INSERT", "ATTRIB"},
};

constexpr std::string_view kSequenceEnd = "SEQEND";

std::string_view partNameOf(std::string_view entity)
{
    for (Sequence const& sequence : s_sequences)
        if (sequence.entity == entity)
            return sequence.part;
    return {};
}

void adoptPart(OdDbEntity& parent, OdDbEntity& part)
{
    if (auto* const reference = odCast<OdDbBlockReference>(&parent))
        reference->adoptAttribute(*odCastOrThrow<OdDbAttribute>(&part));
    else
        odCastOrThrow<OdDbRawEntity>(&parent)->adoptSubentity(part);
}

void adoptEnd(OdDbEntity& parent, OdDbEntity& end)
{
    if (auto* const reference = odCast<OdDbBlockReference>(&parent))
        reference->adoptSequenceEnd(*odCastOrThrow<OdDbSequenceEnd>(&end));
    else
        odCastOrThrow<OdDbRawEntity>(&parent)->adoptSequenceEnd(end);
}

} // namespace

OdDbEntityPtr EntityReader::create(std::string_view name) const
{
    OdRxClass const* const known = odDbClassRegistry::find(name);
    if (!known)
        return new OdDbRawEntity(name);
    if (!known->isDerivedFrom(OdDbEntity::desc())) {
        m_reading.note(odFormat(L"%ls is no entity; it is kept here as it is", OdString::fromUtf8(name).c_str()));
        return new OdDbRawEntity(name);
    }
    return OdRxObjectPtr(known->create());
}

void EntityReader::read(OdDbBlockTableRecord* block)
{
    std::string_view const name = m_reading.tag().text;
    if (readAsPart(name))
        return;
    endSequence();
    m_partName = partNameOf(name);
    OdDbEntityPtr const entity = create(name);
    RecordHead const head = m_reading.readRecord(*entity);
    m_isParentLeftOut = leaveOutIfBroken(name, head);
    if (m_isParentLeftOut)
        return;
    if (entity->layerId().isNull())
        entity->setLayer(m_reading.names().byName(OdDbTableKind::kLayer, "0"));
    OdDbBlockTableRecord& space = block ? *block : spaceOf(head);
    m_reading.add(*entity, space.objectId(), head);
    space.adopt(*entity);
    if (!m_partName.empty())
        m_parent = entity;
}

/// False for an entity that is no part of the one before.
bool EntityReader::readAsPart(std::string_view name)
{
    bool const isEnd = name == kSequenceEnd;
    if ((m_parent.isNull() && !m_isParentLeftOut) || (!isEnd && name != m_partName))
        return false;
    if (m_parent.isNull()) {
        m_isParentLeftOut = !isEnd;
        m_reading.skipRecord();
        return true;
    }
    OdDbEntityPtr const part = create(name);
    RecordHead const head = m_reading.readRecord(*part);
    if (!isEnd && leaveOutIfBroken(name, head))
        return true;
    if (part->layerId().isNull())
        part->setLayer(m_parent->layerId());
    m_reading.add(*part, m_parent->objectId(), head);
    if (!isEnd) {
        adoptPart(*m_parent, *part);
        return true;
    }
    adoptEnd(*m_parent, *part);
    m_parent.release();
    return true;
}

/// An entity that lost tags would show what nobody drew.
bool EntityReader::leaveOutIfBroken(std::string_view name, RecordHead const& head)
{
    if (head.isBroken)
        m_reading.note(head.place, head.handle,
                       odFormat(L"%ls is damaged and left out", OdString::fromUtf8(name).c_str()));
    return head.isBroken;
}

void EntityReader::endSequence()
{
    m_isParentLeftOut = false;
    if (!m_parent)
        return;
    if (!m_parent->subentities().empty()) {
        OdDbEntityPtr const end = create(kSequenceEnd);
        end->setLayer(m_parent->layerId());
        m_reading.add(*end, m_parent->objectId(), {});
        adoptEnd(*m_parent, *end);
        m_reading.note(m_reading.place(), m_parent->getDbHandle(),
                       L"The end mark SEQEND was missing and is added");
    }
    m_parent.release();
}

OdDbBlockTableRecord& EntityReader::spaceOf(RecordHead const& head) const
{
    OdDbObjectId const owner = m_reading.database().getOdDbObjectId(head.owner);
    auto* const named = owner.isValid() ? odCast<OdDbBlockTableRecord>(owner.stub()->object) : nullptr;
    return named && named->isLayout() ? *named : spaceBlock(m_reading, head.isInPaperSpace);
}

OdDbBlockTableRecord& spaceBlock(Reading& reading, bool isPaperSpace)
{
    std::string_view const name = isPaperSpace ? "*Paper_Space" : "*Model_Space";
    NameIndex& names = reading.names();
    OdDbObjectId id = names.find(OdDbTableKind::kBlock, name);
    if (!id.isValid())
        id = names.addRecord(OdDbTableKind::kBlock, name);
    return *id.open<OdDbBlockTableRecord>();
}

} // namespace dxf
