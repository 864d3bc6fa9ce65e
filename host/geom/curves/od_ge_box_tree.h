#pragma once

#include "host/geom/od_ge_extents3d.h"

#include <cstdint>
#include <span>
#include <vector>

/// Boxes, arranged so that those near another box or near a point are found without looking at all of them. Boxes
/// are named by their index.
class OdGeBoxTree
{
public:
    explicit OdGeBoxTree(std::span<OdGeExtents3d const> boxes);

    /// Calls `function(index)` for each box that comes as near to `box` as `tol`.
    template <class Function>
    void visit(OdGeExtents3d const& box, double tol, Function const& function) const
    {
        if (m_nodes.empty())
            return;
        std::vector<std::uint32_t> open = {0};
        while (!open.empty()) {
            Node const& node = m_nodes[open.back()];
            open.pop_back();
            if (node.box.isDisjoint(box, tol))
                continue;
            if (node.second != 0) {
                open.push_back(node.second);
                open.push_back(node.first);
                continue;
            }
            for (std::uint32_t i = node.first; i < node.end; ++i)
                if (!m_boxes[m_order[i]].isDisjoint(box, tol))
                    function(m_order[i]);
        }
    }

    /// The least of the values that `distance(index)` gives, which are never below the distance of the point from
    /// the box; infinite without boxes. Values above `bound` may be passed over.
    template <class Function>
    double nearest(OdGePoint3d const& point, double bound, Function const& distance) const
    {
        if (m_nodes.empty())
            return bound;
        std::vector<std::uint32_t> open = {0};
        while (!open.empty()) {
            Node const& node = m_nodes[open.back()];
            open.pop_back();
            if (distanceTo(node.box, point) > bound)
                continue;
            if (node.second == 0) {
                for (std::uint32_t i = node.first; i < node.end; ++i)
                    if (distanceTo(m_boxes[m_order[i]], point) <= bound)
                        bound = std::min(bound, distance(m_order[i]));
                continue;
            }
            bool const firstIsNearer =
                distanceTo(m_nodes[node.first].box, point) <= distanceTo(m_nodes[node.second].box, point);
            open.push_back(firstIsNearer ? node.second : node.first);
            open.push_back(firstIsNearer ? node.first : node.second);
        }
        return bound;
    }

    static double distanceTo(OdGeExtents3d const& box, OdGePoint3d const& point)
    {
        return odgeGreater(odgeLesser(point, box.maxPoint()), box.minPoint()).distanceTo(point);
    }

private:
    /// With two children: their indices. A leaf, whose `second` is 0: a stretch of the order of boxes.
    struct Node
    {
        OdGeExtents3d box;
        std::uint32_t first = 0;
        std::uint32_t second = 0;
        std::uint32_t end = 0;
    };
    std::uint32_t build(std::uint32_t first, std::uint32_t end);

    std::vector<OdGeExtents3d> m_boxes;
    std::vector<std::uint32_t> m_order;
    std::vector<Node> m_nodes;
};
