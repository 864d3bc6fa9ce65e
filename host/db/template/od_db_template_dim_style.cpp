#include "host/db/template/od_db_template_dim_style.h"

#include "host/db/records/od_db_dim_style_table_record.h"

namespace {

struct RealValue
{
    std::string_view variable;
    double value;
};

struct IntegerValue
{
    std::string_view variable;
    int value;
};

// Where new drawings depart from the defaults of dimension variables: sizes for drawings in millimetres, text
// along the line and above it, no trailing zeros.
// clang-format off
constexpr RealValue kReals[] = {
    {"DIMASZ", 2.5},  {"DIMEXO", 0.625}, {"DIMDLI", 3.75}, {"DIMEXE", 1.25},
    {"DIMTXT", 2.5},  {"DIMCEN", 2.5},   {"DIMGAP", 0.625}, {"DIMALTF", 0.03937007874},
};
constexpr IntegerValue kIntegers[] = {
    {"DIMTIH", 0},  {"DIMTOH", 0},  {"DIMTAD", 1},   {"DIMZIN", 8},   {"DIMTZIN", 8},   {"DIMTOFL", 1},
    {"DIMDEC", 2},  {"DIMTDEC", 2}, {"DIMALTD", 3},  {"DIMALTTD", 3}, {"DIMTOLJ", 0},
};
// clang-format on

OdDbDimStyleTableRecord& build(OdDbDimStyleTableRecord& style)
{
    style.setName(L"Standard");
    for (RealValue const& each : kReals)
        style.setReal(each.variable, each.value);
    for (IntegerValue const& each : kIntegers)
        style.setInteger(each.variable, each.value);
    return style;
}

} // namespace

OdDbDimStyleTableRecord const& odDbTemplateDimStyle()
{
    static OdDbDimStyleTableRecord s_style;
    static OdDbDimStyleTableRecord const& s_built = build(s_style);
    return s_built;
}
