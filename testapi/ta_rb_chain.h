#pragma once

#include "testapi/ta_host.h"

namespace ta {

/// A list of result buffers that grows at its end and frees itself unless it is handed out.
class RbChain
{
public:
    /// Takes a single node over; false for null.
    bool add(sds_resbuf* node)
    {
        if (!node)
            return false;
        if (m_last)
            m_last->rbnext = node;
        else
            m_head.reset(node);
        m_last = node;
        return true;
    }
    /// The node added last, null for an empty list.
    sds_resbuf const* last() const { return m_last; }
    sds_resbuf* release()
    {
        m_last = nullptr;
        return m_head.release();
    }

private:
    ca::RbListPtr m_head;
    sds_resbuf* m_last = nullptr;
};

} // namespace ta
