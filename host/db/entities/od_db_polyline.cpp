#include "host/db/entities/od_db_polyline.h"

#include "host/db/entities/od_db_transform.h"

namespace {

void checkWidth(double width)
{
    if (!(width >= 0) || !std::isfinite(width))
        throw OdError(eOutOfRange, odFormat(L"The width %g is negative", width));
}

} // namespace

OdDbPolyline::Vertex const& OdDbPolyline::vertex(unsigned index) const
{
    if (index >= m_vertices.size())
        throw OdError(eInvalidIndex);
    return m_vertices[index];
}

OdDbPolyline::Vertex& OdDbPolyline::editVertex(unsigned index)
{
    vertex(index);
    assertWriteEnabled();
    return m_vertices[index];
}

OdGePoint3d OdDbPolyline::getWorldPointAt(unsigned index) const
{
    OdGePoint2d const& point = vertex(index).point;
    return odDbToWorld({point.x, point.y, m_elevation}, m_normal);
}

void OdDbPolyline::setPointAt(unsigned index, OdGePoint2d const& point)
{
    editVertex(index).point = point;
}

void OdDbPolyline::setBulgeAt(unsigned index, double bulge)
{
    editVertex(index).bulge = bulge;
}

double OdDbPolyline::getStartWidthAt(unsigned index) const
{
    Vertex const& at = vertex(index);
    return m_hasVertexWidths ? at.startWidth : m_constantWidth;
}

double OdDbPolyline::getEndWidthAt(unsigned index) const
{
    Vertex const& at = vertex(index);
    return m_hasVertexWidths ? at.endWidth : m_constantWidth;
}

void OdDbPolyline::setWidthsAt(unsigned index, double startWidth, double endWidth)
{
    checkWidth(startWidth);
    checkWidth(endWidth);
    giveWidths(editVertex(index), startWidth, endWidth);
}

void OdDbPolyline::giveWidths(Vertex& target, double startWidth, double endWidth)
{
    if (!m_hasVertexWidths) {
        if (startWidth == m_constantWidth && endWidth == m_constantWidth)
            return;
        for (Vertex& each : m_vertices)
            each.startWidth = each.endWidth = m_constantWidth;
        m_constantWidth = 0;
        m_hasVertexWidths = true;
    }
    target.startWidth = startWidth;
    target.endWidth = endWidth;
}

void OdDbPolyline::setVertexIdentifierAt(unsigned index, int identifier)
{
    editVertex(index).identifier = identifier;
}

void OdDbPolyline::addVertexAt(unsigned index, OdGePoint2d const& point, double bulge, double startWidth,
                               double endWidth)
{
    if (index > m_vertices.size())
        throw OdError(eInvalidIndex);
    assertWriteEnabled();
    Vertex added;
    added.point = point;
    added.bulge = bulge;
    double const width = getConstantWidth();
    giveWidths(added, startWidth < 0 ? width : startWidth, endWidth < 0 ? width : endWidth);
    m_vertices.insert(m_vertices.begin() + static_cast<std::ptrdiff_t>(index), added);
}

void OdDbPolyline::removeVertexAt(unsigned index)
{
    editVertex(index);
    m_vertices.erase(m_vertices.begin() + static_cast<std::ptrdiff_t>(index));
}

void OdDbPolyline::setConstantWidth(double width)
{
    checkWidth(width);
    assertWriteEnabled();
    m_constantWidth = width;
    m_hasVertexWidths = false;
    for (Vertex& each : m_vertices)
        each.startWidth = each.endWidth = 0;
}

bool OdDbPolyline::hasBulges() const
{
    return std::any_of(m_vertices.begin(), m_vertices.end(), [](Vertex const& each) { return each.bulge != 0; });
}

bool OdDbPolyline::hasWidth() const
{
    if (!m_hasVertexWidths)
        return m_constantWidth != 0;
    return std::any_of(m_vertices.begin(), m_vertices.end(),
                       [](Vertex const& each) { return each.startWidth != 0 || each.endWidth != 0; });
}

void OdDbPolyline::setFlag(std::int16_t flag, bool on)
{
    assertWriteEnabled();
    m_flags = static_cast<std::int16_t>(on ? m_flags | flag : m_flags & ~flag);
}

void OdDbPolyline::setElevation(double elevation)
{
    assertWriteEnabled();
    m_elevation = elevation;
}

void OdDbPolyline::setNormal(OdGeVector3d const& normal)
{
    OdGeVector3d const unit = odDbUnitNormal(normal);
    assertWriteEnabled();
    m_normal = unit;
}

void OdDbPolyline::setThickness(double thickness)
{
    assertWriteEnabled();
    m_thickness = thickness;
}
