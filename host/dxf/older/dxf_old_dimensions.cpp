#include "host/dxf/older/dxf_old_dimensions.h"

#include <algorithm>

namespace dxf {

namespace {

// Of several rows that mean the same today the first one is what today's values become.
// clang-format off
constexpr OldDimUnit kUnits[] = {
    {1, 1, 0}, // scientific
    {2, 2, 0}, // decimal
    {3, 3, 0}, // engineering
    {4, 4, 0}, // architectural, stacked
    {5, 5, 0}, // fractional, stacked
    {6, 4, 2}, // architectural
    {7, 5, 2}, // fractional
    {8, 6, 0}, // as the desktop
};

constexpr OldDimFit kFits[] = {
    {0, 0, 0}, // text and arrows stay together
    {1, 1, 0}, // arrows move first
    {2, 2, 0}, // text moves first
    {3, 3, 0}, // whichever fits best
    {4, 3, 1}, // text gets a leader
    {5, 3, 2}, // text without leader
};

constexpr OldArrow kArrows[] = {{5, 342}, {6, 343}, {7, 344}};

constexpr OldUnitSource kUnitSources[] = {
    {"$LUNITS", "$DIMLUNIT", 277},
    {"$LUPREC", "$DIMDEC",   271},
    {"$LUPREC", "$DIMTDEC",  272},
    {"$AUNITS", "$DIMAUNIT", 275},
    {"$AUPREC", "$DIMADEC",  179},
};
// clang-format on

template <class Row, std::size_t Count, class Test>
Row const* findRow(Row const (&rows)[Count], Test test)
{
    auto const it = std::find_if(std::begin(rows), std::end(rows), test);
    return it == std::end(rows) ? nullptr : it;
}

} // namespace

OldDimUnit const* findOldDimUnit(std::int64_t unit)
{
    return findRow(kUnits, [unit](OldDimUnit const& row) { return row.unit == unit; });
}

int oldDimUnitOf(std::int64_t linearUnit, std::int64_t fraction)
{
    constexpr int kDecimal = 2;
    constexpr std::int64_t kNotStacked = 2;
    std::int64_t const wanted = fraction == kNotStacked ? kNotStacked : 0; // R14 stacks in one way only
    auto const isUnit = [linearUnit](OldDimUnit const& row) { return row.linearUnit == linearUnit; };
    OldDimUnit const* const exact =
        findRow(kUnits, [&](OldDimUnit const& row) { return isUnit(row) && row.fraction == wanted; });
    OldDimUnit const* const row = exact ? exact : findRow(kUnits, isUnit);
    return row ? row->unit : kDecimal;
}

OldDimFit const* findOldDimFit(std::int64_t fit)
{
    return findRow(kFits, [fit](OldDimFit const& row) { return row.fit == fit; });
}

int oldDimFitOf(std::int64_t arrowTextFit, std::int64_t textMove)
{
    constexpr int kBest = 3;
    OldDimFit const* const row = findRow(kFits, [&](OldDimFit const& each) {
        return each.textMove == textMove && (textMove != 0 || each.arrowTextFit == arrowTextFit);
    });
    return row ? row->fit : kBest;
}

std::span<OldArrow const> oldArrows()
{
    return kArrows;
}

std::span<OldUnitSource const> oldUnitSources()
{
    return kUnitSources;
}

} // namespace dxf
