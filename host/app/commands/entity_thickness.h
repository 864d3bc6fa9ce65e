#pragma once

#include "host/db/od_db_entity.h"

#include <optional>

namespace ca {

/// How far an entity is extruded; nothing for a class without thickness.
std::optional<double> thicknessOf(OdDbEntity const& entity);
/// Does nothing to an entity of a class without thickness.
void setThicknessOf(OdDbEntity& entity, double thickness);

} // namespace ca
