#pragma once

#include "vorntest/line_table.h"

#include <pugixml.hpp>

#include <string>

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
    std::wstring m_shownPath;
    pugi::xml_document m_document;
    LineTable m_lines;
};

} // namespace vorntest
