#include "host/sds/ca_resbuf.h"

#include "host/db/od_dxf_code.h"
#include "host/sds/rb_node_pool.h"

#include <algorithm>
#include <cwchar>
#include <limits>
#include <new>
#include <utility>

namespace ca {
namespace {

// Allocations left until the one that a test lets fail; 0 when no test wants one.
int s_failAfter = 0;

bool isToFail()
{
    return s_failAfter > 0 && --s_failAfter == 0;
}

template <class T>
T* allocate(std::size_t count)
{
    return isToFail() ? nullptr : new (std::nothrow) T[count];
}

/// Is never destroyed: lists may be freed at the very end of the program.
RbNodePool& nodes()
{
    static RbNodePool& s_nodes = *new RbNodePool;
    return s_nodes;
}

wchar_t* copyText(wchar_t const* text)
{
    std::size_t const size = (text ? std::wcslen(text) : 0) + 1;
    wchar_t* const copy = allocate<wchar_t>(size);
    if (copy)
        std::copy_n(text ? text : L"", size, copy);
    return copy;
}

// Frees what a node owns except a nested list, which is handed out instead.
sds_resbuf* freeValue(sds_resbuf& node)
{
    switch (restypeToResvalType(node.restype)) {
    case RTSTR: delete[] node.resval.rstring; return nullptr;
    case RTBINARY:
    case RTBINARYCHUNK: delete[] node.resval.rbinary.buf; return nullptr;
    case RTRESBUF: return node.resval.rlist;
    default: return nullptr;
    }
}

sds_resbuf* lastOf(sds_resbuf* list)
{
    while (list->rbnext)
        list = list->rbnext;
    return list;
}

short kindOfGroupCode(short code)
{
    // clang-format off
    switch (OdDxfCode::_getType(code)) {
    case OdDxfCode::kString:
    case OdDxfCode::kHandle:
    case OdDxfCode::kComment:     return RTSTR;
    case OdDxfCode::kBool:
    case OdDxfCode::kInt16:       return RTSHORT;
    case OdDxfCode::kInt32:       return RTLONG;
    case OdDxfCode::kInt64:       return RTINT64;
    case OdDxfCode::kBinary:      return RTBINARY;
    case OdDxfCode::kReal:
    case OdDxfCode::kAngle:       return RTREAL;
    case OdDxfCode::kPoint:       return RT3DPOINT;
    case OdDxfCode::kSoftPointer:
    case OdDxfCode::kHardPointer:
    case OdDxfCode::kSoftOwner:
    case OdDxfCode::kHardOwner:
    case OdDxfCode::kEntityName:  return RTENAME;
    case OdDxfCode::kUnknown:     return 0;
    }
    // clang-format on
    return 0;
}

} // namespace

sds_resbuf* allocRb(short restype)
{
    sds_resbuf* const node = isToFail() ? nullptr : nodes().take();
    if (node)
        node->restype = restype;
    return node;
}

sds_resbuf* allocRb(wchar_t const* text)
{
    RbListPtr node(allocRb(RTSTR));
    return node && setRbString(*node, text) ? node.release() : nullptr;
}

sds_resbuf* allocRb(OdGePoint3d const& point)
{
    sds_resbuf* const node = allocRb(RT3DPOINT);
    if (node) {
        node->resval.rpoint[0] = point.x;
        node->resval.rpoint[1] = point.y;
        node->resval.rpoint[2] = point.z;
    }
    return node;
}

void freeRbList(sds_resbuf* list)
{
    // A nested list is put in front of the rest instead of recursing, so that no depth exhausts the stack.
    while (list) {
        sds_resbuf* next = list->rbnext;
        if (sds_resbuf* const nested = freeValue(*list)) {
            lastOf(nested)->rbnext = next;
            next = nested;
        }
        nodes().giveBack(list);
        list = next;
    }
}

bool setRbString(sds_resbuf& node, wchar_t const* text)
{
    wchar_t* const copy = copyText(text);
    if (!copy)
        return false;
    delete[] std::exchange(node.resval.rstring, copy);
    return true;
}

bool setRbBinary(sds_resbuf& node, std::span<unsigned char const> bytes)
{
    if (bytes.size() > static_cast<std::size_t>(std::numeric_limits<std::int32_t>::max()))
        return false;
    unsigned char* const copy = allocate<unsigned char>(bytes.size());
    if (!copy)
        return false;
    std::copy(bytes.begin(), bytes.end(), copy);
    delete[] std::exchange(node.resval.rbinary.buf, copy);
    node.resval.rbinary.clen = static_cast<std::int32_t>(bytes.size());
    return true;
}

short restypeToResvalType(short restype)
{
    switch (restype) {
    case RTANG:
    case RTORINT: return RTREAL;
    case RTPOINT: return RT3DPOINT;
    case RTPICKS: return RTENAME;
    default: return restype >= RTREAL && restype <= RTINT64 ? restype : kindOfGroupCode(restype);
    }
}

RbAllocFailure::RbAllocFailure(int nth) : m_outer(std::exchange(s_failAfter, nth)) {}

RbAllocFailure::~RbAllocFailure()
{
    s_failAfter = m_outer;
}

} // namespace ca
