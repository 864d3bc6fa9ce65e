#include "host/db/audit/od_db_audit_info.h"

#include "host/db/od_db_database.h"
#include "host/db/records/od_db_symbol_table.h"
#include "host/db/records/od_db_table_kinds.h"

namespace {

OdString tableName(OdDbSymbolTable const& table)
{
    for (OdDbTableKindInfo const& kind : odDbTableKinds())
        if (table.database()->getTableId(kind.kind) == table.objectId())
            return L"table " + OdString::fromUtf8(kind.fileName);
    return L"table";
}

OdString subjectOf(OdDbObject const& object)
{
    OdString const name = OdString::fromUtf8(object.dxfName());
    auto const* const asRx = static_cast<OdRxObject const*>(&object);
    if (auto const* const record = odCast<OdDbSymbolTableRecord>(asRx))
        return odFormat(L"%ls \"%ls\"", name.c_str(), record->getName().c_str());
    if (auto const* const table = odCast<OdDbSymbolTable>(asRx))
        return tableName(*table);
    return name;
}

} // namespace

OdString OdDbAuditInfo::Finding::shown() const
{
    if (isFixed)
        return text + L"; " + remedy;
    return remedy.isEmpty() ? text : text + L" (can be fixed)";
}

void OdDbAuditInfo::report(OdDbObject const& object, OdString const& text)
{
    m_findings.push_back({object.getDbHandle(), subjectOf(object) + L": " + text, {}, false});
}

void OdDbAuditInfo::report(OdDbObject const& object, OdString const& text, OdString const& remedy, Fix const& fix)
{
    report(object, text);
    m_findings.back().remedy = remedy;
    if (!m_fixesErrors)
        return;
    OdDbObjectPtr const opened = object.objectId().safeOpenObject(OdDb::kForWrite);
    fix(*opened);
    m_findings.back().isFixed = true;
    ++m_numFixed;
}

void OdDbAuditInfo::reportUseless(OdDbObject const& object, OdString const& text)
{
    report(object, text, L"erased", [](OdDbObject& useless) { useless.erase(); });
}
