#include "host/geom/curves/od_ge_circ_arc2d.h"

namespace {

OdGeVector3d normalOf(bool isClockWise)
{
    return isClockWise ? -OdGeVector3d::kZAxis : OdGeVector3d::kZAxis;
}

} // namespace

OdGeCircArc2d::OdGeCircArc2d(OdGePoint2d const& center, double radius, double startAngle, double endAngle,
                             OdGeVector2d const& refVec, bool isClockWise)
    : OdGeEmbeddedCurve2d(
          OdGeCircArc3d(inSpace(center), normalOf(isClockWise), inSpace(refVec), radius, startAngle, endAngle))
{
}

OdGeCircArc2d::OdGeCircArc2d(OdGeArcData2d const& arc)
    : OdGeCircArc2d(arc.center, arc.radius, arc.isClockwise ? -arc.startAngle : arc.startAngle,
                    arc.isClockwise ? -arc.endAngle : arc.endAngle, OdGeVector2d::kXAxis, arc.isClockwise)
{
}

OdGeCircArc2d& OdGeCircArc2d::setCenter(OdGePoint2d const& center)
{
    m_curve.setCenter(inSpace(center));
    return *this;
}

OdGeCircArc2d& OdGeCircArc2d::setRadius(double radius)
{
    m_curve.setRadius(radius);
    return *this;
}

OdGeCircArc2d& OdGeCircArc2d::setAngles(double startAngle, double endAngle)
{
    m_curve.setAngles(startAngle, endAngle);
    return *this;
}

OdGeCircArc2d& OdGeCircArc2d::setRefVec(OdGeVector2d const& refVec)
{
    m_curve.setAxes(m_curve.normal(), inSpace(refVec));
    return *this;
}

OdGeCircArc2d& OdGeCircArc2d::setClockWise(bool isClockWise)
{
    m_curve.setAxes(normalOf(isClockWise), m_curve.refVec());
    return *this;
}
