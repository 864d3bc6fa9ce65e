#pragma once

// For the matching of entities: which boxes of many lie nearest to a box.

#include <array>
#include <cstdint>
#include <span>
#include <vector>

namespace ta {

/// Lower corner, then upper corner of a box parallel to the axes. Finite numbers.
using BoxCorners = std::array<double, 6>;

/// The largest difference of a coordinate of their corners.
double distanceOf(BoxCorners const& a, BoxCorners const& b);

/// A search tree over boxes, which have to outlive it. Many boxes in one place make it no slower.
class NearestBoxes
{
public:
    struct Found
    {
        double distance;
        std::uint32_t index;
    };

    explicit NearestBoxes(std::span<BoxCorners const> boxes);
    /// The nearest ones, at most `count`, the nearest first.
    std::vector<Found> nearest(BoxCorners const& box, std::size_t count) const;

private:
    struct Node
    {
        BoxCorners least; ///< of each coordinate among the boxes below
        BoxCorners greatest;
        std::uint32_t begin; ///< places in m_order
        std::uint32_t end;
        std::uint32_t right; ///< the left child follows its parent; 0: no children
    };
    class Search;

    std::uint32_t build(std::uint32_t begin, std::uint32_t end);

    std::span<BoxCorners const> m_boxes;
    std::vector<std::uint32_t> m_order;
    std::vector<Node> m_nodes;
};

} // namespace ta
