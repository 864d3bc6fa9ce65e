#include "apps/vornbench/bench_session.h"

#include "apps/vornbench/config_warnings.h"
#include "apps/vornbench/failure_location.h"
#include "apps/vornbench/usage_error.h"
#include "host/root/od_string.h"
#include "vorntest/config_error.h"

#include <cppunit/TestSuite.h>
#include <cppunit/extensions/TestFactoryRegistry.h>

#include <utility>

namespace {

vorntest::TestsConfig loadConfig(std::string const& path)
{
    vorntest::TestsConfig config;
    config.load(odUtf8ToWide(path));
    return config;
}

} // namespace

BenchSession::BenchSession(std::string const& configPath) : m_bench(loadConfig(configPath))
{
    m_bench.makeCurrent();
    m_modules.load(config());
    makeTests();
    m_catalog.emplace(*m_tests, config());
}

/// Modules make their tests in code of their own, which often relies on data files.
void BenchSession::makeTests()
{
    std::string reason = shownPath(odWideToUtf8(config().path())) + ": the modules cannot make their tests: ";
    try {
        auto suite = std::make_unique<CppUnit::TestSuite>("All Tests");
        CppUnit::TestFactoryRegistry::getRegistry().addTestToSuite(suite.get()); // makeTest() would lose its suite
        m_tests = std::move(suite);
        return;
    } catch (vorntest::ConfigError const& error) {
        reason = error.what();
    } catch (std::exception const& error) {
        reason += error.what();
    } catch (...) {
        reason += "unknown exception";
    }
    std::string message;
    for (std::string const& warning : takeDataFileWarnings())
        message += warning + '\n';
    throw UsageError(message + reason);
}

std::vector<std::string> BenchSession::warnings() const
{
    return ConfigWarnings(config(), m_catalog->topSuites()).collect();
}
