#pragma once

#include "host/sds/sds.h"

#include <array>
#include <cstddef>
#include <memory>
#include <vector>

namespace ca {

/// Where the nodes of result buffers come from: lists have millions of them, made and freed one by one. Memory
/// goes back when the last node does. Under the address sanitizer each node is an allocation of its own, so that
/// leaks and uses after freeing are found.
class RbNodePool
{
public:
    /// A node of zeros; null when memory is short.
    sds_resbuf* take() noexcept;
    void giveBack(sds_resbuf* node) noexcept;

private:
    // Small enough that the allocator does not go to the system for each.
    using Slab = std::array<sds_resbuf, 1024>;

    bool addSlab() noexcept;
    void startAgain() noexcept;

    std::vector<std::unique_ptr<Slab>> m_slabs;
    std::size_t m_used = std::tuple_size_v<Slab>; ///< nodes of the last slab that were handed out
    std::size_t m_live = 0;
    sds_resbuf* m_free = nullptr; ///< nodes given back, linked through rbnext
};

} // namespace ca
