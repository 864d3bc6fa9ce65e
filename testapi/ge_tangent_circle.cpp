#include "testapi/ge_tangent_circle.h"

#include <cmath>
#include <optional>

// Each construction finds the two ends of a diameter. Results are written last, so that they may be the very
// variables that the input stands in.

namespace ge {

namespace {

struct Line
{
    OdGePoint2d base;
    OdGeVector2d direction; // a unit vector

    OdGePoint2d closestPointTo(OdGePoint2d const& point) const
    {
        return base + direction * (point - base).dotProduct(direction);
    }
};

std::optional<Line> makeLine(OdGePoint2d const& base, OdGeVector2d const& direction, OdGeTol const& tol)
{
    if (direction.isZeroLength(tol))
        return std::nullopt;
    return Line{base, direction.normal(tol)};
}

/// Where a line through the center of a circle meets it: on the side that faces the other thing, and opposite.
struct Crossings
{
    OdGePoint2d facing;
    OdGePoint2d opposite;

    Crossings(OdGePoint2d const& center, OdGeVector2d const& reach)
        : facing(center + reach), opposite(center - reach)
    {
    }
    OdGePoint2d nearerTo(OdGePoint2d const& pick) const
    {
        return OdLess(pick.distanceTo(opposite), pick.distanceTo(facing)) ? opposite : facing;
    }
};

bool isSameCircle(OdGePoint2d const& centerA, double radiusA, OdGePoint2d const& centerB, double radiusB,
                  OdGeTol const& tol)
{
    return centerA.isEqualTo(centerB, tol) && OdEqual(radiusA, radiusB, tol.equalPoint());
}

/// The direction towards a point that may be the center itself.
OdGeVector2d directionOr(OdGeVector2d const& way, OdGeVector2d const& substitute, OdGeTol const& tol)
{
    return way.isZeroLength(tol) ? substitute : way.normal(tol);
}

bool setOnDiameter(OdGePoint2d& center, double& radius, OdGePoint2d const& a, OdGePoint2d const& b,
                   OdGeTol const& tol)
{
    OdGePoint2d const middle = odgeMidPoint(a, b);
    double const reach = a.distanceTo(middle);
    if ((b - a).isZeroLength(tol) || !std::isfinite(reach))
        return false;
    center = middle;
    radius = reach;
    return true;
}

/// From a point to a circle; `direction` leads from the center to the point.
bool setToCircle(OdGePoint2d& center, double& radius, OdGePoint2d const& circleCenter, double circleRadius,
                 OdGeVector2d const& direction, OdGePoint2d const& point, OdGePoint2d const& pick,
                 OdGeTol const& tol)
{
    Crossings const crossings(circleCenter, direction * circleRadius);
    if (!(circleRadius >= 0) || (point - crossings.facing).isZeroLength(tol))
        return false;
    return setOnDiameter(center, radius, crossings.nearerTo(pick), point, tol);
}

} // namespace

bool circleTangentToPointPoint(OdGePoint2d& center, double& radius, OdGePoint2d const& p1, OdGePoint2d const& p2,
                               OdGeTol const& tol)
{
    return setOnDiameter(center, radius, p1, p2, tol);
}

bool circleTangentToLinePoint(OdGePoint2d& center, double& radius, OdGePoint2d const& linePoint,
                              OdGeVector2d const& lineDir, OdGePoint2d const& point, OdGeTol const& tol)
{
    std::optional<Line> const line = makeLine(linePoint, lineDir, tol);
    return line && setOnDiameter(center, radius, line->closestPointTo(point), point, tol);
}

bool circleTangentToLineLine(OdGePoint2d& center, double& radius, OdGePoint2d const& point1,
                             OdGeVector2d const& dir1, OdGePoint2d const& point2, OdGeVector2d const& dir2,
                             OdGePoint2d const& pick, OdGeTol const& tol)
{
    std::optional<Line> const first = makeLine(point1, dir1, tol);
    std::optional<Line> const second = makeLine(point2, dir2, tol);
    if (!first || !second)
        return false;
    bool const areParallel = std::abs(first->direction.crossProduct(second->direction)) <= tol.equalVector();
    if (!areParallel)
        return false;
    if (second->closestPointTo(point1).isEqualTo(point1, tol))
        return false;
    return setOnDiameter(center, radius, pick, second->closestPointTo(pick), tol);
}

bool circleTangentToCirclePoint(OdGePoint2d& center, double& radius, OdGePoint2d const& circleCenter,
                                double circleRadius, OdGePoint2d const& point, OdGePoint2d const& pick,
                                OdGeTol const& tol)
{
    OdGeVector2d const direction = directionOr(point - circleCenter, OdGeVector2d::kXAxis, tol);
    return setToCircle(center, radius, circleCenter, circleRadius, direction, point, pick, tol);
}

bool circleTangentToCircleLine(OdGePoint2d& center, double& radius, OdGePoint2d const& circleCenter,
                               double circleRadius, OdGePoint2d const& linePoint, OdGeVector2d const& lineDir,
                               OdGePoint2d const& pick, OdGeTol const& tol)
{
    std::optional<Line> const line = makeLine(linePoint, lineDir, tol);
    if (!line)
        return false;
    OdGePoint2d const foot = line->closestPointTo(circleCenter);
    OdGeVector2d const direction = directionOr(foot - circleCenter, line->direction.perpVector(), tol);
    return setToCircle(center, radius, circleCenter, circleRadius, direction, foot, pick, tol);
}

bool circleTangentToCircleCircle(OdGePoint2d& center, double& radius, OdGePoint2d const& center1, double radius1,
                                 OdGePoint2d const& center2, double radius2, OdGePoint2d const& pick,
                                 OdGeTol const& tol)
{
    if (!(radius1 >= 0) || !(radius2 >= 0))
        return false;
    OdGeVector2d const direction = directionOr(center2 - center1, OdGeVector2d::kXAxis, tol);
    OdGePoint2d const on1 = Crossings(center1, direction * radius1).nearerTo(pick);
    OdGePoint2d const on2 = Crossings(center2, direction * -radius2).nearerTo(pick);
    OdGePoint2d middle;
    double reach = 0;
    if (!setOnDiameter(middle, reach, on1, on2, tol) || isSameCircle(middle, reach, center1, radius1, tol) ||
        isSameCircle(middle, reach, center2, radius2, tol))
        return false;
    center = middle;
    radius = reach;
    return true;
}

} // namespace ge
