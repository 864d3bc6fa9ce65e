#include "testapi/ta_rb_utils_lisp.h"

#include <algorithm>

namespace ta {

namespace {

bool isCodeOfName(sds_resbuf const& node)
{
    if (node.restype != RTLONG && node.restype != RTSHORT)
        return false;
    std::int64_t const code = node.restype == RTLONG ? node.resval.rlong : node.resval.rint;
    return code == static_cast<short>(code) && ca::restypeToResvalType(static_cast<short>(code)) == RTENAME;
}

/// The dot of a pair (code . handle) that begins here; null for anything else.
sds_resbuf* dotOfHandle(sds_resbuf const& begin)
{
    sds_resbuf const* const code = begin.restype == RTLB ? begin.rbnext : nullptr;
    sds_resbuf* const dot = code && isCodeOfName(*code) ? code->rbnext : nullptr;
    sds_resbuf const* const value = dot && dot->restype == RTDOTE ? dot->rbnext : nullptr;
    bool const isHandle = value && value->restype == RTSTR && value->resval.rstring &&
                          OdDbHandle::isHandle(OdString(value->resval.rstring));
    return isHandle ? dot : nullptr;
}

} // namespace

int nameHandles(sds_resbuf* list, OdDbDatabase& database)
{
    for (sds_resbuf* node = list; node; node = node->rbnext) {
        sds_resbuf* const dot = dotOfHandle(*node);
        if (!dot)
            continue;
        sds_resbuf* const name = ca::allocRb(RTENAME);
        if (!name)
            return kLispNoMemory;
        OdDbHandle const handle{OdString(dot->rbnext->resval.rstring)};
        std::ranges::copy(ca::nameOf(database.getOdDbObjectId(handle)).words, name->resval.rlname);
        ca::RbListPtr const replaced(dot->rbnext);
        name->rbnext = std::exchange(replaced->rbnext, nullptr);
        dot->rbnext = name;
    }
    return kLispOk;
}

} // namespace ta
