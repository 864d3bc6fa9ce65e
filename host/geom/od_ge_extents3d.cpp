#include "host/geom/od_ge_extents3d.h"

#include "host/geom/od_ge_matrix3d.h"

void OdGeExtents3d::transformBy(OdGeMatrix3d const& transformation)
{
    if (!isValidExtents())
        return;
    OdGePoint3d const corners[2] = {minPoint(), maxPoint()};
    *this = OdGeExtents3d();
    for (int i = 0; i < 8; ++i)
        addPoint(transformation * OdGePoint3d(corners[i & 1].x, corners[(i >> 1) & 1].y, corners[i >> 2].z));
}
