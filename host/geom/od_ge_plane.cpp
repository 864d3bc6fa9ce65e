#include "host/geom/od_ge_plane.h"

#include "host/geom/od_ge_frame.h"

OdGePlane::OdGePlane(OdGePoint3d const& origin, OdGeVector3d const& normal) : m_origin(origin)
{
    OdGeMatrix3d const axes = OdGeMatrix3d::planeToWorld(normal);
    m_uAxis = axes.column(0);
    m_vAxis = axes.column(1);
}

OdGePlane::OdGePlane(OdGePoint3d const& origin, OdGeVector3d const& uAxis, OdGeVector3d const& vAxis)
    : m_origin(origin), m_uAxis(odgeUnitOrThrow(uAxis)), m_vAxis(odgeUnitAcross(vAxis, m_uAxis))
{
}

OdGeMatrix3d OdGePlane::toWorld() const
{
    return OdGeMatrix3d().setCoordSystem(m_origin, m_uAxis, m_vAxis, normal());
}
