#pragma once

#include "host/geom/od_ge_2d.h"
#include "host/geom/od_ge_3d.h"
#include "host/root/od_string.h"

#include <span>
#include <variant>

namespace ca {

class CaDoc;
struct SysVarRow;

/// Value of a system variable. The alternative goes with the type of the variable; bool and short are int.
using SysVarValue = std::variant<int, double, OdGePoint2d, OdGePoint3d, OdString>;

enum class ESysVarType
{
    kBool,
    kShort,
    kInt,
    kReal,
    kPoint2,
    kPoint3,
    kString
};

/// Whose the value is.
enum class ESysVarKeeper
{
    kDrawing,    ///< in the drawing and its files; changes can be undone
    kDocument,   ///< with the document while it is open
    kApplication ///< with the application while it runs
};

/// A system variable; the table of all stands in sys_var_table.cpp. Angles are in degrees, points in the user
/// coordinate system. `doc` is the document whose value is meant, null for the current one; variables of the
/// application take no notice of it.
class SysVar
{
public:
    constexpr explicit SysVar(SysVarRow const& row) : m_row(&row) {}
    SysVarRow const& row() const { return *m_row; }

    /// Without regard to case; null for an unknown name.
    static SysVar const* find(OdString const& name);
    /// All variables by name.
    static std::span<SysVar const> list();

    OdString name() const;
    ESysVarType type() const;
    ESysVarKeeper keeper() const;
    bool isReadOnly() const;
    /// Commands leave their last input in it, to offer it the next time.
    bool isRemembered() const;
    SysVarValue defaultValue() const;

    /// The default without a document where one is needed, and where a damaged drawing lacks what holds the value.
    SysVarValue value(CaDoc const* doc = nullptr) const;
    OdString text(CaDoc const* doc = nullptr) const { return toText(value(doc)); }

    /// False for a value of another type, out of range or naming nothing, for a read-only variable, and without a
    /// document where one is needed; nothing has changed then, and `reason` (may be null) says why in one
    /// sentence.
    bool set(SysVarValue const& value, CaDoc* doc = nullptr, OdString* reason = nullptr) const;
    /// The same from text as a user types it; ON and OFF are taken for switches.
    bool setText(OdString const& text, CaDoc* doc = nullptr, OdString* reason = nullptr) const;

    /// Reads back as the same value.
    static OdString toText(SysVarValue const& value);

private:
    void assign(SysVarValue const& value, CaDoc* doc) const;

    SysVarRow const* m_row;
};

} // namespace ca
