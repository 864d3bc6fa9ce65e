#pragma once

#include "host/geom/curves/od_ge_nurb_curve3d.h"
#include "host/geom/od_ge_elliptic_arc.h"

#include <span>
#include <vector>

/// A region of the plane against which selection holds the geometry of entities, seen along Z: a rectangle
/// parallel to the axes, a polygon, or a fence, which is a line of segments. All tests are exact, up to the
/// tolerance of points. Regions are closed: what touches the border crosses it, and what lies on the border is
/// inside. Rectangles and polygons are filled; nothing is inside of a fence. A region without points holds and
/// crosses nothing.
class OdGeRegion2d
{
public:
    OdGeRegion2d() = default;
    static OdGeRegion2d rectangle(OdGeExtents2d const& box);
    /// Convex or not, closed from the last corner to the first. Where the border crosses itself, what it runs
    /// around an even number of times is outside.
    static OdGeRegion2d polygon(std::vector<OdGePoint2d> corners);
    static OdGeRegion2d fence(std::vector<OdGePoint2d> points);

    /// What lies outside of this box, which is larger than the region by the tolerance, cannot cross it.
    OdGeExtents2d const& box() const { return m_box; }
    bool isFilled() const { return m_kind != EKind::kFence; }

    /// The point lies in the region or on its border; in other words, a point there crosses it.
    bool contains(OdGePoint2d const& point) const;

    /// @name The piece and the region have a common point
    /// @{
    bool crosses(OdGePoint2d const& a, OdGePoint2d const& b) const;
    bool crosses(OdGeEllipticArc const& arc) const;
    bool crosses(OdGeNurbCurve3d const& curve) const;
    /// A filled polygon, convex or not, such as the frame of a text. A region wholly within it crosses it.
    bool crosses(std::span<OdGePoint2d const> polygon) const;
    /// A line without end from the base on, and the other way too unless it is a ray. A direction of no length
    /// makes a point. It is never inside.
    bool crossesEndless(OdGePoint2d const& base, OdGeVector2d const& direction, bool isRay) const;
    /// @}

    /// @name The whole piece lies in the region
    /// @{
    bool holds(OdGePoint2d const& point) const { return isFilled() && contains(point); }
    bool holds(OdGePoint2d const& a, OdGePoint2d const& b) const;
    bool holds(OdGeEllipticArc const& arc) const;
    bool holds(OdGeNurbCurve3d const& curve) const;
    bool holds(std::span<OdGePoint2d const> polygon) const;
    /// @}

private:
    enum class EKind
    {
        kRectangle,
        kPolygon,
        kFence
    };
    /// A piece of the border, with a coordinate system of its own: along it from its start, and across it.
    struct Edge
    {
        OdGePoint2d start;
        OdGeVector2d direction; ///< a unit vector, also where the edge has no length
        double length = 0;

        double along(OdGeVector2d const& v) const { return direction.dotProduct(v); }
        double across(OdGeVector2d const& v) const { return direction.crossProduct(v); }
        OdGePoint2d local(OdGePoint2d const& p) const { return {along(p - start), across(p - start)}; }
        OdGePoint2d end() const { return start + direction * length; }
        /// The edge in its own coordinates, as wide as the tolerance.
        OdGeExtents2d band() const;
    };
    class SplineTest;

    OdGeRegion2d(EKind kind, std::vector<OdGePoint2d> corners);
    bool borderMeets(OdGePoint2d const& a, OdGePoint2d const& b) const;
    bool borderMeets(OdGeEllipticArc const& arc) const;
    bool borderMeets(OdGeExtents2d const& area) const;

    EKind m_kind = EKind::kPolygon;
    std::vector<OdGePoint2d> m_corners;
    std::vector<Edge> m_edges;
    OdGeExtents2d m_box;
};
