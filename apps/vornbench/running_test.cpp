#include "apps/vornbench/running_test.h"

#include <atomic>

namespace {

std::atomic<char const*> s_name{nullptr};
static_assert(std::atomic<char const*>::is_always_lock_free, "signal handlers read it");

} // namespace

char const* RunningTest::name()
{
    return s_name.load();
}

void RunningTest::testStarted(CatalogEntry const& entry)
{
    s_name = entry.name.c_str();
}

void RunningTest::testEnded(TestOutcome const&)
{
    s_name = nullptr;
}
