#pragma once

// For authors of C++ tests: circular arcs from the segments of polylines and from tangents. A bulge is the tangent
// of a quarter of the angle that a segment sweeps, positive counterclockwise. Points and tolerances are those of
// the drawing; angles are radians.

#include "testapi/ta_host.h"

namespace ge {

/// What the functions of this header return: 0 when there is an arc, 1 when the segment is straight, which a bulge
/// up to 1e-10 in magnitude is, 2 when there is neither: equal points, directions of zero length, values that are
/// no numbers. Results are set with 0 only.
constexpr int kArcFound = 0;
constexpr int kArcIsStraight = 1;
constexpr int kArcFailed = 2;

/// The arc from `p1` to `p2` with a bulge.
///
/// An arc that runs clockwise is turned round when `toCounterClockwise` asks for it: it runs from `p2` to `p1`
/// then. Otherwise its angles count clockwise. With `fromXAxis` the angles count from the X axis, which is what
/// `refVec` becomes; else from `refVec`, the unit vector to the start of the arc, and `startAngle` is 0.
/// `endAngle` is not below `startAngle`.
int circularArcThroughTwoPointsBulge(OdGePoint2d& center, OdGeVector2d& refVec, double& radius, double& startAngle,
                                     double& endAngle, bool& clockwise, OdGePoint2d const& p1,
                                     OdGePoint2d const& p2, double bulge, bool toCounterClockwise, bool fromXAxis);

/// The same in a plane parallel to the XY plane: counterclockwise, with angles from the X axis. 2 also when the
/// points are not at one height.
int circularArcThroughTwoPointsBulge(OdGePoint3d& center, double& radius, double& startAngle, double& endAngle,
                                     OdGePoint3d const& p1, OdGePoint3d const& p2, double bulge);

/// The arc that leaves `tangentPoint` along `direction` and ends at `point`, given as above. 1 when the point lies
/// ahead on the tangent, 2 when it lies behind.
int circularArcTangentToLineAtPointThroughPoint(OdGePoint2d& center, OdGeVector2d& refVec, double& radius,
                                                double& startAngle, double& endAngle, bool& clockwise,
                                                OdGePoint2d const& tangentPoint, OdGeVector2d const& direction,
                                                OdGePoint2d const& point, bool toCounterClockwise, bool fromXAxis);

/// The same in the plane of the tangent and the point. The arc runs counterclockwise about `normal` from
/// `tangentPoint` to `point`; angles count from `refVec`, the unit vector to its start.
int circularArcTangentToLineAtPointThroughPoint(OdGePoint3d& center, OdGeVector3d& normal, OdGeVector3d& refVec,
                                                double& radius, double& startAngle, double& endAngle,
                                                OdGePoint3d const& tangentPoint, OdGeVector3d const& direction,
                                                OdGePoint3d const& point);

/// Lets the angles of the arc count from its start; its points stay.
void adjustArcRefVectorToStartPoint(OdGeCircArc3d& arc);
/// Lets the angles of the arc count from the X axis that drawing files give to the plane of its normal; its points
/// stay. The start angle comes to lie in [0, 2 pi), the last 1e-10 before the turn as 0.
void adjustArcRefVectorToPlaneXAxis(OdGeCircArc3d& arc);

/// How a segment with a negative bulge, which runs clockwise in its plane, is given as an arc, and where angles
/// begin.
enum ArcSegmentDefinition
{
    /// From the first vertex to the second, about the opposite of the normal when it runs clockwise. Angles count
    /// from the start of the arc.
    kArcAlongSegment,
    /// The same with angles from the X axis of the polyline's plane.
    kArcAlongSegmentFromXAxis,
    /// About the normal of the polyline, from the second vertex to the first when the segment runs clockwise.
    /// Angles
    /// count from the start of the arc.
    kArcAboutNormal,
    /// The same with angles from the X axis of the polyline's plane.
    kArcAboutNormalFromXAxis,
};

/// The arc of a polyline's segment. The points are in the plane at `elevation` along `normal`, in the axes that
/// drawing files give to it.
int arcFromBulgedPlineSegment(OdGeCircArc3d& arc, OdGePoint2d const& p1, OdGePoint2d const& p2, double bulge,
                              OdGeVector3d const& normal, double elevation, ArcSegmentDefinition definition);
/// In the XY plane.
int arcFromBulgedPlineSegment(OdGeCircArc3d& arc, OdGePoint2d const& p1, OdGePoint2d const& p2, double bulge,
                              ArcSegmentDefinition definition);

} // namespace ge
