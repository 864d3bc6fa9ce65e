#pragma once

#include "host/geom/curves/od_ge_curve3d.h"

/// What lines, rays and segments have in common: point(t) = base + t * direction.
class OdGeLinearEnt3d : public OdGeCurve3d
{
public:
    OdGePoint3d const& pointOnLine() const { return m_base; }
    /// Of the length that the parameter counts in: a unit vector for lines and rays, the whole way for segments.
    OdGeVector3d const& direction() const { return m_direction; }
    /// The same or the opposite direction; a segment of zero length is parallel to nothing.
    bool isParallelTo(OdGeLinearEnt3d const& other, OdGeTol const& tol = OdGeContext::gTol) const
    {
        return m_direction.isParallelTo(other.m_direction, tol);
    }
    /// Both lie on one infinite line.
    bool isColinearTo(OdGeLinearEnt3d const& other, OdGeTol const& tol = OdGeContext::gTol) const;

    OdGePoint3d evalPoint(double param) const override { return m_base + m_direction * param; }
    OdGeVector3d derivative(double param, int order = 1) const override;
    /// Directions stay unit vectors, so that the parameter goes on to be the distance.
    void transformBy(OdGeMatrix3d const& transformation) override;
    using OdGeCurve3d::length;
    double length(double from, double to) const override;
    double closestParam(OdGePoint3d const& point) const override;
    OdGeExtents3d extents() const override;
    std::optional<OdGePlane> plane(OdGeTol const& = OdGeContext::gTol) const override { return std::nullopt; }
    bool isLinear(OdGeTol const& = OdGeContext::gTol) const override { return true; }

protected:
    OdGeLinearEnt3d(OdGePoint3d const& base, OdGeVector3d const& direction) : m_base(base), m_direction(direction)
    {
    }
    double sweptArea(OdGePoint3d const& pole, OdGeVector3d const& normal) const override;

    OdGePoint3d m_base;
    OdGeVector3d m_direction;
};

/// Endless line; the parameter is the distance from the base, any number. Default: origin and X axis.
class OdGeLine3d : public OdGeLinearEnt3d
{
public:
    OdGeLine3d() : OdGeLinearEnt3d({}, {1, 0, 0}) {}
    /// The direction becomes a unit vector. Throws OdError(eDegenerateGeometry) for a zero direction.
    OdGeLine3d(OdGePoint3d const& base, OdGeVector3d const& direction);

    EType type() const override { return EType::kLine; }
    std::unique_ptr<OdGeCurve3d> copy() const override;
    OdGeInterval getInterval() const override { return {}; }
    void reverseParam() override;
    /// A segment, or a ray where one bound is infinite (away from the other bound).
    std::unique_ptr<OdGeCurve3d> trimmed(double from, double to) const override;
};

/// Half a line; the parameter is the distance from the base, 0 or more.
class OdGeRay3d : public OdGeLinearEnt3d
{
public:
    OdGeRay3d() : OdGeLinearEnt3d({}, {1, 0, 0}) {}
    OdGeRay3d(OdGePoint3d const& base, OdGeVector3d const& direction);

    EType type() const override { return EType::kRay; }
    std::unique_ptr<OdGeCurve3d> copy() const override;
    OdGeInterval getInterval() const override;
    /// Throws OdError(eNotApplicable): a ray has one direction.
    void reverseParam() override;
    std::unique_ptr<OdGeCurve3d> trimmed(double from, double to) const override;
};

/// Straight piece between two points; the parameter goes from 0 to 1. Points may agree: its length is 0 then.
class OdGeLineSeg3d : public OdGeLinearEnt3d
{
public:
    OdGeLineSeg3d() : OdGeLinearEnt3d({}, {1, 0, 0}) {}
    OdGeLineSeg3d(OdGePoint3d const& start, OdGePoint3d const& end)
        : OdGeLinearEnt3d(start, end - start), m_end(end)
    {
    }

    OdGePoint3d const& startPoint() const { return m_base; }
    OdGePoint3d const& endPoint() const { return m_end; }

    EType type() const override { return EType::kLineSeg; }
    std::unique_ptr<OdGeCurve3d> copy() const override;
    OdGeInterval getInterval() const override { return {0, 1}; }
    /// Exactly the end points at 0 and 1.
    OdGePoint3d evalPoint(double param) const override;
    void transformBy(OdGeMatrix3d const& transformation) override;
    void reverseParam() override;
    std::unique_ptr<OdGeCurve3d> trimmed(double from, double to) const override;

private:
    OdGePoint3d m_end{1, 0, 0};
};
