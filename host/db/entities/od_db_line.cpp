#include "host/db/entities/od_db_line.h"

#include "host/db/entities/od_db_transform.h"

OD_DB_DEFINE_CLASS(OdDbLine, OdDbEntity, "LINE")

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
    sink.segment(m_start, m_end);
}
