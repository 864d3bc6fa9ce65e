#include "host/dxf/dxf_text_decoder.h"

#include "host/dxf/dxf_content_kind.h"
#include "host/dxf/dxf_utf8.h"

#include <charconv>
#include <cstring>

namespace dxf {

namespace {

constexpr std::size_t kDigits = 4;

constexpr std::string_view kUnicodeEscape = "\\U+";
constexpr std::size_t kUnicodeLength = kUnicodeEscape.size() + kDigits;

constexpr std::string_view kPairEscape = "\\M+";
constexpr std::size_t kPairLength = kPairEscape.size() + 1 + kDigits;
/// By the digit behind the mark, from 1.
constexpr std::string_view kPairCodePages[] = {"ANSI_932", "ANSI_950", "ANSI_949", "ANSI_1361", "ANSI_936"};

/// Four hexadecimal digits at the beginning of the text, or -1.
int hexadecimalOf(std::string_view text)
{
    if (text.size() < kDigits)
        return -1;
    unsigned value = 0;
    auto const [end, error] = std::from_chars(text.data(), text.data() + kDigits, value, 16);
    return error == std::errc() && end == text.data() + kDigits ? static_cast<int>(value) : -1;
}

/// The code unit of an escape at the beginning of the text, or -1.
int escapedUnit(std::string_view text)
{
    return text.starts_with(kUnicodeEscape) ? hexadecimalOf(text.substr(kUnicodeEscape.size())) : -1;
}

/// Escapes of control characters would break the line.
bool isControl(int character)
{
    return character < 0x20;
}

/// What stands in a file of lines beyond ASCII: from the first such character of each line to its end.
class NonAsciiText
{
public:
    explicit NonAsciiText(std::string_view bytes) : m_at(bytes.data()), m_end(bytes.data() + bytes.size()) {}

    bool next(std::string_view& text)
    {
        char const* const begin = findNonAscii(m_at, m_end);
        if (begin == m_end)
            return false;
        void const* const lineEnd = std::memchr(begin, '\n', static_cast<std::size_t>(m_end - begin));
        m_at = lineEnd ? static_cast<char const*>(lineEnd) : m_end;
        text = {begin, static_cast<std::size_t>(m_at - begin)};
        return true;
    }

private:
    char const* m_at;
    char const* m_end;
};

constexpr std::size_t kManySequences = 2;

/// The number of sequences of three bytes and more, up to kManySequences.
std::size_t countLongSequences(std::string_view utf8)
{
    std::size_t count = 0;
    while (!utf8.empty() && count < kManySequences) {
        std::size_t const length = sequenceLength(utf8);
        count += length > 2 ? 1 : 0;
        utf8.remove_prefix(length);
    }
    return count;
}

} // namespace

ETextForm textFormOf(std::string_view fileBytes, std::string_view codePage, ERelease release)
{
    if (isUtf8(release))
        return ETextForm::kUtf8;
    if (contentKindOf(fileBytes) == EContentKind::kBinary)
        return ETextForm::kCodePage;
    std::string_view text;
    std::size_t longSequences = 0;
    bool isAsciiOnly = true;
    for (NonAsciiText lines(fileBytes); lines.next(text); isAsciiOnly = false) {
        if (!isValidUtf8(text))
            return ETextForm::kCodePage;
        if (longSequences < kManySequences)
            longSequences += countLongSequences(text);
    }
    if (isAsciiOnly)
        return ETextForm::kCodePage;
    CodePage const page(codePage);
    if (!page.hasPairs() || longSequences >= kManySequences)
        return ETextForm::kUtf8;
    for (NonAsciiText lines(fileBytes); lines.next(text);)
        if (!page.canDecode(text))
            return ETextForm::kUtf8;
    return ETextForm::kCodePage;
}

std::string_view TextDecoder::decode(std::string_view text)
{
    bool const isDone = m_form == ETextForm::kUtf8 ? isValidUtf8(text) : isAscii(text);
    if (!isDone) {
        if (!m_codePage)
            m_codePage.emplace(m_codePageName);
        m_converted.clear();
        m_codePage->appendUtf8(text, m_converted);
        text = m_converted;
    }
    return unescape(text);
}

std::string_view TextDecoder::unescape(std::string_view text)
{
    std::size_t next = std::min(text.find(kUnicodeEscape), text.find(kPairEscape));
    if (next == text.npos)
        return text;
    m_unescaped.clear();
    for (; next != text.npos; next = text.find('\\')) {
        m_unescaped.append(text.substr(0, next));
        text.remove_prefix(next);
        if (!takeUnicodeEscape(text) && !takePairEscape(text)) {
            m_unescaped += text.front();
            text.remove_prefix(1);
        }
    }
    m_unescaped.append(text);
    return m_unescaped;
}

/// Takes an escape, or two that form a surrogate pair, from the text; false leaves it: lone surrogates are no
/// characters.
bool TextDecoder::takeUnicodeEscape(std::string_view& text)
{
    int const unit = escapedUnit(text);
    if (isControl(unit) || (unit >= 0xDC00 && unit < 0xE000))
        return false;
    if (unit < 0xD800 || unit >= 0xE000) {
        appendUtf8(static_cast<char32_t>(unit), m_unescaped);
        text.remove_prefix(kUnicodeLength);
        return true;
    }
    int const trail = escapedUnit(text.substr(kUnicodeLength));
    if (trail < 0xDC00 || trail >= 0xE000)
        return false;
    appendUtf8(0x10000 + (static_cast<char32_t>(unit - 0xD800) << 10) + static_cast<char32_t>(trail - 0xDC00),
               m_unescaped);
    text.remove_prefix(2 * kUnicodeLength);
    return true;
}

/// Takes an escape of two bytes in one of the Asian code pages; false leaves it.
bool TextDecoder::takePairEscape(std::string_view& text)
{
    if (!text.starts_with(kPairEscape) || text.size() < kPairLength)
        return false;
    std::size_t const index = static_cast<std::size_t>(text[kPairEscape.size()] - '1');
    int const code = hexadecimalOf(text.substr(kPairEscape.size() + 1));
    if (index >= std::size(kPairCodePages) || code < 0)
        return false;
    std::optional<CodePage>& page = m_escapePages[index];
    if (!page)
        page.emplace(kPairCodePages[index]);
    char16_t const character =
        page->characterOf(static_cast<unsigned char>(code >> 8), static_cast<unsigned char>(code & 0xFF));
    if (isControl(character))
        return false;
    appendUtf8(character, m_unescaped);
    text.remove_prefix(kPairLength);
    return true;
}

} // namespace dxf
