#pragma once

#include "testapi/ta_data_file_observer.h"
#include "testapi/ta_expected_element.h"

#include "vorntest/line_table.h"

#include <pugixml.hpp>

#include <optional>

namespace ta {

/// A data or parameters file while it is read. Whoever observes such files hears of what reading it passes over.
class ObservedXmlFile
{
public:
    explicit ObservedXmlFile(OdString path) : m_path(std::move(path)) {}

    OdString const& path() const { return m_path; }
    pugi::xml_node root() const { return m_document.document_element(); }
    pugi::xml_parse_result load();

    static bool isObserved() { return DataFileObserver::current() != nullptr; }
    /// `consequence` is what follows from the failure, such as "no data are read".
    void noteFailure(pugi::xml_parse_result const& result, wchar_t const* consequence);
    void note(pugi::xml_node const& node, OdString text);
    /// Text, attributes and elements in an element that nobody looks at.
    void notePassedOver(pugi::xml_node const& element, ExpectedElement const& expected);
    /// Elements behind the root, which nobody looks at either.
    void noteOtherRoots();

private:
    void noteAttributes(pugi::xml_node const& element, ExpectedElement const& expected);
    int lineAt(std::ptrdiff_t offset);

    OdString m_path;
    pugi::xml_document m_document;
    pugi::xml_encoding m_encoding = pugi::encoding_auto;
    std::optional<vorntest::LineTable> m_lines;
};

} // namespace ta
