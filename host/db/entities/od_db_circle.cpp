#include "host/db/entities/od_db_circle.h"

#include "host/db/entities/od_db_extruded_outline.h"
#include "host/db/entities/od_db_stretch.h"
#include "host/db/od_db_property_sink.h"

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

void OdDbCircle::getStretchPoints(std::vector<OdGePoint3d>& points) const
{
    points.push_back(center());
}

OdResult OdDbCircle::moveStretchPointsAt(std::span<int const> indices, OdGeVector3d const& offset)
{
    return odDbStretchWhole(*this, indices, offset);
}

void OdDbCircle::listProperties(OdDbPropertySink& sink) const
{
    sink.point(L"center", center());
    sink.distance(L"radius", radius());
    sink.distance(L"circumference", Oda2PI * std::abs(radius()));
    sink.area(L"area", OdaPI * radius() * radius());
    odDbListExtrusion(sink, normal(), thickness());
}
