// Places are rounded to cells much larger than the tolerance, so that equal entities seldom stand in different
// ones; where a coordinate is near a border, the cell behind it is searched too. Many entities in one cell are
// ordered by what they are made of, so that a stack of coincident ones is searched like any other index.
#include "testapi/ta_equal_entities.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <numeric>
#include <tuple>

namespace ta {

namespace {

/// Tried for each entity: enough for what commonly lies in one place, few enough for any number of entities.
constexpr std::uint32_t s_candidates = 8;

constexpr double s_cellTolerances = 1024;
constexpr double s_leastCell = 1e-9; // without tolerance, equal entities have equal places anyway
/// Tolerances by which corners of equal entities may differ: several values make up a corner.
constexpr double s_cornerTolerances = 4;
/// The same for measures, which are sums of many values.
constexpr double s_measureTolerances = 64;
constexpr double s_measureRounding = 1e-12;

/// In cells. Round numbers, of which drawings are full, shall not lie on borders.
constexpr double s_shift = 0.381966;

std::uint64_t withCell(std::uint64_t key, double cell)
{
    return mixedHash(key, std::bit_cast<std::uint64_t>(cell + 0.0)); // no negative zero
}

} // namespace

EqualEntities::EqualEntities(std::vector<PlacedEntity> const& entities, double tolerance)
    : m_tolerance(tolerance),
      m_cell(std::max(tolerance * s_cellTolerances, s_leastCell)),
      m_next(entities.size() + 1)
{
    m_entries.reserve(entities.size());
    for (PlacedEntity const& entity : entities)
        m_entries.push_back({keyOf(entity), {}, &entity});
    std::ranges::stable_sort(m_entries, {}, &Entry::key);
    orderCrowds();
    std::iota(m_next.begin(), m_next.end(), 0U);
}

void EqualEntities::orderCrowds()
{
    auto const order = [](Entry const& a, Entry const& b) {
        return std::tie(a.signature.exact, a.signature.measure) < std::tie(b.signature.exact, b.signature.measure);
    };
    for (auto begin = m_entries.begin(); begin != m_entries.end();) {
        auto const end = std::find_if(begin, m_entries.end(), [&](Entry const& e) { return e.key != begin->key; });
        if (end - begin > s_candidates) {
            std::for_each(begin, end, [](Entry& entry) { entry.signature = signatureOf(*entry.entity->entity); });
            std::stable_sort(begin, end, order);
        }
        begin = end;
    }
}

/// Key of the cell in which the entity is.
std::uint64_t EqualEntities::keyOf(PlacedEntity const& entity) const
{
    std::uint64_t key = mixedHash(entity.kind, entity.layer);
    if (entity.place)
        for (double const coordinate : *entity.place)
            key = withCell(key, std::floor(coordinate / m_cell + s_shift));
    return key;
}

/// Keys of all cells in which an equal entity can be, its own first.
void EqualEntities::collectKeys(PlacedEntity const& entity)
{
    m_keys.assign(1, mixedHash(entity.kind, entity.layer));
    if (!entity.place)
        return;
    double const slack = s_cornerTolerances * m_tolerance / m_cell;
    for (double const coordinate : *entity.place) {
        double const at = coordinate / m_cell + s_shift;
        double const cell = std::floor(at);
        double const other = at - cell < slack ? cell - 1 : cell + 1 - at < slack ? cell + 1 : cell;
        for (std::size_t i = 0, count = m_keys.size(); i < count; ++i) {
            if (other != cell)
                m_keys.push_back(withCell(m_keys[i], other));
            m_keys[i] = withCell(m_keys[i], cell);
        }
    }
}

EqualEntities::Range EqualEntities::rangeOf(std::uint64_t key) const
{
    auto const first = std::ranges::lower_bound(m_entries, key, {}, &Entry::key);
    auto const last = std::ranges::upper_bound(m_entries, key, {}, &Entry::key);
    return {static_cast<std::uint32_t>(first - m_entries.begin()),
            static_cast<std::uint32_t>(last - m_entries.begin())};
}

/// The first entry from a place on that is free.
std::uint32_t EqualEntities::free(std::uint32_t at)
{
    while (m_next[at] != at) {
        m_next[at] = m_next[m_next[at]]; // halves the way for those that come later
        at = m_next[at];
    }
    return at;
}

PlacedEntity const* EqualEntities::take(PlacedEntity const& like, Test const& fits)
{
    std::optional<EntitySignature> signature;
    collectKeys(like);
    for (std::uint64_t const key : m_keys)
        if (PlacedEntity const* const found = takeFrom(rangeOf(key), like, signature, fits))
            return found;
    return nullptr;
}

PlacedEntity const* EqualEntities::takeFrom(Range range, PlacedEntity const& like,
                                            std::optional<EntitySignature>& signature, Test const& fits)
{
    if (range.second - range.first <= s_candidates)
        return takeFirst(range, fits);
    if (!signature)
        signature = signatureOf(*like.entity);
    // Most entities that are equal are so exactly; only the others have to look among neighbours.
    double const rounding = s_measureRounding * std::abs(signature->measure);
    for (double const slack : {rounding, rounding + s_measureTolerances * m_tolerance})
        if (PlacedEntity const* const found = takeFirst(partOf(range, *signature, slack), fits))
            return found;
    return nullptr;
}

/// The part of a range, ordered by signature, in which the measure differs by no more than `slack`.
EqualEntities::Range EqualEntities::partOf(Range range, EntitySignature const& signature, double slack) const
{
    auto const first = m_entries.begin() + range.first;
    auto const last = m_entries.begin() + range.second;
    auto const begin = std::partition_point(first, last, [&](Entry const& entry) {
        EntitySignature const& each = entry.signature;
        return each.exact < signature.exact ||
               (each.exact == signature.exact && each.measure < signature.measure - slack);
    });
    auto const end = std::partition_point(begin, last, [&](Entry const& entry) {
        EntitySignature const& each = entry.signature;
        return each.exact == signature.exact && each.measure <= signature.measure + slack;
    });
    return {static_cast<std::uint32_t>(begin - m_entries.begin()),
            static_cast<std::uint32_t>(end - m_entries.begin())};
}

PlacedEntity const* EqualEntities::takeFirst(Range range, Test const& fits)
{
    std::uint32_t at = free(range.first);
    for (std::uint32_t tried = 0; at < range.second && tried < s_candidates; ++tried, at = free(at + 1))
        if (fits(*m_entries[at].entity)) {
            m_next[at] = at + 1;
            return m_entries[at].entity;
        }
    return nullptr;
}

} // namespace ta
