#include "vorntest/line_table.h"

#include <algorithm>
#include <cstdint>
#include <string>

namespace vorntest {

namespace {

// What the parser was not told to read as another encoding is UTF-8; its own decoder drops what is no text as it
// did when it parsed.
std::vector<std::ptrdiff_t> endsInUtf8(std::string_view bytes)
{
    std::wstring const text = pugi::as_wide(std::string(bytes));
    std::vector<std::ptrdiff_t> ends;
    for (std::size_t at = text.find(L'\n'); at != std::wstring::npos; at = text.find(L'\n', at + 1))
        ends.push_back(static_cast<std::ptrdiff_t>(at));
    return ends;
}

/// Text of fixed units, each a character but for the second half of a pair of surrogates in UTF-16.
std::vector<std::ptrdiff_t> endsInUnits(std::string_view bytes, std::size_t unitSize, bool isLittleEndian)
{
    std::vector<std::ptrdiff_t> ends;
    std::ptrdiff_t characters = 0;
    for (std::size_t at = 0; at + unitSize <= bytes.size(); at += unitSize) {
        std::uint32_t unit = 0;
        for (std::size_t i = 0; i < unitSize; ++i) {
            std::size_t const next = isLittleEndian ? unitSize - 1 - i : i;
            unit = (unit << 8) | static_cast<unsigned char>(bytes[at + next]);
        }
        bool const isSecondHalf = unitSize == 2 && (unit & 0xFC00) == 0xDC00;
        if (unit == '\n')
            ends.push_back(characters);
        if (!isSecondHalf)
            ++characters;
    }
    return ends;
}

std::vector<std::ptrdiff_t> lineEnds(std::string_view bytes, pugi::xml_encoding encoding)
{
    switch (encoding) {
    case pugi::encoding_utf16_le: return endsInUnits(bytes, 2, true);
    case pugi::encoding_utf16_be: return endsInUnits(bytes, 2, false);
    case pugi::encoding_utf32_le: return endsInUnits(bytes, 4, true);
    case pugi::encoding_utf32_be: return endsInUnits(bytes, 4, false);
    case pugi::encoding_latin1: return endsInUnits(bytes, 1, true);
    default: return endsInUtf8(bytes);
    }
}

} // namespace

LineTable::LineTable(std::string_view bytes, pugi::xml_encoding encoding) : m_ends(lineEnds(bytes, encoding)) {}

int LineTable::line(std::ptrdiff_t offset) const
{
    auto const end = std::ranges::lower_bound(m_ends, offset);
    return 1 + static_cast<int>(end - m_ends.begin());
}

} // namespace vorntest
