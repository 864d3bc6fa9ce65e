#pragma once

#include "host/root/od_string.h"

#include <compare>
#include <cstdint>

/// Persistent number of an object within its drawing; 0 is no handle.
class OdDbHandle
{
public:
    constexpr OdDbHandle() = default;
    constexpr explicit OdDbHandle(std::uint64_t value) : m_value(value) {}
    /// From 1 to 16 hexadecimal digits, either case, no prefix, no blanks; anything else reads as handle 0.
    explicit OdDbHandle(OdString const& text);
    explicit OdDbHandle(std::string_view text);
    /// A text of 1 to 16 hexadecimal digits, handle 0 too.
    static bool isHandle(OdString const& text);

    constexpr bool isNull() const { return m_value == 0; }
    constexpr std::uint64_t value() const { return m_value; }
    /// Upper case, without leading zeros.
    OdString ascii() const;
    /// The digits written into `buffer`, which has room for 16; returns the text.
    std::string_view write(char (&buffer)[16]) const;

    friend constexpr bool operator==(OdDbHandle a, OdDbHandle b) { return a.m_value == b.m_value; }
    friend constexpr std::strong_ordering operator<=>(OdDbHandle a, OdDbHandle b)
    {
        return a.m_value <=> b.m_value;
    }

private:
    std::uint64_t m_value = 0;
};
