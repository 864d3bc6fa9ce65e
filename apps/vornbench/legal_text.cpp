#include "apps/vornbench/legal_text.h"

#include "host/root/od_string.h"

#include <cstdio>

namespace {

constexpr std::wstring_view replacement = L"\uFFFD";

bool isLegalInXml(wchar_t ch)
{
    auto const code = static_cast<char32_t>(ch);
    return code == 0x9 || code == 0xA || code == 0xD || (code >= 0x20 && code <= 0xD7FF) ||
           (code >= 0xE000 && code <= 0xFFFD) || (code >= 0x10000 && code <= 0x10FFFF);
}

std::wstring_view xmlReference(wchar_t ch, bool isAttribute)
{
    switch (ch) {
    case L'&': return L"&amp;";
    case L'<': return L"&lt;";
    case L'>': return L"&gt;"; // also keeps "]]>" out
    case L'"': return L"&quot;";
    case L'\r': return L"&#13;";
    case L'\n': return isAttribute ? L"&#10;" : L"";
    case L'\t': return isAttribute ? L"&#9;" : L"";
    default: return {};
    }
}

void appendJsonByte(std::string& json, char byte)
{
    switch (byte) {
    case '"': json += "\\\""; return;
    case '\\': json += "\\\\"; return;
    case '\n': json += "\\n"; return;
    case '\t': json += "\\t"; return;
    default: break;
    }
    if (static_cast<unsigned char>(byte) >= 0x20 && byte != 0x7F) {
        json += byte;
        return;
    }
    char code[8];
    std::snprintf(code, sizeof code, "\\u%04x", static_cast<unsigned>(static_cast<unsigned char>(byte)));
    json += code;
}

} // namespace

std::string xmlText(std::string_view text, bool isAttribute)
{
    std::wstring legal;
    for (wchar_t const ch : odUtf8ToWide(text)) {
        std::wstring_view const reference = xmlReference(ch, isAttribute);
        if (!isLegalInXml(ch))
            legal += replacement;
        else if (!reference.empty())
            legal += reference;
        else
            legal += ch;
    }
    return odWideToUtf8(legal);
}

std::string jsonString(std::string_view text)
{
    std::string json = "\"";
    for (char const byte : odWideToUtf8(odUtf8ToWide(text)))
        appendJsonByte(json, byte);
    return json + "\"";
}
