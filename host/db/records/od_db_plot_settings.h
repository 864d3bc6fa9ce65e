#pragma once

#include "host/db/od_db_object.h"
#include "host/geom/od_ge_2d.h"

/// How a sheet is plotted: device, paper, area, scale. By itself it is a named page setup; layouts are plot
/// settings too. Lengths are millimetres of paper.
class OdDbPlotSettings : public OdDbObject
{
    OD_DB_DECLARE_CLASS(OdDbPlotSettings)
public:
    OdString const& plotSettingsName() const { return m_name; }
    OdString const& plotCfgName() const { return m_device; }
    OdString const& canonicalMediaName() const { return m_media; }
    OdGePoint2d paperSize() const { return {m_paperWidth, m_paperHeight}; }
    /// The settings are those of model space.
    bool modelType() const { return (m_flags & kModelType) != 0; }
    void setModelType(bool model);

    bool standsAmongFileObjects() const override { return true; }

protected:
    static OdDbSection plotSettingsSection();

private:
    static constexpr int kModelType = 1024;

    OdString m_name;
    OdString m_device{L"none_device"};
    OdString m_media{L"ISO_A3_(420.00_x_297.00_MM)"};
    OdString m_viewName;
    double m_leftMargin = 7.5;
    double m_bottomMargin = 20;
    double m_rightMargin = 7.5;
    double m_topMargin = 20;
    double m_paperWidth = 420;
    double m_paperHeight = 297;
    double m_originX = 0;
    double m_originY = 0;
    double m_windowLeft = 0;
    double m_windowBottom = 0;
    double m_windowRight = 0;
    double m_windowTop = 0;
    double m_scalePaperUnits = 1;
    double m_scaleDrawingUnits = 1;
    std::int16_t m_flags = 0;
    std::int16_t m_paperUnits = 1;
    std::int16_t m_rotation = 0;
    std::int16_t m_plotType = 5;
    OdString m_styleSheet;
    std::int16_t m_standardScale = 16;
    std::int16_t m_shadeMode = 0;
    std::int16_t m_shadeResolution = 2;
    std::int16_t m_shadeDpi = 300;
    double m_scaleFactor = 1;
    double m_imageOriginX = 0;
    double m_imageOriginY = 0;
};
