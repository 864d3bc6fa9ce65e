#pragma once

#include "host/geom/od_ge_tol.h"

#include <cmath>

// Angles are in radians, counterclockwise.

/// The angle folded into [0, 2 pi).
inline double odgeFoldAngle(double angle)
{
    double folded = std::fmod(angle, Oda2PI);
    if (folded < 0)
        folded += Oda2PI;
    // A tiny negative angle rounds up to the full turn.
    return folded < Oda2PI ? folded : 0.0;
}

/// The counterclockwise sweep from one angle to another in (0, 2 pi]: equal angles mean a full turn, as in arcs.
inline double odgeSweep(double start, double end)
{
    double const sweep = odgeFoldAngle(end - start);
    return sweep > 0 ? sweep : Oda2PI;
}

constexpr double odgeToRadians(double degrees)
{
    return degrees * (OdaPI / 180);
}
constexpr double odgeToDegrees(double radians)
{
    return radians * (180 / OdaPI);
}
