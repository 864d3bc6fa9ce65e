#pragma once

#include "host/geom/curves/od_ge_curve3d.h"

class OdGeEllipticArc;

/// Circle or part of one in space. The parameter is the angle from the reference vector, counterclockwise about
/// the normal; it runs from startAng() to endAng(), which is greater by at most a full turn. Default: the unit
/// circle of the XY plane.
class OdGeCircArc3d : public OdGeCurve3d
{
public:
    OdGeCircArc3d() = default;
    /// A circle, or the arc between two angles: an end that is not greater than the start gets whole turns added;
    /// a sweep of more than a turn is a full circle. Throws OdError: eDegenerateGeometry for a zero normal or a
    /// reference vector along it, eOutOfRange for a negative radius (0 is allowed) or angles that are no numbers.
    OdGeCircArc3d(OdGePoint3d const& center, OdGeVector3d const& normal, double radius);
    OdGeCircArc3d(OdGePoint3d const& center, OdGeVector3d const& normal, OdGeVector3d const& refVec, double radius,
                  double startAngle = 0, double endAngle = Oda2PI);

    OdGePoint3d const& center() const { return m_center; }
    OdGeVector3d const& normal() const { return m_normal; }
    /// Unit vector from the center in the direction of angle 0.
    OdGeVector3d const& refVec() const { return m_refVec; }
    double radius() const { return m_radius; }
    double startAng() const { return m_startAngle; }
    double endAng() const { return m_endAngle; }
    OdGePoint3d startPoint() const { return evalPoint(m_startAngle); }
    OdGePoint3d endPoint() const { return evalPoint(m_endAngle); }

    OdGeCircArc3d& setCenter(OdGePoint3d const& center);
    OdGeCircArc3d& setRadius(double radius);
    OdGeCircArc3d& setAngles(double startAngle, double endAngle);
    /// Normal and direction of angle 0 together; errors as for the constructor.
    OdGeCircArc3d& setAxes(OdGeVector3d const& normal, OdGeVector3d const& refVec);

    EType type() const override { return EType::kCircArc; }
    std::unique_ptr<OdGeCurve3d> copy() const override;
    OdGeInterval getInterval() const override { return {m_startAngle, m_endAngle}; }
    OdGePoint3d evalPoint(double param) const override;
    OdGeVector3d derivative(double param, int order = 1) const override;
    void transformBy(OdGeMatrix3d const& transformation) override;
    /// Turns the normal round, so that angles go on to count counterclockwise.
    void reverseParam() override;
    std::unique_ptr<OdGeCurve3d> trimmed(double from, double to) const override;
    using OdGeCurve3d::length;
    double length(double from, double to) const override { return (to - from) * m_radius; }
    double closestParam(OdGePoint3d const& point) const override;
    OdGeExtents3d extents() const override;
    std::optional<OdGePlane> plane(OdGeTol const& = OdGeContext::gTol) const override;
    bool isLinear(OdGeTol const& = OdGeContext::gTol) const override { return m_radius == 0; }
    bool isClosed(OdGeTol const& tol = OdGeContext::gTol) const override;

    OdGeEllipticArc ellipticArc() const;

protected:
    double sweptArea(OdGePoint3d const& pole, OdGeVector3d const& normal) const override;
    int leastSamplingParts() const override { return 4; }

private:
    /// Unit vector from the center in the direction of a quarter turn.
    OdGeVector3d yAxis() const { return m_normal.crossProduct(m_refVec); }

    OdGePoint3d m_center;
    OdGeVector3d m_normal{0, 0, 1};
    OdGeVector3d m_refVec{1, 0, 0};
    double m_radius = 1;
    double m_startAngle = 0;
    double m_endAngle = Oda2PI;
};
