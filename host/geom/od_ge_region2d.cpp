#include "host/geom/od_ge_region2d.h"

#include "host/geom/od_ge_region2d_clip.h"

// Each edge of a region is looked at as a narrow rectangle in its own coordinates, wider than the edge by the
// tolerance on all sides; tests are exact from there on. What touches an edge then cuts the rectangle, so that no
// case of tangency needs care of its own.

namespace {

OdGeExtents2d grown(OdGeExtents2d const& box)
{
    if (!box.isValidExtents())
        return box;
    OdGeVector2d const rim(OdGeContext::gTol.equalPoint(), OdGeContext::gTol.equalPoint());
    return {box.minPoint() - rim, box.maxPoint() + rim};
}

// Even-odd rule: a ray to the right cuts the border an odd number of times.
bool runsAround(std::span<OdGePoint2d const> polygon, OdGePoint2d const& point)
{
    bool odd = false;
    OdGePoint2d a = polygon.back();
    for (OdGePoint2d const& b : polygon) {
        if ((a.y > point.y) != (b.y > point.y)) {
            double const x = a.x + (b.x - a.x) * (point.y - a.y) / (b.y - a.y);
            odd ^= point.x < x;
        }
        a = b;
    }
    return odd;
}

} // namespace

OdGeExtents2d OdGeRegion2d::Edge::band() const
{
    return grown({{0, 0}, {length, 0}});
}

OdGeRegion2d::OdGeRegion2d(EKind kind, std::vector<OdGePoint2d> corners)
    : m_kind(kind), m_corners(std::move(corners))
{
    std::size_t const count = m_corners.size();
    OdGeExtents2d box;
    for (OdGePoint2d const& corner : m_corners)
        box.addPoint(corner);
    m_box = grown(box);
    std::size_t const edges = isFilled() || count < 2 ? count : count - 1;
    for (std::size_t i = 0; i < edges; ++i) {
        OdGePoint2d const& start = m_corners[i];
        OdGeVector2d const way = m_corners[(i + 1) % count] - start;
        double const length = way.length();
        m_edges.push_back({start, length > 0 ? way / length : OdGeVector2d::kXAxis, length});
    }
}

OdGeRegion2d OdGeRegion2d::rectangle(OdGeExtents2d const& box)
{
    if (!box.isValidExtents())
        return {};
    OdGePoint2d const& low = box.minPoint();
    OdGePoint2d const& high = box.maxPoint();
    return {EKind::kRectangle, {low, {high.x, low.y}, high, {low.x, high.y}}};
}

OdGeRegion2d OdGeRegion2d::polygon(std::vector<OdGePoint2d> corners)
{
    return {EKind::kPolygon, std::move(corners)};
}

OdGeRegion2d OdGeRegion2d::fence(std::vector<OdGePoint2d> points)
{
    return {EKind::kFence, std::move(points)};
}

bool OdGeRegion2d::contains(OdGePoint2d const& point) const
{
    if (!m_box.contains(point, 0))
        return false;
    if (m_kind == EKind::kRectangle)
        return true;
    return (isFilled() && runsAround(m_corners, point)) || borderMeets(point, point);
}

bool OdGeRegion2d::borderMeets(OdGePoint2d const& a, OdGePoint2d const& b) const
{
    return std::ranges::any_of(
        m_edges, [&](Edge const& edge) { return odgeSegmentMeets(edge.band(), edge.local(a), edge.local(b)); });
}

bool OdGeRegion2d::borderMeets(OdGeExtents2d const& area) const
{
    return std::ranges::any_of(m_edges,
                               [&](Edge const& edge) { return odgeSegmentMeets(area, edge.start, edge.end()); });
}

bool OdGeRegion2d::crosses(OdGePoint2d const& a, OdGePoint2d const& b) const
{
    return odgeSegmentMeets(m_box, a, b) &&
           (m_kind == EKind::kRectangle || contains(a) || contains(b) || borderMeets(a, b));
}

bool OdGeRegion2d::holds(OdGePoint2d const& a, OdGePoint2d const& b) const
{
    if (!holds(a) || !holds(b) || m_kind == EKind::kRectangle)
        return holds(a) && holds(b);
    // Between two places where it could leave, the segment is as far inside as its middle there.
    std::vector<double> cuts{0, 1};
    for (Edge const& edge : m_edges) {
        double const from = edge.across(a - edge.start);
        double const to = edge.across(b - edge.start);
        if ((from < 0) != (to < 0))
            cuts.push_back(from / (from - to));
    }
    std::ranges::sort(cuts);
    for (std::size_t i = 1; i < cuts.size(); ++i)
        if (!contains(a + (b - a) * ((cuts[i - 1] + cuts[i]) / 2)))
            return false;
    return true;
}

bool OdGeRegion2d::crossesEndless(OdGePoint2d const& base, OdGeVector2d const& direction, bool isRay) const
{
    double first = isRay ? 0 : -std::numeric_limits<double>::infinity();
    double last = std::numeric_limits<double>::infinity();
    if (direction.x == 0 && direction.y == 0)
        return contains(base);
    if (!m_box.isValidExtents() ||
        !odgeClip(base.x, direction.x, m_box.minPoint().x, m_box.maxPoint().x, first, last) ||
        !odgeClip(base.y, direction.y, m_box.minPoint().y, m_box.maxPoint().y, first, last))
        return false;
    return m_kind == EKind::kRectangle || crosses(base + direction * first, base + direction * last);
}

bool OdGeRegion2d::crosses(std::span<OdGePoint2d const> polygon) const
{
    if (polygon.empty() || m_corners.empty())
        return false;
    OdGePoint2d a = polygon.back();
    for (OdGePoint2d const& b : polygon) {
        if (crosses(a, b))
            return true;
        a = b;
    }
    // No edge meets the region: it lies wholly within the polygon or wholly beside it.
    return runsAround(polygon, m_corners.front());
}

bool OdGeRegion2d::holds(std::span<OdGePoint2d const> polygon) const
{
    if (polygon.empty())
        return false;
    OdGePoint2d a = polygon.back();
    for (OdGePoint2d const& b : polygon) {
        if (!holds(a, b))
            return false;
        a = b;
    }
    return true;
}
