#include "host/sds/ca_resbuf.h"

#include <algorithm>
#include <utility>

namespace ca {
namespace {

constexpr int s_dimensions = 3;

bool takeNumber(sds_resbuf const& node, double& value)
{
    switch (node.restype) {
    case RTREAL: value = node.resval.rreal; return true;
    case RTLONG: value = static_cast<double>(node.resval.rlong); return true;
    case RTSHORT: value = node.resval.rint; return true;
    default: return false;
    }
}

/// The end of the list that begins at a node if it holds two or three numbers alone, which go to `point`; else
/// null.
sds_resbuf* endOfPoint(sds_resbuf const& begin, sds_point& point)
{
    int count = 0;
    sds_resbuf* node = begin.rbnext;
    while (node && count < s_dimensions && takeNumber(*node, point[count])) {
        node = node->rbnext;
        ++count;
    }
    return count >= s_dimensions - 1 && node && node->restype == RTLE ? node : nullptr;
}

} // namespace

sds_resbuf* replaceListsByPoints(sds_resbuf* list)
{
    for (sds_resbuf* node = list; node; node = node->rbnext) {
        sds_point point = {};
        sds_resbuf* const end = node->restype == RTLB ? endOfPoint(*node, point) : nullptr;
        if (!end)
            continue;
        sds_resbuf* const numbers = std::exchange(node->rbnext, end->rbnext);
        end->rbnext = nullptr;
        freeRbList(numbers);
        node->restype = RT3DPOINT;
        std::copy_n(point, s_dimensions, node->resval.rpoint);
    }
    return list;
}

} // namespace ca
