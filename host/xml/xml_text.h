#pragma once

#include "host/root/od_string.h"

#include <array>
#include <span>
#include <string_view>

namespace oa {

using Coordinates = std::array<double, 3>;

/// How many coordinates a text may hold.
struct CoordinateCount
{
    std::size_t least;
    std::size_t most;
};

/// Numbers separated by ","; the coordinates that the text does not hold become 0. False, with the target as it
/// was, when the text is malformed.
bool parseCoordinates(std::wstring_view text, CoordinateCount count, Coordinates& coordinates);
/// Appends the numbers separated by ",". False, with the text as it was, when one is not finite.
bool appendCoordinates(OdString& text, std::span<double const> values, int precision);

/// Takes the first word from the front of a text, with the blanks around it; empty when there is none.
std::wstring_view takeWord(std::wstring_view& text);

} // namespace oa
