// Layout of one tag in the buffer: code (2 bytes), kind (1), then 8 bytes of number, or a length (4) and the
// bytes.
#include "host/db/filer/od_db_tag_list.h"

#include "host/root/od_error.h"

#include <cstring>
#include <limits>

namespace {

constexpr std::size_t kHead = 3;

bool holdsBytes(OdDbTagKind kind)
{
    return kind == OdDbTagKind::kText || kind == OdDbTagKind::kBinary;
}

template <class T>
void appendValue(std::string& bytes, T value)
{
    bytes.append(reinterpret_cast<char const*>(&value), sizeof value);
}

template <class T>
T valueAt(char const* at)
{
    T value;
    std::memcpy(&value, at, sizeof value);
    return value;
}

} // namespace

void OdDbTagList::put(OdDbTag const& tag)
{
    appendValue(m_bytes, tag.code);
    appendValue(m_bytes, tag.kind);
    if (!holdsBytes(tag.kind)) {
        appendValue(m_bytes, tag.integer);
        return;
    }
    if (tag.text.size() > std::numeric_limits<std::uint32_t>::max())
        throw OdError(eOutOfRange);
    appendValue(m_bytes, static_cast<std::uint32_t>(tag.text.size()));
    m_bytes.append(tag.text);
}

void OdDbTagList::writeTo(OdDbTagSink& sink) const
{
    for (OdDbTag const tag : *this)
        sink.put(tag);
}

OdDbTag OdDbTagList::Iterator::operator*() const
{
    OdDbTag tag;
    tag.code = valueAt<std::int16_t>(m_at);
    tag.kind = valueAt<OdDbTagKind>(m_at + 2);
    if (holdsBytes(tag.kind))
        tag.text = {m_at + kHead + 4, valueAt<std::uint32_t>(m_at + kHead)};
    else
        tag.integer = valueAt<std::int64_t>(m_at + kHead);
    return tag;
}

OdDbTagList::Iterator& OdDbTagList::Iterator::operator++()
{
    OdDbTag const tag = **this;
    m_at += kHead + (holdsBytes(tag.kind) ? 4 + tag.text.size() : 8);
    return *this;
}

bool odDbHasMarker(OdDbTagList const& tags, std::string_view marker)
{
    return std::any_of(tags.begin(), tags.end(), [marker](OdDbTag const& tag) { return tag.is(100, marker); });
}

std::int64_t odDbIntegerOf(OdDbTagList const& tags, int code, std::int64_t otherwise)
{
    for (OdDbTag const tag : tags)
        if (tag.code == code && tag.kind == OdDbTagKind::kInteger)
            return tag.integer;
    return otherwise;
}
