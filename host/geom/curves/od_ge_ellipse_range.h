#pragma once

#include "host/geom/od_ge_2d.h"
#include "host/geom/od_ge_interval.h"

/// An arc of an ellipse about the origin, point(t) = (a cos t, b sin t), a and b not negative; any of the two may
/// be the greater one.
struct OdGeEllipseRange
{
    double a = 1;
    double b = 1;
    OdGeInterval range;

    /// The parameter in the range whose point is nearest to `point`, the least one among equals. Distances that
    /// differ by less than `noise` are equal.
    double closestParam(OdGePoint2d const& point, double noise) const;
};
