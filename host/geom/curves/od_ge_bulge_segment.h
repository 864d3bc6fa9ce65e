#pragma once

#include "host/geom/od_ge_extents3d.h"

/// One segment of a chain: straight, or an arc that a bulge gives in the plane of a normal. Its parameter runs
/// from 0 to 1, in an arc by angle. All is expressed by the chord, so that nearly straight arcs, whose centers are
/// far away, keep their digits and segments of no length give numbers.
class OdGeBulgeSegment
{
public:
    /// Bulges up to this magnitude are straight.
    static constexpr double kStraight = 1e-10;

    /// `normal` is a unit vector across the chord where there is a bulge.
    OdGeBulgeSegment(OdGePoint3d const& start, OdGePoint3d const& end, double bulge, OdGeVector3d const& normal);

    OdGePoint3d evalPoint(double param) const;
    OdGeVector3d derivative(double param, int order) const;
    double length() const { return m_chord.length() * m_stretch; }
    double closestParam(OdGePoint3d const& point) const;
    void addExtents(OdGeExtents3d& box) const;
    /// Signed angle that the segment turns by; 0 when it is straight.
    double sweep() const { return m_sweep; }
    /// Twice the area between the arc and its chord, positive when it lies to the right of the chord.
    double doubledChordArea() const;
    /// From the start to the center of an arc.
    OdGeVector3d toCenter() const;
    double radius() const;
    /// The bulge of a part of the segment.
    double bulgeOfPart(double from, double to) const;

private:
    OdGeVector3d turnedChord(double angle) const;
    double closestParamOfArc(OdGePoint3d const& point) const;

    OdGePoint3d m_start;
    OdGePoint3d m_end;
    OdGeVector3d m_chord;
    OdGeVector3d m_across; ///< the chord turned by a quarter turn about the normal
    double m_bulge = 0;
    double m_sweep = 0;
    double m_halfSine = 0; ///< sine of half the sweep
    double m_stretch = 1;  ///< length of the arc by that of the chord
};
