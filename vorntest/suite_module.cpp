#include "vorntest/suite_module.h"

#include "host/root/od_string.h"

#include <cppunit/extensions/TestFactory.h>
#include <cppunit/extensions/TestFactoryRegistry.h>

namespace vorntest {

/// Makes one configured suite when the bench assembles its tests.
class SuiteModule::SuiteFactory : public CppUnit::TestFactory
{
public:
    SuiteFactory(SuiteModule& module, SuiteConfig const& suite, VornTestBench& bench)
        : m_module(module), m_suite(suite), m_bench(bench)
    {
    }
    CppUnit::Test* makeTest() override { return m_module.createSuite(m_suite, m_bench).release(); }

private:
    SuiteModule& m_module;
    SuiteConfig const& m_suite;
    VornTestBench& m_bench;
};

SuiteModule::SuiteModule() = default;
SuiteModule::~SuiteModule() = default;

void SuiteModule::initialize(CppUnit::TestFactoryRegistry* registry, CppUnit::PlugInParameters const& parameters)
{
    VornTestBench* const bench = VornTestBench::current();
    if (!bench)
        return; // loaded by a runner without a tests configuration
    std::wstring const ownName = odUtf8ToWide(parameters.getCommandLine());
    for (SuiteConfig const& suite : bench->testsConfig().suites()) {
        if (suite.module() != ownName)
            continue;
        m_factories.push_back(std::make_unique<SuiteFactory>(*this, suite, *bench));
        registry->registerFactory(m_factories.back().get());
    }
}

void SuiteModule::uninitialize(CppUnit::TestFactoryRegistry* registry)
{
    for (auto const& factory : m_factories)
        registry->unregisterFactory(factory.get());
    m_factories.clear();
}

} // namespace vorntest
