// Entities with parts: how these come and go with the whole.
#include "host/db/entities/od_db_sequence_end.h"
#include "host/db/od_db_database.h"

std::span<OdDbStub* const> OdDbEntity::subentities() const
{
    OdDbPartList const* const parts = partList();
    return parts ? parts->stubs() : std::span<OdDbStub* const>();
}

OdDbObjectId OdDbEntity::sequenceEnd() const
{
    OdDbPartList const* const parts = partList();
    return parts ? parts->sequenceEnd() : OdDbObjectId();
}

unsigned OdDbEntity::numParts() const
{
    OdDbPartList const* const parts = partList();
    return parts ? parts->count() : 0;
}

bool OdDbEntity::takesPart(OdDbEntity const& part) const
{
    OdRxClass* const cls = partClass();
    return cls && part.isKindOf(cls);
}

OdDbPartList& OdDbEntity::editPartList(OdDbEntity const& part)
{
    if (!takesPart(part))
        throw OdError_NotThatKindOfClass(part.isA(), isA());
    return *const_cast<OdDbPartList*>(partList());
}

void OdDbEntity::adoptPart(OdDbEntity& part)
{
    editPartList(part).m_stubs.push_back(part.objectId().stub());
}

void OdDbEntity::adoptSequenceEnd(OdDbEntity& end)
{
    const_cast<OdDbPartList*>(partList())->m_sequenceEnd = end.objectId().stub();
}

OdDbObjectId OdDbEntity::appendPart(OdDbEntity* part)
{
    OdDbPartList const* const parts = partList();
    return insertPart(part, parts ? parts->size() : 0);
}

OdDbObjectId OdDbEntity::insertPart(OdDbEntity* part, std::size_t index)
{
    OdDbEntityPtr const keep(part);
    OdDbPartList& parts = editPartList(*part);
    if (part->isDBRO())
        throw OdError(eAlreadyInDb);
    assertWriteEnabled();
    if (database())
        return addPartToDrawing(parts, *part, index);
    if (!parts.m_loose)
        parts.m_loose = std::make_unique<std::vector<OdDbEntityPtr>>();
    parts.m_loose->insert(parts.m_loose->begin() + static_cast<std::ptrdiff_t>(index), keep);
    return {};
}

void OdDbEntity::clearParts()
{
    assertWriteEnabled();
    auto* const parts = const_cast<OdDbPartList*>(partList());
    if (!parts)
        return;
    parts->m_loose.reset();
    for (auto it = partIterator(); !it.done(); it.step())
        it.entity(OdDb::kForWrite)->erase();
}

OdDbObjectId OdDbEntity::addPartToDrawing(OdDbPartList& parts, OdDbEntity& part, std::size_t index)
{
    if (partsFollowProperties() && part.layerId().isNull())
        part.setPropertiesFrom(*this);
    else if (part.layerId().isNull() && !layerId().isNull())
        part.setLayer(layerId());
    OdDbObjectId const id = database()->addOdDbObject(&part, objectId());
    parts.m_stubs.insert(parts.m_stubs.begin() + static_cast<std::ptrdiff_t>(index), id.stub());
    if (!parts.m_sequenceEnd)
        addSequenceEnd(parts);
    return id;
}

void OdDbEntity::addSequenceEnd(OdDbPartList& parts)
{
    OdDbSequenceEndPtr const end(new OdDbSequenceEnd);
    if (!layerId().isNull())
        end->setLayer(layerId());
    parts.m_sequenceEnd = database()->addOdDbObject(end, objectId()).stub();
}

void OdDbEntity::addedToDatabase()
{
    auto* const parts = const_cast<OdDbPartList*>(partList());
    if (!parts)
        return;
    if (auto const loose = std::move(parts->m_loose))
        for (OdDbEntityPtr const& part : *loose)
            addPartToDrawing(*parts, *part, parts->size());
    if (alwaysHasSequenceEnd() && !parts->m_sequenceEnd && !database()->isBeingRead())
        addSequenceEnd(*parts);
}

void OdDbEntity::copyPartsOf(OdDbObject const& source)
{
    for (auto it = static_cast<OdDbEntity const&>(source).partIterator(); !it.done(); it.step())
        appendPart(OdDbEntityPtr(it.peek().clone()));
}

std::vector<OdDbEntityPtr> OdDbEntity::openParts() const
{
    std::vector<OdDbEntityPtr> parts;
    for (auto it = partIterator(); !it.done(); it.step())
        parts.push_back(it.entity(OdDb::kForWrite));
    return parts;
}
