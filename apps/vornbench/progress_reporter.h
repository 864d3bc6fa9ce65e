#pragma once

#include "apps/vornbench/options.h"
#include "apps/vornbench/run_observer.h"
#include "apps/vornbench/terminal.h"

#include <chrono>

/// Tells people how a run goes: failures in full as they come, a line for each top suite, a summary. On a terminal
/// a last line shows counts and the time left; elsewhere a plain line does so now and then.
class ProgressReporter : public RunObserver
{
public:
    ProgressReporter(Terminal terminal, Verbosity verbosity) : m_terminal(terminal), m_verbosity(verbosity) {}

    void runStarted(RunPlan const& plan) override;
    void testStarted(CatalogEntry const& entry) override;
    void testEnded(TestOutcome const& outcome) override;
    void runEnded(RunSummary const& summary) override;

private:
    using Clock = std::chrono::steady_clock;
    struct FailedTest
    {
        std::string name;
        std::string place;
    };

    bool isQuiet() const { return m_verbosity == Verbosity::Quiet; }
    bool isVerbose() const { return m_verbosity == Verbosity::Verbose; }
    void line(std::string const& text);
    void writeFailure(TestOutcome const& outcome, TestFailureRecord const& failure);
    void writeLeftovers(TestOutcome const& outcome);
    void writeTest(TestOutcome const& outcome);
    void endSuite();
    void writeFailedTests();
    void showProgress(std::string_view running);
    void eraseProgress();
    std::string countsText(OutcomeCounts const& counts) const;
    std::string timeLeft(double elapsed) const;

    Terminal m_terminal;
    Verbosity m_verbosity;
    std::size_t m_selected = 0;
    std::size_t m_suiteWidth = 0;
    OutcomeCounts m_counts;
    std::string m_suite;
    OutcomeCounts m_suiteCounts;
    double m_suiteSeconds = 0.0;
    std::vector<FailedTest> m_failedTests;
    Clock::time_point m_start;
    Clock::time_point m_nextProgress;
    bool m_hasProgressLine = false;
};
