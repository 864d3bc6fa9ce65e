#pragma once

#include "host/geom/curves/od_ge_curve2d.h"

/// A common point of two curves of the plane, or of an end of a stretch that they share.
struct OdGeIntersection2d
{
    OdGePoint2d point;
    double paramA = 0;
    double paramB = 0;
    bool isOverlap = false; ///< an end of a stretch along which both run
};

/// Common points of two curves of the plane, in ascending order of paramA; as for curves in space.
std::vector<OdGeIntersection2d> odgeIntersect(OdGeCurve2d const& a, OdGeCurve2d const& b,
                                              OdGeTol const& tol = OdGeContext::gTol);
