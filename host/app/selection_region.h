#pragma once

#include "host/geom/od_ge_matrix3d.h"
#include "host/geom/od_ge_region2d.h"

#include <vector>

namespace ca {

/// A window, polygon or fence in which entities are selected: a region of the XY plane of a user coordinate
/// system, without limits along its Z axis. Points are in world coordinates.
class SelectionRegion
{
public:
    SelectionRegion(OdGeMatrix3d const& worldToPlane, OdGeRegion2d shape)
        : m_worldToPlane(worldToPlane), m_shape(std::move(shape))
    {
    }
    /// The rectangle between two corners.
    static SelectionRegion rectangle(OdGeMatrix3d const& worldToPlane, OdGePoint3d const& corner,
                                     OdGePoint3d const& opposite);
    static SelectionRegion polygon(OdGeMatrix3d const& worldToPlane, std::vector<OdGePoint3d> const& corners);
    static SelectionRegion fence(OdGeMatrix3d const& worldToPlane, std::vector<OdGePoint3d> const& points);

    OdGeMatrix3d const& worldToPlane() const { return m_worldToPlane; }
    OdGeRegion2d const& shape() const { return m_shape; }
    /// Within the region or on its border: what STRETCH moves.
    bool contains(OdGePoint3d const& point) const
    {
        return m_shape.contains((m_worldToPlane * point).convert2d());
    }

private:
    OdGeMatrix3d m_worldToPlane;
    OdGeRegion2d m_shape;
};

} // namespace ca
