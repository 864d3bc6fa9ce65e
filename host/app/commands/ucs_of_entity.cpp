#include "host/app/commands/ucs_of_entity.h"

#include "host/db/entities/od_db_2d_polyline.h"
#include "host/db/entities/od_db_arc.h"
#include "host/db/entities/od_db_block_reference.h"
#include "host/db/entities/od_db_circle.h"
#include "host/db/entities/od_db_ellipse.h"
#include "host/db/entities/od_db_face.h"
#include "host/db/entities/od_db_filled_quad.h"
#include "host/db/entities/od_db_line.h"
#include "host/db/entities/od_db_point.h"
#include "host/db/entities/od_db_polyline.h"
#include "host/db/entities/od_db_text.h"
#include "host/db/entities/od_db_transform.h"

namespace ca {

namespace {

using Axes = std::optional<CoordinateAxes>;
using Picked = std::optional<OdGePoint3d>;

bool isEndNearer(OdGePoint3d const& start, OdGePoint3d const& end, Picked const& picked)
{
    return picked && picked->distanceTo(end) < picked->distanceTo(start);
}

Axes axesTowards(OdGePoint3d const& origin, OdGePoint3d const& onX, OdGeVector3d const& normal)
{
    return axesAlong(origin, onX - origin, normal);
}

/// As the plane of a normal is turned by the rule for entities.
Axes axesOfNormal(OdGePoint3d const& origin, OdGeVector3d const& normal, double turn = 0)
{
    OdGeVector3d const direction(std::cos(turn), std::sin(turn), 0);
    return axesAlong(origin, odDbPlaneToWorld(normal) * direction, odDbSaneNormal(normal));
}

Axes axesOf(OdDbLine const& line, Picked const& picked)
{
    bool const fromEnd = isEndNearer(line.startPoint(), line.endPoint(), picked);
    OdGePoint3d const origin = fromEnd ? line.endPoint() : line.startPoint();
    OdGePoint3d const other = fromEnd ? line.startPoint() : line.endPoint();
    Axes const axes = axesTowards(origin, other, line.planeNormal());
    return axes ? axes : axesTowards(origin, other, OdGeVector3d::kXAxis); // drawn along its own normal
}

Axes axesOf(OdDbArc const& arc, Picked const& picked)
{
    bool const fromEnd = isEndNearer(arc.startPoint(), arc.endPoint(), picked);
    return axesTowards(arc.center(), fromEnd ? arc.endPoint() : arc.startPoint(), arc.planeNormal());
}

Axes axesOf(OdDbCircle const& circle, Picked const& picked)
{
    OdGeVector3d const normal = circle.planeNormal();
    if (!picked)
        return axesOfNormal(circle.center(), normal);
    OdGeVector3d const way = *picked - circle.center();
    Axes const axes = axesAlong(circle.center(), way - normal * way.dotProduct(normal), normal);
    return axes ? axes : axesOfNormal(circle.center(), normal);
}

Axes axesOf(OdDbEllipse const& ellipse, Picked const&)
{
    return axesAlong(ellipse.center(), ellipse.majorAxis(), ellipse.planeNormal());
}

Axes axesOf(OdDbPoint const& point, Picked const&)
{
    return axesOfNormal(point.position(), point.normal());
}

Axes axesOf(OdDbPolyline const& polyline, Picked const&)
{
    if (polyline.numVerts() < 2)
        return std::nullopt;
    return axesTowards(polyline.getWorldPointAt(0), polyline.getWorldPointAt(1), polyline.planeNormal());
}

Axes axesOf(OdDb2dPolyline const& polyline, Picked const&)
{
    std::vector<OdGePoint3d> points;
    for (OdDbPartIterator it = polyline.partIterator(); !it.done() && points.size() < 2; it.step())
        if (auto const* const vertex = odCast<OdDb2dVertex>(it.entity().get()))
            points.push_back(polyline.vertexPosition(*vertex));
    return points.size() < 2 ? std::nullopt : axesTowards(points[0], points[1], polyline.planeNormal());
}

/// Solids and traces.
Axes axesOf(OdDbFilledQuad const& quad, Picked const&)
{
    return axesTowards(quad.getPointAt(0), quad.getPointAt(1), odDbSaneNormal(quad.normal()));
}

/// The Y axis points to the side of the fourth corner, or of the third where these agree.
Axes axesOf(OdDbFace const& face, Picked const&)
{
    OdGePoint3d const origin = face.getVertexAt(0);
    OdGeVector3d const side = face.getVertexAt(1) - origin;
    for (int const corner : {3, 2}) {
        OdGeVector3d const normal = side.crossProduct(face.getVertexAt(corner) - origin);
        if (!normal.isZeroLength())
            return axesAlong(origin, side, normal);
    }
    return std::nullopt;
}

Axes axesOf(OdDbText const& text, Picked const&)
{
    return axesOfNormal(text.position(), text.normal(), text.rotation());
}

Axes axesOf(OdDbBlockReference const& reference, Picked const&)
{
    return axesOfNormal(reference.position(), reference.normal(), reference.rotation());
}

template <class T>
bool takeAs(OdDbEntity const& entity, Picked const& picked, Axes& axes)
{
    auto const* const object = odCast<T>(&entity);
    if (object)
        axes = axesOf(*object, picked);
    return object != nullptr;
}

template <class... T>
Axes axesOfFirst(OdDbEntity const& entity, Picked const& picked)
{
    Axes axes;
    static_cast<void>((takeAs<T>(entity, picked, axes) || ...));
    return axes;
}

} // namespace

Axes axesAlong(OdGePoint3d const& origin, OdGeVector3d const& direction, OdGeVector3d const& normal)
{
    OdGeVector3d const yAxis = normal.normal().crossProduct(direction.normal());
    if (direction.isZeroLength() || yAxis.isZeroLength())
        return std::nullopt;
    return CoordinateAxes{origin, direction.normal(), yAxis.normal()};
}

Axes ucsOfEntity(OdDbEntity const& entity, Picked const& picked)
{
    return axesOfFirst<OdDbLine, OdDbArc, OdDbCircle, OdDbEllipse, OdDbPoint, OdDbPolyline, OdDb2dPolyline,
                       OdDbFilledQuad, OdDbFace, OdDbText, OdDbBlockReference>(entity, picked);
}

} // namespace ca
