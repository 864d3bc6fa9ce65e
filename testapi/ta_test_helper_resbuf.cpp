#include "testapi/ta_test_helper.h"

#include <cmath>

namespace ta {

namespace {

/// Node by node: chains of different lengths differ.
bool areChainsEqual(OdResBuf const* a, OdResBuf const* b, double tol)
{
    for (; a && b; a = a->next().get(), b = b->next().get())
        if (!TestHelperEx::resbufsEqual(*a, *b, tol))
            return false;
    return a == b;
}

} // namespace

bool TestHelperEx::resbufsEqual(OdResBuf const& a, OdResBuf const& b, double tol)
{
    if (a.restype() != b.restype())
        return false;
    // Before the exact comparison: that goes to the end of nested chains, here again at each depth.
    if (a.restype() == OdResBuf::kNestedChain)
        return areChainsEqual(a.getResBuf().get(), b.getResBuf().get(), tol);
    if (a == b)
        return true;
    switch (OdDxfCode::_getType(a.restype())) {
    case OdDxfCode::kReal:
    case OdDxfCode::kAngle: return std::abs(a.getDouble() - b.getDouble()) <= tol;
    case OdDxfCode::kPoint: return a.getPoint3d().isEqualTo(b.getPoint3d(), OdGeTol(tol, tol));
    default: return false;
    }
}

} // namespace ta
