#include "host/geom/curves/od_ge_segment_chain2d.h"

namespace {

std::vector<OdGePoint2d> flatPoints(OdGeSegmentChain3d const& chain)
{
    std::vector<OdGePoint2d> points;
    points.reserve(chain.vertices().size());
    for (OdGePoint3d const& point : chain.vertices())
        points.push_back(point.convert2d());
    return points;
}

/// The bulges about the Z axis.
std::vector<double> flatBulges(OdGeSegmentChain3d const& chain)
{
    std::vector<double> bulges = chain.bulges();
    if (chain.normal().z < 0) {
        for (double& bulge : bulges)
            bulge = -bulge;
    }
    return bulges;
}

} // namespace

OdGeSegmentChain2d::OdGeSegmentChain2d(OdGeSegmentChain3d const& chain)
    : OdGeSegmentChain2d(flatPoints(chain), flatBulges(chain), chain.isClosedChain())
{
}

std::vector<OdGePoint2d> OdGeSegmentChain2d::vertices() const
{
    return flatPoints(m_curve);
}
