#include "apps/vornbench/bench_session.h"
#include "apps/vornbench/commands.h"
#include "apps/vornbench/failure_location.h"
#include "apps/vornbench/notices.h"
#include "apps/vornbench/test_selection.h"
#include "apps/vornbench/text_width.h"

#include <iostream>

namespace {

void printEntries(TestCatalog const& catalog, SelectedUnits const& selected, bool withFiles)
{
    std::size_t width = 0;
    if (withFiles)
        for (CatalogEntry const& entry : catalog.entries())
            width = std::max(width, textWidth(entry.name));
    for (std::size_t const index : selected.units)
        for (CatalogEntry const& entry : catalog.entriesOf(catalog.units()[index])) {
            std::string const file = withFiles ? testLocation(entry).text() : std::string();
            std::cout << (file.empty() ? entry.name : padded(entry.name, width) + "  " + file) << '\n';
        }
}

} // namespace

ExitCode listTests(Options const& options)
{
    TestSelection selection(options.filters);
    BenchSession session(options.config);
    SelectedUnits const selected = selectUnits(session.catalog(), selection);
    printEntries(session.catalog(), selected, options.verbosity == Verbosity::Verbose);
    std::cout.flush();
    // Names alone go to standard output, for other programs; the rest is for people.
    printWarnings(session, selection, std::cerr);
    if (options.verbosity != Verbosity::Quiet)
        std::cerr << selectedText(selected.testCount, session.catalog().entries().size(), selected.explicitSuites)
                  << '\n';
    return selected.units.empty() ? ExitCode::NothingSelected : ExitCode::AllPassed;
}
