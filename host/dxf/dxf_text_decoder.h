#pragma once

#include "host/dxf/dxf_code_page.h"

#include <optional>

namespace dxf {

/// Makes UTF-8 of the text of a file: characters in its code page, and characters written as \U+XXXX.
class TextDecoder
{
public:
    /// Text that is not UTF-8 is taken to be in the code page.
    explicit TextDecoder(std::string_view codePage) : m_codePageName(codePage) {}

    /// The text itself when it needs no decoding, else a view that lasts until the next call.
    std::string_view decode(std::string_view text);

private:
    std::string m_codePageName;
    std::optional<CodePage> m_codePage; ///< opened when the first text needs it
    std::string m_converted;
    std::string m_unescaped;
};

} // namespace dxf
