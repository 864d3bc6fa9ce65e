// What the bench itself costs for each test: selection, the reports that watch the run, bringing the application
// back. The tests are empty.
#include "apps/vornbench/host_guard.h"
#include "apps/vornbench/progress_reporter.h"
#include "apps/vornbench/running_test.h"
#include "apps/vornbench/test_runner.h"

#include "vorntest/performance_test_case.h"
#include "vorntest/tests_config.h"

#include <benchmark/benchmark.h>
#include <cppunit/TestSuite.h>

#include <sstream>

namespace {

class EmptyTest : public vorntest::PerformanceTestCase
{
public:
    using PerformanceTestCase::PerformanceTestCase;
    void runTest() override {}
};

void runEmptyTests(benchmark::State& state)
{
    auto const count = static_cast<int>(state.range(0));
    CppUnit::TestSuite root("root");
    auto* const suite = new CppUnit::TestSuite("Empty");
    root.addTest(suite);
    for (int i = 0; i < count; ++i)
        suite->addTest(new EmptyTest("test " + std::to_string(i)));

    vorntest::TestsConfig const config;
    TestCatalog const catalog(root, config);
    for (auto _ : state) {
        std::ostringstream out;
        ProgressReporter reporter(Terminal(out, false, false, 80), Verbosity::Normal);
        RunningTest running;
        RunObserver* const observers[] = {&running, &reporter};
        HostGuard host;
        TestSelection selection({});
        SelectedUnits const selected = selectUnits(catalog, selection);
        TestRunner runner(catalog, observers, host);
        RunSummary const summary = runner.run(selected);
        if (summary.counts.done() != static_cast<std::size_t>(count))
            state.SkipWithError("not all tests ran");
    }
    state.counters["per test"] = benchmark::Counter(static_cast<double>(state.iterations()) * count,
                                                    benchmark::Counter::kIsRate | benchmark::Counter::kInvert);
}
BENCHMARK(runEmptyTests)->Arg(10'000)->Unit(benchmark::kMillisecond);

} // namespace
