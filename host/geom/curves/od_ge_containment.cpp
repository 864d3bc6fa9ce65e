#include "host/geom/curves/od_ge_containment.h"

#include "host/root/od_error.h"

// A curve encloses a point when the direction from the point to the curve turns by whole turns as the curve is run
// through. The turn along a piece is the angle between its ends as soon as no part of it can pass on the other
// side of the point: that is sure when the way from one end over the point to the other is longer than the piece.

namespace {

class TurnAroundPoint
{
public:
    TurnAroundPoint(OdGeCurve3d const& curve, OdGePlane const& plane, OdGePoint3d const& point)
        : m_curve(curve), m_plane(plane), m_center(plane.paramOf(point))
    {
    }
    double turn(double from, double to) const
    {
        return turn(from, directionTo(from), to, directionTo(to), m_curve.length(from, to), kMostHalvings);
    }

private:
    static constexpr int kMostHalvings = 60;

    OdGeVector2d directionTo(double param) const { return m_plane.paramOf(m_curve.evalPoint(param)) - m_center; }
    double turn(double from, OdGeVector2d const& start, double to, OdGeVector2d const& end, double length,
                int halvings) const
    {
        if (length < start.length() + end.length() || halvings == 0)
            return std::atan2(start.crossProduct(end), start.dotProduct(end));
        double const middle = from + (to - from) / 2;
        OdGeVector2d const halfway = directionTo(middle);
        return turn(from, start, middle, halfway, m_curve.length(from, middle), halvings - 1) +
               turn(middle, halfway, to, end, m_curve.length(middle, to), halvings - 1);
    }

    OdGeCurve3d const& m_curve;
    OdGePlane const& m_plane;
    OdGePoint2d m_center;
};

} // namespace

bool odgeIsCounterClockwise(OdGeCurve3d const& curve, OdGeVector3d const& normal)
{
    return curve.signedArea(normal) > 0;
}

bool odgeIsCounterClockwise(OdGeCurve2d const& curve)
{
    return curve.signedArea() > 0;
}

OdGeContainment odgeContains(OdGeCurve3d const& closedCurve, OdGePoint3d const& point, OdGeTol const& tol)
{
    std::optional<OdGePlane> const plane = closedCurve.plane(tol);
    if (!plane || !closedCurve.isClosed(tol))
        throw OdError(eInvalidInput, L"only a closed curve of a plane has an inside");
    if (closedCurve.isOn(point, nullptr, tol))
        return OdGeContainment::kOn;
    if (!plane->isOn(point, tol))
        return OdGeContainment::kOutside;

    TurnAroundPoint const around(closedCurve, *plane, point);
    OdGeInterval const range = closedCurve.getInterval();
    double angle = 0;
    double from = range.lower;
    for (double const joint : closedCurve.breakParams()) {
        angle += around.turn(from, joint);
        from = joint;
    }
    angle += around.turn(from, range.upper);
    bool const isOdd = std::lround(angle / Oda2PI) % 2 != 0;
    return isOdd ? OdGeContainment::kInside : OdGeContainment::kOutside;
}

OdGeContainment odgeContains(OdGeCurve2d const& closedCurve, OdGePoint2d const& point, OdGeTol const& tol)
{
    return odgeContains(closedCurve.curve3d(), {point.x, point.y, 0}, tol);
}
