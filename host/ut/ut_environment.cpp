#include "host/ut/ut_environment.h"

#include <algorithm>
#include <cstdlib>
#include <optional>

namespace ut {

namespace {

/// A reference at the start of a text: the length of all of it and the name in it.
struct Reference
{
    std::size_t length;
    std::wstring_view name;
};

bool isNameCharacter(wchar_t ch, bool isFirst)
{
    bool const isLetter = (ch >= L'a' && ch <= L'z') || (ch >= L'A' && ch <= L'Z') || ch == L'_';
    return isLetter || (!isFirst && ch >= L'0' && ch <= L'9');
}

std::wstring_view leadingName(std::wstring_view text)
{
    std::size_t length = 0;
    while (length < text.size() && isNameCharacter(text[length], length == 0))
        ++length;
    return text.substr(0, length);
}

std::optional<Reference> dollarReference(std::wstring_view text)
{
    bool const isBraced = text.substr(1).starts_with(L'{');
    std::wstring_view const name = leadingName(text.substr(isBraced ? 2 : 1));
    if (name.empty())
        return std::nullopt;
    if (!isBraced)
        return Reference{name.size() + 1, name};
    std::size_t const closing = name.size() + 2;
    if (!text.substr(closing).starts_with(L'}'))
        return std::nullopt;
    return Reference{closing + 1, name};
}

std::optional<Reference> percentReference(std::wstring_view text)
{
    std::size_t const closing = text.find(L'%', 1);
    if (closing == std::wstring_view::npos || closing == 1)
        return std::nullopt;
    return Reference{closing + 1, text.substr(1, closing - 1)};
}

std::optional<Reference> referenceAt(std::wstring_view text)
{
    switch (text.front()) {
    case L'$': return dollarReference(text);
    case L'%': return percentReference(text);
    default: return std::nullopt;
    }
}

/// The variable's value, possibly empty; null when it is not set.
char const* variable(std::wstring_view name)
{
    // The system would take "A=B" for the name of "A=B=value".
    bool const isName = !name.empty() && name.find(L'=') == std::wstring_view::npos;
    return isName ? std::getenv(odWideToUtf8(name).c_str()) : nullptr;
}

std::wstring expanded(std::wstring_view text)
{
    std::wstring out;
    while (!text.empty()) {
        std::optional<Reference> const reference = referenceAt(text);
        char const* const value = reference ? variable(reference->name) : nullptr;
        // Only the sign itself is passed over where nothing is replaced: "50% of %NAME%" holds a reference further
        // on.
        std::size_t const plain = value ? 0 : std::min(text.find_first_of(L"$%", 1), text.size());
        out += value ? odUtf8ToWide(value) : std::wstring(text.substr(0, plain));
        text.remove_prefix(value ? reference->length : plain);
    }
    return out;
}

} // namespace

bool getEnvironment(OdString const& name, OdString* value)
{
    char const* const text = variable(name.str());
    if (!text || !*text)
        return false;
    if (value)
        *value = OdString::fromUtf8(text);
    return true;
}

OdString expandEnvironmentStrings(OdString const& text)
{
    return OdString(expanded(text.str()));
}

std::size_t expandEnvironmentStrings(wchar_t const* text, wchar_t* buffer, std::size_t size)
{
    if (!text || (!buffer && size > 0))
        return 0;
    std::wstring const result = expanded(text);
    std::size_t const needed = result.size() + 1;
    if (needed <= size) {
        result.copy(buffer, result.size());
        buffer[result.size()] = L'\0';
    }
    return needed;
}

} // namespace ut
