#pragma once

// For authors of C++ tests: circles that touch points, lines and circles, found without the commands under test.
//
// Of the many circles that touch two things each function gives one whose diameter is the shortest way between
// them or runs on along it: both points of contact lie on that way. Where it meets a given circle, it does so in
// two points opposite each other; the one nearer to `pick` is taken, and of two equally near ones (within 1e-10)
// the one that faces the other thing.
//
// All return false and leave center and radius as they are when there is no such circle: the two touch each other
// already, a direction is of zero length, a given radius is negative, a value is no number, or what the function
// says itself.

#include "testapi/ta_host.h"

namespace ge {

/// The circle on the diameter from `p1` to `p2`; none when the points agree.
bool circleTangentToPointPoint(OdGePoint2d& center, double& radius, OdGePoint2d const& p1, OdGePoint2d const& p2,
                               OdGeTol const& tol);

/// The circle on the diameter from `point` to the nearest point of an endless line; none when it lies on the line.
bool circleTangentToLinePoint(OdGePoint2d& center, double& radius, OdGePoint2d const& linePoint,
                              OdGeVector2d const& lineDir, OdGePoint2d const& point, OdGeTol const& tol);

/// The circle between two parallel lines that touches the first in `pick`, a point of it; none when they cross or
/// coincide.
bool circleTangentToLineLine(OdGePoint2d& center, double& radius, OdGePoint2d const& point1,
                             OdGeVector2d const& dir1, OdGePoint2d const& point2, OdGeVector2d const& dir2,
                             OdGePoint2d const& pick, OdGeTol const& tol);

/// The circle on the diameter from `point` to the given circle, along the line through its center (along the X
/// axis, its positive side facing `point`, when the point is the center). None when the point lies on the circle.
bool circleTangentToCirclePoint(OdGePoint2d& center, double& radius, OdGePoint2d const& circleCenter,
                                double circleRadius, OdGePoint2d const& point, OdGePoint2d const& pick,
                                OdGeTol const& tol);

/// The circle on the diameter from the given circle to an endless line, along the perpendicular through the
/// circle's center. When the line goes through the center, the side to its left counts as the facing one. None
/// when the line touches the circle.
bool circleTangentToCircleLine(OdGePoint2d& center, double& radius, OdGePoint2d const& circleCenter,
                               double circleRadius, OdGePoint2d const& linePoint, OdGeVector2d const& lineDir,
                               OdGePoint2d const& pick, OdGeTol const& tol);

/// The circle on the diameter between a point of the first and a point of the second circle, along the line of
/// their centers; the point of each is chosen for itself. Of circles about one center it is the X axis, whose
/// positive side faces in the first and whose negative side faces in the second circle. None when the chosen
/// points agree or the result would be one of the given circles.
bool circleTangentToCircleCircle(OdGePoint2d& center, double& radius, OdGePoint2d const& center1, double radius1,
                                 OdGePoint2d const& center2, double radius2, OdGePoint2d const& pick,
                                 OdGeTol const& tol);

} // namespace ge
