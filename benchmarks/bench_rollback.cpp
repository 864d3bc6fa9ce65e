// A test that changes a few entities of a large drawing, and the fixture that takes it back:
//   bench_rollback DRAWING
// Prints the time of changing ten entities and of taking that back, the best of several rounds.
#include "benchmarks/drawing_main.h"
#include "testapi/ta_test_helper.h"

#include <chrono>
#include <cstdio>

namespace {

constexpr int s_changed = 10;
constexpr int s_rounds = 20;
OdGeMatrix3d const s_move = OdGeMatrix3d::translation({1, 2, 3});

double secondsOf(auto const& action)
{
    auto const start = std::chrono::steady_clock::now();
    action();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

/// Entities spread over model space.
std::vector<OdDbObjectId> someEntities(OdDbDatabase& database)
{
    auto const space = database.getModelSpaceId().open<OdDbBlockTableRecord>();
    auto const& entities = space->entities();
    std::vector<OdDbObjectId> ids;
    for (int i = 0; i < s_changed; ++i)
        ids.push_back(OdDbObjectId(entities[entities.size() * static_cast<std::size_t>(i) / s_changed]));
    return ids;
}

void measure(OdString const& path)
{
    if (!ca::app()->openFile(path.c_str()))
        throw OdError(eInvalidInput, L"The drawing cannot be opened");
    std::vector<OdDbObjectId> const ids = someEntities(*ca::curDb());
    double setUp = 1e9, change = 1e9, takeBack = 1e9;
    int changed = 0;
    for (int round = 0; round < s_rounds; ++round) {
        ta::TestHelperEx fixture;
        setUp = std::min(setUp, secondsOf([&] { fixture.setUpDefault(false); }));
        change = std::min(change, secondsOf([&] {
                              for (OdDbObjectId const id : ids)
                                  changed += id.open<OdDbEntity>(OdDb::kForWrite)->transformBy(s_move) == eOk;
                          }));
        takeBack = std::min(takeBack, secondsOf([&] { fixture.tearDownDefault(); }));
    }
    if (changed != s_changed * s_rounds)
        throw OdError(eNotApplicable, L"The drawing has entities that cannot be moved");
    std::printf("set-up %.4f ms, changing %d entities %.4f ms, tear-down with rollback %.4f ms\n", setUp * 1e3,
                s_changed, change * 1e3, takeBack * 1e3);
}

} // namespace

int main(int argc, char** argv)
{
    return measureDrawing(argc, argv, "bench_rollback", &measure);
}
