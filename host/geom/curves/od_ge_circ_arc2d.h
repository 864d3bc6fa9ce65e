#pragma once

#include "host/geom/curves/od_ge_circ_arc3d.h"
#include "host/geom/curves/od_ge_curve2d.h"
#include "host/geom/od_ge_arc_data2d.h"

/// Circle or part of one in the plane. Angles count from the reference vector in the direction of the arc:
/// clockwise in an arc that runs clockwise. Default: the unit circle, counterclockwise.
class OdGeCircArc2d : public OdGeEmbeddedCurve2d<OdGeCircArc2d, OdGeCircArc3d>
{
public:
    OdGeCircArc2d() = default;
    /// Angles and errors as for OdGeCircArc3d.
    OdGeCircArc2d(OdGePoint2d const& center, double radius, double startAngle = 0, double endAngle = Oda2PI,
                  OdGeVector2d const& refVec = OdGeVector2d::kXAxis, bool isClockWise = false);
    /// Of an arc whose angles count counterclockwise from the X axis whatever its direction.
    explicit OdGeCircArc2d(OdGeArcData2d const& arc);
    /// Of an arc in the XY plane.
    explicit OdGeCircArc2d(OdGeCircArc3d const& arc) : OdGeEmbeddedCurve2d(arc) {}

    OdGePoint2d center() const { return m_curve.center().convert2d(); }
    double radius() const { return m_curve.radius(); }
    double startAng() const { return m_curve.startAng(); }
    double endAng() const { return m_curve.endAng(); }
    OdGeVector2d refVec() const { return m_curve.refVec().convert2d(); }
    bool isClockWise() const { return m_curve.normal().z < 0; }
    OdGePoint2d startPoint() const { return m_curve.startPoint().convert2d(); }
    OdGePoint2d endPoint() const { return m_curve.endPoint().convert2d(); }

    OdGeCircArc2d& setCenter(OdGePoint2d const& center);
    OdGeCircArc2d& setRadius(double radius);
    OdGeCircArc2d& setAngles(double startAngle, double endAngle);
    OdGeCircArc2d& setRefVec(OdGeVector2d const& refVec);
    /// The angles stay and count in the other direction.
    OdGeCircArc2d& setClockWise(bool isClockWise);
};
