#pragma once

#include <filesystem>
#include <string>
#include <vector>

/// What came of running a program to its end.
struct ProgramRun
{
    int exitCode = -1; ///< -1 when a signal ended it
    int signal = 0;
    std::string out;
    std::string err;
};

/// Runs a program, found like a shell does, in a folder with empty input; throws when it cannot be started.
ProgramRun runProgram(std::vector<std::string> const& arguments, std::filesystem::path const& folder);
