#include "host/dxf/dxf_code_page.h"

#include "host/dxf/dxf_utf8.h"
#include "host/root/od_error.h"
#include "host/root/od_string.h"

#include <algorithm>
#include <array>

#include <iconv.h>

namespace dxf {

namespace {

constexpr unsigned kFirstByte = 0x80;
constexpr std::size_t kBytes = 256;
constexpr unsigned kFirstTrail = 0x31;
constexpr std::size_t kCharacters = 0x10000;

/// A code page by the part of its names that tells it from others: "1252" for ANSI_1252, CP1252, WINDOWS-1252.
struct Row
{
    std::string_view name;
    char const* iconvName;
    enum EKind
    {
        kSingles, ///< one byte for a character
        kPairs,   ///< one or two
        kAscii,   ///< read by the table all the same
        kUtf8     ///< the table is for text that is no UTF-8
    } kind = kSingles;
};

// The national standards of Asia stand for what systems make of them: the code pages that hold them and more.
// clang-format off
constexpr Row s_rows[] = {
    {"1252", "CP1252"},  {"1250", "CP1250"},  {"1251", "CP1251"},  {"1253", "CP1253"},  {"1254", "CP1254"},
    {"1255", "CP1255"},  {"1256", "CP1256"},  {"1257", "CP1257"},  {"1258", "CP1258"},  {"874", "CP874"},
    {"437", "CP437"},    {"737", "CP737"},    {"775", "CP775"},    {"850", "CP850"},    {"852", "CP852"},
    {"855", "CP855"},    {"857", "CP857"},    {"858", "CP858"},    {"860", "CP860"},    {"861", "CP861"},
    {"862", "CP862"},    {"863", "CP863"},    {"864", "CP864"},    {"865", "CP865"},    {"866", "CP866"},
    {"869", "CP869"},
    {"ISO88591", "ISO-8859-1"},     {"ISO88592", "ISO-8859-2"},     {"ISO88593", "ISO-8859-3"},
    {"ISO88594", "ISO-8859-4"},     {"ISO88595", "ISO-8859-5"},     {"ISO88596", "ISO-8859-6"},
    {"ISO88597", "ISO-8859-7"},     {"ISO88598", "ISO-8859-8"},     {"ISO88599", "ISO-8859-9"},
    {"ISO885913", "ISO-8859-13"},   {"ISO885915", "ISO-8859-15"},
    {"MACROMAN", "MACINTOSH"},  {"MACINTOSH", "MACINTOSH"}, {"MAC", "MACINTOSH"},       {"10000", "MACINTOSH"},
    {"932", "CP932", Row::kPairs},     {"936", "CP936", Row::kPairs},     {"949", "CP949", Row::kPairs},
    {"950", "CP950", Row::kPairs},     {"1361", "CP1361", Row::kPairs},   {"SHIFTJIS", "CP932", Row::kPairs},
    {"SJIS", "CP932", Row::kPairs},    {"GB2312", "CP936", Row::kPairs},  {"GBK", "CP936", Row::kPairs},
    {"KSC5601", "CP949", Row::kPairs}, {"BIG5", "CP950", Row::kPairs},    {"JOHAB", "CP1361", Row::kPairs},
    {"ASCII", "CP1252", Row::kAscii},   {"USASCII", "CP1252", Row::kAscii},
    {"UTF8", "CP1252", Row::kUtf8},     {"65001", "CP1252", Row::kUtf8},
    {"1200", "CP1252", Row::kUtf8}, // stands for Unicode, but lines of text cannot hold its UTF-16
};
// clang-format on

constexpr std::string_view kMakers[] = {"ANSI", "CP", "DOS", "IBM", "OEM", "WINDOWS"};

/// Letters, which become large, and digits; nothing of the names of makers before a number.
std::string essenceOf(std::string_view name)
{
    std::string essence;
    for (char const ch : name) {
        if (ch >= 'a' && ch <= 'z')
            essence += static_cast<char>(ch - 'a' + 'A');
        else if ((ch >= 'A' && ch <= 'Z') || (ch >= '0' && ch <= '9'))
            essence += ch;
    }
    for (std::string_view const maker : kMakers)
        if (essence.starts_with(maker) && essence.find_first_not_of("0123456789", maker.size()) == essence.npos)
            return essence.substr(maker.size());
    return essence;
}

Row const& rowOf(std::string_view name)
{
    std::string const essence = essenceOf(name);
    Row const* const row = std::find_if(std::begin(s_rows), std::end(s_rows),
                                        [&essence](Row const& candidate) { return candidate.name == essence; });
    return row == std::end(s_rows) ? s_rows[0] : *row;
}

} // namespace

/// Converts single characters with the tables of the system.
class CodeConverter
{
public:
    CodeConverter(char const* to, char const* from) : m_converter(::iconv_open(to, from))
    {
        if (m_converter == reinterpret_cast<iconv_t>(-1)) // NOLINT(performance-no-int-to-ptr): how iconv says no
            throw OdError(eUnsupportedFormat,
                          odFormat(L"This system cannot convert text between the code pages %ls and %ls",
                                   OdString::fromUtf8(from).c_str(), OdString::fromUtf8(to).c_str()));
    }
    ~CodeConverter() { ::iconv_close(m_converter); }
    CodeConverter(CodeConverter const&) = delete;
    CodeConverter& operator=(CodeConverter const&) = delete;

    /// Converts one or two bytes. The result is a number: its bytes, at most two, the first one the highest; 0
    /// when there is no such result.
    unsigned convert(unsigned first) { return convert({{static_cast<char>(first)}}, 1); }
    unsigned convert(unsigned first, unsigned second)
    {
        return convert({{static_cast<char>(first), static_cast<char>(second)}}, 2);
    }

private:
    unsigned convert(std::array<char, 2> input, std::size_t left)
    {
        std::array<char, 8> output{};
        char* from = input.data();
        char* to = output.data();
        std::size_t room = output.size();
        bool const isDone = ::iconv(m_converter, &from, &left, &to, &room) == 0 && left == 0;
        ::iconv(m_converter, nullptr, nullptr, &to, &room); // some hold letters back that accents might follow
        std::size_t const size = output.size() - room;
        auto const byte = [&output](std::size_t i) { return unsigned{static_cast<unsigned char>(output[i])}; };
        if (!isDone || size == 0 || size > 2)
            return 0;
        return size == 1 ? byte(0) : byte(0) << 8 | byte(1);
    }

    iconv_t m_converter;
};

CodePage::CodePage(std::string_view name) : m_singles(kBytes)
{
    Row const& row = rowOf(name);
    m_isUtf8 = row.kind == Row::kUtf8;
    CodeConverter decoder("UTF-16BE", row.iconvName);
    for (unsigned byte = 0; byte < kBytes; ++byte)
        m_singles[byte] = static_cast<char16_t>(byte < kFirstByte ? byte : decoder.convert(byte));
    if (row.kind == Row::kPairs)
        loadPairs(decoder);
    if (row.kind == Row::kSingles || row.kind == Row::kPairs)
        loadCodes(row.iconvName);
}

void CodePage::loadPairs(CodeConverter& decoder)
{
    m_pairs.resize(kBytes * kBytes);
    m_isLead.resize(kBytes);
    m_isTrail.resize(kBytes);
    for (unsigned lead = kFirstByte; lead < kBytes; ++lead) {
        for (unsigned trail = kFirstTrail; trail < kBytes && m_singles[lead] == 0; ++trail) {
            auto const character = static_cast<char16_t>(decoder.convert(lead, trail));
            m_pairs[lead * kBytes + trail] = character;
            if (character != 0)
                m_isLead[lead] = m_isTrail[trail] = true;
        }
    }
}

/// Turns the tables of characters round.
void CodePage::loadCodes(char const* iconvName)
{
    CodeConverter encoder(iconvName, "UTF-16BE");
    m_codes.resize(kCharacters);
    auto const enter = [&](char16_t character, std::size_t code) {
        std::uint16_t& entry = m_codes[character];
        // Where two codes mean the same character, the system knows which one is usual.
        auto const high = static_cast<unsigned>(character / kBytes);
        auto const low = static_cast<unsigned>(character % kBytes);
        if (character != 0 && (entry == 0 || encoder.convert(high, low) == code))
            entry = static_cast<std::uint16_t>(code);
    };
    for (std::size_t byte = kFirstByte; byte < kBytes; ++byte)
        enter(m_singles[byte], byte);
    for (std::size_t code = kFirstByte * kBytes; code < m_pairs.size(); ++code)
        enter(m_pairs[code], code);
}

CodePage::Step CodePage::stepOf(std::string_view text) const
{
    auto const lead = static_cast<unsigned char>(text[0]);
    if (!hasPairs() || !m_isLead[lead] || text.size() < 2)
        return {m_singles[lead], 1};
    auto const trail = static_cast<unsigned char>(text[1]);
    if (char16_t const character = characterOf(lead, trail))
        return {character, 2};
    // A pair without meaning is one error; but ASCII, and what can stand in no pair, is taken by itself.
    return {0, trail >= kFirstByte && m_isTrail[trail] ? 2u : 1u};
}

char16_t CodePage::characterOf(unsigned char lead, unsigned char trail) const
{
    return hasPairs() ? m_pairs[lead * kBytes + trail] : u'\0';
}

void CodePage::appendUtf8(std::string_view text, std::string& utf8) const
{
    while (!text.empty()) {
        std::size_t const utf8Length = m_isUtf8 ? sequenceLength(text) : 0;
        if (utf8Length != 0) {
            utf8.append(text.substr(0, utf8Length));
            text.remove_prefix(utf8Length);
            continue;
        }
        Step const step = stepOf(text);
        dxf::appendUtf8(step.character == 0 && text[0] != '\0' ? kReplacement : step.character, utf8);
        text.remove_prefix(step.length);
    }
}

bool CodePage::canDecode(std::string_view text) const
{
    if (m_isUtf8)
        return isValidUtf8(text);
    while (!text.empty()) {
        Step const step = stepOf(text);
        if (step.character == 0 && text[0] != '\0')
            return false;
        text.remove_prefix(step.length);
    }
    return true;
}

bool CodePage::appendEncoded(char32_t character, std::string& bytes) const
{
    if (character < kFirstByte) {
        bytes += static_cast<char>(character);
        return true;
    }
    std::uint16_t const code = character < m_codes.size() ? m_codes[character] : 0;
    if (code >= kBytes)
        bytes += static_cast<char>(code / kBytes);
    if (code != 0)
        bytes += static_cast<char>(code % kBytes);
    return code != 0;
}

} // namespace dxf
