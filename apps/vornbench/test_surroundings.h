#pragma once

#include "apps/vornbench/test_outcome.h"

#include <string>
#include <vector>

/// What tests run in and may leave changed. This one is a void; see HostGuard for the application.
class TestSurroundings
{
public:
    virtual ~TestSurroundings() = default;
    virtual void testStarts() {}
    /// May add to the outcome what the surroundings know of it.
    virtual void testEnds(TestOutcome&) {}
    /// Brings everything back; returns what a test had left changed, one phrase for each.
    virtual std::vector<std::string> restore() { return {}; }
};
