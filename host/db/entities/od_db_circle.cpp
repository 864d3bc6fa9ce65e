#include "host/db/entities/od_db_circle.h"

#include "host/db/entities/od_db_transform.h"

OD_DB_DEFINE_CLASS(OdDbCircle, OdDbCircularEntity, "CIRCLE")

OdDbFieldTable const& OdDbCircle::fields()
{
    static OdDbFieldTable const s_table({entitySection(), circleSection()});
    return s_table;
}

OdResult OdDbCircle::transformBy(OdGeMatrix3d const& transformation)
{
    auto const plane = transformOfCircle(transformation);
    if (!plane)
        return eDegenerateGeometry;
    assertWriteEnabled();
    moveCircle(*plane);
    return eOk;
}

void OdDbCircle::outline(OdDbOutlineSink& sink) const
{
    OdGeMatrix3d const plane = odDbPlaneToWorld(normal());
    sink.arc({center(), plane.column(0) * radius(), plane.column(1) * radius()});
}
