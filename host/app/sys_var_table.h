#pragma once

#include "host/app/sys_var.h"

#include <limits>
#include <string_view>

namespace ca {

/// Numbers that a variable takes; for points, each coordinate.
struct SysVarRange
{
    double low = -std::numeric_limits<double>::infinity();
    double high = std::numeric_limits<double>::infinity();
    bool withoutLow = false;
};

/// A system variable as the table describes it. The member functions serve the table: each gives the row with one
/// thing more said about it.
struct SysVarRow
{
    using Getter = SysVarValue (*)(CaDoc const* doc);
    /// Throws OdError, the description of which is the reason shown to the user.
    using Setter = void (*)(CaDoc* doc, SysVarValue const& value);
    /// Throws as a Setter.
    using Check = void (*)(SysVarValue const& value);

    std::string_view name;
    ESysVarType type;
    double x = 0; ///< default: the number, or the coordinates
    double y = 0;
    wchar_t const* text = L""; ///< default of a string
    ESysVarKeeper keeper = ESysVarKeeper::kApplication;
    SysVarRange range = {};
    Check check = nullptr;   ///< what the range cannot say
    short code = 0;          ///< group code of the header variable of that name; 0: not kept in the header
    Getter getter = nullptr; ///< where the value is neither in the header nor in a store
    Setter setter = nullptr; ///< goes with the getter
    bool isReadOnly = false;
    bool isRemembered = false;

    constexpr SysVarRow from(double low, double high) const
    {
        SysVarRow row = *this;
        row.range = {low, high, false};
        return row;
    }
    constexpr SysVarRow positive() const
    {
        SysVarRow row = *this;
        row.range.low = 0;
        row.range.withoutLow = true;
        return row;
    }
    constexpr SysVarRow notNegative() const
    {
        SysVarRow row = *this;
        row.range.low = 0;
        return row;
    }
    constexpr SysVarRow checked(Check function) const
    {
        SysVarRow row = *this;
        row.check = function;
        return row;
    }
    /// Kept in the header of the drawing.
    constexpr SysVarRow header(short groupCode) const
    {
        SysVarRow row = *this;
        row.keeper = ESysVarKeeper::kDrawing;
        row.code = groupCode;
        return row;
    }
    /// Kept with the document.
    constexpr SysVarRow document() const
    {
        SysVarRow row = *this;
        row.keeper = ESysVarKeeper::kDocument;
        return row;
    }
    constexpr SysVarRow readOnly() const
    {
        SysVarRow row = *this;
        row.isReadOnly = true;
        return row;
    }
    constexpr SysVarRow remembered() const
    {
        SysVarRow row = *this;
        row.isRemembered = true;
        return row;
    }
};

/// In the order of subjects.
std::span<SysVarRow const> sysVarTable();

} // namespace ca
