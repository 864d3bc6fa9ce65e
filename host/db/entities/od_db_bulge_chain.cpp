#include "host/db/entities/od_db_bulge_chain.h"

#include "host/db/entities/od_db_arc.h"
#include "host/db/entities/od_db_line.h"
#include "host/db/entities/od_db_transform.h"
#include "host/geom/od_ge_bulge.h"

std::size_t OdDbBulgeChain::numSegments() const
{
    return vertices.size() < 2 ? 0 : isClosed ? vertices.size() : vertices.size() - 1;
}

OdDbBulgeChain::Vertex const& OdDbBulgeChain::endOf(std::size_t segment) const
{
    return vertices[segment + 1 == vertices.size() ? 0 : segment + 1];
}

std::optional<OdGeArcData2d> OdDbBulgeChain::arcOf(std::size_t segment) const
{
    Vertex const& from = vertices[segment];
    auto const arc = odgeArcFromBulge(from.point, endOf(segment).point, from.bulge);
    bool const isUsable =
        arc && std::isfinite(arc->radius) && std::isfinite(arc->center.x) && std::isfinite(arc->center.y);
    return isUsable ? arc : std::nullopt;
}

bool OdDbBulgeChain::hasBulgesOrWidths() const
{
    return std::any_of(vertices.begin(), vertices.end(), [](Vertex const& vertex) {
        return vertex.bulge != 0 || vertex.startWidth > 0 || vertex.endWidth > 0;
    });
}

std::vector<OdDbEntityPtr> OdDbBulgeChain::explode(double thickness) const
{
    OdGeMatrix3d const toWorld = odDbPlaneToWorld(normal);
    OdGeVector3d const unit = odDbUnitNormal(normal);
    auto const world = [&](OdGePoint2d const& at) { return toWorld * OdGePoint3d(at.x, at.y, elevation); };
    std::vector<OdDbEntityPtr> pieces;
    for (std::size_t i = 0; i < numSegments(); ++i) {
        if (auto const data = arcOf(i)) {
            double const start = data->isClockwise ? data->endAngle : data->startAngle;
            double const end = data->isClockwise ? data->startAngle : data->endAngle;
            OdDbArcPtr const arc(new OdDbArc(world(data->center), data->radius, start, end, unit));
            arc->setThickness(thickness);
            pieces.emplace_back(arc);
        } else {
            OdDbLinePtr const line(new OdDbLine(world(vertices[i].point), world(endOf(i).point)));
            line->setNormal(unit);
            line->setThickness(thickness);
            pieces.emplace_back(line);
        }
    }
    return pieces;
}
