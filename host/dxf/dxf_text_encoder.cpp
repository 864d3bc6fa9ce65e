#include "host/dxf/dxf_text_encoder.h"

#include "host/dxf/dxf_utf8.h"

namespace dxf {

namespace {

void appendUnit(std::string& bytes, char32_t unit)
{
    constexpr char kDigits[] = "0123456789ABCDEF";
    bytes += "\\U+";
    for (int shift = 12; shift >= 0; shift -= 4)
        bytes += kDigits[unit >> shift & 0xF];
}

void appendEscape(std::string& bytes, char32_t character)
{
    if (character < 0x10000)
        return appendUnit(bytes, character);
    appendUnit(bytes, 0xD800 + ((character - 0x10000) >> 10));
    appendUnit(bytes, 0xDC00 + (character & 0x3FF));
}

} // namespace

std::string_view TextEncoder::encodeOld(std::string_view utf8)
{
    if (isAscii(utf8))
        return utf8;
    if (!m_codePage)
        m_codePage.emplace(m_codePageName);
    encodeCharacters(utf8, &*m_codePage);
    // Readers take text for UTF-8 that could be such by chance.
    if (!isAscii(m_encoded) && isValidUtf8(m_encoded))
        encodeCharacters(utf8, nullptr);
    return m_encoded;
}

/// Without a code page, all characters beyond ASCII are escaped.
void TextEncoder::encodeCharacters(std::string_view utf8, CodePage const* codePage)
{
    constexpr char32_t kFirstBeyondAscii = 0x80;
    m_encoded.clear();
    while (!utf8.empty()) {
        char32_t const character = takeCharacter(utf8);
        if (character < kFirstBeyondAscii)
            m_encoded += static_cast<char>(character);
        else if (!codePage || !codePage->appendEncoded(character, m_encoded))
            appendEscape(m_encoded, character);
    }
}

} // namespace dxf
