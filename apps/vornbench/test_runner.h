#pragma once

#include "apps/vornbench/run_observer.h"
#include "apps/vornbench/test_selection.h"
#include "apps/vornbench/test_surroundings.h"

#include <cppunit/TestListener.h>
#include <cppunit/TestResult.h>

#include <chrono>
#include <optional>
#include <span>

/// Runs tests one after the other and tells observers of each.
class TestRunner : private CppUnit::TestListener
{
public:
    TestRunner(TestCatalog const& catalog, std::span<RunObserver* const> observers,
               TestSurroundings& surroundings);

    /// Where plug-ins add listeners of their own.
    CppUnit::TestResult& result() { return m_result; }
    /// Runs the units; ends early, after the current test, when an interrupt is requested.
    RunSummary run(SelectedUnits const& selected);

private:
    using Clock = std::chrono::steady_clock;

    void runUnit(CatalogUnit const& unit);
    void publish();
    void startTest(CppUnit::Test* test) override;
    void addFailure(CppUnit::TestFailure const& failure) override;
    void endTest(CppUnit::Test* test) override;

    TestCatalog const& m_catalog;
    std::span<RunObserver* const> m_observers;
    TestSurroundings& m_surroundings;
    CppUnit::TestResult m_result;
    std::unordered_map<CppUnit::Test const*, CatalogEntry const*> m_entriesByTest;
    CatalogUnit const* m_unit = nullptr;
    std::optional<TestOutcome> m_outcome; // of the current test, until it is published
    Clock::time_point m_testStart;
    OutcomeCounts m_counts;
};
