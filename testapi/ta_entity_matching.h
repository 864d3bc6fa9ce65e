#pragma once

// For the comparison of drawings: which entity of one block is which of another.

#include "testapi/ta_host.h"

#include <functional>
#include <utility>
#include <vector>

namespace ta {

struct EntityMatches
{
    using Pair = std::pair<OdDbEntity const*, OdDbEntity const*>;
    /// In the order of the first block. The flag of a pair says that its entities were found equal already.
    struct Match
    {
        Pair entities;
        bool areEqual;
    };
    std::vector<Match> pairs;
    std::vector<OdDbEntity const*> onlyInFirst;
    std::vector<OdDbEntity const*> onlyInSecond;
};

/// Two entities differ in nothing.
using EntityPredicate = std::function<bool(OdDbEntity const&, OdDbEntity const&)>;

/// Pairs entities that are not erased: first those of one handle that are equal, then equal ones of any handle,
/// then those of one handle and class, then each with the one of its class that lies nearest, as long as their
/// extents are near each other. The time grows with the number of entities, not with its square.
EntityMatches matchEntities(std::vector<OdDbEntity const*> const& first,
                            std::vector<OdDbEntity const*> const& second, double tolerance,
                            EntityPredicate const& equal);

} // namespace ta
