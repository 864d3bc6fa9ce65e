#include "host/app/commands/drawn_end.h"

#include "host/app/ca_doc.h"
#include "host/app/commands/arc_bulges.h"
#include "host/db/entities/od_db_arc.h"
#include "host/db/entities/od_db_line.h"
#include "host/db/entities/od_db_polyline.h"
#include "host/db/entities/od_db_transform.h"
#include "host/db/oa_space.h"
#include "host/db/od_db_database.h"
#include "host/db/records/od_db_block_table_record.h"

namespace ca {

namespace {

DrawnEnd endOf(OdDbLine const& line)
{
    return {line.endPoint(), (line.endPoint() - line.startPoint()).normal(), false};
}

/// Arcs run counterclockwise in the drawing, however they were drawn.
DrawnEnd endOf(OdDbArc const& arc, OdGePoint3d const& lastPoint)
{
    OdGeEllipticArc const curve = arc.curve();
    bool const wasDrawnClockwise =
        lastPoint.isEqualTo(curve.startPoint()) && !lastPoint.isEqualTo(curve.endPoint());
    OdGePoint3d const end = wasDrawnClockwise ? curve.startPoint() : curve.endPoint();
    OdGeVector3d const forward = arc.normal().crossProduct(end - curve.center).normal();
    return {end, wasDrawnClockwise ? -forward : forward, true};
}

DrawnEnd endOf(OdDbPolyline const& polyline)
{
    unsigned const last = polyline.numVerts() - 1;
    double const bulge = polyline.getBulgeAt(last - 1);
    OdGeVector2d const direction = directionAtEnd(polyline.getPointAt(last - 1), polyline.getPointAt(last), bulge);
    OdGeVector3d const inWorld = odDbPlaneToWorld(polyline.normal()) * OdGeVector3d(direction.x, direction.y, 0);
    return {polyline.getWorldPointAt(last), inWorld, bulge != 0};
}

std::optional<DrawnEnd> endOf(OdDbEntity const& entity, OdGePoint3d const& lastPoint)
{
    if (auto const* line = odCast<OdDbLine>(&entity))
        return endOf(*line);
    if (auto const* arc = odCast<OdDbArc>(&entity))
        return endOf(*arc, lastPoint);
    auto const* polyline = odCast<OdDbPolyline>(&entity);
    if (polyline && polyline->numVerts() > 1 && !polyline->isClosed())
        return endOf(*polyline);
    return std::nullopt;
}

} // namespace

DrawnEnd drawnEndToContinue(Editor& editor)
{
    auto const space = oa::getActiveSpace(&editor.db()).open<OdDbBlockTableRecord>();
    for (OdDbObjectIterator it = space->newIterator(false); !it.done(); it.step(false))
        if (std::optional<DrawnEnd> const end = endOf(*it.entity(), editor.lastPoint()))
            return *end;
    throw AnswerRejected(L"No line or arc to continue.");
}

void rememberEnd(Editor& editor, OdGePoint3d const& point, OdGeVector3d const& direction)
{
    editor.setLastPoint(point);
    editor.doc().setLastAngle((editor.ucsToWorld().inverse() * direction).convert2d().angle());
}

} // namespace ca
