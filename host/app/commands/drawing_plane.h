#pragma once

#include "host/app/editor.h"

namespace ca {

/// The plane in which a command draws flat entities: parallel to the XY plane of the user coordinate system,
/// through a given point. Coordinates in it are those that the entities hold, which need not be the user's.
class DrawingPlane
{
public:
    DrawingPlane(Editor const& editor, OdGePoint3d const& through);

    OdGeVector3d const& normal() const { return m_normal; }
    /// Height above the world origin, along the normal.
    double elevation() const { return m_elevation; }

    /// Points off the plane are dropped onto it.
    OdGePoint2d toPlane(OdGePoint3d const& world) const { return (m_worldToPlane * world).convert2d(); }
    OdGeVector2d toPlane(OdGeVector3d const& world) const { return (m_worldToPlane * world).convert2d(); }
    OdGePoint3d toWorld(OdGePoint2d const& point) const
    {
        return m_planeToWorld * OdGePoint3d(point.x, point.y, m_elevation);
    }
    OdGeVector3d toWorld(OdGeVector2d const& v) const { return m_planeToWorld * OdGeVector3d(v.x, v.y, 0); }

    /// From an angle that the user counts, from the X axis of the user coordinate system, to one in the plane.
    double angleToPlane(double userAngle) const { return userAngle + m_userXAngle; }
    OdGeVector2d directionOf(double userAngle) const;
    double angleToUser(OdGeVector2d const& direction) const
    {
        return odgeFoldAngle(direction.angle() - m_userXAngle);
    }

private:
    OdGeVector3d m_normal;
    OdGeMatrix3d m_planeToWorld;
    OdGeMatrix3d m_worldToPlane;
    double m_elevation;
    double m_userXAngle;
};

} // namespace ca
