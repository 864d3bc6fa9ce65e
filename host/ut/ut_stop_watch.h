#pragma once

#include "host/ut/ut_clock.h"

namespace ut {

/// Measures the time since it was made or restarted, by the current clock.
class StopWatch
{
public:
    void restart() { m_start = Clock::current().now(); }
    /// Milliseconds, with fractions.
    double time() const { return Clock::current().now() - m_start; }

private:
    double m_start = Clock::current().now();
};

/// Waits that long by the current clock; handles no events meanwhile.
inline void milliSleep(unsigned long milliseconds)
{
    Clock::current().sleep(milliseconds);
}

} // namespace ut
