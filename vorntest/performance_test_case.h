#pragma once

#include <cppunit/TestCase.h>

#include <string>

namespace vorntest {

/// A test case that measures its body: runTest() alone, without setUp() and tearDown().
class PerformanceTestCase : public CppUnit::TestCase
{
public:
    explicit PerformanceTestCase(std::string const& name);
    explicit PerformanceTestCase(std::wstring const& name);

    /// Runs setUp(), runTest() and tearDown() under the result's protection, as CppUnit's own test case does.
    void run(CppUnit::TestResult* result) override;

    /// Elapsed time of the last run's body in seconds; 0 when it did not get so far.
    double wallSeconds() const { return m_wallSeconds; }
    /// Processor time of this process in the last run's body, in seconds.
    double cpuSeconds() const { return m_cpuSeconds; }

private:
    void runMeasured();

    double m_wallSeconds = 0.0;
    double m_cpuSeconds = 0.0;
};

} // namespace vorntest
