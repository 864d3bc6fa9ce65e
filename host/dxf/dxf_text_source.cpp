// The inner loop of opening a drawing. Values are parsed in place, up to the end of the line, without looking for
// that end first; whatever is unusual (blanks, signs, exponents out of range) goes through a slower second look.
#include "host/dxf/dxf_text_source.h"

#include "host/db/od_dxf_code.h"
#include "host/dxf/dxf_content_kind.h"
#include "host/dxf/dxf_hex_digit.h"
#include "host/ut/ut_number.h"

#include <charconv>
#include <cmath>

namespace dxf {

namespace {

constexpr std::string_view kBlanks = " \t\r\n";

std::string_view trimmed(std::string_view text)
{
    std::size_t const first = text.find_first_not_of(kBlanks);
    return first == std::string_view::npos ? std::string_view()
                                           : text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

bool isBlank(char ch)
{
    return ch == ' ' || ch == '\t';
}

/// A part of a wrong line that a message can show.
OdString shown(std::string_view text)
{
    constexpr std::size_t kLongest = 40;
    OdString wide = OdString::fromUtf8(text.substr(0, kLongest));
    return text.size() > kLongest ? wide + L"..." : wide;
}

/// Integers at the limits, and those that some programs write as reals.
bool parseInteger(std::string_view text, std::int64_t& value)
{
    constexpr double kLimit = 9.2e18;
    std::string_view digits = trimmed(text);
    if (digits.starts_with('+') && !digits.substr(1).starts_with('-'))
        digits.remove_prefix(1);
    auto const [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), value);
    if (error == std::errc() && end == digits.data() + digits.size())
        return true;
    double real = 0;
    if (!ut::parseReal(digits, real) || real != std::trunc(real) || std::abs(real) > kLimit)
        return false;
    value = static_cast<std::int64_t>(real);
    return true;
}

bool isAllBlank(char const* first, char const* last)
{
    return std::all_of(first, last, [](char ch) { return kBlanks.find(ch) != std::string_view::npos; });
}

/// Any name of a record that files can hold in all their forms.
bool canBeName(std::string_view text)
{
    constexpr char kFirstPrintable = ' ';
    return !text.empty() &&
           std::all_of(text.begin(), text.end(), [](char ch) { return ch < 0 || ch >= kFirstPrintable; });
}

/// The names of records are in capitals.
bool isRecordName(std::string_view text)
{
    constexpr std::size_t kShortest = 2;
    constexpr std::size_t kLongest = 64;
    auto const isCapital = [](char ch) { return ch >= 'A' && ch <= 'Z'; };
    return text.size() >= kShortest && text.size() <= kLongest &&
           std::any_of(text.begin(), text.end(), isCapital) && std::all_of(text.begin(), text.end(), [&](char ch) {
               return isCapital(ch) || (ch >= '0' && ch <= '9') || ch == '_';
           });
}

} // namespace

TextSource::TextSource(OdString path, std::string_view bytes, TextDecoder& decoder)
    : TagSource(std::move(path)),
      m_bytes(bytes),
      m_decoder(decoder),
      m_at(bytes.data()),
      m_end(bytes.data() + bytes.size())
{
    if (bytes.starts_with(kUtf8Mark))
        m_at += kUtf8Mark.size();
}

std::unique_ptr<TagSource> TextSource::fromStart() const
{
    auto decoder = std::make_unique<TextDecoder>(m_decoder.sameWithoutText());
    auto source = std::make_unique<TextSource>(path(), m_bytes, *decoder);
    source->m_ownDecoder = std::move(decoder);
    return source;
}

OdString TextSource::placeText(std::size_t place) const
{
    return odFormat(L":%lld", static_cast<long long>(place));
}

bool TextSource::next(OdDbTag& tag)
{
    while (m_at != m_end) {
        m_line = m_nextLine;
        char const* const line = m_at;
        switch (readCode()) {
        case ELine::kNothing: return false;
        case ELine::kNoCode:
            if (!findNextRecord(line, L"a group code"))
                return false;
            continue;
        case ELine::kCode: break;
        }
        tag.code = static_cast<std::int16_t>(m_code);
        if (m_at == m_end) {
            tellDamage(m_line, odFormat(L"The file ends behind the group code %d; it is cut off", m_code), true);
            return false;
        }
        m_nextLine = m_line + 2;
        char const* const value = m_at;
        if (!readValue(tag))
            continue;
        if (m_code != 0 || canBeName(tag.text))
            return true;
        ++m_line; // of the value
        if (!findNextRecord(value, L"the name of a record"))
            return false;
    }
    return false;
}

/// False for a value that the group cannot have.
bool TextSource::readValue(OdDbTag& tag)
{
    switch (OdDxfCode::_getType(m_code)) {
    case OdDxfCode::kReal:
    case OdDxfCode::kAngle:
    case OdDxfCode::kPoint: return readReal(tag);
    case OdDxfCode::kBool:
    case OdDxfCode::kInt16:
    case OdDxfCode::kInt32:
    case OdDxfCode::kInt64: return readInteger(tag);
    case OdDxfCode::kHandle:
    case OdDxfCode::kSoftPointer:
    case OdDxfCode::kHardPointer:
    case OdDxfCode::kSoftOwner:
    case OdDxfCode::kHardOwner: return readHandle(tag);
    case OdDxfCode::kBinary: return readBinary(tag);
    default: return readText(tag);
    }
}

TextSource::ELine TextSource::readCode()
{
    constexpr int kLast = 9999;
    char const* p = m_at;
    while (p != m_end && isBlank(*p))
        ++p;
    bool const isNegative = p != m_end && *p == '-';
    if (isNegative)
        ++p;
    char const* const digits = p;
    int code = 0;
    for (; p != m_end && *p >= '0' && *p <= '9' && code <= kLast; ++p)
        code = code * 10 + (*p - '0');
    bool const hasDigits = p != digits;
    while (p != m_end && isBlank(*p))
        ++p;
    m_code = isNegative ? -code : code;
    if (hasDigits && code <= kLast && endLine(p))
        return ELine::kCode;
    return isAllBlank(m_at, m_end) ? ELine::kNothing : ELine::kNoCode;
}

/// Goes on, behind a line that is not what is due, at the next thing that looks like the begin of a record: a 0 on
/// a line of its own with a name in capitals below it. That line itself may be the name. False when none follows.
bool TextSource::findNextRecord(char const* wrongLine, wchar_t const* due)
{
    m_at = wrongLine;
    std::string_view const wrong = trimmed(readLine());
    auto const reason = [&] { return odFormat(L"\"%ls\" is not %ls", shown(wrong).c_str(), due); };
    if (std::string_view const before = lineBefore(wrongLine); trimmed(before) == "0" && isRecordName(wrong)) {
        tellDamage(
            m_line,
            [&] { return reason() + L", but the name of a record; a line before it is missing or too much"; },
            true);
        m_at = before.data();
        m_nextLine = m_line - 1;
        return true;
    }
    for (std::size_t line = m_line + 1; m_at != m_end; ++line) {
        char const* const begin = m_at;
        std::string_view const code = readLine();
        if (code.empty() || trimmed(code) != "0")
            continue;
        char const* const behindCode = m_at;
        bool const isRecord = isRecordName(trimmed(readLine()));
        m_at = isRecord ? begin : behindCode;
        if (!isRecord)
            continue;
        tellDamage(
            m_line,
            [&] {
                return reason() +
                       odFormat(L"; what stands up to line %lld is left out", static_cast<long long>(line - 1));
            },
            true);
        m_nextLine = line;
        return true;
    }
    tellDamage(
        m_line, [&] { return reason() + L"; the rest of the file is left out"; }, true);
    return false;
}

/// The line that ends where the one given begins.
std::string_view TextSource::lineBefore(char const* line) const
{
    auto const isEnd = [](char ch) { return ch == '\n' || ch == '\r'; };
    char const* const begin = m_bytes.data();
    char const* end = line;
    while (end != begin && isEnd(end[-1]))
        --end;
    char const* first = end;
    while (first != begin && !isEnd(first[-1]))
        --first;
    return {first, static_cast<std::size_t>(end - first)};
}

/// Moves to the next line when the place given is the end of this one.
bool TextSource::endLine(char const* at)
{
    if (at == m_end) {
        m_at = at;
        return true;
    }
    if (*at == '\r') {
        // CR alone, too, ends a line; one or two of them before LF are one end.
        char const* const second = at + 1;
        bool const isFollowed = m_end - second >= 2 && *second == '\r' && second[1] == '\n';
        m_at = second != m_end && *second == '\n' ? second + 1 : second + (isFollowed ? 2 : 0);
        return true;
    }
    if (*at != '\n')
        return false;
    m_at = at + 1;
    return true;
}

std::string_view TextSource::readLine()
{
    char const* const begin = m_at;
    char const* p = begin;
    while (p != m_end && *p != '\n' && *p != '\r')
        ++p;
    endLine(p);
    return {begin, static_cast<std::size_t>(p - begin)};
}

bool TextSource::readText(OdDbTag& tag)
{
    constexpr unsigned char kNotAscii = 0x80;
    constexpr std::size_t kLongest = std::size_t{1}
                                     << 24; // what is longer is no text, and would take up the memory
    char const* const begin = m_at;
    char const* p = begin;
    bool mayNeedDecoding = false;
    for (; p != m_end && *p != '\n' && *p != '\r'; ++p)
        mayNeedDecoding |= static_cast<unsigned char>(*p) >= kNotAscii || *p == '\\';
    endLine(p);
    tag.kind = OdDbTagKind::kText;
    tag.text = {begin, static_cast<std::size_t>(p - begin)};
    if (tag.text.size() > kLongest) {
        tellDamage(
            m_line + 1,
            odFormat(L"The line is longer than %lld bytes; it is left out", static_cast<long long>(kLongest)),
            m_code == 0);
        return false;
    }
    if (mayNeedDecoding && m_code != 0)
        tag.text = m_decoder.decode(tag.text);
    return true;
}

bool TextSource::readReal(OdDbTag& tag)
{
    tag.kind = OdDbTagKind::kReal;
    tag.text = {};
    char const* p = m_at;
    while (p != m_end && *p == ' ')
        ++p;
    auto const [end, error] = std::from_chars(p, m_end, tag.real);
    if (error == std::errc() && std::isfinite(tag.real) && endLine(end))
        return true;
    std::string_view const text = readLine();
    return ut::parseReal(text, tag.real) || refuseValue(L"a number", text);
}

bool TextSource::readInteger(OdDbTag& tag)
{
    constexpr std::int64_t kSafe = std::numeric_limits<std::int64_t>::max() / 10 - 1;
    tag.kind = OdDbTagKind::kInteger;
    tag.text = {};
    char const* p = m_at;
    while (p != m_end && *p == ' ')
        ++p;
    bool const isNegative = p != m_end && *p == '-';
    if (isNegative)
        ++p;
    char const* const digits = p;
    std::int64_t value = 0;
    for (; p != m_end && *p >= '0' && *p <= '9' && value < kSafe; ++p)
        value = value * 10 + (*p - '0');
    if (p != digits && endLine(p)) {
        tag.integer = isNegative ? -value : value;
        return true;
    }
    std::string_view const text = readLine();
    return parseInteger(text, tag.integer) || refuseValue(L"an integer", text);
}

/// Text that is no handle is kept as text: some files hold names in places where handles are due.
bool TextSource::readHandle(OdDbTag& tag)
{
    constexpr int kMostDigits = 16;
    char const* p = m_at;
    while (p != m_end && *p == ' ')
        ++p;
    std::uint64_t value = 0;
    int count = 0;
    for (int digit; p != m_end && count < kMostDigits && (digit = hexDigit(*p)) >= 0; ++p, ++count)
        value = value << 4 | static_cast<unsigned>(digit);
    while (p != m_end && *p == ' ')
        ++p;
    if (count > 0 && endLine(p)) {
        tag.kind = OdDbTagKind::kHandle;
        tag.integer = static_cast<std::int64_t>(value);
        tag.text = {};
        return true;
    }
    return readText(tag);
}

/// Text that is no run of hexadecimal pairs is kept as text.
bool TextSource::readBinary(OdDbTag& tag)
{
    if (!readText(tag))
        return false;
    std::string_view const digits = trimmed(tag.text);
    if (digits.size() % 2 != 0)
        return true;
    m_binary.clear();
    for (std::size_t i = 0; i < digits.size(); i += 2) {
        int const high = hexDigit(digits[i]), low = hexDigit(digits[i + 1]);
        if (high < 0 || low < 0)
            return true;
        m_binary += static_cast<char>(high << 4 | low);
    }
    tag.kind = OdDbTagKind::kBinary;
    tag.text = m_binary;
    return true;
}

bool TextSource::refuseValue(wchar_t const* what, std::string_view text)
{
    auto const reason = [&] {
        return odFormat(L"\"%ls\" is not %ls, which group %d needs; it is left out", shown(trimmed(text)).c_str(),
                        what, m_code);
    };
    tellDamage(m_line + 1, reason, false);
    return false;
}

} // namespace dxf
