#pragma once

#include "host/db/filer/od_db_tag.h"

#include <iterator>
#include <string>

/// Tags kept in memory, packed into one buffer: what the host does not interpret and writes back as it was.
/// Two lists are equal when every code and value is (reals bit for bit).
class OdDbTagList : public OdDbTagSink
{
public:
    void put(OdDbTag const& tag) override;
    bool empty() const { return m_bytes.empty(); }
    void clear() { m_bytes.clear(); }
    void writeTo(OdDbTagSink& sink) const;

    class Iterator
    {
    public:
        using value_type = OdDbTag;
        using difference_type = std::ptrdiff_t;
        using iterator_category = std::input_iterator_tag;
        using pointer = OdDbTag const*;
        using reference = OdDbTag;

        explicit Iterator(char const* at) : m_at(at) {}
        OdDbTag operator*() const;
        Iterator& operator++();
        friend bool operator==(Iterator a, Iterator b) { return a.m_at == b.m_at; }

    private:
        char const* m_at;
    };
    Iterator begin() const { return Iterator(m_bytes.data()); }
    Iterator end() const { return Iterator(m_bytes.data() + m_bytes.size()); }

    friend bool operator==(OdDbTagList const& a, OdDbTagList const& b) { return a.m_bytes == b.m_bytes; }

private:
    std::string m_bytes;
};

/// @name What a class of several that share one name in files is recognised by
/// @{
bool odDbHasMarker(OdDbTagList const& tags, std::string_view marker);
/// The first integer of a group; `otherwise` when there is none.
std::int64_t odDbIntegerOf(OdDbTagList const& tags, int code, std::int64_t otherwise = 0);
/// @}
