#include "host/ut/ut_number.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <limits>
#include <optional>

namespace ut {

namespace {

template <class Char>
bool isBlank(Char ch)
{
    return ch == Char{' '} || (ch >= Char{'\t'} && ch <= Char{'\r'});
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
    explicit NarrowText(std::wstring_view text)
    {
        char* out = m_short.data();
        if (text.size() > m_short.size()) {
            m_long.resize(text.size());
            out = m_long.data();
        }
        std::ranges::transform(text, out,
                               [](wchar_t ch) { return ch > 0 && ch < 0x7F ? static_cast<char>(ch) : '?'; });
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

bool isDigit(char ch)
{
    return ch >= '0' && ch <= '9';
}

bool skipSign(std::string_view& text)
{
    bool const isNegative = text.starts_with('-');
    if (isNegative || text.starts_with('+'))
        text.remove_prefix(1);
    return isNegative;
}

std::string_view takeDigits(std::string_view& text)
{
    auto const end = std::ranges::find_if_not(text, isDigit);
    std::string_view const digits = text.substr(0, static_cast<std::size_t>(end - text.begin()));
    text.remove_prefix(digits.size());
    return digits;
}

/// Whether a number without sign that no double can hold is too large, not too small: by the place of its first
/// digit.
bool isTooLarge(std::string_view number)
{
    constexpr double farAway = 1e18; // further than any text is long
    std::string_view const whole = takeDigits(number);
    std::string_view fraction;
    if (number.starts_with('.')) {
        number.remove_prefix(1);
        fraction = takeDigits(number);
    }
    double exponent = 0;
    bool isExponentNegative = false;
    if (!number.empty()) {
        number.remove_prefix(1); // the "e"
        isExponentNegative = skipSign(number);
        for (char const digit : number)
            exponent = std::min(exponent * 10 + (digit - '0'), farAway);
    }
    std::size_t const wholeZeros = std::min(whole.find_first_not_of('0'), whole.size());
    std::size_t const fractionZeros = std::min(fraction.find_first_not_of('0'), fraction.size());
    bool const isBelowOne = wholeZeros == whole.size();
    double const place =
        isBelowOne ? -static_cast<double>(fractionZeros) : static_cast<double>(whole.size() - wholeZeros);
    return place + (isExponentNegative ? -exponent : exponent) > 0;
}

/// The value of plain decimal digits, at once: as a whole number below 2 to the 53rd they are exact, as is each
/// power of ten up to that of their decimals, so that one division rounds once, as a whole conversion does
/// (Clinger, "How to read floating point numbers accurately", 1990). False for any other text, which may be a
/// number all the same.
template <class Char>
bool parsePlain(std::basic_string_view<Char> text, double& value)
{
    static constexpr double s_powers[] = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,  1e8, 1e9,
                                          1e10, 1e11, 1e12, 1e13, 1e14, 1e15, 1e16, 1e17, 1e18};
    constexpr std::size_t mostDigits = std::size(s_powers) - 1;
    constexpr std::uint64_t firstInexact = std::uint64_t{1} << std::numeric_limits<double>::digits;
    bool const isNegative = text.starts_with(Char{'-'});
    text.remove_prefix(isNegative);
    if (text.empty() || text.size() > mostDigits)
        return false;
    std::uint64_t digits = 0;
    std::size_t point = text.size();
    for (std::size_t i = 0; i < text.size(); ++i) {
        auto const digit = static_cast<std::uint32_t>(text[i]) - std::uint32_t{'0'};
        if (digit <= 9)
            digits = digits * 10 + digit;
        else if (text[i] == Char{'.'} && point == text.size())
            point = i;
        else
            return false;
    }
    bool const hasPoint = point < text.size();
    if (digits >= firstInexact || (hasPoint && text.size() == 1))
        return false;
    double const size = static_cast<double>(digits) / s_powers[hasPoint ? text.size() - point - 1 : 0];
    value = isNegative ? -size : size;
    return true;
}

/// Infinite when the number is too large; nothing when the text is no number.
std::optional<double> realValue(std::string_view text)
{
    bool const isNegative = skipSign(text);
    if (text.empty() || !(isDigit(text.front()) || text.front() == '.'))
        return std::nullopt; // a second sign, or a word that from_chars takes for a number
    double value = 0;
    auto const [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (end != text.data() + text.size())
        return std::nullopt;
    if (error == std::errc::result_out_of_range)
        value = isTooLarge(text) ? std::numeric_limits<double>::infinity() : 0.0;
    else if (error != std::errc())
        return std::nullopt;
    return isNegative ? -value : value;
}

bool parseFinite(std::string_view text, double& value)
{
    std::optional<double> const result = realValue(text);
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
    std::wstring_view const number(text);
    double plain = 0;
    std::optional<double> const result = parsePlain(number, plain) ? plain : realValue(NarrowText(number).view());
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
    std::wstring_view const number = trimmed(text);
    return parsePlain(number, value) || parseFinite(NarrowText(number).view(), value);
}

bool parseReal(std::string_view text, double& value)
{
    std::string_view const number = trimmed(text);
    return parsePlain(number, value) || parseFinite(number, value);
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
