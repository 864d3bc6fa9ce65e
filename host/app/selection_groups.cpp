#include "host/app/selection_groups.h"

#include "host/app/sys_var.h"
#include "host/db/oa_space.h"
#include "host/db/od_db_database.h"
#include "host/db/records/od_db_dictionary.h"
#include "host/db/records/od_db_group.h"

#include <unordered_map>
#include <unordered_set>

namespace ca {

namespace {

using Ids = std::vector<OdDbObjectId>;

OdDbDictionary const* groupDictionary(CaDoc const& document)
{
    auto const& named = document.database()->getNamedObjectsDictionaryId().open<OdDbDictionary>();
    OdDbObjectId const id = named->getAt(L"ACAD_GROUP");
    return id.isErased() ? nullptr : odCast<OdDbDictionary>(id.stub()->object);
}

Ids membersInSpace(CaDoc const& document, OdDbGroup const& group)
{
    OdDbObjectId const space = oa::getActiveSpace(document.database());
    Ids ids = group.allEntityIds();
    std::erase_if(ids, [space](OdDbObjectId id) { return id.stub()->object->ownerId() != space; });
    return ids;
}

std::vector<OdDbGroup const*> selectableGroups(CaDoc const& document)
{
    std::vector<OdDbGroup const*> groups;
    OdDbDictionary const* const dictionary = groupDictionary(document);
    if (!dictionary)
        return groups;
    for (OdDbDictionary::Entry const& entry : dictionary->entries()) {
        auto const* const group = entry.id.isErased() ? nullptr : odCast<OdDbGroup>(entry.id.stub()->object);
        if (group && group->isSelectable())
            groups.push_back(group);
    }
    return groups;
}

} // namespace

std::optional<Ids> groupMembers(CaDoc const& document, OdString const& name)
{
    OdDbDictionary const* const dictionary = groupDictionary(document);
    OdDbObjectId const id = dictionary ? dictionary->getAt(name) : OdDbObjectId();
    auto const* const group = id.isErased() ? nullptr : odCast<OdDbGroup>(id.stub()->object);
    return group ? std::optional(membersInSpace(document, *group)) : std::nullopt;
}

Ids withTheirGroups(CaDoc const& document, Ids picked)
{
    constexpr int kGroups = 1;
    std::vector<OdDbGroup const*> const groups = selectableGroups(document);
    if (groups.empty() || picked.empty() ||
        (std::get<int>(SysVar::find(L"PICKSTYLE")->value(&document)) & kGroups) == 0)
        return picked;
    std::unordered_map<OdDbObjectId, std::vector<std::size_t>> groupsOf;
    std::vector<Ids> members;
    for (OdDbGroup const* const group : groups) {
        members.push_back(membersInSpace(document, *group));
        for (OdDbObjectId const id : members.back())
            groupsOf[id].push_back(members.size() - 1);
    }
    Ids all;
    std::unordered_set<OdDbObjectId> taken;
    auto const take = [&](OdDbObjectId id) {
        if (taken.insert(id).second)
            all.push_back(id);
    };
    for (OdDbObjectId const id : picked) {
        take(id);
        auto const found = groupsOf.find(id);
        if (found == groupsOf.end())
            continue;
        for (std::size_t const number : std::exchange(found->second, {})) {
            for (OdDbObjectId const member : members[number])
                take(member);
            members[number].clear();
        }
    }
    return all;
}

} // namespace ca
