#include "host/db/od_db_selection_set.h"

#include "host/root/od_error.h"

#include <algorithm>

OD_DEFINE_CLASS(OdDbSelectionSet, OdRxObject)

OdDbSelectionSetPtr OdDbSelectionSet::create(OdDbDatabase* database)
{
    OdDbSelectionSetPtr set(new OdDbSelectionSet);
    set->m_database = database;
    return set;
}

void OdDbSelectionSet::checkDatabase(OdDbObjectId entity)
{
    if (entity.isNull())
        throw OdError(eNullObjectId);
    if (m_database && entity.database() != m_database)
        throw OdError(eWrongDatabase);
}

OdDbSelectionSet::Member& OdDbSelectionSet::memberFor(OdDbObjectId entity, bool& isNew)
{
    auto const [it, inserted] = m_positions.try_emplace(entity, m_members.size());
    isNew = inserted;
    if (!isNew)
        return m_members[it->second];
    m_database = entity.database();
    return m_members.emplace_back(Member{entity, nullptr});
}

void OdDbSelectionSet::append(OdDbObjectId entity)
{
    checkDatabase(entity);
    bool isNew = false;
    memberFor(entity, isNew).parts.reset();
}

void OdDbSelectionSet::append(OdDbFullSubentPath const& path)
{
    OdDbObjectId const entity = path.outermost();
    if (path.isWholeEntity())
        return append(entity);
    checkDatabase(entity);
    bool isNew = false;
    Member& member = memberFor(entity, isNew);
    if (isNew)
        member.parts = std::make_unique<std::vector<OdDbFullSubentPath>>();
    if (member.parts && std::ranges::find(*member.parts, path) == member.parts->end())
        member.parts->push_back(path);
}

bool OdDbSelectionSet::remove(OdDbObjectId entity)
{
    auto const it = m_positions.find(entity);
    if (it == m_positions.end())
        return false;
    m_members[it->second] = Member{};
    m_positions.erase(it);
    while (!m_members.empty() && m_members.back().entity.isNull())
        m_members.pop_back();
    while (m_first < m_members.size() && m_members[m_first].entity.isNull())
        ++m_first;
    if (m_members.empty())
        m_first = 0;
    else if (m_members.size() > 2 * numEntities() + 16)
        closeGaps();
    return true;
}

void OdDbSelectionSet::clear()
{
    m_members.clear();
    m_positions.clear();
    m_first = 0;
}

void OdDbSelectionSet::closeGaps() const
{
    std::erase_if(m_members, [](Member const& member) { return member.entity.isNull(); });
    for (std::size_t i = 0; i < m_members.size(); ++i)
        m_positions[m_members[i].entity] = i;
    m_first = 0;
}

OdDbObjectId OdDbSelectionSet::at(std::size_t index) const
{
    if (index >= numEntities())
        throw OdError(eInvalidIndex);
    if (m_members.size() - m_first != numEntities())
        closeGaps();
    return m_members[m_first + index].entity;
}

std::vector<OdDbObjectId> OdDbSelectionSet::objectIds() const
{
    std::vector<OdDbObjectId> ids;
    ids.reserve(numEntities());
    for (Iterator it = newIterator(); !it.done(); it.next())
        ids.push_back(it.objectId());
    return ids;
}

OdDbSelectionSet::Iterator OdDbSelectionSet::newIterator() const
{
    return Iterator(m_members.data() + m_first, m_members.data() + m_members.size());
}

OdDbSelectionSet::Iterator::Iterator(Member const* at, Member const* end) : m_at(at), m_end(end)
{
    skipRemoved();
}

void OdDbSelectionSet::Iterator::next()
{
    ++m_at;
    skipRemoved();
}

void OdDbSelectionSet::Iterator::skipRemoved()
{
    while (m_at != m_end && m_at->entity.isNull())
        ++m_at;
}

std::vector<OdDbFullSubentPath> const& OdDbSelectionSet::Iterator::parts() const
{
    static std::vector<OdDbFullSubentPath> const s_none;
    return m_at->parts ? *m_at->parts : s_none;
}
