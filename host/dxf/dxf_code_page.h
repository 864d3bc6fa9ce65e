#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace dxf {

class CodeConverter;

/// A set of characters of old files, with one or two bytes for a character. Bytes below 128 are ASCII in all of
/// them. Converts both ways; what it encodes, it decodes to the same text.
class CodePage
{
public:
    /// A name as $DWGCODEPAGE holds it, such as "ANSI_1252" or "dos850", without regard to case and punctuation;
    /// unknown and empty names stand for ANSI_1252. Throws OdError(eUnsupportedFormat) when the system lacks the
    /// tables of a code page.
    explicit CodePage(std::string_view name);

    /// Text is UTF-8 and not in a code page proper (as the names UTF-8 and ANSI_1200 say).
    bool isUtf8() const { return m_isUtf8; }
    bool hasPairs() const { return !m_pairs.empty(); }

    /// Appends the text as UTF-8; bytes that mean nothing in the code page become U+FFFD.
    void appendUtf8(std::string_view text, std::string& utf8) const;
    /// Whether all bytes of the text mean something.
    bool canDecode(std::string_view text) const;
    /// The character of two bytes, 0 when they mean nothing together.
    char16_t characterOf(unsigned char lead, unsigned char trail) const;

    /// Appends the bytes of a character; false, and nothing is appended, when the code page has none for it.
    /// ASCII alone can be encoded in code pages without tables of their own (UTF-8, ASCII).
    bool appendEncoded(char32_t character, std::string& bytes) const;

private:
    /// What the text begins with.
    struct Step
    {
        char16_t character; ///< 0: bytes that mean nothing
        std::size_t length;
    };
    Step stepOf(std::string_view text) const;

    void loadPairs(CodeConverter& decoder);
    void loadCodes(char const* iconvName);

    bool m_isUtf8 = false;
    std::vector<char16_t> m_singles;    ///< character of each byte; 0 for none
    std::vector<char16_t> m_pairs;      ///< character of lead * 256 + trail; empty without such
    std::vector<bool> m_isLead;         ///< bytes that pairs begin with
    std::vector<bool> m_isTrail;        ///< bytes that pairs end with
    std::vector<std::uint16_t> m_codes; ///< the bytes of each character; 0 for none
};

} // namespace dxf
