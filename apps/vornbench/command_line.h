#pragma once

#include "apps/vornbench/exit_code.h"
#include "apps/vornbench/options.h"

#include <iosfwd>
#include <variant>

/// The options, or the exit code of a command line that asks for help or cannot be understood; what there is to
/// say then has been written.
std::variant<Options, ExitCode> parseCommandLine(int argc, char const* const* argv, std::ostream& out,
                                                 std::ostream& err);
