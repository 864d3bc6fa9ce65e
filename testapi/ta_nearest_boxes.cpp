// A tree that halves the boxes along the coordinate in which they differ most. Nodes know the bounds of what is
// below them, so that a heap of boxes in one place is passed over in one step.
#include "testapi/ta_nearest_boxes.h"

#include <algorithm>
#include <cmath>
#include <numeric>

namespace ta {

namespace {

constexpr std::uint32_t s_leafSize = 8;

double distanceToBounds(BoxCorners const& box, BoxCorners const& least, BoxCorners const& greatest)
{
    double distance = 0;
    for (std::size_t i = 0; i < box.size(); ++i)
        distance = std::max({distance, least[i] - box[i], box[i] - greatest[i]});
    return distance;
}

} // namespace

double distanceOf(BoxCorners const& a, BoxCorners const& b)
{
    double distance = 0;
    for (std::size_t i = 0; i < a.size(); ++i)
        distance = std::max(distance, std::abs(a[i] - b[i]));
    return distance;
}

NearestBoxes::NearestBoxes(std::span<BoxCorners const> boxes) : m_boxes(boxes), m_order(boxes.size())
{
    std::iota(m_order.begin(), m_order.end(), 0U);
    if (!m_order.empty())
        build(0, static_cast<std::uint32_t>(m_order.size()));
}

std::uint32_t NearestBoxes::build(std::uint32_t begin, std::uint32_t end)
{
    Node node{m_boxes[m_order[begin]], m_boxes[m_order[begin]], begin, end, 0};
    for (std::uint32_t at = begin; at < end; ++at)
        for (std::size_t i = 0; i < node.least.size(); ++i) {
            node.least[i] = std::min(node.least[i], m_boxes[m_order[at]][i]);
            node.greatest[i] = std::max(node.greatest[i], m_boxes[m_order[at]][i]);
        }
    auto const index = static_cast<std::uint32_t>(m_nodes.size());
    m_nodes.push_back(node);
    if (end - begin <= s_leafSize)
        return index;
    std::size_t widest = 0;
    for (std::size_t i = 1; i < node.least.size(); ++i)
        if (node.greatest[i] - node.least[i] > node.greatest[widest] - node.least[widest])
            widest = i;
    std::uint32_t const middle = begin + (end - begin) / 2;
    std::nth_element(m_order.begin() + begin, m_order.begin() + middle, m_order.begin() + end,
                     [&](std::uint32_t a, std::uint32_t b) { return m_boxes[a][widest] < m_boxes[b][widest]; });
    build(begin, middle);
    m_nodes[index].right = build(middle, end);
    return index;
}

/// Goes down into the nearer half first; what cannot be nearer than the worst one found so far is left out.
class NearestBoxes::Search
{
public:
    Search(NearestBoxes const& tree, BoxCorners const& box, std::size_t count)
        : m_tree(tree), m_box(box), m_count(count)
    {
    }

    std::vector<Found> run()
    {
        if (!m_tree.m_nodes.empty() && m_count > 0)
            visit(0);
        return std::move(m_found);
    }

private:
    double distanceTo(std::uint32_t node) const
    {
        return distanceToBounds(m_box, m_tree.m_nodes[node].least, m_tree.m_nodes[node].greatest);
    }
    void visit(std::uint32_t index)
    {
        Node const& node = m_tree.m_nodes[index];
        if (m_found.size() == m_count && distanceTo(index) >= m_found.back().distance)
            return;
        if (node.right == 0) {
            for (std::uint32_t at = node.begin; at < node.end; ++at)
                take({distanceOf(m_box, m_tree.m_boxes[m_tree.m_order[at]]), m_tree.m_order[at]});
            return;
        }
        std::uint32_t nearer = index + 1, farther = node.right;
        if (distanceTo(farther) < distanceTo(nearer))
            std::swap(nearer, farther);
        visit(nearer);
        visit(farther);
    }
    void take(Found const& found)
    {
        if (m_found.size() == m_count) {
            if (found.distance >= m_found.back().distance)
                return;
            m_found.pop_back();
        }
        auto const isNearer = [](Found const& a, Found const& b) { return a.distance < b.distance; };
        m_found.insert(std::upper_bound(m_found.begin(), m_found.end(), found, isNearer), found);
    }

    NearestBoxes const& m_tree;
    BoxCorners const& m_box;
    std::size_t m_count;
    std::vector<Found> m_found;
};

std::vector<NearestBoxes::Found> NearestBoxes::nearest(BoxCorners const& box, std::size_t count) const
{
    return Search(*this, box, count).run();
}

} // namespace ta
