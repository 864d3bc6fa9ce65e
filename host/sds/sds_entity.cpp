#include "host/sds/sds_entity.h"

#include "host/db/audit/od_db_audit_info.h"
#include "host/db/filer/od_db_class_registry.h"
#include "host/db/filer/od_db_record_writer.h"
#include "host/db/od_db_database.h"
#include "host/db/od_db_raw_object.h"
#include "host/db/records/od_db_block_table_record.h"
#include "host/sds/sds_entity_reading.h"
#include "host/sds/sds_record_merge.h"
#include "host/ut/ut_text.h"

namespace {

constexpr int kApplication = 1001;
constexpr int kFirstExtendedData = 1000;

/// Null for a name of no entity.
OdDbEntityPtr entityOf(std::int64_t const* name, bool openErased = false)
{
    OdDbObjectPtr const object = ca::objectIdOf(name).openObject(OdDb::kForRead, openErased);
    return object && odCast<OdDbEntity>(object.get()) ? OdDbEntityPtr(object) : OdDbEntityPtr();
}

OdDbTagList recordOf(OdDbEntity const& entity)
{
    OdDbTagList tags;
    odDbWriteRecord(entity, tags);
    return tags;
}

bool isWanted(OdString const& application, sds_resbuf const* wanted)
{
    for (; wanted; wanted = wanted->rbnext)
        if (wanted->restype == RTSTR && wanted->resval.rstring &&
            ut::matchesWildcard(application.str(), OdString(wanted->resval.rstring).str(),
                                ut::ECase::kInsensitive))
            return true;
    return false;
}

/// The groups of a record, and the extended data of the applications that are wanted.
struct Parts
{
    OdDbTagList groups;
    OdDbTagList extendedData;
};
Parts partsOf(OdDbEntity const& entity, sds_resbuf const* applications)
{
    Parts parts;
    bool isTaken = false;
    for (OdDbTag const tag : recordOf(entity)) {
        if (tag.code < kFirstExtendedData) {
            parts.groups.put(tag);
            continue;
        }
        if (tag.code == kApplication)
            isTaken = isWanted(OdString::fromUtf8(tag.text), applications);
        if (isTaken)
            parts.extendedData.put(tag);
    }
    return parts;
}

sds_resbuf* nameNode(OdDbObjectId id)
{
    constexpr short kEntityName = -1;
    sds_resbuf* const node = ca::allocRb(kEntityName);
    if (node)
        std::ranges::copy(ca::nameOf(id).words, node->resval.rlname);
    return node;
}

std::size_t errorsOf(OdDbEntity const& entity)
{
    OdDbAuditInfo info;
    entity.audit(info);
    return info.errorsFound();
}

/// The host knows its class by its groups alone.
bool isKept(OdDbEntity const& entity)
{
    return odCast<OdDbRawEntity>(&entity) != nullptr;
}

bool isOfSameClass(OdDbEntity const& entity, OdDbTagList const& tags)
{
    OdDbObjectId const owner = entity.ownerId();
    OdRxClass const* const cls =
        odDbClassRegistry::choose(entity.dxfName(), tags, owner.isValid() ? owner.stub()->object : nullptr);
    return isKept(entity) || cls == entity.isA();
}

/// A loose entity with the groups of the record, its parts those of the present one; null when there is no such.
OdDbEntityPtr changedCopy(OdDbEntity const& entity, OdDbTagList const& tags, ca::SdsNames& names)
{
    OdDbEntityPtr const fresh = isKept(entity) ? OdDbEntityPtr(new OdDbRawEntity(entity.dxfName()))
                                               : OdDbEntityPtr(OdRxObjectPtr(entity.isA()->create()));
    if (!isOfSameClass(entity, tags) || !ca::readTags(tags, *fresh, names))
        return {};
    if (fresh->layerId().isNull())
        fresh->setLayer(entity.layerId());
    OdDbEntityPtr const copy = entity.clone();
    copy->assignFields(*fresh);
    OdDbObjectId const owner = entity.ownerId();
    auto const* const block = owner.isValid() ? odCast<OdDbBlockTableRecord>(owner.stub()->object) : nullptr;
    if (block && !block->isLayout() && ca::isLoop(*copy, owner))
        return {};
    if (ca::showsSpace(*copy) && !ca::showsSpace(entity)) // files may have such references
        return {};
    return errorsOf(*copy) <= errorsOf(entity) ? copy : OdDbEntityPtr();
}

void takeAll(OdDbEntity& entity, OdDbEntity const& changed)
{
    entity.upgradeOpen();
    entity.takeFieldsOf(changed);
    if (changed.extras())
        entity.editExtras() = *changed.extras();
    else if (entity.extras())
        entity.editExtras() = OdDbObjectExtras();
}

} // namespace

sds_resbuf* sds_entget(std::int64_t const* entity)
{
    return sds_entgetx(entity, nullptr);
}

sds_resbuf* sds_entgetx(std::int64_t const* entity, sds_resbuf const* applications)
{
    constexpr short kExtendedData = -3;
    OdDbEntityPtr const found = entityOf(entity);
    if (!found)
        return nullptr;
    Parts const parts = partsOf(*found, applications);
    ca::SdsChain chain;
    chain.append(nameNode(found->objectId()));
    chain.append(ca::chainOf(parts.groups, *found->database()));
    if (!parts.extendedData.empty()) {
        chain.append(ca::allocRb(kExtendedData));
        chain.append(ca::chainOf(parts.extendedData, *found->database()));
    }
    return chain.take().release();
}

int sds_entmod(sds_resbuf const* list)
{
    SdsName const name = ca::entityNameIn(list);
    OdDbEntityPtr const entity = entityOf(name.words);
    if (!entity)
        return RTERROR;
    OdDbDatabase& database = *entity->database();
    try {
        std::optional<ca::SdsRecord> changes = ca::recordOf(list, database);
        if (!changes || (!changes->type.empty() && changes->type != entity->dxfName()))
            return RTERROR;
        changes->tags = ca::withFlatPoints(changes->tags, entity->dxfName());
        std::optional<OdDbTagList> const tags =
            ca::mergedRecord(recordOf(*entity), *changes, database, isKept(*entity));
        ca::SdsNames names(database);
        names.noteApplications(changes->tags);
        OdDbEntityPtr const changed = tags ? changedCopy(*entity, *tags, names) : OdDbEntityPtr();
        if (!changed)
            return RTERROR;
        names.complete(*changed);
        takeAll(*entity, *changed);
        return RTNORM;
    } catch (OdError const&) {
        return RTERROR;
    }
}

int sds_entdel(std::int64_t const* entity)
{
    OdDbEntityPtr const found = entityOf(entity, true);
    OdDbObjectId const owner = found ? found->ownerId() : OdDbObjectId();
    if (!owner.isValid() || !odCast<OdDbBlockTableRecord>(owner.stub()->object))
        return RTERROR;
    found->upgradeOpen();
    found->erase(!found->isErased());
    return RTNORM;
}
