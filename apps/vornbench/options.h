#pragma once

#include <string>
#include <vector>

enum class Command
{
    Run,
    List,
    Audit,
    Convert,
    Compare
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
    bool isStrict = false;   ///< warnings count as failures
    bool color = true;       ///< colours where the output is a terminal
    Verbosity verbosity = Verbosity::Normal;

    std::vector<std::string> drawings; ///< to audit
    bool json = false;
    std::string input;   ///< drawing to convert
    std::string output;  ///< where to save it
    std::string release; ///< to convert to; empty: that of the drawing
    bool binary = false; ///< convert to binary form, whatever the form of the drawing

    std::string first; ///< drawings to compare
    std::string second;
    double tolerance = 1e-6; ///< what numbers may differ by
    std::string jsonFile;    ///< for the differences; empty: none
};
