#pragma once

#include "host/geom/curves/od_ge_curve3d.h"
#include "host/geom/od_ge_elliptic_arc.h"

/// Ellipse or part of one in space: point(t) = center + cos t major + sin t minor, the two axes perpendicular. The
/// parameter is the t of that formula, not the angle seen from the center. The minor axis may be the longer one.
/// Default: the unit circle of the XY plane.
class OdGeEllipArc3d : public OdGeCurve3d
{
public:
    OdGeEllipArc3d() = default;
    /// The axes as half lengths; `minor` is made perpendicular to `major`. Throws OdError: eDegenerateGeometry for
    /// zero or parallel axes, eOutOfRange for parameters that are no numbers. An end that is not greater than the
    /// start gets whole turns added.
    OdGeEllipArc3d(OdGePoint3d const& center, OdGeVector3d const& majorAxis, OdGeVector3d const& minorAxis,
                   double start = 0, double end = Oda2PI);
    /// The ellipse with the true axes of an affine image of a circle, whose half diameters need not be
    /// perpendicular. Throws OdError(eDegenerateGeometry) for parallel ones.
    explicit OdGeEllipArc3d(OdGeEllipticArc const& arc);

    OdGePoint3d const& center() const { return m_center; }
    OdGeVector3d const& majorAxis() const { return m_major; }
    OdGeVector3d const& minorAxis() const { return m_minor; }
    double majorRadius() const { return m_major.length(); }
    double minorRadius() const { return m_minor.length(); }
    /// Unit vector about which the parameter runs counterclockwise.
    OdGeVector3d normal() const;
    double startParam() const { return m_start; }
    double endParam() const { return m_end; }
    /// Angle from the major axis to the direction of the point of a parameter, and back; whole turns are kept.
    double angleOfParam(double param) const;
    double paramOfAngle(double angle) const;
    /// Makes the longer axis the major one where it is not; points and direction stay, the parameters move by a
    /// quarter turn.
    void orderAxes();

    EType type() const override { return EType::kEllipArc; }
    std::unique_ptr<OdGeCurve3d> copy() const override;
    OdGeInterval getInterval() const override { return {m_start, m_end}; }
    OdGePoint3d evalPoint(double param) const override;
    OdGeVector3d derivative(double param, int order = 1) const override;
    /// Every affine image is an ellipse; the axes are found anew, each within an eighth of a turn of the image of
    /// the old one. Where they were kept perpendicular the parameters stay.
    void transformBy(OdGeMatrix3d const& transformation) override;
    void reverseParam() override;
    std::unique_ptr<OdGeCurve3d> trimmed(double from, double to) const override;
    using OdGeCurve3d::length;
    double length(double from, double to) const override;
    double closestParam(OdGePoint3d const& point) const override;
    OdGeExtents3d extents() const override;
    std::optional<OdGePlane> plane(OdGeTol const& = OdGeContext::gTol) const override;
    bool isLinear(OdGeTol const& = OdGeContext::gTol) const override { return false; }
    bool isClosed(OdGeTol const& tol = OdGeContext::gTol) const override;

    OdGeEllipticArc ellipticArc() const { return {m_center, m_major, m_minor, m_start, m_end}; }

protected:
    double sweptArea(OdGePoint3d const& pole, OdGeVector3d const& normal) const override;
    int leastSamplingParts() const override { return 4; }

private:
    void setAxesOf(OdGeVector3d const& u, OdGeVector3d const& v);

    OdGePoint3d m_center;
    OdGeVector3d m_major{1, 0, 0};
    OdGeVector3d m_minor{0, 1, 0};
    double m_start = 0;
    double m_end = Oda2PI;
};
