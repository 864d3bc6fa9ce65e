#include "host/dxf/dxf_buffered_sink.h"

#include "host/root/od_error.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstring>

namespace dxf {

namespace {

/// Characters that would end the text; files write them with a caret. The end of a line is one in binary files
/// too, so that both forms of a drawing read alike.
bool breaksText(char ch)
{
    return ch == '\n' || ch == '\r' || ch == '\0';
}

} // namespace

BufferedSink::BufferedSink(ByteSink& bytes, TextEncoder& encoder)
    : m_bytes(bytes), m_encoder(encoder), m_buffer(std::make_unique<char[]>(kBufferSize))
{
    m_at = m_buffer.get();
}

void BufferedSink::flush()
{
    m_bytes.write({m_buffer.get(), static_cast<std::size_t>(m_at - m_buffer.get())});
    m_at = m_buffer.get();
}

void BufferedSink::putValueText(OdDbTag const& tag)
{
    reserve(kLongestNumber);
    switch (tag.kind) {
    case OdDbTagKind::kText: putText(tag.code, tag.text); break;
    case OdDbTagKind::kReal:
        requireFinite(tag.code, tag.real);
        putRealText(tag.real);
        break;
    case OdDbTagKind::kInteger: putIntegerText(tag.integer); break;
    case OdDbTagKind::kHandle: putHandle(tag.code, tag.handle()); break;
    case OdDbTagKind::kBinary: putHexadecimal(tag.text); break;
    }
}

void BufferedSink::putBytes(std::string_view bytes)
{
    if (bytes.size() + 1 > kBufferSize) {
        flush();
        m_bytes.write(bytes);
        return;
    }
    reserve(bytes.size() + 1);
    m_at = std::copy(bytes.begin(), bytes.end(), m_at);
}

void BufferedSink::putText(int code, std::string_view utf8)
{
    std::string_view const text = code == 0 ? utf8 : m_encoder.encode(utf8);
    if (std::any_of(text.begin(), text.end(), breaksText))
        putEscaped(text);
    else
        putBytes(text);
}

void BufferedSink::putEscaped(std::string_view text)
{
    for (char const ch : text) {
        reserve(3);
        if (breaksText(ch))
            *m_at++ = '^';
        *m_at++ = breaksText(ch) ? static_cast<char>(ch + '@') : ch;
    }
}

void BufferedSink::requireFinite(int code, double value) const
{
    if (!std::isfinite(value))
        throw OdError(eOutOfRange,
                      odFormat(L"A value (group %d) of the object with the handle %ls is not a finite number",
                               code, m_lastObject.ascii().c_str()));
}

void BufferedSink::putIntegerText(std::int64_t value)
{
    m_at = std::to_chars(m_at, m_at + kLongestNumber, value).ptr;
}

void BufferedSink::putHandle(int code, OdDbHandle handle)
{
    if (code == 5 || code == 105)
        m_lastObject = handle;
    char digits[16];
    std::string_view const text = handle.write(digits);
    std::memcpy(m_at, text.data(), text.size());
    m_at += text.size();
}

void BufferedSink::putHexadecimal(std::string_view bytes)
{
    constexpr char kDigits[] = "0123456789ABCDEF";
    for (char const byte : bytes) {
        reserve(3);
        auto const value = static_cast<unsigned char>(byte);
        *m_at++ = kDigits[value >> 4];
        *m_at++ = kDigits[value & 0xF];
    }
}

} // namespace dxf
