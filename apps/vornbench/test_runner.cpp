#include "apps/vornbench/test_runner.h"

#include "apps/vornbench/failure_location.h"
#include "apps/vornbench/interrupt.h"
#include "vorntest/exception_protector.h"
#include "vorntest/performance_test_case.h"

#include <cppunit/Exception.h>

namespace {

double secondsSince(std::chrono::steady_clock::time_point start)
{
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

} // namespace

TestRunner::TestRunner(TestCatalog const& catalog, std::span<RunObserver* const> observers,
                       TestSurroundings& surroundings)
    : m_catalog(catalog), m_observers(observers), m_surroundings(surroundings)
{
    m_result.pushProtector(new vorntest::ExceptionProtector); // the result owns it
    m_result.addListener(this);
}

RunSummary TestRunner::run(SelectedUnits const& selected)
{
    auto const start = Clock::now();
    RunSummary summary;
    summary.selected = selected.testCount;
    for (std::size_t const index : selected.units) {
        if (InterruptGuard::isRequested())
            break;
        runUnit(m_catalog.units()[index]);
    }
    summary.counts = m_counts;
    summary.seconds = secondsSince(start);
    summary.wasInterrupted = InterruptGuard::isRequested();
    return summary;
}

void TestRunner::runUnit(CatalogUnit const& unit)
{
    m_unit = &unit;
    m_entriesByTest.clear();
    for (CatalogEntry const& entry : m_catalog.entriesOf(unit))
        m_entriesByTest.emplace(entry.test, &entry);
    unit.runnable->run(&m_result);
    std::vector<std::string> leftovers = m_surroundings.restore();
    if (m_outcome)
        m_outcome->leftovers = std::move(leftovers);
    publish();
}

void TestRunner::publish()
{
    if (!m_outcome)
        return;
    m_counts.add(*m_outcome);
    for (RunObserver* const observer : m_observers)
        observer->testEnded(*m_outcome);
    m_outcome.reset();
}

void TestRunner::startTest(CppUnit::Test* test)
{
    publish();
    // A decorator reports the test that it wraps, which the catalog cannot see: it is the unit's only one then.
    auto const it = m_entriesByTest.find(test);
    m_outcome.emplace();
    m_outcome->entry = it != m_entriesByTest.end() ? it->second : &m_catalog.entries()[m_unit->firstEntry];
    for (RunObserver* const observer : m_observers)
        observer->testStarted(*m_outcome->entry);
    m_surroundings.testStarts();
    m_testStart = Clock::now();
}

void TestRunner::addFailure(CppUnit::TestFailure const& failure)
{
    if (!m_outcome)
        return;
    m_outcome->failures.push_back(failureRecord(failure, *m_outcome->entry));
}

void TestRunner::endTest(CppUnit::Test* test)
{
    if (!m_outcome)
        return;
    m_outcome->seconds = secondsSince(m_testStart);
    if (auto const* const measured = dynamic_cast<vorntest::PerformanceTestCase const*>(test))
        m_outcome->body = BodyTimes{measured->wallSeconds(), measured->cpuSeconds()};
    m_surroundings.testEnds(*m_outcome);
}
