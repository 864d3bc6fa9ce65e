#pragma once

#include "apps/vornbench/test_catalog.h"

#include <optional>
#include <string>
#include <vector>

/// A place in a file that an editor can jump to; empty file: unknown.
struct FileLocation
{
    std::string file;
    int line = 0;

    /// "file:line", or "" when unknown.
    std::string text() const;
};

/// One failed check or unexpected exception of a test. Texts are UTF-8 as the test gave them.
struct TestFailureRecord
{
    bool isError = false; ///< an exception that is no failed check
    std::string summary;
    std::vector<std::string> details;
    FileLocation location; ///< what to look at first: the line of the test file
    FileLocation source;   ///< the line of code that found it

    /// The one text that says most: the first detail that is neither the checked expression nor the place of an
    /// operation, else the summary.
    std::string const& headline() const;
};

/// Times of a test's body, for tests that measure themselves, in seconds.
struct BodyTimes
{
    double wall = 0.0;
    double cpu = 0.0;
};

/// What came of one test.
struct TestOutcome
{
    CatalogEntry const* entry = nullptr;
    double seconds = 0.0; ///< with set-up and tear-down
    std::optional<BodyTimes> body;
    std::vector<TestFailureRecord> failures;
    std::vector<std::string> commandLine; ///< of a failed test: the last lines of the application's command line
    std::vector<std::string> leftovers;   ///< what the test changed in the application and left so

    bool hasPassed() const { return failures.empty(); }
    /// Whether an unexpected exception is among the failures.
    bool hasError() const;
    char const* word() const { return hasPassed() ? "passed" : hasError() ? "error" : "failed"; }
};

/// Tests by what came of them.
struct OutcomeCounts
{
    std::size_t passed = 0;
    std::size_t failed = 0;
    std::size_t errors = 0;

    void add(TestOutcome const& outcome);
    std::size_t done() const { return passed + failed + errors; }
    std::size_t bad() const { return failed + errors; }
};
