#pragma once

// Drawing utilities for tests: values and corners to hand to commands, and entities made of plain data.

#include "testapi/ta_host.h"

namespace ta {

/// A number that can stand for something in a drawing: finite and less than 1e20 in magnitude, the value by which
/// drawings say that there is nothing (extents of an empty drawing).
bool isValidDouble(double value);

/// Makes two corners in user coordinates fit for a window selection, which goes from left to right: the points
/// change places where the first lies to the right. False, with the points as they were, when a coordinate is no
/// isValidDouble() or the box has no width or no height under the global tolerance.
bool correctWindowSelectionArgs(OdGePoint3d& pt1Uc, OdGePoint3d& pt2Uc);

/// @name Builders
/// Each makes a new entity that is in no drawing yet. Points of polylines in a plane are coordinates of that plane
/// (ECS). Bulges and widths belong to the segments that leave the points; what a list lacks, and a null one,
/// counts as 0. The normal need not be of unit length; null is the Z axis. Throw OdError: eInvalidInput for a list
/// longer than the points, eOutOfRange for a negative width, eDegenerateGeometry for a zero normal.
/// @{
OdDbPolylinePtr createOdDbPolyline(OdGePoint2dArray const& points, OdGeDoubleArray const* bulges = nullptr,
                                   bool isClosed = false, OdGeVector3d const* normal = nullptr,
                                   double elevation = 0, OdGeDoubleArray const* startWidths = nullptr,
                                   OdGeDoubleArray const* endWidths = nullptr);
OdDb2dPolylinePtr createOdDb2dPolyline(OdGePoint2dArray const& points, OdGeDoubleArray const* bulges = nullptr,
                                       bool isClosed = false, OdGeVector3d const* normal = nullptr,
                                       double elevation = 0, OdGeDoubleArray const* startWidths = nullptr,
                                       OdGeDoubleArray const* endWidths = nullptr);
OdDb3dPolylinePtr createOdDb3dPolyline(OdGePoint3dArray const& points, bool isClosed = false);
/// A spline that is not periodic. Weights count for rational ones only, null makes all of them 1. Throws OdError:
/// eInvalidInput for data that make no curve, eOutOfRange for a negative tolerance.
OdDbSplinePtr createOdDbSpline(int degree, bool isRational, bool isClosed, OdGePoint3dArray const& controlPoints,
                               OdGeKnotVector const& knots, OdGeDoubleArray const* weights = nullptr,
                               double tolerance = 1e-7);
/// @}

} // namespace ta
