#include "host/sds/sds_names.h"

#include "host/db/od_db_database.h"
#include "host/root/od_error.h"

#include <unordered_map>
#include <vector>

namespace {

// The second word tells what is named, so that neither kind is ever taken for the other.
constexpr std::int64_t s_objectKind = 0;
constexpr std::int64_t s_selectionSetKind = 1;

/// The objects of one drawing that were named. The first word of a name has their number, counted from 1, in its
/// lower half and the serial of the drawing in its upper half, so that nothing is followed that may be gone.
class ObjectNames
{
public:
    std::int64_t numberOf(OdDbStub* stub)
    {
        auto const [it, isNew] = m_numbers.try_emplace(stub, m_stubs.size() + 1);
        if (isNew)
            m_stubs.push_back(stub);
        return static_cast<std::int64_t>(it->second);
    }
    OdDbStub* find(std::int64_t number) const
    {
        auto const index = static_cast<std::uint64_t>(number) - 1;
        return index < m_stubs.size() ? m_stubs[index] : nullptr;
    }

private:
    std::vector<OdDbStub*> m_stubs;
    std::unordered_map<OdDbStub const*, std::size_t> m_numbers;
};

constexpr std::int64_t s_half = std::int64_t{1} << 32;

std::unordered_map<std::int64_t, ObjectNames>& objectNames()
{
    static std::unordered_map<std::int64_t, ObjectNames> s_names; // by the serial of the drawing
    return s_names;
}

ObjectNames& namesIn(OdDbDatabase const& database)
{
    auto& all = objectNames();
    if (auto const known = all.find(database.serial()); known != all.end())
        return known->second;
    std::erase_if(all, [](auto const& each) { return !OdDbDatabase::ofSerial(each.first); });
    return all[database.serial()];
}

struct SelectionSetNames
{
    std::unordered_map<std::int64_t, OdDbSelectionSetPtr> sets;
    std::unordered_map<OdDbSelectionSet const*, std::int64_t> words;
    std::int64_t lastWord = 0;
};

SelectionSetNames& selectionSetNames()
{
    static SelectionSetNames s_names;
    return s_names;
}

bool isNullName(std::int64_t const* name)
{
    return !name || (name[0] == 0 && name[1] == 0);
}

void assign(std::int64_t* target, SdsName const& name)
{
    target[0] = name.words[0];
    target[1] = name.words[1];
}

/// Runs an action on the set of a name; RTERROR for an unknown set, an action that gives false or throws OdError.
template <class Action>
int withSet(std::int64_t const* name, Action action)
{
    OdDbSelectionSetPtr const set = ca::selectionSetOf(name);
    if (set.isNull())
        return RTERROR;
    try {
        return action(*set) ? RTNORM : RTERROR;
    } catch (OdError const&) {
        return RTERROR;
    }
}

} // namespace

namespace ca {

SdsName nameOf(OdDbSelectionSet* set)
{
    if (!set)
        return {};
    SelectionSetNames& names = selectionSetNames();
    auto const [it, isNew] = names.words.try_emplace(set, names.lastWord + 1);
    if (isNew)
        names.sets.emplace(++names.lastWord, set);
    return {{it->second, s_selectionSetKind}};
}

OdDbSelectionSetPtr selectionSetOf(std::int64_t const* name)
{
    if (!name || name[1] != s_selectionSetKind)
        return nullptr;
    SelectionSetNames const& names = selectionSetNames();
    auto const it = names.sets.find(name[0]);
    return it == names.sets.end() ? OdDbSelectionSetPtr() : it->second;
}

SdsName nameOf(OdDbObjectId id)
{
    OdDbDatabase const* const database = id.database();
    if (!database)
        return {};
    return {{database->serial() * s_half + namesIn(*database).numberOf(id.stub()), s_objectKind}};
}

OdDbObjectId objectIdOf(std::int64_t const* name)
{
    if (!name || name[1] != s_objectKind)
        return {};
    std::int64_t const serial = name[0] / s_half;
    auto const names = objectNames().find(serial);
    bool const isKnown = names != objectNames().end() && OdDbDatabase::ofSerial(serial);
    return isKnown ? OdDbObjectId(names->second.find(name[0] % s_half)) : OdDbObjectId();
}

} // namespace ca

int sds_ssfree(std::int64_t const* set)
{
    OdDbSelectionSetPtr const named = ca::selectionSetOf(set);
    if (named.isNull())
        return RTERROR;
    selectionSetNames().words.erase(named.get());
    selectionSetNames().sets.erase(set[0]);
    return RTNORM;
}

int sds_ssadd(std::int64_t const* entity, std::int64_t const* set, std::int64_t* result)
{
    OdDbSelectionSetPtr const target = isNullName(set) ? OdDbSelectionSet::create() : ca::selectionSetOf(set);
    if (!result || target.isNull())
        return RTERROR;
    if (!isNullName(entity)) {
        try {
            target->append(ca::objectIdOf(entity));
        } catch (OdError const&) {
            return RTERROR;
        }
    }
    assign(result, ca::nameOf(target.get()));
    return RTNORM;
}

int sds_ssdel(std::int64_t const* entity, std::int64_t const* set)
{
    return withSet(set, [entity](OdDbSelectionSet& named) { return named.remove(ca::objectIdOf(entity)); });
}

int sds_sslength(std::int64_t const* set, std::int64_t* length)
{
    return withSet(set, [length](OdDbSelectionSet const& named) {
        if (length)
            *length = static_cast<std::int64_t>(named.numEntities());
        return length != nullptr;
    });
}

int sds_ssmemb(std::int64_t const* entity, std::int64_t const* set)
{
    return withSet(set, [entity](OdDbSelectionSet const& named) { return named.member(ca::objectIdOf(entity)); });
}

int sds_ssname(std::int64_t const* set, std::int64_t index, std::int64_t* entity)
{
    return withSet(set, [index, entity](OdDbSelectionSet const& named) {
        if (!entity || index < 0)
            return false;
        assign(entity, ca::nameOf(named.at(static_cast<std::size_t>(index))));
        return true;
    });
}
