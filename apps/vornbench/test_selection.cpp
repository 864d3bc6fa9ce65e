#include "apps/vornbench/test_selection.h"

#include "apps/vornbench/usage_error.h"
#include "host/root/od_string.h"
#include "host/ut/ut_text.h"

#include <algorithm>

namespace {

constexpr char const* wildcards = "*?";

bool isExclusion(std::string_view filter)
{
    return filter.starts_with('!') || filter.starts_with('-');
}

/// Whether `part` is a run of whole names of the path.
bool isPartOfPath(std::string_view part, std::string_view path)
{
    for (std::size_t at = path.find(part); at != std::string_view::npos; at = path.find(part, at + 1)) {
        std::size_t const end = at + part.size();
        if ((at == 0 || path[at - 1] == '/') && (end == path.size() || path[end] == '/'))
            return true;
    }
    return false;
}

} // namespace

TestSelection::TestSelection(std::vector<std::string> const& filters)
{
    for (std::string const& written : filters) {
        bool const excludes = isExclusion(written);
        std::string text = written.substr(excludes ? 1 : 0);
        while (text.ends_with('/'))
            text.pop_back();
        if (text.empty())
            throw UsageError("filter '" + written + "' has no text");
        bool const isPattern = text.find_first_of(wildcards) != std::string::npos;
        std::wstring pattern = isPattern ? odUtf8ToWide(text) : std::wstring();
        (excludes ? m_excludes : m_includes).push_back({written, std::move(text), std::move(pattern)});
    }
}

bool TestSelection::matches(Filter const& filter, std::string_view name)
{
    if (filter.pattern.empty())
        return isPartOfPath(filter.text, name);
    return ut::matchesWildcard(odUtf8ToWide(name), filter.pattern);
}

// A filter that is only wildcards at its beginning means "any suite" and names none.
bool TestSelection::names(Filter const& filter, std::string_view suite)
{
    std::string const first = filter.text.substr(0, filter.text.find('/'));
    if (first.find_first_not_of(wildcards) == std::string::npos)
        return false;
    if (first.find_first_of(wildcards) == std::string::npos)
        return first == suite;
    return ut::matchesWildcard(odUtf8ToWide(suite), odUtf8ToWide(first));
}

bool TestSelection::selects(CatalogEntry const& entry)
{
    // Every filter is tried, so that those that match nothing can be told.
    bool isIncluded = m_includes.empty() && !entry.isExplicit;
    for (Filter& filter : m_includes) {
        if (!matches(filter, entry.name) || (entry.isExplicit && !names(filter, entry.topName())))
            continue;
        filter.hasMatched = true;
        isIncluded = true;
    }
    for (Filter& filter : m_excludes) {
        if (!matches(filter, entry.name))
            continue;
        filter.hasMatched = true;
        isIncluded = false;
    }
    return isIncluded;
}

std::vector<std::string> TestSelection::unmatchedFilters() const
{
    std::vector<std::string> unmatched;
    for (auto const* filters : {&m_includes, &m_excludes})
        for (Filter const& filter : *filters)
            if (!filter.hasMatched)
                unmatched.push_back(filter.written);
    return unmatched;
}

SelectedUnits selectUnits(TestCatalog const& catalog, TestSelection& selection)
{
    SelectedUnits selected;
    for (std::size_t i = 0; i < catalog.units().size(); ++i) {
        CatalogUnit const& unit = catalog.units()[i];
        bool isSelected = false;
        for (CatalogEntry const& entry : catalog.entriesOf(unit))
            isSelected = selection.selects(entry) || isSelected;
        if (isSelected) {
            selected.units.push_back(i);
            selected.testCount += unit.entryCount;
        } else if (selection.includesAll() && catalog.entries()[unit.firstEntry].isExplicit) {
            std::string_view const suite = catalog.entries()[unit.firstEntry].topName();
            if (selected.explicitSuites.empty() || selected.explicitSuites.back() != suite)
                selected.explicitSuites.emplace_back(suite);
        }
    }
    return selected;
}
