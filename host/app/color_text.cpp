#include "host/app/color_text.h"

#include "host/ut/ut_number.h"

#include <algorithm>
#include <array>
#include <vector>

namespace ca {

namespace {

constexpr wchar_t const* kNames[] = {L"red", L"yellow", L"green", L"cyan", L"blue", L"magenta", L"white"};
constexpr int kLastIndex = 255;

using Rgb = std::array<int, 3>;

constexpr Rgb kFirst[] = {{255, 0, 0},   {255, 255, 0},   {0, 255, 0},     {0, 255, 255},  {0, 0, 255},
                          {255, 0, 255}, {255, 255, 255}, {128, 128, 128}, {192, 192, 192}};
constexpr Rgb kLast[] = {{51, 51, 51},    {91, 91, 91},    {132, 132, 132},
                         {173, 173, 173}, {214, 214, 214}, {255, 255, 255}};
constexpr int kFirstHue = 10; ///< from here the palette goes around the colors, ten shades of each
constexpr int kFirstGrey = 250;

/// One of the ten shades of one of the 24 hues: five brightnesses, each full and half washed out.
Rgb shade(int index)
{
    constexpr int kBrightness[] = {255, 165, 127, 76, 38};
    constexpr int kStepsOfSixth = 4; // a hue is a quarter of the way between two of the six pure colors
    int const hue = index / 10 - 1;
    int const high = kBrightness[index % 10 / 2];
    int const low = index % 2 == 1 ? high / 2 : 0;
    int const part = hue % kStepsOfSixth;
    int const rising = low + (high - low) * part / kStepsOfSixth;
    int const falling = low + (high - low) * (kStepsOfSixth - part) / kStepsOfSixth;
    switch (hue / kStepsOfSixth) {
    case 0: return {high, rising, low};
    case 1: return {falling, high, low};
    case 2: return {low, high, rising};
    case 3: return {low, falling, high};
    case 4: return {rising, low, high};
    default: return {high, low, falling};
    }
}

Rgb paletteColor(int index)
{
    if (index < kFirstHue)
        return kFirst[index - 1];
    return index < kFirstGrey ? shade(index) : kLast[index - kFirstGrey];
}

int squaredDistance(Rgb const& a, Rgb const& b)
{
    int sum = 0;
    for (std::size_t i = 0; i < a.size(); ++i)
        sum += (a[i] - b[i]) * (a[i] - b[i]);
    return sum;
}

} // namespace

std::int16_t nearestPaletteColor(std::uint8_t red, std::uint8_t green, std::uint8_t blue)
{
    Rgb const wanted{red, green, blue};
    int nearest = 1;
    for (int index = 2; index <= kLastIndex; ++index)
        if (squaredDistance(paletteColor(index), wanted) < squaredDistance(paletteColor(nearest), wanted))
            nearest = index;
    return static_cast<std::int16_t>(nearest);
}

std::optional<OdCmColor> parsePaletteColor(OdString const& text)
{
    auto const* const name = std::ranges::find_if(kNames, [&](auto each) { return text.equalsNoCase(each); });
    if (name != std::end(kNames))
        return OdCmColor(static_cast<std::int16_t>(name - kNames + 1));
    int index = 0;
    if (!ut::parseInt(text.str(), index) || index < 1 || index > kLastIndex)
        return std::nullopt;
    return OdCmColor(static_cast<std::int16_t>(index));
}

std::optional<OdCmColor> parseEntityColor(OdString const& text)
{
    if (text.equalsNoCase(L"BYLAYER"))
        return OdCmColor(OdCmColor::kByLayer);
    if (text.equalsNoCase(L"BYBLOCK"))
        return OdCmColor(OdCmColor::kByBlock);
    return parsePaletteColor(text);
}

std::optional<OdCmColor> parseTrueColor(OdString const& text)
{
    std::vector<std::uint8_t> parts;
    std::wstring_view const all = text.str();
    for (std::size_t start = 0; start <= all.size();) {
        std::size_t const comma = std::min(all.find(L',', start), all.size());
        int part = 0;
        if (!ut::parseInt(all.substr(start, comma - start), part) || part < 0 || part > 255)
            return std::nullopt;
        parts.push_back(static_cast<std::uint8_t>(part));
        start = comma + 1;
    }
    if (parts.size() != 3)
        return std::nullopt;
    return OdCmColor::trueColor(parts[0], parts[1], parts[2], nearestPaletteColor(parts[0], parts[1], parts[2]));
}

OdString colorText(OdCmColor const& color)
{
    if (color.isTrueColor())
        return odFormat(L"%d,%d,%d", color.rgb() >> 16 & 0xFF, color.rgb() >> 8 & 0xFF, color.rgb() & 0xFF);
    if (color.isByLayer() || color.isByBlock())
        return color.isByLayer() ? L"ByLayer" : L"ByBlock";
    int const index = color.colorIndex();
    if (index >= 1 && index <= static_cast<int>(std::size(kNames)))
        return odFormat(L"%d (%ls)", index, kNames[index - 1]);
    return odFormat(L"%d", index);
}

} // namespace ca
