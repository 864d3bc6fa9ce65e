#include "host/app/line_weight.h"

#include "host/ut/ut_number.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace ca {

namespace {

constexpr int kWeights[] = {0,  5,  9,  13, 15, 18,  20,  25,  30,  35,  40,  50,
                            53, 60, 70, 80, 90, 100, 106, 120, 140, 158, 200, 211};
constexpr wchar_t const* kDefaultText = L"Default";
constexpr std::pair<int, wchar_t const*> kReferences[] = {{kLineWeightByLayer, L"ByLayer"},
                                                          {kLineWeightByBlock, L"ByBlock"}};

} // namespace

std::span<int const> lineWeights()
{
    return kWeights;
}

std::optional<int> parseLineWeight(OdString const& text)
{
    if (text.equalsNoCase(kDefaultText))
        return kDefaultLineWeight;
    double millimetres = 0;
    if (!ut::parseReal(text.str(), millimetres) || millimetres < 0 || millimetres > 2.11)
        return std::nullopt;
    double const wanted = millimetres * 100;
    return *std::ranges::min_element(kWeights, {}, [wanted](int weight) { return std::abs(weight - wanted); });
}

OdString lineWeightText(int weight)
{
    return weight < 0 ? OdString(kDefaultText) : odFormat(L"%.2f mm", weight / 100.0);
}

std::optional<int> parseEntityLineWeight(OdString const& text)
{
    for (auto const& [weight, name] : kReferences)
        if (text.equalsNoCase(name))
            return weight;
    return parseLineWeight(text);
}

OdString entityLineWeightText(int weight)
{
    for (auto const& [reference, name] : kReferences)
        if (weight == reference)
            return name;
    return lineWeightText(weight);
}

} // namespace ca
