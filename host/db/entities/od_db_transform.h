#pragma once

#include "host/geom/od_ge_matrix3d.h"
#include "host/root/od_error.h"

// Steps that the transformations of entities share; see od_db_plane_transform.h for entities that lie in a plane.

/// A unit normal; throws OdError(eDegenerateGeometry) for a vector of zero length.
OdGeVector3d odDbUnitNormal(OdGeVector3d const& normal);

/// A normal as entities use it: that of a damaged file, of zero length, counts as (0, 0, 1).
OdGeVector3d odDbSaneNormal(OdGeVector3d const& normal);

/// The matrix moves only: directions and lengths keep their bits.
bool odDbIsTranslation(OdGeMatrix3d const& transformation);

/// A factor that differs from 1 by rounding only becomes 1: lengths keep their bits when something is turned.
double odDbCleanFactor(double factor);
/// The unit vector of a direction that is not zero, freed from rounding: `before` when it agrees with that, and
/// whole zeros and ones.
OdGeVector3d odDbCleanDirection(OdGeVector3d const& direction, OdGeVector3d const& before);

/// Carries an extrusion along: the direction is transformed and made a unit vector again, the thickness grows with
/// its length. eDegenerateGeometry when the direction collapses; then nothing changes.
OdResult odDbTransformExtrusion(OdGeMatrix3d const& transformation, OdGeVector3d& normal, double& thickness);

/// @name Between the coordinates of the plane of a normal and the world
/// A normal of zero length, as damaged files hold it, counts as (0, 0, 1).
/// @{
/// Coordinates are the same in the plane and in the world.
bool odDbIsWorldPlane(OdGeVector3d const& normal);
OdGeMatrix3d odDbPlaneToWorld(OdGeVector3d const& normal);
OdGeMatrix3d odDbWorldToPlane(OdGeVector3d const& normal);
OdGePoint3d odDbToWorld(OdGePoint3d const& inPlane, OdGeVector3d const& normal);
OdGePoint3d odDbToPlane(OdGePoint3d const& inWorld, OdGeVector3d const& normal);
/// @}
