#pragma once

#include "host/geom/od_ge_angle.h"
#include "host/geom/od_ge_tol.h"

#include <algorithm>
#include <cmath>

/// Direction and length in a plane. `==` means isEqualTo under the global tolerance.
class OdGeVector2d
{
public:
    double x = 0;
    double y = 0;

    static OdGeVector2d const kIdentity;
    static OdGeVector2d const kXAxis;
    static OdGeVector2d const kYAxis;

    constexpr OdGeVector2d() = default;
    constexpr OdGeVector2d(double xx, double yy) : x(xx), y(yy) {}

    constexpr double lengthSqrd() const { return x * x + y * y; }
    double length() const { return std::hypot(x, y); }
    constexpr double dotProduct(OdGeVector2d const& v) const { return x * v.x + y * v.y; }
    /// The part of the cross product out of the plane: positive when `v` lies counterclockwise of this.
    constexpr double crossProduct(OdGeVector2d const& v) const { return x * v.y - y * v.x; }
    /// Angle from the X axis in [0, 2 pi); 0 for a zero vector.
    double angle() const { return odgeFoldAngle(std::atan2(y, x)); }
    /// Turned counterclockwise by a right angle.
    constexpr OdGeVector2d perpVector() const { return {-y, x}; }

    bool isZeroLength(OdGeTol const& tol = OdGeContext::gTol) const { return length() <= tol.equalVector(); }
    bool isEqualTo(OdGeVector2d const& v, OdGeTol const& tol = OdGeContext::gTol) const
    {
        return std::hypot(x - v.x, y - v.y) <= tol.equalVector();
    }
    /// Makes the length 1; a vector of zero length under the tolerance stays as it is.
    OdGeVector2d& normalize(OdGeTol const& tol = OdGeContext::gTol);
    OdGeVector2d normal(OdGeTol const& tol = OdGeContext::gTol) const
    {
        return OdGeVector2d(*this).normalize(tol);
    }

    constexpr OdGeVector2d operator-() const { return {-x, -y}; }
    constexpr OdGeVector2d operator+(OdGeVector2d const& v) const { return {x + v.x, y + v.y}; }
    constexpr OdGeVector2d operator-(OdGeVector2d const& v) const { return {x - v.x, y - v.y}; }
    constexpr OdGeVector2d operator*(double s) const { return {x * s, y * s}; }
    constexpr OdGeVector2d operator/(double s) const { return {x / s, y / s}; }
    constexpr OdGeVector2d& operator+=(OdGeVector2d const& v) { return *this = *this + v; }
    constexpr OdGeVector2d& operator-=(OdGeVector2d const& v) { return *this = *this - v; }
    constexpr OdGeVector2d& operator*=(double s) { return *this = *this * s; }
    constexpr OdGeVector2d& operator/=(double s) { return *this = *this / s; }
    friend constexpr OdGeVector2d operator*(double s, OdGeVector2d const& v) { return v * s; }
    friend bool operator==(OdGeVector2d const& a, OdGeVector2d const& b) { return a.isEqualTo(b); }
};

inline constexpr OdGeVector2d OdGeVector2d::kIdentity{};
inline constexpr OdGeVector2d OdGeVector2d::kXAxis{1, 0};
inline constexpr OdGeVector2d OdGeVector2d::kYAxis{0, 1};

inline OdGeVector2d& OdGeVector2d::normalize(OdGeTol const& tol)
{
    double const len = length();
    if (len > tol.equalVector())
        *this /= len;
    return *this;
}

/// Place in a plane. `==` means isEqualTo under the global tolerance: the distance counts, not each coordinate.
class OdGePoint2d
{
public:
    double x = 0;
    double y = 0;

    static OdGePoint2d const kOrigin;

    constexpr OdGePoint2d() = default;
    constexpr OdGePoint2d(double xx, double yy) : x(xx), y(yy) {}

    /// The vector from the origin to the point.
    constexpr OdGeVector2d asVector() const { return {x, y}; }
    double distanceTo(OdGePoint2d const& p) const { return std::hypot(x - p.x, y - p.y); }
    bool isEqualTo(OdGePoint2d const& p, OdGeTol const& tol = OdGeContext::gTol) const
    {
        return distanceTo(p) <= tol.equalPoint();
    }

    constexpr OdGePoint2d operator+(OdGeVector2d const& v) const { return {x + v.x, y + v.y}; }
    constexpr OdGePoint2d operator-(OdGeVector2d const& v) const { return {x - v.x, y - v.y}; }
    constexpr OdGeVector2d operator-(OdGePoint2d const& p) const { return {x - p.x, y - p.y}; }
    constexpr OdGePoint2d operator*(double s) const { return {x * s, y * s}; }
    constexpr OdGePoint2d operator/(double s) const { return {x / s, y / s}; }
    constexpr OdGePoint2d& operator+=(OdGeVector2d const& v) { return *this = *this + v; }
    constexpr OdGePoint2d& operator-=(OdGeVector2d const& v) { return *this = *this - v; }
    constexpr OdGePoint2d& operator*=(double s) { return *this = *this * s; }
    constexpr OdGePoint2d& operator/=(double s) { return *this = *this / s; }
    friend bool operator==(OdGePoint2d const& a, OdGePoint2d const& b) { return a.isEqualTo(b); }
};

inline constexpr OdGePoint2d OdGePoint2d::kOrigin{};

/// The point in the middle of two points.
constexpr OdGePoint2d odgeMidPoint(OdGePoint2d const& a, OdGePoint2d const& b)
{
    return a + (b - a) / 2;
}
/// The lesser or the greater of two points, coordinate by coordinate; a NaN in `b` is passed over.
constexpr OdGePoint2d odgeLesser(OdGePoint2d const& a, OdGePoint2d const& b)
{
    return {std::min(a.x, b.x), std::min(a.y, b.y)};
}
constexpr OdGePoint2d odgeGreater(OdGePoint2d const& a, OdGePoint2d const& b)
{
    return {std::max(a.x, b.x), std::max(a.y, b.y)};
}
/// Every coordinate of `low` is at most that of `high` plus `tol`.
constexpr bool odgeIsNotAbove(OdGePoint2d const& low, OdGePoint2d const& high, double tol)
{
    return low.x <= high.x + tol && low.y <= high.y + tol;
}
