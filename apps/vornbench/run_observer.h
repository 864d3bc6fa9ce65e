#pragma once

#include "apps/vornbench/test_outcome.h"

#include <string>
#include <vector>

/// What a run is going to do.
struct RunPlan
{
    std::string config;
    std::size_t selected = 0;
    std::size_t total = 0;
    std::vector<std::string> explicitSuites;  ///< left out because they run only when named
    std::vector<CatalogEntry const*> entries; ///< selected tests in their order
};

/// What a run has done.
struct RunSummary
{
    OutcomeCounts counts;
    std::size_t selected = 0;
    double seconds = 0.0;
    bool wasInterrupted = false;

    std::size_t notRun() const { return selected > counts.done() ? selected - counts.done() : 0; }
};

/// Follows a run. A report that cannot be written must not end the run: observers keep such an error and tell it
/// in error() when the run is over.
class RunObserver
{
public:
    virtual ~RunObserver() = default;
    virtual void runStarted(RunPlan const&) {}
    virtual void testStarted(CatalogEntry const&) {}
    virtual void testEnded(TestOutcome const&) {}
    virtual void runEnded(RunSummary const&) {}
    /// Why the observer could not do its work; empty when it could.
    virtual std::string error() const { return {}; }
};
