#pragma once

#include "host/geom/od_ge_tol.h"

#include <algorithm>
#include <cmath>
#include <limits>

/// Range of the parameter of a curve; lines and rays have no bound at one or both sides (infinite values).
struct OdGeInterval
{
    double lower = -std::numeric_limits<double>::infinity();
    double upper = std::numeric_limits<double>::infinity();

    bool isBoundedBelow() const { return std::isfinite(lower); }
    bool isBoundedAbove() const { return std::isfinite(upper); }
    bool isBounded() const { return isBoundedBelow() && isBoundedAbove(); }
    double length() const { return upper - lower; }
    bool contains(double param, OdGeTol const& tol = OdGeContext::gTol) const
    {
        return param >= lower - tol.equalVector() && param <= upper + tol.equalVector();
    }
    double clamped(double param) const { return std::clamp(param, lower, upper); }
};
