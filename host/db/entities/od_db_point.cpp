#include "host/db/entities/od_db_point.h"

#include "host/db/entities/od_db_extruded_outline.h"
#include "host/db/entities/od_db_plane_transform.h"
#include "host/db/entities/od_db_stretch.h"
#include "host/db/entities/od_db_transform.h"
#include "host/db/od_db_property_sink.h"

OD_DB_DEFINE_CLASS(OdDbPoint, OdDbEntity, "POINT")

OdDbFieldTable const& OdDbPoint::fields()
{
    // clang-format off
    static constexpr OdDbField s_fields[] = {
        odField<&OdDbPoint::m_position>      (10, OdDbWriteRule::kAlways),
        odField<&OdDbPoint::m_thickness>     (39),
        odField<&OdDbPoint::m_normal>        (210),
        odField<&OdDbPoint::m_symbolRotation>(50),
    };
    // clang-format on
    static OdDbFieldTable const s_table({entitySection(), {"AcDbPoint", s_fields}});
    return s_table;
}

void OdDbPoint::setPosition(OdGePoint3d const& position)
{
    assertWriteEnabled();
    m_position = position;
}

void OdDbPoint::setNormal(OdGeVector3d const& normal)
{
    OdGeVector3d const unit = odDbUnitNormal(normal);
    assertWriteEnabled();
    m_normal = unit;
}

void OdDbPoint::setThickness(double thickness)
{
    assertWriteEnabled();
    m_thickness = thickness;
}

void OdDbPoint::setSymbolRotation(double angle)
{
    assertWriteEnabled();
    m_symbolRotation = OdDbAngle::ofRadians(angle);
}

OdResult OdDbPoint::transformBy(OdGeMatrix3d const& transformation)
{
    OdGeVector3d normal = m_normal;
    double thickness = m_thickness;
    auto const plane = OdDbPlaneTransform::make(transformation, m_normal);
    if (OdResult const result = odDbTransformExtrusion(transformation, normal, thickness); result != eOk)
        return result;
    assertWriteEnabled();
    m_position = transformation * m_position;
    m_normal = normal;
    m_thickness = thickness;
    if (plane && plane->keepsShape())
        m_symbolRotation = *plane * m_symbolRotation;
    return eOk;
}

void OdDbPoint::outline(OdDbOutlineSink& sink) const
{
    odDbOutlineExtruded(sink, odDbExtrusion(m_normal, m_thickness),
                        [this](OdDbOutlineSink& flat) { flat.point(m_position); });
}

void OdDbPoint::getStretchPoints(std::vector<OdGePoint3d>& points) const
{
    points.push_back(m_position);
}

OdResult OdDbPoint::moveStretchPointsAt(std::span<int const> indices, OdGeVector3d const& offset)
{
    return odDbStretchWhole(*this, indices, offset);
}

void OdDbPoint::listProperties(OdDbPropertySink& sink) const
{
    sink.point(L"position", m_position);
    if (symbolRotation() != 0)
        sink.angle(L"rotation of the symbol", symbolRotation());
    odDbListExtrusion(sink, m_normal, m_thickness);
}
