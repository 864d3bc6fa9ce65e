#pragma once

// For authors of tests in C++ that run once for each of a set of files: a fixture whose constructor takes an
// argument, and a registration that names the suite and its tests.
//
//     class PlateTest : public CppUnit::TestFixture
//     {
//     public:
//         explicit PlateTest(ta::TestCaseArgParams& params);
//         void area();
//     };
//     vorntest::TestArgSuiteRegistration<ta::TestCaseArgParams, PlateTest> s_plates{
//         L"Plates", {{"The area is right", &PlateTest::area}}};
//
// The masks of the suite in the tests configuration find the files.

#include "vorntest/performance_test_case.h"
#include "vorntest/test_arg_suite_builder.h"
#include "vorntest/test_case_arg_base.h"
#include "vorntest/vorn_test_bench.h"

#include <cppunit/extensions/TestFactory.h>
#include <cppunit/extensions/TestFactoryRegistry.h>

#include <initializer_list>

namespace vorntest {

/// A suite that makes one argument for each file that its masks find, sorted by name within each mask, and adds
/// the tests with each argument. A file that two masks find is taken twice; folders are passed over.
class TestArgSuite : public CppUnit::TestSuite
{
public:
    TestArgSuite(std::wstring const& name, TypeDescriptor const& argumentType,
                 TestArgSuiteBuilder::MakeTests makeTests);
    ~TestArgSuite() override;

    /// Fills the suite by the configuration of the bench; without a bench it stays empty.
    void init(VornTestBench const* bench);
    /// Deletes the tests, then their arguments.
    void deleteContents() override;

private:
    TypeDescriptor const& m_argumentType;
    TestArgSuiteBuilder::MakeTests m_makeTests;
    std::vector<std::unique_ptr<TestCaseArgBase>> m_arguments;
};

/// One test of a fixture that was made with an argument.
template <class Argument, class Fixture>
class TestArgCaller : public PerformanceTestCase, public TestCaseArgBase
{
public:
    TestArgCaller(std::string const& name, void (Fixture::*test)(), Argument& argument)
        : PerformanceTestCase(name), TestCaseArgBase(argument.testArg()), m_fixture(argument), m_test(test)
    {
    }
    std::wstring const& testArg() const override { return TestCaseArgBase::testArg(); }
    void setUp() override { m_fixture.setUp(); }
    void runTest() override { (m_fixture.*m_test)(); }
    void tearDown() override { m_fixture.tearDown(); }

private:
    Fixture m_fixture;
    void (Fixture::*m_test)();
};

/// Makes a TestArgSuite known to the bench for as long as it exists; meant for static objects of a test module.
template <class Argument, class Fixture>
class TestArgSuiteRegistration : public CppUnit::TestFactory
{
public:
    struct NamedTest
    {
        char const* name;
        void (Fixture::*test)();
    };

    TestArgSuiteRegistration(std::wstring suiteName, std::initializer_list<NamedTest> tests)
        : m_suiteName(std::move(suiteName)), m_tests(tests)
    {
        CppUnit::TestFactoryRegistry::getRegistry().registerFactory(this);
    }
    ~TestArgSuiteRegistration() override
    {
        if (CppUnit::TestFactoryRegistry::isValid())
            CppUnit::TestFactoryRegistry::getRegistry().unregisterFactory(this);
    }
    TestArgSuiteRegistration(TestArgSuiteRegistration const&) = delete;
    TestArgSuiteRegistration& operator=(TestArgSuiteRegistration const&) = delete;

    /// The suite, filled by the configuration of the current bench; it belongs to the caller.
    CppUnit::Test* makeTest() override
    {
        auto const makeTests = [tests = m_tests](TestCaseArgBase& argument) {
            TestArgSuiteBuilder::Tests made;
            for (NamedTest const& test : tests)
                made.push_back(std::make_unique<TestArgCaller<Argument, Fixture>>(
                    test.name, test.test, dynamic_cast<Argument&>(argument)));
            return made;
        };
        auto suite = std::make_unique<TestArgSuite>(m_suiteName, *Argument::desc(), makeTests);
        suite->init(VornTestBench::current());
        return suite.release();
    }

private:
    std::wstring m_suiteName;
    std::vector<NamedTest> m_tests;
};

} // namespace vorntest
