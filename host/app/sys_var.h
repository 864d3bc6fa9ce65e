#pragma once

#include "host/geom/od_ge_2d.h"
#include "host/geom/od_ge_3d.h"
#include "host/root/od_string.h"

#include <span>
#include <unordered_map>
#include <variant>

namespace ca {

class CaDoc;

/// Value of a system variable. The alternative goes with the type of the variable: short, int and bool are int.
using SysVarValue = std::variant<int, double, OdGePoint2d, OdGePoint3d, OdString>;

enum class ESysVarType { kBool, kShort, kInt, kReal, kString, kPoint2, kPoint3 };

/// Where the value lives.
enum class ESysVarKeeper {
    kDrawing,     ///< in the drawing and its files; changes can be undone
    kDocument,    ///< with the document while it is open
    kApplication, ///< with the application while it runs
    kComputed     ///< nowhere: found out when asked for
};

/// A system variable: a row of the table in sys_var_table.cpp. Angles are in degrees. `doc` is the document whose
/// value is meant, null for the current one; variables that no document keeps take no notice of it.
class SysVar
{
public:
    /// Without regard to case; null for an unknown name.
    static SysVar const* find(OdString const& name);
    /// All variables by name.
    static std::span<SysVar const* const> list();

    OdString name() const { return m_name; }
    ESysVarType type() const { return m_type; }
    ESysVarKeeper keeper() const { return m_keeper; }
    bool isReadOnly() const { return m_isReadOnly; }
    /// Commands leave their last input in it, to offer it the next time.
    bool isRemembered() const { return m_isRemembered; }

    SysVarValue defaultValue() const;
    /// Without a document, the default.
    SysVarValue value(CaDoc const* doc = nullptr) const;
    OdString text(CaDoc const* doc = nullptr) const { return toText(value(doc)); }

    /// False for a value of another type, out of range or naming nothing, for a read-only variable, and without a
    /// document where one is needed; nothing has changed then, and `reason` (may be null) says why in one sentence.
    bool set(SysVarValue const& value, CaDoc* doc = nullptr, OdString* reason = nullptr) const;
    /// The same from text as typed by a user.
    bool setText(OdString const& text, CaDoc* doc = nullptr, OdString* reason = nullptr) const;

    /// Reads back as the same value.
    static OdString toText(SysVarValue const& value);

private:
    friend struct SysVarRow;
    friend bool operator<(SysVar const& a, SysVar const& b);
