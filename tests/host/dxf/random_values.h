#pragma once

#include "host/db/filer/od_db_tag_list.h"

#include <random>
#include <span>
#include <string>

/// Random values that drawing files can hold; equal seeds give equal values.
class RandomValues
{
public:
    explicit RandomValues(std::uint64_t seed) : m_engine(seed) {}

    std::uint64_t below(std::uint64_t limit) { return m_engine() % limit; }
    /// True once in `count` times.
    bool oneIn(std::uint64_t count) { return below(count) == 0; }
    template <class Range>
    auto const& pick(Range const& range)
    {
        return std::begin(range)[below(std::size(range))];
    }

    /// Any finite number: everyday ones, both zeros, limits, denormal numbers, any bits.
    double real();
    /// Any integer of the width, the limits often.
    std::int64_t integer(int bits);
    /// UTF-8 of any characters but those that end a line of a file; nothing that a file would spell another way.
    std::string text();
    /// Bytes that fit a chunk of a binary file.
    std::string bytes();
    /// A value as the group code can have it. References are chosen among the handles.
    OdDbTag tag(int code, std::span<OdDbHandle const> handles);

private:
    std::mt19937_64 m_engine;
    std::string m_text; ///< of the last tag
};
