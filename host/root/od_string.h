#pragma once

#include <compare>
#include <cstddef>
#include <functional>
#include <string>
#include <string_view>

/// Wide text (UTF-32 code points). Order and equality go by code point; case changes use a fixed Unicode table,
/// never the process locale.
class OdString
{
public:
    static constexpr std::size_t npos = std::wstring::npos;

    OdString() = default;
    OdString(wchar_t const* text) : m_text(text ? text : L"") {}
    OdString(std::wstring text) : m_text(std::move(text)) {}
    explicit OdString(std::wstring_view text) : m_text(text) {}
    OdString(std::size_t count, wchar_t ch) : m_text(count, ch) {}

    static OdString fromUtf8(std::string_view text);
    std::string toUtf8() const;

    wchar_t const* c_str() const { return m_text.c_str(); }
    std::wstring const& str() const { return m_text; }
    bool isEmpty() const { return m_text.empty(); }
    std::size_t getLength() const { return m_text.size(); }
    wchar_t operator[](std::size_t index) const { return m_text[index]; }

    /// Sub-text; positions beyond the end give an empty text.
    OdString mid(std::size_t first, std::size_t count = npos) const;
    OdString left(std::size_t count) const { return mid(0, count); }
    OdString right(std::size_t count) const;
    /// Position of the first occurrence at or after `from`, or npos.
    std::size_t find(std::wstring_view text, std::size_t from = 0) const { return m_text.find(text, from); }
    std::size_t find(wchar_t ch, std::size_t from = 0) const { return m_text.find(ch, from); }
    bool startsWith(std::wstring_view text) const { return m_text.starts_with(text); }
    /// The leading run of characters that are not in `stopCharacters`.
    OdString spanExcluding(std::wstring_view stopCharacters) const;

    /// Removes up to `count` characters at `first`; removing past the end is not an error.
    OdString& deleteChars(std::size_t first, std::size_t count);
    /// Replaces every occurrence, from left to right; an empty `from` replaces nothing. Returns the number
    /// replaced.
    std::size_t replace(std::wstring_view from, std::wstring_view to);
    OdString& makeUpper();
    OdString& makeLower();
    OdString upper() const { return OdString(*this).makeUpper(); }
    /// Equality without regard to case.
    bool equalsNoCase(OdString const& other) const;

    /// printf-style formatting with %ls, %hs, %d, %i, %f, %g, %.*g, %lx, %ld, %lld. Replaces the contents.
    OdString& format(wchar_t const* pattern, ...);

    OdString& operator+=(OdString const& other)
    {
        m_text += other.m_text;
        return *this;
    }
    OdString& operator+=(wchar_t ch)
    {
        m_text += ch;
        return *this;
    }
    friend OdString operator+(OdString const& a, OdString const& b) { return OdString(a.m_text + b.m_text); }
    friend bool operator==(OdString const& a, OdString const& b) = default;
    friend bool operator==(OdString const& a, wchar_t const* b) { return a.m_text == b; }
    friend std::strong_ordering operator<=>(OdString const& a, OdString const& b) { return a.m_text <=> b.m_text; }

private:
    std::wstring m_text;
};

/// OdString::format as a function.
OdString odFormat(wchar_t const* pattern, ...);

/// UTF-8 to wide text; bytes that are not UTF-8 become U+FFFD, one for each byte.
std::wstring odUtf8ToWide(std::string_view text);
/// Wide text to UTF-8; what is not a Unicode scalar value becomes U+FFFD.
std::string odWideToUtf8(std::wstring_view text);
/// One character through the fixed case tables.
wchar_t odToUpper(wchar_t ch);
wchar_t odToLower(wchar_t ch);

template <>
struct std::hash<OdString>
{
    std::size_t operator()(OdString const& text) const noexcept { return std::hash<std::wstring>()(text.str()); }
};
