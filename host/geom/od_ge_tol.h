#pragma once

/// Tolerance of comparisons: one value for points (a distance in drawing units), one for vectors (the length of
/// the difference of two vectors).
class OdGeTol
{
public:
    /// One value for both; implicit, so that a number can stand for a tolerance.
    constexpr OdGeTol(double both = 1e-10) : OdGeTol(both, both) {}
    constexpr OdGeTol(double point, double vector) : m_equalPoint(point), m_equalVector(vector) {}

    constexpr double equalPoint() const { return m_equalPoint; }
    constexpr double equalVector() const { return m_equalVector; }

private:
    double m_equalPoint;
    double m_equalVector;
};

/// The tolerance that applies where none is given. It is a constant: nobody can change it for others.
struct OdGeContext
{
    static constexpr OdGeTol gTol{};
};

inline constexpr double OdaPI = 3.14159265358979323846;
inline constexpr double OdaPI2 = OdaPI / 2;
inline constexpr double Oda2PI = OdaPI * 2;

/// Comparisons of plain numbers with 1e-10: exactly one of the three holds for two finite numbers.
constexpr bool OdGreater(double a, double b, double tol = 1e-10)
{
    return a - b > tol;
}
constexpr bool OdLess(double a, double b, double tol = 1e-10)
{
    return b - a > tol;
}
constexpr bool OdEqual(double a, double b, double tol = 1e-10)
{
    return a - b <= tol && b - a <= tol;
}
