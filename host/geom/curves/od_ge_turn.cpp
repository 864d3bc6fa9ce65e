#include "host/geom/curves/od_ge_turn.h"

#include "host/root/od_error.h"

#include <limits>

OdGeInterval odgeTurnRange(double start, double end)
{
    if (!std::isfinite(start) || !std::isfinite(end))
        throw OdError(eOutOfRange);
    double const to = end > start ? std::min(end, start + Oda2PI) : start + odgeSweep(start, end);
    if (!(to > start))
        throw OdError(eOutOfRange);
    return {start, to};
}

double odgeCoordinateNoise(OdGePoint3d const& a, OdGePoint3d const& b)
{
    double const size =
        std::max({std::abs(a.x), std::abs(a.y), std::abs(a.z), std::abs(b.x), std::abs(b.y), std::abs(b.z)});
    return 2 * std::numeric_limits<double>::epsilon() * size;
}
