#pragma once

#include <string>
#include <string_view>

#include <iconv.h>

namespace dxf {

/// Converts text of an old file from its code page to UTF-8.
class CodePage
{
public:
    /// A name as $DWGCODEPAGE holds it, such as "ANSI_1252"; unknown and empty names convert as ANSI_1252.
    explicit CodePage(std::string_view name);
    ~CodePage();
    CodePage(CodePage const&) = delete;
    CodePage& operator=(CodePage const&) = delete;

    /// Appends the text as UTF-8; bytes that mean nothing in the code page become U+FFFD.
    void appendUtf8(std::string_view text, std::string& utf8);

private:
    iconv_t m_converter;
};

} // namespace dxf
