#pragma once

#include "host/geom/od_ge_matrix3d.h"
#include "host/root/od_string.h"

#include <optional>

namespace ca {

/// What typed coordinates are relative to.
struct CoordinateFrame
{
    OdGeMatrix3d ucsToWorld;
    OdGePoint3d lastPoint; ///< in world coordinates
    double elevation = 0;  ///< z of points given with two coordinates, in the user coordinate system
};

/// A point from typed text, in world coordinates. Forms: "x,y", "x,y,z", "distance<angle", "distance<angle,z"
/// (angles in degrees); "@" in front is relative to the last point, "#" says that it is not, "*" means world
/// coordinates ("@*x,y" a world offset); "@" alone is the last point. None for anything else.
std::optional<OdGePoint3d> parsePoint(OdString const& text, CoordinateFrame const& frame);

/// "x,y,z" in the shortest form that reads back as the same numbers.
OdString formatPoint(OdGePoint3d const& point);

} // namespace ca
