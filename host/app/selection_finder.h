#pragma once

#include "host/app/selection_region.h"
#include "host/db/od_db_entity.h"

#include <vector>

namespace ca {

class CaDoc;

/// Finds entities of the active space by their true geometry, seen along the Z axis of the user coordinate system.
/// Entities that are invisible or on layers that are off or frozen are never found. In order of drawing.
class SelectionFinder
{
public:
    explicit SelectionFinder(CaDoc const& document);

    enum class EMode
    {
        kWindow,  ///< wholly inside
        kCrossing ///< inside or touching
    };
    /// From the world into the plane of regions.
    OdGeMatrix3d const& worldToPlane() const { return m_worldToUcs; }
    std::vector<OdDbObjectId> in(SelectionRegion const& region, EMode mode) const;
    /// The topmost entity within the pick box around a point; null when there is none.
    OdDbObjectId at(OdGePoint3d const& point) const;
    /// All that is not on frozen layers.
    std::vector<OdDbObjectId> all() const;
    /// The latest entity of the space that is not erased; null in an empty space.
    OdDbObjectId last() const;

private:
    OdDbDatabase const& m_database;
    OdGeMatrix3d m_worldToUcs;
    double m_pickRadius; ///< half the side of the pick box, in drawing units
};

/// Whether the layer of the entity is locked: it can be found, but not changed.
bool isOnLockedLayer(OdDbObjectId entity);

} // namespace ca
