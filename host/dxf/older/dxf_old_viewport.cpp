#include "host/dxf/older/dxf_old_viewport.h"

namespace dxf {

namespace {

// clang-format off
constexpr OldViewItem kItems[] = {
    {1010, 17}, {1020, 27}, {1030, 37},  // target
    {1010, 16}, {1020, 26}, {1030, 36},  // direction
    {1040, 51},                          // twist angle
    {1040, 45},                          // height
    {1040, 12}, {1040, 22},              // center
    {1040, 42},                          // lens length
    {1040, 43}, {1040, 44},              // front and back clipping plane
    {1070, kViewFlagsCode, 5},           // view mode: perspective, clipping, UCS follows
    {1070, 72},                          // circle zoom
    {1070, kViewFlagsCode, 1, 7},        // fast zoom
    {1070, 74},                          // UCS icon
    {1070, kViewFlagsCode, 1, 8},        // snap
    {1070, kViewFlagsCode, 1, 9},        // grid
    {1070, kViewFlagsCode, 1, 10},       // isometric snap
    {1070, kViewFlagsCode, 2, 12},       // isometric plane
    {1040, 50},                          // snap angle
    {1040, 13}, {1040, 23},              // snap base point
    {1040, 14}, {1040, 24},              // snap spacing
    {1040, 15}, {1040, 25},              // grid spacing
    {1070, kViewFlagsCode, 1, 11},       // hidden lines are removed in plots
};
// clang-format on

} // namespace

std::span<OldViewItem const> oldViewItems()
{
    return kItems;
}

} // namespace dxf
