#pragma once

#include "host/app/editor.h"

namespace ca {

// Asking for the points of a polygon or a fence, until Enter. "Undo" takes the last point back. Points are in
// world coordinates, seen along the Z axis of the user coordinate system.

/// A polygon without self-crossing: a point that would make one is refused, and asked for anew. Empty, with a
/// message, when Enter comes before three points are there.
Task<std::vector<OdGePoint3d>> askPolygon(Editor& editor);
/// Empty, with a message, when Enter comes before the second point.
Task<std::vector<OdGePoint3d>> askFence(Editor& editor);

} // namespace ca
