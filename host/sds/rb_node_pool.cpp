#include "host/sds/rb_node_pool.h"

#include <new>

#if defined(__has_feature)
#define VORN_HAS_ASAN __has_feature(address_sanitizer)
#elif defined(__SANITIZE_ADDRESS__)
#define VORN_HAS_ASAN 1
#else
#define VORN_HAS_ASAN 0
#endif

namespace ca {

#if VORN_HAS_ASAN

sds_resbuf* RbNodePool::take() noexcept
{
    return new (std::nothrow) sds_resbuf{};
}

void RbNodePool::giveBack(sds_resbuf* node) noexcept
{
    delete node;
}

#else

sds_resbuf* RbNodePool::take() noexcept
{
    sds_resbuf* node = m_free;
    if (node) {
        m_free = node->rbnext;
    } else {
        if (m_used == std::tuple_size_v<Slab> && !addSlab())
            return nullptr;
        node = &(*m_slabs.back())[m_used++];
    }
    ++m_live;
    *node = {};
    return node;
}

void RbNodePool::giveBack(sds_resbuf* node) noexcept
{
    node->rbnext = m_free;
    m_free = node;
    if (--m_live == 0)
        startAgain();
}

bool RbNodePool::addSlab() noexcept
{
    try {
        m_slabs.push_back(std::make_unique_for_overwrite<Slab>()); // take() zeroes nodes
    } catch (std::bad_alloc const&) {
        return false;
    }
    m_used = 0;
    return true;
}

/// Keeps one slab, so that a short list made again and again costs no allocation.
void RbNodePool::startAgain() noexcept
{
    m_slabs.resize(1);
    m_used = 0;
    m_free = nullptr;
}

#endif

} // namespace ca
