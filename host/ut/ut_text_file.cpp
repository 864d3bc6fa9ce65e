#include "host/ut/ut_text_file.h"

#include "host/ut/ut_file.h"
#include "host/ut/ut_text.h"

namespace ut {

namespace {

constexpr wchar_t s_replacement = 0xFFFD;

/// Bytes of UTF-16 without the mark; `high` is the place of the high byte in each pair.
std::wstring decodeUtf16(std::string_view bytes, std::size_t high)
{
    auto const unit = [&](std::size_t at) {
        auto const byte = [&](std::size_t place) { return static_cast<unsigned char>(bytes[at + place]); };
        return static_cast<unsigned>(byte(high) << 8 | byte(1 - high));
    };
    auto const isPart = [](unsigned value, unsigned first) { return value >= first && value < first + 0x400; };
    constexpr unsigned firstLead = 0xD800;
    constexpr unsigned firstTrail = 0xDC00;
    std::wstring text;
    text.reserve(bytes.size() / 2);
    std::size_t at = 0;
    for (; at + 1 < bytes.size(); at += 2) {
        unsigned const value = unit(at);
        if (isPart(value, firstLead) && at + 3 < bytes.size() && isPart(unit(at + 2), firstTrail)) {
            unsigned const trail = unit(at + 2) - firstTrail;
            text += static_cast<wchar_t>(0x10000 + ((value - firstLead) << 10 | trail));
            at += 2;
        } else {
            bool const isLone = isPart(value, firstLead) || isPart(value, firstTrail);
            text += isLone ? s_replacement : static_cast<wchar_t>(value);
        }
    }
    if (at < bytes.size())
        text += s_replacement;
    return text;
}

std::wstring decode(std::string_view bytes)
{
    constexpr std::size_t markSize = 2;
    if (bytes.starts_with("\xFF\xFE"))
        return decodeUtf16(bytes.substr(markSize), 1);
    if (bytes.starts_with("\xFE\xFF"))
        return decodeUtf16(bytes.substr(markSize), 0);
    constexpr std::string_view utf8Mark = "\xEF\xBB\xBF";
    if (bytes.starts_with(utf8Mark))
        bytes.remove_prefix(utf8Mark.size());
    return odUtf8ToWide(bytes);
}

} // namespace

bool TextFile::open(OdString const& path, OdString* reason)
{
    std::string bytes;
    if (!readWholeFile(path, bytes, reason))
        return false;
    m_text = OdString(decode(bytes));
    return true;
}

std::vector<std::wstring_view> TextFile::lines() const
{
    return splitLines(m_text.str());
}

} // namespace ut
