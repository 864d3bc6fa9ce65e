#include "host/db/records/od_db_ucs_table_record.h"

OD_DB_DEFINE_CLASS(OdDbUCSTableRecord, OdDbSymbolTableRecord, "UCS")

OdDbFieldTable const& OdDbUCSTableRecord::fields()
{
    // clang-format off
    static constexpr OdDbField s_fields[] = {
        odField<&OdDbUCSTableRecord::m_name>            (2, OdDbWriteRule::kAlways),
        odField<&OdDbUCSTableRecord::m_flags>           (70, OdDbWriteRule::kAlways),
        odField<&OdDbUCSTableRecord::m_origin>          (10, OdDbWriteRule::kAlways),
        odField<&OdDbUCSTableRecord::m_xAxis>           (11, OdDbWriteRule::kAlways),
        odField<&OdDbUCSTableRecord::m_yAxis>           (12, OdDbWriteRule::kAlways),
        odField<&OdDbUCSTableRecord::m_orthographicView>(79, OdDbWriteRule::kAlways),
        odField<&OdDbUCSTableRecord::m_elevation>       (146, OdDbWriteRule::kAlways),
        odField<&OdDbUCSTableRecord::m_base>            (346),
    };
    // clang-format on
    static OdDbFieldTable const s_table({recordSection(), {"AcDbUCSTableRecord", s_fields}});
    return s_table;
}

void OdDbUCSTableRecord::setOrigin(OdGePoint3d const& point)
{
    assertWriteEnabled();
    m_origin = point;
}

void OdDbUCSTableRecord::setAxes(OdGeVector3d const& x, OdGeVector3d const& y)
{
    if (!x.isPerpendicularTo(y))
        throw OdError(eDegenerateGeometry, L"The axes of a coordinate system must be perpendicular");
    assertWriteEnabled();
    m_xAxis = x.normal();
    m_yAxis = y.normal();
}
