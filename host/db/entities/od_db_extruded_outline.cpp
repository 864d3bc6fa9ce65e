#include "host/db/entities/od_db_extruded_outline.h"

#include "host/db/entities/od_db_transform.h"
#include "host/db/od_db_property_sink.h"

namespace {

bool isSamePlace(OdGePoint3d const& a, OdGePoint3d const& b)
{
    return a.x == b.x && a.y == b.y && a.z == b.z;
}

} // namespace

void OdDbExtrudingSink::edge(OdGePoint3d const& base)
{
    if (m_hasEdge && isSamePlace(base, m_lastBase))
        return;
    m_target.segment(base, base + m_extrusion);
    m_lastBase = base;
    m_hasEdge = true;
}

void OdDbExtrudingSink::edges(OdGePoint3d const& start, OdGePoint3d const& end)
{
    edge(start);
    edge(end);
}

void OdDbExtrudingSink::point(OdGePoint3d const& position)
{
    m_target.point(position);
    m_target.point(position + m_extrusion);
    edge(position);
}

void OdDbExtrudingSink::segment(OdGePoint3d const& start, OdGePoint3d const& end)
{
    m_target.segment(start, end);
    m_target.segment(start + m_extrusion, end + m_extrusion);
    edges(start, end);
}

void OdDbExtrudingSink::arc(OdGeEllipticArc const& arc)
{
    m_target.arc(arc);
    OdGeEllipticArc top = arc;
    top.center += m_extrusion;
    m_target.arc(top);
    if (!arc.isClosed())
        edges(arc.startPoint(), arc.endPoint());
}

void OdDbExtrudingSink::spline(OdGeNurbCurve3d const& curve)
{
    m_target.spline(curve);
    OdGeNurbCurve3d top = curve;
    top.transformBy(OdGeMatrix3d::translation(m_extrusion));
    m_target.spline(top);
    OdGeInterval const range = curve.getInterval();
    edges(curve.evalPoint(range.lower), curve.evalPoint(range.upper));
}

void OdDbExtrudingSink::endless(OdGePoint3d const& base, OdGeVector3d const& direction, bool isRay)
{
    m_target.endless(base, direction, isRay);
    m_target.endless(base + m_extrusion, direction, isRay);
    if (isRay)
        edge(base);
}

void OdDbExtrudingSink::polygon(std::span<OdGePoint3d const> corners)
{
    m_target.polygon(corners);
    std::vector<OdGePoint3d> top(corners.begin(), corners.end());
    for (OdGePoint3d& corner : top)
        corner += m_extrusion;
    m_target.polygon(top);
    for (OdGePoint3d const& corner : corners)
        edge(corner);
}

OdGeVector3d odDbExtrusion(OdGeVector3d const& normal, double thickness)
{
    return thickness == 0 ? OdGeVector3d() : odDbSaneNormal(normal) * thickness;
}

void odDbListExtrusion(OdDbPropertySink& sink, OdGeVector3d const& normal, double thickness)
{
    if (thickness != 0)
        sink.distance(L"thickness", thickness);
    if (!odDbIsWorldPlane(normal))
        sink.vector(L"extrusion direction", normal);
}
