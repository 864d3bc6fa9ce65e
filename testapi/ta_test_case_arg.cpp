#include "testapi/ta_test_case_arg.h"

#include "testapi/ta_assert.h"
#include "testapi/ta_observed_xml_file.h"

#include <algorithm>
#include <utility>

namespace ta {

namespace {

constexpr char s_area[] = "testapi/ta_test_case_arg";
constexpr wchar_t s_listSeparator = L',';
constexpr wchar_t s_on[] = L"on";
constexpr wchar_t s_off[] = L"off";
constexpr wchar_t s_drawing[] = L"dwg";

std::wstring_view fileOf(std::wstring_view path)
{
    return path.substr(path.rfind(L'/') + 1);
}

/// With its "/" at the end; empty where the path has none.
std::wstring_view folderOf(std::wstring_view path)
{
    return path.substr(0, path.rfind(L'/') + 1);
}

} // namespace

void str2set(wchar_t const* list, std::set<std::wstring>& out)
{
    std::wstring_view rest = list ? list : L"";
    while (!rest.empty()) {
        std::wstring_view const name = rest.substr(0, rest.find(s_listSeparator));
        if (!name.empty())
            out.emplace(name);
        rest.remove_prefix(std::min(name.size() + 1, rest.size()));
    }
}

TestCaseArgParams::TestCaseArgParams(std::wstring const& paramsFile) : TestCaseArgBase(paramsFile) {}

TestCaseArgParams::~TestCaseArgParams() = default;

vorntest::TypeDescriptor const* TestCaseArgParams::desc()
{
    static vorntest::TypeDescriptor const s_desc(
        L"TestCaseArgParams", TestCaseArgBase::desc(),
        []() -> std::unique_ptr<TestCaseArgBase> { return std::make_unique<TestCaseArgParams>(std::wstring()); },
        &__addPropertiesToDescriptor);
    return &s_desc;
}

// NOLINTNEXTLINE(*-reserved-identifier)
void TestCaseArgParams::__addPropertiesToDescriptor(vorntest::TypeDescriptor& descriptor)
{
    descriptor.addProperty({L"paramsFile", [](TestCaseArgBase& argument, std::wstring const& text) {
                                dynamic_cast<TestCaseArgParams&>(argument).setTestArg(text);
                            }});
}

void TestCaseArgParams::setup()
{
    m_prefix.reset();
    // A set-up that failed was not followed by cleanup().
    m_dwgName = OdString();
    m_on.clear();
    m_off.clear();
    readParams();
    m_dwgName = m_params->root().attribute(s_drawing).value();
    if (m_dwgName.isEmpty())
        message(L"using the current open drawing for testing", false);
    else
        openDrawing();
}

void TestCaseArgParams::readParams()
{
    m_params = std::make_unique<ObservedXmlFile>(testArg());
    if (pugi::xml_parse_result const result = m_params->load(); !result) {
        m_params->noteFailure(result, L"the parameters cannot be read");
        m_params.reset();
        message(L"could not read params file", true);
    }
    // A misspelt attribute would switch nothing, without a word.
    m_params->notePassedOver(m_params->root(), ExpectedElement(L"parameter", L"on? off? dwg?"));
    m_params->noteOtherRoots();
    str2set(m_params->root().attribute(s_on).value(), m_on);
    str2set(m_params->root().attribute(s_off).value(), m_off);
}

void TestCaseArgParams::openDrawing()
{
    if (ca::app()->openFile(drawingPath().c_str()))
        return;
    m_dwgName = OdString();
    message(L"failed to open the drawing", true);
}

OdString TestCaseArgParams::drawingPath() const
{
    if (ut::fileExists(m_dwgName))
        return m_dwgName;
    return std::wstring(folderOf(testArg())).append(fileOf(m_dwgName.str()));
}

void TestCaseArgParams::cleanup()
{
    bool const hasOpened = !m_dwgName.isEmpty();
    m_dwgName = OdString();
    m_params.reset();
    m_on.clear();
    m_off.clear();
    ca::CaDoc* const document = ca::curDoc();
    if (!hasOpened || !document)
        return;
    sds_cmd(nullptr); // a command that a failing test left waiting would take the name of the next as an answer
    document->setDbModified(0);
    sds_command(RTSTR, L"._CLOSE", RTNONE);
}

void TestCaseArgParams::message(wchar_t const* text, bool fail)
{
    std::wstring composed = m_prefix ? *m_prefix + L": " : std::wstring();
    composed.append(text).append(L"\n");
    if (fail)
        failForced(composed, {s_area, __LINE__});
    m_message = std::move(composed);
}

} // namespace ta
