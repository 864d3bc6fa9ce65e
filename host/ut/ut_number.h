#pragma once

// Numbers in text, read and written without regard to the locale: "." before decimals, no grouping.

#include "host/root/od_string.h"

#include <string_view>

namespace ut {

/// Whether the whole text is a number: an optional sign, digits with at most one ".", at least one digit,
/// optionally "e" or "E" with an exponent; no blanks. Only then is `value` set (it may be null). A number too
/// large gives an infinite value and sets errno to ERANGE (otherwise errno stays); one too small gives 0.
bool isNumber(wchar_t const* text, double* value);

// The functions below take a whole text, blanks around it skipped. When it is not a number or does not fit the
// type, they are false and leave `value` as it is.

/// A number as isNumber() takes it, finite.
bool parseReal(std::wstring_view text, double& value);
bool parseReal(std::string_view text, double& value);
/// Decimal digits with an optional sign.
bool parseInt(std::wstring_view text, int& value);
bool parseInt(std::wstring_view text, unsigned& value);
bool parseInt(std::wstring_view text, long long& value);

/// As printf's "%.<precision>g": at most that many significant digits (1 to 17), no trailing zeros.
OdString formatReal(double value, int precision = 15);
/// The shortest text that reads back as the same value.
OdString formatRealShortest(double value);

} // namespace ut
