#pragma once

#include "host/db/od_db_angle.h"
#include "host/db/records/od_db_symbol_table.h"
#include "host/geom/od_ge_3d.h"

/// What named views and the viewports of the screen have in common: how space is looked at. The view plane passes
/// through the target, perpendicular to the direction; center and sizes are measured on it.
class OdDbAbstractViewTableRecord : public OdDbSymbolTableRecord
{
    OD_DECLARE_CLASS(OdDbAbstractViewTableRecord)
public:
    OdGePoint2d centerPoint() const { return m_center; }
    void setCenterPoint(OdGePoint2d const& point);
    double height() const { return m_height; }
    /// From the target towards the eye.
    OdGeVector3d viewDirection() const { return m_direction; }
    /// Throws OdError(eDegenerateGeometry) for a zero vector.
    void setViewDirection(OdGeVector3d const& direction);
    OdGePoint3d target() const { return m_target; }
    void setTarget(OdGePoint3d const& point);
    /// Millimetres, for perspective views.
    double lensLength() const { return m_lensLength; }
    /// Throws OdError(eOutOfRange) for a length that is not positive.
    void setLensLength(double length);
    double frontClipDistance() const { return m_frontClip; }
    double backClipDistance() const { return m_backClip; }
    /// Turn about the direction, in radians.
    double viewTwist() const { return m_twist.radians(); }
    void setViewTwist(double angle);
    bool perspectiveEnabled() const { return (m_viewMode & 1) != 0; }
    void setPerspectiveEnabled(bool on);

    /// @name The user coordinate system that goes with the view, in world coordinates
    /// @{
    OdGePoint3d ucsOrigin() const { return m_ucsOrigin; }
    OdGeVector3d ucsXAxis() const { return m_ucsXAxis; }
    OdGeVector3d ucsYAxis() const { return m_ucsYAxis; }
    /// Null for a system without a name.
    OdDbObjectId namedUcs() const { return m_namedUcs; }
    /// Axes are perpendicular unit vectors.
    void setUcs(OdGePoint3d const& origin, OdGeVector3d const& xAxis, OdGeVector3d const& yAxis,
                OdDbObjectId named = {});
    /// @}

protected:
    OdDbAbstractViewTableRecord() = default;

    OdGePoint2d m_center;
    double m_height = 1;
    OdGeVector3d m_direction{0, 0, 1};
    OdGePoint3d m_target;
    double m_lensLength = 50;
    double m_frontClip = 0;
    double m_backClip = 0;
    OdDbAngle m_twist;
    std::int16_t m_viewMode = 0;
    std::int16_t m_renderMode = 0;
    OdGePoint3d m_ucsOrigin;
    OdGeVector3d m_ucsXAxis{1, 0, 0};
    OdGeVector3d m_ucsYAxis{0, 1, 0};
    std::int16_t m_ucsOrthographicView = 0;
    double m_ucsElevation = 0;
    OdDbObjectId m_namedUcs;
    OdDbObjectId m_baseUcs;
};
