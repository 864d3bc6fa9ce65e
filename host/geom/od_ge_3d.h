#pragma once

#include "host/geom/od_ge_2d.h"

/// Direction and length in space. `==` means isEqualTo under the global tolerance.
class OdGeVector3d
{
public:
    double x = 0;
    double y = 0;
    double z = 0;

    static OdGeVector3d const kIdentity;
    static OdGeVector3d const kXAxis;
    static OdGeVector3d const kYAxis;
    static OdGeVector3d const kZAxis;

    constexpr OdGeVector3d() = default;
    constexpr OdGeVector3d(double xx, double yy, double zz) : x(xx), y(yy), z(zz) {}

    constexpr double lengthSqrd() const { return x * x + y * y + z * z; }
    double length() const { return std::hypot(x, y, z); }
    constexpr double dotProduct(OdGeVector3d const& v) const { return x * v.x + y * v.y + z * v.z; }
    constexpr OdGeVector3d crossProduct(OdGeVector3d const& v) const
    {
        return {y * v.z - z * v.y, z * v.x - x * v.z, x * v.y - y * v.x};
    }
    /// Angle between the vectors in [0, pi].
    double angleTo(OdGeVector3d const& v) const { return std::atan2(crossProduct(v).length(), dotProduct(v)); }
    /// Angle from this to `v` in [0, 2 pi), counterclockwise when seen against `normal`.
    double angleTo(OdGeVector3d const& v, OdGeVector3d const& normal) const
    {
        double const angle = angleTo(v);
        return crossProduct(v).dotProduct(normal) < 0 ? odgeFoldAngle(-angle) : angle;
    }
    /// The X axis that drawing files give to the plane of this normal: a unit vector across it.
    /// Throws OdError(eDegenerateGeometry) for a zero vector.
    OdGeVector3d perpVector() const;

    bool isZeroLength(OdGeTol const& tol = OdGeContext::gTol) const { return length() <= tol.equalVector(); }
    bool isUnitLength(OdGeTol const& tol = OdGeContext::gTol) const
    {
        return std::abs(length() - 1) <= tol.equalVector();
    }
    /// Same or opposite direction; a zero vector is parallel to nothing.
    bool isParallelTo(OdGeVector3d const& v, OdGeTol const& tol = OdGeContext::gTol) const;
    bool isCodirectionalTo(OdGeVector3d const& v, OdGeTol const& tol = OdGeContext::gTol) const
    {
        return isParallelTo(v, tol) && dotProduct(v) > 0;
    }
    bool isPerpendicularTo(OdGeVector3d const& v, OdGeTol const& tol = OdGeContext::gTol) const;
    bool isEqualTo(OdGeVector3d const& v, OdGeTol const& tol = OdGeContext::gTol) const
    {
        return std::hypot(x - v.x, y - v.y, z - v.z) <= tol.equalVector();
    }
    /// Makes the length 1; a vector of zero length under the tolerance stays as it is.
    OdGeVector3d& normalize(OdGeTol const& tol = OdGeContext::gTol);
    OdGeVector3d normal(OdGeTol const& tol = OdGeContext::gTol) const
    {
        return OdGeVector3d(*this).normalize(tol);
    }

    constexpr OdGeVector2d convert2d() const { return {x, y}; }

    constexpr OdGeVector3d operator-() const { return {-x, -y, -z}; }
    constexpr OdGeVector3d operator+(OdGeVector3d const& v) const { return {x + v.x, y + v.y, z + v.z}; }
    constexpr OdGeVector3d operator-(OdGeVector3d const& v) const { return {x - v.x, y - v.y, z - v.z}; }
    constexpr OdGeVector3d operator*(double s) const { return {x * s, y * s, z * s}; }
    constexpr OdGeVector3d operator/(double s) const { return {x / s, y / s, z / s}; }
    constexpr OdGeVector3d& operator+=(OdGeVector3d const& v) { return *this = *this + v; }
    constexpr OdGeVector3d& operator-=(OdGeVector3d const& v) { return *this = *this - v; }
    constexpr OdGeVector3d& operator*=(double s) { return *this = *this * s; }
    constexpr OdGeVector3d& operator/=(double s) { return *this = *this / s; }
    friend constexpr OdGeVector3d operator*(double s, OdGeVector3d const& v) { return v * s; }
    friend bool operator==(OdGeVector3d const& a, OdGeVector3d const& b) { return a.isEqualTo(b); }
};

inline constexpr OdGeVector3d OdGeVector3d::kIdentity{};
inline constexpr OdGeVector3d OdGeVector3d::kXAxis{1, 0, 0};
inline constexpr OdGeVector3d OdGeVector3d::kYAxis{0, 1, 0};
inline constexpr OdGeVector3d OdGeVector3d::kZAxis{0, 0, 1};

inline OdGeVector3d& OdGeVector3d::normalize(OdGeTol const& tol)
{
    double const len = length();
    if (len > tol.equalVector())
        *this /= len;
    return *this;
}

inline bool OdGeVector3d::isParallelTo(OdGeVector3d const& v, OdGeTol const& tol) const
{
    if (isZeroLength(tol) || v.isZeroLength(tol))
        return false;
    return normal(tol).crossProduct(v.normal(tol)).length() <= tol.equalVector();
}

inline bool OdGeVector3d::isPerpendicularTo(OdGeVector3d const& v, OdGeTol const& tol) const
{
    if (isZeroLength(tol) || v.isZeroLength(tol))
        return false;
    return std::abs(normal(tol).dotProduct(v.normal(tol))) <= tol.equalVector();
}

/// Place in space. `==` means isEqualTo under the global tolerance: the distance counts, not each coordinate.
class OdGePoint3d
{
public:
    double x = 0;
    double y = 0;
    double z = 0;

    static OdGePoint3d const kOrigin;

    constexpr OdGePoint3d() = default;
    constexpr OdGePoint3d(double xx, double yy, double zz) : x(xx), y(yy), z(zz) {}

    /// The vector from the origin to the point.
    constexpr OdGeVector3d asVector() const { return {x, y, z}; }
    constexpr OdGePoint2d convert2d() const { return {x, y}; }
    double distanceTo(OdGePoint3d const& p) const { return std::hypot(x - p.x, y - p.y, z - p.z); }
    bool isEqualTo(OdGePoint3d const& p, OdGeTol const& tol = OdGeContext::gTol) const
    {
        return distanceTo(p) <= tol.equalPoint();
    }

    constexpr OdGePoint3d operator+(OdGeVector3d const& v) const { return {x + v.x, y + v.y, z + v.z}; }
    constexpr OdGePoint3d operator-(OdGeVector3d const& v) const { return {x - v.x, y - v.y, z - v.z}; }
    constexpr OdGeVector3d operator-(OdGePoint3d const& p) const { return {x - p.x, y - p.y, z - p.z}; }
    constexpr OdGePoint3d operator*(double s) const { return {x * s, y * s, z * s}; }
    constexpr OdGePoint3d operator/(double s) const { return {x / s, y / s, z / s}; }
    constexpr OdGePoint3d& operator+=(OdGeVector3d const& v) { return *this = *this + v; }
    constexpr OdGePoint3d& operator-=(OdGeVector3d const& v) { return *this = *this - v; }
    constexpr OdGePoint3d& operator*=(double s) { return *this = *this * s; }
    constexpr OdGePoint3d& operator/=(double s) { return *this = *this / s; }
    friend bool operator==(OdGePoint3d const& a, OdGePoint3d const& b) { return a.isEqualTo(b); }
};

inline constexpr OdGePoint3d OdGePoint3d::kOrigin{};

/// The point in the middle of two points.
constexpr OdGePoint3d odgeMidPoint(OdGePoint3d const& a, OdGePoint3d const& b)
{
    return a + (b - a) / 2;
}
/// The lesser or the greater of two points, coordinate by coordinate; a NaN in `b` is passed over.
constexpr OdGePoint3d odgeLesser(OdGePoint3d const& a, OdGePoint3d const& b)
{
    return {std::min(a.x, b.x), std::min(a.y, b.y), std::min(a.z, b.z)};
}
constexpr OdGePoint3d odgeGreater(OdGePoint3d const& a, OdGePoint3d const& b)
{
    return {std::max(a.x, b.x), std::max(a.y, b.y), std::max(a.z, b.z)};
}
/// Every coordinate of `low` is at most that of `high` plus `tol`.
constexpr bool odgeIsNotAbove(OdGePoint3d const& low, OdGePoint3d const& high, double tol)
{
    return low.x <= high.x + tol && low.y <= high.y + tol && low.z <= high.z + tol;
}
