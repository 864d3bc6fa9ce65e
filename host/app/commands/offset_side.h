#pragma once

#include "host/geom/curves/od_ge_curve3d.h"

#include <optional>

namespace ca {

/// At which distance, positive to the right seen against the normal, a curve of the plane of the normal would run
/// through a point (dropped onto that plane), its end pieces prolonged and its corners kept sharp. Nothing for a
/// point on the curve or its prolongation, and for a curve without length.
std::optional<double> offsetThrough(OdGeCurve3d const& curve, OdGeVector3d const& normal,
                                    OdGePoint3d const& point);

} // namespace ca
