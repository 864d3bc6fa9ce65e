#pragma once

#include "apps/vornbench/exit_code.h"
#include "apps/vornbench/options.h"

/// Runs the selected tests and reports.
ExitCode runTests(Options const& options);
/// Prints the names of the selected tests.
ExitCode listTests(Options const& options);
/// Says what drawings are made of and what is wrong in them.
ExitCode auditDrawings(Options const& options);
/// Opens a drawing and saves it in another release or form.
ExitCode convertDrawing(Options const& options);
/// Tells everything in which two drawings differ.
ExitCode compareDrawings(Options const& options);
