#pragma once

#include <string>
#include <vector>

enum class Command
{
    Run,
    List
};
enum class Verbosity
{
    Quiet,
    Normal,
    Verbose
};

/// What the command line asks for. Texts are UTF-8.
struct Options
{
    Command command = Command::Run;
    std::string config;
    std::vector<std::string> filters;
    std::string junitFile;   ///< empty: no such report
    std::string resultsFile; ///< empty: no results log
    bool color = true;       ///< colours where the output is a terminal
    Verbosity verbosity = Verbosity::Normal;
};
