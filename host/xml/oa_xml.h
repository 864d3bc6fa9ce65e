#pragma once

// Values in XML. Numbers are read and written without regard to the locale.
//
// Reading: false, with the target as it was, when an attribute is absent or malformed; an empty one is a value for
// texts only. Blanks around numbers are skipped, other attributes are ignored.
// Writing: replaces an attribute of that name; `precision` is the number of significant digits. False, with
// nothing written, for a null node and for numbers that are not finite, since nobody could read them.

#include "host/db/od_db_full_subent_path.h"
#include "host/db/od_db_handle.h"
#include "host/geom/od_ge_arrays.h"

#include <pugixml.hpp>

#include <map>

class OdDbDatabase;

namespace oa {

inline constexpr int kXmlPrecision = 15;

bool readAttr(pugi::xml_node node, wchar_t const* name, OdString& value);
/// Decimal digits with an optional sign.
bool readAttr(pugi::xml_node node, wchar_t const* name, int& value);
bool readAttr(pugi::xml_node node, wchar_t const* name, unsigned& value);
/// Decimal, with or without exponent, finite.
bool readAttr(pugi::xml_node node, wchar_t const* name, double& value);
/// true, false, 1 or 0, in any case.
bool readAttr(pugi::xml_node node, wchar_t const* name, bool& value);
/// "x,y"
bool readAttr(pugi::xml_node node, wchar_t const* name, OdGePoint2d& value);
bool readAttr(pugi::xml_node node, wchar_t const* name, OdGeVector2d& value);
/// "x,y,z", or "x,y" with z = 0
bool readAttr(pugi::xml_node node, wchar_t const* name, OdGePoint3d& value);
/// "x,y,z"
bool readAttr(pugi::xml_node node, wchar_t const* name, OdGeVector3d& value);
/// 1 to 16 hexadecimal digits.
bool readAttr(pugi::xml_node node, wchar_t const* name, OdDbHandle& value);
/// Attributes nPt, the number of points, and aPt, the points separated by blanks; the number has to agree.
bool readAttr(pugi::xml_node node, OdGePoint3dArray& value);

bool writeAttr(pugi::xml_node node, wchar_t const* name, OdString const& value);
bool writeAttr(pugi::xml_node node, wchar_t const* name, wchar_t const* value);
bool writeAttr(pugi::xml_node node, wchar_t const* name, int value);
bool writeAttr(pugi::xml_node node, wchar_t const* name, unsigned value);
bool writeAttr(pugi::xml_node node, wchar_t const* name, double value, int precision = kXmlPrecision);
bool writeAttr(pugi::xml_node node, wchar_t const* name, bool value);
bool writeAttr(pugi::xml_node node, wchar_t const* name, OdGePoint2d const& value, int precision = kXmlPrecision);
bool writeAttr(pugi::xml_node node, wchar_t const* name, OdGeVector2d const& value, int precision = kXmlPrecision);
bool writeAttr(pugi::xml_node node, wchar_t const* name, OdGePoint3d const& value, int precision = kXmlPrecision);
bool writeAttr(pugi::xml_node node, wchar_t const* name, OdGeVector3d const& value, int precision = kXmlPrecision);
bool writeAttr(pugi::xml_node node, wchar_t const* name, OdDbHandle value);
bool writeAttr(pugi::xml_node node, OdGePoint3dArray const& value, int precision = kXmlPrecision);

/// Reads an element fullSubentPath: `entities`, the entities that lead to the one meant, outermost first,
/// separated by "," without blanks; `type`: none (as when absent), face, edge or vertex; `index`, default 0. An
/// entity is given by a name of `namedIds` or by its handle. One that is unknown, erased or of another drawing is
/// a failure. `error` receives the reason of a failure, `names` the texts of `entities`; both and `namedIds` may
/// be null.
bool read(pugi::xml_node const& node, OdDbDatabase* database, OdDbFullSubentPath& path, OdString* error = nullptr,
          OdArray<OdString>* names = nullptr, std::map<OdString, OdDbObjectId> const* namedIds = nullptr);
/// Writes the attributes that read() reads, entities by their handles. False for an empty path.
bool write(pugi::xml_node node, OdDbFullSubentPath const& path);

} // namespace oa
