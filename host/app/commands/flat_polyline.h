#pragma once

#include "host/app/commands/drawing_plane.h"

#include <span>

namespace ca {

struct FlatVertex
{
    OdGePoint2d point; ///< in the plane
    double bulge = 0;  ///< of the segment that leaves the vertex
};

/// Appends a closed polyline of the plane.
OdDbObjectId drawClosedPolyline(Editor& editor, DrawingPlane const& plane, std::span<FlatVertex const> vertices,
                                double width, double thickness);
/// The same with the current thickness.
OdDbObjectId drawClosedPolyline(Editor& editor, DrawingPlane const& plane, std::span<FlatVertex const> vertices,
                                double width = 0);

} // namespace ca
