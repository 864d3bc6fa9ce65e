#include "host/geom/curves/od_ge_nurb_basis.h"

#include <algorithm>
#include <cmath>

// Nearest points by exclusion: "squared distance minus the square of the best distance so far" is a polynomial
// over the squared weight, and where all of its Bernstein coefficients are positive nothing nearer can be found.
// What is not excluded is cut where Newton's method finds a foot, so that the parts beside it are soon excluded as
// well. Finds all feet, at cusps and corners too, and does not mind a point that is equally far from a whole
// stretch.

namespace {

using Definition = OdGeNurbCurve3d::Definition;

constexpr double kSameDistance = 2e-15; // relative: what rounding leaves of a distance
constexpr int kNewtonSteps = 12;
constexpr int kMostPieces = 20'000; // of one interval; only curves that are noise come near it

// Factors of the products of Bernstein polynomials of one degree, in rows.
std::vector<double> bernsteinProducts(std::size_t degree)
{
    auto const binomial = [](std::size_t n, std::size_t k) {
        double value = 1;
        for (std::size_t i = 1; i <= k; ++i)
            value = value * static_cast<double>(n - k + i) / static_cast<double>(i);
        return value;
    };
    std::vector<double> factors;
    for (std::size_t i = 0; i <= degree; ++i)
        for (std::size_t j = 0; j <= degree; ++j)
            factors.push_back(binomial(degree, i) * binomial(degree, j) / binomial(2 * degree, i + j));
    return factors;
}

// Looks for the point nearest to the origin, interval by interval in ascending order.
class NearestSearch
{
public:
    explicit NearestSearch(int degree) : m_products(bernsteinProducts(static_cast<std::size_t>(degree))) {}

    double best() const { return m_best; }
    double param() const { return m_param; }

    void run(Definition const& interval)
    {
        m_interval = &interval;
        OdGeBezierPiece const piece(interval, static_cast<std::size_t>(interval.degree));
        m_leastWidth = 1e-10 * (piece.to() - piece.from());
        m_piecesLeft = kMostPieces;
        search(piece);
    }

private:
    void consider(double param, OdGePoint3d const& at)
    {
        double const distance = at.asVector().length();
        bool const isNearer = distance < m_best * (1 - kSameDistance);
        if (!isNearer && !(distance <= m_best * (1 + kSameDistance) && param < m_param))
            return;
        m_best = distance;
        m_param = param;
    }

    bool isExcluded(OdGeBezierPiece const& piece) const
    {
        auto const points = piece.points();
        std::size_t const count = points.size();
        double const square = m_best * m_best * (1 - 2 * kSameDistance);
        for (std::size_t sum = 0; sum + 1 < 2 * count; ++sum) {
            double coefficient = 0;
            for (std::size_t i = sum < count ? 0 : sum - count + 1; i < count && i <= sum; ++i) {
                OdGeWeightedPoint const& a = points[i];
                OdGeWeightedPoint const& b = points[sum - i];
                coefficient += m_products[i * count + sum - i] * (a.v.dotProduct(b.v) - square * a.w * b.w);
            }
            if (coefficient < 0)
                return false;
        }
        return true;
    }

    // Parameter of a foot of the origin within a piece, as far as Newton's method leads to one.
    double foot(double from, double to) const
    {
        double param = from + (to - from) / 2;
        for (int step = 0; step < kNewtonSteps; ++step) {
            OdGeCurveValue const value = odgeNurbValue(*m_interval, param);
            OdGeVector3d const gap = value.point.asVector();
            double const speed = value.first.lengthSqrd();
            double slope = speed + gap.dotProduct(value.second);
            if (slope < 0.1 * speed)
                slope = speed;
            if (slope == 0)
                break;
            double const next = std::clamp(param - gap.dotProduct(value.first) / slope, from, to);
            if (std::abs(next - param) <= 1e-16 * std::abs(param))
                return next;
            param = next;
        }
        return param;
    }

    void search(OdGeBezierPiece piece)
    {
        consider(piece.from(), piece.startPoint());
        consider(piece.to(), piece.endPoint());
        double const width = piece.to() - piece.from();
        if (isExcluded(piece) || width <= m_leastWidth || m_piecesLeft-- <= 0)
            return;
        double cut = foot(piece.from(), piece.to());
        consider(cut, odgeNurbValue(*m_interval, cut).point);
        if (!(std::min(cut - piece.from(), piece.to() - cut) >= 0.05 * width))
            cut = piece.from() + width / 2;
        OdGeBezierPiece const rest = piece.cutOff(cut);
        search(piece);
        search(rest);
    }

    std::vector<double> m_products;
    Definition const* m_interval = nullptr;
    double m_best = std::numeric_limits<double>::max();
    double m_param = 0;
    double m_leastWidth = 0; ///< shorter pieces are not cut
    int m_piecesLeft = 0;
};

double distanceToBox(OdGePoint3d const& point, OdGeExtents3d const& box)
{
    return odgeGreater(odgeLesser(point, box.maxPoint()), box.minPoint()).distanceTo(point);
}

} // namespace

double OdGeNurbCurve3d::closestParam(OdGePoint3d const& point) const
{
    std::vector<std::size_t> const spans = odgeNurbSpans(m_definition);
    double bound = std::numeric_limits<double>::infinity();
    for (std::size_t const span : spans)
        bound = std::min(bound, evalPoint(m_definition.knots.asVector()[span]).distanceTo(point));
    NearestSearch search(degree());
    for (std::size_t const span : spans) {
        if (distanceToBox(point, odgeNurbHull(m_definition, span)) > bound * (1 + kSameDistance))
            continue;
        search.run(odgeNurbInterval(m_definition, span, point));
        bound = std::min(bound, search.best());
    }
    return search.param();
}
