#pragma once

#include "apps/vornbench/run_observer.h"

/// Writes the JUnit report of a run when it ends; an earlier report stays until then.
class JunitWriter : public RunObserver
{
public:
    /// Throws UsageError when the file cannot be written, so that a run does not find that out at its end.
    explicit JunitWriter(std::string path);

    void runStarted(RunPlan const& plan) override;
    void testEnded(TestOutcome const& outcome) override { m_outcomes.push_back(outcome); }
    void runEnded(RunSummary const& summary) override;
    std::string error() const override { return m_error; }

    /// The report as text, for what was observed so far.
    std::string report(RunSummary const& summary) const;

private:
    struct Suite;
    std::vector<Suite> suites() const;

    std::string m_path;
    std::vector<CatalogEntry const*> m_planned;
    std::vector<TestOutcome> m_outcomes;
    std::string m_error;
};
