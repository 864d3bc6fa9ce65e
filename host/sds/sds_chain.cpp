// Records as chains. The way back: sds_record.cpp.
#include "host/db/od_db_database.h"
#include "host/sds/sds_record.h"

namespace ca {
namespace {

sds_resbuf* textNode(int code, OdString const& text)
{
    RbListPtr node(allocRb(text.c_str()));
    if (node)
        node->restype = static_cast<short>(code);
    return node.release();
}

sds_resbuf* binaryNode(int code, std::string_view bytes)
{
    RbListPtr node(allocRb(static_cast<short>(code)));
    std::span const all(reinterpret_cast<unsigned char const*>(bytes.data()), bytes.size());
    return node && setRbBinary(*node, all) ? node.release() : nullptr;
}

/// A node for a tag whose kind of value agrees with its code; of a point the first coordinate.
sds_resbuf* nodeOf(OdDbTag const& tag, OdDbDatabase& database)
{
    short const kind = restypeToResvalType(tag.code);
    if (kind == RTSTR)
        return textNode(tag.code,
                        tag.kind == OdDbTagKind::kHandle ? tag.handle().ascii() : OdString::fromUtf8(tag.text));
    if (kind == RTBINARY)
        return binaryNode(tag.code, tag.text);
    sds_resbuf* const node = allocRb(tag.code);
    if (!node)
        return nullptr;
    sds_resbuf::Value& value = node->resval;
    switch (kind) {
    case RTREAL: value.rreal = realInChain(tag); break;
    case RT3DPOINT: value.rpoint[0] = tag.real; break;
    case RTSHORT: value.rint = static_cast<short>(tag.integer); break;
    case RTENAME: {
        SdsName const name = nameOf(database.getOdDbObjectId(tag.handle(), true));
        value.rlname[0] = name.words[0];
        value.rlname[1] = name.words[1];
        break;
    }
    default: value.rlong = tag.integer;
    }
    return node;
}

/// In damaged files values can be of another kind than their code says.
bool agrees(OdDbTag const& tag)
{
    switch (restypeToResvalType(tag.code)) {
    case RTSTR: return tag.kind == OdDbTagKind::kText || tag.kind == OdDbTagKind::kHandle;
    case RTREAL:
    case RT3DPOINT: return tag.kind == OdDbTagKind::kReal;
    case RTSHORT:
    case RTLONG:
    case RTINT64: return tag.kind == OdDbTagKind::kInteger;
    case RTENAME: return tag.kind == OdDbTagKind::kHandle;
    case RTBINARY: return tag.kind == OdDbTagKind::kBinary;
    default: return false;
    }
}

} // namespace

bool SdsChain::append(sds_resbuf* node)
{
    append(RbListPtr(node));
    return !m_isMemoryShort;
}

void SdsChain::append(RbListPtr list)
{
    m_isMemoryShort |= !list;
    if (m_isMemoryShort)
        return;
    sds_resbuf* const first = list.release();
    if (m_last)
        m_last->rbnext = first;
    else
        m_head.reset(first);
    for (m_last = first; m_last->rbnext;)
        m_last = m_last->rbnext;
}

RbListPtr SdsChain::take()
{
    if (m_isMemoryShort)
        m_head.reset();
    m_last = nullptr;
    return std::move(m_head);
}

RbListPtr chainOf(OdDbTagList const& tags, OdDbDatabase& database)
{
    SdsChain chain;
    sds_resbuf* point = nullptr; // that lacks coordinates so far
    int coordinate = 0;
    for (OdDbTag const tag : tags) {
        if (point && tag.code == point->restype + 10 * coordinate && tag.kind == OdDbTagKind::kReal) {
            point->resval.rpoint[coordinate] = tag.real;
            point = ++coordinate < 3 ? point : nullptr;
            continue;
        }
        point = nullptr;
        if (!agrees(tag))
            continue;
        sds_resbuf* const node = nodeOf(tag, database);
        if (chain.append(node) && restypeToResvalType(tag.code) == RT3DPOINT) {
            point = node;
            coordinate = 1;
        }
    }
    return chain.take();
}

} // namespace ca
