#pragma once

#include "host/db/records/od_db_abstract_view_table_record.h"

/// A viewport of the tiled screen of model space, with its snap and grid. All that are shown now are named
/// "*Active".
class OdDbViewportTableRecord : public OdDbAbstractViewTableRecord
{
    OD_DB_DECLARE_CLASS(OdDbViewportTableRecord)
public:
    /// Corners on the screen, which reaches from (0, 0) to (1, 1).
    OdGePoint2d lowerLeftCorner() const { return m_lowerLeft; }
    OdGePoint2d upperRightCorner() const { return m_upperRight; }
    /// Width of the view divided by its height.
    double aspect() const { return m_aspect; }
    /// Throws OdError(eOutOfRange) unless both are positive.
    void setSize(double height, double aspect);

    bool snapEnabled() const { return m_snapMode != 0; }
    void setSnapEnabled(bool on);
    bool isometricSnapEnabled() const { return m_snapStyle != 0; }
    void setIsometricSnapEnabled(bool on);
    /// 0 left, 1 top, 2 right.
    int snapPair() const { return m_snapIsoPair; }
    /// Throws OdError(eOutOfRange).
    void setSnapPair(int pair);
    OdGePoint2d snapBase() const { return m_snapBase; }
    void setSnapBase(OdGePoint2d const& point);
    OdGeVector2d snapIncrements() const { return m_snapIncrements; }
    /// Throws OdError(eOutOfRange) unless both are positive.
    void setSnapIncrements(OdGeVector2d const& increments);
    /// Radians.
    double snapAngle() const { return m_snapAngle.radians(); }
    void setSnapAngle(double angle);
    bool gridEnabled() const { return m_gridMode != 0; }
    void setGridEnabled(bool on);
    OdGeVector2d gridIncrements() const { return m_gridIncrements; }
    /// Throws OdError(eOutOfRange) for negative ones.
    void setGridIncrements(OdGeVector2d const& increments);

private:
    OdGePoint2d m_lowerLeft;
    OdGePoint2d m_upperRight{1, 1};
    OdGePoint2d m_snapBase;
    OdGeVector2d m_snapIncrements{0.5, 0.5};
    OdGeVector2d m_gridIncrements{0.5, 0.5};
    double m_aspect = 1;
    OdDbAngle m_snapAngle;
    std::int16_t m_circleSides = 1000;
    std::int16_t m_fastZoom = 1;
    std::int16_t m_ucsIcon = 3;
    std::int16_t m_snapMode = 0;
    std::int16_t m_gridMode = 0;
    std::int16_t m_snapStyle = 0;
    std::int16_t m_snapIsoPair = 0;
    std::int16_t m_ucsPerViewport = 0;
};
using OdDbViewportTableRecordPtr = OdSmartPtr<OdDbViewportTableRecord>;
