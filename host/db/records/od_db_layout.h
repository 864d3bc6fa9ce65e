#pragma once

#include "host/db/records/od_db_plot_settings.h"
#include "host/geom/od_ge_3d.h"

/// A layout: the tab under which model space or a sheet is shown. The entities of the sheet stand in its block.
class OdDbLayout : public OdDbPlotSettings
{
    OD_DB_DECLARE_CLASS(OdDbLayout)
public:
    OdString const& getLayoutName() const { return m_layoutName; }
    /// The name that the layout shows. The dictionary of layouts, which finds it by name, is the caller's.
    /// Throws OdError(eInvalidName) for an empty name.
    void setLayoutName(OdString const& name);
    /// Place among the tabs; model space has 0.
    int getTabOrder() const { return m_tabOrder; }
    void setTabOrder(int order);
    OdDbObjectId getBlockTableRecordId() const { return m_block; }
    void audit(OdDbAuditInfo& info) const override;
    void setBlockTableRecordId(OdDbObjectId block);
    OdGePoint2d limitsMin() const { return m_limitsMin; }
    OdGePoint2d limitsMax() const { return m_limitsMax; }

private:
    OdString m_layoutName;
    std::int16_t m_layoutFlags = 1; ///< linetypes are scaled to the sheet
    std::int16_t m_tabOrder = 0;
    OdGePoint2d m_limitsMin;
    OdGePoint2d m_limitsMax{420, 297};
    OdGePoint3d m_insertionBase;
    OdGePoint3d m_extentsMin{1e20, 1e20, 1e20}; ///< empty
    OdGePoint3d m_extentsMax{-1e20, -1e20, -1e20};
    double m_elevation = 0;
    OdGePoint3d m_ucsOrigin;
    OdGeVector3d m_ucsXAxis{1, 0, 0};
    OdGeVector3d m_ucsYAxis{0, 1, 0};
    std::int16_t m_ucsOrthographicView = 0;
    OdDbObjectId m_block;
    OdDbObjectId m_lastViewport;
    OdDbObjectId m_namedUcs;
    OdDbObjectId m_baseUcs;
};
using OdDbLayoutPtr = OdSmartPtr<OdDbLayout>;
