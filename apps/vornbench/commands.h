#pragma once

#include "apps/vornbench/exit_code.h"
#include "apps/vornbench/options.h"

/// Runs the selected tests and reports.
ExitCode runTests(Options const& options);
/// Prints the names of the selected tests.
ExitCode listTests(Options const& options);
