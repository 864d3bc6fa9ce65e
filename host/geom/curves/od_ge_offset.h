#pragma once

#include "host/geom/curves/od_ge_curve3d.h"

/// The curves at a distance from a curve, to the right of it for a positive distance when seen against `normal`: a
/// counterclockwise circle grows. The curve lies in a plane across the normal. What is nearer to the curve than
/// the distance is cut away, so that the result may be several curves, or none when nothing remains (a circle
/// whose radius is used up). Lines, arcs and chains give exact curves of their class, corners of chains are kept
/// by extending their segments as far as these meet, else rounded; ellipses and splines give splines within a
/// millionth of their size. What is closed stays closed. Throws OdError: eInvalidInput when the curve does not lie
/// across the normal or the distance is no number, eDegenerateGeometry for a zero normal, eNotApplicable where no
/// curve can be fitted.
std::vector<std::unique_ptr<OdGeCurve3d>> odgeOffset(OdGeCurve3d const& curve, OdGeVector3d const& normal,
                                                     double distance, OdGeTol const& tol = OdGeContext::gTol);
