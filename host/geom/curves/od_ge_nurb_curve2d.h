#pragma once

#include "host/geom/curves/od_ge_curve2d.h"
#include "host/geom/curves/od_ge_nurb_curve3d.h"
#include "host/geom/od_ge_arrays.h"

/// Non-uniform rational B-spline of the plane. Default: a straight piece along the X axis from 0 to 1.
class OdGeNurbCurve2d : public OdGeEmbeddedCurve2d<OdGeNurbCurve2d, OdGeNurbCurve3d>
{
public:
    OdGeNurbCurve2d() = default;
    /// No weights: not rational. Throws OdError(eInvalidInput) as OdGeNurbCurve3d.
    OdGeNurbCurve2d(int degree, OdGeKnotVector const& knots, std::span<OdGePoint2d const> controlPoints,
                    std::vector<double> weights = {}, bool isPeriodic = false);
    /// Of a curve in the XY plane.
    explicit OdGeNurbCurve2d(OdGeNurbCurve3d const& curve) : OdGeEmbeddedCurve2d(curve) {}

    int degree() const { return m_curve.degree(); }
    bool isRational() const { return m_curve.isRational(); }
    bool isPeriodic() const { return m_curve.isPeriodic(); }
    int numControlPoints() const { return m_curve.numControlPoints(); }
    void getDefinitionData(int& degree, bool& rational, bool& periodic, OdGeKnotVector& knots,
                           OdGePoint2dArray& controlPoints, OdGeDoubleArray& weights) const;
};
