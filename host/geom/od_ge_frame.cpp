#include "host/geom/od_ge_frame.h"

#include "host/root/od_error.h"

namespace {

// Below this part of the greatest scale of a matrix an image counts as collapsed: that is what rounding leaves.
constexpr double kCollapsed = 1e-13;

// Most directions are given as perpendicular unit vectors, often with the 15 digits of a file. They stay as they
// are: correcting the last digits again and again would let small coordinates drift.
constexpr double kDigitsOfText = 4e-15;

OdGeVector3d unitAbove(double least, OdGeVector3d const& v)
{
    if (std::abs(v.lengthSqrd() - 1) <= kDigitsOfText && least < 1)
        return v;
    double const length = v.length();
    if (!(length > least) || !std::isfinite(length))
        throw OdError(eDegenerateGeometry);
    return v / length;
}

} // namespace

OdGeVector3d odgeUnitOrThrow(OdGeVector3d const& v)
{
    return unitAbove(OdGeContext::gTol.equalVector(), v);
}

OdGeVector3d odgeUnitAcross(OdGeVector3d const& v, OdGeVector3d const& unit)
{
    OdGeVector3d const direction = odgeUnitOrThrow(v);
    return odgeUnitOrThrow(odgePartAcross(direction, unit));
}

OdGeVector3d odgePartAcross(OdGeVector3d const& v, OdGeVector3d const& unit)
{
    double const along = v.dotProduct(unit);
    return std::abs(along) <= kDigitsOfText * v.length() ? v : v - unit * along;
}

OdGeVector3d odgeUnitImage(OdGeMatrix3d const& transformation, OdGeVector3d const& unit)
{
    return unitAbove(kCollapsed * transformation.scale(), transformation * unit);
}

OdGeSimilarImage odgeSimilarImage(OdGeMatrix3d const& transformation, OdGeVector3d const& xAxis,
                                  OdGeVector3d const& yAxis)
{
    OdGeVector3d const x = transformation * xAxis;
    OdGeVector3d const y = transformation * yAxis;
    double const scale = (x.length() + y.length()) / 2;
    double const allowed = OdGeContext::gTol.equalVector() * scale;
    if (!(scale > kCollapsed * transformation.scale()) || !(std::abs(x.length() - y.length()) <= allowed) ||
        !(std::abs(x.dotProduct(y)) <= allowed * scale))
        throw OdError(eDegenerateGeometry);
    // A rigid motion must not let radii drift by rounding.
    constexpr double kRounding = 1e-15;
    return {x / x.length(), odgeUnitOrThrow((x / scale).crossProduct(y / scale)),
            std::abs(scale - 1) <= kRounding ? 1 : scale};
}
