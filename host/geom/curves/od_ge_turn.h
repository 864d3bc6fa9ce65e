#pragma once

#include "host/geom/od_ge_3d.h"
#include "host/geom/od_ge_interval.h"

// What curves whose parameter is an angle have in common.

/// The range of an arc: an end that is not greater than the start gets whole turns added; more than a turn is a
/// full one. Throws OdError(eOutOfRange) for angles that are no numbers or so large that a turn is lost in
/// rounding.
OdGeInterval odgeTurnRange(double start, double end);
/// The range spans a full turn within the tolerance of vectors.
inline bool odgeIsFullTurn(OdGeInterval const& range, OdGeTol const& tol = OdGeContext::gTol)
{
    return range.length() >= Oda2PI - tol.equalVector();
}
/// The parameter to evaluate for a parameter: a full turn ends in exactly the point where it starts.
inline double odgeSeamParam(double param, OdGeInterval const& range)
{
    return param == range.upper && odgeIsFullTurn(range) ? range.lower : param;
}
/// How much the coordinates of differences of the two points may be off by rounding.
double odgeCoordinateNoise(OdGePoint3d const& a, OdGePoint3d const& b);
