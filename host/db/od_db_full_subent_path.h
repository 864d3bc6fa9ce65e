#pragma once

#include "host/db/od_db_object_id.h"
#include "host/root/od_array.h"

namespace OdDb {
/// Kinds of parts that an entity can be selected by. kNullSubentType means the entity as a whole.
enum SubentType
{
    kNullSubentType,
    kFaceSubentType,
    kEdgeSubentType,
    kVertexSubentType
};
} // namespace OdDb

/// A part of an entity: its kind and its number among the parts of that kind.
struct OdDbSubentId
{
    OdDb::SubentType type = OdDb::kNullSubentType;
    int index = 0;

    friend constexpr bool operator==(OdDbSubentId, OdDbSubentId) = default;
};

/// The way to an entity or a part of one: the block references that lead to it, outermost first, the entity
/// itself, and the part.
class OdDbFullSubentPath
{
public:
    OdDbFullSubentPath() = default;
    explicit OdDbFullSubentPath(OdDbObjectId entity) : m_objectIds{entity} {}
    explicit OdDbFullSubentPath(OdArray<OdDbObjectId> objectIds, OdDbSubentId part = {})
        : m_objectIds(std::move(objectIds)), m_subentId(part)
    {
    }

    OdArray<OdDbObjectId> const& objectIds() const { return m_objectIds; }
    OdDbSubentId const& subentId() const { return m_subentId; }

    /// The entity that stands in the drawing itself; null for an empty path.
    OdDbObjectId outermost() const { return m_objectIds.empty() ? OdDbObjectId() : m_objectIds.first(); }
    /// Leads to one entity as a whole, not to a part of it or into a block.
    bool isWholeEntity() const { return m_objectIds.size() == 1 && m_subentId == OdDbSubentId(); }

    friend bool operator==(OdDbFullSubentPath const&, OdDbFullSubentPath const&) = default;

private:
    OdArray<OdDbObjectId> m_objectIds;
    OdDbSubentId m_subentId;
};
