#include "host/db/od_db_part_list.h"

#include "host/db/od_db_entity.h"

OdDbObjectId OdDbPartList::sequenceEnd() const
{
    OdDbObjectId const id(m_sequenceEnd);
    return id.isErased() ? OdDbObjectId() : id;
}

unsigned OdDbPartList::count() const
{
    if (m_loose)
        return static_cast<unsigned>(m_loose->size());
    auto const present =
        std::count_if(m_stubs.begin(), m_stubs.end(), [](OdDbStub const* stub) { return !stub->erased; });
    return static_cast<unsigned>(present);
}

OdDbEntity const& OdDbPartList::at(std::size_t index) const
{
    if (m_loose)
        return *(*m_loose)[index];
    return static_cast<OdDbEntity const&>(*m_stubs[index]->object);
}

OdDbPartIterator::OdDbPartIterator(OdDbPartList const* parts, bool skipErased) : m_parts(parts)
{
    if (skipErased)
        skip();
}

void OdDbPartIterator::skip()
{
    while (!done() && !m_parts->m_loose && m_parts->m_stubs[m_index]->erased)
        ++m_index;
}

void OdDbPartIterator::step(bool skipErased)
{
    ++m_index;
    if (skipErased)
        skip();
}

OdDbObjectId OdDbPartIterator::objectId() const
{
    return done() || m_parts->m_loose ? OdDbObjectId() : OdDbObjectId(m_parts->m_stubs[m_index]);
}

OdDbEntityPtr OdDbPartIterator::entity(OdDb::OpenMode mode) const
{
    if (done())
        throw OdError(eInvalidIndex);
    if (m_parts->m_loose)
        return (*m_parts->m_loose)[m_index];
    return objectId().open<OdDbEntity>(mode, true);
}

OdDbEntity const& OdDbPartIterator::peek() const
{
    if (done())
        throw OdError(eInvalidIndex);
    return m_parts->at(m_index);
}
