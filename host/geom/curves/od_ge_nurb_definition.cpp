#include "host/geom/curves/od_ge_nurb_curve3d.h"

#include <algorithm>
#include <cmath>

using Definition = OdGeNurbCurve3d::Definition;

namespace {

constexpr std::size_t kMostControlPoints = 10'000'000;

bool isFinite(OdGePoint3d const& p)
{
    return std::isfinite(p.x) && std::isfinite(p.y) && std::isfinite(p.z);
}

OdString countProblem(Definition const& definition)
{
    int const degree = definition.degree;
    std::size_t const points = definition.controlPoints.size();
    if (degree < 1 || degree > OdGeNurbCurve3d::kMostDegree)
        return odFormat(L"the degree %d is not between 1 and %d", degree, OdGeNurbCurve3d::kMostDegree);
    if (points <= static_cast<std::size_t>(degree) || points > kMostControlPoints)
        return odFormat(L"there are %ld control points of degree %d; at least %d and at most %ld are allowed",
                        static_cast<long>(points), degree, degree + 1, static_cast<long>(kMostControlPoints));
    std::size_t const knots = points + static_cast<std::size_t>(degree) + 1;
    if (definition.knots.length() != knots)
        return odFormat(L"there are %ld knots for %ld control points of degree %d; %ld are needed",
                        static_cast<long>(definition.knots.length()), static_cast<long>(points), degree,
                        static_cast<long>(knots));
    if (definition.isRational() && definition.weights.size() != points)
        return odFormat(L"there are %ld weights for %ld control points",
                        static_cast<long>(definition.weights.size()), static_cast<long>(points));
    return {};
}

OdString knotProblem(Definition const& definition)
{
    auto const& knots = definition.knots.asVector();
    auto const degree = static_cast<std::size_t>(definition.degree);
    double const from = knots[degree];
    double const to = knots[definition.controlPoints.size()];
    if (!definition.knots.isAscending())
        return L"the knots are not ascending numbers";
    if (!(from < to) || !std::isfinite(to - from))
        return L"the knots leave no interval for the parameter";
    for (std::size_t i = 0, next = 0; i < knots.size(); i = next) {
        while (next < knots.size() && knots[next] == knots[i])
            ++next;
        std::size_t const most = knots[i] > from && knots[i] < to ? degree : degree + 1;
        if (next - i > most)
            return odFormat(L"the knot %g is given %ld times; at most %ld are allowed", knots[i],
                            static_cast<long>(next - i), static_cast<long>(most));
    }
    return {};
}

OdString valueProblem(Definition const& definition)
{
    if (!std::ranges::all_of(definition.controlPoints, isFinite))
        return L"a control point has a coordinate that is no number";
    if (!std::ranges::all_of(definition.weights, [](double w) { return std::isfinite(w) && w > 0; }))
        return L"a weight is not positive";
    return {};
}

// Control points, weights and distances of knots repeat after one period.
OdString periodProblem(Definition const& definition)
{
    auto const& knots = definition.knots.asVector();
    auto const degree = static_cast<std::size_t>(definition.degree);
    std::size_t const distinct = definition.controlPoints.size() - degree;
    double const period = knots[degree + distinct] - knots[degree];
    OdGeExtents3d box;
    for (OdGePoint3d const& point : definition.controlPoints)
        box.addPoint(point);
    double const near = 1e-9 * box.minPoint().distanceTo(box.maxPoint());
    for (std::size_t i = 0; i < degree; ++i) {
        bool const sameWeight = !definition.isRational() ||
                                std::abs(definition.weights[i] / definition.weights[i + distinct] - 1) <= 1e-9;
        if (!sameWeight || definition.controlPoints[i].distanceTo(definition.controlPoints[i + distinct]) > near)
            return odFormat(L"the first %d control points of a periodic curve do not repeat as its last ones",
                            definition.degree);
    }
    for (std::size_t i = 0; i + distinct < knots.size(); ++i)
        if (std::abs(knots[i + distinct] - knots[i] - period) > 1e-9 * period)
            return L"the knot distances of a periodic curve do not repeat";
    return {};
}

} // namespace

OdString Definition::problem() const
{
    OdString problem = countProblem(*this);
    if (problem.isEmpty())
        problem = knotProblem(*this);
    if (problem.isEmpty())
        problem = valueProblem(*this);
    if (problem.isEmpty() && isPeriodic)
        problem = periodProblem(*this);
    return problem;
}
