#include "host/geom/curves/od_ge_circ_arc3d.h"

#include "host/geom/curves/od_ge_ellipse_range.h"
#include "host/geom/curves/od_ge_turn.h"
#include "host/geom/od_ge_elliptic_arc.h"
#include "host/geom/od_ge_frame.h"
#include "host/root/od_error.h"

#include <utility>

OdGeCircArc3d::OdGeCircArc3d(OdGePoint3d const& center, OdGeVector3d const& normal, double radius)
    : OdGeCircArc3d(center, normal, normal.perpVector(), radius)
{
}

OdGeCircArc3d::OdGeCircArc3d(OdGePoint3d const& center, OdGeVector3d const& normal, OdGeVector3d const& refVec,
                             double radius, double startAngle, double endAngle)
    : m_center(center)
{
    setAxes(normal, refVec);
    setRadius(radius);
    setAngles(startAngle, endAngle);
}

OdGeCircArc3d& OdGeCircArc3d::setCenter(OdGePoint3d const& center)
{
    m_center = center;
    return *this;
}

OdGeCircArc3d& OdGeCircArc3d::setRadius(double radius)
{
    if (!(radius >= 0) || !std::isfinite(radius))
        throw OdError(eOutOfRange);
    m_radius = radius;
    return *this;
}

OdGeCircArc3d& OdGeCircArc3d::setAngles(double startAngle, double endAngle)
{
    OdGeInterval const range = odgeTurnRange(startAngle, endAngle);
    m_startAngle = range.lower;
    m_endAngle = range.upper;
    return *this;
}

OdGeCircArc3d& OdGeCircArc3d::setAxes(OdGeVector3d const& normal, OdGeVector3d const& refVec)
{
    OdGeVector3d const unit = odgeUnitOrThrow(normal);
    m_refVec = odgeUnitAcross(refVec, unit);
    m_normal = unit;
    return *this;
}

std::unique_ptr<OdGeCurve3d> OdGeCircArc3d::copy() const
{
    return std::make_unique<OdGeCircArc3d>(*this);
}

OdGePoint3d OdGeCircArc3d::evalPoint(double param) const
{
    double const angle = odgeSeamParam(param, getInterval());
    return m_center + (m_refVec * std::cos(angle) + yAxis() * std::sin(angle)) * m_radius;
}

OdGeVector3d OdGeCircArc3d::derivative(double param, int order) const
{
    requireOrder(order);
    double const angle = odgeSeamParam(param, getInterval());
    OdGeVector3d const y = yAxis();
    return order == 1 ? (y * std::cos(angle) - m_refVec * std::sin(angle)) * m_radius
                      : (m_refVec * std::cos(angle) + y * std::sin(angle)) * -m_radius;
}

void OdGeCircArc3d::transformBy(OdGeMatrix3d const& transformation)
{
    OdGeSimilarImage const image = odgeSimilarImage(transformation, m_refVec, yAxis());
    m_center = transformation * m_center;
    m_refVec = image.xAxis;
    m_normal = image.normal;
    m_radius *= image.scale;
}

void OdGeCircArc3d::reverseParam()
{
    m_normal = -m_normal;
    m_startAngle = -std::exchange(m_endAngle, -m_startAngle);
}

std::unique_ptr<OdGeCurve3d> OdGeCircArc3d::trimmed(double from, double to) const
{
    requireAscending(from, to);
    auto part = std::make_unique<OdGeCircArc3d>(*this);
    part->setAngles(from, to);
    return part;
}

double OdGeCircArc3d::closestParam(OdGePoint3d const& point) const
{
    OdGeVector3d const v = point - m_center;
    return OdGeEllipseRange{m_radius, m_radius, getInterval()}.closestParam(
        {v.dotProduct(m_refVec), v.dotProduct(yAxis())}, odgeCoordinateNoise(point, m_center));
}

OdGeExtents3d OdGeCircArc3d::extents() const
{
    return ellipticArc().extents();
}

std::optional<OdGePlane> OdGeCircArc3d::plane(OdGeTol const& tol) const
{
    if (isLinear(tol))
        return std::nullopt;
    return OdGePlane(m_center, m_refVec, yAxis());
}

bool OdGeCircArc3d::isClosed(OdGeTol const& tol) const
{
    return odgeIsFullTurn(getInterval(), tol) && length() > tol.equalPoint();
}

OdGeEllipticArc OdGeCircArc3d::ellipticArc() const
{
    return {m_center, m_refVec * m_radius, yAxis() * m_radius, m_startAngle, m_endAngle};
}

double OdGeCircArc3d::sweptArea(OdGePoint3d const& pole, OdGeVector3d const& normal) const
{
    OdGeVector3d const chord = endPoint() - startPoint();
    return (m_center - pole).crossProduct(chord).dotProduct(normal) +
           m_normal.dotProduct(normal) * m_radius * m_radius * (m_endAngle - m_startAngle);
}
