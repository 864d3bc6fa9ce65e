#pragma once

#include "host/geom/od_ge_extents2d.h"

// Cutting lines at the sides of a rectangle; for the sources of OdGeRegion2d.

/// Cuts the range of a parameter down to where from + t * step lies between low and high; false when nothing is
/// left.
inline bool odgeClip(double from, double step, double low, double high, double& first, double& last)
{
    if (step == 0)
        return from >= low && from <= high;
    double const atLow = (low - from) / step;
    double const atHigh = (high - from) / step;
    first = std::max(first, std::min(atLow, atHigh));
    last = std::min(last, std::max(atLow, atHigh));
    return first <= last;
}

/// The filled rectangle and the segment have a common point.
inline bool odgeSegmentMeets(OdGeExtents2d const& rectangle, OdGePoint2d const& a, OdGePoint2d const& b)
{
    double first = 0;
    double last = 1;
    return rectangle.isValidExtents() &&
           odgeClip(a.x, b.x - a.x, rectangle.minPoint().x, rectangle.maxPoint().x, first, last) &&
           odgeClip(a.y, b.y - a.y, rectangle.minPoint().y, rectangle.maxPoint().y, first, last);
}
