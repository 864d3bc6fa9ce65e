#include "host/app/commands/flat_polyline.h"

#include "host/db/entities/od_db_polyline.h"
#include "host/db/od_db_database.h"

namespace ca {

OdDbObjectId drawClosedPolyline(Editor& editor, DrawingPlane const& plane, std::span<FlatVertex const> vertices,
                                double width, double thickness)
{
    OdDbPolylinePtr const polyline = new OdDbPolyline;
    polyline->setNormal(plane.normal());
    polyline->setElevation(plane.elevation());
    polyline->setPlinegen(editor.db().header().integer("PLINEGEN") != 0);
    polyline->setConstantWidth(width);
    polyline->setThickness(thickness);
    for (FlatVertex const& vertex : vertices)
        polyline->addVertexAt(polyline->numVerts(), vertex.point, vertex.bulge);
    polyline->setClosed(true);
    return editor.append(polyline);
}

OdDbObjectId drawClosedPolyline(Editor& editor, DrawingPlane const& plane, std::span<FlatVertex const> vertices,
                                double width)
{
    return drawClosedPolyline(editor, plane, vertices, width, editor.db().header().real("THICKNESS"));
}

} // namespace ca
