#include "host/dxf/dxf_text_sink.h"

#include <array>
#include <charconv>
#include <cstring>

namespace dxf {

namespace {

constexpr int kLastCode = 1071;

/// The line of a group code: right-aligned to three columns.
struct CodeLine
{
    char text[5];
    unsigned char size;
};

constexpr auto s_codeLines = [] {
    std::array<CodeLine, kLastCode + 1> lines{};
    for (int code = 0; code <= kLastCode; ++code) {
        CodeLine& line = lines[static_cast<std::size_t>(code)];
        for (int limit = 1000; limit > 1; limit /= 10) {
            if (code >= limit)
                line.text[line.size++] = static_cast<char>('0' + code / limit % 10);
            else if (limit < 1000)
                line.text[line.size++] = ' ';
        }
        line.text[line.size++] = static_cast<char>('0' + code % 10);
        line.text[line.size++] = '\n';
    }
    return lines;
}();

} // namespace

void TextSink::put(OdDbTag const& tag)
{
    reserve(kLongestNumber);
    putCode(tag.code);
    putValueText(tag);
    *m_at++ = '\n';
}

void TextSink::putCode(int code)
{
    if (code >= 0 && code <= kLastCode) {
        CodeLine const& line = s_codeLines[static_cast<std::size_t>(code)];
        std::memcpy(m_at, line.text, sizeof line.text);
        m_at += line.size;
    } else {
        m_at = std::to_chars(m_at, m_at + kLongestNumber, code).ptr;
        *m_at++ = '\n';
    }
}

} // namespace dxf
