#include "testapi/ta_resbuf.h"

#include <algorithm>
#include <utility>

namespace ta {

namespace {

// Makes a node and sets its value; null when memory is short.
template <class SetValue>
sds_resbuf* newNode(short type, SetValue setValue)
{
    sds_resbuf* const node = ca::allocRb(type);
    if (node)
        setValue(node->resval);
    return node;
}

sds_resbuf* nodeOf(short value)
{
    return newNode(RTSHORT, [value](sds_resbuf::Value& target) { target.rint = value; });
}

sds_resbuf* nodeOf(long value)
{
    return newNode(RTLONG, [value](sds_resbuf::Value& target) { target.rlong = value; });
}

sds_resbuf* nodeOf(double value)
{
    return newNode(RTREAL, [value](sds_resbuf::Value& target) { target.rreal = value; });
}

sds_resbuf* nodeOf(double const* point)
{
    return newNode(RT3DPOINT, [point](sds_resbuf::Value& target) { std::copy_n(point, 3, target.rpoint); });
}

sds_resbuf* nodeOf(short type, long const* name)
{
    return newNode(type, [name](sds_resbuf::Value& target) { std::copy_n(name, 2, target.rlname); });
}

} // namespace

ResBuf::ResBuf(short value) : m_head(nodeOf(value)) {}
ResBuf::ResBuf(long value) : m_head(nodeOf(value)) {}
ResBuf::ResBuf(double value) : m_head(nodeOf(value)) {}
ResBuf::ResBuf(wchar_t const* text) : m_head(ca::allocRb(text)) {}
ResBuf::ResBuf(double const* point) : m_head(nodeOf(point)) {}
ResBuf::ResBuf(OdGePoint3d const& point) : m_head(ca::allocRb(point)) {}

sds_resbuf* ResBuf::append(short value)
{
    return appendNode(nodeOf(value));
}

sds_resbuf* ResBuf::append(long value)
{
    return appendNode(nodeOf(value));
}

sds_resbuf* ResBuf::append(double value)
{
    return appendNode(nodeOf(value));
}

sds_resbuf* ResBuf::append(wchar_t const* text)
{
    return appendNode(ca::allocRb(text));
}

sds_resbuf* ResBuf::append(double const* point)
{
    return appendNode(nodeOf(point));
}

sds_resbuf* ResBuf::append(OdGePoint3d const& point)
{
    return appendNode(ca::allocRb(point));
}

sds_resbuf* ResBuf::append(short type, long const* name)
{
    return appendNode(nodeOf(type, name));
}

sds_resbuf* ResBuf::appendNode(sds_resbuf* node)
{
    if (node)
        rbAppend(m_head, node);
    return node;
}

sds_resbuf** ResBuf::linkTo(sds_resbuf const* node)
{
    sds_resbuf** link = &m_head;
    while (*link && *link != node)
        link = &(*link)->rbnext;
    return *link == node ? link : nullptr;
}

bool ResBuf::insertBefore(sds_resbuf* node, sds_resbuf const* before)
{
    if (!node)
        return false;
    // Two chains that share a node share all that follow, so one list in the other shows at their ends.
    sds_resbuf const* lastOfChain = node;
    while (lastOfChain->rbnext)
        lastOfChain = lastOfChain->rbnext;
    sds_resbuf** const link = linkTo(before);
    if (!link || linkTo(lastOfChain))
        return false;
    node->rbnext = *link;
    *link = node;
    return true;
}

bool ResBuf::cutAt(sds_resbuf const* node)
{
    sds_resbuf** const link = node ? linkTo(node) : nullptr;
    if (!link)
        return false;
    ca::freeRbList(std::exchange((*link)->rbnext, nullptr));
    return true;
}

sds_resbuf* ResBuf::extract(sds_resbuf* node)
{
    sds_resbuf** const link = node ? linkTo(node) : nullptr;
    if (!link)
        return nullptr;
    *link = std::exchange(node->rbnext, nullptr);
    return node;
}

void ResBuf::destroy()
{
    ca::freeRbList(std::exchange(m_head, nullptr));
}

int rbAppend(sds_resbuf*& head, sds_resbuf* tail)
{
    if (!tail)
        return head ? RTNORM : RTERROR;
    sds_resbuf** link = &head;
    while (*link)
        link = &(*link)->rbnext;
    *link = tail;
    return RTNORM;
}

} // namespace ta
