#include "apps/vornbench/test_catalog.h"

#include "host/root/od_string.h"
#include "vorntest/test_arg_suite.h"
#include "vorntest/test_case_arg_base.h"
#include "vorntest/tests_config.h"

#include <cppunit/extensions/TestDecorator.h>

#include <algorithm>
#include <tuple>

namespace {

struct TopSuite
{
    std::size_t configIndex;
    std::string name;
    CppUnit::Test* suite;
    bool isExplicit;
};

// CppUnit keeps its factories in the order of their addresses; a run must not depend on that.
std::vector<TopSuite> orderedTopSuites(CppUnit::Test& root, vorntest::TestsConfig const& config)
{
    std::unordered_map<std::string, std::size_t> configIndices;
    for (std::size_t i = 0; i < config.suites().size(); ++i)
        configIndices.emplace(odWideToUtf8(config.suites()[i].name()), i);
    std::vector<TopSuite> suites;
    for (int i = 0; i < root.getChildTestCount(); ++i) {
        CppUnit::Test* const suite = root.getChildTestAt(i);
        auto const it = configIndices.find(suite->getName());
        bool const isConfigured = it != configIndices.end();
        suites.push_back({isConfigured ? it->second : configIndices.size(), suite->getName(), suite,
                          isConfigured && config.suites()[it->second].isExplicit()});
    }
    std::ranges::stable_sort(suites, {}, [](TopSuite const& s) { return std::tie(s.configIndex, s.name); });
    return suites;
}

bool isUnit(CppUnit::Test const& test)
{
    return test.getChildTestCount() == 0 || dynamic_cast<CppUnit::TestDecorator const*>(&test);
}

// An empty suite is not a test.
bool isLeaf(CppUnit::Test const& test)
{
    return test.getChildTestCount() == 0 && test.countTestCases() > 0;
}

struct Pending
{
    CppUnit::Test* test;
    std::string name;
    bool isInUnit;
};

} // namespace

TestCatalog::TestCatalog(CppUnit::Test& root, vorntest::TestsConfig const& config)
{
    for (TopSuite const& top : orderedTopSuites(root, config)) {
        if (m_topSuites.empty() || m_topSuites.back().name != top.name)
            m_topSuites.push_back({top.name, false});
        if (dynamic_cast<vorntest::TestArgSuite const*>(top.suite))
            m_topSuites.back().takesArguments = true;
        addTop(*top.suite, top.isExplicit);
    }
}

// Suites nest as deeply as their files do, so this walks with a stack of its own.
void TestCatalog::addTop(CppUnit::Test& suite, bool isExplicit)
{
    std::size_t const topLength = suite.getName().size();
    std::vector<Pending> pending{{&suite, suite.getName(), false}};
    while (!pending.empty()) {
        Pending current = std::move(pending.back());
        pending.pop_back();
        if (!current.isInUnit && isUnit(*current.test)) {
            if (current.test->countTestCases() == 0)
                continue;
            m_units.push_back({current.test, m_entries.size(), 0});
            current.isInUnit = true;
        }
        if (isLeaf(*current.test)) {
            addEntry(*current.test, std::move(current.name), topLength, isExplicit);
            ++m_units.back().entryCount;
            continue;
        }
        for (int i = current.test->getChildTestCount(); i-- > 0;) {
            CppUnit::Test* const child = current.test->getChildTestAt(i);
            pending.push_back({child, current.name + "/" + child->getName(), current.isInUnit});
        }
    }
}

void TestCatalog::addEntry(CppUnit::Test& test, std::string name, std::size_t topLength, bool isExplicit)
{
    std::size_t const ownLength = test.getName().size();
    std::size_t const suiteLength = name.size() > ownLength ? name.size() - ownLength - 1 : name.size();
    auto const* const argument = dynamic_cast<vorntest::TestCaseArgBase const*>(&test);
    m_entries.push_back(
        {std::move(name), &test, suiteLength, topLength, isExplicit, argument ? &argument->testArg() : nullptr});
}
