#pragma once

#include "host/geom/curves/od_ge_curve2d.h"
#include "host/geom/curves/od_ge_ellip_arc3d.h"

/// Ellipse or part of one in the plane, with the parameter of OdGeEllipArc3d. It runs from the major axis towards
/// the minor axis. Default: the unit circle, counterclockwise.
class OdGeEllipArc2d : public OdGeEmbeddedCurve2d<OdGeEllipArc2d, OdGeEllipArc3d>
{
public:
    OdGeEllipArc2d() = default;
    /// The axes as half lengths; angles and errors as for OdGeEllipArc3d.
    OdGeEllipArc2d(OdGePoint2d const& center, OdGeVector2d const& majorAxis, OdGeVector2d const& minorAxis,
                   double start = 0, double end = Oda2PI)
        : OdGeEmbeddedCurve2d(OdGeEllipArc3d(inSpace(center), inSpace(majorAxis), inSpace(minorAxis), start, end))
    {
    }
    /// Of an arc in the XY plane.
    explicit OdGeEllipArc2d(OdGeEllipArc3d const& arc) : OdGeEmbeddedCurve2d(arc) {}

    OdGePoint2d center() const { return m_curve.center().convert2d(); }
    OdGeVector2d majorAxis() const { return m_curve.majorAxis().convert2d(); }
    OdGeVector2d minorAxis() const { return m_curve.minorAxis().convert2d(); }
    double majorRadius() const { return m_curve.majorRadius(); }
    double minorRadius() const { return m_curve.minorRadius(); }
    double startParam() const { return m_curve.startParam(); }
    double endParam() const { return m_curve.endParam(); }
    bool isClockWise() const { return m_curve.normal().z < 0; }
};
