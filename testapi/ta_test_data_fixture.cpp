#include "testapi/ta_test_data_fixture.h"

#include "testapi/ta_observed_xml_file.h"
#include "testapi/ta_utils.h"

#include "vorntest/nearest_name.h"

#include <cppunit/TestSuite.h>

#include <map>
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

/// Tells observers of the elements of a file that give no data.
class LeftOutElements
{
public:
    explicit LeftOutElements(ObservedXmlFile& file) : m_file(file) {}

    void note(pugi::xml_node const& element)
    {
        if (!ObservedXmlFile::isObserved() || element.type() != pugi::node_element)
            return;
        std::wstring const name = element.name();
        auto const [reason, isNew] = m_reasons.try_emplace(name);
        if (isNew)
            reason->second = reasonFor(name);
        m_file.note(element, reason->second);
    }

private:
    ObservedXmlFile& m_file;
    std::map<std::wstring, std::wstring> m_reasons; ///< by the names of elements
};

OdString withSlashes(wchar_t const* path)
{
    OdString corrected(path);
    ut::correctSlashes(corrected);
    return corrected;
}

} // namespace

void readDataFromXML(TestGeDataArray& data, wchar_t const* path, EReadDataFromXMLParam, ut::CRtClass const* filter)
{
    ObservedXmlFile file(withSlashes(path));
    if (pugi::xml_parse_result const result = file.load(); !result) {
        ca::warningPromptf(L"Failed to read test params file %ls.\nError message: %hs", file.path().c_str(),
                           result.description());
        file.noteFailure(result, L"no data are read");
        return;
    }
    LeftOutElements leftOut(file);
    for (pugi::xml_node const element : file.root().children()) {
        std::unique_ptr<ut::TestGeData> datum = ut::TestGeData::readObject(element);
        if (!datum)
            leftOut.note(element);
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
