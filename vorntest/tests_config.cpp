#include "vorntest/tests_config.h"

#include "vorntest/tests_config_reader.h"

namespace vorntest {

std::wstring SuiteConfig::module() const
{
    wchar_t const* const name = node.parameter(L"module");
    return name ? name : L"";
}

bool SuiteConfig::isExplicit() const
{
    wchar_t const* const run = node.parameter(L"run");
    return run && std::wstring_view(run) == L"explicit";
}

void TestsConfig::load(std::wstring const& path)
{
    *this = TestsConfigReader(path).read();
}

SuiteConfig const* TestsConfig::suite(std::wstring_view name) const
{
    auto const it = m_suiteIndices.find(name);
    return it == m_suiteIndices.end() ? nullptr : &m_suites[it->second];
}

std::span<ConfigNode const> TestsConfig::range(std::wstring_view suiteName, std::wstring_view key) const
{
    SuiteConfig const* const found = key == L"mask" ? suite(suiteName) : nullptr;
    return found ? std::span<ConfigNode const>(found->masks) : std::span<ConfigNode const>();
}

ConfigNode const* TestsConfig::node(std::wstring_view suiteName) const
{
    SuiteConfig const* const found = suite(suiteName);
    return found ? &found->node : nullptr;
}

} // namespace vorntest
