#pragma once

#include "host/app/commands/drawing_plane.h"
#include "host/geom/curves/od_ge_ellip_arc3d.h"

namespace ca {

/// Asks which part of a whole ellipse is meant, by angles seen from the center or by parameters, both counted from
/// the major axis of the ellipse given, counterclockwise. Equal ends leave it whole.
Task<OdGeEllipArc3d> askEllipseArc(Editor& editor, OdGeEllipArc3d whole);

} // namespace ca
