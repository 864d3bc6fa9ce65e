#include "host/geom/curves/od_ge_box_tree.h"

#include <algorithm>
#include <numeric>

OdGeBoxTree::OdGeBoxTree(std::span<OdGeExtents3d const> boxes) : m_boxes(boxes.begin(), boxes.end())
{
    m_order.resize(m_boxes.size());
    std::iota(m_order.begin(), m_order.end(), 0U);
    if (!m_boxes.empty())
        build(0, static_cast<std::uint32_t>(m_boxes.size()));
}

std::uint32_t OdGeBoxTree::build(std::uint32_t first, std::uint32_t end)
{
    constexpr std::uint32_t kLeaf = 4;
    auto const index = static_cast<std::uint32_t>(m_nodes.size());
    m_nodes.emplace_back();
    OdGeExtents3d box;
    for (std::uint32_t i = first; i < end; ++i)
        box.addExt(m_boxes[m_order[i]]);
    m_nodes[index].box = box;
    if (end - first <= kLeaf) {
        m_nodes[index].first = first;
        m_nodes[index].end = end;
        return index;
    }

    // Halves along the longest side, by the centers of the boxes.
    OdGeVector3d const size = box.maxPoint() - box.minPoint();
    double OdGePoint3d::*const axis = size.x >= size.y && size.x >= size.z ? &OdGePoint3d::x
                                      : size.y >= size.z                   ? &OdGePoint3d::y
                                                                           : &OdGePoint3d::z;
    std::uint32_t const middle = first + (end - first) / 2;
    std::nth_element(m_order.begin() + first, m_order.begin() + middle, m_order.begin() + end,
                     [&](std::uint32_t a, std::uint32_t b) {
                         return m_boxes[a].minPoint().*axis + m_boxes[a].maxPoint().*axis <
                                m_boxes[b].minPoint().*axis + m_boxes[b].maxPoint().*axis;
                     });
    std::uint32_t const left = build(first, middle);
    std::uint32_t const right = build(middle, end);
    m_nodes[index].first = left;
    m_nodes[index].second = right;
    return index;
}
