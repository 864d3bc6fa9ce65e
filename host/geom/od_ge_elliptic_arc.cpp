#include "host/geom/od_ge_elliptic_arc.h"

OdGeEllipticArc OdGeEllipticArc::circular(OdGePoint3d const& center, OdGeVector3d const& normal, double radius,
                                          double startAngle, double endAngle)
{
    OdGeMatrix3d const plane = OdGeMatrix3d::planeToWorld(normal);
    return {center, plane.column(0) * radius, plane.column(1) * radius, startAngle,
            startAngle + odgeSweep(startAngle, endAngle)};
}

OdGeEllipticArc OdGeEllipticArc::inPlane(OdGeArcData2d const& arc, double elevation)
{
    // A clockwise arc is a counterclockwise one about an axis that points down.
    double const side = arc.isClockwise ? -1 : 1;
    double const from = arc.startAngle * side;
    return {{arc.center.x, arc.center.y, elevation},
            {arc.radius, 0, 0},
            {0, arc.radius * side, 0},
            from,
            from + arc.sweep()};
}

bool OdGeEllipticArc::hasParam(double t, OdGeTol const& tol) const
{
    double const past = odgeFoldAngle(t - start);
    return past <= sweep() + tol.equalVector() || past >= Oda2PI - tol.equalVector();
}

OdGeEllipticArc& OdGeEllipticArc::transformBy(OdGeMatrix3d const& transformation)
{
    center = transformation * center;
    u = transformation * u;
    v = transformation * v;
    return *this;
}

OdGeExtents3d OdGeEllipticArc::extents() const
{
    OdGeExtents3d box(startPoint(), endPoint());
    // Each coordinate is a shifted cosine: its extremes lie at its phase and half a turn on.
    for (double const phase : {std::atan2(v.x, u.x), std::atan2(v.y, u.y), std::atan2(v.z, u.z)}) {
        for (double const t : {phase, phase + OdaPI}) {
            if (hasParam(t, 0))
                box.addPoint(evalPoint(t));
        }
    }
    return box;
}
