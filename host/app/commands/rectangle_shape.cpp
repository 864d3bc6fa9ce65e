#include "host/app/commands/rectangle_shape.h"

#include "host/geom/od_ge_bulge.h"

#include <array>

namespace ca {

namespace {

/// Cuts that touch share a vertex, which has the bulge of what leaves it.
void addVertex(std::vector<FlatVertex>& vertices, FlatVertex const& vertex)
{
    if (!vertices.empty() && vertices.back().point.isEqualTo(vertex.point))
        vertices.back() = vertex;
    else
        vertices.push_back(vertex);
}

} // namespace

double RectangleCorners::lostArea() const
{
    return isRound ? (4 - OdaPI) * before * before : 2 * before * behind;
}

std::vector<FlatVertex> rectangleVertices(OdGePoint2d const& first, OdGeVector2d const& length,
                                          OdGeVector2d const& width, RectangleCorners const& corners)
{
    std::array<OdGePoint2d, 4> const points = {first, first + length, first + length + width, first + width};
    std::vector<FlatVertex> vertices;
    if (!corners.areCut() || !corners.fit(length.length(), width.length())) {
        vertices.assign({{points[0]}, {points[1]}, {points[2]}, {points[3]}});
        return vertices;
    }
    double const quarter = std::copysign(odgeBulgeFromSweep(OdaPI2), length.crossProduct(width));
    for (std::size_t i = 0; i < points.size(); ++i) {
        OdGeVector2d const arriving = (points[i] - points[(i + 3) % 4]).normal();
        OdGeVector2d const leaving = (points[(i + 1) % 4] - points[i]).normal();
        addVertex(vertices, {points[i] - arriving * corners.before, corners.isRound ? quarter : 0});
        addVertex(vertices, {points[i] + leaving * corners.behind});
    }
    if (vertices.back().point.isEqualTo(vertices.front().point))
        vertices.pop_back();
    return vertices;
}

double rectangleSide(double area, double side, RectangleCorners const& corners)
{
    double const withCuts = (area + corners.lostArea()) / side;
    return corners.fit(side, withCuts) ? withCuts : area / side;
}

} // namespace ca
