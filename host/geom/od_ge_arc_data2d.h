#pragma once

#include "host/geom/od_ge_2d.h"

/// Circle in a plane.
struct OdGeCircleData2d
{
    OdGePoint2d center;
    double radius = 0;
};

/// Arc of a circle in a plane. Angles count from the X axis; the arc runs from `startAngle` counterclockwise to
/// `endAngle`, or clockwise when `isClockwise` is set; equal angles mean a full turn.
struct OdGeArcData2d
{
    OdGePoint2d center;
    double radius = 0;
    double startAngle = 0; ///< in [0, 2 pi)
    double endAngle = 0;   ///< in [0, 2 pi)
    bool isClockwise = false;

    /// In (0, 2 pi], whatever the direction.
    double sweep() const
    {
        return isClockwise ? odgeSweep(endAngle, startAngle) : odgeSweep(startAngle, endAngle);
    }
    OdGePoint2d startPoint() const { return pointAt(startAngle); }
    OdGePoint2d endPoint() const { return pointAt(endAngle); }
    OdGePoint2d pointAt(double angle) const
    {
        return center + OdGeVector2d(std::cos(angle), std::sin(angle)) * radius;
    }
};
