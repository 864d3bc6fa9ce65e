#pragma once

#include <pugixml.hpp>

#include <cstddef>
#include <string>
#include <vector>

namespace vorntest {

/// A parsed XML file that knows the line of each of its nodes, for messages.
class XmlSource
{
public:
    /// Reads and parses the file. Throws ConfigError when it cannot be read or is not well formed; `shownPath` is
    /// the name that messages use.
    XmlSource(std::wstring const& path, std::wstring shownPath);
    explicit XmlSource(std::wstring const& path) : XmlSource(path, path) {}

    std::wstring const& shownPath() const { return m_shownPath; }
    pugi::xml_document const& document() const { return m_document; }
    /// 1-based line of a node of the document; for text the line where it begins, blanks skipped.
    int line(pugi::xml_node node) const;

private:
    int lineAt(std::ptrdiff_t offset) const;

    std::wstring m_shownPath;
    pugi::xml_document m_document;
    std::vector<std::ptrdiff_t> m_lineEnds; // offsets of the line feeds, in characters as the parser counts them
};

} // namespace vorntest
