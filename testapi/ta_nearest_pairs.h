#pragma once

// For the matching of entities: pairs those that are left by where they lie.

#include "testapi/ta_placed_entity.h"

#include <utility>

namespace ta {

/// Indices of entities of one class that lie nearest to each other, each in one pair at most. Entities farther
/// from each other than they are large are no pair, unless that is little compared with all of them together;
/// neither are entities without a place.
std::vector<std::pair<std::uint32_t, std::uint32_t>> nearestPairs(std::vector<PlacedEntity> const& first,
                                                                  std::vector<PlacedEntity> const& second);

} // namespace ta
