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

namespace {

std::size_t print(std::vector<std::string> const& warnings, std::ostream& out)
{
    for (std::string const& warning : warnings)
        out << warning << '\n';
    return warnings.size();
}

} // namespace

std::size_t printWarnings(BenchSession& session, TestSelection const& selection, std::ostream& out)
{
    std::size_t const count = print(session.warnings(), out) + printDataFileWarnings(session, out);
    std::vector<std::string> const unmatched = selection.unmatchedFilters();
    for (std::string const& filter : unmatched)
        out << "vornbench: warning: no test matches the filter '" << filter << "'\n";
    return count + unmatched.size();
}

std::size_t printDataFileWarnings(BenchSession& session, std::ostream& out)
{
    return print(session.takeDataFileWarnings(), out);
}
