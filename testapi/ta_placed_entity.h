#pragma once

// For the matching of entities: what its steps need to know of an entity.

#include "testapi/ta_entity_signature.h"

#include <limits>

namespace ta {

inline constexpr std::uint32_t s_unmatched = std::numeric_limits<std::uint32_t>::max();

struct PlacedEntity
{
    OdDbEntity const* entity;
    std::uint32_t index; ///< in the list that it comes from
    std::uint64_t kind;
    std::uint64_t layer;
    std::optional<BoxCorners> place;
};

} // namespace ta
