#pragma once

#include "host/geom/curves/od_ge_curve3d.h"
#include "host/geom/curves/od_ge_knot_vector.h"

#include <span>

/// Non-uniform rational B-spline in space. With n control points and degree p there are n + p + 1 knots; the
/// parameter runs from knot p to knot n. Curves of a knot vector that is not clamped are allowed; a periodic curve
/// is one whose first p control points repeat as its last ones with knot distances that repeat as well, given in
/// full. Default: a straight piece along the X axis from 0 to 1.
class OdGeNurbCurve3d : public OdGeCurve3d
{
public:
    /// All that defines a curve; weights are empty when the curve is not rational.
    struct Definition
    {
        int degree = 1;
        bool isPeriodic = false;
        OdGeKnotVector knots;
        std::vector<OdGePoint3d> controlPoints;
        std::vector<double> weights;

        bool isRational() const { return !weights.empty(); }
        /// Empty when a curve can be made of it, else what is wrong, a sentence without full stop: "there are 5
        /// knots for 4 control points of degree 3; 8 are needed".
        OdString problem() const;
    };
    static constexpr int kMostDegree = 25;

    OdGeNurbCurve3d();
    /// Throws OdError(eInvalidInput) with the problem of the definition.
    explicit OdGeNurbCurve3d(Definition definition);

    /// A curve of degree 3 through points, natural or with given directions at the ends (zero: natural); a closed
    /// one ends where it starts, smoothly. Parameters follow the chord lengths. Consecutive equal points count
    /// once. With a positive fit tolerance the curve may pass the points at up to that distance and has fewer
    /// knots (at the ends it touches). Throws OdError(eInvalidInput) for fewer than two different points.
    static OdGeNurbCurve3d interpolate(std::span<OdGePoint3d const> points, OdGeVector3d const& startTangent = {},
                                       OdGeVector3d const& endTangent = {}, bool isClosed = false,
                                       double fitTolerance = 0);
    /// The exact rational form of any bounded curve.
    static OdGeNurbCurve3d of(OdGeCurve3d const& curve);
    /// A clamped, uniform curve with these control points; a closed one is periodic.
    static OdGeNurbCurve3d ofControlPoints(int degree, std::span<OdGePoint3d const> points, bool isClosed = false);

    Definition const& definition() const { return m_definition; }
    int degree() const { return m_definition.degree; }
    bool isRational() const { return m_definition.isRational(); }
    bool isPeriodic() const { return m_definition.isPeriodic; }
    int numControlPoints() const { return static_cast<int>(m_definition.controlPoints.size()); }

    /// The same curve with its degree raised to `degree`.
    OdGeNurbCurve3d elevated(int degree) const;
    /// The same curve with a further knot at the parameter.
    OdGeNurbCurve3d withKnot(double param) const;

    EType type() const override { return EType::kNurb; }
    std::unique_ptr<OdGeCurve3d> copy() const override;
    OdGeInterval getInterval() const override;
    OdGePoint3d evalPoint(double param) const override;
    OdGeVector3d derivative(double param, int order = 1) const override;
    void transformBy(OdGeMatrix3d const& transformation) override;
    void reverseParam() override;
    std::unique_ptr<OdGeCurve3d> trimmed(double from, double to) const override;
    using OdGeCurve3d::length;
    double length(double from, double to) const override;
    double closestParam(OdGePoint3d const& point) const override;
    OdGeExtents3d extents() const override;
    std::optional<OdGePlane> plane(OdGeTol const& tol = OdGeContext::gTol) const override;
    bool isLinear(OdGeTol const& tol = OdGeContext::gTol) const override;
    std::vector<double> breakParams() const override;

protected:
    double sweptArea(OdGePoint3d const& pole, OdGeVector3d const& normal) const override;
    int leastSamplingParts() const override { return std::max(4, numControlPoints()); }

private:
    Definition m_definition;
};
