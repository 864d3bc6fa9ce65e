#include "host/db/records/od_db_plot_settings.h"

OD_DB_DEFINE_CLASS(OdDbPlotSettings, OdDbObject, "PLOTSETTINGS")

OdDbSection OdDbPlotSettings::plotSettingsSection()
{
    // clang-format off
    static constexpr OdDbField s_fields[] = {
        odField<&OdDbPlotSettings::m_name>             (1, OdDbWriteRule::kAlways),
        odField<&OdDbPlotSettings::m_device>           (2, OdDbWriteRule::kAlways),
        odField<&OdDbPlotSettings::m_media>            (4, OdDbWriteRule::kAlways),
        odField<&OdDbPlotSettings::m_viewName>         (6, OdDbWriteRule::kAlways),
        odField<&OdDbPlotSettings::m_leftMargin>       (40, OdDbWriteRule::kAlways),
        odField<&OdDbPlotSettings::m_bottomMargin>     (41, OdDbWriteRule::kAlways),
        odField<&OdDbPlotSettings::m_rightMargin>      (42, OdDbWriteRule::kAlways),
        odField<&OdDbPlotSettings::m_topMargin>        (43, OdDbWriteRule::kAlways),
        odField<&OdDbPlotSettings::m_paperWidth>       (44, OdDbWriteRule::kAlways),
        odField<&OdDbPlotSettings::m_paperHeight>      (45, OdDbWriteRule::kAlways),
        odField<&OdDbPlotSettings::m_originX>          (46, OdDbWriteRule::kAlways),
        odField<&OdDbPlotSettings::m_originY>          (47, OdDbWriteRule::kAlways),
        odField<&OdDbPlotSettings::m_windowLeft>       (48, OdDbWriteRule::kAlways),
        odField<&OdDbPlotSettings::m_windowBottom>     (49, OdDbWriteRule::kAlways),
        odField<&OdDbPlotSettings::m_windowRight>      (140, OdDbWriteRule::kAlways),
        odField<&OdDbPlotSettings::m_windowTop>        (141, OdDbWriteRule::kAlways),
        odField<&OdDbPlotSettings::m_scalePaperUnits>  (142, OdDbWriteRule::kAlways),
        odField<&OdDbPlotSettings::m_scaleDrawingUnits>(143, OdDbWriteRule::kAlways),
        odField<&OdDbPlotSettings::m_flags>            (70, OdDbWriteRule::kAlways),
        odField<&OdDbPlotSettings::m_paperUnits>       (72, OdDbWriteRule::kAlways),
        odField<&OdDbPlotSettings::m_rotation>         (73, OdDbWriteRule::kAlways),
        odField<&OdDbPlotSettings::m_plotType>         (74, OdDbWriteRule::kAlways),
        odField<&OdDbPlotSettings::m_styleSheet>       (7, OdDbWriteRule::kAlways),
        odField<&OdDbPlotSettings::m_standardScale>    (75, OdDbWriteRule::kAlways),
        odField<&OdDbPlotSettings::m_shadeMode>        (76, OdDbWriteRule::kAlways),
        odField<&OdDbPlotSettings::m_shadeResolution>  (77, OdDbWriteRule::kAlways),
        odField<&OdDbPlotSettings::m_shadeDpi>         (78, OdDbWriteRule::kAlways),
        odField<&OdDbPlotSettings::m_scaleFactor>      (147, OdDbWriteRule::kAlways),
        odField<&OdDbPlotSettings::m_imageOriginX>     (148, OdDbWriteRule::kAlways),
        odField<&OdDbPlotSettings::m_imageOriginY>     (149, OdDbWriteRule::kAlways),
    };
    // clang-format on
    return {"AcDbPlotSettings", s_fields};
}

OdDbFieldTable const& OdDbPlotSettings::fields()
{
    static OdDbFieldTable const s_table({plotSettingsSection()});
    return s_table;
}

void OdDbPlotSettings::setModelType(bool model)
{
    assertWriteEnabled();
    m_flags = static_cast<std::int16_t>(model ? m_flags | kModelType : m_flags & ~kModelType);
}
