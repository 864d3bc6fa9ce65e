#pragma once

#include <string>
#include <string_view>

// UTF-8 byte by byte, for converting the text of files.

namespace dxf {

inline constexpr char32_t kReplacement = 0xFFFD;

/// Length of the UTF-8 sequence at the beginning of the text, which is not empty; 0 when it is none (overlong
/// forms and surrogates too).
std::size_t sequenceLength(std::string_view text);
bool isValidUtf8(std::string_view text);
void appendUtf8(char32_t character, std::string& utf8);
/// Takes the first character from the text, which is not empty; a byte that is no UTF-8 gives U+FFFD.
char32_t takeCharacter(std::string_view& text);

/// The first byte beyond ASCII; the end when there is none.
char const* findNonAscii(char const* begin, char const* end);
inline bool isAscii(std::string_view text)
{
    return findNonAscii(text.data(), text.data() + text.size()) == text.data() + text.size();
}

} // namespace dxf
