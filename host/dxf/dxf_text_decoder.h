#pragma once

#include "host/dxf/dxf_code_page.h"
#include "host/dxf/dxf_release.h"

#include <array>
#include <optional>

namespace dxf {

/// What bytes beyond ASCII mean in the text of a file.
enum class ETextForm : std::uint8_t
{
    kUtf8, ///< a text that is not valid UTF-8 is taken to be in the code page
    kCodePage
};

/// The form of a whole file. Before R2007 text is in the declared code page; but many programs write UTF-8 into
/// such files. That is recognised by text that is valid UTF-8 from end to end, which hardly ever happens by chance
/// where characters have one byte. Where they can have two, the text has to be nonsense in the code page besides,
/// or to hold some UTF-8 of three bytes a character. In binary files the code page alone decides, since numbers
/// there look like anything.
ETextForm textFormOf(std::string_view fileBytes, std::string_view codePage, ERelease release);

/// Makes UTF-8 of the text of a file: characters in its code page, and characters written as \U+XXXX (code units
/// of UTF-16) or \M+nXXXX (two bytes in one of five code pages). Escapes that mean nothing stay as they stand.
class TextDecoder
{
public:
    explicit TextDecoder(std::string_view codePage, ETextForm form = ETextForm::kUtf8)
        : m_codePageName(codePage), m_form(form)
    {
    }

    /// A decoder of the same code page and form with buffers of its own.
    TextDecoder sameWithoutText() const { return TextDecoder(m_codePageName, m_form); }

    /// The text itself when it needs no decoding, else a view that lasts until the next call.
    std::string_view decode(std::string_view text);

private:
    bool takeUnicodeEscape(std::string_view& text);
    bool takePairEscape(std::string_view& text);
    std::string_view unescape(std::string_view text);

    std::string m_codePageName;
    ETextForm m_form;
    std::optional<CodePage> m_codePage; ///< opened when the first text needs it
    std::array<std::optional<CodePage>, 5> m_escapePages;
    std::string m_converted;
    std::string m_unescaped;
};

} // namespace dxf
