#include "host/geom/curves/od_ge_curve2d.h"

#include "host/geom/curves/od_ge_circ_arc2d.h"
#include "host/geom/curves/od_ge_ellip_arc2d.h"
#include "host/geom/curves/od_ge_linear2d.h"
#include "host/geom/curves/od_ge_nurb_curve2d.h"
#include "host/geom/curves/od_ge_segment_chain2d.h"
#include "host/root/od_error.h"

namespace {

/// What the transformation does to the XY plane; Z stays Z, so that mirroring shows as such in the plane.
OdGeMatrix3d flattened(OdGeMatrix3d const& transformation)
{
    double const allowed = OdGeContext::gTol.equalVector() * transformation.scale();
    OdGeVector3d const x = transformation.column(0);
    OdGeVector3d const y = transformation.column(1);
    OdGeVector3d const offset = transformation.translation();
    if (!(std::abs(x.z) <= allowed && std::abs(y.z) <= allowed &&
          std::abs(offset.z) <= OdGeContext::gTol.equalPoint()))
        throw OdError(eNotApplicable, L"the transformation leads out of the plane of the curve");
    return OdGeMatrix3d().setCoordSystem({offset.x, offset.y, 0}, {x.x, x.y, 0}, {y.x, y.y, 0},
                                         OdGeVector3d::kZAxis);
}

bool isFlat(OdGeCurve3d const& curve, OdGeTol const& tol)
{
    OdGeExtents3d const box = curve.extents();
    if (box.isValidExtents())
        return box.minPoint().z >= -tol.equalPoint() && box.maxPoint().z <= tol.equalPoint();
    // A line, a ray, or a chain without points.
    return std::abs(curve.evalPoint(0).z) <= tol.equalPoint() &&
           std::abs(curve.derivative(0).z) <= tol.equalVector();
}

} // namespace

std::unique_ptr<OdGeCurve2d> OdGeCurve2d::of(OdGeCurve3d const& curve, OdGeTol const& tol)
{
    if (!isFlat(curve, tol))
        throw OdError(eNotApplicable, L"the curve does not lie in the XY plane");
    return ofFlat(curve);
}

std::unique_ptr<OdGeCurve2d> OdGeCurve2d::ofFlat(OdGeCurve3d const& curve)
{
    switch (curve.type()) {
    case EType::kLine: return std::make_unique<OdGeLine2d>(static_cast<OdGeLine3d const&>(curve));
    case EType::kRay: return std::make_unique<OdGeRay2d>(static_cast<OdGeRay3d const&>(curve));
    case EType::kLineSeg: return std::make_unique<OdGeLineSeg2d>(static_cast<OdGeLineSeg3d const&>(curve));
    case EType::kCircArc: return std::make_unique<OdGeCircArc2d>(static_cast<OdGeCircArc3d const&>(curve));
    case EType::kEllipArc: return std::make_unique<OdGeEllipArc2d>(static_cast<OdGeEllipArc3d const&>(curve));
    case EType::kNurb: return std::make_unique<OdGeNurbCurve2d>(static_cast<OdGeNurbCurve3d const&>(curve));
    case EType::kSegmentChain:
        return std::make_unique<OdGeSegmentChain2d>(static_cast<OdGeSegmentChain3d const&>(curve));
    }
    throw OdError(eNotThatKindOfClass);
}

void OdGeCurve2d::transformBy(OdGeMatrix3d const& transformation)
{
    editedCurve().transformBy(flattened(transformation));
}

std::unique_ptr<OdGeCurve2d> OdGeCurve2d::trimmed(double from, double to) const
{
    return ofFlat(*curve3d().trimmed(from, to));
}

double OdGeCurve2d::closestParam(OdGePoint2d const& point) const
{
    return curve3d().closestParam(inSpace(point));
}

OdGePoint2d OdGeCurve2d::closestPointTo(OdGePoint2d const& point, double* param) const
{
    return curve3d().closestPointTo(inSpace(point), param).convert2d();
}

bool OdGeCurve2d::isOn(OdGePoint2d const& point, double* param, OdGeTol const& tol) const
{
    return curve3d().isOn(inSpace(point), param, tol);
}

bool OdGeCurve2d::hasStartPoint(OdGePoint2d& point) const
{
    OdGePoint3d start;
    bool const isBounded = curve3d().hasStartPoint(start);
    if (isBounded)
        point = start.convert2d();
    return isBounded;
}

bool OdGeCurve2d::hasEndPoint(OdGePoint2d& point) const
{
    OdGePoint3d end;
    bool const isBounded = curve3d().hasEndPoint(end);
    if (isBounded)
        point = end.convert2d();
    return isBounded;
}

std::vector<OdGePoint2d> OdGeCurve2d::samplePoints(double chordError) const
{
    std::vector<OdGePoint2d> points;
    for (OdGePoint3d const& point : curve3d().samplePoints(chordError))
        points.push_back(point.convert2d());
    return points;
}
