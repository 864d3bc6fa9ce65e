#pragma once

#include "host/geom/curves/od_ge_nurb_curve3d.h"
#include "host/geom/od_ge_elliptic_arc.h"

#include <span>

/// Receives the true geometry of an entity in world coordinates: what selection, extents and pictures work from.
/// Names tell the subject: only pieces whose affine image is of the same kind, so that blocks can be looked
/// through.
class OdDbOutlineSink
{
public:
    virtual ~OdDbOutlineSink() = default;
    virtual void point(OdGePoint3d const& position) = 0;
    virtual void segment(OdGePoint3d const& start, OdGePoint3d const& end) = 0;
    virtual void arc(OdGeEllipticArc const& arc) = 0;
    virtual void spline(OdGeNurbCurve3d const& curve) = 0;
    /// A line without end from `base` on along `direction` (not zero), and the other way too unless it is a ray. It
    /// is seen and picked, but no extents can hold it.
    virtual void endless(OdGePoint3d const& base, OdGeVector3d const& direction, bool isRay) = 0;
    /// A filled flat polygon without self-crossing, closed from the last point to the first: the frame of a text.
    virtual void polygon(std::span<OdGePoint3d const> corners) = 0;
    /// True once the receiver needs no more; entities of many pieces ask now and then.
    virtual bool isSatisfied() const { return false; }
};
