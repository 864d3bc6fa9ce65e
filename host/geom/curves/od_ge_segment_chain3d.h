#pragma once

#include "host/geom/curves/od_ge_curve3d.h"

class OdGeBulgeSegment;

/// Straight and circular segments, each beginning where the one before ends. Lies in a plane parallel to the XY
/// plane of its placement when it has bulges; a chain of straight segments may go anywhere in space. The parameter
/// counts segments: 2.5 is the middle of the third (by angle in an arc).
class OdGeSegmentChain3d : public OdGeCurve3d
{
public:
    OdGeSegmentChain3d() = default;
    /// Straight segments between points in space.
    OdGeSegmentChain3d(std::vector<OdGePoint3d> points, bool isClosed);
    /// Points of a plane with bulges (see od_ge_bulge.h; missing ones are 0) at a height above the plane through
    /// the world origin with this normal, in the axes that drawing files give to it. Bulges beyond the points are
    /// dropped. Throws OdError: eDegenerateGeometry for a zero normal, eOutOfRange for bulges that are no numbers.
    OdGeSegmentChain3d(std::vector<OdGePoint2d> points, std::vector<double> bulges, bool isClosed,
                       OdGeVector3d const& normal = {0, 0, 1}, double elevation = 0);

    int numVertices() const { return static_cast<int>(m_points.size()); }
    int numSegments() const;
    bool isClosedChain() const { return m_isClosed; }
    std::vector<OdGePoint3d> const& vertices() const { return m_points; }
    /// Empty, or one for each vertex.
    std::vector<double> const& bulges() const { return m_bulges; }
    /// Throw OdError(eInvalidIndex).
    OdGePoint3d const& vertexAt(int index) const;
    double bulgeAt(int index) const;
    /// Some bulge is above 1e-10 in magnitude.
    bool hasBulges() const;
    /// Normal of the plane about which positive bulges run counterclockwise.
    OdGeVector3d const& normal() const { return m_normal; }
    /// A straight piece or a circular arc (which runs about -normal() for a negative bulge). Throws
    /// OdError(eInvalidIndex).
    std::unique_ptr<OdGeCurve3d> segmentAt(int index) const;

    EType type() const override { return EType::kSegmentChain; }
    std::unique_ptr<OdGeCurve3d> copy() const override;
    OdGeInterval getInterval() const override;
    OdGePoint3d evalPoint(double param) const override;
    OdGeVector3d derivative(double param, int order = 1) const override;
    /// With bulges the plane must keep its shape; a mirroring transformation turns their signs.
    void transformBy(OdGeMatrix3d const& transformation) override;
    /// A closed chain keeps its start.
    void reverseParam() override;
    /// An open chain.
    std::unique_ptr<OdGeCurve3d> trimmed(double from, double to) const override;
    using OdGeCurve3d::length;
    double length(double from, double to) const override;
    double closestParam(OdGePoint3d const& point) const override;
    OdGeExtents3d extents() const override;
    std::optional<OdGePlane> plane(OdGeTol const& tol = OdGeContext::gTol) const override;
    bool isLinear(OdGeTol const& tol = OdGeContext::gTol) const override;
    std::vector<double> breakParams() const override;

protected:
    double sweptArea(OdGePoint3d const& pole, OdGeVector3d const& normal) const override;

private:
    /// Segment and the part of it, 0 to 1, at a parameter.
    struct Place
    {
        int segment = 0;
        double part = 0;
    };
    Place placeOf(double param) const;
    OdGeBulgeSegment bulgeSegment(int index) const;
    OdGePoint3d const& segmentEnd(int index) const;

    std::vector<OdGePoint3d> m_points;
    std::vector<double> m_bulges; ///< empty, or one for each point
    OdGeVector3d m_normal{0, 0, 1};
    bool m_isClosed = false;
    bool m_hasOwnPlane = false; ///< made in the plane of m_normal, even if all segments are straight
};
