#include "vorntest/performance_test_case.h"

#include "host/root/od_string.h"

#include <cppunit/Protector.h>
#include <cppunit/TestResult.h>

#include <ctime>

namespace vorntest {

namespace {

double secondsOf(clockid_t clock)
{
    timespec time{};
    clock_gettime(clock, &time);
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * 1e-9;
}

/// Writes the time from construction to destruction, so that a body that throws is measured as well.
class Measurement
{
public:
    Measurement(clockid_t clock, double& target) : m_clock(clock), m_target(target), m_start(secondsOf(clock)) {}
    ~Measurement() { m_target = secondsOf(m_clock) - m_start; }
    Measurement(Measurement const&) = delete;
    Measurement& operator=(Measurement const&) = delete;

private:
    clockid_t m_clock;
    double& m_target;
    double m_start;
};

template <typename Call>
class CallFunctor : public CppUnit::Functor
{
public:
    explicit CallFunctor(Call call) : m_call(call) {}
    bool operator()() const override
    {
        m_call();
        return true;
    }

private:
    Call m_call;
};

} // namespace

PerformanceTestCase::PerformanceTestCase(std::string const& name) : CppUnit::TestCase(name) {}

PerformanceTestCase::PerformanceTestCase(std::wstring const& name) : CppUnit::TestCase(odWideToUtf8(name)) {}

void PerformanceTestCase::run(CppUnit::TestResult* result)
{
    m_wallSeconds = m_cpuSeconds = 0.0;
    result->startTest(this);
    if (result->protect(CallFunctor([this] { setUp(); }), this, "setUp() failed"))
        result->protect(CallFunctor([this] { runMeasured(); }), this);
    result->protect(CallFunctor([this] { tearDown(); }), this, "tearDown() failed");
    result->endTest(this);
}

void PerformanceTestCase::runMeasured()
{
    Measurement const cpu(CLOCK_PROCESS_CPUTIME_ID, m_cpuSeconds);
    Measurement const wall(CLOCK_MONOTONIC, m_wallSeconds);
    runTest();
}

} // namespace vorntest
