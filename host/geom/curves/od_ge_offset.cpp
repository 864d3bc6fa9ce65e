#include "host/geom/curves/od_ge_offset.h"

#include "host/geom/curves/od_ge_circ_arc3d.h"
#include "host/geom/curves/od_ge_linear3d.h"
#include "host/geom/curves/od_ge_offset_outline.h"
#include "host/geom/curves/od_ge_segment_chain3d.h"
#include "host/root/od_error.h"

#include <algorithm>
#include <cmath>

namespace {

using Curves = std::vector<std::unique_ptr<OdGeCurve3d>>;

Curves one(std::unique_ptr<OdGeCurve3d> curve)
{
    Curves curves;
    curves.push_back(std::move(curve));
    return curves;
}

double sizeOf(OdGeCurve3d const& curve)
{
    OdGeExtents3d const box = curve.extents();
    if (!box.isValidExtents())
        return 0;
    OdGeVector3d const low = box.minPoint().asVector();
    OdGeVector3d const high = box.maxPoint().asVector();
    return std::max(low.length(), high.length());
}

// Some points, or the whole box where there is none, must have one height along the normal.
void requireAcross(OdGeCurve3d const& curve, OdGeVector3d const& normal, double slack)
{
    constexpr int kSamples = 32;
    constexpr double kTilt = 1e-9;
    OdGeInterval const interval = curve.getInterval();
    bool isAcross = true;
    if (!interval.isBounded()) {
        isAcross = std::abs(curve.derivative(0).dotProduct(normal)) <= kTilt * curve.derivative(0).length();
    } else {
        OdGePoint3d const base = curve.evalPoint(interval.lower);
        int const samples = std::max(kSamples, curve.type() == OdGeCurve3d::EType::kSegmentChain
                                                   ? 2 * static_cast<int>(interval.length())
                                                   : 0);
        for (int i = 1; i <= samples; ++i) {
            OdGeVector3d const v = curve.evalPoint(interval.lower + interval.length() * i / samples) - base;
            isAcross = isAcross && std::abs(v.dotProduct(normal)) <= slack + kTilt * v.length();
        }
    }
    if (!isAcross)
        throw OdError(eInvalidInput, L"the curve does not lie in a plane across the normal of the offset");
}

Curves offsetLine(OdGeCurve3d const& line, OdGeOffsetTask const& task)
{
    if (line.derivative(0).lengthSqrd() == 0)
        return {};
    auto moved = line.copy();
    moved->transformBy(OdGeMatrix3d::translation(task.rightOf(line.derivative(0)) * task.distance));
    return one(std::move(moved));
}

Curves offsetArc(OdGeCircArc3d arc, OdGeOffsetTask const& task)
{
    double const radius = arc.radius() + (arc.normal().dotProduct(task.normal) > 0 ? 1 : -1) * task.distance;
    if (radius <= task.slack)
        return {};
    arc.setRadius(radius);
    return one(std::make_unique<OdGeCircArc3d>(arc));
}

} // namespace

Curves odgeOffset(OdGeCurve3d const& curve, OdGeVector3d const& normal, double distance, OdGeTol const& tol)
{
    using EType = OdGeCurve3d::EType;
    if (normal.lengthSqrd() == 0)
        throw OdError(eDegenerateGeometry, L"the normal of an offset is zero");
    if (!std::isfinite(distance))
        throw OdError(eInvalidInput, L"the distance of an offset is no number");
    double const slack = tol.equalPoint() + 1e-14 * (sizeOf(curve) + std::abs(distance));
    OdGeOffsetTask const task{normal / normal.length(), distance, slack, curve.isClosed(slack)};
    requireAcross(curve, task.normal, slack);
    if (std::abs(distance) <= slack)
        return one(curve.copy());
    switch (curve.type()) {
    case EType::kLine:
    case EType::kRay:
    case EType::kLineSeg: return offsetLine(curve, task);
    case EType::kCircArc: return offsetArc(static_cast<OdGeCircArc3d const&>(curve), task);
    case EType::kSegmentChain: return odgeOffsetChain(static_cast<OdGeSegmentChain3d const&>(curve), task);
    case EType::kEllipArc:
    case EType::kNurb: break;
    }
    return odgeOffsetFitted(curve, task);
}
