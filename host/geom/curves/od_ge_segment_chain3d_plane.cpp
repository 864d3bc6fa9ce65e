#include "host/geom/curves/od_ge_bulge_segment.h"
#include "host/geom/curves/od_ge_segment_chain3d.h"

// How a chain lies in space: along a line, in a plane, or neither.

namespace {

using Points = std::vector<OdGePoint3d>;

/// The point that is farthest by a measure, with its distance.
template <class Measure>
std::pair<OdGePoint3d, double> farthest(Points const& points, Measure const& measure)
{
    std::pair<OdGePoint3d, double> found{points.front(), 0};
    for (OdGePoint3d const& point : points) {
        double const distance = measure(point);
        if (distance > found.second)
            found = {point, distance};
    }
    return found;
}

/// Directions in which the points spread: one for points on a line, two perpendicular ones otherwise; none where
/// all points agree.
std::vector<OdGeVector3d> spread(Points const& points, OdGeTol const& tol)
{
    if (points.empty())
        return {};
    OdGePoint3d const& origin = points.front();
    auto const [end, reach] = farthest(points, [&](OdGePoint3d const& p) { return p.distanceTo(origin); });
    if (!(reach > tol.equalPoint()))
        return {};
    OdGeVector3d const along = (end - origin) / reach;
    auto const across = [&](OdGePoint3d const& p) {
        return (p - origin) - along * (p - origin).dotProduct(along);
    };
    auto const [side, width] = farthest(points, [&](OdGePoint3d const& p) { return across(p).length(); });
    if (!(width > tol.equalPoint()))
        return {along};
    return {along, across(side) / width};
}

} // namespace

bool OdGeSegmentChain3d::isLinear(OdGeTol const& tol) const
{
    for (int i = 0; i < numSegments() && !m_bulges.empty(); ++i) {
        double const height = bulgeAt(i) / 2 * (segmentEnd(i) - vertexAt(i)).length();
        if (std::abs(bulgeAt(i)) > OdGeBulgeSegment::kStraight && std::abs(height) > tol.equalPoint())
            return false;
    }
    return spread(m_points, tol).size() < 2;
}

std::optional<OdGePlane> OdGeSegmentChain3d::plane(OdGeTol const& tol) const
{
    if (isLinear(tol))
        return std::nullopt;
    if (m_hasOwnPlane)
        return OdGePlane(m_points.front(), m_normal);
    std::vector<OdGeVector3d> const axes = spread(m_points, tol);
    OdGePlane const plane(m_points.front(), axes[0], axes[1]);
    for (OdGePoint3d const& point : m_points) {
        if (!plane.isOn(point, tol))
            return std::nullopt;
    }
    return sweptArea(plane.origin(), plane.normal()) < 0 ? OdGePlane(plane.origin(), axes[0], -axes[1]) : plane;
}
