#pragma once

#include "host/geom/curves/od_ge_nurb_curve3d.h"

#include <array>
#include <span>

// What the sources of OdGeNurbCurve3d and of its users share. Definitions given to these functions have no
// problem().

/// A control point in projective form: coordinates times weight, and the weight.
struct OdGeWeightedPoint
{
    OdGeVector3d v;
    double w = 0;

    OdGePoint3d point() const { return OdGePoint3d::kOrigin + v / w; }
    OdGeWeightedPoint operator+(OdGeWeightedPoint const& o) const { return {v + o.v, w + o.w}; }
    OdGeWeightedPoint operator-(OdGeWeightedPoint const& o) const { return {v - o.v, w - o.w}; }
    OdGeWeightedPoint operator*(double s) const { return {v * s, w * s}; }
};

/// Point and derivatives of a curve by its parameter.
struct OdGeCurveValue
{
    OdGePoint3d point;
    OdGeVector3d first;
    OdGeVector3d second;
};

OdGeWeightedPoint odgeWeightedPoint(OdGeNurbCurve3d::Definition const& definition, std::size_t index);
/// Point and derivatives in space from those in projective form.
OdGeCurveValue odgeProjected(OdGeWeightedPoint const& value, OdGeWeightedPoint const& first,
                             OdGeWeightedPoint const& second);

/// Index of the knot that begins the interval in which the parameter lies; the interval is never empty. Parameters
/// outside of the curve belong to its first or last interval.
std::size_t odgeNurbSpan(OdGeNurbCurve3d::Definition const& definition, double param);
/// Indices of the knots that begin the intervals of the curve that are not empty.
std::vector<std::size_t> odgeNurbSpans(OdGeNurbCurve3d::Definition const& definition);
/// At a knot: of the piece that begins there. The parameter lies within the curve.
OdGeCurveValue odgeNurbValue(OdGeNurbCurve3d::Definition const& definition, double param);
/// Value of the polar form of one interval at as many arguments as the degree has: symmetric, linear in each, and
/// the point of the curve where all agree.
OdGeWeightedPoint odgeNurbBlossom(OdGeNurbCurve3d::Definition const& definition, std::size_t span,
                                  std::span<double const> arguments);
/// The same curve, or a part of it, with other knots, which hold all of its inner knots within their range.
OdGeNurbCurve3d::Definition odgeNurbRefined(OdGeNurbCurve3d::Definition const& definition,
                                            std::vector<double> const& knots);
/// Knots at the ends as often as the degree and one more; others stay.
OdGeNurbCurve3d::Definition odgeNurbClamped(OdGeNurbCurve3d::Definition const& definition);

/// Two clamped curves of one degree, both rational or not, of which the second begins where the first ends; its
/// parameters go on from there.
OdGeNurbCurve3d::Definition odgeNurbJoined(OdGeNurbCurve3d::Definition first,
                                           OdGeNurbCurve3d::Definition const& second);
/// One interval of a curve as a curve of its own, with `origin` as origin: near it nothing is lost to great
/// coordinates.
OdGeNurbCurve3d::Definition odgeNurbInterval(OdGeNurbCurve3d::Definition const& definition, std::size_t span,
                                             OdGePoint3d const& origin);
/// The box of the control points that govern an interval.
OdGeExtents3d odgeNurbHull(OdGeNurbCurve3d::Definition const& definition, std::size_t span);

/// One interval of a curve, or a part of one, as a Bezier curve.
class OdGeBezierPiece
{
public:
    OdGeBezierPiece(OdGeNurbCurve3d::Definition const& definition, std::size_t span);

    int degree() const { return m_degree; }
    double from() const { return m_from; }
    double to() const { return m_to; }
    std::span<OdGeWeightedPoint const> points() const
    {
        return {m_points.data(), static_cast<std::size_t>(m_degree) + 1};
    }
    OdGePoint3d startPoint() const { return m_points.front().point(); }
    OdGePoint3d endPoint() const { return m_points[static_cast<std::size_t>(m_degree)].point(); }
    /// The box of the control points.
    OdGeExtents3d hull() const;
    /// Cuts at a parameter between from() and to(): this becomes the part before it, the result is the part after
    /// it.
    OdGeBezierPiece cutOff(double param);

private:
    int m_degree;
    double m_from;
    double m_to;
    std::array<OdGeWeightedPoint, OdGeNurbCurve3d::kMostDegree + 1> m_points;
};
