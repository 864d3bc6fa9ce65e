#include "host/db/od_db_object_iterator.h"

#include "host/db/od_db_entity.h"

OdDbObjectIterator::OdDbObjectIterator(std::vector<OdDbStub*> const& ids, bool atBeginning, bool skipErased)
    : m_ids(&ids), m_index(atBeginning ? 0 : static_cast<std::ptrdiff_t>(ids.size()) - 1)
{
    if (skipErased)
        skip(atBeginning);
}

void OdDbObjectIterator::skip(bool forward)
{
    while (!done() && (*m_ids)[index()]->erased)
        m_index += forward ? 1 : -1;
}

void OdDbObjectIterator::step(bool forward, bool skipErased)
{
    if (done())
        return;
    m_index += forward ? 1 : -1;
    if (skipErased)
        skip(forward);
}

OdDbEntityPtr OdDbObjectIterator::entity(OdDb::OpenMode mode, bool openErased) const
{
    return objectId().open<OdDbEntity>(mode, openErased);
}
