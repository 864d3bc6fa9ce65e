// What an audit says of the names in a symbol table.
#include "host/db/audit/od_db_audit_info.h"
#include "host/db/od_db_database.h"
#include "host/db/records/od_db_symbol_table.h"

#include <unordered_set>

/// Goes over the records of one table once; names that are wrong become new ones that no record has.
class OdDbNameAudit
{
public:
    OdDbNameAudit(OdDbSymbolTable const& table, OdDbAuditInfo& info);
    void check(OdDbSymbolTableRecord const& record);

private:
    bool isTable(OdDbTableKind kind) const { return m_table.database()->getTableId(kind) == m_table.objectId(); }
    void checkDefined(OdDbSymbolTableRecord const& record);
    void checkName(OdDbSymbolTableRecord const& record);
    void reportName(OdDbSymbolTableRecord const& record, OdString const& text);
    OdString freeName(OdString const& wanted);

    OdDbSymbolTable const& m_table;
    OdDbAuditInfo& m_info;
    bool m_hasUniqueNames;
    bool m_hasToDefine;
    std::unordered_set<OdString> m_taken;                 ///< names in upper case, of all records
    std::unordered_set<OdString> m_seen;                  ///< of those that were checked
    std::unordered_map<OdString, std::size_t> m_numGiven; ///< last number given behind a name
};

OdDbNameAudit::OdDbNameAudit(OdDbSymbolTable const& table, OdDbAuditInfo& info)
    : m_table(table),
      m_info(info),
      m_hasUniqueNames(!isTable(OdDbTableKind::kViewport)), // those of a divided screen share theirs
      // Layers come into being by being used, also in files; missing blocks are told by their references.
      m_hasToDefine(isTable(OdDbTableKind::kLinetype) || isTable(OdDbTableKind::kTextStyle) ||
                    isTable(OdDbTableKind::kDimStyle))
{
    for (OdDbStub const* const stub : table.records())
        if (!stub->erased)
            m_taken.insert(static_cast<OdDbSymbolTableRecord const*>(stub->object)->getName().upper());
}

void OdDbNameAudit::check(OdDbSymbolTableRecord const& record)
{
    if (record.isNameless())
        return;
    checkDefined(record);
    checkName(record);
}

void OdDbNameAudit::checkDefined(OdDbSymbolTableRecord const& record)
{
    if (m_hasToDefine && record.isImplied())
        m_info.report(record, L"it is used but not defined", L"defined", [](OdDbObject& object) {
            static_cast<OdDbSymbolTableRecord&>(object).assertWriteEnabled();
        });
}

void OdDbNameAudit::checkName(OdDbSymbolTableRecord const& record)
{
    constexpr int kFromExternalDrawing = 16; // such names hold a bar behind the name of that drawing
    OdString name = record.getName();
    if (record.hasFlag(kFromExternalDrawing))
        name.replace(L"|", L"$");
    if (name.isEmpty())
        reportName(record, L"it has no name");
    else if (!OdDbSymbolTable::isValidName(name))
        reportName(record, L"its name holds characters that names cannot have");
    else if (bool const isNew = m_seen.insert(record.getName().upper()).second; !isNew && m_hasUniqueNames)
        reportName(record, L"another record has the same name");
}

void OdDbNameAudit::reportName(OdDbSymbolTableRecord const& record, OdString const& text)
{
    OdString const name = freeName(record.getName());
    m_info.report(record, text, odFormat(L"renamed to \"%ls\"", name.c_str()), [&name](OdDbObject& object) {
        auto& renamed = static_cast<OdDbSymbolTableRecord&>(object);
        renamed.assertWriteEnabled();
        renamed.m_name = name;
        renamed.fieldsRestored();
    });
}

/// The name with a line for each character that names cannot have, and a number behind it where it is taken.
OdString OdDbNameAudit::freeName(OdString const& wanted)
{
    std::wstring base = wanted.isEmpty() ? L"Unnamed" : wanted.str();
    for (wchar_t& character : base)
        if (!OdDbSymbolTable::isValidName(OdString(std::wstring(L"x") + character)))
            character = L'_';
    OdString const root(base);
    std::size_t& number = m_numGiven[root.upper()];
    OdString name = root;
    while (!m_taken.insert(name.upper()).second)
        name = odFormat(L"%ls_%lld", root.c_str(), static_cast<long long>(++number));
    m_seen.insert(name.upper());
    return name;
}

void OdDbSymbolTable::audit(OdDbAuditInfo& info) const
{
    OdDbObject::audit(info);
    OdDbNameAudit names(*this, info);
    for (OdDbStub const* const stub : m_records)
        if (!stub->erased)
            names.check(*static_cast<OdDbSymbolTableRecord const*>(stub->object));
}
