// Most entities find their partner by handle. For the others, those of equal hash (class, layer, place) are tried;
// the rest goes to what lies nearest. None of these looks at more than a few candidates for each entity.
#include "testapi/ta_entity_matching.h"

#include "testapi/ta_equal_entities.h"
#include "testapi/ta_nearest_pairs.h"

#include <unordered_map>

namespace ta {

namespace {

/// Finds entities by handle; where both lists have the same handles in the same order, without any search.
class HandleIndex
{
public:
    explicit HandleIndex(std::vector<OdDbEntity const*> const& entities) : m_entities(entities) {}

    std::uint32_t find(OdDbHandle handle)
    {
        if (handle.isNull())
            return s_unmatched;
        if (m_expected < m_entities.size() && m_entities[m_expected]->getDbHandle() == handle)
            return m_expected++;
        if (m_indices.empty())
            for (std::uint32_t i = 0; i < m_entities.size(); ++i)
                m_indices.emplace(m_entities[i]->getDbHandle().value(), i);
        auto const found = m_indices.find(handle.value());
        if (found == m_indices.end())
            return s_unmatched;
        m_expected = found->second + 1;
        return found->second;
    }

private:
    std::vector<OdDbEntity const*> const& m_entities;
    std::uint32_t m_expected = 0;
    std::unordered_map<std::uint64_t, std::uint32_t> m_indices;
};

std::vector<OdDbEntity const*> withoutErased(std::vector<OdDbEntity const*> entities)
{
    std::erase_if(entities, [](OdDbEntity const* entity) { return entity->isErased(); });
    return entities;
}

class Matcher
{
public:
    Matcher(std::vector<OdDbEntity const*> const& first, std::vector<OdDbEntity const*> const& second,
            double tolerance, EntityPredicate const& equal)
        : m_first(withoutErased(first)),
          m_second(withoutErased(second)),
          m_tolerance(tolerance),
          m_equal(equal),
          m_partnerOfFirst(m_first.size(), s_unmatched),
          m_isTaken(m_second.size()),
          m_areEqual(m_first.size())
    {
    }

    EntityMatches run()
    {
        matchHandles();
        if (m_numPairs < m_first.size() && m_numPairs < m_second.size())
            matchOthers();
        return result();
    }

private:
    void matchHandles()
    {
        m_sameHandle.resize(m_first.size(), s_unmatched);
        HandleIndex index(m_second);
        for (std::uint32_t i = 0; i < m_first.size(); ++i) {
            std::uint32_t const j = m_sameHandle[i] = index.find(m_first[i]->getDbHandle());
            if (j != s_unmatched && m_equal(*m_first[i], *m_second[j]))
                pair(i, j, true);
        }
    }
    void matchOthers()
    {
        std::vector<PlacedEntity> first = placed(m_first, [&](std::uint32_t i) { return isFree(i); });
        std::vector<PlacedEntity> second = placed(m_second, [&](std::uint32_t j) { return !m_isTaken[j]; });
        EqualEntities equals(second, m_tolerance);
        for (PlacedEntity const& entity : first) {
            auto const fits = [&](PlacedEntity const& other) { return m_equal(*entity.entity, *other.entity); };
            if (PlacedEntity const* const found = equals.take(entity, fits))
                pair(entity.index, found->index, true);
        }
        matchUnequalHandles();
        std::erase_if(first, [&](PlacedEntity const& entity) { return !isFree(entity.index); });
        std::erase_if(second, [&](PlacedEntity const& entity) { return m_isTaken[entity.index]; });
        for (auto const& [i, j] : nearestPairs(first, second))
            pair(i, j, false);
    }
    void matchUnequalHandles()
    {
        for (std::uint32_t i = 0; i < m_first.size(); ++i) {
            std::uint32_t const j = m_sameHandle[i];
            if (isFree(i) && j != s_unmatched && !m_isTaken[j] && kindOf(*m_first[i]) == kindOf(*m_second[j]))
                pair(i, j, false);
        }
    }
    template <class Test>
    std::vector<PlacedEntity> placed(std::vector<OdDbEntity const*> const& entities, Test const& isLeft)
    {
        std::vector<PlacedEntity> left;
        for (std::uint32_t i = 0; i < entities.size(); ++i)
            if (isLeft(i))
                left.push_back(
                    {entities[i], i, kindOf(*entities[i]), m_layers.of(*entities[i]), placeOf(*entities[i])});
        return left;
    }
    bool isFree(std::uint32_t i) const { return m_partnerOfFirst[i] == s_unmatched; }
    void pair(std::uint32_t i, std::uint32_t j, bool areEqual)
    {
        m_partnerOfFirst[i] = j;
        m_isTaken[j] = true;
        m_areEqual[i] = areEqual;
        ++m_numPairs;
    }
    EntityMatches result() const
    {
        EntityMatches matches;
        matches.pairs.reserve(m_numPairs);
        for (std::size_t i = 0; i < m_first.size(); ++i)
            if (m_partnerOfFirst[i] == s_unmatched)
                matches.onlyInFirst.push_back(m_first[i]);
            else
                matches.pairs.push_back({{m_first[i], m_second[m_partnerOfFirst[i]]}, m_areEqual[i]});
        for (std::size_t j = 0; j < m_second.size(); ++j)
            if (!m_isTaken[j])
                matches.onlyInSecond.push_back(m_second[j]);
        return matches;
    }

    std::vector<OdDbEntity const*> m_first;
    std::vector<OdDbEntity const*> m_second;
    double m_tolerance;
    EntityPredicate const& m_equal;
    LayerHashes m_layers;
    std::vector<std::uint32_t> m_sameHandle; ///< of the second list, for each of the first
    std::vector<std::uint32_t> m_partnerOfFirst;
    std::vector<bool> m_isTaken;
    std::vector<bool> m_areEqual;
    std::size_t m_numPairs = 0;
};

} // namespace

EntityMatches matchEntities(std::vector<OdDbEntity const*> const& first,
                            std::vector<OdDbEntity const*> const& second, double tolerance,
                            EntityPredicate const& equal)
{
    return Matcher(first, second, tolerance, equal).run();
}

} // namespace ta
