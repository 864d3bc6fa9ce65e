#include "testapi/ta_test_suite_arg.h"

#include "testapi/ta_utils.h"

#include "vorntest/vorn_test_bench.h"

#include <algorithm>
#include <filesystem>
#include <iterator>

namespace fs = std::filesystem;

namespace {

constexpr std::wstring_view s_suiteElement = L"TestSuite";

struct Handler
{
    std::wstring_view element;
    void (TestSuiteArgBase::*handle)(CppUnit::TestBench*, pugi::xml_node const&);
};
constexpr Handler s_handlers[] = {
    {L"TestFixture", &TestSuiteArgBase::addTestFixture},
    {L"TestCase", &TestSuiteArgBase::addTestCase},
    {s_suiteElement, &TestSuiteArgBase::addTestSuite},
};

/// The mask with environment variables expanded; as written when the expansion is too long for a path.
OdString expandedMask(std::wstring const& mask)
{
    wchar_t buffer[4096];
    std::size_t const needed = ut::expandEnvironmentStrings(mask.c_str(), buffer, std::size(buffer));
    if (needed == 0 || needed > std::size(buffer))
        return mask;
    ta::correctSlashes(buffer, false);
    return buffer;
}

ut::FileName resolvedMask(std::wstring const& mask, vorntest::VornTestBench const* bench)
{
    // Variables are expanded already; a value is not searched for references again.
    constexpr unsigned flags = 215 & ~unsigned(ut::FileName::kVariables);
    ut::FileName name(expandedMask(mask));
    name.normalize(flags, bench ? OdString(bench->parameter(ta::BASE_PATH)) : OdString());
    return name;
}

} // namespace

TestSuiteArgBase::TestSuiteArgBase(std::wstring const& name) : CppUnit::TestSuite(ta::wcstombs(name)) {}

TestSuiteArgBase::~TestSuiteArgBase()
{
    TestSuiteArgBase::deleteContents();
}

void TestSuiteArgBase::deleteContents()
{
    CppUnit::TestSuite::deleteContents();
    m_documents.clear();
}

void TestSuiteArgBase::addTestCase(CppUnit::TestBench*, pugi::xml_node const&) {}

void TestSuiteArgBase::addTestFixture(CppUnit::TestBench*, pugi::xml_node const&) {}

void TestSuiteArgBase::init(CppUnit::TestBench* bench)
{
    auto const* const vornBench = dynamic_cast<vorntest::VornTestBench const*>(bench);
    if (!vornBench)
        return;
    for (vorntest::ConfigNode const& node : vornBench->testsConfig().range(odUtf8ToWide(getName()), L"mask"))
        createTests(bench, &node);
}

void TestSuiteArgBase::createTests(CppUnit::TestBench* bench, vorntest::ConfigNode const* node)
{
    ut::FileName const mask = resolvedMask(node->value(), dynamic_cast<vorntest::VornTestBench const*>(bench));
    OdString const folder = mask.getPath(ut::FileName::kTrailingSeparator);
    OdString const pattern = mask.getFullName();
    std::error_code error;
    for (fs::directory_iterator it(folder.toUtf8(), error); !error && it != fs::directory_iterator();
         it.increment(error)) {
        OdString const name = OdString::fromUtf8(it->path().filename().string());
        if (ut::matchesWildcard(name.str(), pattern.str()))
            addTests(bench, (folder + name).str(), node);
    }
}

void TestSuiteArgBase::addTests(CppUnit::TestBench* bench, std::wstring const& path, vorntest::ConfigNode const*)
{
    // The parser takes the size of a folder, which masks may match as well, for that of a huge file.
    auto document = std::make_unique<SuiteDocument>();
    if (!ut::fileExists(path) || !document->load_file(path.c_str()))
        return;
    pugi::xml_node const root = document->document_element();
    if (root.name() != s_suiteElement || ta::wcstombs(root.attribute(L"name").value()) != getName())
        return;
    document->path = path;
    m_documents.push_back(std::move(document));
    addTests(bench, root);
}

void TestSuiteArgBase::addTests(CppUnit::TestBench* bench, pugi::xml_node const& suiteNode)
{
    for (pugi::xml_node const child : suiteNode.children()) {
        Handler const* const handler = std::ranges::find(s_handlers, child.name(), &Handler::element);
        if (handler != std::end(s_handlers))
            (this->*handler->handle)(bench, child);
    }
}

std::wstring TestSuiteArgBase::suiteFile(pugi::xml_node const& node) const
{
    // From the end: while the suite is being filled, it is the last one.
    auto const isOrigin = [root = node.root()](auto const& document) { return *document == root; };
    auto const found = std::find_if(m_documents.rbegin(), m_documents.rend(), isOrigin);
    return found == m_documents.rend() ? std::wstring() : (*found)->path;
}
