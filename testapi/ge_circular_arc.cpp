#include "testapi/ge_circular_arc.h"

#include "testapi/ge_angle.h"

#include <cmath>
#include <optional>
#include <utility>

namespace ge {

namespace {

constexpr double kStraightBulge = 1e-10;

/// Results are collected here, so that they may be the very variables that the input stands in.
struct Arc
{
    OdGePoint2d center;
    OdGeVector2d refVec; // a unit vector
    double radius = 0;
    double startAngle = 0;
    double endAngle = 0;
    bool isClockwise = false;
};

/// Angles and direction as the caller wants them. The arc comes with `refVec` at its start, as long as the radius,
/// and with angles that count counterclockwise from the X axis.
void applyConventions(Arc& arc, OdGeVector2d const& toEnd, bool toCounterClockwise, bool fromXAxis)
{
    bool const isTurnedRound = arc.isClockwise && toCounterClockwise;
    if (fromXAxis)
        arc.refVec = OdGeVector2d::kXAxis;
    else
        arc.refVec = (isTurnedRound ? toEnd : arc.refVec) / arc.radius;
    if (isTurnedRound) {
        std::swap(arc.startAngle, arc.endAngle);
        arc.isClockwise = false;
    } else if (arc.isClockwise) {
        arc.startAngle = Oda2PI - arc.startAngle;
        arc.endAngle = Oda2PI - arc.endAngle;
    }
    if (arc.startAngle > arc.endAngle)
        arc.endAngle += Oda2PI;
    if (!fromXAxis)
        arc.endAngle -= std::exchange(arc.startAngle, 0.0);
}

int makeBulgeArc(Arc& arc, OdGePoint2d const& p1, OdGePoint2d const& p2, double bulge, bool toCounterClockwise,
                 bool fromXAxis)
{
    if (std::abs(bulge) <= kStraightBulge)
        return kArcIsStraight;
    std::optional<OdGeArcData2d> const circle = odgeArcFromBulge(p1, p2, bulge);
    if (!circle || !std::isfinite(circle->radius))
        return kArcFailed;
    arc.center = circle->center;
    arc.refVec = p1 - arc.center;
    arc.isClockwise = circle->isClockwise;
    arc.radius = arc.refVec.length();
    OdGeVector2d const toEnd = p2 - arc.center;
    if (!std::isfinite(arc.radius) || arc.refVec.isZeroLength())
        return kArcFailed;
    arc.startAngle = arc.refVec.angle();
    arc.endAngle = toEnd.angle();
    applyConventions(arc, toEnd, toCounterClockwise, fromXAxis);
    return kArcFound;
}

bool isFinite(OdGeVector3d const& v)
{
    return std::isfinite(v.x) && std::isfinite(v.y) && std::isfinite(v.z);
}

} // namespace

int circularArcThroughTwoPointsBulge(OdGePoint2d& center, OdGeVector2d& refVec, double& radius, double& startAngle,
                                     double& endAngle, bool& clockwise, OdGePoint2d const& p1,
                                     OdGePoint2d const& p2, double bulge, bool toCounterClockwise, bool fromXAxis)
{
    Arc arc;
    if (int const status = makeBulgeArc(arc, p1, p2, bulge, toCounterClockwise, fromXAxis); status != kArcFound)
        return status;
    center = arc.center;
    refVec = arc.refVec;
    radius = arc.radius;
    startAngle = arc.startAngle;
    endAngle = arc.endAngle;
    clockwise = arc.isClockwise;
    return kArcFound;
}

int circularArcThroughTwoPointsBulge(OdGePoint3d& center, double& radius, double& startAngle, double& endAngle,
                                     OdGePoint3d const& p1, OdGePoint3d const& p2, double bulge)
{
    Arc arc;
    if (int const status = makeBulgeArc(arc, p1.convert2d(), p2.convert2d(), bulge, true, true);
        status != kArcFound)
        return status;
    if (!OdEqual(p1.z, p2.z, OdGeContext::gTol.equalPoint()))
        return kArcFailed;
    center = OdGePoint3d(arc.center.x, arc.center.y, p1.z);
    radius = arc.radius;
    startAngle = arc.startAngle;
    endAngle = arc.endAngle;
    return kArcFound;
}

int circularArcTangentToLineAtPointThroughPoint(OdGePoint2d& center, OdGeVector2d& refVec, double& radius,
                                                double& startAngle, double& endAngle, bool& clockwise,
                                                OdGePoint2d const& tangentPoint, OdGeVector2d const& direction,
                                                OdGePoint2d const& point, bool toCounterClockwise, bool fromXAxis)
{
    std::optional<double> const bulge = odgeBulgeFromTangent(tangentPoint, direction, point);
    if (!bulge)
        return kArcFailed;
    return circularArcThroughTwoPointsBulge(center, refVec, radius, startAngle, endAngle, clockwise, tangentPoint,
                                            point, *bulge, toCounterClockwise, fromXAxis);
}

int circularArcTangentToLineAtPointThroughPoint(OdGePoint3d& center, OdGeVector3d& normal, OdGeVector3d& refVec,
                                                double& radius, double& startAngle, double& endAngle,
                                                OdGePoint3d const& tangentPoint, OdGeVector3d const& direction,
                                                OdGePoint3d const& point)
{
    // In the plane of both, the tangent is the X axis and the point lies above it.
    OdGeVector3d const along = direction.normal();
    OdGeVector3d const chord = point - tangentPoint;
    OdGeVector3d const across = along.crossProduct(chord);
    OdGePoint2d const end(along.dotProduct(chord), across.length());
    std::optional<double> const bulge =
        direction.isZeroLength() ? std::nullopt : odgeBulgeFromTangent(OdGePoint2d(), OdGeVector2d::kXAxis, end);
    if (!bulge)
        return kArcFailed;
    Arc arc;
    if (int const status = makeBulgeArc(arc, OdGePoint2d(), end, *bulge, false, false); status != kArcFound)
        return status;
    OdGeVector3d const axis = across / across.length();
    OdGeVector3d const upward = axis.crossProduct(along);
    center = tangentPoint + along * arc.center.x + upward * arc.center.y;
    normal = axis;
    refVec = along * arc.refVec.x + upward * arc.refVec.y;
    radius = arc.radius;
    startAngle = arc.startAngle;
    endAngle = arc.endAngle;
    return kArcFound;
}

void adjustArcRefVectorToStartPoint(OdGeCircArc3d& arc)
{
    OdGeVector3d const yAxis = arc.normal().crossProduct(arc.refVec());
    OdGeVector3d const toStart = arc.refVec() * std::cos(arc.startAng()) + yAxis * std::sin(arc.startAng());
    double const sweep = arc.endAng() - arc.startAng();
    arc.setAxes(arc.normal(), toStart).setAngles(0, sweep);
}

void adjustArcRefVectorToPlaneXAxis(OdGeCircArc3d& arc)
{
    OdGeVector3d const xAxis = arc.normal().perpVector();
    double const sweep = arc.endAng() - arc.startAng();
    double start = arc.startAng() + xAxis.angleTo(arc.refVec(), arc.normal());
    normalizeAngle(start, true);
    if (start < 0 || start == Oda2PI) // within 1e-10 of the axis
        start = 0;
    arc.setAxes(arc.normal(), xAxis).setAngles(start, start + sweep);
}

int arcFromBulgedPlineSegment(OdGeCircArc3d& arc, OdGePoint2d const& p1, OdGePoint2d const& p2, double bulge,
                              OdGeVector3d const& normal, double elevation, ArcSegmentDefinition definition)
{
    bool const isAboutNormal = definition == kArcAboutNormal || definition == kArcAboutNormalFromXAxis;
    bool const isFromXAxis = definition == kArcAlongSegmentFromXAxis || definition == kArcAboutNormalFromXAxis;
    Arc flat;
    if (int const status = makeBulgeArc(flat, p1, p2, bulge, isAboutNormal, isFromXAxis); status != kArcFound)
        return status;
    if (normal.isZeroLength() || !isFinite(normal) || !std::isfinite(elevation))
        return kArcFailed;
    OdGeMatrix3d const toWorld = OdGeMatrix3d::planeToWorld(normal);
    OdGeVector3d const axis = flat.isClockwise ? -toWorld.column(2) : toWorld.column(2);
    OdGeVector3d const refVec = toWorld * OdGeVector3d(flat.refVec.x, flat.refVec.y, 0);
    OdGePoint3d const center = toWorld * OdGePoint3d(flat.center.x, flat.center.y, elevation);
    arc = OdGeCircArc3d(center, axis, refVec, flat.radius, flat.startAngle, flat.endAngle);
    return kArcFound;
}

int arcFromBulgedPlineSegment(OdGeCircArc3d& arc, OdGePoint2d const& p1, OdGePoint2d const& p2, double bulge,
                              ArcSegmentDefinition definition)
{
    return arcFromBulgedPlineSegment(arc, p1, p2, bulge, OdGeVector3d::kZAxis, 0, definition);
}

} // namespace ge
