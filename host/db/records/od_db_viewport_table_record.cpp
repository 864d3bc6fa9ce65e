#include "host/db/records/od_db_viewport_table_record.h"

OD_DB_DEFINE_CLASS(OdDbViewportTableRecord, OdDbAbstractViewTableRecord, "VPORT")

OdDbFieldTable const& OdDbViewportTableRecord::fields()
{
    // clang-format off
    static constexpr OdDbField s_fields[] = {
        odField<&OdDbViewportTableRecord::m_name>               (2, OdDbWriteRule::kAlways),
        odField<&OdDbViewportTableRecord::m_flags>              (70, OdDbWriteRule::kAlways),
        odField<&OdDbViewportTableRecord::m_lowerLeft>          (10, OdDbWriteRule::kAlways),
        odField<&OdDbViewportTableRecord::m_upperRight>         (11, OdDbWriteRule::kAlways),
        odField<&OdDbViewportTableRecord::m_center>             (12, OdDbWriteRule::kAlways),
        odField<&OdDbViewportTableRecord::m_snapBase>           (13, OdDbWriteRule::kAlways),
        odField<&OdDbViewportTableRecord::m_snapIncrements>     (14, OdDbWriteRule::kAlways),
        odField<&OdDbViewportTableRecord::m_gridIncrements>     (15, OdDbWriteRule::kAlways),
        odField<&OdDbViewportTableRecord::m_direction>          (16, OdDbWriteRule::kAlways),
        odField<&OdDbViewportTableRecord::m_target>             (17, OdDbWriteRule::kAlways),
        odField<&OdDbViewportTableRecord::m_height>             (40, OdDbWriteRule::kAlways),
        odField<&OdDbViewportTableRecord::m_aspect>             (41, OdDbWriteRule::kAlways),
        odField<&OdDbViewportTableRecord::m_lensLength>         (42, OdDbWriteRule::kAlways),
        odField<&OdDbViewportTableRecord::m_frontClip>          (43, OdDbWriteRule::kAlways),
        odField<&OdDbViewportTableRecord::m_backClip>           (44, OdDbWriteRule::kAlways),
        odField<&OdDbViewportTableRecord::m_snapAngle>          (50, OdDbWriteRule::kAlways),
        odField<&OdDbViewportTableRecord::m_twist>              (51, OdDbWriteRule::kAlways),
        odField<&OdDbViewportTableRecord::m_viewMode>           (71, OdDbWriteRule::kAlways),
        odField<&OdDbViewportTableRecord::m_circleSides>        (72, OdDbWriteRule::kAlways),
        odField<&OdDbViewportTableRecord::m_fastZoom>           (73, OdDbWriteRule::kAlways),
        odField<&OdDbViewportTableRecord::m_ucsIcon>            (74, OdDbWriteRule::kAlways),
        odField<&OdDbViewportTableRecord::m_snapMode>           (75, OdDbWriteRule::kAlways),
        odField<&OdDbViewportTableRecord::m_gridMode>           (76, OdDbWriteRule::kAlways),
        odField<&OdDbViewportTableRecord::m_snapStyle>          (77, OdDbWriteRule::kAlways),
        odField<&OdDbViewportTableRecord::m_snapIsoPair>        (78, OdDbWriteRule::kAlways),
        odField<&OdDbViewportTableRecord::m_renderMode>         (281, OdDbWriteRule::kAlways),
        odField<&OdDbViewportTableRecord::m_ucsPerViewport>     (65, OdDbWriteRule::kAlways),
        odField<&OdDbViewportTableRecord::m_ucsOrigin>          (110),
        odField<&OdDbViewportTableRecord::m_ucsXAxis>           (111),
        odField<&OdDbViewportTableRecord::m_ucsYAxis>           (112),
        odField<&OdDbViewportTableRecord::m_namedUcs>           (345),
        odField<&OdDbViewportTableRecord::m_baseUcs>            (346),
        odField<&OdDbViewportTableRecord::m_ucsOrthographicView>(79),
        odField<&OdDbViewportTableRecord::m_ucsElevation>       (146),
    };
    // clang-format on
    static OdDbFieldTable const s_table({recordSection(), {"AcDbViewportTableRecord", s_fields}});
    return s_table;
}

void OdDbViewportTableRecord::setSize(double height, double aspect)
{
    if (!(height > 0 && aspect > 0))
        throw OdError(eOutOfRange, L"The sizes of a view must be positive");
    assertWriteEnabled();
    m_height = height;
    m_aspect = aspect;
}

void OdDbViewportTableRecord::setSnapEnabled(bool on)
{
    assertWriteEnabled();
    m_snapMode = on ? 1 : 0;
}

void OdDbViewportTableRecord::setIsometricSnapEnabled(bool on)
{
    assertWriteEnabled();
    m_snapStyle = on ? 1 : 0;
}

void OdDbViewportTableRecord::setSnapPair(int pair)
{
    if (pair < 0 || pair > 2)
        throw OdError(eOutOfRange, L"The isometric planes are numbered 0 to 2");
    assertWriteEnabled();
    m_snapIsoPair = static_cast<std::int16_t>(pair);
}

void OdDbViewportTableRecord::setSnapBase(OdGePoint2d const& point)
{
    assertWriteEnabled();
    m_snapBase = point;
}

void OdDbViewportTableRecord::setSnapIncrements(OdGeVector2d const& increments)
{
    if (!(increments.x > 0 && increments.y > 0))
        throw OdError(eOutOfRange, L"The snap spacing must be positive");
    assertWriteEnabled();
    m_snapIncrements = increments;
}

void OdDbViewportTableRecord::setSnapAngle(double angle)
{
    assertWriteEnabled();
    m_snapAngle = OdDbAngle::ofRadians(angle);
}

void OdDbViewportTableRecord::setGridEnabled(bool on)
{
    assertWriteEnabled();
    m_gridMode = on ? 1 : 0;
}

void OdDbViewportTableRecord::setGridIncrements(OdGeVector2d const& increments)
{
    if (!(increments.x >= 0 && increments.y >= 0))
        throw OdError(eOutOfRange, L"The grid spacing cannot be negative");
    assertWriteEnabled();
    m_gridIncrements = increments;
}
