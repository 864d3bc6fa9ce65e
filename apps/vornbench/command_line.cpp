#include "apps/vornbench/command_line.h"

#include <CLI/CLI.hpp>

#include <ostream>

namespace {

constexpr char const* version = "vornbench 0.1.0";

constexpr char const* description =
    "Runs command tests and other test modules inside the embedded CAD application.";

constexpr char const* footer = R"(
Filters
  NAME            the suite or test of that name, or any test below a part of that path:
                  Drawing, Drawing/Lines, Lines/short
  *pattern?       wildcards, matched against the whole name Suite/Sub/Test
  !FILTER         leaves out what FILTER matches; -FILTER does the same after "--"
  A suite with run="explicit" runs only when a filter begins with its name.

Exit codes
  0  all selected tests passed       3  internal error, or a report could not be written
  1  some tests failed               4  command line or configuration cannot be used
  2  interrupted                     5  no test selected

Drawings
  Drawings are saved as DXF text whatever the extension of the file, also as NAME.dwg. Files are
  recognised by their content when they are opened, so such drawings open again under that name.)";

void addSelection(CLI::App& command, Options& options)
{
    command.add_option("CONFIG", options.config, "tests configuration (XML file)")->required()->type_name(" ");
    command.add_option("FILTER", options.filters, "tests to select; all without one")->type_name(" ");
}

void addVerbosity(CLI::App& command, Options& options)
{
    auto const setTo = [&options](Verbosity value) { return [&options, value] { options.verbosity = value; }; };
    command.add_flag_callback("-q,--quiet", setTo(Verbosity::Quiet), "failures and totals only");
    command.add_flag_callback("-v,--verbose", setTo(Verbosity::Verbose), "one line for each test, more detail");
}

CLI::App* addRun(CLI::App& app, Options& options)
{
    CLI::App* const run = app.add_subcommand("run", "run the selected tests");
    addSelection(*run, options);
    run->add_option("--junit", options.junitFile, "write a JUnit report when the run ends")->type_name("FILE");
    run->add_option("--results", options.resultsFile,
                    "write each result as it comes, one JSON object a line;\n"
                    "after a crash the last line names the test that ran")
        ->type_name("FILE");
    run->add_flag_callback(
        "--no-color", [&options] { options.color = false; }, "no colours, also on a terminal");
    addVerbosity(*run, options);
    return run;
}

CLI::App* addList(CLI::App& app, Options& options)
{
    CLI::App* const list = app.add_subcommand("list", "print the names of the selected tests");
    addSelection(*list, options);
    addVerbosity(*list, options);
    return list;
}

} // namespace

std::variant<Options, ExitCode> parseCommandLine(int argc, char const* const* argv, std::ostream& out,
                                                 std::ostream& err)
{
    Options options;
    CLI::App app(description, "vornbench");
    app.set_version_flag("--version", version);
    app.require_subcommand(0, 1); // one is needed, but a misspelt one shall be named in the message
    app.footer(footer);
    app.get_formatter()->column_width(26);
    app.get_formatter()->label("REQUIRED", "");
    CLI::App* const run = addRun(app, options);
    run->footer(footer);
    CLI::App* const list = addList(app, options);
    list->footer(footer);
    try {
        app.parse(argc, argv);
    } catch (CLI::ParseError const& error) {
        // Its own exit codes are of no use to callers: asking for help is success, anything else wrong usage.
        return app.exit(error, out, err) == 0 ? ExitCode::AllPassed : ExitCode::Usage;
    }
    if (!run->parsed() && !list->parsed()) {
        err << "vornbench: what to do is missing: run or list (--help tells more)\n";
        return ExitCode::Usage;
    }
    options.command = list->parsed() ? Command::List : Command::Run;
    return options;
}
