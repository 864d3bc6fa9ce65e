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

} // namespace oa
