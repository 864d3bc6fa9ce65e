// Entities in one place form a site, so that stacks of them cost no more than single ones. Each site looks for the
// nearest ones of the other side; of all pairs of sites, the nearest are served first.
#include "testapi/ta_nearest_pairs.h"

#include <algorithm>
#include <cmath>
#include <map>

namespace ta {

namespace {

/// Looked at for each site: one nearer to another site leaves room for the next.
constexpr std::size_t s_neighbours = 4;
/// Of the diagonal of everything: how far an entity may have been moved whatever its size.
constexpr double s_smallMove = 0.05;

struct Site
{
    std::vector<std::uint32_t> entities;
    std::size_t numPaired = 0;

    bool isLeft() const { return numPaired < entities.size(); }
    std::uint32_t next() { return entities[numPaired++]; }
};

/// The sites of one class in one of the lists.
struct Sites
{
    std::vector<BoxCorners> places;
    std::vector<Site> sites;

    void add(BoxCorners const& place, std::uint32_t index)
    {
        if (places.empty() || places.back() != place) {
            places.push_back(place);
            sites.emplace_back();
        }
        sites.back().entities.push_back(index);
    }
};

struct Candidate
{
    double distance;
    std::uint32_t first;
    std::uint32_t second;

    auto operator<=>(Candidate const&) const = default;
};

double diagonalOf(BoxCorners const& box)
{
    return std::hypot(box[3] - box[0], box[4] - box[1], box[5] - box[2]);
}

double diagonalOfAll(std::vector<PlacedEntity> const& first, std::vector<PlacedEntity> const& second)
{
    OdGeExtents3d all;
    for (auto const* const list : {&first, &second})
        for (PlacedEntity const& entity : *list)
            if (entity.place) {
                BoxCorners const& box = *entity.place;
                all.addExt({{box[0], box[1], box[2]}, {box[3], box[4], box[5]}});
            }
    return all.isValidExtents() ? (all.maxPoint() - all.minPoint()).length() : 0;
}

using SitesOfKinds = std::map<std::uint64_t, Sites>;

SitesOfKinds sitesOf(std::vector<PlacedEntity> const& entities)
{
    std::vector<PlacedEntity const*> ordered;
    for (PlacedEntity const& entity : entities)
        if (entity.place)
            ordered.push_back(&entity);
    std::ranges::stable_sort(
        ordered, {}, [](PlacedEntity const* entity) -> auto const& { return *entity->place; });
    SitesOfKinds sites;
    for (PlacedEntity const* const entity : ordered)
        sites[entity->kind].add(*entity->place, entity->index);
    return sites;
}

class SitePairing
{
public:
    SitePairing(Sites& first, Sites& second, double smallMove)
        : m_first(first), m_second(second), m_smallMove(smallMove)
    {
    }

    void run(std::vector<std::pair<std::uint32_t, std::uint32_t>>& pairs)
    {
        collect(m_first, m_second, [](std::uint32_t of, std::uint32_t near) { return std::pair(of, near); });
        collect(m_second, m_first, [](std::uint32_t of, std::uint32_t near) { return std::pair(near, of); });
        std::ranges::sort(m_candidates);
        for (Candidate const& candidate : m_candidates) {
            Site& first = m_first.sites[candidate.first];
            Site& second = m_second.sites[candidate.second];
            while (first.isLeft() && second.isLeft())
                pairs.emplace_back(first.next(), second.next());
        }
    }

private:
    template <class Order>
    void collect(Sites const& of, Sites const& among, Order const& order)
    {
        NearestBoxes const tree(among.places);
        for (std::uint32_t i = 0; i < of.places.size(); ++i)
            for (NearestBoxes::Found const& found : tree.nearest(of.places[i], s_neighbours)) {
                double const size = std::max(diagonalOf(of.places[i]), diagonalOf(among.places[found.index]));
                auto const [first, second] = order(i, found.index);
                if (found.distance <= size + m_smallMove)
                    m_candidates.push_back({found.distance, first, second});
            }
    }

    Sites& m_first;
    Sites& m_second;
    double m_smallMove;
    std::vector<Candidate> m_candidates;
};

} // namespace

std::vector<std::pair<std::uint32_t, std::uint32_t>> nearestPairs(std::vector<PlacedEntity> const& first,
                                                                  std::vector<PlacedEntity> const& second)
{
    std::vector<std::pair<std::uint32_t, std::uint32_t>> pairs;
    double const smallMove = s_smallMove * diagonalOfAll(first, second);
    SitesOfKinds others = sitesOf(second);
    for (SitesOfKinds sites = sitesOf(first); auto& [kind, ofKind] : sites)
        if (auto const found = others.find(kind); found != others.end())
            SitePairing(ofKind, found->second, smallMove).run(pairs);
    return pairs;
}

} // namespace ta
