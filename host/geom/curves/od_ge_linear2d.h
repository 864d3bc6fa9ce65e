#pragma once

#include "host/geom/curves/od_ge_curve2d.h"
#include "host/geom/curves/od_ge_linear3d.h"

/// What lines, rays and segments of the plane have in common.
class OdGeLinearEnt2d : public OdGeCurve2d
{
public:
    OdGeLinearEnt3d const& curve3d() const override = 0;

    OdGePoint2d pointOnLine() const { return curve3d().pointOnLine().convert2d(); }
    OdGeVector2d direction() const { return curve3d().direction().convert2d(); }
    bool isParallelTo(OdGeLinearEnt2d const& other, OdGeTol const& tol = OdGeContext::gTol) const
    {
        return curve3d().isParallelTo(other.curve3d(), tol);
    }
    bool isColinearTo(OdGeLinearEnt2d const& other, OdGeTol const& tol = OdGeContext::gTol) const
    {
        return curve3d().isColinearTo(other.curve3d(), tol);
    }
};

/// Endless line of the plane. Default: origin and X axis.
class OdGeLine2d : public OdGeEmbeddedCurve2d<OdGeLine2d, OdGeLine3d, OdGeLinearEnt2d>
{
public:
    OdGeLine2d() = default;
    OdGeLine2d(OdGePoint2d const& base, OdGeVector2d const& direction)
        : OdGeEmbeddedCurve2d(OdGeLine3d(inSpace(base), inSpace(direction)))
    {
    }
    /// Of a line in the XY plane.
    explicit OdGeLine2d(OdGeLine3d const& line) : OdGeEmbeddedCurve2d(line) {}
};

/// Half a line of the plane.
class OdGeRay2d : public OdGeEmbeddedCurve2d<OdGeRay2d, OdGeRay3d, OdGeLinearEnt2d>
{
public:
    OdGeRay2d() = default;
    OdGeRay2d(OdGePoint2d const& base, OdGeVector2d const& direction)
        : OdGeEmbeddedCurve2d(OdGeRay3d(inSpace(base), inSpace(direction)))
    {
    }
    /// Of a ray in the XY plane.
    explicit OdGeRay2d(OdGeRay3d const& ray) : OdGeEmbeddedCurve2d(ray) {}
};

/// Straight piece between two points of the plane. Default: from the origin to (1, 0).
class OdGeLineSeg2d : public OdGeEmbeddedCurve2d<OdGeLineSeg2d, OdGeLineSeg3d, OdGeLinearEnt2d>
{
public:
    OdGeLineSeg2d() = default;
    OdGeLineSeg2d(OdGePoint2d const& start, OdGePoint2d const& end)
        : OdGeEmbeddedCurve2d(OdGeLineSeg3d(inSpace(start), inSpace(end)))
    {
    }
    /// Of a segment in the XY plane.
    explicit OdGeLineSeg2d(OdGeLineSeg3d const& segment) : OdGeEmbeddedCurve2d(segment) {}

    OdGePoint2d startPoint() const { return m_curve.startPoint().convert2d(); }
    OdGePoint2d endPoint() const { return m_curve.endPoint().convert2d(); }
};
