#include "host/geom/curves/od_ge_nurb_curve3d.h"

#include "host/geom/curves/od_ge_nurb_basis.h"
#include "host/root/od_error.h"

#include <algorithm>
#include <cmath>

namespace {

using Definition = OdGeNurbCurve3d::Definition;

// A periodic curve run through twice, the second time over its seam.
Definition unrolled(Definition const& definition)
{
    auto const degree = static_cast<std::size_t>(definition.degree);
    std::size_t const distinct = definition.controlPoints.size() - degree;
    Definition twice = definition;
    twice.isPeriodic = false;
    std::vector<double> knots = definition.knots.asVector();
    double const period = knots[degree + distinct] - knots[degree];
    for (std::size_t i = 0; i < distinct; ++i) {
        twice.controlPoints.push_back(twice.controlPoints[degree + i]);
        if (definition.isRational())
            twice.weights.push_back(twice.weights[degree + i]);
        knots.push_back(std::max(knots.back(), knots[knots.size() - distinct] + period));
    }
    twice.knots = OdGeKnotVector(std::move(knots), definition.knots.tolerance());
    return twice;
}

// A parameter next to a knot means that knot: both together would bound a span of no length.
double snapped(OdGeKnotVector const& knots, double param)
{
    auto const& all = knots.asVector();
    double const near = std::min(knots.tolerance(), 1e-9 * (all.back() - all.front()));
    auto const knot = std::ranges::lower_bound(all, param - near);
    return knot != all.end() && *knot <= param + near ? *knot : param;
}

// The part between two parameters of the curve, clamped.
Definition part(Definition const& definition, double from, double to)
{
    auto const order = static_cast<std::size_t>(definition.degree) + 1;
    auto const& old = definition.knots.asVector();
    if (double const start = snapped(definition.knots, from), end = snapped(definition.knots, to); start < end) {
        from = start;
        to = end;
    }
    std::vector<double> knots(order, from);
    std::copy(std::ranges::upper_bound(old, from), std::ranges::lower_bound(old, to), std::back_inserter(knots));
    knots.insert(knots.end(), order, to);
    return odgeNurbRefined(definition, knots);
}

} // namespace

OdGeNurbCurve3d::OdGeNurbCurve3d()
{
    m_definition.knots = OdGeKnotVector({0, 0, 1, 1});
    m_definition.controlPoints = {{0, 0, 0}, {1, 0, 0}};
}

OdGeNurbCurve3d::OdGeNurbCurve3d(Definition definition) : m_definition(std::move(definition))
{
    if (OdString const problem = m_definition.problem(); !problem.isEmpty())
        throw OdError(eInvalidInput, problem);
}

std::unique_ptr<OdGeCurve3d> OdGeNurbCurve3d::copy() const
{
    return std::make_unique<OdGeNurbCurve3d>(*this);
}

OdGeInterval OdGeNurbCurve3d::getInterval() const
{
    auto const& knots = m_definition.knots.asVector();
    return {knots[static_cast<std::size_t>(degree())], knots[m_definition.controlPoints.size()]};
}

OdGePoint3d OdGeNurbCurve3d::evalPoint(double param) const
{
    double const inside = getInterval().clamped(param);
    std::array<double, kMostDegree> arguments;
    arguments.fill(inside);
    return odgeNurbBlossom(m_definition, odgeNurbSpan(m_definition, inside),
                           {arguments.data(), static_cast<std::size_t>(degree())})
        .point();
}

OdGeVector3d OdGeNurbCurve3d::derivative(double param, int order) const
{
    OdGeCurveValue const value = odgeNurbValue(m_definition, getInterval().clamped(param));
    return order == 1 ? value.first : value.second;
}

void OdGeNurbCurve3d::transformBy(OdGeMatrix3d const& transformation)
{
    std::vector<OdGePoint3d> images = m_definition.controlPoints;
    for (OdGePoint3d& point : images) {
        point = transformation * point;
        if (!std::isfinite(point.asVector().lengthSqrd()))
            throw OdError(eDegenerateGeometry, L"the image of a control point is out of the range of numbers");
    }
    m_definition.controlPoints = std::move(images);
}

void OdGeNurbCurve3d::reverseParam()
{
    OdGeInterval const interval = getInterval();
    std::vector<double> knots = m_definition.knots.asVector();
    std::ranges::reverse(knots);
    for (double& knot : knots)
        knot = knot == interval.lower ? interval.upper : interval.lower + (interval.upper - knot);
    m_definition.knots = OdGeKnotVector(std::move(knots), m_definition.knots.tolerance());
    std::ranges::reverse(m_definition.controlPoints);
    std::ranges::reverse(m_definition.weights);
}

std::unique_ptr<OdGeCurve3d> OdGeNurbCurve3d::trimmed(double from, double to) const
{
    OdGeInterval const interval = getInterval();
    double const last = isClosed() ? interval.upper + interval.length() : interval.upper;
    from = std::max(from, interval.lower);
    to = std::min(to, last);
    if (!(from < to))
        throw OdError(eInvalidInput, odFormat(L"the curve has no part between %g and %g", from, to));

    if (from >= interval.upper)
        return trimmed(from - interval.length(), to - interval.length());
    if (to <= interval.upper)
        return std::make_unique<OdGeNurbCurve3d>(part(m_definition, from, to));
    if (isPeriodic())
        return std::make_unique<OdGeNurbCurve3d>(part(unrolled(m_definition), from, to));
    return std::make_unique<OdGeNurbCurve3d>(odgeNurbJoined(
        part(m_definition, from, interval.upper), part(m_definition, interval.lower, to - interval.length())));
}

OdGeNurbCurve3d OdGeNurbCurve3d::withKnot(double param) const
{
    OdGeInterval const interval = getInterval();
    if (!(param > interval.lower && param < interval.upper))
        throw OdError(eInvalidInput, odFormat(L"a knot at %g is not within the curve", param));
    // With one more knot the distances of a periodic curve's knots would no longer repeat.
    Definition const& old = isPeriodic() ? odgeNurbClamped(m_definition) : m_definition;
    std::vector<double> knots = old.knots.asVector();
    if (std::ranges::count(knots, param) >= degree())
        throw OdError(eInvalidInput, odFormat(L"the knot %g is already there %d times", param, degree()));
    knots.insert(std::ranges::upper_bound(knots, param), param);
    return OdGeNurbCurve3d(odgeNurbRefined(old, knots));
}

std::vector<double> OdGeNurbCurve3d::breakParams() const
{
    OdGeInterval const interval = getInterval();
    auto const& knots = m_definition.knots.asVector();
    double const same = std::min(m_definition.knots.tolerance(), 1e-9 * interval.length());
    std::vector<double> params;
    for (std::size_t i = 0, next = 0; i < knots.size(); i = next) {
        while (next < knots.size() && knots[next] - knots[i] <= same)
            ++next;
        bool const isInside = knots[i] > interval.lower + same && knots[next - 1] < interval.upper - same;
        if (isInside && next - i >= static_cast<std::size_t>(degree()))
            params.push_back(knots[i]);
    }
    return params;
}
