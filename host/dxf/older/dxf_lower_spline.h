#pragma once

#include "host/geom/od_ge_3d.h"

#include <vector>

namespace dxf {

/// A B-spline as files have it.
struct FileSpline
{
    int degree;
    std::vector<double> knots;
    std::vector<OdGePoint3d> controls;
    std::vector<double> weights; ///< empty, or one for each control point
};

/// Points along the curve, close enough to draw it. Empty for data that makes no curve.
std::vector<OdGePoint3d> splinePoints(FileSpline const& spline);

} // namespace dxf
