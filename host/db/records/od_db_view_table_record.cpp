#include "host/db/records/od_db_view_table_record.h"

OD_DB_DEFINE_CLASS(OdDbViewTableRecord, OdDbAbstractViewTableRecord, "VIEW")

OdDbFieldTable const& OdDbViewTableRecord::fields()
{
    // clang-format off
    static constexpr OdDbField s_fields[] = {
        odField<&OdDbViewTableRecord::m_name>               (2, OdDbWriteRule::kAlways),
        odField<&OdDbViewTableRecord::m_flags>              (70, OdDbWriteRule::kAlways),
        odField<&OdDbViewTableRecord::m_height>             (40, OdDbWriteRule::kAlways),
        odField<&OdDbViewTableRecord::m_center>             (10, OdDbWriteRule::kAlways),
        odField<&OdDbViewTableRecord::m_width>              (41, OdDbWriteRule::kAlways),
        odField<&OdDbViewTableRecord::m_direction>          (11, OdDbWriteRule::kAlways),
        odField<&OdDbViewTableRecord::m_target>             (12, OdDbWriteRule::kAlways),
        odField<&OdDbViewTableRecord::m_lensLength>         (42, OdDbWriteRule::kAlways),
        odField<&OdDbViewTableRecord::m_frontClip>          (43, OdDbWriteRule::kAlways),
        odField<&OdDbViewTableRecord::m_backClip>           (44, OdDbWriteRule::kAlways),
        odField<&OdDbViewTableRecord::m_twist>              (50, OdDbWriteRule::kAlways),
        odField<&OdDbViewTableRecord::m_viewMode>           (71, OdDbWriteRule::kAlways),
        odField<&OdDbViewTableRecord::m_renderMode>         (281, OdDbWriteRule::kAlways),
        odField<&OdDbViewTableRecord::m_hasUcs>             (72, OdDbWriteRule::kAlways),
        odField<&OdDbViewTableRecord::m_ucsOrigin>          (110),
        odField<&OdDbViewTableRecord::m_ucsXAxis>           (111),
        odField<&OdDbViewTableRecord::m_ucsYAxis>           (112),
        odField<&OdDbViewTableRecord::m_ucsOrthographicView>(79),
        odField<&OdDbViewTableRecord::m_ucsElevation>       (146),
        odField<&OdDbViewTableRecord::m_namedUcs>           (345),
        odField<&OdDbViewTableRecord::m_baseUcs>            (346),
    };
    // clang-format on
    static OdDbFieldTable const s_table({recordSection(), {"AcDbViewTableRecord", s_fields}});
    return s_table;
}

void OdDbViewTableRecord::setSize(double width, double height)
{
    if (!(width > 0 && height > 0))
        throw OdError(eOutOfRange, L"The sizes of a view must be positive");
    assertWriteEnabled();
    m_width = width;
    m_height = height;
}
