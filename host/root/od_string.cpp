// Case tables and formatting go through the C.UTF-8 locale, which every installation has and nobody configures.
#include "host/root/od_string.h"

#include <cstdarg>
#include <cstdlib>
#include <cwchar>
#include <cwctype>
#include <iterator>
#include <locale.h>

namespace {

locale_t fixedLocale()
{
    static locale_t const s_locale = newlocale(LC_ALL_MASK, "C.UTF-8", nullptr);
    return s_locale;
}

bool isScalarValue(char32_t ch)
{
    return ch < 0xD800 || (ch > 0xDFFF && ch <= 0x10FFFF);
}

/// Length and payload mask of a UTF-8 lead byte, by its number of leading ones.
struct Lead
{
    int length;
    char32_t bits;
    char32_t smallest;
};

Lead leadOf(unsigned char byte)
{
    if (byte < 0x80)
        return {1, byte, 0};
    if (byte >= 0xC2 && byte < 0xE0)
        return {2, byte & 0x1Fu, 0x80};
    if (byte >= 0xE0 && byte < 0xF0)
        return {3, byte & 0x0Fu, 0x800};
    if (byte >= 0xF0 && byte < 0xF5)
        return {4, byte & 0x07u, 0x10000};
    return {0, 0, 0};
}

void appendUtf8(std::string& out, char32_t ch)
{
    auto const put = [&out](char32_t byte) { out.push_back(static_cast<char>(byte)); };
    if (ch < 0x80) {
        put(ch);
    } else if (ch < 0x800) {
        put(0xC0 | (ch >> 6));
        put(0x80 | (ch & 0x3F));
    } else if (ch < 0x10000) {
        put(0xE0 | (ch >> 12));
        put(0x80 | ((ch >> 6) & 0x3F));
        put(0x80 | (ch & 0x3F));
    } else {
        put(0xF0 | (ch >> 18));
        put(0x80 | ((ch >> 12) & 0x3F));
        put(0x80 | ((ch >> 6) & 0x3F));
        put(0x80 | (ch & 0x3F));
    }
}

/// One conversion of a format: "%-8.3lf" and what follows from it.
struct Conversion
{
    std::wstring text; ///< with "*" replaced by the values
    std::size_t precision = OdString::npos;
    std::size_t width = 0;
    bool toLeft = false;
    std::wstring length; ///< h, hh, l, ll or nothing
    wchar_t kind = 0;
};

/// Reads the conversion behind the "%" at `at`, which moves to its end.
Conversion conversionAt(wchar_t const*& at, va_list& arguments)
{
    Conversion conversion;
    conversion.text = L"%";
    auto const isDigit = [](wchar_t ch) { return ch >= L'0' && ch <= L'9'; };
    auto const number = [&]() -> std::size_t {
        if (*at == L'*') {
            ++at;
            int const value = va_arg(arguments, int);
            conversion.text += std::to_wstring(value);
            conversion.toLeft = conversion.toLeft || value < 0;
            return static_cast<std::size_t>(std::abs(value));
        }
        std::size_t value = 0;
        for (; isDigit(*at); conversion.text += *at++)
            value = value * 10 + static_cast<std::size_t>(*at - L'0');
        return value;
    };
    for (++at; *at && std::wcschr(L"-+ #0", *at); conversion.text += *at++)
        conversion.toLeft = conversion.toLeft || *at == L'-';
    conversion.width = number();
    if (*at == L'.') {
        conversion.text += *at++;
        conversion.precision = number();
    }
    for (; *at == L'h' || *at == L'l'; ++at)
        conversion.length += *at;
    conversion.kind = *at;
    conversion.text += conversion.length;
    if (*at)
        conversion.text += *at++;
    return conversion;
}

template <class T>
void appendNumber(std::wstring& out, Conversion const& conversion, T value)
{
    wchar_t buffer[512];
    int const length = std::swprintf(buffer, std::size(buffer), conversion.text.c_str(), value);
    out += length >= 0 ? std::wstring(buffer, static_cast<std::size_t>(length)) : conversion.text;
}

void appendText(std::wstring& out, Conversion const& conversion, std::wstring_view text)
{
    text = text.substr(0, conversion.precision);
    std::size_t const padding = conversion.width > text.size() ? conversion.width - text.size() : 0;
    out.append(conversion.toLeft ? 0 : padding, L' ').append(text).append(conversion.toLeft ? padding : 0, L' ');
}

void appendArgument(std::wstring& out, Conversion const& conversion, va_list& arguments)
{
    bool const isLong = conversion.length == L"l";
    bool const isLongLong = conversion.length == L"ll";
    switch (conversion.kind) {
    case L'%': out += L'%'; break;
    case L's':
        if (isLong) {
            wchar_t const* const text = va_arg(arguments, wchar_t const*);
            appendText(out, conversion, text ? text : L"(null)");
        } else {
            char const* const text = va_arg(arguments, char const*);
            appendText(out, conversion, odUtf8ToWide(text ? text : "(null)"));
        }
        break;
    case L'c': appendText(out, conversion, std::wstring(1, static_cast<wchar_t>(va_arg(arguments, int)))); break;
    case L'p': appendNumber(out, conversion, va_arg(arguments, void*)); break;
    case L'd':
    case L'i':
    case L'u':
    case L'x':
    case L'X':
    case L'o':
        if (isLongLong)
            appendNumber(out, conversion, va_arg(arguments, long long));
        else if (isLong)
            appendNumber(out, conversion, va_arg(arguments, long));
        else
            appendNumber(out, conversion, va_arg(arguments, int));
        break;
    case L'e':
    case L'E':
    case L'f':
    case L'F':
    case L'g':
    case L'G': appendNumber(out, conversion, va_arg(arguments, double)); break;
    default: out += conversion.text;
    }
}

std::wstring formatted(wchar_t const* pattern, va_list original)
{
    locale_t const previous = uselocale(fixedLocale());
    va_list arguments;
    va_copy(arguments, original);
    std::wstring out;
    for (wchar_t const* at = pattern; *at;) {
        if (*at != L'%') {
            wchar_t const* const end = wcschrnul(at, L'%');
            out.append(at, end);
            at = end;
        } else {
            Conversion const conversion = conversionAt(at, arguments);
            appendArgument(out, conversion, arguments);
        }
    }
    va_end(arguments);
    uselocale(previous);
    return out;
}

} // namespace

wchar_t odToUpper(wchar_t ch)
{
    return static_cast<wchar_t>(towupper_l(static_cast<std::wint_t>(ch), fixedLocale()));
}

wchar_t odToLower(wchar_t ch)
{
    return static_cast<wchar_t>(towlower_l(static_cast<std::wint_t>(ch), fixedLocale()));
}

std::wstring odUtf8ToWide(std::string_view text)
{
    std::wstring out;
    out.reserve(text.size());
    for (std::size_t i = 0; i < text.size();) {
        Lead const lead = leadOf(static_cast<unsigned char>(text[i]));
        char32_t ch = lead.bits;
        bool valid = lead.length > 0 && i + static_cast<std::size_t>(lead.length) <= text.size();
        for (int k = 1; valid && k < lead.length; ++k) {
            auto const byte = static_cast<unsigned char>(text[i + static_cast<std::size_t>(k)]);
            valid = (byte & 0xC0) == 0x80;
            ch = (ch << 6) | (byte & 0x3Fu);
        }
        valid = valid && ch >= lead.smallest && isScalarValue(ch);
        out.push_back(static_cast<wchar_t>(valid ? ch : 0xFFFD));
        i += valid ? static_cast<std::size_t>(lead.length) : 1;
    }
    return out;
}

std::string odWideToUtf8(std::wstring_view text)
{
    std::string out;
    out.reserve(text.size());
    for (wchar_t const wide : text) {
        auto const ch = static_cast<char32_t>(wide);
        appendUtf8(out, isScalarValue(ch) ? ch : 0xFFFD);
    }
    return out;
}

OdString OdString::fromUtf8(std::string_view text)
{
    return OdString(odUtf8ToWide(text));
}

std::string OdString::toUtf8() const
{
    return odWideToUtf8(m_text);
}

OdString OdString::mid(std::size_t first, std::size_t count) const
{
    return first < m_text.size() ? OdString(m_text.substr(first, count)) : OdString();
}

OdString OdString::right(std::size_t count) const
{
    return count < m_text.size() ? OdString(m_text.substr(m_text.size() - count)) : *this;
}

OdString OdString::spanExcluding(std::wstring_view stopCharacters) const
{
    return left(m_text.find_first_of(stopCharacters));
}

OdString& OdString::deleteChars(std::size_t first, std::size_t count)
{
    if (first < m_text.size())
        m_text.erase(first, count);
    return *this;
}

std::size_t OdString::replace(std::wstring_view from, std::wstring_view to)
{
    if (from.empty())
        return 0;
    std::wstring out;
    std::size_t count = 0;
    std::size_t start = 0;
    for (std::size_t at; (at = m_text.find(from, start)) != npos; start = at + from.size(), ++count)
        out.append(m_text, start, at - start).append(to);
    if (count)
        m_text = out.append(m_text, start);
    return count;
}

OdString& OdString::makeUpper()
{
    for (wchar_t& ch : m_text)
        ch = odToUpper(ch);
    return *this;
}

OdString& OdString::makeLower()
{
    for (wchar_t& ch : m_text)
        ch = odToLower(ch);
    return *this;
}

bool OdString::equalsNoCase(OdString const& other) const
{
    if (m_text.size() != other.m_text.size())
        return false;
    for (std::size_t i = 0; i < m_text.size(); ++i)
        if (m_text[i] != other.m_text[i] && odToUpper(m_text[i]) != odToUpper(other.m_text[i]))
            return false;
    return true;
}

OdString& OdString::format(wchar_t const* pattern, ...)
{
    va_list arguments;
    va_start(arguments, pattern);
    m_text = formatted(pattern, arguments);
    va_end(arguments);
    return *this;
}

OdString odFormat(wchar_t const* pattern, ...)
{
    va_list arguments;
    va_start(arguments, pattern);
    OdString text(formatted(pattern, arguments));
    va_end(arguments);
    return text;
}
