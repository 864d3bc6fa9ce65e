#include "host/sds/ca_resbuf.h"

#include <limits>

namespace {

// va_list may be an array type; within a struct it can be handed on by reference.
struct Arguments
{
    std::va_list list;
};

bool takeShort(sds_resbuf::Value& value, Arguments& from)
{
    int const number = va_arg(from.list, int);
    value.rint = static_cast<short>(number);
    return value.rint == number;
}

bool takePoint(sds_resbuf::Value& value, Arguments& from, int coordinates)
{
    double const* const point = va_arg(from.list, double const*);
    for (int i = 0; point && i < coordinates; ++i)
        value.rpoint[i] = point[i];
    return point != nullptr;
}

bool takeName(sds_resbuf::Value& value, Arguments& from)
{
    std::int64_t const* const name = va_arg(from.list, std::int64_t const*);
    if (!name)
        return false;
    value.rlname[0] = name[0];
    value.rlname[1] = name[1];
    return true;
}

// Takes the value that belongs to the node's type from the arguments.
bool takeValue(sds_resbuf& node, Arguments& from)
{
    switch (ca::restypeToResvalType(node.restype)) {
    case RTREAL: node.resval.rreal = va_arg(from.list, double); return true;
    case RTSHORT: return takeShort(node.resval, from);
    case RTLONG:
    case RTINT64: node.resval.rlong = va_arg(from.list, std::int64_t); return true;
    case RTSTR: return ca::setRbString(node, va_arg(from.list, wchar_t const*));
    case RT3DPOINT: return takePoint(node.resval, from, node.restype == RTPOINT ? 2 : 3);
    case RTENAME: return takeName(node.resval, from);
    case RTLB:
    case RTLE:
    case RTDOTE:
    case RTNIL: return true;
    default: return false;
    }
}

bool fitsShort(int type)
{
    return type >= std::numeric_limits<short>::min() && type <= std::numeric_limits<short>::max();
}

sds_resbuf* buildList(int type, Arguments& from)
{
    ca::RbListPtr head;
    sds_resbuf* tail = nullptr;
    for (; type != 0 && type != RTNONE; type = va_arg(from.list, int)) {
        ca::RbListPtr node(fitsShort(type) ? ca::allocRb(static_cast<short>(type)) : nullptr);
        if (!node || !takeValue(*node, from))
            return nullptr;
        sds_resbuf* const added = node.release();
        if (tail)
            tail->rbnext = added;
        else
            head.reset(added);
        tail = added;
    }
    return head.release();
}

} // namespace

sds_resbuf* sds_buildlist(int type, ...)
{
    Arguments arguments;
    va_start(arguments.list, type);
    sds_resbuf* const list = buildList(type, arguments);
    va_end(arguments.list);
    return list;
}

sds_resbuf* sds_vbuildlist(int type, std::va_list pairs)
{
    Arguments arguments;
    va_copy(arguments.list, pairs);
    sds_resbuf* const list = buildList(type, arguments);
    va_end(arguments.list);
    return list;
}
