#pragma once

#include "host/geom/curves/od_ge_curve2d.h"

/// Where a point lies by a closed curve.
enum class OdGeContainment
{
    kInside,
    kOn, ///< on the curve itself
    kOutside
};

/// The curve runs counterclockwise about the normal, by the sign of its area; an open curve counts as closed by
/// the straight line between its ends.
bool odgeIsCounterClockwise(OdGeCurve3d const& curve, OdGeVector3d const& normal);
bool odgeIsCounterClockwise(OdGeCurve2d const& curve);

/// Decides it without sampling, however near to the curve the point lies. Where a curve runs around a point
/// several times, an even number of turns counts as outside. A point out of the plane of the curve is outside.
/// Throws OdError(eInvalidInput) for a curve that is not closed or does not enclose anything in a plane.
OdGeContainment odgeContains(OdGeCurve3d const& closedCurve, OdGePoint3d const& point,
                             OdGeTol const& tol = OdGeContext::gTol);
OdGeContainment odgeContains(OdGeCurve2d const& closedCurve, OdGePoint2d const& point,
                             OdGeTol const& tol = OdGeContext::gTol);
