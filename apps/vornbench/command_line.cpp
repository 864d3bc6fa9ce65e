#include "apps/vornbench/command_line.h"

#include "host/ut/ut_number.h"

#include <CLI/CLI.hpp>

#include <ostream>

namespace {

constexpr char const* version = "vornbench 0.1.0";

constexpr char const* description = "Runs command tests and other test modules inside the embedded CAD "
                                    "application; audits, converts and compares drawings.";

constexpr char const* testsFooter = R"(
Filters
  NAME            the suite or test of that name, or any test below a part of that path:
                  Drawing, Drawing/Lines, Lines/short
  *pattern?       wildcards, matched against the whole name Suite/Sub/Test
  !FILTER         leaves out what FILTER matches; -FILTER does the same after "--"
  A suite with run="explicit" runs only when a filter begins with its name.

Exit codes
  0  all selected tests passed       3  internal error, or a report could not be written
  1  some tests failed               4  command line or configuration cannot be used
  2  interrupted                     5  no test selected)";

constexpr char const* drawingsFooter = R"(
Exit codes
  0  nothing to complain of          3  internal error
  1  audit: something was mended, left out or found; compare: the drawings differ
  4  a drawing could not be opened or saved, or the command line cannot be used

Drawings
  DXF as text or binary, R12 to R2018 and older ones that are like R12; files are recognised by
  their content whatever the extension. Saving replaces a file as a whole or leaves it as it was.)";

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
    run->add_flag("--strict", options.isStrict, "exit code 1 also when there were warnings");
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

CLI::App* addAudit(CLI::App& app, Options& options)
{
    CLI::App* const audit = app.add_subcommand("audit", "say what drawings are made of and what is wrong in them");
    audit->add_option("FILE", options.drawings, "drawings")->required()->type_name(" ");
    audit->add_flag("--json", options.json, "one JSON document for all drawings, for other programs");
    return audit;
}

CLI::App* addConvert(CLI::App& app, Options& options)
{
    CLI::App* const convert = app.add_subcommand("convert", "save a drawing in another release or form");
    convert->add_option("IN", options.input, "drawing to open")->required()->type_name(" ");
    convert->add_option("OUT", options.output, "drawing to save; may be the same file")
        ->required()
        ->type_name(" ");
    convert->add_option("--release", options.release, "such as R12, R2000 or AC1015; without it that of IN")
        ->type_name("R");
    convert->add_flag("--binary", options.binary, "binary form; without it the form of IN");
    return convert;
}

std::string toleranceFault(std::string const& text)
{
    double value = 0;
    bool const isTolerance = ut::parseReal(std::string_view(text), value) && value >= 0;
    return isTolerance ? std::string() : "'" + text + "' is no tolerance, which is a number from 0 on";
}

CLI::App* addCompare(CLI::App& app, Options& options)
{
    CLI::App* const compare = app.add_subcommand("compare", "say in what two drawings differ");
    compare->add_option("A", options.first, "a drawing")->required()->type_name(" ");
    compare->add_option("B", options.second, "the drawing to compare it with")->required()->type_name(" ");
    compare->add_option("--tolerance", options.tolerance, "what numbers may differ by; without it 1e-6")
        ->check(toleranceFault)
        ->type_name("T");
    compare->add_option("--json", options.jsonFile, "write all differences for other programs")->type_name("FILE");
    return compare;
}

/// A command of the program, and what it is in the options.
struct Subcommand
{
    Command command;
    CLI::App* (*add)(CLI::App& app, Options& options);
    char const* footer;
};

constexpr Subcommand subcommands[] = {
    {Command::Run, &addRun, testsFooter},
    {Command::List, &addList, testsFooter},
    {Command::Audit, &addAudit, drawingsFooter},
    {Command::Convert, &addConvert, drawingsFooter},
    {Command::Compare, &addCompare, drawingsFooter},
};

} // namespace

std::variant<Options, ExitCode> parseCommandLine(int argc, char const* const* argv, std::ostream& out,
                                                 std::ostream& err)
{
    Options options;
    CLI::App app(description, "vornbench");
    app.set_version_flag("--version", version);
    app.require_subcommand(0, 1); // one is needed, but a misspelt one shall be named in the message
    app.footer(testsFooter);
    app.get_formatter()->column_width(26);
    app.get_formatter()->label("REQUIRED", "");
    for (Subcommand const& subcommand : subcommands)
        subcommand.add(app, options)->footer(subcommand.footer)->final_callback([&] {
            options.command = subcommand.command;
        });
    try {
        app.parse(argc, argv);
    } catch (CLI::ParseError const& error) {
        // Its own exit codes are of no use to callers: asking for help is success, anything else wrong usage.
        return app.exit(error, out, err) == 0 ? ExitCode::AllPassed : ExitCode::Usage;
    }
    if (app.get_subcommands().empty()) {
        err << "vornbench: what to do is missing: run, list, audit, convert or compare (--help tells more)\n";
        return ExitCode::Usage;
    }
    return options;
}
