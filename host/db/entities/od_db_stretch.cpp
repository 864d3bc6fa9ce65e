#include "host/db/entities/od_db_stretch.h"

std::optional<std::vector<bool>> odDbCaughtPoints(std::span<int const> indices, std::size_t count)
{
    std::vector<bool> caught(count);
    for (int const index : indices) {
        if (index < 0 || static_cast<std::size_t>(index) >= count)
            return std::nullopt;
        caught[static_cast<std::size_t>(index)] = true;
    }
    return caught;
}

OdResult odDbStretchWhole(OdDbEntity& entity, std::span<int const> indices, OdGeVector3d const& offset)
{
    if (!odDbCaughtPoints(indices, 1))
        return eInvalidIndex;
    return indices.empty() ? eOk : entity.transformBy(OdGeMatrix3d::translation(offset));
}
