#include "host/geom/curves/od_ge_ellip_arc3d.h"

#include "host/geom/curves/od_ge_ellipse_range.h"
#include "host/geom/curves/od_ge_quadrature.h"
#include "host/geom/curves/od_ge_turn.h"
#include "host/geom/od_ge_frame.h"
#include "host/root/od_error.h"

#include <utility>

namespace {

// Below this ratio of the axes an ellipse counts as collapsed: that is what rounding leaves of parallel ones.
constexpr double kCollapsed = 1e-13;
// Lengths whose squares still are numbers with all digits.
constexpr double kLeastLength = 1e-140;

/// Angle from one of two perpendicular axes, with half lengths `along` and `across`, to the direction of a
/// parameter.
double stretchedAngle(double angle, double along, double across)
{
    double const sine = std::sin(angle);
    double const cosine = std::cos(angle);
    return angle + std::atan2(across * sine, along * cosine) - std::atan2(sine, cosine);
}

} // namespace

OdGeEllipArc3d::OdGeEllipArc3d(OdGePoint3d const& center, OdGeVector3d const& majorAxis,
                               OdGeVector3d const& minorAxis, double start, double end)
    : m_center(center)
{
    OdGeInterval const range = odgeTurnRange(start, end);
    m_start = range.lower;
    m_end = range.upper;
    double const minorLength = minorAxis.length();
    if (!(majorAxis.length() > kLeastLength) || !(minorLength > kLeastLength))
        throw OdError(eDegenerateGeometry);
    m_major = majorAxis;
    m_minor = odgePartAcross(minorAxis, majorAxis / majorAxis.length());
    if (!(m_minor.length() > kCollapsed * minorLength) || !std::isfinite(majorAxis.length()))
        throw OdError(eDegenerateGeometry);
}

OdGeEllipArc3d::OdGeEllipArc3d(OdGeEllipticArc const& arc) : m_center(arc.center)
{
    OdGeInterval const range = odgeTurnRange(arc.start, arc.end);
    m_start = range.lower;
    m_end = range.upper;
    setAxesOf(arc.u, arc.v);
}

void OdGeEllipArc3d::setAxesOf(OdGeVector3d const& u, OdGeVector3d const& v)
{
    double const size = std::hypot(u.length(), v.length());
    if (!(size > kLeastLength) || !std::isfinite(size))
        throw OdError(eDegenerateGeometry);
    // The axes are where the distance from the center is least and greatest: tan 2t = 2uv / (uu - vv). Axes that
    // are perpendicular but for rounding stay what they are, so that circles do not turn.
    constexpr double kPerpendicular = 1e-14;
    OdGeVector3d const p = u / size;
    OdGeVector3d const q = v / size;
    double const twice = 2 * p.dotProduct(q);
    double const difference = p.lengthSqrd() - q.lengthSqrd();
    double turn = 0;
    if (std::abs(twice) > kPerpendicular)
        turn = difference == 0 ? std::copysign(OdaPI / 4, twice) : std::atan(twice / difference) / 2;
    OdGeVector3d first = u * std::cos(turn) + v * std::sin(turn);
    OdGeVector3d second = v * std::cos(turn) - u * std::sin(turn);
    // Rounding shows most in the shorter one.
    bool const isFirstLonger = first.lengthSqrd() >= second.lengthSqrd();
    OdGeVector3d const& longer = isFirstLonger ? first : second;
    OdGeVector3d& shorter = isFirstLonger ? second : first;
    shorter = odgePartAcross(shorter, longer / longer.length());
    if (!(shorter.length() > kCollapsed * longer.length()))
        throw OdError(eDegenerateGeometry);
    m_major = first;
    m_minor = second;
    m_start -= turn;
    m_end -= turn;
}

OdGeVector3d OdGeEllipArc3d::normal() const
{
    return (m_major / majorRadius()).crossProduct(m_minor / minorRadius());
}

double OdGeEllipArc3d::angleOfParam(double param) const
{
    return stretchedAngle(param, majorRadius(), minorRadius());
}

double OdGeEllipArc3d::paramOfAngle(double angle) const
{
    return stretchedAngle(angle, minorRadius(), majorRadius());
}

void OdGeEllipArc3d::orderAxes()
{
    if (majorRadius() >= minorRadius())
        return;
    m_major = std::exchange(m_minor, -m_major);
    m_start -= OdaPI2;
    m_end -= OdaPI2;
}

std::unique_ptr<OdGeCurve3d> OdGeEllipArc3d::copy() const
{
    return std::make_unique<OdGeEllipArc3d>(*this);
}

OdGePoint3d OdGeEllipArc3d::evalPoint(double param) const
{
    double const t = odgeSeamParam(param, getInterval());
    return m_center + m_major * std::cos(t) + m_minor * std::sin(t);
}

OdGeVector3d OdGeEllipArc3d::derivative(double param, int order) const
{
    requireOrder(order);
    double const t = odgeSeamParam(param, getInterval());
    return order == 1 ? m_minor * std::cos(t) - m_major * std::sin(t)
                      : -(m_major * std::cos(t) + m_minor * std::sin(t));
}

void OdGeEllipArc3d::transformBy(OdGeMatrix3d const& transformation)
{
    setAxesOf(transformation * m_major, transformation * m_minor);
    m_center = transformation * m_center;
}

void OdGeEllipArc3d::reverseParam()
{
    m_minor = -m_minor;
    m_start = -std::exchange(m_end, -m_start);
}

std::unique_ptr<OdGeCurve3d> OdGeEllipArc3d::trimmed(double from, double to) const
{
    requireAscending(from, to);
    OdGeInterval const range = odgeTurnRange(from, to);
    auto part = std::make_unique<OdGeEllipArc3d>(*this);
    part->m_start = range.lower;
    part->m_end = range.upper;
    return part;
}

double OdGeEllipArc3d::length(double from, double to) const
{
    double const a = majorRadius();
    double const b = minorRadius();
    auto const speed = [&](double t) { return std::hypot(a * std::sin(t), b * std::cos(t)); };
    constexpr double kPrecision = 1e-14;
    return from <= to ? odgeIntegrate(speed, from, to, kPrecision) : -odgeIntegrate(speed, to, from, kPrecision);
}

double OdGeEllipArc3d::closestParam(OdGePoint3d const& point) const
{
    OdGeVector3d const v = point - m_center;
    double const a = majorRadius();
    double const b = minorRadius();
    return OdGeEllipseRange{a, b, getInterval()}.closestParam(
        {v.dotProduct(m_major / a), v.dotProduct(m_minor / b)}, odgeCoordinateNoise(point, m_center));
}

OdGeExtents3d OdGeEllipArc3d::extents() const
{
    return ellipticArc().extents();
}

std::optional<OdGePlane> OdGeEllipArc3d::plane(OdGeTol const&) const
{
    return OdGePlane(m_center, m_major / majorRadius(), m_minor / minorRadius());
}

bool OdGeEllipArc3d::isClosed(OdGeTol const& tol) const
{
    return odgeIsFullTurn(getInterval(), tol) && std::max(majorRadius(), minorRadius()) > tol.equalPoint();
}

double OdGeEllipArc3d::sweptArea(OdGePoint3d const& pole, OdGeVector3d const& normal) const
{
    OdGeVector3d const chord = evalPoint(m_end) - evalPoint(m_start);
    return (m_center - pole).crossProduct(chord).dotProduct(normal) +
           m_major.crossProduct(m_minor).dotProduct(normal) * (m_end - m_start);
}
