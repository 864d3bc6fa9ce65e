#include "host/geom/curves/od_ge_nurb_curve2d.h"

namespace {

std::vector<OdGePoint3d> pointsInSpace(std::span<OdGePoint2d const> points)
{
    std::vector<OdGePoint3d> result;
    result.reserve(points.size());
    for (OdGePoint2d const& point : points)
        result.emplace_back(point.x, point.y, 0.0);
    return result;
}

} // namespace

OdGeNurbCurve2d::OdGeNurbCurve2d(int degree, OdGeKnotVector const& knots,
                                 std::span<OdGePoint2d const> controlPoints, std::vector<double> weights,
                                 bool isPeriodic)
    : OdGeEmbeddedCurve2d(
          OdGeNurbCurve3d({degree, isPeriodic, knots, pointsInSpace(controlPoints), std::move(weights)}))
{
}

void OdGeNurbCurve2d::getDefinitionData(int& degree, bool& rational, bool& periodic, OdGeKnotVector& knots,
                                        OdGePoint2dArray& controlPoints, OdGeDoubleArray& weights) const
{
    OdGeNurbCurve3d::Definition const& definition = m_curve.definition();
    degree = definition.degree;
    rational = definition.isRational();
    periodic = definition.isPeriodic;
    knots = definition.knots;
    controlPoints.clear();
    for (OdGePoint3d const& point : definition.controlPoints)
        controlPoints.append(point.convert2d());
    weights.clear();
    for (double const weight : definition.weights)
        weights.append(weight);
}
