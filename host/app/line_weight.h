#pragma once

#include "host/root/od_string.h"

#include <optional>
#include <span>

namespace ca {

/// The lineweights that entities and layers can have, in hundredths of a millimetre, ascending; without the codes
/// for "by layer", "by block" and the default.
std::span<int const> lineWeights();

inline constexpr int kDefaultLineWeight = -3;
inline constexpr int kLineWeightByBlock = -2;
inline constexpr int kLineWeightByLayer = -1;

/// From millimetres as typed ("0.5") or "Default": the nearest of lineWeights(), or kDefaultLineWeight. None for
/// other texts and for what is not between 0 and 2.11.
std::optional<int> parseLineWeight(OdString const& text);
/// "0.50 mm", or "Default".
OdString lineWeightText(int weight);

/// As parseLineWeight; also "ByLayer" and "ByBlock", in any case.
std::optional<int> parseEntityLineWeight(OdString const& text);
/// As lineWeightText; also "ByLayer", "ByBlock".
OdString entityLineWeightText(int weight);

} // namespace ca
