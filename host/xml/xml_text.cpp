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
        OdString const digits = ut::formatReal(values[i], precision);
        double read = 0;
        if (!ut::parseReal(digits.str(), read))
            return false; // rounded up beyond all numbers
        text += digits;
    }
    return true;
}

std::wstring_view takeWord(std::wstring_view& text)
{
    constexpr auto isBlank = [](wchar_t ch) { return ch == L' ' || ch == L'\t' || ch == L'\r' || ch == L'\n'; };
    auto const begin = std::ranges::find_if_not(text, isBlank);
    auto const end = std::find_if(begin, text.end(), isBlank);
    std::wstring_view const word(begin, end);
    text = std::wstring_view(end, text.end());
    return word;
}

} // namespace oa
