// The inner loop of opening a binary drawing: values are copied from where they stand, nothing is allocated.
#include "host/dxf/dxf_binary_source.h"

#include "host/dxf/dxf_binary_form.h"
#include "host/dxf/dxf_hex_digit.h"

#include <bit>
#include <cmath>
#include <cstring>

namespace dxf {

static_assert(std::endian::native == std::endian::little, "numbers are copied as they stand in memory");

namespace {

constexpr unsigned char kNotAscii = 0x80;

template <class Number>
Number numberAt(char const* at)
{
    Number value;
    std::memcpy(&value, at, sizeof value);
    return value;
}

/// Files begin with a record (group 0) or a comment (group 999). In a group code of two bytes the second one of
/// these is 0 or 3; else a name follows the 0, and a mark precedes the 999.
bool beginsWithShortCode(std::string_view tags)
{
    if (tags.size() < 2)
        return false;
    bool const isMarked = static_cast<unsigned char>(tags[0]) == kLongCodeMark;
    return isMarked || (tags[0] == '\0' && tags[1] != '\0');
}

bool canStandInName(char ch)
{
    return (ch >= 'A' && ch <= 'Z') || (ch >= '0' && ch <= '9') || ch == '_';
}

} // namespace

BinarySource::BinarySource(OdString path, std::string_view bytes, TextDecoder& decoder)
    : TagSource(std::move(path)),
      m_bytes(bytes),
      m_decoder(decoder),
      m_at(bytes.data() + std::min(bytes.size(), kBinarySentinel.size())),
      m_end(bytes.data() + bytes.size()),
      m_tag(m_at),
      m_hasShortCodes(beginsWithShortCode({m_at, left()}))
{
}

std::unique_ptr<TagSource> BinarySource::fromStart() const
{
    auto decoder = std::make_unique<TextDecoder>(m_decoder.sameWithoutText());
    auto source = std::make_unique<BinarySource>(path(), m_bytes, *decoder);
    source->m_ownDecoder = std::move(decoder);
    return source;
}

OdString BinarySource::placeText(std::size_t place) const
{
    return odFormat(L": byte %lld", static_cast<long long>(place));
}

bool BinarySource::next(OdDbTag& tag)
{
    while (m_at != m_end) {
        m_tag = m_at;
        switch (readTag(tag)) {
        case EResult::kTag: return true;
        case EResult::kLeftOut: break;
        case EResult::kNoTag:
            if (!findRecord())
                return false;
            break;
        case EResult::kCutOff: m_at = m_end; return false;
        }
    }
    return false;
}

/// The format, of the reason, may hold a %d for the group code.
BinarySource::EResult BinarySource::tell(EResult result, bool breaksRecord, wchar_t const* format)
{
    tellDamage(
        place(), [&] { return odFormat(format, m_code); }, breaksRecord);
    return result;
}

/// When the file ends within the name of a record, the one before it is whole.
BinarySource::EResult BinarySource::tellCutOff()
{
    return tell(EResult::kCutOff, m_code != 0, L"The file ends within the value of group %d; it is cut off");
}

BinarySource::EResult BinarySource::readTag(OdDbTag& tag)
{
    EResult const result = readCode();
    if (result != EResult::kTag)
        return result;
    tag.code = static_cast<std::int16_t>(m_code);
    switch (binaryFormOf(OdDxfCode::_getType(m_code))) {
    case EBinaryForm::kText: return m_code == 0 ? readName(tag) : readText(tag);
    case EBinaryForm::kHandle: return readHandle(tag);
    case EBinaryForm::kReal: return readReal(tag);
    case EBinaryForm::kInt8: return readInteger<std::uint8_t>(tag);
    case EBinaryForm::kInt16: return readInteger<std::int16_t>(tag);
    case EBinaryForm::kInt32: return readInteger<std::int32_t>(tag);
    case EBinaryForm::kInt64: return readInteger<std::int64_t>(tag);
    case EBinaryForm::kBytes: return readBytes(tag);
    }
    return EResult::kNoTag;
}

BinarySource::EResult BinarySource::readCode()
{
    if (m_hasShortCodes) {
        m_code = static_cast<unsigned char>(*m_at++);
        if (m_code != kLongCodeMark)
            return EResult::kTag;
    }
    if (left() < sizeof(std::int16_t))
        return tell(EResult::kCutOff, true, L"The file ends within a group code; it is cut off");
    m_code = numberAt<std::int16_t>(m_at);
    m_at += sizeof(std::int16_t);
    if (!isBinaryCode(m_code))
        return tell(EResult::kNoTag, true, L"%d is not a group code");
    return EResult::kTag;
}

/// The name of a record. None, or one with control characters, shows that what was taken for a tag is none.
BinarySource::EResult BinarySource::readName(OdDbTag& tag)
{
    constexpr char kFirstPrintable = ' ';
    EResult const result = readText(tag);
    if (result != EResult::kTag)
        return result;
    for (char const ch : tag.text)
        if (ch >= 0 && ch < kFirstPrintable)
            return tell(EResult::kNoTag, true, L"The name of a record (group 0) has control characters");
    return tag.text.empty() ? tell(EResult::kNoTag, true, L"A record (group 0) has no name") : EResult::kTag;
}

BinarySource::EResult BinarySource::readText(OdDbTag& tag)
{
    char const* const begin = m_at;
    char const* p = begin;
    bool mayNeedDecoding = false;
    for (; p != m_end && *p != '\0'; ++p)
        mayNeedDecoding |= static_cast<unsigned char>(*p) >= kNotAscii || *p == '\\';
    if (p == m_end)
        return tellCutOff();
    m_at = p + 1;
    tag.kind = OdDbTagKind::kText;
    tag.text = {begin, static_cast<std::size_t>(p - begin)};
    if (mayNeedDecoding && m_code != 0)
        tag.text = m_decoder.decode(tag.text);
    return EResult::kTag;
}

/// Text that is no handle is kept as text, as in text files.
BinarySource::EResult BinarySource::readHandle(OdDbTag& tag)
{
    constexpr int kMostDigits = 16;
    char const* p = m_at;
    while (p != m_end && *p == ' ')
        ++p;
    std::uint64_t value = 0;
    int count = 0;
    for (int digit = 0; p != m_end && count < kMostDigits && (digit = hexDigit(*p)) >= 0; ++p, ++count)
        value = value << 4 | static_cast<unsigned>(digit);
    while (p != m_end && *p == ' ')
        ++p;
    if (count == 0 || p == m_end || *p != '\0')
        return readText(tag);
    m_at = p + 1;
    tag.kind = OdDbTagKind::kHandle;
    tag.integer = static_cast<std::int64_t>(value);
    tag.text = {};
    return EResult::kTag;
}

BinarySource::EResult BinarySource::readReal(OdDbTag& tag)
{
    if (left() < sizeof(double))
        return tellCutOff();
    tag.kind = OdDbTagKind::kReal;
    tag.real = numberAt<double>(m_at);
    tag.text = {};
    m_at += sizeof(double);
    if (std::isfinite(tag.real))
        return EResult::kTag;
    return tell(EResult::kLeftOut, false, L"The value of group %d is not a finite number");
}

template <class Number>
BinarySource::EResult BinarySource::readInteger(OdDbTag& tag)
{
    if (left() < sizeof(Number))
        return tellCutOff();
    tag.kind = OdDbTagKind::kInteger;
    tag.integer = numberAt<Number>(m_at);
    tag.text = {};
    m_at += sizeof(Number);
    return EResult::kTag;
}

BinarySource::EResult BinarySource::readBytes(OdDbTag& tag)
{
    if (m_at == m_end)
        return tellCutOff();
    std::size_t const size = static_cast<unsigned char>(*m_at++);
    if (left() < size)
        return tellCutOff();
    tag.kind = OdDbTagKind::kBinary;
    tag.text = {m_at, size};
    m_at += size;
    return EResult::kTag;
}

/// Moves to the next bytes behind the last tag that look like group 0 with the name of a record.
bool BinarySource::findRecord()
{
    constexpr std::ptrdiff_t kShortestName = 3; // such as ARC; two letters turn up among numbers
    std::ptrdiff_t const codeSize = m_hasShortCodes ? 1 : 2;
    for (m_at = m_tag + 1; m_end - m_at > codeSize; ++m_at) {
        if (m_at[0] != '\0' || m_at[codeSize - 1] != '\0')
            continue;
        char const* const name = m_at + codeSize;
        char const* p = name;
        while (p != m_end && canStandInName(*p))
            ++p;
        if (p != m_end && *p == '\0' && p - name >= kShortestName)
            return true;
    }
    m_at = m_end;
    return false;
}

} // namespace dxf
