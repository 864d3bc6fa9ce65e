#pragma once

// Failures of tests. There are two shapes: a check, which shows the source text of the expression that did not
// hold, and a plain failure, which shows a text. A source file says in a constant `s_area` to which area of the
// library it belongs, as "testapi/ta_resbuf"; failures give that and the line as their place.

#include "testapi/ta_host.h"

#include <type_traits>

namespace ta {

/// Where a failure was found.
struct Place
{
    char const* area;
    int line;
};

/// Short description "assertion failed", details "Expression: " with the expression, and the message unless empty.
[[noreturn]] void failCheck(char const* expression, OdString const& message, Place place);
/// Short description "forced failure", the text as detail.
[[noreturn]] void failForced(OdString const& text, Place place);

inline void check(bool holds, char const* expression, Place place)
{
    if (!holds)
        failCheck(expression, OdString(), place);
}
/// The message is formatted as by OdString::format, and only when the check fails.
template <class... Arguments>
void check(bool holds, char const* expression, Place place, wchar_t const* format, Arguments... arguments)
{
    static_assert((std::is_scalar_v<Arguments> && ...), "formats take numbers and plain pointers to text");
    if (!holds)
        failCheck(expression, odFormat(format, arguments...), place);
}

} // namespace ta

/// TA_CHECK(expression), TA_CHECK(expression, format, arguments...): fails the running test unless the expression
/// holds. The expression is shown letter for letter.
#define TA_CHECK(expression, ...)                                                                                 \
    ta::check(static_cast<bool>(expression), #expression, ta::Place{s_area, __LINE__} __VA_OPT__(, ) __VA_ARGS__)
