#pragma once

#include "host/geom/od_ge_elliptic_arc.h"

#include <span>

// Exact tests of geometry, seen along Z, against a rectangle parallel to the X and Y axis, as selection by a
// window and by crossing needs them. The rectangle is filled and closed: what touches its border crosses it, and
// what lies on its border is inside. An empty rectangle neither crosses nor contains anything.
namespace odgeRectangleTest {

bool inside(OdGeExtents2d const& rectangle, OdGePoint2d const& point);

/// Segment from `a` to `b`; equal points make a point.
bool crosses(OdGeExtents2d const& rectangle, OdGePoint2d const& a, OdGePoint2d const& b);
bool inside(OdGeExtents2d const& rectangle, OdGePoint2d const& a, OdGePoint2d const& b);

bool crosses(OdGeExtents2d const& rectangle, OdGeEllipticArc const& arc);
bool inside(OdGeExtents2d const& rectangle, OdGeEllipticArc const& arc);

/// Filled polygon, convex or not, closed from the last point to the first, such as the frame of a text. A
/// rectangle wholly within the polygon crosses it; no points cross nothing and are not inside.
bool crosses(OdGeExtents2d const& rectangle, std::span<OdGePoint2d const> polygon);
bool inside(OdGeExtents2d const& rectangle, std::span<OdGePoint2d const> polygon);

} // namespace odgeRectangleTest
