#include "host/dxf/dxf_release.h"

namespace dxf {

namespace {

// clang-format off
constexpr Release s_releases[] = {
    {"AC1006", L"R10",   false, false},
    {"AC1009", L"R12",   false, false},
    {"AC1012", L"R13",   false, false},
    {"AC1014", L"R14",   false, false},
    {"AC1015", L"R2000", true,  false},
    {"AC1018", L"R2004", true,  false},
    {"AC1021", L"R2007", true,  true},
    {"AC1024", L"R2010", true,  true},
    {"AC1027", L"R2013", true,  true},
    {"AC1032", L"R2018", true,  true},
};
// clang-format on

} // namespace

Release const* findRelease(std::string_view code)
{
    for (Release const& release : s_releases)
        if (release.code == code)
            return &release;
    return nullptr;
}

Release const& currentRelease()
{
    return s_releases[std::size(s_releases) - 1];
}

} // namespace dxf
