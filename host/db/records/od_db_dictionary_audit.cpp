// What an audit says of the entries of a dictionary.
#include "host/db/audit/od_db_audit_info.h"
#include "host/db/od_db_database.h"
#include "host/db/records/od_db_dictionary.h"

/// All entries as they were: many are removed at once.
class OdDbDictionaryEntriesStep : public OdDbUndoStep
{
public:
    explicit OdDbDictionaryEntriesStep(OdDbDictionary const& dictionary)
        : m_dictionary(dictionary.objectId().stub()), m_entries(dictionary.m_entries)
    {
    }
    void revert(OdDbDatabase& database) override
    {
        auto& dictionary = *static_cast<OdDbDictionary*>(m_dictionary->object);
        static_cast<std::vector<OdDbDictionary::Entry>&>(dictionary.m_entries).swap(m_entries);
        dictionary.m_index.isStale = true;
        database.noteChange();
    }

private:
    OdDbStub* m_dictionary;
    std::vector<OdDbDictionary::Entry> m_entries;
};

void OdDbDictionary::removeEntriesOfNothing()
{
    database()->undoLog().add(std::make_unique<OdDbDictionaryEntriesStep>(*this));
    std::erase_if(static_cast<std::vector<Entry>&>(m_entries),
                  [](Entry const& entry) { return !entry.id.isValid(); });
    m_index.isStale = true;
    database()->noteChange();
}

void OdDbDictionary::audit(OdDbAuditInfo& info) const
{
    OdDbObject::audit(info);
    auto const isOfNothing = [](Entry const& entry) { return !entry.id.isValid(); };
    auto const first = std::find_if(m_entries.begin(), m_entries.end(), isOfNothing);
    if (first == m_entries.end())
        return;
    auto const others = std::count_if(first + 1, m_entries.end(), isOfNothing);
    OdString text = odFormat(L"its entry \"%ls\"", first->name.c_str());
    text += others > 0 ? odFormat(L" and %lld more refer to nothing", static_cast<long long>(others))
                       : OdString(L" refers to nothing");
    info.report(*this, text, L"removed",
                [](OdDbObject& object) { static_cast<OdDbDictionary&>(object).removeEntriesOfNothing(); });
}
