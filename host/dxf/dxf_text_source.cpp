// The inner loop of opening a drawing. Values are parsed in place, up to the end of the line, without looking for
// that end first; whatever is unusual (blanks, signs, exponents out of range) goes through a slower second look.
#include "host/dxf/dxf_text_source.h"

#include "host/db/od_dxf_code.h"
#include "host/dxf/dxf_content_kind.h"
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

int hexDigit(char ch)
{
    if (ch >= '0' && ch <= '9')
        return ch - '0';
    if (ch >= 'A' && ch <= 'F')
        return ch - 'A' + 10;
    if (ch >= 'a' && ch <= 'f')
        return ch - 'a' + 10;
    return -1;
}

/// A part of a wrong line that a message can show.
OdString shown(std::string_view text)
{
    constexpr std::size_t kLongest = 40;
    OdString wide = OdString::fromUtf8(text.substr(0, kLongest));
    return text.size() > kLongest ? wide + L"..." : wide;
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
    return std::make_unique<TextSource>(path(), m_bytes, m_decoder);
}

bool TextSource::next(OdDbTag& tag)
{
    if (m_at == m_end)
        return false;
    m_line += m_line == 0 ? 1 : 2;
    if (!readCode())
        return false;
    tag.code = static_cast<std::int16_t>(m_code);
    if (m_at == m_end)
        fail(odFormat(L"The file ends behind the group code %d; it is cut off", m_code));
    switch (OdDxfCode::_getType(m_code)) {
    case OdDxfCode::kReal:
    case OdDxfCode::kAngle:
    case OdDxfCode::kPoint: readReal(tag); break;
    case OdDxfCode::kBool:
    case OdDxfCode::kInt16:
    case OdDxfCode::kInt32:
    case OdDxfCode::kInt64: readInteger(tag); break;
    case OdDxfCode::kHandle:
    case OdDxfCode::kSoftPointer:
    case OdDxfCode::kHardPointer:
    case OdDxfCode::kSoftOwner:
    case OdDxfCode::kHardOwner: readHandle(tag); break;
    case OdDxfCode::kBinary: readBinary(tag); break;
    default: readText(tag);
    }
    return true;
}

/// False when only empty lines are left, which are no tag.
bool TextSource::readCode()
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
        return true;
    if (trimmed({m_at, static_cast<std::size_t>(m_end - m_at)}).empty())
        return false;
    fail(odFormat(L"\"%ls\" is not a group code", shown(trimmed(readLine())).c_str()));
}

/// Moves to the next line when the place given is the end of this one.
bool TextSource::endLine(char const* at)
{
    if (at != m_end && *at == '\r')
        ++at;
    if (at != m_end && *at != '\n')
        return false;
    m_at = at == m_end ? at : at + 1;
    return true;
}

std::string_view TextSource::readLine()
{
    char const* const begin = m_at;
    char const* p = begin;
    while (p != m_end && *p != '\n')
        ++p;
    m_at = p == m_end ? p : p + 1;
    if (p != begin && p[-1] == '\r')
        --p;
    return {begin, static_cast<std::size_t>(p - begin)};
}

void TextSource::readText(OdDbTag& tag)
{
    constexpr unsigned char kNotAscii = 0x80;
    char const* const begin = m_at;
    char const* p = begin;
    bool mayNeedDecoding = false;
    for (; p != m_end && *p != '\n'; ++p)
        mayNeedDecoding |= static_cast<unsigned char>(*p) >= kNotAscii || *p == '\\';
    m_at = p == m_end ? p : p + 1;
    if (p != begin && p[-1] == '\r')
        --p;
    tag.kind = OdDbTagKind::kText;
    tag.text = {begin, static_cast<std::size_t>(p - begin)};
    if (mayNeedDecoding && m_code != 0)
        tag.text = m_decoder.decode(tag.text);
}

void TextSource::readReal(OdDbTag& tag)
{
    tag.kind = OdDbTagKind::kReal;
    tag.text = {};
    char const* p = m_at;
    while (p != m_end && *p == ' ')
        ++p;
    auto const [end, error] = std::from_chars(p, m_end, tag.real);
    if (error == std::errc() && std::isfinite(tag.real) && endLine(end))
        return;
    std::string_view const text = readLine();
    if (!ut::parseReal(text, tag.real))
        failValue(L"a number", text);
}

void TextSource::readInteger(OdDbTag& tag)
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
    if (p != digits && endLine(p))
        tag.integer = isNegative ? -value : value;
    else
        tag.integer = integerOf(readLine());
}

/// Integers at the limits, and those that some programs write as reals.
std::int64_t TextSource::integerOf(std::string_view text) const
{
    constexpr double kLimit = 9.2e18;
    std::string_view digits = trimmed(text);
    if (digits.starts_with('+') && !digits.substr(1).starts_with('-'))
        digits.remove_prefix(1);
    std::int64_t value = 0;
    auto const [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), value);
    if (error == std::errc() && end == digits.data() + digits.size())
        return value;
    double real = 0;
    if (!ut::parseReal(digits, real) || real != std::trunc(real) || std::abs(real) > kLimit)
        failValue(L"an integer", text);
    return static_cast<std::int64_t>(real);
}

/// Text that is no handle is kept as text: some files hold names in places where handles are due.
void TextSource::readHandle(OdDbTag& tag)
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
    } else {
        readText(tag);
    }
}

/// Text that is no run of hexadecimal pairs is kept as text.
void TextSource::readBinary(OdDbTag& tag)
{
    readText(tag);
    std::string_view const digits = trimmed(tag.text);
    if (digits.size() % 2 != 0)
        return;
    m_binary.clear();
    for (std::size_t i = 0; i < digits.size(); i += 2) {
        int const high = hexDigit(digits[i]), low = hexDigit(digits[i + 1]);
        if (high < 0 || low < 0)
            return;
        m_binary += static_cast<char>(high << 4 | low);
    }
    tag.kind = OdDbTagKind::kBinary;
    tag.text = m_binary;
}

void TextSource::failValue(wchar_t const* what, std::string_view text) const
{
    fail(odFormat(L"\"%ls\" is not %ls, which group %d needs", shown(trimmed(text)).c_str(), what, m_code),
         m_line + 1);
}

} // namespace dxf
