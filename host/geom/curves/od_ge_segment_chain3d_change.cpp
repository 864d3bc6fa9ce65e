#include "host/geom/curves/od_ge_bulge_segment.h"
#include "host/geom/curves/od_ge_segment_chain3d.h"
#include "host/geom/od_ge_frame.h"
#include "host/root/od_error.h"

// Chains that come of a chain: transformed, reversed, cut.

void OdGeSegmentChain3d::transformBy(OdGeMatrix3d const& transformation)
{
    if (m_hasOwnPlane) {
        OdGeVector3d const x = m_normal.perpVector();
        OdGeVector3d const y = m_normal.crossProduct(x);
        double const side = transformation.det() < 0 ? -1 : 1;
        if (hasBulges()) {
            m_normal = odgeSimilarImage(transformation, x, y).normal * side;
        } else {
            // Straight segments may go anywhere; their plane goes with them as long as there is one.
            OdGeVector3d const across = (transformation * x).crossProduct(transformation * y);
            double const scale = transformation.scale();
            m_hasOwnPlane = across.length() > OdGeContext::gTol.equalVector() * scale * scale;
            m_normal = m_hasOwnPlane ? across / across.length() * side : OdGeVector3d::kZAxis;
        }
        if (side < 0) {
            for (double& bulge : m_bulges)
                bulge = -bulge;
        }
    }
    for (OdGePoint3d& point : m_points)
        point = transformation * point;
}

void OdGeSegmentChain3d::reverseParam()
{
    if (numSegments() == 0)
        return;
    // The start of a closed chain stays in front; the bulge of a segment stands at its first vertex.
    std::reverse(m_points.begin() + (m_isClosed ? 1 : 0), m_points.end());
    if (m_bulges.empty())
        return;
    std::reverse(m_bulges.begin(), m_bulges.begin() + numSegments());
    for (double& bulge : m_bulges)
        bulge = -bulge;
}

std::unique_ptr<OdGeCurve3d> OdGeSegmentChain3d::trimmed(double from, double to) const
{
    double const count = numSegments();
    if (m_isClosed && count > 0 && std::isfinite(from)) {
        double const turns = std::floor(from / count) * count;
        from -= turns;
        to = std::min(to - turns, from + count);
    } else {
        from = getInterval().clamped(from);
        to = getInterval().clamped(to);
    }
    requireAscending(from, to);

    auto part = std::make_unique<OdGeSegmentChain3d>(*this);
    part->m_isClosed = false;
    part->m_points.clear();
    part->m_bulges.clear();
    int const segments = numSegments();
    for (int i = static_cast<int>(from); i < to; ++i) {
        double const begin = std::max(from - i, 0.0);
        double const end = std::min(to - i, 1.0);
        OdGeBulgeSegment const segment = bulgeSegment(i % segments);
        if (part->m_points.empty())
            part->m_points.push_back(segment.evalPoint(begin));
        part->m_points.push_back(segment.evalPoint(end));
        if (!m_bulges.empty())
            part->m_bulges.push_back(segment.bulgeOfPart(begin, end));
    }
    if (!m_bulges.empty())
        part->m_bulges.push_back(0);
    return part;
}
