#pragma once

#include "host/app/sys_var_table.h"

namespace ca {

// Values of system variables: defaults, ranges, text. Functions that refuse a value throw OdError(eOutOfRange)
// with what the variable requires, in one sentence.

SysVarValue sysVarDefault(SysVarRow const& row);

/// The value as the variable's type has it: numbers where they fit, points with or without z.
SysVarValue sysVarChecked(SysVarRow const& row, SysVarValue const& value);

/// The range is not checked.
SysVarValue sysVarFromText(SysVarRow const& row, OdString const& text);
OdString sysVarToText(SysVarValue const& value);

/// Equal in type and every bit that counts; no tolerance.
bool sysVarIsSame(SysVarValue const& a, SysVarValue const& b);

} // namespace ca
