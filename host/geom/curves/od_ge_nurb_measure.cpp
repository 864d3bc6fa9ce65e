#include "host/geom/curves/od_ge_nurb_basis.h"
#include "host/geom/curves/od_ge_quadrature.h"

#include <algorithm>
#include <cmath>

// Lengths, areas and the shape of the whole: line, plane, box.

namespace {

using Definition = OdGeNurbCurve3d::Definition;

// Integral over part of a curve, interval by interval: the integrand is smooth in between. `function` is given the
// interval as a curve of its own, its origin and the parameter: far from the world's origin differences of
// coordinates would be too rough for it.
template <class Function>
double integralOverSpans(Definition const& definition, double from, double to, Function const& function)
{
    auto const& knots = definition.knots.asVector();
    double sum = 0;
    std::size_t const last = odgeNurbSpan(definition, to);
    for (std::size_t span = odgeNurbSpan(definition, from); span <= last; ++span) {
        double const low = std::max(from, knots[span]);
        double const high = std::min(to, knots[span + 1]);
        if (!(low < high))
            continue;
        OdGePoint3d const& origin = definition.controlPoints[span];
        Definition const interval = odgeNurbInterval(definition, span, origin);
        sum += odgeIntegrate([&](double t) { return function(odgeNurbValue(interval, t), origin); }, low, high);
    }
    return sum;
}

// What remains of a distance when coordinates of this size are rounded, and the tolerance.
double slackOf(Definition const& definition, OdGeTol const& tol)
{
    double most = 0;
    for (OdGePoint3d const& p : definition.controlPoints)
        most = std::max({most, std::abs(p.x), std::abs(p.y), std::abs(p.z)});
    return tol.equalPoint() + 1e-15 * most;
}

template <class Distance>
OdGePoint3d const& farthest(std::vector<OdGePoint3d> const& points, Distance const& distance)
{
    return *std::ranges::max_element(points, {}, distance);
}

// Unit vector from the first control point to the one farthest from it; zero when all agree.
OdGeVector3d chordDirection(Definition const& definition)
{
    OdGePoint3d const& base = definition.controlPoints.front();
    OdGeVector3d const chord =
        farthest(definition.controlPoints, [&](OdGePoint3d const& p) { return p.distanceTo(base); }) - base;
    double const length = chord.length();
    return length > 0 ? chord / length : OdGeVector3d{};
}

// From the line through the first control point to the control point farthest from that line.
OdGeVector3d greatestWidth(Definition const& definition, OdGeVector3d const& direction)
{
    OdGePoint3d const& base = definition.controlPoints.front();
    auto const across = [&](OdGePoint3d const& p) {
        OdGeVector3d const v = p - base;
        return v - direction * v.dotProduct(direction);
    };
    return across(farthest(definition.controlPoints, [&](OdGePoint3d const& p) { return across(p).length(); }));
}

bool isWithin(OdGeExtents3d const& inner, OdGeExtents3d const& outer, double slack)
{
    return odgeIsNotAbove(outer.minPoint(), inner.minPoint(), slack) &&
           odgeIsNotAbove(inner.maxPoint(), outer.maxPoint(), slack);
}

// Halves a piece as long as its control points stand out of the box of points found so far.
void extendBy(OdGeBezierPiece piece, OdGeExtents3d& box, int depth)
{
    OdGeExtents3d const hull = piece.hull();
    double const slack = 1e-14 * hull.minPoint().distanceTo(hull.maxPoint());
    if (depth == 0 || isWithin(hull, box, slack))
        return;
    OdGeBezierPiece const rest = piece.cutOff(piece.from() + (piece.to() - piece.from()) / 2);
    box.addPoint(rest.startPoint());
    extendBy(piece, box, depth - 1);
    extendBy(rest, box, depth - 1);
}

} // namespace

double OdGeNurbCurve3d::length(double from, double to) const
{
    if (from > to)
        return -length(to, from);
    OdGeInterval const interval = getInterval();
    return integralOverSpans(m_definition, interval.clamped(from), interval.clamped(to),
                             [](OdGeCurveValue const& value, OdGePoint3d const&) { return value.first.length(); });
}

double OdGeNurbCurve3d::sweptArea(OdGePoint3d const& pole, OdGeVector3d const& normal) const
{
    OdGeInterval const interval = getInterval();
    return integralOverSpans(m_definition, interval.lower, interval.upper,
                             [&](OdGeCurveValue const& value, OdGePoint3d const& origin) {
                                 OdGeVector3d const arm = value.point.asVector() + (origin - pole);
                                 return arm.crossProduct(value.first).dotProduct(normal);
                             });
}

bool OdGeNurbCurve3d::isLinear(OdGeTol const& tol) const
{
    return greatestWidth(m_definition, chordDirection(m_definition)).length() <= slackOf(m_definition, tol);
}

std::optional<OdGePlane> OdGeNurbCurve3d::plane(OdGeTol const& tol) const
{
    double const slack = slackOf(m_definition, tol);
    OdGeVector3d const direction = chordDirection(m_definition);
    OdGeVector3d const width = greatestWidth(m_definition, direction);
    if (width.length() <= slack)
        return std::nullopt;
    OdGeVector3d normal = direction.crossProduct(width / width.length());
    OdGePoint3d const& base = m_definition.controlPoints.front();
    bool const isFlat = std::ranges::all_of(m_definition.controlPoints, [&](OdGePoint3d const& p) {
        return std::abs((p - base).dotProduct(normal)) <= slack;
    });
    if (!isFlat)
        return std::nullopt;
    if (isClosed(tol) && signedArea(normal) < 0)
        normal = -normal;
    return OdGePlane(base, normal);
}

OdGeExtents3d OdGeNurbCurve3d::extents() const
{
    constexpr int kDepth = 40;
    std::vector<std::size_t> const spans = odgeNurbSpans(m_definition);
    OdGeExtents3d box;
    for (std::size_t const span : spans)
        box.addPoint(evalPoint(m_definition.knots.asVector()[span]));
    box.addPoint(evalPoint(getInterval().upper));
    for (std::size_t const span : spans) {
        if (!isWithin(odgeNurbHull(m_definition, span), box, 0))
            extendBy(OdGeBezierPiece(m_definition, span), box, kDepth);
    }
    return box;
}
