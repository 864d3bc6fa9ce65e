#include "host/ut/ut_clock.h"

#include <chrono>
#include <thread>
#include <utility>

namespace ut {

namespace {

Clock* s_replacement = nullptr;

} // namespace

double Clock::now()
{
    auto const time = std::chrono::steady_clock::now().time_since_epoch();
    return std::chrono::duration<double, std::milli>(time).count();
}

void Clock::sleep(unsigned long milliseconds)
{
    std::this_thread::sleep_for(std::chrono::duration<unsigned long, std::milli>(milliseconds));
}

Clock& Clock::current()
{
    static Clock s_system;
    return s_replacement ? *s_replacement : s_system;
}

Clock* Clock::install(Clock* replacement)
{
    return std::exchange(s_replacement, replacement);
}

} // namespace ut
