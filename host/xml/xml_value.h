#pragma once

// One value as the text of an attribute. Reading: false, with the value as it was, for a text that is no such
// value. Writing appends to a text; false, with the text as it was, for numbers that are not finite.

#include "host/db/od_db_handle.h"
#include "host/geom/od_ge_arrays.h"

#include <string_view>

namespace oa {

bool parseValue(std::wstring_view text, OdString& value);
bool parseValue(std::wstring_view text, int& value);
bool parseValue(std::wstring_view text, unsigned& value);
bool parseValue(std::wstring_view text, double& value);
bool parseValue(std::wstring_view text, bool& value);
bool parseValue(std::wstring_view text, OdGePoint2d& value);
bool parseValue(std::wstring_view text, OdGeVector2d& value);
bool parseValue(std::wstring_view text, OdGePoint3d& value);
bool parseValue(std::wstring_view text, OdGeVector3d& value);
bool parseValue(std::wstring_view text, OdDbHandle& value);

bool appendValue(OdString& text, OdString const& value, int precision);
bool appendValue(OdString& text, int value, int precision);
bool appendValue(OdString& text, unsigned value, int precision);
bool appendValue(OdString& text, double value, int precision);
bool appendValue(OdString& text, bool value, int precision);
bool appendValue(OdString& text, OdGePoint2d const& value, int precision);
bool appendValue(OdString& text, OdGeVector2d const& value, int precision);
bool appendValue(OdString& text, OdGePoint3d const& value, int precision);
bool appendValue(OdString& text, OdGeVector3d const& value, int precision);
bool appendValue(OdString& text, OdDbHandle value, int precision);

} // namespace oa
