#pragma once

#include "host/geom/od_ge_matrix3d.h"

// Axes that curves and planes are placed with.

/// The vector at length 1. Throws OdError(eDegenerateGeometry) for zero length under the global tolerance and for
/// values that are no numbers.
OdGeVector3d odgeUnitOrThrow(OdGeVector3d const& v);
/// The part of the vector across a unit vector, at length 1. Throws as above, also for parallel vectors.
OdGeVector3d odgeUnitAcross(OdGeVector3d const& v, OdGeVector3d const& unit);
/// The part of the vector across a unit vector; the vector itself where it is perpendicular but for rounding.
OdGeVector3d odgePartAcross(OdGeVector3d const& v, OdGeVector3d const& unit);
/// The image of a direction at length 1. Throws OdError(eDegenerateGeometry) where the direction collapses,
/// measured against how the matrix scales other directions.
OdGeVector3d odgeUnitImage(OdGeMatrix3d const& transformation, OdGeVector3d const& unit);

/// What becomes of a plane in which circles stay circles.
struct OdGeSimilarImage
{
    OdGeVector3d xAxis;  ///< image of the X axis of the plane, a unit vector
    OdGeVector3d normal; ///< unit vector about which the images of the X and the Y axis lie counterclockwise
    double scale = 1;    ///< factor of all lengths in the plane
};

/// The image of the plane of two unit axes. Throws OdError(eDegenerateGeometry) where circles of the plane become
/// ellipses or collapse; what happens out of the plane does not count.
OdGeSimilarImage odgeSimilarImage(OdGeMatrix3d const& transformation, OdGeVector3d const& xAxis,
                                  OdGeVector3d const& yAxis);
