#include "host/geom/curves/od_ge_knot_vector.h"

#include "host/root/od_error.h"

#include <algorithm>
#include <cmath>

OdGeKnotVector::OdGeKnotVector(std::vector<double> knots, double tolerance)
    : m_knots(std::move(knots)), m_tolerance(tolerance)
{
}

double OdGeKnotVector::operator[](std::size_t index) const
{
    if (index >= m_knots.size())
        throw OdError(eInvalidIndex);
    return m_knots[index];
}

int OdGeKnotVector::multiplicityOf(double knot) const
{
    return static_cast<int>(
        std::ranges::count_if(m_knots, [&](double other) { return std::abs(other - knot) <= m_tolerance; }));
}

bool OdGeKnotVector::isAscending() const
{
    return std::ranges::all_of(m_knots, [](double knot) { return std::isfinite(knot); }) &&
           std::ranges::is_sorted(m_knots);
}
