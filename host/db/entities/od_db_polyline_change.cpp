// How a polyline is moved, stretched and turned round.
#include "host/db/entities/od_db_polyline.h"
#include "host/db/entities/od_db_stretch.h"
#include "host/db/entities/od_db_transform.h"

#include <utility>

OdResult OdDbPolyline::transformBy(OdGeMatrix3d const& transformation)
{
    auto const plane = OdDbPlaneTransform::make(transformation, m_normal);
    if (!plane || (!plane->keepsShape() && (hasBulges() || hasWidth())) ||
        (m_thickness != 0 && !plane->keepsExtrusion()))
        return eDegenerateGeometry;
    assertWriteEnabled();
    moveVertices(*plane);
    m_thickness *= plane->extrusionScale();
    m_normal = plane->normal();
    return eOk;
}

void OdDbPolyline::moveVertices(OdDbPlaneTransform const& plane)
{
    double const widthScale = plane.keepsShape() ? plane.scale() : 1.0;
    for (Vertex& each : m_vertices) {
        each.point = (plane * OdGePoint3d(each.point.x, each.point.y, m_elevation)).convert2d();
        if (plane.mirrors() && each.bulge != 0)
            each.bulge = -each.bulge;
        each.startWidth *= widthScale;
        each.endWidth *= widthScale;
    }
    m_constantWidth *= widthScale;
    m_elevation = (plane * OdGePoint3d(0, 0, m_elevation)).z;
}

void OdDbPolyline::getStretchPoints(std::vector<OdGePoint3d>& points) const
{
    OdGeMatrix3d const toWorld = odDbPlaneToWorld(m_normal);
    for (Vertex const& each : m_vertices)
        points.push_back(toWorld * inPlane(each.point));
}

OdResult OdDbPolyline::moveStretchPointsAt(std::span<int const> indices, OdGeVector3d const& offset)
{
    auto const caught = odDbCaughtPoints(indices, m_vertices.size());
    if (!caught)
        return eInvalidIndex;
    if (!std::count(caught->begin(), caught->end(), false))
        return transformBy(OdGeMatrix3d::translation(offset));
    OdGeVector2d const step = (odDbWorldToPlane(m_normal) * offset).convert2d();
    assertWriteEnabled();
    for (std::size_t i = 0; i < m_vertices.size(); ++i)
        if ((*caught)[i])
            m_vertices[i].point += step;
    return eOk;
}

OdResult OdDbPolyline::reverseCurve()
{
    if (m_vertices.size() < 2)
        return eDegenerateGeometry;
    assertWriteEnabled();
    std::vector<Vertex> const before = m_vertices;
    std::size_t const count = before.size();
    std::reverse(m_vertices.begin(), m_vertices.end());
    for (std::size_t i = 0; i < count; ++i) {
        // What belongs to a segment stands at its first vertex, which was its last one.
        Vertex const& segment = before[(2 * count - 2 - i) % count];
        Vertex& vertex = m_vertices[i];
        vertex.bulge = segment.bulge == 0 ? 0 : -segment.bulge;
        vertex.startWidth = segment.endWidth;
        vertex.endWidth = segment.startWidth;
    }
    return eOk;
}
