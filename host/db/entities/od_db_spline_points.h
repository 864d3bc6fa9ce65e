#pragma once

#include "host/geom/od_ge_3d.h"

#include <span>
#include <vector>

/// Points on the uniform B-spline of a frame, `segments` (at least 1) for each segment of the frame: an open one
/// begins and ends with its frame. Frames of few points lower the degree; a frame of less than two gives nothing.
std::vector<OdGePoint3d> odDbSplinePoints(std::span<OdGePoint3d const> frame, int degree, bool isClosed,
                                          int segments);
