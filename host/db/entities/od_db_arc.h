#pragma once

#include "host/db/entities/od_db_circular_entity.h"

/// Arc of a circle, run through counterclockwise when seen against the normal. Angles are radians from the X axis
/// of the plane and kept as they are given, also beyond a full turn; equal angles mean a full turn.
class OdDbArc : public OdDbCircularEntity
{
    OD_DB_DECLARE_CLASS(OdDbArc)
public:
    OdDbArc() = default;
    /// Throws OdError: eOutOfRange for a radius that is not positive, eDegenerateGeometry for a zero normal.
    OdDbArc(OdGePoint3d const& center, double radius, double startAngle, double endAngle,
            OdGeVector3d const& normal = {0, 0, 1});

    double startAngle() const { return m_startAngle.radians(); }
    void setStartAngle(double angle);
    double endAngle() const { return m_endAngle.radians(); }
    void setEndAngle(double angle);
    OdGePoint3d startPoint() const { return curve().startPoint(); }
    OdGePoint3d endPoint() const { return curve().endPoint(); }

    /// eDegenerateGeometry also for transformations that would make it part of an ellipse.
    OdResult transformBy(OdGeMatrix3d const& transformation) override;
    /// The end points. Moving one keeps the other and the height of the arc above its chord; eDegenerateGeometry
    /// where both would agree.
    void getStretchPoints(std::vector<OdGePoint3d>& points) const override;
    OdResult moveStretchPointsAt(std::span<int const> indices, OdGeVector3d const& offset) override;
    void listProperties(OdDbPropertySink& sink) const override;

protected:
    OdGeInterval angleRange() const override;

private:
    void moveAngles(OdDbPlaneTransform const& plane);
    OdResult stretchBetween(OdGePoint2d const& start, OdGePoint2d const& end);

    OdDbAngle m_startAngle;
    OdDbAngle m_endAngle = OdDbAngle::ofRadians(OdaPI);
};
using OdDbArcPtr = OdSmartPtr<OdDbArc>;
