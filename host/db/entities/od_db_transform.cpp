#include "host/db/entities/od_db_transform.h"

OdGeVector3d odDbUnitNormal(OdGeVector3d const& normal)
{
    if (normal.isZeroLength())
        throw OdError(eDegenerateGeometry, L"A normal of zero length is no direction");
    return normal.normal();
}

OdGeVector3d odDbSaneNormal(OdGeVector3d const& normal)
{
    return normal.isZeroLength() ? OdGeVector3d::kZAxis : normal;
}

bool odDbIsTranslation(OdGeMatrix3d const& transformation)
{
    for (int row = 0; row < 3; ++row)
        for (int col = 0; col < 3; ++col)
            if (transformation.entry[row][col] != (row == col ? 1.0 : 0.0))
                return false;
    return true;
}

double odDbCleanFactor(double factor)
{
    constexpr double kNoise = 1e-14;
    return OdEqual(factor, 1.0, kNoise) ? 1.0 : factor;
}

OdGeVector3d odDbCleanDirection(OdGeVector3d const& direction, OdGeVector3d const& before)
{
    constexpr double kNoise = 1e-15;
    OdGeVector3d unit = direction / direction.length();
    if ((unit - before).length() <= kNoise)
        return before;
    for (double* const coordinate : {&unit.x, &unit.y, &unit.z}) {
        if (std::abs(*coordinate) <= kNoise)
            *coordinate = 0.0;
        else if (OdEqual(std::abs(*coordinate), 1.0, kNoise))
            *coordinate = std::copysign(1.0, *coordinate);
    }
    return unit;
}

OdResult odDbTransformExtrusion(OdGeMatrix3d const& transformation, OdGeVector3d& normal, double& thickness)
{
    if (odDbIsTranslation(transformation))
        return eOk;
    OdGeVector3d const direction = transformation * odDbSaneNormal(normal);
    if (direction.isZeroLength())
        return eDegenerateGeometry;
    normal = odDbCleanDirection(direction, normal);
    thickness *= odDbCleanFactor(direction.length());
    return eOk;
}

bool odDbIsWorldPlane(OdGeVector3d const& normal)
{
    return (normal.x == 0 && normal.y == 0 && normal.z == 1) || normal.isZeroLength();
}

OdGeMatrix3d odDbPlaneToWorld(OdGeVector3d const& normal)
{
    return odDbIsWorldPlane(normal) ? OdGeMatrix3d::kIdentity : OdGeMatrix3d::planeToWorld(normal);
}

OdGeMatrix3d odDbWorldToPlane(OdGeVector3d const& normal)
{
    return odDbIsWorldPlane(normal) ? OdGeMatrix3d::kIdentity : OdGeMatrix3d::worldToPlane(normal);
}

OdGePoint3d odDbToWorld(OdGePoint3d const& inPlane, OdGeVector3d const& normal)
{
    return odDbIsWorldPlane(normal) ? inPlane : OdGeMatrix3d::planeToWorld(normal) * inPlane;
}

OdGePoint3d odDbToPlane(OdGePoint3d const& inWorld, OdGeVector3d const& normal)
{
    return odDbIsWorldPlane(normal) ? inWorld : OdGeMatrix3d::worldToPlane(normal) * inWorld;
}
