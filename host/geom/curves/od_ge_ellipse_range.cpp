#include "host/geom/curves/od_ge_ellipse_range.h"

#include <limits>
#include <utility>
#include <vector>

// The nearest points of an ellipse are found in the quadrant of the point and, for points within the evolute, in
// the quadrant below it as well, where the distance has a second local minimum. In each the derivative of the
// distance has one change of sign, between bounds that are known.

namespace {

constexpr double kEpsilon = std::numeric_limits<double>::epsilon();

/// Derivative of half the squared distance from a point of the first quadrant to the ellipse, by the parameter.
class Slope
{
public:
    Slope(double a, double b, double x, double y) : m_ax(a * x), m_by(b * y), m_d((a - b) * (a + b)) {}

    double at(double t) const { return m_ax * std::sin(t) - m_by * std::cos(t) - m_d * std::sin(t) * std::cos(t); }
    double rateAt(double t) const { return m_ax * std::cos(t) + m_by * std::sin(t) - m_d * std::cos(2 * t); }
    bool isWithinEvolute() const { return std::cbrt(m_ax * m_ax) + std::cbrt(m_by * m_by) < std::cbrt(m_d * m_d); }
    /// Between the second minimum and the maximum that follows it, for a point within the evolute.
    double pastSecondMinimum() const { return -std::atan2(std::cbrt(m_by), std::cbrt(m_ax)); }

    /// Where the slope turns positive between two parameters.
    double rootBetween(double low, double high) const
    {
        constexpr double kFine = 1e-17;
        constexpr int kMostSteps = 200;
        double t = low + (high - low) / 2;
        for (int i = 0; i < kMostSteps && high - low > kFine; ++i) {
            double const slope = at(t);
            (slope < 0 ? low : high) = t;
            double next = t - slope / rateAt(t);
            if (!(next > low && next < high))
                next = low + (high - low) / 2;
            if (std::abs(next - t) <= kEpsilon / 2 * std::abs(next))
                return next;
            t = next;
        }
        return low;
    }

private:
    double m_ax;
    double m_by;
    double m_d;
};

struct Candidate
{
    double param = 0;
    double distance = 0;
};

/// The local minima of the distance on the whole ellipse, as parameters of any turn.
std::vector<double> localMinima(double a, double b, OdGePoint2d const& point)
{
    bool const isUpright = a < b;
    double x = std::abs(point.x);
    double y = std::abs(point.y);
    if (isUpright) {
        std::swap(a, b);
        std::swap(x, y);
    }
    // Sizes about 1, so that products neither overflow nor vanish.
    Slope const slope(1, b / a, x / a, y / a);
    std::vector<double> found{slope.rootBetween(0, OdaPI2)};
    if (slope.isWithinEvolute())
        found.push_back(slope.rootBetween(-OdaPI2, slope.pastSecondMinimum()));
    for (double& t : found) {
        if (isUpright)
            t = OdaPI2 - t;
        if (point.x < 0)
            t = OdaPI - t;
        if (point.y < 0)
            t = -t;
    }
    return found;
}

} // namespace

double OdGeEllipseRange::closestParam(OdGePoint2d const& point, double noise) const
{
    double const size = std::max(a, b);
    if (!(size > 0) || (a == b && point.x == 0 && point.y == 0))
        return range.lower;
    auto const at = [&](double t) {
        return Candidate{t, std::hypot(point.x - a * std::cos(t), point.y - b * std::sin(t))};
    };

    Candidate best = at(range.lower);
    std::vector<Candidate> minima;
    auto const add = [&](double t) {
        minima.push_back(at(t));
        if (minima.back().distance < best.distance)
            best = minima.back();
    };
    for (double const t : localMinima(a, b, point)) {
        double const speed = std::hypot(a * std::sin(t), b * std::cos(t));
        double const unsure = noise / speed + 4 * kEpsilon * (1 + std::abs(range.lower));
        double const past = odgeFoldAngle(t - range.lower);
        if (past <= range.length() + unsure)
            add(std::min(range.lower + past, range.upper));
        if (past >= Oda2PI - unsure)
            add(range.lower);
    }
    if (Candidate const end = at(range.upper); end.distance < best.distance)
        best = end;

    double const equal = noise + 4 * kEpsilon * size;
    double least = best.param;
    for (Candidate const& minimum : minima) {
        if (minimum.distance <= best.distance + equal)
            least = std::min(least, minimum.param);
    }
    return least;
}
