// What the list of fields of a class can tell by itself: numbers that are none, directions that are none,
// references to nothing.
#include "host/db/audit/od_db_audit_info.h"
#include "host/db/od_db_database.h"
#include "host/db/records/od_db_dictionary.h"
#include "host/db/records/od_db_symbol_table.h"
#include "host/db/records/od_db_table_kinds.h"

namespace {

constexpr int kNormalCode = 210; // the direction in which an entity is extruded, in every class that has one

/// A record that takes the place of one that a field must name; null where a field may stay empty.
OdDbObjectId substitute(OdDbDatabase const& database, OdDbField const& field)
{
    if (field.rule != OdDbWriteRule::kAlways)
        return {};
    wchar_t const* const name = field.table == OdDbTableKind::kLayer ? L"0" : L"Continuous";
    return database.table(field.table).getAt(name);
}

std::size_t numReals(OdDbFieldKind kind)
{
    switch (kind) {
    case OdDbFieldKind::kReal: return 1;
    case OdDbFieldKind::kPoint2: return 2;
    case OdDbFieldKind::kPoint3: return 3;
    default: return 0;
    }
}

std::span<double> realsOf(OdDbField const& field, OdDbObject& object)
{
    return {static_cast<double*>(field.place(&object)), numReals(field.kind)};
}

bool areFinite(std::span<double const> reals)
{
    return std::all_of(reals.begin(), reals.end(), [](double value) { return std::isfinite(value); });
}

bool isZero(std::span<double const> reals)
{
    return std::all_of(reals.begin(), reals.end(), [](double value) { return value == 0; });
}

bool isBad(OdDbField const& field, OdDbObject& object)
{
    if (field.kind == OdDbFieldKind::kAngle)
        return !std::isfinite(static_cast<OdDbAngle const*>(field.place(&object))->radians());
    return !areFinite(realsOf(field, object));
}

void takeDefault(OdDbField const& field, OdDbObject& object, OdDbObject& defaults)
{
    if (field.kind == OdDbFieldKind::kAngle) {
        *static_cast<OdDbAngle*>(field.place(&object)) = *static_cast<OdDbAngle*>(field.place(&defaults));
        return;
    }
    std::span<double> const reals = realsOf(field, object);
    std::span<double> const fallback = realsOf(field, defaults);
    for (std::size_t i = 0; i < reals.size(); ++i)
        if (!std::isfinite(reals[i]) || field.code == kNormalCode)
            reals[i] = fallback[i];
}

/// Null, or what stands at the id is there.
bool isAlive(OdDbObjectId id)
{
    return id.isNull() || !id.isErased();
}

/// A pointer that files call hard: the object is of no use without what it points to.
bool isHard(OdDbField const& field)
{
    return (field.code >= 340 && field.code < 350) || (field.code >= 360 && field.code < 370) ||
           (field.code >= 390 && field.code < 400);
}

bool isBadName(OdDbField const& field, OdDbObjectId id)
{
    bool const isNeeded = field.rule == OdDbWriteRule::kAlways;
    if (id.isNull())
        return isNeeded;
    return id.isErased() || !id.stub()->object->isKindOf(odDbTableKind(field.table).recordClass());
}

} // namespace

void OdDbObject::auditReals(OdDbField const& field, OdDbAuditInfo& info) const
{
    // Looking at a place never changes the object; the accessors are shared with reading.
    auto& self = const_cast<OdDbObject&>(*this);
    auto const giveDefault = [&field](OdDbObject& object) {
        object.assertWriteEnabled();
        OdDbObjectPtr const defaults = OdRxObjectPtr(object.isA()->create());
        takeDefault(field, object, *defaults);
    };
    if (isBad(field, self))
        info.report(*this, odFormat(L"the value of group %d is not finite", field.code), L"default taken",
                    giveDefault);
    else if (field.code == kNormalCode && isZero(realsOf(field, self)))
        info.report(*this, L"its normal has no direction", L"Z axis taken", giveDefault);
}

void OdDbObject::auditReference(OdDbField const& field, OdDbAuditInfo& info) const
{
    auto const id = *static_cast<OdDbObjectId*>(field.place(const_cast<OdDbObject*>(this)));
    OdDbAuditInfo::Fix const clear = [&field](OdDbObject& object) {
        object.assertWriteEnabled();
        OdDbObjectId const other =
            field.kind == OdDbFieldKind::kName ? substitute(*object.database(), field) : OdDbObjectId();
        *static_cast<OdDbObjectId*>(field.place(&object)) = other;
    };
    if (field.kind == OdDbFieldKind::kReference) {
        if (isHard(field) && !isAlive(id))
            info.report(*this,
                        odFormat(L"group %d refers to %ls, which does not exist", field.code,
                                 id.getHandle().ascii().c_str()),
                        L"reference cleared", clear);
    } else if (field.table != OdDbTableKind::kBlock && isBadName(field, id)) {
        OdString const kind = OdString::fromUtf8(odDbTableKind(field.table).fileName);
        OdDbObjectId const other = substitute(*database(), field);
        OdString const remedy =
            other.isNull() ? OdString(L"reference cleared")
                           : odFormat(L"\"%ls\" taken", other.open<OdDbSymbolTableRecord>()->getName().c_str());
        info.report(*this, odFormat(L"its %ls is missing", kind.c_str()), remedy, clear);
    }
}

void OdDbObject::audit(OdDbAuditInfo& info) const
{
    for (OdDbSection const& section : fieldTable().sections()) {
        if (section.isWritten && !section.isWritten(*this))
            continue; // another section stands for the same fields
        for (OdDbField const& field : section.fields) {
            if (field.kind == OdDbFieldKind::kReference || field.kind == OdDbFieldKind::kName)
                auditReference(field, info);
            else if (field.kind == OdDbFieldKind::kAngle || numReals(field.kind) > 0)
                auditReals(field, info);
        }
    }
    OdDbObjectId const dictionary = m_extras ? m_extras.get()->extensionDictionary : OdDbObjectId();
    if (!dictionary.isNull() && !(dictionary.isValid() && odCast<OdDbDictionary>(dictionary.stub()->object)))
        info.report(
            *this,
            odFormat(L"its extension dictionary %ls does not exist", dictionary.getHandle().ascii().c_str()),
            L"reference cleared", [](OdDbObject& object) {
                object.assertWriteEnabled();
                object.editExtras().extensionDictionary = OdDbObjectId();
            });
}
