#pragma once

#include "host/ut/ut_scoped_replacement.h"

namespace ut {

/// The time that waiting and measuring go by. Tests put their own in place with ScopedReplacement<Clock>, so that
/// waits take no time.
class Clock
{
public:
    virtual ~Clock() = default;

    /// Milliseconds from a fixed but arbitrary moment; never goes back.
    virtual double now();
    virtual void sleep(unsigned long milliseconds);

    static Clock& current();
    /// Null brings the system's clock back; returns what was installed before.
    static Clock* install(Clock* replacement);
};

} // namespace ut
