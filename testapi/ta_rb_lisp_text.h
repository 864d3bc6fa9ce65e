#pragma once

#include "testapi/ta_host.h"

#include <string_view>

// What the reader and the printer of LISP texts have to agree on.
namespace ta::lispText {

// Asked of every character that is read, these are inline.

inline bool isBlank(wchar_t ch)
{
    return ch == L' ' || (ch >= L'\t' && ch <= L'\r');
}
/// Whether an atom cannot go on with this character; true for the end of the text.
inline bool endsAtom(wchar_t ch)
{
    return isBlank(ch) || ch == L'(' || ch == L')' || ch == L'"' || ch == L'\'' || ch == 0;
}
/// Whether a number with this character in it is no integer.
inline bool marksReal(wchar_t ch)
{
    return ch == L'.' || ch == L'e' || ch == L'E';
}
/// The atom nil in any case.
bool isNil(std::wstring_view atom);

/// What a letter behind a backslash stands for; 0 for a letter without meaning there.
wchar_t unescaped(wchar_t letter);
/// The letter that stands for a character behind a backslash; 0 for a character that needs none.
wchar_t escaped(wchar_t ch);

/// Whether a quoted text behind this node, null for none, is taken as it stands.
bool isLiteralBehind(sds_resbuf const* node);

} // namespace ta::lispText
