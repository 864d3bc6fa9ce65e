#include "host/ut/ut_text.h"

#include <algorithm>

namespace ut {

wchar_t* correctSlashes(wchar_t* text)
{
    for (wchar_t* at = text; at && *at; ++at)
        if (*at == L'\\')
            *at = L'/';
    return text;
}

std::wstring& correctSlashes(std::wstring& text)
{
    std::ranges::replace(text, L'\\', L'/');
    return text;
}

OdString& correctSlashes(OdString& text)
{
    text.replace(L"\\", L"/");
    return text;
}

wchar_t const* findEndingQuote(wchar_t const* text)
{
    if (!text || *text != L'"')
        return nullptr;
    for (++text; *text; ++text) {
        if (*text == L'"')
            return text;
        if (*text == L'\\' && text[1])
            ++text;
    }
    return nullptr;
}

bool compareNamesLowercase(OdString const& a, OdString const& b)
{
    return a.equalsNoCase(b);
}

std::vector<std::wstring_view> splitLines(std::wstring_view text)
{
    std::vector<std::wstring_view> lines;
    while (!text.empty()) {
        std::size_t const end = std::min(text.find(L'\n'), text.size());
        std::wstring_view line = text.substr(0, end);
        if (end < text.size() && line.ends_with(L'\r'))
            line.remove_suffix(1);
        lines.push_back(line);
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    return lines;
}

bool matchesWildcard(std::wstring_view text, std::wstring_view pattern, ECase letters)
{
    auto const fits = [letters](wchar_t ch, wchar_t wanted) {
        return wanted == L'?' || ch == wanted ||
               (letters == ECase::kInsensitive && odToLower(ch) == odToLower(wanted));
    };
    // On a misfit the latest "*" takes one character more; an earlier one never needs to.
    constexpr std::size_t none = std::wstring_view::npos;
    std::size_t t = 0;
    std::size_t p = 0;
    std::size_t star = none;
    std::size_t starText = 0;
    while (t < text.size()) {
        if (p < pattern.size() && pattern[p] == L'*') {
            star = p++;
            starText = t;
        } else if (p < pattern.size() && fits(text[t], pattern[p])) {
            ++t;
            ++p;
        } else if (star != none) {
            p = star + 1;
            t = ++starText;
        } else {
            return false;
        }
    }
    return pattern.find_first_not_of(L'*', p) == none;
}

} // namespace ut
