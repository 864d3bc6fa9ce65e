#include "apps/vornbench/test_outcome.h"

#include <algorithm>

std::string FileLocation::text() const
{
    return file.empty() ? std::string() : file + ":" + std::to_string(line);
}

std::string const& TestFailureRecord::headline() const
{
    auto const it = std::ranges::find_if(details, [](std::string const& detail) {
        return !detail.starts_with("Expression: ") && !detail.starts_with("Operation '");
    });
    return it == details.end() ? summary : *it;
}

bool TestOutcome::hasError() const
{
    return std::ranges::any_of(failures, &TestFailureRecord::isError);
}

void OutcomeCounts::add(TestOutcome const& outcome)
{
    ++(outcome.hasPassed() ? passed : outcome.hasError() ? errors : failed);
}
