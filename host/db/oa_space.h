#pragma once

#include "host/db/od_db_object_id.h"
#include "host/geom/od_ge_matrix3d.h"
#include "host/root/od_array.h"

namespace oa {

/// The block in which new entities go: model space, or the current sheet.
OdDbObjectId getActiveSpace(OdDbDatabase const* database);

/// The current user coordinate system of the active space, in world coordinates; unit axes.
void getUCS(OdDbDatabase const* database, OdGePoint3d& origin, OdGeVector3d& xAxis, OdGeVector3d& yAxis,
            OdGeVector3d& zAxis);

/// From user to world coordinates.
OdGeMatrix3d ucsToWorld(OdDbDatabase const* database);

/// Turns points of the user coordinate system, at height `elevation` above its XY plane, into coordinates of the
/// plane of `normal` as drawing files count them. Coordinates stay exactly as they are where the two systems are
/// the same. Returns the elevation of the plane that holds the points: their third coordinate there. A plane that
/// is not parallel to theirs cannot hold them all; they are projected onto the one through the first point then.
/// Without points, the elevation is that of the point above the origin.
/// Throws OdError(eDegenerateGeometry) for a zero normal, with the points as they were.
double ucsToEcs(OdDbDatabase const* database, OdGeVector3d const& normal, OdArray<OdGePoint2d>& points,
                double elevation);

} // namespace oa
