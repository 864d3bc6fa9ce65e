#include "host/app/sds_entities.h"

#include "host/app/ca_app.h"
#include "host/app/ca_doc.h"
#include "host/db/oa_space.h"
#include "host/db/od_db_database.h"
#include "host/db/records/od_db_block_table_record.h"
#include "host/sds/sds_entity_maker.h"

namespace {

using Stubs = std::span<OdDbStub* const>;

/// What a document remembers between the calls.
struct EntityMaking
{
    std::optional<ca::SdsEntityMaker> maker;
};
struct EntityWalk
{
    std::size_t entity = 0; ///< where the last entity asked for stood among its neighbours
    std::size_t part = 0;
};

OdDbObjectId firstPresent(Stubs stubs, std::size_t from = 0)
{
    auto const it = std::find_if(stubs.begin() + static_cast<std::ptrdiff_t>(from), stubs.end(),
                                 [](OdDbStub const* stub) { return !stub->erased; });
    return it == stubs.end() ? OdDbObjectId() : OdDbObjectId(*it);
}

/// Behind an entity. Walks go from one to the next, so that the place is mostly the remembered one or near it.
OdDbObjectId nextIn(Stubs stubs, OdDbStub const* entity, std::size_t& remembered)
{
    constexpr std::size_t kNear = 1000;
    auto const isAt = [&](std::size_t index) { return stubs[index] == entity; };
    std::size_t index = std::min(remembered, stubs.size());
    std::size_t const near = std::min(stubs.size(), index + kNear);
    while (index < near && !isAt(index))
        ++index;
    if (index == near)
        index = static_cast<std::size_t>(std::ranges::find(stubs, entity) - stubs.begin());
    if (index == stubs.size())
        return {};
    remembered = index;
    return firstPresent(stubs, index + 1);
}

OdDbObjectId nextOf(OdDbObjectId id, EntityWalk& walk)
{
    OdDbEntityPtr const entity = id.open<OdDbEntity>(OdDb::kForRead, true);
    if (OdDbObjectId const part = firstPresent(entity->subentities()); !part.isNull())
        return part;
    OdDbObjectPtr const owner = entity->ownerId().openObject(OdDb::kForRead, true);
    if (!owner)
        return {};
    if (auto const* const block = odCast<OdDbBlockTableRecord>(owner.get()))
        return nextIn(block->entities(), id.stub(), walk.entity);
    auto const* const whole = odCast<OdDbEntity>(owner.get());
    auto const block = whole ? OdSmartPtr<OdDbBlockTableRecord>(whole->ownerId().openObject(OdDb::kForRead, true))
                             : OdSmartPtr<OdDbBlockTableRecord>();
    if (!block)
        return {};
    bool const isEnd = whole->sequenceEnd() == id;
    OdDbObjectId const part = isEnd ? OdDbObjectId() : nextIn(whole->subentities(), id.stub(), walk.part);
    if (!part.isNull())
        return part;
    if (!isEnd && !whole->sequenceEnd().isNull())
        return whole->sequenceEnd();
    return nextIn(block->entities(), whole->objectId().stub(), walk.entity);
}

int give(OdDbObjectId id, std::int64_t* result)
{
    if (id.isNull() || !result)
        return RTERROR;
    std::ranges::copy(ca::nameOf(id).words, result);
    return RTNORM;
}

OdSmartPtr<OdDbBlockTableRecord> activeSpace(ca::CaDoc const& document)
{
    return oa::getActiveSpace(document.database()).open<OdDbBlockTableRecord>();
}

} // namespace

int sds_entmake(sds_resbuf const* list)
{
    ca::CaDoc* const document = ca::curDoc();
    if (!document)
        return RTERROR;
    std::optional<ca::SdsEntityMaker>& maker = document->commandMemory().get<EntityMaking>().maker;
    if (!maker)
        maker.emplace(*document->database());
    if (!list) {
        maker->cancel();
        return RTNORM;
    }
    try {
        return maker->make(list) ? RTNORM : RTERROR;
    } catch (OdError const&) {
        return RTERROR;
    }
}

int sds_entlast(std::int64_t* result)
{
    ca::CaDoc const* const document = ca::curDoc();
    if (!document)
        return RTERROR;
    auto const space = activeSpace(*document);
    return give(space->newIterator(false).objectId(), result);
}

int sds_entnext(std::int64_t const* entity, std::int64_t* result)
{
    ca::CaDoc* const document = ca::curDoc();
    if (!document)
        return RTERROR;
    if (!entity || (entity[0] == 0 && entity[1] == 0))
        return give(firstPresent(activeSpace(*document)->entities()), result);
    OdDbObjectId const id = ca::objectIdOf(entity);
    if (!id.isValid() || !odCast<OdDbEntity>(id.stub()->object))
        return RTERROR;
    return give(nextOf(id, document->commandMemory().get<EntityWalk>()), result);
}
