// What entities in one call cost a test, set-up and tear-down included: lines, circles with the normal of the
// fixture and polylines of four points, in model space.
#include "testapi/ta_test_helper.h"

#include <benchmark/benchmark.h>

namespace {

/// Calls `create` with the fixture, the model space and a running number, as often as the argument says.
template <class Create>
void createMany(benchmark::State& state, Create const& create)
{
    for (auto _ : state) {
        ta::TestHelperEx helper(ta::TestHelper::kDefaultUCS);
        helper.setUpDefault(true);
        OdDbObjectId const modelSpace = helper.db().getModelSpaceId();
        for (std::int64_t i = 0; i < state.range(0); ++i)
            create(helper, modelSpace, static_cast<double>(i));
        helper.tearDownDefault();
    }
    state.counters["entities/s"] =
        benchmark::Counter(double(state.iterations() * state.range(0)), benchmark::Counter::kIsRate);
}

void lines(benchmark::State& state)
{
    createMany(state, [](ta::TestHelperEx& helper, OdDbObjectId const& owner, double x) {
        helper.createLine(owner, {x, 0, 0}, {x, 10, 0});
    });
}
BENCHMARK(lines)->Arg(1000000)->Unit(benchmark::kSecond);

/// In a document that was open before, where each line is recorded and all are taken back at the end.
void linesTakenBack(benchmark::State& state)
{
    ca::app()->openFile();
    for (auto _ : state) {
        ta::TestHelperEx helper;
        helper.setUpDefault(false);
        OdDbObjectId const modelSpace = helper.db().getModelSpaceId();
        for (std::int64_t i = 0; i < state.range(0); ++i)
            helper.createLine(modelSpace, {static_cast<double>(i), 0, 0}, {0, 10, 0});
        helper.tearDownDefault();
    }
    ca::curDoc()->close();
}
BENCHMARK(linesTakenBack)->Arg(1000000)->Iterations(1)->Unit(benchmark::kSecond);

void circles(benchmark::State& state)
{
    createMany(state, [](ta::TestHelperEx& helper, OdDbObjectId const& owner, double x) {
        helper.createCircle(owner, {x, 0, 0}, 5);
    });
}
BENCHMARK(circles)->Arg(100000)->Unit(benchmark::kSecond);

void polylines(benchmark::State& state)
{
    createMany(state, [](ta::TestHelperEx& helper, OdDbObjectId const& owner, double x) {
        helper.createPline(owner, {{x, 0}, {x + 1, 0}, {x + 1, 1}, {x, 1}}, nullptr, false, true);
    });
}
BENCHMARK(polylines)->Arg(100000)->Unit(benchmark::kSecond);

} // namespace
