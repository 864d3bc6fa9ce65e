// The outline of an area between four corners: one polygon where these lie in a plane and the border does not
// cross itself, else two triangles. A flat border that crosses itself bounds the two triangles that meet at the
// crossing.
#include "host/db/entities/od_db_extruded_outline.h"
#include "host/db/entities/od_db_quad.h"

namespace {

using Ring = std::vector<OdGePoint3d>;

/// The corners without those that repeat the one before.
Ring ringOf(auto const& corners, auto const& order)
{
    Ring ring;
    for (int const index : order) {
        OdGePoint3d const& corner = corners[static_cast<std::size_t>(index)];
        if (ring.empty() || ring.back().distanceTo(corner) > 0)
            ring.push_back(corner);
    }
    while (ring.size() > 1 && !(ring.back().distanceTo(ring.front()) > 0))
        ring.pop_back();
    return ring;
}

double sizeOf(Ring const& ring)
{
    double size = 0;
    for (OdGePoint3d const& corner : ring)
        size = std::max(size, corner.distanceTo(ring.front()));
    return size;
}

/// Across the greatest triangle of the corners; zero where all lie on one line.
OdGeVector3d directionAcross(Ring const& ring)
{
    constexpr double kStraight = 1e-12;
    OdGeVector3d greatest;
    for (std::size_t left = 0; left < ring.size(); ++left) {
        OdGePoint3d const& a = ring[(left + 1) % ring.size()];
        OdGePoint3d const& b = ring[(left + 2) % ring.size()];
        OdGePoint3d const& c = ring[(left + 3) % ring.size()];
        OdGeVector3d const across = (b - a).crossProduct(c - a);
        if (across.lengthSqrd() > greatest.lengthSqrd())
            greatest = across;
    }
    double const length = greatest.length();
    double const size = sizeOf(ring);
    return length > kStraight * size * size ? greatest / length : OdGeVector3d();
}

bool isFlat(Ring const& ring, OdGeVector3d const& normal)
{
    constexpr double kFlat = 1e-10;
    double const allowed = kFlat * sizeOf(ring);
    return std::ranges::all_of(ring, [&](OdGePoint3d const& corner) {
        return std::abs((corner - ring.front()).dotProduct(normal)) <= allowed;
    });
}

/// Where the edges a-b and c-d of a plane cross between their ends.
std::optional<OdGePoint3d> crossing(OdGePoint3d const& a, OdGePoint3d const& b, OdGePoint3d const& c,
                                    OdGePoint3d const& d, OdGeVector3d const& normal)
{
    auto const side = [&](OdGePoint3d const& from, OdGePoint3d const& to, OdGePoint3d const& point) {
        return (to - from).crossProduct(point - from).dotProduct(normal);
    };
    double const sideOfA = side(c, d, a);
    double const sideOfB = side(c, d, b);
    double const sideOfC = side(a, b, c);
    double const sideOfD = side(a, b, d);
    bool const isCrossed = ((sideOfA < 0 && sideOfB > 0) || (sideOfA > 0 && sideOfB < 0)) &&
                           ((sideOfC < 0 && sideOfD > 0) || (sideOfC > 0 && sideOfD < 0));
    if (!isCrossed)
        return std::nullopt;
    return a + (b - a) * (sideOfA / (sideOfA - sideOfB));
}

void giveTriangles(OdDbOutlineSink& sink, std::array<OdGePoint3d, 3> const& first,
                   std::array<OdGePoint3d, 3> const& second)
{
    sink.polygon(first);
    sink.polygon(second);
}

void giveStraight(Ring const& ring, OdDbOutlineSink& sink)
{
    if (ring.size() == 1)
        sink.point(ring.front());
    for (std::size_t i = 1; i < ring.size(); ++i)
        sink.segment(ring[i - 1], ring[i]);
}

void giveArea(Ring const& ring, OdDbOutlineSink& sink)
{
    OdGeVector3d const normal = ring.size() < 3 ? OdGeVector3d() : directionAcross(ring);
    if (!(normal.lengthSqrd() > 0))
        return giveStraight(ring, sink);
    if (ring.size() == 3)
        return sink.polygon(ring);
    if (!isFlat(ring, normal))
        giveTriangles(sink, {ring[0], ring[1], ring[2]}, {ring[0], ring[2], ring[3]});
    else if (auto const x = crossing(ring[0], ring[1], ring[2], ring[3], normal))
        giveTriangles(sink, {*x, ring[1], ring[2]}, {*x, ring[3], ring[0]});
    else if (auto const y = crossing(ring[1], ring[2], ring[3], ring[0], normal))
        giveTriangles(sink, {*y, ring[2], ring[3]}, {*y, ring[0], ring[1]});
    else
        sink.polygon(ring);
}

} // namespace

void OdDbQuad::outline(OdDbOutlineSink& sink) const
{
    Ring const ring = ringOf(worldCorners(), border());
    odDbOutlineExtruded(sink, extrusion(), [&](OdDbOutlineSink& receiver) { giveArea(ring, receiver); });
}
