#include "vorntest/xml_source.h"

#include "host/root/od_error.h"
#include "host/root/od_string.h"
#include "host/ut/ut_file.h"
#include "vorntest/config_error.h"

#include <algorithm>

namespace vorntest {

XmlSource::XmlSource(std::wstring const& path, std::wstring shownPath) : m_shownPath(std::move(shownPath))
{
    std::string bytes;
    OdString reason;
    if (!ut::readWholeFile(path, bytes, &reason))
        throw ConfigError(m_shownPath, 0, reason.str());
    pugi::xml_parse_result const result = m_document.load_buffer(bytes.data(), bytes.size());
    m_lines = LineTable(bytes, result.encoding);
    if (!result) {
        std::wstring const description = odUtf8ToWide(result.description());
        throw ConfigError(m_shownPath, m_lines.line(result.offset), L"not well formed: " + description);
    }
}

int XmlSource::line(pugi::xml_node node) const
{
    std::wstring_view const text = node.type() == pugi::node_pcdata ? node.value() : L"";
    std::wstring_view const blanks = text.substr(0, text.find_first_not_of(L" \t\r\n"));
    int const linesSkipped = static_cast<int>(std::ranges::count(blanks, L'\n'));
    while (node && node.offset_debug() < 0)
        node = node.parent();
    return node ? m_lines.line(node.offset_debug()) + linesSkipped : 1;
}

} // namespace vorntest
