#include "testapi/ta_utils.h"

namespace ta {

namespace {

// UTF-16 from `bytes`, two bytes a unit: the size of the first `characters` characters. The parser takes a pair of
// surrogates for one character.
std::size_t utf16Size(std::string_view bytes, std::size_t characters, bool isLittleEndian)
{
    std::size_t at = 0;
    for (; characters > 0 && at + 1 < bytes.size(); --characters) {
        auto const high = static_cast<unsigned char>(bytes[at + (isLittleEndian ? 1 : 0)]);
        bool const isPair = (high & 0xFC) == 0xD8;
        at += isPair ? 4 : 2;
    }
    return at;
}

std::size_t prefixSize(std::string const& bytes, std::size_t characters, pugi::xml_encoding encoding)
{
    switch (encoding) {
    case pugi::encoding_utf16_le: return utf16Size(bytes, characters, true);
    case pugi::encoding_utf16_be: return utf16Size(bytes, characters, false);
    case pugi::encoding_utf32_le:
    case pugi::encoding_utf32_be: return 4 * characters;
    case pugi::encoding_latin1: return characters;
    default: break;
    }
    // The parser's own decoder, so that the byte-order mark and bytes that are no text count as they did for it.
    std::wstring const text = pugi::as_wide(bytes);
    return pugi::as_utf8(text.substr(0, characters).c_str()).size();
}

} // namespace

long byteOffset(std::wstring const& path, pugi::xml_node node)
{
    std::ptrdiff_t const characters = node.offset_debug();
    std::string bytes;
    if (characters < 0 || !ut::readWholeFile(path, bytes))
        return -1;
    pugi::xml_document probe;
    pugi::xml_encoding const encoding = probe.load_buffer(bytes.data(), bytes.size()).encoding;
    return static_cast<long>(prefixSize(bytes, static_cast<std::size_t>(characters), encoding));
}

} // namespace ta
