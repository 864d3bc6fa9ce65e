#pragma once

// For the comparison of drawings: the records of tables that some entities need to look as they do.

#include "testapi/ta_host.h"

#include <unordered_set>
#include <vector>

namespace ta {

/// Layers, linetypes, styles and blocks that entities of one drawing use: those that they and their parts name,
/// those that such records name, and those that the entities of used blocks name. Of entities that the host only
/// keeps, the handles and names in their tags count. Spaces and sheets are not among the blocks.
class UsedRecords
{
public:
    /// With skipCommonProps the layers and linetypes of entities do not count. The drawing must not change while
    /// this object lives.
    UsedRecords(OdDbDatabase const& database, bool skipCommonProps)
        : m_database(database), m_skipCommonProps(skipCommonProps)
    {
    }

    /// Adds what an entity of the drawing uses.
    void add(OdDbEntity const& entity);
    bool contains(OdDbSymbolTableRecord const& record) const
    {
        return m_records.contains(record.objectId().stub());
    }

private:
    class TailSink;

    void take(OdDbObjectId id);
    void takeHandle(OdDbTag const& tag);
    void takeFromEntity(OdDbStub const* stub);
    void takeFrom(OdDbObject& object);
    void takeFromKept(OdDbTagList const& tags);

    OdDbDatabase const& m_database;
    bool m_skipCommonProps;
    std::unordered_set<OdDbStub const*> m_records;
    std::vector<OdDbStub const*> m_unread; ///< records of m_records; what they use is still to be taken
};

} // namespace ta
