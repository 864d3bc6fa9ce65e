#include "testapi/ta_test_data_fixture.h"

#include "testapi/ta_data_file_observer.h"
#include "testapi/ta_utils.h"

#include "vorntest/line_table.h"
#include "vorntest/nearest_name.h"

#include <cppunit/TestSuite.h>

#include <map>
#include <optional>
#include <string>

namespace ta {

namespace {

/// Why an element gives no datum.
std::wstring reasonFor(std::wstring const& name)
{
    if (ut::CRtClass::find(name))
        return name + L" could not be read, left out";
    std::wstring const reason = L"no class of data is named " + name + L", left out";
    std::wstring_view const meant = vorntest::nearestName(name, ut::CRtClass::names());
    return meant.empty() ? reason : reason + L"; did you mean " + std::wstring(meant) + L"?";
}

/// A data file being read, with what there is to tell of it.
class DataFile
{
public:
    explicit DataFile(wchar_t const* path) : m_path(path) { ut::correctSlashes(m_path); }

    OdString const& path() const { return m_path; }
    pugi::xml_node root() const { return m_document.document_element(); }
    pugi::xml_parse_result load();
    void noteFailure(pugi::xml_parse_result const& result);
    void noteLeftOut(pugi::xml_node const& element);

private:
    int lineAt(std::ptrdiff_t offset);

    OdString m_path;
    pugi::xml_document m_document;
    pugi::xml_encoding m_encoding = pugi::encoding_auto;
    std::optional<vorntest::LineTable> m_lines;
    std::map<std::wstring, std::wstring> m_reasons; ///< by the names of elements that were left out
};

pugi::xml_parse_result DataFile::load()
{
    pugi::xml_parse_result result;
    result.status = pugi::status_file_not_found;
    if (ut::fileExists(m_path)) // what is no file, such as a pipe, could be waited for without end
        result = m_document.load_file(m_path.c_str());
    m_encoding = result.encoding;
    return result;
}

void DataFile::noteFailure(pugi::xml_parse_result const& result)
{
    DataFileObserver* const observer = DataFileObserver::current();
    if (!observer)
        return;
    bool const isRead = result.status != pugi::status_file_not_found && result.status != pugi::status_io_error;
    OdString const description = OdString::fromUtf8(result.description());
    observer->noted({m_path, isRead ? lineAt(result.offset) : 0, L"no data are read: " + description});
}

void DataFile::noteLeftOut(pugi::xml_node const& element)
{
    DataFileObserver* const observer = DataFileObserver::current();
    if (!observer || element.type() != pugi::node_element)
        return;
    std::wstring const name = element.name();
    auto const [reason, isNew] = m_reasons.try_emplace(name);
    if (isNew)
        reason->second = reasonFor(name);
    observer->noted({m_path, lineAt(element.offset_debug()), reason->second});
}

// The parser keeps no lines, so the file is read once more when there is something to tell.
int DataFile::lineAt(std::ptrdiff_t offset)
{
    if (!m_lines) {
        std::string bytes;
        m_lines =
            ut::readWholeFile(m_path, bytes) ? vorntest::LineTable(bytes, m_encoding) : vorntest::LineTable();
    }
    return m_lines->line(offset);
}

} // namespace

void readDataFromXML(TestGeDataArray& data, wchar_t const* path, EReadDataFromXMLParam, ut::CRtClass const* filter)
{
    DataFile file(path);
    if (pugi::xml_parse_result const result = file.load(); !result) {
        ca::warningPromptf(L"Failed to read test params file %ls.\nError message: %hs", file.path().c_str(),
                           result.description());
        file.noteFailure(result);
        return;
    }
    for (pugi::xml_node const element : file.root().children()) {
        std::unique_ptr<ut::TestGeData> datum = ut::TestGeData::readObject(element);
        if (!datum)
            file.noteLeftOut(element);
        else if (!filter || datum->isKindOf(filter))
            data.append(std::move(datum));
    }
}

void ReadDataFromXML::operator()(TestGeDataArray& data, vorntest::VornTestBench* bench) const
{
    ut::FileName name{OdString(m_fileName)};
    name.normalize(ut::FileName::kDots | ut::FileName::kTilde | ut::FileName::kAbsolute,
                   getTestFilesPath(false, bench));
    readDataFromXML(data, name.getFullPath().c_str(), kReadDataDefault, nullptr);
}

TestDataNamer::~TestDataNamer() = default;

std::wstring TestDataNamer::getBaseName() const
{
    return m_baseName;
}

std::wstring TestDataNamer::getTestNameFor(std::wstring const& name) const
{
    return getBaseName() + L"::" + name;
}

std::wstring TestDataNamer::getSuiteNameFor(std::wstring const& name) const
{
    return getBaseName() + L"." + name;
}

std::wstring TestDataNamer::getTestNameFor(std::wstring const& name, unsigned index) const
{
    return getSuiteNameFor(name) + L".Data#" + std::to_wstring(index);
}

void TestDataSuiteBuilderContext::addTest(CppUnit::Test* test) const
{
    m_suite->addTest(test);
}

} // namespace ta
