#include "host/geom/od_ge_bulge.h"

#include "host/geom/od_ge_circle_build.h"

std::optional<OdGeArcData2d> odgeArcFromBulge(OdGePoint2d const& p1, OdGePoint2d const& p2, double bulge,
                                              OdGeTol const& tol)
{
    if (p1.isEqualTo(p2, tol) || std::abs(bulge) <= tol.equalVector())
        return std::nullopt;
    OdGeVector2d const chord = p2 - p1;
    OdGeArcData2d arc;
    arc.center = odgeMidPoint(p1, p2) + chord.perpVector() * ((1 - bulge * bulge) / (4 * bulge));
    arc.radius = chord.length() * (1 + bulge * bulge) / (4 * std::abs(bulge));
    arc.startAngle = (p1 - arc.center).angle();
    arc.endAngle = (p2 - arc.center).angle();
    arc.isClockwise = bulge < 0;
    return arc;
}

std::optional<double> odgeBulgeFromTangent(OdGePoint2d const& p1, OdGeVector2d const& tangent,
                                           OdGePoint2d const& p2, OdGeTol const& tol)
{
    if (p1.isEqualTo(p2, tol) || tangent.isZeroLength(tol))
        return std::nullopt;
    OdGeVector2d const chord = p2 - p1;
    // The chord turns away from the tangent by half the sweep.
    double const half = std::atan2(tangent.crossProduct(chord), tangent.dotProduct(chord));
    if (std::abs(half) >= OdaPI - tol.equalVector())
        return std::nullopt;
    return std::tan(half / 2);
}

std::optional<double> odgeBulgeThroughPoint(OdGePoint2d const& p1, OdGePoint2d const& through,
                                            OdGePoint2d const& p2, OdGeTol const& tol)
{
    if (!odgeCircleThrough3Points(p1, through, p2, tol))
        return std::nullopt;
    OdGeVector2d const a = p1 - through;
    OdGeVector2d const b = p2 - through;
    // The angle in which the chord is seen from the arc is half of what the arc leaves of the full circle.
    double const cross = a.crossProduct(b);
    double const seen = std::atan2(std::abs(cross), a.dotProduct(b));
    double const magnitude = 1 / std::tan(seen / 2);
    return cross > 0 ? -magnitude : magnitude;
}
