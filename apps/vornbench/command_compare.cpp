// Compares two drawings. Differences are reported as they are found, so that their number costs no memory.
#include "apps/vornbench/commands.h"
#include "apps/vornbench/comparison_report.h"
#include "apps/vornbench/usage_error.h"
#include "host/app/file_notes.h"

#include <filesystem>
#include <iostream>
#include <optional>

namespace {

/// Throws what opening the drawing throws.
OdDbDatabasePtr opened(std::string const& path)
{
    OdString const file = OdString::fromUtf8(path);
    dxf::ReadReport report;
    OdDbDatabasePtr database = dxf::readFile(file, &report);
    for (dxf::ReadNote const& note : report.notes)
        std::cerr << ca::noteText(file, report, note).toUtf8() << '\n';
    if (report.moreNotes > 0)
        std::cerr << path << ": " << report.moreNotes << " more notes\n";
    return database;
}

void refuseToReplaceDrawings(Options const& options)
{
    for (std::string const& drawing : {options.first, options.second}) {
        std::error_code error;
        if (std::filesystem::equivalent(drawing, options.jsonFile, error))
            throw UsageError("vornbench: --json would replace the drawing " + drawing);
    }
}

/// Throws OdError when a drawing cannot be read or the report not be written.
bool areEqual(Options const& options)
{
    OdDbDatabasePtr const first = opened(options.first);
    OdDbDatabasePtr const second = opened(options.second);
    PlainComparisonReport plain(Terminal::standardOutput(false));
    std::optional<JsonComparisonReport> json;
    if (!options.jsonFile.empty())
        json.emplace(options.jsonFile, options);

    plain.begin(options);
    double const tolerance = options.tolerance;
    ta::DrawingComparison comparison(*first, *second,
                                     {.tolerance = tolerance, .relTolerance = tolerance, .eps = tolerance},
                                     [&](ta::DrawingDifference const& difference) {
                                         plain.add(difference);
                                         if (json)
                                             json->add(difference);
                                     });
    bool const areEqual = comparison.wholeDrawings();
    plain.end(comparison);
    if (json)
        json->end(comparison);
    return areEqual;
}

} // namespace

ExitCode compareDrawings(Options const& options)
{
    refuseToReplaceDrawings(options);
    try {
        return areEqual(options) ? ExitCode::DrawingsEqual : ExitCode::DrawingsDiffer;
    } catch (OdError const& error) {
        std::cout.flush();
        std::cerr << error.what() << '\n';
        return ExitCode::FileUnusable;
    }
}
