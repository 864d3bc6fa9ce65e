#pragma once

#include "host/db/od_db_object_id.h"

#include <vector>

class OdDbEntity;

/// Walks ids in their order, forwards or backwards. Ids that are added during the walk may or may not be visited.
class OdDbObjectIterator
{
public:
    /// Positioned on the first or, from the end, on the last id that counts.
    OdDbObjectIterator(std::vector<OdDbStub*> const& ids, bool atBeginning, bool skipErased);

    bool done() const { return m_index < 0 || m_index >= static_cast<std::ptrdiff_t>(m_ids->size()); }
    void step(bool forward = true, bool skipErased = true);
    OdDbObjectId objectId() const { return done() ? OdDbObjectId() : OdDbObjectId((*m_ids)[index()]); }
    OdSmartPtr<OdDbEntity> entity(OdDb::OpenMode mode = OdDb::kForRead, bool openErased = false) const;

private:
    std::size_t index() const { return static_cast<std::size_t>(m_index); }
    void skip(bool forward);

    std::vector<OdDbStub*> const* m_ids;
    std::ptrdiff_t m_index;
};
