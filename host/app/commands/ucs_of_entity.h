#pragma once

#include "host/db/od_db_entity.h"

#include <optional>

namespace ca {

/// A coordinate system in the world: axes are perpendicular unit vectors.
struct CoordinateAxes
{
    OdGePoint3d origin;
    OdGeVector3d xAxis;
    OdGeVector3d yAxis;
};

/// X axis along a direction, Y axis perpendicular to it and to a normal, as near as the two allow: the Z axis is
/// the normal where that is perpendicular to the direction. None for directions of no length and equal ones.
std::optional<CoordinateAxes> axesAlong(OdGePoint3d const& origin, OdGeVector3d const& direction,
                                        OdGeVector3d const& normal);

/// The coordinate system in which an entity lies, as it was drawn: lines and arcs from the end nearest to where
/// they were picked, circles towards that place, polylines and faces along their first side, texts and blocks as
/// they are turned. None for classes that lie in no plane, and for damaged entities.
std::optional<CoordinateAxes> ucsOfEntity(OdDbEntity const& entity, std::optional<OdGePoint3d> const& picked);

} // namespace ca
