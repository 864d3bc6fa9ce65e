#include "host/dxf/dxf_text_decoder.h"

#include <charconv>
#include <cstdint>

namespace dxf {

namespace {

constexpr std::string_view kEscape = "\\U+";
constexpr std::size_t kDigits = 4;

/// Length of the UTF-8 sequence at the beginning of the text; 0 when it is none (overlong forms and surrogates
/// too).
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

bool isUtf8(std::string_view text)
{
    while (!text.empty()) {
        std::size_t const length = sequenceLength(text);
        if (length == 0)
            return false;
        text.remove_prefix(length);
    }
    return true;
}

/// The code unit of an escape at the beginning of the text, or -1.
int escapedUnit(std::string_view text)
{
    if (!text.starts_with(kEscape) || text.size() < kEscape.size() + kDigits)
        return -1;
    char const* const first = text.data() + kEscape.size();
    unsigned unit = 0;
    auto const [end, error] = std::from_chars(first, first + kDigits, unit, 16);
    return error == std::errc() && end == first + kDigits ? static_cast<int>(unit) : -1;
}

void appendCharacter(std::string& utf8, std::uint32_t ch)
{
    auto const put = [&utf8](std::uint32_t byte) { utf8 += static_cast<char>(byte); };
    if (ch < 0x80) {
        put(ch);
    } else if (ch < 0x800) {
        put(0xC0 | ch >> 6);
        put(0x80 | (ch & 0x3F));
    } else if (ch < 0x10000) {
        put(0xE0 | ch >> 12);
        put(0x80 | (ch >> 6 & 0x3F));
        put(0x80 | (ch & 0x3F));
    } else {
        put(0xF0 | ch >> 18);
        put(0x80 | (ch >> 12 & 0x3F));
        put(0x80 | (ch >> 6 & 0x3F));
        put(0x80 | (ch & 0x3F));
    }
}

/// Takes an escape, or two that form a surrogate pair, from the text; false leaves it: escapes of control
/// characters would break the line, lone surrogates are no characters.
bool takeEscape(std::string_view& text, std::string& utf8)
{
    constexpr std::size_t kLength = kEscape.size() + kDigits;
    int const unit = escapedUnit(text);
    if (unit < 0x20 || (unit >= 0xDC00 && unit < 0xE000))
        return false;
    if (unit < 0xD800 || unit >= 0xE000) {
        appendCharacter(utf8, static_cast<std::uint32_t>(unit));
        text.remove_prefix(kLength);
        return true;
    }
    int const trail = escapedUnit(text.substr(kLength));
    if (trail < 0xDC00 || trail >= 0xE000)
        return false;
    appendCharacter(utf8, 0x10000u + (static_cast<std::uint32_t>(unit - 0xD800) << 10) +
                              static_cast<std::uint32_t>(trail - 0xDC00));
    text.remove_prefix(2 * kLength);
    return true;
}

std::string_view unescape(std::string_view text, std::string& buffer)
{
    std::size_t next = text.find(kEscape);
    if (next == std::string_view::npos)
        return text;
    buffer.clear();
    while (next != std::string_view::npos) {
        buffer.append(text.substr(0, next));
        text.remove_prefix(next);
        if (!takeEscape(text, buffer)) {
            buffer += text.front();
            text.remove_prefix(1);
        }
        next = text.find(kEscape);
    }
    buffer.append(text);
    return buffer;
}

} // namespace

std::string_view TextDecoder::decode(std::string_view text)
{
    if (!isUtf8(text)) {
        if (!m_codePage)
            m_codePage.emplace(m_codePageName);
        m_converted.clear();
        m_codePage->appendUtf8(text, m_converted);
        text = m_converted;
    }
    return unescape(text, m_unescaped);
}

} // namespace dxf
