#include "vorntest/nearest_name.h"

#include <algorithm>
#include <array>
#include <vector>

namespace vorntest {

namespace {

// Names of elements and attributes are short; a longer text is nothing that somebody mistyped.
constexpr std::size_t maxLength = 64;

// Optimal string alignment distance on three rolling rows.
std::size_t editDistance(std::wstring_view a, std::wstring_view b)
{
    std::array<std::vector<std::size_t>, 3> rows;
    for (auto& row : rows)
        row.resize(b.size() + 1);
    for (std::size_t j = 0; j <= b.size(); ++j)
        rows[0][j] = j;
    for (std::size_t i = 1; i <= a.size(); ++i) {
        auto& row = rows[i % 3];
        auto const& previous = rows[(i + 2) % 3];
        auto const& beforePrevious = rows[(i + 1) % 3];
        row[0] = i;
        for (std::size_t j = 1; j <= b.size(); ++j) {
            std::size_t const substituted = previous[j - 1] + (a[i - 1] == b[j - 1] ? 0 : 1);
            row[j] = std::min({previous[j] + 1, row[j - 1] + 1, substituted});
            if (i > 1 && j > 1 && a[i - 1] == b[j - 2] && a[i - 2] == b[j - 1])
                row[j] = std::min(row[j], beforePrevious[j - 2] + 1);
        }
    }
    return rows[a.size() % 3][b.size()];
}

} // namespace

std::wstring_view nearestName(std::wstring_view given, std::span<std::wstring_view const> known)
{
    if (given.size() > maxLength)
        return {};
    std::size_t const tolerated = std::max<std::size_t>(1, given.size() / 3);
    std::wstring_view nearest;
    std::size_t nearestDistance = tolerated + 1;
    for (std::wstring_view const name : known) {
        std::size_t const distance = editDistance(given, name);
        if (distance < nearestDistance) {
            nearest = name;
            nearestDistance = distance;
        }
    }
    if (nearest.empty() && given.size() >= 3) {
        auto const it =
            std::ranges::find_if(known, [&](std::wstring_view name) { return name.starts_with(given); });
        if (it != known.end())
            nearest = *it;
    }
    return nearest;
}

std::wstring nearestNameHint(std::wstring_view given, std::span<std::wstring_view const> known, wchar_t openQuote,
                             wchar_t closeQuote)
{
    if (known.empty())
        return {};
    auto const quoted = [&](std::wstring_view name) { return openQuote + std::wstring(name) + closeQuote; };
    if (std::wstring_view const nearest = nearestName(given, known); !nearest.empty())
        return L"; did you mean " + quoted(nearest) + L"?";
    std::wstring hint = L"; known are ";
    for (std::size_t i = 0; i < known.size(); ++i)
        hint += (i ? L", " : L"") + quoted(known[i]);
    return hint;
}

} // namespace vorntest
