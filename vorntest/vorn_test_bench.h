#pragma once

#include "vorntest/tests_config.h"

#include <string>
#include <string_view>

namespace CppUnit {

/// What builds and runs tests. Suites ask whether it is a vorntest::VornTestBench to reach its configuration.
class TestBench
{
public:
    virtual ~TestBench();
};

} // namespace CppUnit

namespace vorntest {

/// The bench that runs inside the application: its tests configuration, for suites and tests.
class VornTestBench : public CppUnit::TestBench
{
public:
    explicit VornTestBench(TestsConfig config) : m_config(std::move(config)) {}
    ~VornTestBench() override;
    VornTestBench(VornTestBench const&) = delete;
    VornTestBench& operator=(VornTestBench const&) = delete;

    /// A parameter of the configuration's root ("basePath", "logPath"); empty when absent.
    std::wstring parameter(std::wstring_view name) const;
    TestsConfig const& testsConfig() const { return m_config; }

    /// The bench that is building or running tests; null outside of one.
    static VornTestBench* current() { return s_current; }
    /// Makes this the current bench until it is destroyed.
    void makeCurrent() { s_current = this; }

private:
    static VornTestBench* s_current;
    TestsConfig m_config;
};

} // namespace vorntest
