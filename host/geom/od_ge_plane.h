#pragma once

#include "host/geom/od_ge_matrix3d.h"

/// A plane with a place and axes of its own; the axes are unit vectors, perpendicular to each other.
class OdGePlane
{
public:
    /// The XY plane.
    OdGePlane() = default;
    /// The axes are those that drawing files give to the plane of this normal. Throws
    /// OdError(eDegenerateGeometry) for a zero normal.
    OdGePlane(OdGePoint3d const& origin, OdGeVector3d const& normal);
    /// Throws OdError(eDegenerateGeometry) for axes that are zero or parallel; the V axis is made perpendicular.
    OdGePlane(OdGePoint3d const& origin, OdGeVector3d const& uAxis, OdGeVector3d const& vAxis);

    OdGePoint3d const& origin() const { return m_origin; }
    OdGeVector3d const& uAxis() const { return m_uAxis; }
    OdGeVector3d const& vAxis() const { return m_vAxis; }
    OdGeVector3d normal() const { return m_uAxis.crossProduct(m_vAxis); }

    /// Positive on the side of the normal.
    double signedDistanceTo(OdGePoint3d const& point) const { return (point - m_origin).dotProduct(normal()); }
    bool isOn(OdGePoint3d const& point, OdGeTol const& tol = OdGeContext::gTol) const
    {
        return std::abs(signedDistanceTo(point)) <= tol.equalPoint();
    }
    /// Coordinates along the axes; the distance from the plane is dropped.
    OdGePoint2d paramOf(OdGePoint3d const& point) const
    {
        OdGeVector3d const v = point - m_origin;
        return {v.dotProduct(m_uAxis), v.dotProduct(m_vAxis)};
    }
    OdGePoint3d evalPoint(OdGePoint2d const& uv) const { return m_origin + m_uAxis * uv.x + m_vAxis * uv.y; }
    OdGePoint3d closestPointTo(OdGePoint3d const& point) const { return evalPoint(paramOf(point)); }
    /// From plane coordinates (u, v, height) to the world.
    OdGeMatrix3d toWorld() const;

private:
    OdGePoint3d m_origin;
    OdGeVector3d m_uAxis{1, 0, 0};
    OdGeVector3d m_vAxis{0, 1, 0};
};
