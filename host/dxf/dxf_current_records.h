#pragma once

#include "host/db/filer/od_db_field.h"

#include <span>

namespace dxf {

/// A header variable that names the current record of a table.
struct CurrentRecordVariable
{
    OdDbTableKind table;
    std::string_view name; ///< without "$"
    int code;
};

inline constexpr CurrentRecordVariable kCurrentRecordVariables[] = {
    {OdDbTableKind::kTextStyle, "TEXTSTYLE", 7},
    {OdDbTableKind::kLayer, "CLAYER", 8},
    {OdDbTableKind::kLinetype, "CELTYPE", 6},
    {OdDbTableKind::kDimStyle, "DIMSTYLE", 2},
};

} // namespace dxf
