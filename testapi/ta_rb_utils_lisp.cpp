#include "testapi/ta_rb_utils_lisp.h"

#include "testapi/ta_rb_lisp_text.h"

#include <algorithm>
#include <cwchar>
#include <string_view>

namespace ta::lispText {

namespace {

struct Escape
{
    wchar_t letter;
    wchar_t character;
};
constexpr Escape s_escapes[] = {
    {L'\\', L'\\'}, {L'"', L'"'}, {L'e', L'\x1B'}, {L'n', L'\n'}, {L'r', L'\r'}, {L't', L'\t'},
};

} // namespace

bool isNil(std::wstring_view atom)
{
    constexpr std::wstring_view nil = L"nil";
    constexpr wchar_t caseBit = 0x20;
    return std::ranges::equal(atom, nil, {}, [](wchar_t ch) { return static_cast<wchar_t>(ch | caseBit); });
}

wchar_t unescaped(wchar_t letter)
{
    auto const* const found = std::ranges::find(s_escapes, letter, &Escape::letter);
    return found == std::end(s_escapes) ? L'\0' : found->character;
}

wchar_t escaped(wchar_t ch)
{
    auto const* const found = std::ranges::find(s_escapes, ch, &Escape::character);
    return found == std::end(s_escapes) ? L'\0' : found->letter;
}

bool isLiteralBehind(sds_resbuf const* node)
{
    return node && node->restype == RTSTR && isShellCommand(node->resval.rstring);
}

} // namespace ta::lispText

bool isShellCommand(wchar_t const* name)
{
    constexpr std::size_t longestName = 2048;
    if (!name)
        return false;
    name += std::wcsspn(name, L"'_.");
    OdString const bare(std::wstring_view(name, ::wcsnlen(name, longestName)));
    return oa::app()->shellCommands().find(bare).value_or(false);
}
