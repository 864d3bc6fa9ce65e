#include "host/app/commands/offset_side.h"

#include <cmath>

namespace ca {

namespace {

/// Distance of a point from the line or the circle that continues the curve at a parameter.
class ContinuedPiece
{
public:
    ContinuedPiece(OdGeCurve3d const& curve, OdGeVector3d const& normal, double param)
        : m_start(curve.evalPoint(param))
    {
        OdGeVector3d const velocity = curve.derivative(param);
        double const speed = velocity.length();
        OdGeVector3d const left = normal.crossProduct(velocity);
        if (left.isZeroLength())
            return;
        m_along = velocity / speed;
        m_left = left.normal();
        m_curvature = curve.derivative(param, 2).dotProduct(m_left) / (speed * speed);
    }

    bool isDegenerate() const { return m_along.isZeroLength(); }
    OdGeVector3d const& along() const { return m_along; }

    /// Positive to the right. With a, b the point's coordinates to the left and along, and k the curvature, this
    /// is its distance from the center of curvature less the radius, in a form that holds for k = 0 as well.
    double distanceOf(OdGePoint3d const& point) const
    {
        OdGeVector3d const way = point - m_start;
        double const a = way.dotProduct(m_left);
        double const b = way.dotProduct(m_along);
        double const k = m_curvature;
        return (k * (a * a + b * b) - 2 * a) / (std::hypot(k * b, k * a - 1) + 1);
    }

private:
    OdGePoint3d m_start;
    OdGeVector3d m_along{0, 0, 0};
    OdGeVector3d m_left{0, 0, 0};
    double m_curvature = 0;
};

/// Parameters just before and at a joint; the same one where the curve is smooth.
struct Around
{
    double before;
    double behind;
};

Around around(OdGeCurve3d const& curve, double param)
{
    constexpr double kNear = 1e-9;
    OdGeInterval const interval = curve.getInterval();
    if (!interval.isBounded())
        return {param, param};
    double const step = kNear * interval.length();
    for (double const joint : curve.breakParams())
        if (std::abs(param - joint) <= step)
            return {joint - step, joint};
    bool const isAtEnd = param - interval.lower <= step || interval.upper - param <= step;
    if (isAtEnd && curve.isClosed())
        return {interval.upper - step, interval.lower};
    return {param, param};
}

} // namespace

std::optional<double> offsetThrough(OdGeCurve3d const& curve, OdGeVector3d const& normal, OdGePoint3d const& point)
{
    OdGeInterval const interval = curve.getInterval();
    double const inside = interval.isBoundedBelow() ? interval.lower : interval.clamped(0);
    OdGeVector3d const off = normal * (point - curve.evalPoint(inside)).dotProduct(normal);
    OdGePoint3d const dropped = point - off;
    Around const at = around(curve, curve.closestParam(dropped));
    ContinuedPiece const before(curve, normal, at.before);
    ContinuedPiece const behind(curve, normal, at.behind);
    if (before.isDegenerate() || behind.isDegenerate())
        return std::nullopt;
    double const first = before.distanceOf(dropped);
    double const second = behind.distanceOf(dropped);
    // The nearest point is a corner only for points on the outer side of it.
    bool const turnsLeft = before.along().crossProduct(behind.along()).dotProduct(normal) > 0;
    double const distance = turnsLeft ? std::max(first, second) : std::min(first, second);
    if (std::abs(distance) <= OdGeContext::gTol.equalPoint())
        return std::nullopt;
    return distance;
}

} // namespace ca
