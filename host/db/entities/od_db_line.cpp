#include "host/db/entities/od_db_line.h"

#include "host/db/entities/od_db_extruded_outline.h"
#include "host/db/entities/od_db_stretch.h"
#include "host/db/entities/od_db_transform.h"
#include "host/db/od_db_property_sink.h"
#include "host/geom/curves/od_ge_linear3d.h"

#include <utility>

OD_DB_DEFINE_CLASS(OdDbLine, OdDbCurve, "LINE")

OdDbFieldTable const& OdDbLine::fields()
{
    // clang-format off
    static constexpr OdDbField s_fields[] = {
        odField<&OdDbLine::m_thickness>(39),
        odField<&OdDbLine::m_start>    (10, OdDbWriteRule::kAlways),
        odField<&OdDbLine::m_end>      (11, OdDbWriteRule::kAlways),
        odField<&OdDbLine::m_normal>   (210),
    };
    // clang-format on
    static OdDbFieldTable const s_table({entitySection(), {"AcDbLine", s_fields}});
    return s_table;
}

void OdDbLine::setStartPoint(OdGePoint3d const& point)
{
    assertWriteEnabled();
    m_start = point;
}

void OdDbLine::setEndPoint(OdGePoint3d const& point)
{
    assertWriteEnabled();
    m_end = point;
}

void OdDbLine::setNormal(OdGeVector3d const& normal)
{
    OdGeVector3d const unit = odDbUnitNormal(normal);
    assertWriteEnabled();
    m_normal = unit;
}

void OdDbLine::setThickness(double thickness)
{
    assertWriteEnabled();
    m_thickness = thickness;
}

std::unique_ptr<OdGeCurve3d> OdDbLine::getOdGeCurve() const
{
    return std::make_unique<OdGeLineSeg3d>(m_start, m_end);
}

OdGeVector3d OdDbLine::planeNormal() const
{
    return odDbSaneNormal(m_normal).normal();
}

OdResult OdDbLine::reverseCurve()
{
    assertWriteEnabled();
    std::swap(m_start, m_end);
    return eOk;
}

OdResult OdDbLine::transformBy(OdGeMatrix3d const& transformation)
{
    OdGeVector3d normal = m_normal;
    double thickness = m_thickness;
    if (OdResult const result = odDbTransformExtrusion(transformation, normal, thickness); result != eOk)
        return result;
    assertWriteEnabled();
    m_start = transformation * m_start;
    m_end = transformation * m_end;
    m_normal = normal;
    m_thickness = thickness;
    return eOk;
}

void OdDbLine::outline(OdDbOutlineSink& sink) const
{
    odDbOutlineExtruded(sink, odDbExtrusion(m_normal, m_thickness),
                        [this](OdDbOutlineSink& flat) { flat.segment(m_start, m_end); });
}

void OdDbLine::getStretchPoints(std::vector<OdGePoint3d>& points) const
{
    points.push_back(m_start);
    points.push_back(m_end);
}

OdResult OdDbLine::moveStretchPointsAt(std::span<int const> indices, OdGeVector3d const& offset)
{
    auto const caught = odDbCaughtPoints(indices, 2);
    if (!caught)
        return eInvalidIndex;
    assertWriteEnabled();
    if (caught->front())
        m_start += offset;
    if (caught->back())
        m_end += offset;
    return eOk;
}

void OdDbLine::listProperties(OdDbPropertySink& sink) const
{
    OdGeVector3d const way = m_end - m_start;
    sink.point(L"start point", m_start);
    sink.point(L"end point", m_end);
    sink.distance(L"length", way.length());
    sink.direction(L"angle in XY plane", way);
    sink.vector(L"offset", way);
    odDbListExtrusion(sink, m_normal, m_thickness);
}
