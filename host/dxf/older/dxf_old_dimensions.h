#pragma once

#include <cstdint>
#include <span>
#include <string_view>

// Dimension variables that had other names, codes or forms before R2000.

namespace dxf {

/// DIMUNIT (R13, R14) said in one number what DIMLUNIT and DIMFRAC say today.
struct OldDimUnit
{
    std::int16_t unit;
    std::int16_t linearUnit;
    std::int16_t fraction;
};
/// Null for a number that DIMUNIT cannot have.
OldDimUnit const* findOldDimUnit(std::int64_t unit);
/// DIMUNIT for the variables of today.
int oldDimUnitOf(std::int64_t linearUnit, std::int64_t fraction);

/// DIMFIT (R13, R14) said in one number what DIMATFIT and DIMTMOVE say today.
struct OldDimFit
{
    std::int16_t fit;
    std::int16_t arrowTextFit;
    std::int16_t textMove;
};
/// Null for a number that DIMFIT cannot have.
OldDimFit const* findOldDimFit(std::int64_t fit);
/// DIMFIT for the variables of today.
int oldDimFitOf(std::int64_t arrowTextFit, std::int64_t textMove);

inline constexpr int kOldDimUnitCode = 270; ///< in dimension styles
inline constexpr int kOldDimFitCode = 287;

/// Dimension styles held the name of an arrow block under another code than its handle today.
struct OldArrow
{
    std::int16_t code;      ///< group code of the name
    std::int16_t todayCode; ///< of the handle
};
std::span<OldArrow const> oldArrows();

/// R12 had no units of dimensions: they had those of the drawing.
struct OldUnitSource
{
    std::string_view variable; ///< of the drawing, with "$"
    std::string_view dimVariable;
    std::int16_t code; ///< of the dimension variable in styles
};
std::span<OldUnitSource const> oldUnitSources();

} // namespace dxf
