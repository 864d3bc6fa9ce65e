#pragma once

// Small services on text. Numbers in text: ut_number.h, which comes with this header. Text files: ut_text_file.h.

#include "host/root/od_string.h"
#include "host/ut/ut_number.h"

#include <string>
#include <string_view>
#include <vector>

namespace ut {

/// Backslashes become "/", in place. The buffer may be null.
wchar_t* correctSlashes(wchar_t* text);
std::wstring& correctSlashes(std::wstring& text);
OdString& correctSlashes(OdString& text);

/// From the opening double quote of a text to its closing one; null when there is none, or `text` is not at a
/// quote. A backslash hides the character behind it.
wchar_t const* findEndingQuote(wchar_t const* text);

/// Equality without regard to case, by the case table of OdString.
bool compareNamesLowercase(OdString const& a, OdString const& b);

/// The lines of a text without their ends, LF or CRLF; an unterminated last line counts. Views of the text.
std::vector<std::wstring_view> splitLines(std::wstring_view text);

enum class ECase
{
    kSensitive,
    kInsensitive
};
/// Whether all of `text` fits the pattern: "*" is any run of characters, also an empty one, "?" any one character.
bool matchesWildcard(std::wstring_view text, std::wstring_view pattern, ECase letters = ECase::kSensitive);

} // namespace ut
