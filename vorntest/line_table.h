#pragma once

#include <pugixml.hpp>

#include <cstddef>
#include <string_view>
#include <vector>

namespace vorntest {

/// Where the lines of an XML file end, counted as the parser counts: in characters of the text that it decoded,
/// the byte-order mark included, not in bytes of the file.
class LineTable
{
public:
    LineTable() = default;
    /// Of the file's bytes in the encoding that the parser found.
    LineTable(std::string_view bytes, pugi::xml_encoding encoding);

    /// 1-based line of an offset that the parser gave.
    int line(std::ptrdiff_t offset) const;

private:
    std::vector<std::ptrdiff_t> m_ends; // offsets of the line feeds
};

} // namespace vorntest
