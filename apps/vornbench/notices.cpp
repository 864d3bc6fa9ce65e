#include "apps/vornbench/notices.h"

#include "apps/vornbench/text_width.h"

#include <ostream>

std::string selectedText(std::size_t selected, std::size_t total, std::vector<std::string> const& explicitSuites)
{
    std::string text = "selected " + std::to_string(selected) + " of " + counted(total, "test");
    for (std::size_t i = 0; i < explicitSuites.size(); ++i)
        text += (i == 0 ? "; only when named: " : ", ") + explicitSuites[i];
    return text;
}

void printWarnings(BenchSession& session, TestSelection const& selection, std::ostream& out)
{
    for (std::string const& warning : session.warnings())
        out << warning << '\n';
    printDataFileWarnings(session, out);
    for (std::string const& filter : selection.unmatchedFilters())
        out << "vornbench: warning: no test matches the filter '" << filter << "'\n";
}

void printDataFileWarnings(BenchSession& session, std::ostream& out)
{
    for (std::string const& warning : session.takeDataFileWarnings())
        out << warning << '\n';
}
