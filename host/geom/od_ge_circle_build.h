#pragma once

#include "host/geom/od_ge_arc_data2d.h"

#include <optional>

// Circles and arcs of the XY plane from the points that a user gives. Each gives nothing when no such circle
// exists.

/// The circle through three points; nothing when two agree or the three lie on a line.
std::optional<OdGeCircleData2d> odgeCircleThrough3Points(OdGePoint2d const& a, OdGePoint2d const& b,
                                                         OdGePoint2d const& c,
                                                         OdGeTol const& tol = OdGeContext::gTol);
/// The circle with the two points as ends of a diameter; nothing when they agree.
std::optional<OdGeCircleData2d> odgeCircleOnDiameter(OdGePoint2d const& a, OdGePoint2d const& b,
                                                     OdGeTol const& tol = OdGeContext::gTol);
/// The arc that starts at the first point, passes the second and ends at the third, in the direction that this
/// needs.
std::optional<OdGeArcData2d> odgeArcThrough3Points(OdGePoint2d const& start, OdGePoint2d const& through,
                                                   OdGePoint2d const& end, OdGeTol const& tol = OdGeContext::gTol);
/// The counterclockwise arc from `start` about `center` to the direction of `end`; an end in the direction of the
/// start gives a full turn. Nothing when the start or the end agrees with the center.
std::optional<OdGeArcData2d> odgeArcStartCenterEnd(OdGePoint2d const& start, OdGePoint2d const& center,
                                                   OdGePoint2d const& end, OdGeTol const& tol = OdGeContext::gTol);
/// The arc from `start` about `center` with a signed sweep, positive counterclockwise; more than a turn counts
/// only by what is over whole turns. Nothing when no sweep remains.
std::optional<OdGeArcData2d> odgeArcStartCenterSweep(OdGePoint2d const& start, OdGePoint2d const& center,
                                                     double sweep, OdGeTol const& tol = OdGeContext::gTol);
/// The counterclockwise arc from `start` about `center` with a chord of this length; a negative length takes the
/// greater arc. Nothing when the chord is zero or longer than the diameter.
std::optional<OdGeArcData2d> odgeArcStartCenterChord(OdGePoint2d const& start, OdGePoint2d const& center,
                                                     double chordLength, OdGeTol const& tol = OdGeContext::gTol);
