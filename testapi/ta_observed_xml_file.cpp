#include "testapi/ta_observed_xml_file.h"

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

void ObservedXmlFile::note(pugi::xml_node const& element, OdString text)
{
    if (isObserved())
        DataFileObserver::current()->noted({m_path, lineAt(element.offset_debug()), std::move(text)});
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
