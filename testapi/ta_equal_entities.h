#pragma once

// For the matching of entities: finds an equal entity among many.

#include "testapi/ta_placed_entity.h"

#include <functional>

namespace ta {

/// Entities by class, layer and place, each of which can be taken once.
class EqualEntities
{
public:
    using Test = std::function<bool(PlacedEntity const&)>;

    /// The entities have to outlive this object.
    EqualEntities(std::vector<PlacedEntity> const& entities, double tolerance);

    /// Takes the first that fits out of the few that may be equal; null when none does. What is equal is found
    /// unless it is crowded out: by more than a few entities of the same class, layer, place, texts and whole
    /// numbers, of which the reals have the same weighted sum.
    PlacedEntity const* take(PlacedEntity const& like, Test const& fits);

private:
    struct Entry
    {
        std::uint64_t key;
        EntitySignature signature; ///< empty where few entities have the key
        PlacedEntity const* entity;
    };
    using Range = std::pair<std::uint32_t, std::uint32_t>;

    std::uint64_t keyOf(PlacedEntity const& entity) const;
    void collectKeys(PlacedEntity const& entity);
    void orderCrowds();
    Range rangeOf(std::uint64_t key) const;
    std::uint32_t free(std::uint32_t at);
    PlacedEntity const* takeFrom(Range range, PlacedEntity const& like, std::optional<EntitySignature>& signature,
                                 Test const& fits);
    Range partOf(Range range, EntitySignature const& signature, double slack) const;
    PlacedEntity const* takeFirst(Range range, Test const& fits);

    double m_tolerance;
    double m_cell;
    std::vector<Entry> m_entries;      ///< by key, then by signature
    std::vector<std::uint32_t> m_next; ///< the entry itself while it is free, else one behind it
    std::vector<std::uint64_t> m_keys; ///< of the entity that is looked for
};

} // namespace ta
