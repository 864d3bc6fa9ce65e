#pragma once

#include "host/geom/od_ge_tol.h"

#include <limits>

/// What boxes parallel to the axes have in common in the plane and in space; use OdGeExtents2d and OdGeExtents3d.
template <class Point>
class OdGeExtents
{
public:
    /// Empty: the lower corner lies above the upper one.
    constexpr OdGeExtents() = default;
    /// The box of two opposite corners in any order.
    constexpr OdGeExtents(Point const& a, Point const& b) : m_min(odgeLesser(a, b)), m_max(odgeGreater(a, b)) {}

    constexpr Point const& minPoint() const { return m_min; }
    constexpr Point const& maxPoint() const { return m_max; }
    /// False while the box is empty.
    constexpr bool isValidExtents() const { return odgeIsNotAbove(m_min, m_max, 0); }
    constexpr Point center() const { return odgeMidPoint(m_min, m_max); }

    /// Coordinates that are no numbers are passed over.
    constexpr void addPoint(Point const& p)
    {
        m_min = odgeLesser(m_min, p);
        m_max = odgeGreater(m_max, p);
    }
    /// Adding an empty box changes nothing.
    constexpr void addExt(OdGeExtents const& other)
    {
        m_min = odgeLesser(m_min, other.m_min);
        m_max = odgeGreater(m_max, other.m_max);
    }
    bool contains(Point const& p, OdGeTol const& tol = OdGeContext::gTol) const
    {
        return !isDisjoint({p, p}, tol);
    }
    /// An empty box is contained in every box.
    bool contains(OdGeExtents const& other, OdGeTol const& tol = OdGeContext::gTol) const
    {
        return !other.isValidExtents() || (contains(other.m_min, tol) && contains(other.m_max, tol));
    }
    /// No common point; boxes that touch have one.
    bool isDisjoint(OdGeExtents const& other, OdGeTol const& tol = OdGeContext::gTol) const
    {
        return !isValidExtents() || !other.isValidExtents() ||
               !odgeIsNotAbove(odgeGreater(m_min, other.m_min), odgeLesser(m_max, other.m_max), tol.equalPoint());
    }

private:
    static constexpr double kFar = std::numeric_limits<double>::max();
    static constexpr Point allCoordinates(double value)
    {
        if constexpr (requires(Point p) { p.z; })
            return {value, value, value};
        else
            return {value, value};
    }

    Point m_min = allCoordinates(kFar);
    Point m_max = allCoordinates(-kFar);
};
