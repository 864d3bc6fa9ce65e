// What users are told of a polyline.
#include "host/db/entities/od_db_extruded_outline.h"
#include "host/db/entities/od_db_polyline.h"
#include "host/db/entities/od_db_transform.h"
#include "host/db/od_db_property_sink.h"

void OdDbPolyline::listProperties(OdDbPropertySink& sink) const
{
    sink.flag(L"closed", isClosed());
    sink.count(L"vertices", numVerts());
    if (getConstantWidth() != 0)
        sink.distance(L"constant width", getConstantWidth());
    if (m_elevation != 0)
        sink.distance(L"elevation", m_elevation);
    if (hasPlinegen())
        sink.flag(L"linetype through vertices", true);
    double size = 0;
    if (getLength(size) == eOk)
        sink.distance(L"length", size);
    if (getArea(size) == eOk)
        sink.area(L"area", size);
    odDbListExtrusion(sink, m_normal, m_thickness);

    OdGeMatrix3d const toWorld = odDbPlaneToWorld(m_normal);
    for (unsigned i = 0; i < numVerts(); ++i) {
        sink.part(L"vertex", static_cast<int>(i) + 1);
        sink.point(L"position", toWorld * inPlane(m_vertices[i].point));
        if (m_vertices[i].bulge != 0)
            sink.number(L"bulge", m_vertices[i].bulge);
        if (m_hasVertexWidths) {
            sink.distance(L"start width", m_vertices[i].startWidth);
            sink.distance(L"end width", m_vertices[i].endWidth);
        }
    }
}
