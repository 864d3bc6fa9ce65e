#include "testmodules/cmdtests/cmd_suite.h"

#include "testmodules/cmdtests/broken_node_test.h"
#include "testmodules/cmdtests/reference_test.h"

namespace {

// Building, running and deleting suites recurses; a file must not be able to exhaust the stack.
constexpr int s_deepestSuite = 100;

std::wstring textOf(pugi::xml_node const& node, wchar_t const* attribute)
{
    return node.attribute(attribute).value();
}

std::wstring inQuotes(std::wstring const& text)
{
    return L"'" + text + L"'";
}

} // namespace

CmdSuite::CmdSuite(std::wstring const& name) : TestSuiteArgBase(name) {}

CmdSuite::CmdSuite(std::wstring const& name, std::wstring file, int depth)
    : TestSuiteArgBase(name), m_file(std::move(file)), m_depth(depth)
{
}

std::wstring CmdSuite::fileOf(pugi::xml_node const& node) const
{
    return m_file.empty() ? suiteFile(node) : m_file;
}

void CmdSuite::addTestSuite(CppUnit::TestBench* bench, pugi::xml_node const& node)
{
    std::wstring const name = textOf(node, L"name");
    if (name.empty())
        return addBroken(node, L"TestSuite has no attribute 'name', so its tests are left out");
    if (m_depth == s_deepestSuite)
        return addBroken(node, L"TestSuite is nested more than " + std::to_wstring(s_deepestSuite) + L" deep");
    auto* const suite = new CmdSuite(name, fileOf(node), m_depth + 1);
    addTest(suite);
    suite->addTests(bench, node);
}

void CmdSuite::addTestCase(CppUnit::TestBench*, pugi::xml_node const& node)
{
    for (wchar_t const* const attribute : {L"name", L"file"})
        if (textOf(node, attribute).empty())
            return addBroken(node, L"TestCase has no attribute " + inQuotes(attribute));
    std::wstring const file = fileOf(node);
    ut::FileName testFile{OdString(textOf(node, L"file"))};
    testFile.normalize(ut::FileName::kAllButCase, ut::FileName(file).getPath());
    if (!testFile.fileExists())
        return addBroken(node, L"Test file not found: " + testFile.getFullPath().str());
    addTest(new ReferenceTest(textOf(node, L"name"), testFile.getFullPath().str()));
}

void CmdSuite::addBroken(pugi::xml_node const& node, std::wstring const& mistake)
{
    addTest(new BrokenNodeTest(node, fileOf(node), mistake));
}
