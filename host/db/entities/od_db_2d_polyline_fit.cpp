// Curves through the vertices of a 2D polyline, and splines that have them as their frame.
#include "host/db/entities/od_db_2d_polyline.h"
#include "host/db/entities/od_db_spline_points.h"
#include "host/geom/od_ge_bulge.h"

namespace {

/// Where two arcs meet that lead smoothly from one place and direction to another, neither longer than need be.
OdGePoint2d jointOf(OdGePoint2d const& start, OdGeVector2d const& startDir, OdGePoint2d const& end,
                    OdGeVector2d const& endDir)
{
    constexpr double kParallel = 1e-9;
    OdGeVector2d const chord = end - start;
    double const along = chord.dotProduct(startDir + endDir);
    double const turn = 2 * (1 - startDir.dotProduct(endDir));
    double const direct = 4 * chord.dotProduct(endDir);
    double reach = 0;
    if (turn > kParallel)
        reach = (std::sqrt(along * along + turn * chord.lengthSqrd()) - along) / turn;
    else if (std::abs(direct) > kParallel * chord.length())
        reach = chord.lengthSqrd() / direct;
    OdGeVector2d const middle = (start.asVector() + startDir * reach + end.asVector() - endDir * reach) / 2;
    return {middle.x, middle.y};
}

OdGeVector2d directionOf(double angle)
{
    return {std::cos(angle), std::sin(angle)};
}

/// Direction at `at` of the circle through three points; straight on where they make none.
OdGeVector2d tangentAt(OdGePoint2d const& before, OdGePoint2d const& at, OdGePoint2d const& after)
{
    OdGeVector2d const in = at - before;
    OdGeVector2d const out = after - at;
    if (in.isZeroLength() || out.isZeroLength())
        return (in.isZeroLength() ? out : in).normal();
    OdGeVector2d const sum = in / in.lengthSqrd() + out / out.lengthSqrd();
    return sum.isZeroLength() ? in.normal().perpVector() : sum.normal();
}

/// Direction at the end of the circle that ends at `end` and goes through `at` in a direction.
OdGeVector2d tangentAtEnd(OdGePoint2d const& at, OdGeVector2d const& direction, OdGePoint2d const& end)
{
    OdGeVector2d const chord = (end - at).normal();
    return chord * (2 * chord.dotProduct(direction)) - direction;
}

std::vector<OdGeVector2d> tangentsOf(std::vector<OdDb2dVertexPtr> const& vertices, bool isClosed)
{
    std::size_t const count = vertices.size();
    auto const point = [&](std::size_t i) { return vertices[i % count]->position().convert2d(); };
    std::vector<OdGeVector2d> tangents(count);
    for (std::size_t i = 0; i < count; ++i)
        if (isClosed || (i > 0 && i + 1 < count))
            tangents[i] = tangentAt(point(i + count - 1), point(i), point(i + 1));
    bool const isOneSegment = count == 2;
    auto const use = [&](std::size_t i) {
        if (vertices[i]->isTangentUsed())
            tangents[i] = directionOf(vertices[i]->tangent());
    };
    for (std::size_t i = 0; i < count; ++i)
        use(i);
    if (isClosed)
        return tangents;
    tangents.front() =
        isOneSegment ? (point(1) - point(0)).normal() : -tangentAtEnd(point(1), -tangents[1], point(0));
    tangents.back() =
        isOneSegment ? tangents.front() : tangentAtEnd(point(count - 2), tangents[count - 2], point(count - 1));
    use(0);
    use(count - 1);
    return tangents;
}

} // namespace

std::vector<OdDb2dVertexPtr> OdDb2dPolyline::frame() const
{
    std::vector<OdDb2dVertexPtr> vertices;
    bool const isSpline = hasFlag(kSplineFitFlag);
    for (auto it = vertexIterator(); !it.done(); it.step()) {
        OdDb::Vertex2dType const type = static_cast<OdDb2dVertex const&>(it.peek()).vertexType();
        bool const isMade = type == OdDb::k2dCurveFitVertex || type == OdDb::k2dSplineFitVertex;
        if (isMade || (isSpline && type != OdDb::k2dSplineCtlVertex))
            continue;
        vertices.emplace_back(it.peek().clone());
        vertices.back()->forgetFitting();
    }
    if (!vertices.empty())
        return vertices;
    for (auto it = vertexIterator(); !it.done(); it.step()) { // a damaged polyline whose frame is lost
        vertices.emplace_back(it.peek().clone());
        vertices.back()->forgetFitting();
    }
    return vertices;
}

void OdDb2dPolyline::replaceVertices(std::vector<OdDb2dVertexPtr> const& vertices, OdDb::Poly2dType type)
{
    replaceAllVertices(vertices);
    setPolyType(type);
}

OdResult OdDb2dPolyline::straighten()
{
    assertWriteEnabled();
    replaceVertices(frame(), OdDb::k2dSimplePoly);
    return eOk;
}

OdResult OdDb2dPolyline::curveFit()
{
    std::vector<OdDb2dVertexPtr> const given = frame();
    if (given.size() < 2)
        return eDegenerateGeometry;
    assertWriteEnabled();
    std::vector<OdGeVector2d> const tangents = tangentsOf(given, isClosed());
    std::vector<OdDb2dVertexPtr> fitted;
    for (std::size_t i = 0; i < given.size(); ++i) {
        fitted.push_back(given[i]);
        if (i + 1 == given.size() && !isClosed())
            break;
        std::size_t const next = (i + 1) % given.size();
        OdGePoint2d const start = given[i]->position().convert2d();
        OdGePoint2d const end = given[next]->position().convert2d();
        if ((end - start).isZeroLength())
            continue;
        OdGePoint2d const joint = jointOf(start, tangents[i], end, tangents[next]);
        double const startWidth = given[i]->startWidthOr(defaultStartWidth());
        double const endWidth = given[i]->endWidthOr(defaultEndWidth());
        double const middle = (startWidth + endWidth) / 2;
        given[i]->setBulge(odgeBulgeFromTangent(start, tangents[i], joint).value_or(0));
        given[i]->setStartWidth(startWidth);
        given[i]->setEndWidth(middle);
        double const backwards = odgeBulgeFromTangent(end, -tangents[next], joint).value_or(0);
        OdDb2dVertexPtr const made(
            new OdDb2dVertex({joint.x, joint.y, elevation()}, -backwards, middle, endWidth));
        made->setVertexType(OdDb::k2dCurveFitVertex);
        made->setPropertiesFrom(*this);
        fitted.push_back(made);
    }
    replaceVertices(fitted, OdDb::k2dFitCurvePoly);
    return eOk;
}

OdResult OdDb2dPolyline::splineFit(OdDb::Poly2dType type, int segments)
{
    bool const isQuadratic = type == OdDb::k2dQuadSplinePoly;
    if ((!isQuadratic && type != OdDb::k2dCubicSplinePoly) || segments < 1)
        return eInvalidInput;
    std::vector<OdDb2dVertexPtr> vertices = frame();
    std::vector<OdGePoint3d> points;
    for (OdDb2dVertexPtr const& vertex : vertices)
        points.push_back(vertex->position());
    std::vector<OdGePoint3d> const made = odDbSplinePoints(points, isQuadratic ? 2 : 3, isClosed(), segments);
    if (made.empty())
        return eDegenerateGeometry;
    assertWriteEnabled();
    for (OdDb2dVertexPtr const& vertex : vertices)
        vertex->setVertexType(OdDb::k2dSplineCtlVertex);
    for (OdGePoint3d const& point : made) {
        OdDb2dVertexPtr const vertex(new OdDb2dVertex(point, 0, defaultStartWidth(), defaultEndWidth()));
        vertex->setVertexType(OdDb::k2dSplineFitVertex);
        vertex->setPropertiesFrom(*this);
        vertices.push_back(vertex);
    }
    replaceVertices(vertices, type);
    return eOk;
}
