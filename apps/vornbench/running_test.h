#pragma once

#include "apps/vornbench/run_observer.h"

/// Keeps the name of the running test where signal handlers can read it.
class RunningTest : public RunObserver
{
public:
    /// The name as a C string; null outside of a test. Safe to call in a signal handler.
    static char const* name();

    void testStarted(CatalogEntry const& entry) override;
    void testEnded(TestOutcome const& outcome) override;
};
