#include "apps/vornbench/bench_session.h"
#include "apps/vornbench/commands.h"
#include "apps/vornbench/crash_notice.h"
#include "apps/vornbench/host_guard.h"
#include "apps/vornbench/interrupt.h"
#include "apps/vornbench/junit_writer.h"
#include "apps/vornbench/notices.h"
#include "apps/vornbench/progress_reporter.h"
#include "apps/vornbench/result_log.h"
#include "apps/vornbench/running_test.h"
#include "apps/vornbench/test_runner.h"

#include <iostream>

namespace {

using Observers = std::vector<std::unique_ptr<RunObserver>>;

RunPlan planOf(BenchSession const& session, SelectedUnits const& selected, Options const& options)
{
    RunPlan plan;
    plan.config = options.config;
    plan.selected = selected.testCount;
    plan.total = session.catalog().entries().size();
    plan.explicitSuites = selected.explicitSuites;
    for (std::size_t const index : selected.units)
        for (CatalogEntry const& entry : session.catalog().entriesOf(session.catalog().units()[index]))
            plan.entries.push_back(&entry);
    return plan;
}

/// The running test's name comes first, the log before what people see: both must stand when a test crashes.
Observers makeObservers(Options const& options)
{
    Observers observers;
    observers.push_back(std::make_unique<RunningTest>());
    if (!options.resultsFile.empty())
        observers.push_back(std::make_unique<ResultLog>(options.resultsFile));
    observers.push_back(
        std::make_unique<ProgressReporter>(Terminal::standardOutput(options.color), options.verbosity));
    if (!options.junitFile.empty())
        observers.push_back(std::make_unique<JunitWriter>(options.junitFile));
    return observers;
}

RunSummary runObserved(BenchSession& session, SelectedUnits const& selected, Options const& options,
                       std::span<RunObserver* const> observers)
{
    InterruptGuard const interruptible;
    CrashNotice const crashNotice;
    HostGuard host;
    TestRunner runner(session.catalog(), observers, host);
    RunPlan const plan = planOf(session, selected, options);
    for (RunObserver* const observer : observers)
        observer->runStarted(plan);
    session.plugIns().addListener(&runner.result());
    RunSummary const summary = runner.run(selected);
    session.plugIns().removeListener(&runner.result());
    for (RunObserver* const observer : observers)
        observer->runEnded(summary);
    return summary;
}

ExitCode exitCodeOf(RunSummary const& summary, bool hasComplaints, bool reportsWritten)
{
    if (summary.wasInterrupted)
        return ExitCode::Interrupted;
    if (!reportsWritten)
        return ExitCode::InternalError;
    return summary.counts.bad() > 0 || hasComplaints ? ExitCode::SomeFailed : ExitCode::AllPassed;
}

} // namespace

ExitCode runTests(Options const& options)
{
    TestSelection selection(options.filters);
    BenchSession session(options.config);
    SelectedUnits const selected = selectUnits(session.catalog(), selection);
    std::size_t warnings = printWarnings(session, selection, std::cerr);
    if (selected.units.empty()) {
        std::cerr << "vornbench: " << selectedText(0, session.catalog().entries().size(), selected.explicitSuites)
                  << '\n';
        return ExitCode::NothingSelected;
    }
    Observers const observers = makeObservers(options);
    std::vector<RunObserver*> pointers;
    for (auto const& observer : observers)
        pointers.push_back(observer.get());
    RunSummary const summary = runObserved(session, selected, options, pointers);
    warnings += printDataFileWarnings(session, std::cerr);
    bool reportsWritten = true;
    for (RunObserver const* const observer : pointers) {
        if (observer->error().empty())
            continue;
        std::cerr << "vornbench: " << observer->error() << '\n';
        reportsWritten = false;
    }
    return exitCodeOf(summary, options.isStrict && warnings > 0, reportsWritten);
}
