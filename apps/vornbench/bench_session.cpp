#include "apps/vornbench/bench_session.h"

#include "apps/vornbench/config_warnings.h"
#include "host/root/od_string.h"

#include <cppunit/extensions/TestFactoryRegistry.h>

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
    m_tests.reset(CppUnit::TestFactoryRegistry::getRegistry().makeTest());
    m_catalog.emplace(*m_tests, config());
}

std::vector<std::string> BenchSession::warnings() const
{
    return ConfigWarnings(config(), m_catalog->topSuites()).collect();
}
