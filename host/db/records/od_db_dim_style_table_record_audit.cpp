// What an audit says of the values of a dimension style.
#include "host/db/audit/od_db_audit_info.h"
#include "host/db/records/od_db_dim_style_table_record.h"

namespace {

bool isBadValue(auto const& value)
{
    if (auto const* const real = std::get_if<double>(&value))
        return !std::isfinite(*real);
    auto const* const id = std::get_if<OdDbObjectId>(&value);
    return id && !id->isNull() && id->isErased();
}

} // namespace

void OdDbDimStyleTableRecord::eraseBadValues()
{
    assertWriteEnabled();
    std::erase_if(m_entries, [](Entry const& entry) { return isBadValue(entry.value); });
}

void OdDbDimStyleTableRecord::audit(OdDbAuditInfo& info) const
{
    OdDbSymbolTableRecord::audit(info);
    auto const bad = std::find_if(m_entries.begin(), m_entries.end(),
                                  [](Entry const& entry) { return isBadValue(entry.value); });
    if (bad == m_entries.end())
        return;
    OdString const name = OdString::fromUtf8(bad->variable->name);
    info.report(*this,
                odFormat(bad->variable->isReference() ? L"its %ls refers to nothing" : L"its %ls is not finite",
                         name.c_str()),
                L"default taken",
                [](OdDbObject& object) { static_cast<OdDbDimStyleTableRecord&>(object).eraseBadValues(); });
}
