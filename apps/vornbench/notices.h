#pragma once

#include "apps/vornbench/bench_session.h"
#include "apps/vornbench/test_selection.h"

#include <iosfwd>
#include <string>
#include <vector>

/// "selected 12 of 14 tests", with the suites that were left out because they run only when named.
std::string selectedText(std::size_t selected, std::size_t total, std::vector<std::string> const& explicitSuites);

/// Writes what looks wrong in the configuration and in data files, and filters that match no test; returns how
/// many warnings there were.
std::size_t printWarnings(BenchSession& session, TestSelection const& selection, std::ostream& out);

/// Writes what looks wrong in data and parameters files and was not written yet; returns how many warnings.
std::size_t printDataFileWarnings(BenchSession& session, std::ostream& out);
