#pragma once

#include "host/geom/od_ge_arc_data2d.h"

#include <optional>

// A bulge is the tangent of a quarter of the angle that an arc segment sweeps, positive counterclockwise.

/// The arc from `p1` to `p2` with a bulge; nothing for equal points or a bulge of zero, both under the tolerance.
std::optional<OdGeArcData2d> odgeArcFromBulge(OdGePoint2d const& p1, OdGePoint2d const& p2, double bulge,
                                              OdGeTol const& tol = OdGeContext::gTol);
/// The bulge of an arc that leaves `p1` along `tangent` and ends at `p2`, as drawing on after a segment needs it.
/// Nothing when the arc would have to turn full circle.
std::optional<double> odgeBulgeFromTangent(OdGePoint2d const& p1, OdGeVector2d const& tangent,
                                           OdGePoint2d const& p2, OdGeTol const& tol = OdGeContext::gTol);
/// The bulge of the arc from `p1` over `through` to `p2`; nothing when the three lie on a line.
std::optional<double> odgeBulgeThroughPoint(OdGePoint2d const& p1, OdGePoint2d const& through,
                                            OdGePoint2d const& p2, OdGeTol const& tol = OdGeContext::gTol);
/// The bulge of a signed sweep, positive counterclockwise, of less than a full turn in magnitude.
inline double odgeBulgeFromSweep(double sweep)
{
    return std::tan(sweep / 4);
}
inline double odgeSweepFromBulge(double bulge)
{
    return 4 * std::atan(bulge);
}
