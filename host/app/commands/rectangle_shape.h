#pragma once

#include "host/app/commands/flat_polyline.h"

namespace ca {

/// How the corners of a rectangle are cut: rounded, or beveled by two distances. Walking along the sides, `before`
/// lies in front of a corner and `behind` after it; a rounded corner has the radius for both.
struct RectangleCorners
{
    double before = 0;
    double behind = 0;
    bool isRound = false;

    bool areCut() const { return before > 0 || behind > 0; }
    /// The cuts of neighbouring corners leave each other room on sides of these lengths.
    bool fit(double length, double width) const { return before + behind <= std::min(length, width); }
    /// What all four corners take from the area.
    double lostArea() const;
};

/// The rectangle with a corner at `first` and sides along two perpendicular vectors; corners that do not fit stay
/// whole.
std::vector<FlatVertex> rectangleVertices(OdGePoint2d const& first, OdGeVector2d const& length,
                                          OdGeVector2d const& width, RectangleCorners const& corners);

/// The other side of a rectangle of this area with one side given: its corners are cut where they fit.
double rectangleSide(double area, double side, RectangleCorners const& corners);

} // namespace ca
