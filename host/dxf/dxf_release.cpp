#include "host/dxf/dxf_release.h"

#include <algorithm>
#include <iterator>

namespace dxf {

namespace {

constexpr std::size_t kOnlyRead = 7; // rows before those that are written

// clang-format off
constexpr Release s_releases[] = {
    {"AC1.50", L"R2.0",  ERelease::kR12},
    {"AC2.10", L"R2.1",  ERelease::kR12},
    {"AC1001", L"R2.2",  ERelease::kR12},
    {"AC1002", L"R2.5",  ERelease::kR12},
    {"AC1003", L"R2.6",  ERelease::kR12},
    {"AC1004", L"R9",    ERelease::kR12},
    {"AC1006", L"R10",   ERelease::kR12},
    {"AC1009", L"R12",   ERelease::kR12},
    {"AC1012", L"R13",   ERelease::kR13},
    {"AC1014", L"R14",   ERelease::kR14},
    {"AC1015", L"R2000", ERelease::kR2000},
    {"AC1018", L"R2004", ERelease::kR2004},
    {"AC1021", L"R2007", ERelease::kR2007},
    {"AC1024", L"R2010", ERelease::kR2010},
    {"AC1027", L"R2013", ERelease::kR2013},
    {"AC1032", L"R2018", ERelease::kR2018},
};
// clang-format on

bool equalsNoCase(std::string_view upper, std::string_view text)
{
    return std::equal(upper.begin(), upper.end(), text.begin(), text.end(), [](char a, char b) {
        return a == (b >= 'a' && b <= 'z' ? static_cast<char>(b - 'a' + 'A') : b);
    });
}

bool hasName(Release const& release, std::string_view name)
{
    std::wstring_view const wide(release.name);
    return equalsNoCase(std::string(wide.begin(), wide.end()), name);
}

} // namespace

Release const* findRelease(std::string_view code)
{
    auto const it = std::find_if(std::begin(s_releases), std::end(s_releases),
                                 [code](Release const& release) { return release.code == code; });
    return it == std::end(s_releases) ? nullptr : it;
}

Release const* findReleaseByName(std::string_view name)
{
    for (Release const& release : writableReleases())
        if (hasName(release, name) || equalsNoCase(release.code, name))
            return &release;
    return nullptr;
}

Release const& releaseOf(ERelease id)
{
    return writableReleases()[static_cast<std::size_t>(id)];
}

std::span<Release const> writableReleases()
{
    return std::span<Release const>(s_releases).subspan(kOnlyRead);
}

} // namespace dxf
