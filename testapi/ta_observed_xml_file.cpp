#include "testapi/ta_observed_xml_file.h"

#include "vorntest/nearest_name.h"

#include <algorithm>

namespace ta {

pugi::xml_parse_result ObservedXmlFile::load()
{
    pugi::xml_parse_result result;
    result.status = pugi::status_file_not_found;
    if (ut::fileExists(m_path)) // what is no file, such as a pipe, could be waited for without end
        result = m_document.load_file(m_path.c_str());
    m_encoding = result.encoding;
    return result;
}

void ObservedXmlFile::noteFailure(pugi::xml_parse_result const& result, wchar_t const* consequence)
{
    if (!isObserved())
        return;
    bool const isRead = result.status != pugi::status_file_not_found && result.status != pugi::status_io_error;
    OdString const description = OdString::fromUtf8(result.description());
    DataFileObserver::current()->noted(
        {m_path, isRead ? lineAt(result.offset) : 0, consequence + (L": " + description)});
}

void ObservedXmlFile::note(pugi::xml_node const& node, OdString text)
{
    if (!isObserved())
        return;
    // A text begins behind the element in front of it, but people see where its first word is.
    std::wstring_view const value = node.value();
    std::size_t const blanks = std::min(value.find_first_not_of(L" \t\r\n"), value.size());
    std::ptrdiff_t const offset = node.offset_debug() + static_cast<std::ptrdiff_t>(blanks);
    DataFileObserver::current()->noted({m_path, lineAt(offset), std::move(text)});
}

void ObservedXmlFile::notePassedOver(pugi::xml_node const& element, ExpectedElement const& expected)
{
    if (!isObserved())
        return;
    noteAttributes(element, expected);
    for (pugi::xml_node const child : element.children()) {
        if (child.type() == pugi::node_pcdata || child.type() == pugi::node_cdata)
            note(child, L"text between elements, passed over");
        else if (child.type() == pugi::node_element && expected.child())
            notePassedOver(child, *expected.child());
        else if (child.type() == pugi::node_element)
            note(child, L"no element is expected in " + std::wstring(element.name()) + L", " + child.name() +
                            L" is passed over");
    }
}

void ObservedXmlFile::noteAttributes(pugi::xml_node const& element, ExpectedElement const& expected)
{
    for (pugi::xml_attribute const attribute : element.attributes()) {
        std::wstring const name = attribute.name();
        if (std::ranges::find(expected.attributes(), name) == expected.attributes().end())
            note(element, L"no " + expected.called() + L" is named " + name +
                              vorntest::nearestNameHint(name, expected.attributes()));
        else if (element.attribute(name.c_str()) != attribute)
            note(element, name + L" is given twice, the first one counts");
    }
}

void ObservedXmlFile::noteOtherRoots()
{
    if (!isObserved())
        return;
    for (pugi::xml_node node = root().next_sibling(); node; node = node.next_sibling())
        if (node.type() == pugi::node_element)
            note(node,
                 L"only the first element of a file is read, " + std::wstring(node.name()) + L" is left out");
}

// The parser keeps no lines, so the file is read once more when there is something to tell.
int ObservedXmlFile::lineAt(std::ptrdiff_t offset)
{
    if (!m_lines) {
        std::string bytes;
        m_lines =
            ut::readWholeFile(m_path, bytes) ? vorntest::LineTable(bytes, m_encoding) : vorntest::LineTable();
    }
    return m_lines->line(offset);
}

} // namespace ta
