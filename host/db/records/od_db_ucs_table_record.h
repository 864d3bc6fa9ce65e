#pragma once

#include "host/db/records/od_db_symbol_table.h"
#include "host/geom/od_ge_3d.h"

/// A named user coordinate system, in world coordinates.
class OdDbUCSTableRecord : public OdDbSymbolTableRecord
{
    OD_DB_DECLARE_CLASS(OdDbUCSTableRecord)
public:
    OdGePoint3d origin() const { return m_origin; }
    void setOrigin(OdGePoint3d const& point);
    OdGeVector3d xAxis() const { return m_xAxis; }
    OdGeVector3d yAxis() const { return m_yAxis; }
    /// Stores unit vectors. Throws OdError(eDegenerateGeometry) unless the axes are perpendicular and have a
    /// length.
    void setAxes(OdGeVector3d const& x, OdGeVector3d const& y);

private:
    OdGePoint3d m_origin;
    OdGeVector3d m_xAxis{1, 0, 0};
    OdGeVector3d m_yAxis{0, 1, 0};
    std::int16_t m_orthographicView = 0;
    double m_elevation = 0;
    OdDbObjectId m_base;
};
using OdDbUCSTableRecordPtr = OdSmartPtr<OdDbUCSTableRecord>;
