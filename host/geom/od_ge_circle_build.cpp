#include "host/geom/od_ge_circle_build.h"

namespace {

std::optional<OdGeArcData2d> arcAbout(OdGePoint2d const& center, OdGePoint2d const& start, double sweep,
                                      OdGeTol const& tol)
{
    OdGeVector2d const arm = start - center;
    if (start.isEqualTo(center, tol))
        return std::nullopt;
    double const from = arm.angle();
    return OdGeArcData2d{center, arm.length(), from, odgeFoldAngle(from + sweep), sweep < 0};
}

} // namespace

std::optional<OdGeCircleData2d> odgeCircleThrough3Points(OdGePoint2d const& a, OdGePoint2d const& b,
                                                         OdGePoint2d const& c, OdGeTol const& tol)
{
    // Taken from `a`, so that far from the origin no digits are lost.
    OdGeVector2d const ab = b - a;
    OdGeVector2d const ac = c - a;
    if (a.isEqualTo(b, tol) || a.isEqualTo(c, tol) || b.isEqualTo(c, tol))
        return std::nullopt;
    double const cross = ab.crossProduct(ac);
    if (!(std::abs(cross) > tol.equalVector() * ab.length() * ac.length()))
        return std::nullopt;
    OdGeVector2d const toCenter =
        (ab.perpVector() * ac.lengthSqrd() - ac.perpVector() * ab.lengthSqrd()) / (2 * cross);
    return OdGeCircleData2d{a + toCenter, toCenter.length()};
}

std::optional<OdGeCircleData2d> odgeCircleOnDiameter(OdGePoint2d const& a, OdGePoint2d const& b,
                                                     OdGeTol const& tol)
{
    if (a.isEqualTo(b, tol))
        return std::nullopt;
    return OdGeCircleData2d{odgeMidPoint(a, b), a.distanceTo(b) / 2};
}

std::optional<OdGeArcData2d> odgeArcThrough3Points(OdGePoint2d const& start, OdGePoint2d const& through,
                                                   OdGePoint2d const& end, OdGeTol const& tol)
{
    auto const circle = odgeCircleThrough3Points(start, through, end, tol);
    if (!circle)
        return std::nullopt;
    bool const isClockwise = (through - start).crossProduct(end - start) < 0;
    return OdGeArcData2d{circle->center, circle->radius, (start - circle->center).angle(),
                         (end - circle->center).angle(), isClockwise};
}

std::optional<OdGeArcData2d> odgeArcStartCenterEnd(OdGePoint2d const& start, OdGePoint2d const& center,
                                                   OdGePoint2d const& end, OdGeTol const& tol)
{
    auto arc = arcAbout(center, start, 0, tol);
    if (!arc || end.isEqualTo(center, tol))
        return std::nullopt;
    OdGeVector2d const toStart = (start - center).normal(tol);
    OdGeVector2d const toEnd = (end - center).normal(tol);
    // Directions that agree but for rounding would otherwise give an arc of no length half of the time.
    if (!toStart.isEqualTo(toEnd, tol))
        arc->endAngle = toEnd.angle();
    return arc;
}

std::optional<OdGeArcData2d> odgeArcStartCenterSweep(OdGePoint2d const& start, OdGePoint2d const& center,
                                                     double sweep, OdGeTol const& tol)
{
    double const rest = std::remainder(sweep, Oda2PI);
    if (std::abs(rest) <= tol.equalVector())
        return std::nullopt;
    return arcAbout(center, start, std::fmod(sweep, Oda2PI), tol);
}

std::optional<OdGeArcData2d> odgeArcStartCenterChord(OdGePoint2d const& start, OdGePoint2d const& center,
                                                     double chordLength, OdGeTol const& tol)
{
    double const diameter = 2 * start.distanceTo(center);
    double const length = std::abs(chordLength);
    if (length <= tol.equalPoint() || length > diameter + tol.equalPoint() || diameter <= tol.equalPoint())
        return std::nullopt;
    double const sweep = 2 * std::asin(std::min(1.0, length / diameter));
    return arcAbout(center, start, chordLength < 0 ? Oda2PI - sweep : sweep, tol);
}
