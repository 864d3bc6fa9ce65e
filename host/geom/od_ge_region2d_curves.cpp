// Arcs and splines against a region.
#include "host/geom/curves/od_ge_nurb_basis.h"
#include "host/geom/od_ge_region2d.h"
#include "host/geom/od_ge_region2d_clip.h"

#include <array>
#include <optional>

namespace {

// One coordinate of an arc: middle + cosine cos t + sine sin t.
struct Wave
{
    double middle;
    double cosine;
    double sine;

    double at(double t) const { return middle + cosine * std::cos(t) + sine * std::sin(t); }

    // Where it reaches a level; the two places may agree.
    std::optional<std::array<double, 2>> paramsAt(double level) const
    {
        double const amplitude = std::hypot(cosine, sine);
        double const height = level - middle;
        if (amplitude == 0 || !(std::abs(height) <= amplitude))
            return std::nullopt;
        double const phase = std::atan2(sine, cosine);
        double const aside = std::acos(height / amplitude);
        return std::array{phase + aside, phase - aside};
    }
};

// The arc reaches a level of one coordinate where the other one lies between low and high.
bool cutsSide(OdGeEllipticArc const& arc, Wave const& wave, double level, Wave const& other, double low,
              double high)
{
    auto const params = wave.paramsAt(level);
    return params && std::ranges::any_of(*params, [&](double t) {
               double const value = other.at(t);
               return value >= low && value <= high && arc.hasParam(t, 0); // the ends are tested as points
           });
}

// A box that holds the whole ellipse.
OdGeExtents2d looseBox(OdGeEllipticArc const& arc)
{
    OdGePoint2d const center = arc.center.convert2d();
    OdGeVector2d const reach(std::abs(arc.u.x) + std::abs(arc.v.x), std::abs(arc.u.y) + std::abs(arc.v.y));
    return {center - reach, center + reach};
}

} // namespace

bool OdGeRegion2d::borderMeets(OdGeEllipticArc const& arc) const
{
    return std::ranges::any_of(m_edges, [&](Edge const& edge) {
        OdGePoint2d const center = edge.local(arc.center.convert2d());
        OdGeVector2d const u = arc.u.convert2d();
        OdGeVector2d const v = arc.v.convert2d();
        Wave const x{center.x, edge.along(u), edge.along(v)};
        Wave const y{center.y, edge.across(u), edge.across(v)};
        OdGeExtents2d const band = edge.band();
        OdGePoint2d const& low = band.minPoint();
        OdGePoint2d const& high = band.maxPoint();
        return cutsSide(arc, y, low.y, x, low.x, high.x) || cutsSide(arc, y, high.y, x, low.x, high.x) ||
               cutsSide(arc, x, low.x, y, low.y, high.y) || cutsSide(arc, x, high.x, y, low.y, high.y);
    });
}

bool OdGeRegion2d::crosses(OdGeEllipticArc const& arc) const
{
    return !looseBox(arc).isDisjoint(m_box, 0) &&
           (contains(arc.startPoint().convert2d()) || contains(arc.endPoint().convert2d()) || borderMeets(arc));
}

bool OdGeRegion2d::holds(OdGeEllipticArc const& arc) const
{
    OdGePoint2d const start = arc.startPoint().convert2d();
    if (!holds(start) || !holds(arc.endPoint().convert2d()))
        return false;
    if (m_kind == EKind::kRectangle) {
        OdGeExtents2d const box = arc.extents().convert2d();
        return contains(box.minPoint()) && contains(box.maxPoint());
    }
    // Between two places where it could leave, the arc is as far inside as its middle there.
    std::vector<double> cuts{arc.start, std::min(arc.end, arc.start + Oda2PI)};
    for (Edge const& edge : m_edges) {
        Wave const y{edge.across(arc.center.convert2d() - edge.start), edge.across(arc.u.convert2d()),
                     edge.across(arc.v.convert2d())};
        if (auto const params = y.paramsAt(0))
            for (double const t : *params)
                cuts.push_back(arc.start + odgeFoldAngle(t - arc.start));
    }
    double const end = cuts[1];
    std::ranges::sort(cuts);
    for (std::size_t i = 1; i < cuts.size() && cuts[i] <= end; ++i)
        if (!contains(arc.evalPoint((cuts[i - 1] + cuts[i]) / 2).convert2d()))
            return false;
    return true;
}

/// Cuts a curve, interval by interval, until the pieces keep clear of the border by the boxes of their control
/// points or are straight.
class OdGeRegion2d::SplineTest
{
public:
    explicit SplineTest(OdGeRegion2d const& region) : m_region(region) {}

    bool crosses(OdGeBezierPiece piece, int cutsLeft = kMostCuts) const
    {
        OdGeExtents2d const hull = piece.hull().convert2d();
        if (hull.isDisjoint(m_region.m_box, 0))
            return false;
        OdGePoint2d const start = piece.startPoint().convert2d();
        OdGePoint2d const end = piece.endPoint().convert2d();
        if (m_region.contains(start) || m_region.contains(end))
            return true;
        if (!isNearBorder(hull))
            return false;
        if (cutsLeft == 0 || isStraight(piece))
            return m_region.crosses(start, end);
        OdGeBezierPiece const rest = cut(piece);
        return crosses(piece, cutsLeft - 1) || crosses(rest, cutsLeft - 1);
    }

    bool holds(OdGeBezierPiece piece, int cutsLeft = kMostCuts) const
    {
        OdGePoint2d const start = piece.startPoint().convert2d();
        OdGePoint2d const end = piece.endPoint().convert2d();
        if (!m_region.holds(start) || !m_region.holds(end))
            return false;
        if (!isNearBorder(piece.hull().convert2d()))
            return true;
        if (cutsLeft == 0 || isStraight(piece))
            return m_region.holds(start, end);
        OdGeBezierPiece const rest = cut(piece);
        return holds(piece, cutsLeft - 1) && holds(rest, cutsLeft - 1);
    }

private:
    static constexpr int kMostCuts = 50; // one behind the other: no double can be halved more often

    bool isNearBorder(OdGeExtents2d const& hull) const
    {
        OdGeVector2d const rim(OdGeContext::gTol.equalPoint(), OdGeContext::gTol.equalPoint());
        return m_region.borderMeets({hull.minPoint() - rim, hull.maxPoint() + rim});
    }

    // No control point is farther from the segment between the ends than the tolerance, or than doubles can tell.
    static bool isStraight(OdGeBezierPiece const& piece)
    {
        constexpr double kRounding = 1e-15;
        OdGePoint2d const start = piece.startPoint().convert2d();
        OdGeVector2d const chord = piece.endPoint().convert2d() - start;
        double const square = chord.lengthSqrd();
        double const size = std::max({std::abs(start.x), std::abs(start.y), chord.length()});
        double const allowed = std::max(OdGeContext::gTol.equalPoint(), kRounding * size);
        return std::ranges::all_of(piece.points(), [&](OdGeWeightedPoint const& control) {
            OdGeVector2d const way = control.point().convert2d() - start;
            double const part = square > 0 ? std::clamp(way.dotProduct(chord) / square, 0.0, 1.0) : 0;
            return (way - chord * part).length() <= allowed;
        });
    }

    /// Leaves the first half in `piece`.
    static OdGeBezierPiece cut(OdGeBezierPiece& piece)
    {
        return piece.cutOff(piece.from() + (piece.to() - piece.from()) / 2);
    }

    OdGeRegion2d const& m_region;
};

bool OdGeRegion2d::crosses(OdGeNurbCurve3d const& curve) const
{
    OdGeNurbCurve3d::Definition const& definition = curve.definition();
    return std::ranges::any_of(odgeNurbSpans(definition), [&](std::size_t span) {
        return !odgeNurbHull(definition, span).convert2d().isDisjoint(m_box, 0) &&
               SplineTest(*this).crosses(OdGeBezierPiece(definition, span));
    });
}

bool OdGeRegion2d::holds(OdGeNurbCurve3d const& curve) const
{
    OdGeNurbCurve3d::Definition const& definition = curve.definition();
    return isFilled() && std::ranges::all_of(odgeNurbSpans(definition), [&](std::size_t span) {
               return SplineTest(*this).holds(OdGeBezierPiece(definition, span));
           });
}
