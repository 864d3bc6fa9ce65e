#pragma once

#include "host/geom/od_ge_arc_data2d.h"
#include "host/geom/od_ge_extents3d.h"
#include "host/geom/od_ge_matrix3d.h"

/// A stretch of an ellipse in space: point(t) = center + cos t u + sin t v, for t from start to end, start <= end.
/// `u` and `v` are conjugate half diameters and need not be perpendicular, so that every affine image of a circle
/// is one; parallel ones make a segment that is run through to and fro. A sweep of 2 pi or more is the whole
/// ellipse.
class OdGeEllipticArc
{
public:
    OdGePoint3d center;
    OdGeVector3d u;
    OdGeVector3d v;
    double start = 0;
    double end = Oda2PI;

    constexpr OdGeEllipticArc() = default;
    constexpr OdGeEllipticArc(OdGePoint3d const& c, OdGeVector3d const& uAxis, OdGeVector3d const& vAxis,
                              double from = 0, double to = Oda2PI)
        : center(c), u(uAxis), v(vAxis), start(from), end(to)
    {
    }
    /// The circular arc of a drawing entity: center in world coordinates, angles from the X axis that the
    /// arbitrary axis rule gives to the plane. Equal angles make a full circle. Throws
    /// OdError(eDegenerateGeometry) for a zero normal.
    static OdGeEllipticArc circular(OdGePoint3d const& center, OdGeVector3d const& normal, double radius,
                                    double startAngle = 0, double endAngle = Oda2PI);

    /// The arc in the plane z = elevation, run through in its own direction.
    static OdGeEllipticArc inPlane(OdGeArcData2d const& arc, double elevation = 0);

    OdGePoint3d evalPoint(double t) const { return center + u * std::cos(t) + v * std::sin(t); }
    OdGePoint3d startPoint() const { return evalPoint(start); }
    OdGePoint3d endPoint() const { return evalPoint(end); }
    double sweep() const { return end - start; }
    bool isClosed(OdGeTol const& tol = OdGeContext::gTol) const { return sweep() >= Oda2PI - tol.equalVector(); }
    /// The parameter, or one that differs from it by whole turns, lies on the arc.
    bool hasParam(double t, OdGeTol const& tol = OdGeContext::gTol) const;

    OdGeEllipticArc& transformBy(OdGeMatrix3d const& transformation);
    /// The exact box around the arc.
    OdGeExtents3d extents() const;
};
