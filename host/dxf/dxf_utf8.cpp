#include "host/dxf/dxf_utf8.h"

#include <cstdint>
#include <cstring>

namespace dxf {

std::size_t sequenceLength(std::string_view text)
{
    auto const byte = [text](std::size_t i) { return static_cast<unsigned char>(text[i]); };
    unsigned const lead = byte(0);
    if (lead < 0x80)
        return 1;
    std::size_t const length = lead >= 0xC2 && lead < 0xE0   ? 2
                               : lead >= 0xE0 && lead < 0xF0 ? 3
                               : lead < 0xF5                 ? 4
                                                             : 0;
    if (lead < 0xC2 || length == 0 || text.size() < length)
        return 0;
    for (std::size_t i = 1; i < length; ++i)
        if ((byte(i) & 0xC0u) != 0x80u)
            return 0;
    unsigned const second = byte(1);
    bool const isOutside = (lead == 0xE0 && second < 0xA0) || (lead == 0xED && second > 0x9F) ||
                           (lead == 0xF0 && second < 0x90) || (lead == 0xF4 && second > 0x8F);
    return isOutside ? 0 : length;
}

bool isValidUtf8(std::string_view text)
{
    while (!text.empty()) {
        std::size_t const length = sequenceLength(text);
        if (length == 0)
            return false;
        text.remove_prefix(length);
    }
    return true;
}

void appendUtf8(char32_t character, std::string& utf8)
{
    auto const put = [&utf8](char32_t byte) { utf8 += static_cast<char>(byte); };
    if (character < 0x80) {
        put(character);
    } else if (character < 0x800) {
        put(0xC0 | character >> 6);
        put(0x80 | (character & 0x3F));
    } else if (character < 0x10000) {
        put(0xE0 | character >> 12);
        put(0x80 | (character >> 6 & 0x3F));
        put(0x80 | (character & 0x3F));
    } else {
        put(0xF0 | character >> 18);
        put(0x80 | (character >> 12 & 0x3F));
        put(0x80 | (character >> 6 & 0x3F));
        put(0x80 | (character & 0x3F));
    }
}

char32_t takeCharacter(std::string_view& text)
{
    constexpr unsigned kLeadBits[] = {0, 0x7F, 0x1F, 0x0F, 0x07}; // by the length of the sequence
    std::size_t const length = sequenceLength(text);
    char32_t character = kReplacement;
    if (length != 0) {
        character = static_cast<unsigned char>(text[0]) & kLeadBits[length];
        for (std::size_t i = 1; i < length; ++i)
            character = character << 6 | (static_cast<unsigned char>(text[i]) & 0x3Fu);
    }
    text.remove_prefix(length == 0 ? 1 : length);
    return character;
}

char const* findNonAscii(char const* begin, char const* end)
{
    constexpr std::uint64_t kHighBits = 0x8080808080808080;
    char const* p = begin;
    for (std::uint64_t word = 0; end - p >= static_cast<std::ptrdiff_t>(sizeof word); p += sizeof word) {
        std::memcpy(&word, p, sizeof word);
        if (word & kHighBits)
            break;
    }
    while (p != end && static_cast<unsigned char>(*p) < 0x80)
        ++p;
    return p;
}

} // namespace dxf
