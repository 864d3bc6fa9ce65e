#pragma once

#include "apps/vornbench/test_catalog.h"

#include <string>
#include <string_view>
#include <vector>

/// Which tests the filters of the command line mean.
///
/// A filter without wildcards matches a test whose name it is, or of whose path it is a part made of whole names.
/// A filter with "*" or "?" is matched against the whole name. "!" or "-" before a filter leaves out what it
/// matches. Without a filter that includes, all tests are meant but those of explicit suites; these need a filter
/// that begins with the suite's name.
class TestSelection
{
public:
    /// Throws UsageError for a filter without text.
    explicit TestSelection(std::vector<std::string> const& filters);

    bool selects(CatalogEntry const& entry);
    /// Whether no filter says what to include.
    bool includesAll() const { return m_includes.empty(); }
    /// Filters that have matched no test up to now, as they were written.
    std::vector<std::string> unmatchedFilters() const;

private:
    struct Filter
    {
        std::string written;
        std::string text;
        std::wstring pattern; ///< empty when the text has no wildcards
        bool hasMatched = false;
    };
    static bool matches(Filter const& filter, std::string_view name);
    static bool names(Filter const& filter, std::string_view suite);

    std::vector<Filter> m_includes;
    std::vector<Filter> m_excludes;
};

/// The units of a catalog that hold a selected test, as indices in order. A unit runs whole.
struct SelectedUnits
{
    std::vector<std::size_t> units;
    std::size_t testCount = 0;
    /// Suites left out because they run only when named; empty when the filters say what to include.
    std::vector<std::string> explicitSuites;
};

SelectedUnits selectUnits(TestCatalog const& catalog, TestSelection& selection);
