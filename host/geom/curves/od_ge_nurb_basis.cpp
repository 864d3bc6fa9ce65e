#include "host/geom/curves/od_ge_nurb_basis.h"

// Everything follows from the polar form of an interval (blossom): de Boor's scheme with an argument of its own in
// each step. Points of the curve, control points for other knots and Bezier points differ in the arguments only.

using Definition = OdGeNurbCurve3d::Definition;

namespace {

using Points = std::array<OdGeWeightedPoint, OdGeNurbCurve3d::kMostDegree + 1>;

void loadPoints(Definition const& definition, std::size_t span, Points& points)
{
    auto const degree = static_cast<std::size_t>(definition.degree);
    for (std::size_t i = 0; i <= degree; ++i)
        points[i] = odgeWeightedPoint(definition, span - degree + i);
}

// Step `step` of de Boor's scheme, in place; afterwards points[step..degree] hold the values.
void blend(Definition const& definition, std::size_t span, std::size_t step, double argument, Points& points)
{
    auto const degree = static_cast<std::size_t>(definition.degree);
    double const* const knots = definition.knots.asVector().data();
    for (std::size_t i = degree; i >= step; --i) {
        std::size_t const left = span - degree + i;
        double const low = knots[left];
        double const share = (argument - low) / (knots[left + degree + 1 - step] - low);
        points[i] = points[i - 1] * (1 - share) + points[i] * share;
    }
}

} // namespace

OdGeWeightedPoint odgeWeightedPoint(Definition const& definition, std::size_t index)
{
    OdGeVector3d const v = definition.controlPoints[index].asVector();
    if (!definition.isRational())
        return {v, 1};
    return {v * definition.weights[index], definition.weights[index]};
}

OdGeCurveValue odgeProjected(OdGeWeightedPoint const& value, OdGeWeightedPoint const& first,
                             OdGeWeightedPoint const& second)
{
    OdGeVector3d const point = value.v / value.w;
    OdGeVector3d const d1 = (first.v - point * first.w) / value.w;
    OdGeVector3d const d2 = (second.v - d1 * (2 * first.w) - point * second.w) / value.w;
    return {OdGePoint3d::kOrigin + point, d1, d2};
}

std::size_t odgeNurbSpan(Definition const& definition, double param)
{
    auto const& knots = definition.knots.asVector();
    auto const first = knots.begin() + definition.degree;
    auto const last = knots.end() - definition.degree - 1;
    // The last interval ends with the curve, every other one before its last knot.
    auto const next = param >= *last ? std::lower_bound(first, last, *last) : std::upper_bound(first, last, param);
    if (next == first)
        return static_cast<std::size_t>(std::upper_bound(first, last, *first) - knots.begin()) - 1;
    return static_cast<std::size_t>(next - knots.begin()) - 1;
}

std::vector<std::size_t> odgeNurbSpans(Definition const& definition)
{
    auto const& knots = definition.knots.asVector();
    std::vector<std::size_t> spans;
    for (auto i = static_cast<std::size_t>(definition.degree); i < definition.controlPoints.size(); ++i)
        if (knots[i] < knots[i + 1])
            spans.push_back(i);
    return spans;
}

OdGeCurveValue odgeNurbValue(Definition const& definition, double param)
{
    auto const degree = static_cast<std::size_t>(definition.degree);
    auto const p = static_cast<double>(definition.degree);
    double const* const knots = definition.knots.asVector().data();
    std::size_t const span = odgeNurbSpan(definition, param);
    Points points;
    loadPoints(definition, span, points);
    std::size_t step = 1;
    for (; step + 2 <= degree; ++step)
        blend(definition, span, step, param, points);

    double const width = knots[span + 1] - knots[span];
    OdGeWeightedPoint second;
    if (degree > 1) {
        auto const before = (points[degree - 1] - points[degree - 2]) * (1 / (knots[span + 1] - knots[span - 1]));
        auto const after = (points[degree] - points[degree - 1]) * (1 / (knots[span + 2] - knots[span]));
        second = (after - before) * (p * (p - 1) / width);
        blend(definition, span, step++, param, points);
    }
    OdGeWeightedPoint const first = (points[degree] - points[degree - 1]) * (p / width);
    blend(definition, span, step, param, points);
    return odgeProjected(points[degree], first, second);
}

OdGeWeightedPoint odgeNurbBlossom(Definition const& definition, std::size_t span,
                                  std::span<double const> arguments)
{
    Points points;
    loadPoints(definition, span, points);
    // From the greatest argument down: control points that stay come out bit for bit.
    for (std::size_t step = 1; step <= arguments.size(); ++step)
        blend(definition, span, step, arguments[arguments.size() - step], points);
    return points[arguments.size()];
}

Definition odgeNurbRefined(Definition const& definition, std::vector<double> const& knots)
{
    auto const degree = static_cast<std::size_t>(definition.degree);
    Definition refined;
    refined.degree = definition.degree;
    refined.knots = OdGeKnotVector(knots, definition.knots.tolerance());
    for (std::size_t i = 0; i + degree + 1 < knots.size(); ++i) {
        std::size_t begin = i;
        while (knots[begin] == knots[begin + 1])
            ++begin;
        std::size_t const span = odgeNurbSpan(definition, knots[begin]);
        auto const point = odgeNurbBlossom(definition, span, {knots.data() + i + 1, degree});
        refined.controlPoints.push_back(point.point());
        if (definition.isRational())
            refined.weights.push_back(point.w);
    }
    return refined;
}

Definition odgeNurbClamped(Definition const& definition)
{
    auto const& old = definition.knots.asVector();
    auto const order = static_cast<std::size_t>(definition.degree) + 1;
    double const from = old[order - 1];
    double const to = old[definition.controlPoints.size()];
    std::vector<double> knots(order, from);
    std::ranges::copy_if(old, std::back_inserter(knots), [&](double knot) { return knot > from && knot < to; });
    knots.insert(knots.end(), order, to);
    return odgeNurbRefined(definition, knots);
}

Definition odgeNurbJoined(Definition first, Definition const& second)
{
    auto const order = static_cast<std::size_t>(first.degree) + 1;
    std::vector<double> knots = first.knots.asVector();
    double const shift = knots.back() - second.knots.startParam();
    knots.pop_back();
    for (std::size_t i = order; i < second.knots.length(); ++i)
        knots.push_back(second.knots.asVector()[i] + shift);
    double const factor = first.isRational() ? first.weights.back() / second.weights.front() : 1;
    for (std::size_t i = 1; i < second.controlPoints.size(); ++i) {
        first.controlPoints.push_back(second.controlPoints[i]);
        if (first.isRational())
            first.weights.push_back(second.weights[i] * factor);
    }
    first.knots = OdGeKnotVector(std::move(knots), first.knots.tolerance());
    return first;
}

Definition odgeNurbInterval(Definition const& definition, std::size_t span, OdGePoint3d const& origin)
{
    auto const degree = static_cast<std::size_t>(definition.degree);
    std::size_t const first = span - degree;
    auto const& knots = definition.knots.asVector();
    Definition interval;
    interval.degree = definition.degree;
    interval.knots =
        OdGeKnotVector({knots.data() + first, knots.data() + span + degree + 2}, definition.knots.tolerance());
    for (std::size_t i = first; i <= span; ++i) {
        interval.controlPoints.push_back(OdGePoint3d::kOrigin + (definition.controlPoints[i] - origin));
        if (definition.isRational())
            interval.weights.push_back(definition.weights[i]);
    }
    return interval;
}

OdGeExtents3d odgeNurbHull(Definition const& definition, std::size_t span)
{
    OdGeExtents3d hull;
    for (std::size_t i = span - static_cast<std::size_t>(definition.degree); i <= span; ++i)
        hull.addPoint(definition.controlPoints[i]);
    return hull;
}

OdGeBezierPiece::OdGeBezierPiece(Definition const& definition, std::size_t span)
    : m_degree(definition.degree),
      m_from(definition.knots.asVector()[span]),
      m_to(definition.knots.asVector()[span + 1])
{
    auto const degree = static_cast<std::size_t>(m_degree);
    std::array<double, OdGeNurbCurve3d::kMostDegree> arguments;
    arguments.fill(m_from);
    for (std::size_t i = 0; i <= degree; ++i) {
        m_points[i] = odgeNurbBlossom(definition, span, {arguments.data(), degree});
        if (i < degree)
            arguments[degree - 1 - i] = m_to;
    }
}

OdGeExtents3d OdGeBezierPiece::hull() const
{
    OdGeExtents3d box;
    for (OdGeWeightedPoint const& point : points())
        box.addPoint(point.point());
    return box;
}

OdGeBezierPiece OdGeBezierPiece::cutOff(double param)
{
    OdGeBezierPiece rest = *this;
    double const share = (param - m_from) / (m_to - m_from);
    auto const degree = static_cast<std::size_t>(m_degree);
    // rest.m_points runs through de Casteljau's scheme; the last point of each step belongs to the part before.
    for (std::size_t step = 1; step <= degree; ++step) {
        for (std::size_t i = 0; i + step <= degree; ++i)
            rest.m_points[i] = rest.m_points[i] * (1 - share) + rest.m_points[i + 1] * share;
        m_points[step] = rest.m_points[0];
    }
    m_to = param;
    rest.m_from = param;
    return rest;
}
