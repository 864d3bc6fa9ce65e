#pragma once

#include "host/app/ca_doc.h"
#include "host/app/editor.h"
#include "host/app/sys_var_store.h"

namespace ca {

/// The variables in which inquiries leave their last result; users can read them only.
/// @{
inline constexpr wchar_t const* kDistance = L"DISTANCE";
inline constexpr wchar_t const* kArea = L"AREA";
inline constexpr wchar_t const* kPerimeter = L"PERIMETER";
/// @}

inline void rememberInquiry(Editor& editor, wchar_t const* variable, double value)
{
    editor.doc().variables().set(SysVar::find(variable)->row(), value);
}

} // namespace ca
