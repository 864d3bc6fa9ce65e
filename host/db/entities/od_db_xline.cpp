#include "host/db/entities/od_db_xline.h"

#include "host/geom/curves/od_ge_linear3d.h"

OD_DB_DEFINE_CLASS(OdDbXline, OdDbEndlessCurve, "XLINE")

OdDbFieldTable const& OdDbXline::fields()
{
    static OdDbFieldTable const s_table({entitySection(), endlessSection("AcDbXline")});
    return s_table;
}

std::unique_ptr<OdGeCurve3d> OdDbXline::getOdGeCurve() const
{
    return hasDirection() ? std::make_unique<OdGeLine3d>(basePoint(), unitDir()) : nullptr;
}

OdResult OdDbXline::reverseCurve()
{
    if (!hasDirection())
        return eDegenerateGeometry;
    setUnitDir(-unitDir());
    return eOk;
}
