#pragma once

#include "host/geom/curves/od_ge_curve3d.h"

#include <functional>

// What the sources of odgeOffset share.

/// What an offset is made from.
struct OdGeOffsetTask
{
    OdGeVector3d normal; ///< unit vector
    double distance = 0;
    double slack = 0; ///< distances up to this one count as none
    bool isClosed = false;

    /// The same on the other side.
    OdGeOffsetTask opposite() const { return {normal, -distance, slack, isClosed}; }
    /// The unit vector to the right of a direction in the plane.
    OdGeVector3d rightOf(OdGeVector3d const& direction) const
    {
        OdGeVector3d const right = direction.crossProduct(normal);
        return right / right.length();
    }
};

/// Part of one of the offset pieces, with the exact points where it meets its neighbours.
struct OdGeOffsetStretch
{
    std::size_t piece = 0;
    double from = 0;
    double to = 0;
    OdGePoint3d start;
    OdGePoint3d end;
};
using OdGeOffsetRun = std::vector<OdGeOffsetStretch>;

/// Pieces at the distance from parts of the original; no piece meets itself.
struct OdGeOffsetOutline
{
    std::vector<std::unique_ptr<OdGeCurve3d>> pieces;
    /// What is at the distance as well, but not to be part of the result: the other side of an open curve and its
    /// ends.
    std::vector<std::unique_ptr<OdGeCurve3d>> others;
    /// What the pieces may be off.
    double allowed = 0;
    /// The distance of a point from the original.
    std::function<double(OdGePoint3d const&)> distanceTo;
};

/// Cuts the pieces where they meet each other or the other ones, leaves out what comes nearer to the original than
/// the distance, and puts the rest together. Runs of a closed original are closed.
std::vector<OdGeOffsetRun> odgeOffsetRuns(OdGeOffsetOutline const& outline, OdGeOffsetTask const& task);
/// Circles with the distance as radius about the ends of an open curve; none for a closed one.
std::vector<std::unique_ptr<OdGeCurve3d>> odgeOffsetEnds(OdGeCurve3d const& curve, OdGeOffsetTask const& task);

class OdGeSegmentChain3d;
std::vector<std::unique_ptr<OdGeCurve3d>> odgeOffsetChain(OdGeSegmentChain3d const& chain,
                                                          OdGeOffsetTask const& task);
/// Of ellipses and splines.
std::vector<std::unique_ptr<OdGeCurve3d>> odgeOffsetFitted(OdGeCurve3d const& curve, OdGeOffsetTask const& task);
