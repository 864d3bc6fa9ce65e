#pragma once

#include "host/app/editor.h"

namespace ca {

// Distances and angles that have no base point: a number, an option or Enter answers as usual; a point is the
// first of two, and the second one is asked for.

Task<Answer> askDistance(Editor& editor, Prompt prompt);
/// The direction from the first point to the second in the plane of the user coordinate system, in radians.
Task<Answer> askAngle(Editor& editor, Prompt prompt);

} // namespace ca
