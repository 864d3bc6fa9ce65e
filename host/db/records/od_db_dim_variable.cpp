#include "host/db/records/od_db_dim_variable.h"

#include <algorithm>
#include <array>

namespace {

using enum OdDbDimVariable::EKind;

// What a style means that does not mention a variable: the values of drawing files, in inches.
// clang-format off
constexpr OdDbDimVariable kVariables[] = {
    {"DIMPOST",     3,   kText,      0},
    {"DIMAPOST",    4,   kText,      0},
    {"DIMSCALE",    40,  kReal,      1},
    {"DIMASZ",      41,  kReal,      0.18},
    {"DIMEXO",      42,  kReal,      0.0625},
    {"DIMDLI",      43,  kReal,      0.38},
    {"DIMEXE",      44,  kReal,      0.18},
    {"DIMRND",      45,  kReal,      0},
    {"DIMDLE",      46,  kReal,      0},
    {"DIMTP",       47,  kReal,      0},
    {"DIMTM",       48,  kReal,      0},
    {"DIMFXL",      49,  kReal,      1},
    {"DIMJOGANG",   50,  kAngle,     45},
    {"DIMTXT",      140, kReal,      0.18},
    {"DIMCEN",      141, kReal,      0.09},
    {"DIMTSZ",      142, kReal,      0},
    {"DIMALTF",     143, kReal,      25.4},
    {"DIMLFAC",     144, kReal,      1},
    {"DIMTVP",      145, kReal,      0},
    {"DIMTFAC",     146, kReal,      1},
    {"DIMGAP",      147, kReal,      0.09},
    {"DIMALTRND",   148, kReal,      0},
    {"DIMTFILL",    69,  kInteger,   0},
    {"DIMTFILLCLR", 70,  kInteger,   0},
    {"DIMTOL",      71,  kInteger,   0},
    {"DIMLIM",      72,  kInteger,   0},
    {"DIMTIH",      73,  kInteger,   1},
    {"DIMTOH",      74,  kInteger,   1},
    {"DIMSE1",      75,  kInteger,   0},
    {"DIMSE2",      76,  kInteger,   0},
    {"DIMTAD",      77,  kInteger,   0},
    {"DIMZIN",      78,  kInteger,   0},
    {"DIMAZIN",     79,  kInteger,   0},
    {"DIMARCSYM",   90,  kInteger,   0},
    {"DIMALT",      170, kInteger,   0},
    {"DIMALTD",     171, kInteger,   2},
    {"DIMTOFL",     172, kInteger,   0},
    {"DIMSAH",      173, kInteger,   0},
    {"DIMTIX",      174, kInteger,   0},
    {"DIMSOXD",     175, kInteger,   0},
    {"DIMCLRD",     176, kInteger,   0},
    {"DIMCLRE",     177, kInteger,   0},
    {"DIMCLRT",     178, kInteger,   0},
    {"DIMADEC",     179, kInteger,   0},
    {"DIMDEC",      271, kInteger,   4},
    {"DIMTDEC",     272, kInteger,   4},
    {"DIMALTU",     273, kInteger,   2},
    {"DIMALTTD",    274, kInteger,   2},
    {"DIMAUNIT",    275, kInteger,   0},
    {"DIMFRAC",     276, kInteger,   0},
    {"DIMLUNIT",    277, kInteger,   2},
    {"DIMDSEP",     278, kInteger,   46},
    {"DIMTMOVE",    279, kInteger,   0},
    {"DIMJUST",     280, kInteger,   0},
    {"DIMSD1",      281, kInteger,   0},
    {"DIMSD2",      282, kInteger,   0},
    {"DIMTOLJ",     283, kInteger,   1},
    {"DIMTZIN",     284, kInteger,   0},
    {"DIMALTZ",     285, kInteger,   0},
    {"DIMALTTZ",    286, kInteger,   0},
    {"DIMUPT",      288, kInteger,   0},
    {"DIMATFIT",    289, kInteger,   3},
    {"DIMFXLON",    290, kInteger,   0},
    {"DIMTXTDIRECTION", 294, kInteger, 0},
    {"DIMTXSTY",    340, kTextStyle, 0},
    {"DIMLDRBLK",   341, kBlock,     0},
    {"DIMBLK",      342, kBlock,     0},
    {"DIMBLK1",     343, kBlock,     0},
    {"DIMBLK2",     344, kBlock,     0},
    {"DIMLTYPE",    345, kLinetype,  0},
    {"DIMLTEX1",    346, kLinetype,  0},
    {"DIMLTEX2",    347, kLinetype,  0},
    {"DIMLWD",      371, kInteger,   -2},
    {"DIMLWE",      372, kInteger,   -2},
};
// clang-format on

constexpr int kLastCode = 372;

/// Number of the variable by group code; -1 for none.
constexpr auto kNumberOfCode = [] {
    std::array<std::int8_t, kLastCode + 1> numbers{};
    numbers.fill(-1);
    for (std::size_t i = 0; i < std::size(kVariables); ++i)
        numbers[static_cast<std::size_t>(kVariables[i].code)] = static_cast<std::int8_t>(i);
    return numbers;
}();

} // namespace

std::span<OdDbDimVariable const> odDbDimVariables()
{
    return kVariables;
}

OdDbDimVariable const* odDbFindDimVariable(std::string_view name)
{
    auto const it = std::find_if(std::begin(kVariables), std::end(kVariables),
                                 [name](OdDbDimVariable const& each) { return each.name == name; });
    return it == std::end(kVariables) ? nullptr : it;
}

OdDbDimVariable const* odDbFindDimVariable(int code)
{
    int const number = code >= 0 && code <= kLastCode ? kNumberOfCode[static_cast<std::size_t>(code)] : -1;
    return number < 0 ? nullptr : &kVariables[number];
}
