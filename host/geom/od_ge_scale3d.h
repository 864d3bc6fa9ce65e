#pragma once

#include "host/geom/od_ge_tol.h"

#include <cmath>

/// Factors along the three axes, as a block reference has them; 1 by default. Negative factors mirror.
class OdGeScale3d
{
public:
    double sx = 1;
    double sy = 1;
    double sz = 1;

    static OdGeScale3d const kIdentity;

    constexpr OdGeScale3d() = default;
    constexpr explicit OdGeScale3d(double factor) : OdGeScale3d(factor, factor, factor) {}
    constexpr OdGeScale3d(double x, double y, double z) : sx(x), sy(y), sz(z) {}

    bool isEqualTo(OdGeScale3d const& other, OdGeTol const& tol = OdGeContext::gTol) const
    {
        return std::hypot(sx - other.sx, sy - other.sy, sz - other.sz) <= tol.equalVector();
    }
    /// Applies the factors of `other` after these.
    constexpr OdGeScale3d operator*(OdGeScale3d const& other) const
    {
        return {sx * other.sx, sy * other.sy, sz * other.sz};
    }
    friend bool operator==(OdGeScale3d const& a, OdGeScale3d const& b) { return a.isEqualTo(b); }
};

inline constexpr OdGeScale3d OdGeScale3d::kIdentity{};
