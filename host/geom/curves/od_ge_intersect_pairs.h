#pragma once

#include "host/geom/curves/od_ge_circ_arc3d.h"
#include "host/geom/curves/od_ge_intersect.h"
#include "host/geom/curves/od_ge_linear3d.h"
#include "host/geom/curves/od_ge_nurb_curve3d.h"

#include <span>

// What the sources of odgeIntersect share.

/// A stretch along which two curves run together; its parameters on the first curve ascend.
struct OdGeStretch
{
    OdGeIntersection start;
    OdGeIntersection end;
};

/// Common points and stretches of two curves, in no order; points may be given more than once.
struct OdGeContacts
{
    std::vector<OdGeIntersection> points;
    std::vector<OdGeStretch> stretches;
};

/// A parameter of a bounded or unbounded curve near which a point lies: the nearest one, with whole turns of
/// `period` (0: none) taken into account. Nothing when that is outside of the interval by more than `slack`.
std::optional<double> odgeParamWithin(OdGeInterval const& interval, double param, double period, double slack);

/// Where ends of one curve lie on the other, by at most `slack`; both curves are bounded or lines.
std::vector<OdGeIntersection> odgeEndContacts(OdGeCurve3d const& a, OdGeCurve3d const& b, double slack);
/// Turns the contacts of two curves of which one covers the other between them into a stretch, or into points
/// where they agree.
void odgeAddStretch(std::vector<OdGeIntersection> contacts, double slack, OdGeContacts& contactsOfAll);

// Closed formulas. No curve is shorter than `slack`.
void odgeIntersectLines(OdGeLinearEnt3d const& a, OdGeLinearEnt3d const& b, double slack, OdGeContacts& contacts);
/// A line with a circle or an ellipse (kCircArc, kEllipArc).
void odgeIntersectLineArc(OdGeLinearEnt3d const& line, OdGeCurve3d const& arc, double slack,
                          OdGeContacts& contacts);
void odgeIntersectCircles(OdGeCircArc3d const& a, OdGeCircArc3d const& b, double slack, OdGeContacts& contacts);

/// Two Bezier curves: halving, then Newton's method.
void odgeIntersectPieces(OdGeNurbCurve3d const& a, OdGeNurbCurve3d const& b, double slack, OdGeContacts& contacts);
