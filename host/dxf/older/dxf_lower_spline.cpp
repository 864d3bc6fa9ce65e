#include "host/dxf/older/dxf_lower_spline.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace dxf {

namespace {

constexpr int kHighestDegree = 25;
constexpr int kStepsOfSpan = 8;
constexpr std::size_t kMostPoints = 8000; // spans of curves with very many controls are short anyway

/// A control point in homogeneous coordinates.
struct Weighted
{
    OdGeVector3d vector;
    double weight;

    Weighted operator*(double factor) const { return {vector * factor, weight * factor}; }
    Weighted operator+(Weighted const& other) const { return {vector + other.vector, weight + other.weight}; }
};

bool isCurve(FileSpline const& spline)
{
    std::size_t const controls = spline.controls.size();
    if (spline.degree < 1 || spline.degree > kHighestDegree || controls <= static_cast<std::size_t>(spline.degree))
        return false;
    return spline.knots.size() == controls + static_cast<std::size_t>(spline.degree) + 1 &&
           (spline.weights.empty() || spline.weights.size() == controls) &&
           std::is_sorted(spline.knots.begin(), spline.knots.end());
}

/// The curve at a parameter of the span between knots `span` and `span + 1` (de Boor).
OdGePoint3d pointAt(FileSpline const& spline, std::size_t span, double parameter)
{
    auto const degree = static_cast<std::size_t>(spline.degree);
    std::array<Weighted, kHighestDegree + 1> points;
    for (std::size_t j = 0; j <= degree; ++j) {
        std::size_t const i = span - degree + j;
        double const weight = spline.weights.empty() ? 1 : spline.weights[i];
        points[j] = {spline.controls[i].asVector() * weight, weight};
    }
    for (std::size_t level = 1; level <= degree; ++level) {
        for (std::size_t j = degree; j >= level; --j) {
            std::size_t const i = span - degree + j;
            double const from = spline.knots[i];
            double const length = spline.knots[i + degree - level + 1] - from;
            double const part = length > 0 ? (parameter - from) / length : 0;
            points[j] = points[j - 1] * (1 - part) + points[j] * part;
        }
    }
    OdGeVector3d const vector = points[degree].vector / points[degree].weight;
    return {vector.x, vector.y, vector.z};
}

} // namespace

std::vector<OdGePoint3d> splinePoints(FileSpline const& spline)
{
    if (!isCurve(spline))
        return {};
    auto const degree = static_cast<std::size_t>(spline.degree);
    std::size_t const end = spline.controls.size();
    auto const fitting = std::max<std::size_t>(1, kMostPoints / (end - degree));
    std::size_t const steps = degree == 1 ? 1 : std::min<std::size_t>(kStepsOfSpan, fitting);
    std::vector<OdGePoint3d> points;
    std::size_t last = degree;
    for (std::size_t span = degree; span < end; ++span) {
        double const from = spline.knots[span];
        double const length = spline.knots[span + 1] - from;
        if (!(length > 0))
            continue;
        last = span;
        for (std::size_t i = 0; i < steps; ++i)
            points.push_back(
                pointAt(spline, span, from + length * static_cast<double>(i) / static_cast<double>(steps)));
    }
    if (points.empty())
        return {};
    points.push_back(pointAt(spline, last, spline.knots[last + 1]));
    bool const isFinite = std::all_of(points.begin(), points.end(), [](OdGePoint3d const& point) {
        return std::isfinite(point.x) && std::isfinite(point.y) && std::isfinite(point.z);
    });
    return isFinite ? points : std::vector<OdGePoint3d>();
}

} // namespace dxf
