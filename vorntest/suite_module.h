#pragma once

#include "vorntest/vorn_test_bench.h"

#include <cppunit/Test.h>
#include <cppunit/plugin/TestPlugIn.h>

#include <memory>
#include <vector>

namespace vorntest {

/// Base of test modules whose suites come from the tests configuration: builds each configured suite that names
/// the module. A module derives from it, makes suites, and exports itself:
///
///     class GearTests : public vorntest::SuiteModule
///     {
///         std::unique_ptr<CppUnit::Test> createSuite(SuiteConfig const& suite, VornTestBench& bench) override;
///     };
///     CPPUNIT_PLUGIN_EXPORTED_FUNCTION_IMPL(GearTests);
///
/// The bench passes the module's name as the plug-in's command line.
class SuiteModule : public CppUnit::TestPlugInDefaultImpl
{
public:
    SuiteModule();
    ~SuiteModule() override;

    void initialize(CppUnit::TestFactoryRegistry* registry, CppUnit::PlugInParameters const& parameters) override;
    void uninitialize(CppUnit::TestFactoryRegistry* registry) override;

protected:
    /// The suite with its tests; never null. Called once, while the bench assembles its tests.
    virtual std::unique_ptr<CppUnit::Test> createSuite(SuiteConfig const& suite, VornTestBench& bench) = 0;

private:
    class SuiteFactory;
    std::vector<std::unique_ptr<SuiteFactory>> m_factories;
};

} // namespace vorntest
