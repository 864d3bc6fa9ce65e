#pragma once

#include "host/geom/od_ge_3d.h"
#include "host/sds/sds.h"

#include <memory>
#include <span>

namespace ca {

/// A new node of a type with all values zero; null when memory is short.
sds_resbuf* allocRb(short restype);
/// A text node with a copy of the text; a null text gives an empty one. Null when memory is short.
sds_resbuf* allocRb(wchar_t const* text);
/// A node of type RT3DPOINT. Null when memory is short.
sds_resbuf* allocRb(OdGePoint3d const& point);

/// Frees the node and all after it with what they own, nested lists of any depth too. Null is allowed.
void freeRbList(sds_resbuf* list);

/// Gives a node of a text or binary type a copy of a value and frees its old one; the type stays. False, and
/// nothing changed, when memory is short or, for bytes, when there are more than the count can hold.
bool setRbString(sds_resbuf& node, wchar_t const* text);
bool setRbBinary(sds_resbuf& node, std::span<unsigned char const> bytes);

/// Kind of value of a type of node or of a group code, as one of the codes RTREAL, RTSHORT, RTSTR, RTENAME,
/// RT3DPOINT, RTLONG, RTBINARY, RTINT64; the other codes from 5001 to 5031 stand for themselves. 0 for no kind.
short restypeToResvalType(short restype);

/// Puts a point, a node of type RT3DPOINT, in the place of every list in brackets that holds exactly two or three
/// numbers (RTREAL, RTLONG or RTSHORT) and nothing else; the third coordinate may lack and is 0 then. In place;
/// returns the new first node. Other lists stay.
sds_resbuf* replaceListsByPoints(sds_resbuf* list);

struct RbListDeleter
{
    void operator()(sds_resbuf* list) const { freeRbList(list); }
};
using RbListPtr = std::unique_ptr<sds_resbuf, RbListDeleter>;

/// For tests: while it lives, the n-th allocation (counted from 1) of a node, text or byte block fails, and only
/// that.
class RbAllocFailure
{
public:
    explicit RbAllocFailure(int nth);
    ~RbAllocFailure();
    RbAllocFailure(RbAllocFailure const&) = delete;
    RbAllocFailure& operator=(RbAllocFailure const&) = delete;

private:
    int m_outer;
};

} // namespace ca
