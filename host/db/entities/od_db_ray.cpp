#include "host/db/entities/od_db_ray.h"

#include "host/geom/curves/od_ge_linear3d.h"

OD_DB_DEFINE_CLASS(OdDbRay, OdDbEndlessCurve, "RAY")

OdDbFieldTable const& OdDbRay::fields()
{
    static OdDbFieldTable const s_table({entitySection(), endlessSection("AcDbRay")});
    return s_table;
}

std::unique_ptr<OdGeCurve3d> OdDbRay::getOdGeCurve() const
{
    return hasDirection() ? std::make_unique<OdGeRay3d>(basePoint(), unitDir()) : nullptr;
}
