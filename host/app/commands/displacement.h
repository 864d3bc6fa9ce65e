#pragma once

#include "host/app/editor.h"

namespace ca {

/// A point given as a displacement: its coordinates in the user coordinate system, as a vector of the world.
OdGeVector3d displacementOf(Editor const& editor, OdGePoint3d const& point);

/// "Specify displacement".
Task<OdGeVector3d> askDisplacement(Editor& editor);
/// How far MOVE and STRETCH move: from a base point to a second one, or a displacement.
Task<OdGeVector3d> askWay(Editor& editor);

} // namespace ca
