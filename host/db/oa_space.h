#pragma once

#include "host/db/od_db_object_id.h"
#include "host/geom/od_ge_matrix3d.h"

namespace oa {

/// The block in which new entities go: model space, or the current sheet.
OdDbObjectId getActiveSpace(OdDbDatabase const* database);

/// The current user coordinate system of the active space, in world coordinates; unit axes.
void getUCS(OdDbDatabase const* database, OdGePoint3d& origin, OdGeVector3d& xAxis, OdGeVector3d& yAxis,
            OdGeVector3d& zAxis);

/// From user to world coordinates.
OdGeMatrix3d ucsToWorld(OdDbDatabase const* database);

} // namespace oa
