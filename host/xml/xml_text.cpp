#include "host/xml/xml_text.h"

#include "host/ut/ut_number.h"

#include <algorithm>
#include <cmath>

namespace oa {

bool parseCoordinates(std::wstring_view text, CoordinateCount count, Coordinates& coordinates)
{
    Coordinates read{};
    std::size_t found = 0;
    for (bool isMore = true; isMore; ++found) {
        std::size_t const comma = text.find(L',');
        isMore = comma != std::wstring_view::npos;
        if (found == count.most || !ut::parseReal(text.substr(0, comma), read[found]))
            return false;
        text.remove_prefix(isMore ? comma + 1 : text.size());
    }
    if (found < count.least)
        return false;
    coordinates = read;
    return true;
}

bool appendCoordinates(OdString& text, std::span<double const> values, int precision)
{
    if (!std::ranges::all_of(values, [](double value) { return std::isfinite(value); }))
        return false;
    for (std::size_t i = 0; i < values.size(); ++i) {
        if (i > 0)
            text += L',';
        text += ut::formatReal(values[i], precision);
    }
    return true;
}

std::wstring_view takeWord(std::wstring_view& text)
{
    constexpr std::wstring_view blanks = L" \t\r\n";
    text.remove_prefix(std::min(text.find_first_not_of(blanks), text.size()));
    std::wstring_view const word = text.substr(0, text.find_first_of(blanks));
    text.remove_prefix(word.size());
    return word;
}

} // namespace oa
