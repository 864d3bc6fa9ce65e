#include "host/db/oa_space.h"

#include "host/db/od_db_database.h"

namespace oa {

OdDbObjectId getActiveSpace(OdDbDatabase const* database)
{
    return database->getTILEMODE() ? database->getModelSpaceId() : database->getPaperSpaceId();
}

void getUCS(OdDbDatabase const* database, OdGePoint3d& origin, OdGeVector3d& xAxis, OdGeVector3d& yAxis,
            OdGeVector3d& zAxis)
{
    OdDbHeader const& header = database->header();
    std::string const prefix = database->getTILEMODE() ? "" : "P";
    auto const vector = [&](char const* name) { return header.point(prefix + name).asVector(); };
    origin = header.point(prefix + "UCSORG");
    xAxis = vector("UCSXDIR").normal();
    yAxis = vector("UCSYDIR").normal();
    if (xAxis.isZeroLength() || yAxis.isZeroLength() || xAxis.isParallelTo(yAxis)) {
        xAxis = OdGeVector3d::kXAxis;
        yAxis = OdGeVector3d::kYAxis;
    }
    zAxis = xAxis.crossProduct(yAxis).normal();
}

OdGeMatrix3d ucsToWorld(OdDbDatabase const* database)
{
    OdGePoint3d origin;
    OdGeVector3d x, y, z;
    getUCS(database, origin, x, y, z);
    OdGeMatrix3d matrix;
    matrix.setCoordSystem(origin, x, y, z);
    return matrix;
}

double ucsToEcs(OdDbDatabase const* database, OdGeVector3d const& normal, OdArray<OdGePoint2d>& points,
                double elevation)
{
    OdGeMatrix3d const ucsToPlane = OdGeMatrix3d::worldToPlane(normal) * ucsToWorld(database);
    if (ucsToPlane == OdGeMatrix3d::kIdentity)
        return elevation;
    OdGePoint2d const first = points.empty() ? OdGePoint2d() : points.first();
    double const planeElevation = (ucsToPlane * OdGePoint3d(first.x, first.y, elevation)).z;
    for (OdGePoint2d& point : points)
        point = (ucsToPlane * OdGePoint3d(point.x, point.y, elevation)).convert2d();
    return planeElevation;
}

} // namespace oa
