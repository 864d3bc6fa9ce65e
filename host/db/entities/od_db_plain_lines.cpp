#include "host/db/entities/od_db_plain_lines.h"

#include <string_view>

namespace {

constexpr std::wstring_view kWithValue = L"ACcFfHQTWp"; // codes whose value ends with a semicolon
constexpr wchar_t kHardSpace = 0xA0;

class PlainText
{
public:
    explicit PlainText(std::wstring const& text) : m_text(text) {}

    std::vector<OdString> lines()
    {
        while (m_at < m_text.size())
            takeOne();
        endLine();
        return std::move(m_lines);
    }

private:
    void takeOne()
    {
        wchar_t const ch = m_text[m_at++];
        if (ch == L'\\' && m_at < m_text.size())
            return takeCode(m_text[m_at++]);
        if (ch == L'^' && m_at < m_text.size())
            return takeControl(m_text[m_at++]);
        if (ch == L'\n')
            return endLine();
        if (ch != L'{' && ch != L'}' && ch != L'\r')
            m_line += ch == L'\t' ? L' ' : ch;
    }

    void takeCode(wchar_t code)
    {
        switch (code) {
        case L'P':
        case L'N':
        case L'X': return endLine();
        case L'~': m_line += L' '; return;
        case L'\\':
        case L'{':
        case L'}': m_line += code; return;
        case L'L':
        case L'l': return toggle(m_isUnderlined, code == L'L', L"%%u");
        case L'O':
        case L'o': return toggle(m_isOverlined, code == L'O', L"%%o");
        case L'K':
        case L'k': return; // struck out
        case L'S': return takeStack();
        default: break;
        }
        if (kWithValue.find(code) != std::wstring_view::npos) {
            std::size_t const end = m_text.find(L';', m_at);
            m_at = end == std::wstring::npos ? m_text.size() : end + 1;
            return;
        }
        m_line += L'\\'; // a code of the file, such as \U+2205, or nothing that is known
        m_line += code;
    }

    /// ^I, ^J and ^M are control characters, "^ " is the caret itself.
    void takeControl(wchar_t code)
    {
        switch (code) {
        case L'I': m_line += L' '; return;
        case L'J': return endLine();
        case L'M': return;
        case L' ': m_line += L'^'; return;
        default: m_line += L'^'; --m_at;
        }
    }

    /// "\S1/2;", also with # or ^ between the parts.
    void takeStack()
    {
        std::size_t const end = std::min(m_text.find(L';', m_at), m_text.size());
        for (; m_at < end; ++m_at) {
            wchar_t const ch = m_text[m_at];
            if (ch == L'\\')
                continue;
            m_line += ch == L'#' || ch == L'^' ? L'/' : ch;
        }
        m_at = std::min(end + 1, m_text.size());
    }

    void toggle(bool& state, bool on, wchar_t const* code)
    {
        if (state != on)
            m_line += code;
        state = on;
    }

    void endLine()
    {
        for (wchar_t& ch : m_line)
            if (ch == kHardSpace)
                ch = L' ';
        m_lines.emplace_back(m_line);
        // Each line switches for itself.
        m_line = m_isUnderlined ? L"%%u" : L"";
        if (m_isOverlined)
            m_line += L"%%o";
    }

    std::wstring const& m_text;
    std::size_t m_at = 0;
    std::wstring m_line;
    std::vector<OdString> m_lines;
    bool m_isUnderlined = false;
    bool m_isOverlined = false;
};

} // namespace

std::vector<OdString> odDbPlainLines(OdString const& formatted)
{
    return PlainText(formatted.str()).lines();
}
