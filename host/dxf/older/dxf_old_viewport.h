#pragma once

#include <cstdint>
#include <span>
#include <string_view>

// The view of a VIEWPORT before R2000: not groups of the record but extended data of the application ACAD,
//   1000 MVIEW, 1002 {, 1070 16, the items below, 1002 {, 1003 name of a frozen layer ..., 1002 }, 1002 }

namespace dxf {

inline constexpr std::string_view kOldViewApplication = "ACAD";
inline constexpr std::string_view kOldViewName = "MVIEW";
inline constexpr int kOldViewVersion = 16;

/// Today's groups for the flags of the view and for layers that are frozen in it.
inline constexpr int kViewFlagsCode = 90;
inline constexpr int kViewFrozenLayerCode = 331;

/// One item of the extended data and what it is today.
struct OldViewItem
{
    std::int16_t extendedCode;
    std::int16_t code;     ///< today's group code
    std::uint8_t bits = 0; ///< for kViewFlagsCode: the item is this number of bits in the flags; 1: yes or no
    std::uint8_t shift = 0;

    constexpr bool isFlag() const { return bits > 0; }
    /// What the flags are of an item with the value.
    constexpr std::int64_t flagsOf(std::int64_t value) const
    {
        return (bits == 1 ? std::int64_t{value != 0} : value & mask()) << shift;
    }
    /// The value of the item for flags of today.
    constexpr std::int64_t valueOf(std::int64_t flags) const { return flags >> shift & mask(); }

private:
    constexpr std::int64_t mask() const { return (std::int64_t{1} << bits) - 1; }
};

/// The items in their order.
std::span<OldViewItem const> oldViewItems();

} // namespace dxf
