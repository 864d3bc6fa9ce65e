#pragma once

#include "host/db/od_db_entity.h"

#include <optional>

// Steps that moveStretchPointsAt() of entities share.

/// For each of `count` stretch points whether it is among the indices; nothing when an index is none of them.
std::optional<std::vector<bool>> odDbCaughtPoints(std::span<int const> indices, std::size_t count);

/// For an entity that has one stretch point and goes along with it as a whole.
OdResult odDbStretchWhole(OdDbEntity& entity, std::span<int const> indices, OdGeVector3d const& offset);
