#pragma once

#include "host/geom/od_ge_tol.h"
#include "host/root/od_string.h"

#include <vector>

/// Knots of a B-spline in ascending order, with a tolerance of their own below which two count as one.
class OdGeKnotVector
{
public:
    static constexpr double kDefaultTolerance = 1e-9;

    OdGeKnotVector() = default;
    explicit OdGeKnotVector(std::vector<double> knots, double tolerance = kDefaultTolerance);

    std::size_t length() const { return m_knots.size(); }
    bool isEmpty() const { return m_knots.empty(); }
    /// Throws OdError(eInvalidIndex).
    double operator[](std::size_t index) const;
    double startParam() const { return m_knots.empty() ? 0 : m_knots.front(); }
    double endParam() const { return m_knots.empty() ? 0 : m_knots.back(); }
    double tolerance() const { return m_tolerance; }
    void append(double knot) { m_knots.push_back(knot); }
    /// How many knots agree with this value.
    int multiplicityOf(double knot) const;
    /// No knot is less than the one before, and all are numbers.
    bool isAscending() const;
    std::vector<double> const& asVector() const { return m_knots; }
    friend bool operator==(OdGeKnotVector const& a, OdGeKnotVector const& b) { return a.m_knots == b.m_knots; }

private:
    std::vector<double> m_knots;
    double m_tolerance = kDefaultTolerance;
};
