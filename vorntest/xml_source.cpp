#include "vorntest/xml_source.h"

#include "host/root/od_error.h"
#include "host/root/od_string.h"
#include "host/ut/ut_file.h"
#include "vorntest/config_error.h"

#include <algorithm>

namespace vorntest {

namespace {

// The parser's offsets count characters of the text that it decoded, the byte-order mark included, not bytes of
// the file. The same decoder gives the same count.
std::vector<std::ptrdiff_t> lineEnds(std::string const& bytes)
{
    std::wstring const text = pugi::as_wide(bytes);
    std::vector<std::ptrdiff_t> ends;
    for (std::size_t at = text.find(L'\n'); at != std::wstring::npos; at = text.find(L'\n', at + 1))
        ends.push_back(static_cast<std::ptrdiff_t>(at));
    return ends;
}

} // namespace

XmlSource::XmlSource(std::wstring const& path, std::wstring shownPath) : m_shownPath(std::move(shownPath))
{
    std::string bytes;
    OdString reason;
    if (!ut::readWholeFile(path, bytes, &reason))
        throw ConfigError(m_shownPath, 0, reason.str());
    m_lineEnds = lineEnds(bytes);
    pugi::xml_parse_result const result = m_document.load_buffer(bytes.data(), bytes.size());
    if (!result) {
        std::wstring const description = odUtf8ToWide(result.description());
        throw ConfigError(m_shownPath, lineAt(result.offset), L"not well formed: " + description);
    }
}

int XmlSource::lineAt(std::ptrdiff_t offset) const
{
    auto const end = std::ranges::lower_bound(m_lineEnds, offset);
    return 1 + static_cast<int>(end - m_lineEnds.begin());
}

int XmlSource::line(pugi::xml_node node) const
{
    std::wstring_view const text = node.type() == pugi::node_pcdata ? node.value() : L"";
    std::wstring_view const blanks = text.substr(0, text.find_first_not_of(L" \t\r\n"));
    int const linesSkipped = static_cast<int>(std::ranges::count(blanks, L'\n'));
    while (node && node.offset_debug() < 0)
        node = node.parent();
    return node ? lineAt(node.offset_debug()) + linesSkipped : 1;
}

} // namespace vorntest
