#include "host/dxf/dxf_text_sink.h"

#include <charconv>
#include <cmath>
#include <cstring>

namespace dxf {

namespace {

constexpr std::size_t kBufferSize = 64 * 1024;
constexpr std::size_t kLongestNumber = 400; // fixed notation of any double, code lines, and more

/// Characters that would end the line or the text of a careless reader; files write them with a caret.
bool breaksLine(char ch)
{
    return ch == '\n' || ch == '\r' || ch == '\0';
}

} // namespace

TextSink::TextSink(ut::AtomicFile& file)
    : m_file(file), m_buffer(std::make_unique<char[]>(kBufferSize)), m_at(m_buffer.get())
{
}

void TextSink::flush()
{
    m_file.write({m_buffer.get(), static_cast<std::size_t>(m_at - m_buffer.get())});
    m_at = m_buffer.get();
}

/// Makes room for `size` characters, less than the buffer holds.
void TextSink::reserve(std::size_t size)
{
    if (static_cast<std::size_t>(m_buffer.get() + kBufferSize - m_at) < size)
        flush();
}

void TextSink::put(OdDbTag const& tag)
{
    reserve(kLongestNumber);
    putCode(tag.code);
    switch (tag.kind) {
    case OdDbTagKind::kText: putText(tag.text); break;
    case OdDbTagKind::kReal: putReal(tag.code, tag.real); break;
    case OdDbTagKind::kInteger: putInteger(tag.integer); break;
    case OdDbTagKind::kHandle: putHandle(tag.code, tag.handle()); break;
    case OdDbTagKind::kBinary: putBinary(tag.text); break;
    }
    *m_at++ = '\n';
}

void TextSink::putCode(int code)
{
    constexpr int kWidth = 3;
    for (int limit = 10, width = 1; width < kWidth; limit *= 10, ++width)
        if (code >= 0 && code < limit)
            *m_at++ = ' ';
    m_at = std::to_chars(m_at, m_at + kLongestNumber, code).ptr;
    *m_at++ = '\n';
}

void TextSink::putText(std::string_view text)
{
    if (std::any_of(text.begin(), text.end(), breaksLine))
        return putEscaped(text);
    if (text.size() + 1 > kBufferSize) {
        flush();
        m_file.write(text);
        return;
    }
    reserve(text.size() + 1);
    std::memcpy(m_at, text.data(), text.size());
    m_at += text.size();
}

void TextSink::putEscaped(std::string_view text)
{
    for (char const ch : text) {
        reserve(3);
        if (breaksLine(ch))
            *m_at++ = '^';
        *m_at++ = breaksLine(ch) ? static_cast<char>(ch + '@') : ch;
    }
}

void TextSink::putReal(int code, double value)
{
    if (!std::isfinite(value))
        throw OdError(eOutOfRange,
                      odFormat(L"A value (group %d) of the object with the handle %ls is not a finite number",
                               code, m_lastObject.ascii().c_str()));
    // Plain decimals where people expect them; both notations give the shortest digits that read back exactly.
    double const size = std::abs(value);
    bool const isPlain = size == 0.0 || (size >= 1e-5 && size < 1e15);
    char* const begin = m_at;
    m_at = std::to_chars(m_at, m_at + kLongestNumber, value,
                         isPlain ? std::chars_format::fixed : std::chars_format::scientific)
               .ptr;
    if (std::memchr(begin, '.', static_cast<std::size_t>(m_at - begin)))
        return;
    // Some readers take a number without point for an integer.
    char* const exponent = isPlain ? m_at : std::find(begin, m_at, 'e');
    std::memmove(exponent + 2, exponent, static_cast<std::size_t>(m_at - exponent));
    exponent[0] = '.';
    exponent[1] = '0';
    m_at += 2;
}

void TextSink::putInteger(std::int64_t value)
{
    m_at = std::to_chars(m_at, m_at + kLongestNumber, value).ptr;
}

void TextSink::putHandle(int code, OdDbHandle handle)
{
    if (code == 5 || code == 105)
        m_lastObject = handle;
    char digits[16];
    std::string_view const text = handle.write(digits);
    std::memcpy(m_at, text.data(), text.size());
    m_at += text.size();
}

void TextSink::putBinary(std::string_view bytes)
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
