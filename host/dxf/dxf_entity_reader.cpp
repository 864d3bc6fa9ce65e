#include "host/dxf/dxf_entity_reader.h"

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

} // namespace

/// `whole` is the entity of which the record is a part, if any.
OdDbEntityPtr EntityReader::create(std::string_view name, OdDbEntity const* whole) const
{
    OdRxClass const* const known = odDbClassRegistry::hasVariants(name)
                                       ? odDbClassRegistry::choose(name, m_reading.peekRecord(), whole)
                                       : odDbClassRegistry::find(name);
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
    OdDbEntityPtr const entity = create(name, nullptr);
    RecordHead const head = m_reading.readRecord(*entity);
    m_isParentLeftOut = leaveOutIfBroken(name, head);
    if (m_isParentLeftOut)
        return;
    if (entity->layerId().isNull())
        entity->setLayer(m_reading.names().byName(OdDbTableKind::kLayer, "0"));
    OdDbBlockTableRecord& space = block ? *block : spaceOf(head);
    m_reading.add(*entity, space.objectId(), head);
    space.adopt(*entity);
    if (m_partName.empty())
        return;
    m_parent = entity;
    m_parentPlace = head.place;
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
    OdRxClass const* const cls = isEnd ? nullptr : m_parent->partClass();
    OdDbEntityPtr const part = cls ? OdDbEntityPtr(OdRxObjectPtr(cls->create())) : create(name, m_parent.get());
    RecordHead const head = m_reading.readRecord(*part);
    if (!isEnd && leaveOutIfBroken(name, head))
        return true;
    if (part->layerId().isNull())
        part->setLayer(m_parent->layerId());
    m_reading.add(*part, m_parent->objectId(), head);
    if (!isEnd) {
        m_parent->adoptPart(*part);
        return true;
    }
    m_parent->adoptSequenceEnd(*part);
    partsAreRead();
    return true;
}

void EntityReader::partsAreRead()
{
    if (OdString const problem = m_parent->partsProblem(); !problem.isEmpty())
        m_reading.note(m_parentPlace, m_parent->getDbHandle(),
                       OdString::fromUtf8(m_parent->dxfName()) + L": " + problem);
    m_parent.release();
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
        OdDbEntityPtr const end = new OdDbSequenceEnd;
        end->setLayer(m_parent->layerId());
        m_reading.add(*end, m_parent->objectId(), {});
        m_parent->adoptSequenceEnd(*end);
        m_reading.note(m_reading.place(), m_parent->getDbHandle(),
                       L"The end mark SEQEND was missing and is added");
    }
    partsAreRead();
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
