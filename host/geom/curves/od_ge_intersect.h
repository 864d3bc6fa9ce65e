#pragma once

#include "host/geom/curves/od_ge_curve3d.h"

/// A common point of two curves, or of an end of a stretch that they share.
struct OdGeIntersection
{
    OdGePoint3d point;
    double paramA = 0;
    double paramB = 0;
    bool isOverlap = false; ///< an end of a stretch along which both run
};

/// Common points of two curves, in ascending order of paramA; touching ones (tangents) count once. Of a stretch
/// that both share, its two ends are given. Works in space: curves that only cross when seen along some direction
/// have nothing in common.
std::vector<OdGeIntersection> odgeIntersect(OdGeCurve3d const& a, OdGeCurve3d const& b,
                                            OdGeTol const& tol = OdGeContext::gTol);
