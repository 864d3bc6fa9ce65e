#pragma once

#include "host/dxf/dxf_code_page.h"
#include "host/dxf/dxf_release.h"

#include <optional>

namespace dxf {

/// Makes the bytes of a file from UTF-8: the same from R2007 on, before that text in the code page of the file,
/// with \U+XXXX for characters that it does not have.
class TextEncoder
{
public:
    /// The code page as $DWGCODEPAGE names it; an unknown one counts as ANSI_1252.
    TextEncoder(ERelease release, std::string_view codePage) : m_release(release), m_codePageName(codePage) {}

    /// The text itself when it needs no encoding, else a view that lasts until the next call.
    std::string_view encode(std::string_view utf8) { return isUtf8(m_release) ? utf8 : encodeOld(utf8); }

private:
    std::string_view encodeOld(std::string_view utf8);
    void encodeCharacters(std::string_view utf8, CodePage const* codePage);

    ERelease m_release;
    std::string m_codePageName;
    std::optional<CodePage> m_codePage; ///< opened when the first text needs it
    std::string m_encoded;
};

} // namespace dxf
