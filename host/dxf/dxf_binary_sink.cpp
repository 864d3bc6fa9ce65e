#include "host/dxf/dxf_binary_sink.h"

#include "host/ut/ut_number.h"

#include <algorithm>
#include <bit>
#include <charconv>
#include <cmath>
#include <cstring>
#include <limits>

namespace dxf {

static_assert(std::endian::native == std::endian::little, "numbers are copied as they stand in memory");

namespace {

struct Range
{
    std::int64_t least;
    std::int64_t most;
};

template <class Number>
constexpr Range rangeOf()
{
    return {std::numeric_limits<Number>::min(), std::numeric_limits<Number>::max()};
}

constexpr Range rangeOf(EBinaryForm form)
{
    switch (form) {
    case EBinaryForm::kInt8: return rangeOf<std::uint8_t>();
    case EBinaryForm::kInt16: return rangeOf<std::int16_t>();
    case EBinaryForm::kInt32: return rangeOf<std::int32_t>();
    default: return rangeOf<std::int64_t>();
    }
}

bool fitsKind(EBinaryForm form, OdDbTagKind kind)
{
    switch (form) {
    case EBinaryForm::kText: return kind == OdDbTagKind::kText;
    case EBinaryForm::kHandle: return kind == OdDbTagKind::kHandle;
    case EBinaryForm::kReal: return kind == OdDbTagKind::kReal;
    case EBinaryForm::kBytes: return kind == OdDbTagKind::kBinary;
    default: return kind == OdDbTagKind::kInteger;
    }
}

} // namespace

BinarySink::BinarySink(ByteSink& bytes, TextEncoder& encoder, ERelease release, SaveReport& report)
    : BufferedSink(bytes, encoder), m_report(report), m_hasShortCodes(release < ERelease::kR13)
{
    putBytes(kBinarySentinel);
}

void BinarySink::put(OdDbTag const& tag)
{
    if (!isBinaryCode(tag.code))
        return report(tag.code, L"is no group of binary files; left out");
    if (tag.code == 0)
        m_record.assign(tag.text);
    reserve(kLongestNumber);
    EBinaryForm const form = binaryFormOf(OdDxfCode::_getType(tag.code));
    if (fitsKind(form, tag.kind))
        putForm(form, tag);
    else
        putConverted(form, tag);
}

/// A value of the kind that the form has.
void BinarySink::putForm(EBinaryForm form, OdDbTag const& tag)
{
    switch (form) {
    case EBinaryForm::kText:
    case EBinaryForm::kHandle: return putAsText(tag);
    case EBinaryForm::kBytes: return putChunks(tag.code, tag.text);
    case EBinaryForm::kReal:
        requireFinite(tag.code, tag.real);
        putCode(tag.code);
        return putNumber(tag.real);
    default: putInteger(form, tag.code, tag.integer);
    }
}

/// A value of another kind than its group has: damaged files and careless programs give such.
void BinarySink::putConverted(EBinaryForm form, OdDbTag const& tag)
{
    if (form == EBinaryForm::kText || form == EBinaryForm::kHandle)
        return putAsText(tag);
    OdDbTag converted = tag;
    if (form == EBinaryForm::kReal) {
        converted.kind = OdDbTagKind::kReal;
        if (tag.kind == OdDbTagKind::kInteger)
            converted.real = static_cast<double>(tag.integer);
        else if (tag.kind != OdDbTagKind::kText || !ut::parseReal(tag.text, converted.real))
            return report(tag.code, L"holds no number where binary files need one; left out");
    } else if (form == EBinaryForm::kBytes) {
        if (tag.kind != OdDbTagKind::kText)
            return report(tag.code, L"holds no bytes where binary files need them; left out");
        report(tag.code, L"holds text where binary files need bytes; written as the bytes of the text");
    } else if (!makeInteger(tag, converted)) {
        return report(tag.code, L"holds no integer where binary files need one; left out");
    }
    putForm(form, converted);
}

/// Integers that are written as reals or text.
bool BinarySink::makeInteger(OdDbTag const& tag, OdDbTag& integer)
{
    constexpr double kLimit = 9.2e18;
    double value = tag.real;
    if (tag.kind == OdDbTagKind::kText ? !ut::parseReal(tag.text, value) : tag.kind != OdDbTagKind::kReal)
        return false;
    if (!(std::abs(value) <= kLimit))
        return false;
    if (value != std::trunc(value))
        report(tag.code, L"holds fractions where binary files need integers; rounded");
    integer.kind = OdDbTagKind::kInteger;
    integer.integer = std::llround(value);
    return true;
}

void BinarySink::putCode(int code)
{
    if (m_hasShortCodes && code >= 0 && code < kLongCodeMark) {
        *m_at++ = static_cast<char>(code);
        return;
    }
    if (m_hasShortCodes)
        *m_at++ = static_cast<char>(kLongCodeMark);
    putNumber(static_cast<std::int16_t>(code));
}

template <class Number>
void BinarySink::putNumber(Number value)
{
    std::memcpy(m_at, &value, sizeof value);
    m_at += sizeof value;
}

void BinarySink::putInteger(EBinaryForm form, int code, std::int64_t value)
{
    Range const range = rangeOf(form);
    if (value < range.least || value > range.most)
        value = fitted(form, code, value);
    putCode(code);
    switch (form) {
    case EBinaryForm::kInt8: return putNumber(static_cast<std::uint8_t>(value));
    case EBinaryForm::kInt16: return putNumber(static_cast<std::int16_t>(value));
    case EBinaryForm::kInt32: return putNumber(static_cast<std::int32_t>(value));
    default: putNumber(value);
    }
}

/// What stands for a number that the form has no room for.
std::int64_t BinarySink::fitted(EBinaryForm form, int code, std::int64_t value)
{
    if (form == EBinaryForm::kInt32 && value > 0 && value <= std::numeric_limits<std::uint32_t>::max()) {
        // Colours and sets of flags: all 32 bits are used, and readers take either sign.
        report(code, L"holds a number of 32 bits without sign; written with the same bits as a negative number");
        return static_cast<std::int32_t>(static_cast<std::uint32_t>(value));
    }
    report(code, L"holds a number that is too large for binary files; written as the nearest that is not");
    Range const range = rangeOf(form);
    return std::clamp(value, range.least, range.most);
}

/// As the text form has the value.
void BinarySink::putAsText(OdDbTag const& tag)
{
    putCode(tag.code);
    putValueText(tag);
    *m_at++ = '\0';
}

void BinarySink::putChunks(int code, std::string_view bytes)
{
    do {
        std::string_view const chunk = bytes.substr(0, kLongestChunk);
        bytes.remove_prefix(chunk.size());
        reserve(kLongestNumber);
        putCode(code);
        *m_at++ = static_cast<char>(chunk.size());
        putBytes(chunk);
    } while (!bytes.empty());
}

void BinarySink::report(int code, wchar_t const* what)
{
    OdString const record = m_record.empty() ? OdString(L"DXF") : OdString::fromUtf8(m_record);
    m_report.add(odFormat(L"%ls: group %d %ls", record.c_str(), code, what), lastObject());
}

} // namespace dxf
