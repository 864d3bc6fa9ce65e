#pragma once

// For the comparison of drawings: what is known about fields of drawing files beyond their group code.

#include "testapi/ta_host.h"

#include <string_view>

namespace ta {

/// The section of what all entities have in common.
inline constexpr std::string_view kEntityMarker = "AcDbEntity";

/// "thickness", "group 91 of AcDb2dVertex".
OdString fieldName(OdDbObject const& object, std::string_view marker, int code);
/// What the rows of the class tell of a pair of objects where it differs: bits of an integer, coordinates of a
/// point (1, 2, 4 for x, y, z), -1 all, 0 nothing.
int toldByRows(std::string_view marker, int code, OdDbObject const& object1, OdDbObject const& object2,
               double eps);
/// Rows compare whether both entities are annotative, and found that they differ there.
bool isAnnotativeTold(OdDbObject const& object1, OdDbObject const& object2);

} // namespace ta
