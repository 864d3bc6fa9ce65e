#include "host/app/sys_var_value.h"

#include "host/root/od_error.h"
#include "host/ut/ut_text.h"

namespace ca {

namespace {

bool isIntegral(ESysVarType type)
{
    return type == ESysVarType::kBool || type == ESysVarType::kShort || type == ESysVarType::kInt;
}

bool isPoint(ESysVarType type)
{
    return type == ESysVarType::kPoint2 || type == ESysVarType::kPoint3;
}

/// The row's range, within that of its type.
template <class Integer>
SysVarRange within(SysVarRange range)
{
    return {std::max(range.low, static_cast<double>(std::numeric_limits<Integer>::min())),
            std::min(range.high, static_cast<double>(std::numeric_limits<Integer>::max())), range.withoutLow};
}

SysVarRange effectiveRange(SysVarRow const& row)
{
    switch (row.type) {
    case ESysVarType::kBool: return {0, 1};
    case ESysVarType::kShort: return within<std::int16_t>(row.range);
    case ESysVarType::kInt: return within<std::int32_t>(row.range);
    default: return row.range;
    }
}

/// "Requires an integer between 0 and 1 only."
OdString requirement(SysVarRow const& row)
{
    if (row.type == ESysVarType::kString)
        return L"Requires a text.";
    wchar_t const* const kind = isIntegral(row.type) ? L"an integer"
                                : isPoint(row.type)  ? L"a point"
                                                     : L"a number";
    wchar_t const* const part = isPoint(row.type) ? L" with coordinates" : L"";
    SysVarRange const range = effectiveRange(row);
    OdString const low = ut::formatReal(range.low), high = ut::formatReal(range.high);
    if (std::isfinite(range.low) && std::isfinite(range.high))
        return odFormat(L"Requires %ls%ls between %ls and %ls only.", kind, part, low.c_str(), high.c_str());
    if (!std::isfinite(range.low))
        return odFormat(L"Requires %ls.", kind);
    return odFormat(range.withoutLow ? L"Requires %ls%ls above %ls." : L"Requires %ls%ls not below %ls.", kind,
                    part, low.c_str());
}

[[noreturn]] void refuse(SysVarRow const& row)
{
    throw OdError(eOutOfRange, requirement(row));
}

double checkedNumber(SysVarRow const& row, double number)
{
    SysVarRange const range = effectiveRange(row);
    bool const isLowEnough = number <= range.high;
    bool const isHighEnough = range.withoutLow ? number > range.low : number >= range.low;
    if (!std::isfinite(number) || !isLowEnough || !isHighEnough)
        refuse(row);
    return number;
}

double numberOf(SysVarRow const& row, SysVarValue const& value)
{
    if (auto const* const integer = std::get_if<int>(&value))
        return *integer;
    if (auto const* const real = std::get_if<double>(&value))
        return *real;
    refuse(row);
}

OdGePoint3d pointOf(SysVarRow const& row, SysVarValue const& value)
{
    if (auto const* const point = std::get_if<OdGePoint3d>(&value))
        return *point;
    if (auto const* const point = std::get_if<OdGePoint2d>(&value))
        return {point->x, point->y, 0};
    refuse(row);
}

SysVarValue converted(SysVarRow const& row, SysVarValue const& value)
{
    switch (row.type) {
    case ESysVarType::kBool:
    case ESysVarType::kShort:
    case ESysVarType::kInt: {
        double const number = checkedNumber(row, numberOf(row, value));
        if (number != std::floor(number))
            refuse(row);
        return static_cast<int>(number);
    }
    case ESysVarType::kReal: return checkedNumber(row, numberOf(row, value));
    case ESysVarType::kPoint2: {
        OdGePoint3d const point = pointOf(row, value);
        return OdGePoint2d(checkedNumber(row, point.x), checkedNumber(row, point.y));
    }
    case ESysVarType::kPoint3: {
        OdGePoint3d const point = pointOf(row, value);
        return OdGePoint3d(checkedNumber(row, point.x), checkedNumber(row, point.y), checkedNumber(row, point.z));
    }
    case ESysVarType::kString:
        if (std::holds_alternative<OdString>(value))
            return value;
    }
    refuse(row);
}

SysVarValue pointFromText(SysVarRow const& row, OdString const& text)
{
    double coordinates[3] = {0, 0, 0};
    std::size_t count = 0;
    for (std::wstring_view rest = text.str(); count < 3; rest.remove_prefix(rest.find(L',') + 1)) {
        if (!ut::parseReal(rest.substr(0, rest.find(L',')), coordinates[count++]))
            refuse(row);
        if (rest.find(L',') == std::wstring_view::npos)
            return count < 2     ? refuse(row),
                   SysVarValue() : OdGePoint3d(coordinates[0], coordinates[1], coordinates[2]);
    }
    refuse(row);
}

SysVarValue integerFromText(SysVarRow const& row, OdString const& text)
{
    if (row.type == ESysVarType::kBool && text.equalsNoCase(L"ON"))
        return 1;
    if (row.type == ESysVarType::kBool && text.equalsNoCase(L"OFF"))
        return 0;
    int value = 0;
    if (!ut::parseInt(text.str(), value))
        refuse(row);
    return value;
}

OdString joined(std::initializer_list<double> coordinates)
{
    OdString text;
    for (double const each : coordinates)
        text += (text.isEmpty() ? OdString() : OdString(L",")) + ut::formatRealShortest(each);
    return text;
}

} // namespace

SysVarValue sysVarDefault(SysVarRow const& row)
{
    switch (row.type) {
    case ESysVarType::kBool:
    case ESysVarType::kShort:
    case ESysVarType::kInt: return static_cast<int>(row.x);
    case ESysVarType::kReal: return row.x;
    case ESysVarType::kPoint2: return OdGePoint2d(row.x, row.y);
    case ESysVarType::kPoint3: return OdGePoint3d(row.x, row.y, 0);
    case ESysVarType::kString: break;
    }
    return OdString(row.text);
}

SysVarValue sysVarChecked(SysVarRow const& row, SysVarValue const& value)
{
    SysVarValue result = converted(row, value);
    if (row.check)
        row.check(result);
    return result;
}

SysVarValue sysVarFromText(SysVarRow const& row, OdString const& text)
{
    if (row.type == ESysVarType::kString)
        return text;
    if (isIntegral(row.type))
        return integerFromText(row, text);
    if (isPoint(row.type))
        return pointFromText(row, text);
    double value = 0;
    if (!ut::parseReal(text.str(), value))
        refuse(row);
    return value;
}

OdString sysVarToText(SysVarValue const& value)
{
    if (auto const* const integer = std::get_if<int>(&value))
        return odFormat(L"%d", *integer);
    if (auto const* const real = std::get_if<double>(&value))
        return ut::formatRealShortest(*real);
    if (auto const* const point = std::get_if<OdGePoint2d>(&value))
        return joined({point->x, point->y});
    if (auto const* const point = std::get_if<OdGePoint3d>(&value))
        return joined({point->x, point->y, point->z});
    return std::get<OdString>(value);
}

bool sysVarIsSame(SysVarValue const& a, SysVarValue const& b)
{
    if (a.index() != b.index())
        return false;
    if (auto const* const point = std::get_if<OdGePoint2d>(&a)) {
        auto const& other = std::get<OdGePoint2d>(b);
        return point->x == other.x && point->y == other.y;
    }
    if (auto const* const point = std::get_if<OdGePoint3d>(&a)) {
        auto const& other = std::get<OdGePoint3d>(b);
        return point->x == other.x && point->y == other.y && point->z == other.z;
    }
    return a == b;
}

} // namespace ca
