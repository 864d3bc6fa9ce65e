#include "host/db/entities/od_db_spline_points.h"

#include "host/geom/curves/od_ge_nurb_curve3d.h"

std::vector<OdGePoint3d> odDbSplinePoints(std::span<OdGePoint3d const> frame, int degree, bool isClosed,
                                          int segments)
{
    std::vector<OdGePoint3d> points;
    if (frame.size() < 2)
        return points;
    auto const count = static_cast<int>(frame.size());
    auto const curve = OdGeNurbCurve3d::ofControlPoints(std::min(degree, count - 1), frame, isClosed);
    OdGeInterval const interval = curve.getInterval();
    int const pieces = (isClosed ? count : count - 1) * segments;
    for (int i = 0; i < pieces; ++i)
        points.push_back(curve.evalPoint(interval.lower + interval.length() * i / pieces));
    if (!isClosed)
        points.push_back(frame.back());
    return points;
}
