#include "host/app/commands/drawing_plane.h"

#include "host/db/entities/od_db_transform.h"

namespace ca {

DrawingPlane::DrawingPlane(Editor const& editor, OdGePoint3d const& through)
    : m_normal(editor.ucsNormal()),
      m_planeToWorld(odDbPlaneToWorld(m_normal)),
      m_worldToPlane(odDbWorldToPlane(m_normal)),
      m_elevation((m_worldToPlane * through).z),
      m_userXAngle(toPlane(editor.ucsToWorld() * OdGeVector3d::kXAxis).angle())
{
}

OdGeVector2d DrawingPlane::directionOf(double userAngle) const
{
    double const angle = angleToPlane(userAngle);
    return {std::cos(angle), std::sin(angle)};
}

} // namespace ca
