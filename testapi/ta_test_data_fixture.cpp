#include "testapi/ta_test_data_fixture.h"

#include "testapi/ta_observed_xml_file.h"
#include "testapi/ta_test_data_elements.h"
#include "testapi/ta_utils.h"

#include "vorntest/nearest_name.h"

#include <cppunit/TestSuite.h>

#include <algorithm>
#include <map>
#include <string>

namespace ta {

namespace {

/// Tells observers of a file what reading it passes over.
class PassedOver
{
public:
    explicit PassedOver(ObservedXmlFile& file) : m_file(file) { m_file.noteOtherRoots(); }

    /// Something among the data: what gives no datum, and what a datum does not look at.
    void note(pugi::xml_node const& node, ut::TestGeData const* datum)
    {
        if (!ObservedXmlFile::isObserved())
            return;
        if (node.type() == pugi::node_pcdata || node.type() == pugi::node_cdata)
            m_file.note(node, L"text between data, passed over");
        if (node.type() != pugi::node_element)
            return;
        ut::CRtClass const* const cls = datum ? datum->isA() : ut::CRtClass::find(node.name());
        ExpectedElement const* const expected = cls ? m_elements.of(cls) : nullptr;
        if (!datum)
            m_file.note(node, cls ? unreadable(node, expected) : unknown(node.name()));
        if (expected)
            m_file.notePassedOver(node, *expected);
    }

private:
    static std::wstring unreadable(pugi::xml_node const& element, ExpectedElement const* expected)
    {
        std::wstring const reason = element.name() + std::wstring(L" could not be read, left out");
        if (!expected)
            return reason;
        if (std::wstring const lack = firstLack(element, *expected); !lack.empty())
            return reason + L": it has no " + lack;
        ExpectedElement const* const inner = expected->child();
        for (pugi::xml_node child = element.first_child(); child && inner; child = child.next_sibling()) {
            if (child.type() != pugi::node_element)
                continue;
            if (!inner->name().empty() && child.name() != inner->name())
                return reason + L": " + child.name() + L" stands where only " + std::wstring(inner->name()) +
                       L" can";
            if (std::wstring const lack = firstLack(child, *inner); !lack.empty())
                return reason + L": " + child.name() + L" has no " + lack;
        }
        return reason;
    }
    static std::wstring firstLack(pugi::xml_node const& element, ExpectedElement const& expected)
    {
        auto const lack = std::ranges::find_if(
            expected.required(), [&](std::wstring const& name) { return !element.attribute(name.c_str()); });
        return lack == expected.required().end() ? std::wstring() : *lack;
    }
    /// A file may have a thousand elements of one misspelt class.
    std::wstring const& unknown(std::wstring const& name)
    {
        auto const [text, isNew] = m_unknown.try_emplace(name);
        if (isNew) {
            if (m_names.empty())
                m_names = ut::CRtClass::names();
            std::wstring_view const meant = vorntest::nearestName(name, m_names);
            text->second = L"no class of data is named " + name + L", left out";
            if (!meant.empty())
                text->second.append(L"; did you mean '").append(meant).append(L"'?");
        }
        return text->second;
    }

    ObservedXmlFile& m_file;
    TestDataElements m_elements;
    std::vector<std::wstring_view> m_names;
    std::map<std::wstring, std::wstring> m_unknown; ///< what is told of an unknown class
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
    PassedOver passedOver(file);
    for (pugi::xml_node const node : file.root().children()) {
        std::unique_ptr<ut::TestGeData> datum = ut::TestGeData::readObject(node);
        passedOver.note(node, datum.get());
        if (datum && (!filter || datum->isKindOf(filter)))
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
