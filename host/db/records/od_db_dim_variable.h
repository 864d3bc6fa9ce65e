#pragma once

#include <cstdint>
#include <span>
#include <string_view>

/// A dimension variable: a value that dimension styles hold, and drawings as the current overrides.
struct OdDbDimVariable
{
    enum EKind : std::uint8_t
    {
        kReal,
        kAngle, ///< degrees in styles, radians in headers
        kInteger,
        kText,
        kBlock, ///< arrow block; a null id is the arrow built in
        kTextStyle,
        kLinetype
    };

    std::string_view name; ///< upper case
    std::int16_t code;     ///< group code in the records of dimension styles
    EKind kind;
    double defaultValue; ///< of numbers; texts are empty and references null

    constexpr bool isNumber() const { return kind <= kInteger; }
    constexpr bool isReference() const { return kind >= kBlock; }
};

/// All dimension variables in the order of drawing files.
std::span<OdDbDimVariable const> odDbDimVariables();
/// Null for a name that no dimension variable has.
OdDbDimVariable const* odDbFindDimVariable(std::string_view name);
OdDbDimVariable const* odDbFindDimVariable(int code);
