#include "host/app/commands/arc_bulges.h"

namespace ca {

std::optional<double> bulgeOfSweep(double sweep)
{
    if (std::abs(std::remainder(sweep, Oda2PI)) <= OdGeContext::gTol.equalVector())
        return std::nullopt;
    return odgeBulgeFromSweep(std::fmod(sweep, Oda2PI));
}

std::optional<double> bulgeOfRadius(OdGePoint2d const& start, OdGePoint2d const& end, double radius)
{
    double const chord = start.distanceTo(end);
    double const diameter = 2 * std::abs(radius);
    if (start.isEqualTo(end) || OdGreater(chord, diameter))
        return std::nullopt;
    double const lesser = 2 * std::asin(std::min(1.0, chord / diameter));
    return odgeBulgeFromSweep(radius > 0 ? lesser : Oda2PI - lesser);
}

OdGeVector2d directionAtEnd(OdGePoint2d const& start, OdGePoint2d const& end, double bulge)
{
    OdGeVector2d const chord = (end - start).normal();
    if (chord.isZeroLength())
        return {};
    // From chord to tangent it is half the sweep.
    return bulge == 0 ? chord : turned(chord, odgeSweepFromBulge(bulge) / 2);
}

OdGeVector2d turned(OdGeVector2d const& v, double angle)
{
    double const cosine = std::cos(angle);
    double const sine = std::sin(angle);
    return {cosine * v.x - sine * v.y, sine * v.x + cosine * v.y};
}

} // namespace ca
