#pragma once

#include "host/db/entities/od_db_circular_entity.h"

/// Arc of a circle, run through counterclockwise when seen against the normal. Angles are radians from the X axis
/// of the plane and kept as they are given, also beyond a full turn; equal angles mean a full turn.
class OdDbArc : public OdDbCircularEntity
{
    OD_DB_DECLARE_CLASS(OdDbArc)
public:
    OdDbArc() = default;

    double startAngle() const { return m_startAngle.radians(); }
    void setStartAngle(double angle);
    double endAngle() const { return m_endAngle.radians(); }
    void setEndAngle(double angle);
    OdGePoint3d startPoint() const { return curve().startPoint(); }
    OdGePoint3d endPoint() const { return curve().endPoint(); }
    /// The arc in the world.
    OdGeEllipticArc curve() const;

    /// eDegenerateGeometry also for transformations that would make it part of an ellipse.
    OdResult transformBy(OdGeMatrix3d const& transformation) override;
    void outline(OdDbOutlineSink& sink) const override;

private:
    void moveAngles(OdDbPlaneTransform const& plane);

    OdDbAngle m_startAngle;
    OdDbAngle m_endAngle = OdDbAngle::ofRadians(OdaPI);
};
using OdDbArcPtr = OdSmartPtr<OdDbArc>;
