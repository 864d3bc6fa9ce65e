#pragma once

#include "host/geom/od_ge_bulge.h"

namespace ca {

// Arcs between two points as ARC and PLINE ask for them, beside those of host/geom/od_ge_bulge.h.

/// What is over whole turns of a signed sweep; nothing when no sweep remains.
std::optional<double> bulgeOfSweep(double sweep);
/// The counterclockwise arc of this radius: the lesser one, or for a negative radius the greater one. Nothing when
/// the points are equal or farther apart than the diameter.
std::optional<double> bulgeOfRadius(OdGePoint2d const& start, OdGePoint2d const& end, double radius);

/// Unit vector in which a segment arrives at its end; zero for a segment without length.
OdGeVector2d directionAtEnd(OdGePoint2d const& start, OdGePoint2d const& end, double bulge);

OdGeVector2d turned(OdGeVector2d const& v, double angle);

} // namespace ca
