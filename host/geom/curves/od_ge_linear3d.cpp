#include "host/geom/curves/od_ge_linear3d.h"

#include "host/geom/od_ge_frame.h"
#include "host/root/od_error.h"

bool OdGeLinearEnt3d::isColinearTo(OdGeLinearEnt3d const& other, OdGeTol const& tol) const
{
    if (!isParallelTo(other, tol))
        return false;
    OdGeVector3d const between = other.m_base - m_base;
    OdGeVector3d const along = m_direction / m_direction.length();
    return (between - along * between.dotProduct(along)).length() <= tol.equalPoint();
}

OdGeVector3d OdGeLinearEnt3d::derivative(double, int order) const
{
    requireOrder(order);
    return order == 1 ? m_direction : OdGeVector3d();
}

void OdGeLinearEnt3d::transformBy(OdGeMatrix3d const& transformation)
{
    m_direction = odgeUnitImage(transformation, m_direction);
    m_base = transformation * m_base;
}

double OdGeLinearEnt3d::length(double from, double to) const
{
    return (to - from) * m_direction.length();
}

double OdGeLinearEnt3d::closestParam(OdGePoint3d const& point) const
{
    double const length = m_direction.length();
    if (!(length > 0))
        return 0;
    OdGeVector3d const unit = m_direction / length;
    return getInterval().clamped((point - m_base).dotProduct(unit) / length);
}

OdGeExtents3d OdGeLinearEnt3d::extents() const
{
    OdGeInterval const range = getInterval();
    return range.isBounded() ? OdGeExtents3d(evalPoint(range.lower), evalPoint(range.upper)) : OdGeExtents3d();
}

double OdGeLinearEnt3d::sweptArea(OdGePoint3d const& pole, OdGeVector3d const& normal) const
{
    return (m_base - pole).crossProduct(m_direction).dotProduct(normal) * getInterval().length();
}

OdGeLine3d::OdGeLine3d(OdGePoint3d const& base, OdGeVector3d const& direction)
    : OdGeLinearEnt3d(base, odgeUnitOrThrow(direction))
{
}

std::unique_ptr<OdGeCurve3d> OdGeLine3d::copy() const
{
    return std::make_unique<OdGeLine3d>(*this);
}

void OdGeLine3d::reverseParam()
{
    m_direction = -m_direction;
}

std::unique_ptr<OdGeCurve3d> OdGeLine3d::trimmed(double from, double to) const
{
    requireAscending(from, to);
    bool const isBegun = std::isfinite(from);
    bool const isEnded = std::isfinite(to);
    if (isBegun && isEnded)
        return std::make_unique<OdGeLineSeg3d>(evalPoint(from), evalPoint(to));
    if (isBegun)
        return std::make_unique<OdGeRay3d>(evalPoint(from), m_direction);
    if (isEnded)
        return std::make_unique<OdGeRay3d>(evalPoint(to), -m_direction);
    return copy();
}

OdGeRay3d::OdGeRay3d(OdGePoint3d const& base, OdGeVector3d const& direction)
    : OdGeLinearEnt3d(base, odgeUnitOrThrow(direction))
{
}

std::unique_ptr<OdGeCurve3d> OdGeRay3d::copy() const
{
    return std::make_unique<OdGeRay3d>(*this);
}

OdGeInterval OdGeRay3d::getInterval() const
{
    return {0, OdGeInterval().upper};
}

void OdGeRay3d::reverseParam()
{
    throw OdError(eNotApplicable, L"a ray has one direction");
}

std::unique_ptr<OdGeCurve3d> OdGeRay3d::trimmed(double from, double to) const
{
    return OdGeLine3d(m_base, m_direction).trimmed(from, to);
}

std::unique_ptr<OdGeCurve3d> OdGeLineSeg3d::copy() const
{
    return std::make_unique<OdGeLineSeg3d>(*this);
}

OdGePoint3d OdGeLineSeg3d::evalPoint(double param) const
{
    return param == 1 ? m_end : OdGeLinearEnt3d::evalPoint(param);
}

void OdGeLineSeg3d::transformBy(OdGeMatrix3d const& transformation)
{
    *this = OdGeLineSeg3d(transformation * m_base, transformation * m_end);
}

void OdGeLineSeg3d::reverseParam()
{
    *this = OdGeLineSeg3d(m_end, m_base);
}

std::unique_ptr<OdGeCurve3d> OdGeLineSeg3d::trimmed(double from, double to) const
{
    requireAscending(from, to);
    return std::make_unique<OdGeLineSeg3d>(evalPoint(from), evalPoint(to));
}
