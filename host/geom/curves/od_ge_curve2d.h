#pragma once

#include "host/geom/curves/od_ge_curve3d.h"

/// A curve of the plane: OdGeLine2d, OdGeRay2d, OdGeLineSeg2d, OdGeCircArc2d, OdGeEllipArc2d, OdGeNurbCurve2d and
/// OdGeSegmentChain2d. Each holds the curve of the same name in the XY plane of space, which says what its
/// parameter is and how it behaves at its edges; here stands only what is different.
class OdGeCurve2d
{
public:
    using EType = OdGeCurve3d::EType;

    virtual ~OdGeCurve2d() = default;
    /// The curve of the plane for one in space. Throws OdError(eNotApplicable) for a curve out of the XY plane.
    static std::unique_ptr<OdGeCurve2d> of(OdGeCurve3d const& curve, OdGeTol const& tol = OdGeContext::gTol);
    virtual std::unique_ptr<OdGeCurve2d> copy() const = 0;
    /// The same curve in the XY plane of space.
    virtual OdGeCurve3d const& curve3d() const = 0;

    EType type() const { return curve3d().type(); }
    OdGeInterval getInterval() const { return curve3d().getInterval(); }
    OdGePoint2d evalPoint(double param) const { return curve3d().evalPoint(param).convert2d(); }
    OdGeVector2d derivative(double param, int order = 1) const
    {
        return curve3d().derivative(param, order).convert2d();
    }
    /// Throws OdError(eNotApplicable) for a transformation that leads out of the plane; else as in space.
    void transformBy(OdGeMatrix3d const& transformation);
    void reverseParam() { editedCurve().reverseParam(); }
    std::unique_ptr<OdGeCurve2d> trimmed(double from, double to) const;

    double length() const { return curve3d().length(); }
    double length(double from, double to) const { return curve3d().length(from, to); }
    double paramAtLength(double from, double length) const { return curve3d().paramAtLength(from, length); }
    double closestParam(OdGePoint2d const& point) const;
    OdGePoint2d closestPointTo(OdGePoint2d const& point, double* param = nullptr) const;
    double distanceTo(OdGePoint2d const& point) const { return closestPointTo(point).distanceTo(point); }
    bool isOn(OdGePoint2d const& point, double* param = nullptr, OdGeTol const& tol = OdGeContext::gTol) const;
    bool hasStartPoint(OdGePoint2d& point) const;
    bool hasEndPoint(OdGePoint2d& point) const;
    bool isClosed(OdGeTol const& tol = OdGeContext::gTol) const { return curve3d().isClosed(tol); }
    bool isLinear(OdGeTol const& tol = OdGeContext::gTol) const { return curve3d().isLinear(tol); }
    OdGeExtents2d extents() const { return curve3d().extents().convert2d(); }
    /// Positive when the curve runs counterclockwise.
    double signedArea() const { return curve3d().signedArea(OdGeVector3d::kZAxis); }
    std::vector<OdGePoint2d> samplePoints(double chordError) const;

protected:
    OdGeCurve2d() = default;
    OdGeCurve2d(OdGeCurve2d const&) = default;
    OdGeCurve2d& operator=(OdGeCurve2d const&) = default;

    static OdGePoint3d inSpace(OdGePoint2d const& point) { return {point.x, point.y, 0}; }
    static OdGeVector3d inSpace(OdGeVector2d const& vector) { return {vector.x, vector.y, 0}; }
    virtual OdGeCurve3d& editedCurve() = 0;

private:
    static std::unique_ptr<OdGeCurve2d> ofFlat(OdGeCurve3d const& curve);
};

/// Holds the curve in space for a class of the plane.
template <class Curve2d, class Curve3d, class Base = OdGeCurve2d>
class OdGeEmbeddedCurve2d : public Base
{
public:
    std::unique_ptr<OdGeCurve2d> copy() const override
    {
        return std::make_unique<Curve2d>(static_cast<Curve2d const&>(*this));
    }
    Curve3d const& curve3d() const override { return m_curve; }

protected:
    OdGeEmbeddedCurve2d() = default;
    explicit OdGeEmbeddedCurve2d(Curve3d curve) : m_curve(std::move(curve)) {}
    Curve3d& editedCurve() override { return m_curve; }

    Curve3d m_curve;
};
