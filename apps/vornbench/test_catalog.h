#pragma once

#include <cppunit/Test.h>

#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace vorntest {
class TestsConfig;
}

/// One test as the bench lists it.
struct CatalogEntry
{
    std::string name;             ///< Suite/Sub/Test
    CppUnit::Test* test;          ///< what reports results; tests belong to their suites
    std::size_t suiteNameLength;  ///< of the leading "Suite/Sub" of the name
    std::size_t topNameLength;    ///< of the leading "Suite"
    bool isExplicit;              ///< runs only when a filter names its suite
    std::wstring const* argument; ///< full path of the file that the test was made from; null when it has none

    std::string_view suiteName() const { return std::string_view(name).substr(0, suiteNameLength); }
    std::string_view topName() const { return std::string_view(name).substr(0, topNameLength); }
};

/// A top suite, or several of one name.
struct CatalogSuite
{
    std::string name;
    bool takesArguments; ///< the files that its masks find are arguments of its tests, not suite files
};

/// What is run in one piece: a test, or a decorator with all tests below it, whose set-up they share.
struct CatalogUnit
{
    CppUnit::Test* runnable;
    std::size_t firstEntry;
    std::size_t entryCount;
};

/// All tests of the bench in the order of the run: suites as the configuration names them, then others by name.
class TestCatalog
{
public:
    /// The children of `root` are the top suites; it must outlive the catalog.
    TestCatalog(CppUnit::Test& root, vorntest::TestsConfig const& config);

    std::span<CatalogEntry const> entries() const { return m_entries; }
    std::span<CatalogUnit const> units() const { return m_units; }
    std::span<CatalogEntry const> entriesOf(CatalogUnit const& unit) const
    {
        return entries().subspan(unit.firstEntry, unit.entryCount);
    }
    /// The top suites, in order and each name once, empty ones included.
    std::span<CatalogSuite const> topSuites() const { return m_topSuites; }

private:
    void addTop(CppUnit::Test& suite, bool isExplicit);
    void addEntry(CppUnit::Test& test, std::string name, std::size_t topLength, bool isExplicit);

    std::vector<CatalogEntry> m_entries;
    std::vector<CatalogUnit> m_units;
    std::vector<CatalogSuite> m_topSuites;
};
