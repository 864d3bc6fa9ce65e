#include "host/ut/ut_number.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <charconv>
#include <cmath>
#include <limits>
#include <optional>

namespace ut {

namespace {

constexpr std::string_view s_blanks = " \t\r\n\v\f";

template <class Char>
bool isBlank(Char ch)
{
    return std::ranges::any_of(s_blanks, [ch](char blank) { return ch == static_cast<Char>(blank); });
}

template <class Char>
std::basic_string_view<Char> trimmed(std::basic_string_view<Char> text)
{
    while (!text.empty() && isBlank(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && isBlank(text.back()))
        text.remove_suffix(1);
    return text;
}

/// ASCII characters of a short text on the stack, of a long one on the heap: numbers are read by the million.
class NarrowText
{
public:
    /// Other characters than ASCII become "?", which no number holds.
    template <class Char>
    explicit NarrowText(std::basic_string_view<Char> text)
    {
        char* out = m_short.data();
        if (text.size() > m_short.size()) {
            m_long.resize(text.size());
            out = m_long.data();
        }
        std::ranges::transform(
            text, out, [](Char ch) { return ch > Char{0} && ch < Char{0x7F} ? static_cast<char>(ch) : '?'; });
        m_view = {out, text.size()};
    }
    NarrowText(NarrowText const&) = delete;
    NarrowText& operator=(NarrowText const&) = delete;

    std::string_view view() const { return m_view; }

private:
    std::array<char, 64> m_short;
    std::string m_long;
    std::string_view m_view;
};

std::size_t countDigits(std::string_view text)
{
    std::size_t const end = text.find_first_not_of("0123456789");
    return end == std::string_view::npos ? text.size() : end;
}

bool skipSign(std::string_view& text)
{
    bool const hasSign = text.starts_with('+') || text.starts_with('-');
    bool const isNegative = text.starts_with('-');
    text.remove_prefix(hasSign ? 1 : 0);
    return isNegative;
}

/// A real number taken apart; all parts are views of the text.
struct RealParts
{
    bool isNegative = false;
    std::string_view magnitude; // everything but the sign
    std::string_view whole;     // digits before the point
    std::string_view fraction;  // digits behind it
    bool isExponentNegative = false;
    std::string_view exponent;
};

std::optional<RealParts> realParts(std::string_view text)
{
    RealParts parts;
    parts.isNegative = skipSign(text);
    parts.magnitude = text;
    parts.whole = text.substr(0, countDigits(text));
    text.remove_prefix(parts.whole.size());
    if (text.starts_with('.')) {
        text.remove_prefix(1);
        parts.fraction = text.substr(0, countDigits(text));
        text.remove_prefix(parts.fraction.size());
    }
    if (parts.whole.empty() && parts.fraction.empty())
        return std::nullopt;
    if (text.starts_with('e') || text.starts_with('E')) {
        text.remove_prefix(1);
        parts.isExponentNegative = skipSign(text);
        parts.exponent = text.substr(0, countDigits(text));
        text.remove_prefix(parts.exponent.size());
        if (parts.exponent.empty())
            return std::nullopt;
    }
    return text.empty() ? std::optional(parts) : std::nullopt;
}

/// Whether a number that no double can hold is too large, not too small: by the place of its first digit.
bool isTooLarge(RealParts const& parts)
{
    constexpr double farAway = 1e18; // further than any text is long
    double exponent = 0;
    for (char const digit : parts.exponent)
        exponent = std::min(exponent * 10 + (digit - '0'), farAway);
    if (parts.isExponentNegative)
        exponent = -exponent;
    std::size_t const wholeZeros = std::min(parts.whole.find_first_not_of('0'), parts.whole.size());
    std::size_t const fractionZeros = std::min(parts.fraction.find_first_not_of('0'), parts.fraction.size());
    bool const isBelowOne = wholeZeros == parts.whole.size();
    double const place =
        isBelowOne ? -static_cast<double>(fractionZeros) : static_cast<double>(parts.whole.size() - wholeZeros);
    return place + exponent > 0;
}

/// Infinite when the number is too large; nothing when the text is no number.
std::optional<double> realValue(std::string_view text)
{
    std::optional<RealParts> const parts = realParts(text);
    if (!parts)
        return std::nullopt;
    double value = 0;
    std::string_view const digits = parts->magnitude;
    auto const result = std::from_chars(digits.data(), digits.data() + digits.size(), value);
    if (result.ec == std::errc::result_out_of_range)
        value = isTooLarge(*parts) ? std::numeric_limits<double>::infinity() : 0.0;
    return parts->isNegative ? -value : value;
}

template <class Char>
bool parseFinite(std::basic_string_view<Char> text, double& value)
{
    NarrowText const narrow(trimmed(text));
    std::optional<double> const result = realValue(narrow.view());
    if (!result || !std::isfinite(*result))
        return false;
    value = *result;
    return true;
}

template <class Integer>
bool parseInteger(std::wstring_view text, Integer& value)
{
    NarrowText const narrow(trimmed(text));
    std::string_view digits = narrow.view();
    if (digits.starts_with('+') && !digits.substr(1).starts_with('-'))
        digits.remove_prefix(1);
    Integer result = 0;
    auto const [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), result);
    if (error != std::errc() || end != digits.data() + digits.size())
        return false;
    value = result;
    return true;
}

OdString widened(char const* begin, char const* end)
{
    return OdString(std::wstring(begin, end));
}

} // namespace

bool isNumber(wchar_t const* text, double* value)
{
    if (!text)
        return false;
    NarrowText const narrow{std::wstring_view(text)};
    std::optional<double> const result = realValue(narrow.view());
    if (!result)
        return false;
    if (std::isinf(*result))
        errno = ERANGE;
    if (value)
        *value = *result;
    return true;
}

bool parseReal(std::wstring_view text, double& value)
{
    return parseFinite(text, value);
}

bool parseReal(std::string_view text, double& value)
{
    return parseFinite(text, value);
}

bool parseInt(std::wstring_view text, int& value)
{
    return parseInteger(text, value);
}

bool parseInt(std::wstring_view text, unsigned& value)
{
    return parseInteger(text, value);
}

bool parseInt(std::wstring_view text, long long& value)
{
    return parseInteger(text, value);
}

OdString formatReal(double value, int precision)
{
    std::array<char, 32> text;
    int const digits = std::clamp(precision, 1, std::numeric_limits<double>::max_digits10);
    char* const end = text.data() + text.size();
    return widened(text.data(), std::to_chars(text.data(), end, value, std::chars_format::general, digits).ptr);
}

OdString formatRealShortest(double value)
{
    std::array<char, 32> text;
    return widened(text.data(), std::to_chars(text.data(), text.data() + text.size(), value).ptr);
}

} // namespace ut
