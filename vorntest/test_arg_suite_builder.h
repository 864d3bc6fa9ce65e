#pragma once

#include <cppunit/TestSuite.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace vorntest {

class TestCaseArgBase;
class VornTestBench;

/// Names what a TestArgSuiteBuilder builds.
class TestArgNamer
{
public:
    explicit TestArgNamer(std::wstring suiteName) : m_suiteName(std::move(suiteName)) {}

    /// The suite being built, as the tests configuration names it.
    std::wstring const& suiteName() const { return m_suiteName; }
    /// The suite of the tests with one argument: the name of its file, without folder and extension.
    std::wstring suiteNameFor(TestCaseArgBase const& argument) const;

private:
    std::wstring m_suiteName;
};

/// Fills a suite with tests that take an argument, while the bench assembles its tests.
class TestArgSuiteBuilder
{
public:
    using Tests = std::vector<std::unique_ptr<CppUnit::Test>>;
    /// Makes what the suite tests with one argument.
    using MakeTests = std::function<Tests(TestCaseArgBase& argument)>;

    /// The suite and the bench, which may be null, outlive the builder.
    TestArgSuiteBuilder(CppUnit::TestSuite& suite, VornTestBench const* bench, MakeTests makeTests);

    /// Null outside of a bench.
    VornTestBench const* testBench() const { return m_bench; }
    TestArgNamer const& namer() const { return m_namer; }

    /// Adds a test to the suite.
    void addTest(std::unique_ptr<CppUnit::Test> test);
    /// Adds what the suite tests with this argument, as a suite named after it. The argument outlives the tests.
    void addTestsWith(TestCaseArgBase& argument);

private:
    CppUnit::TestSuite& m_suite;
    VornTestBench const* m_bench;
    TestArgNamer m_namer;
    MakeTests m_makeTests;
};

} // namespace vorntest
