#pragma once

#include "host/geom/curves/od_ge_curve2d.h"
#include "host/geom/curves/od_ge_segment_chain3d.h"

/// Straight and circular segments of the plane, each beginning where the one before ends.
class OdGeSegmentChain2d : public OdGeEmbeddedCurve2d<OdGeSegmentChain2d, OdGeSegmentChain3d>
{
public:
    OdGeSegmentChain2d() = default;
    /// Missing bulges are 0; positive ones run counterclockwise. Errors as for OdGeSegmentChain3d.
    explicit OdGeSegmentChain2d(std::vector<OdGePoint2d> points, std::vector<double> bulges = {},
                                bool isClosed = false)
        : OdGeEmbeddedCurve2d(OdGeSegmentChain3d(std::move(points), std::move(bulges), isClosed))
    {
    }
    /// Of a chain in the XY plane.
    explicit OdGeSegmentChain2d(OdGeSegmentChain3d const& chain);

    int numVertices() const { return m_curve.numVertices(); }
    int numSegments() const { return m_curve.numSegments(); }
    bool isClosedChain() const { return m_curve.isClosedChain(); }
    OdGePoint2d vertexAt(int index) const { return m_curve.vertexAt(index).convert2d(); }
    double bulgeAt(int index) const { return m_curve.bulgeAt(index); }
    bool hasBulges() const { return m_curve.hasBulges(); }
    std::vector<OdGePoint2d> vertices() const;
    /// Empty, or one for each vertex.
    std::vector<double> const& bulges() const { return m_curve.bulges(); }
    /// A straight piece or a circular arc.
    std::unique_ptr<OdGeCurve2d> segmentAt(int index) const { return of(*m_curve.segmentAt(index)); }
};
