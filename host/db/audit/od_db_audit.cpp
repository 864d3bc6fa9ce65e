#include "host/db/audit/od_db_audit.h"

#include "host/db/audit/od_db_audit_blocks.h"
#include "host/db/od_db_database.h"
#include "host/db/records/od_db_block_table_record.h"
#include "host/db/records/od_db_dictionary.h"
#include "host/db/records/od_db_table_kinds.h"

#include <unordered_set>

namespace {

/// What takes the place of a current record that is missing.
constexpr OdDbRequiredRecord s_current[] = {
    {OdDbTableKind::kLayer, L"0"},
    {OdDbTableKind::kLinetype, L"ByLayer"},
    {OdDbTableKind::kTextStyle, L"Standard"},
    {OdDbTableKind::kDimStyle, L"Standard"},
};

/// The owner of an object as it was; before-images do not hold it.
class OwnerStep : public OdDbUndoStep
{
public:
    explicit OwnerStep(OdDbObject const& object) : m_stub(object.objectId().stub()), m_owner(object.ownerId()) {}
    void revert(OdDbDatabase& database) override
    {
        OdDbObjectId const present = m_stub->object->ownerId();
        m_stub->object->setOwner(m_owner);
        m_owner = present;
        database.noteChange();
    }

private:
    OdDbStub* m_stub;
    OdDbObjectId m_owner;
};

OdDbAuditInfo::Fix ownerFix(OdDbObjectId owner)
{
    return [owner](OdDbObject& object) {
        object.database()->undoLog().add(std::make_unique<OwnerStep>(object));
        object.setOwner(owner);
        object.database()->noteChange();
    };
}

class Audit
{
public:
    Audit(OdDbDatabase& database, OdDbAuditInfo& info) : m_database(database), m_info(info) {}

    void run()
    {
        checkRequiredRecords();
        for (OdDbTableKindInfo const& kind : odDbTableKinds())
            auditTable(m_database.table(kind.kind));
        for (OdDbStub const* const stub : m_database.fileObjects())
            auditObject(stub);
        for (OdDbStub const* const stub : m_database.fileObjects())
            if (!stub->erased)
                checkOwner(*stub->object);
        odDbAuditBlocks(m_database, m_info);
        checkCurrentRecords();
    }

private:
    void checkRequiredRecords();
    void checkCurrentRecords();
    void auditTable(OdDbSymbolTable const& table);
    void auditBlock(OdDbBlockTableRecord const& block);
    bool auditObject(OdDbStub const* stub);
    void auditContained(OdDbStub const* stub, OdDbObject const& container);
    void noteListed(OdDbObject const& lister, OdDbObjectId listed);
    void checkOwner(OdDbObject const& object);

    OdDbDatabase& m_database;
    OdDbAuditInfo& m_info;
    std::unordered_set<OdDbObjectId> m_listedByOwner;
    std::unordered_map<OdDbObjectId, OdDbObjectId> m_otherListers; ///< who could own an object, by object
};

void Audit::checkRequiredRecords()
{
    for (OdDbRequiredRecord const& required : odDbRequiredRecords()) {
        OdDbSymbolTable const& table = m_database.table(required.table);
        if (table.has(required.name))
            continue;
        m_info.report(table, odFormat(L"the record \"%ls\", which every drawing has, is missing", required.name),
                      L"added", [](OdDbObject& object) { object.database()->completeFromTemplate(); });
    }
}

void Audit::checkCurrentRecords()
{
    for (OdDbRequiredRecord const& fallback : s_current) {
        if (!m_database.current(fallback.table).isErased())
            continue;
        OdDbSymbolTable const& table = m_database.table(fallback.table);
        m_info.report(table, L"the current record is missing", odFormat(L"\"%ls\" is current now", fallback.name),
                      [&fallback](OdDbObject& object) {
                          OdDbObjectId const id = static_cast<OdDbSymbolTable&>(object).getAt(fallback.name);
                          object.database()->setCurrent(fallback.table, id);
                      });
    }
}

void Audit::auditTable(OdDbSymbolTable const& table)
{
    auditObject(table.objectId().stub());
    for (OdDbStub const* const stub : table.records()) {
        auditContained(stub, table);
        if (stub->erased)
            continue;
        if (auto const* const block = odCast<OdDbBlockTableRecord>(stub->object))
            auditBlock(*block);
    }
}

void Audit::auditBlock(OdDbBlockTableRecord const& block)
{
    for (OdDbObjectId const frame : {block.beginId(), block.endId()})
        if (frame.isValid())
            auditContained(frame.stub(), block);
    for (OdDbStub const* const stub : block.entities()) {
        auditContained(stub, block);
        if (stub->erased)
            continue;
        auto const& entity = static_cast<OdDbEntity const&>(*stub->object);
        for (OdDbStub const* const part : entity.subentities())
            auditContained(part, entity);
        if (OdDbObjectId const end = entity.sequenceEnd(); end.isValid())
            auditContained(end.stub(), entity);
    }
}

/// False for an object that is erased, maybe by this.
bool Audit::auditObject(OdDbStub const* stub)
{
    if (stub->erased)
        return false;
    OdDbObject const& object = *stub->object;
    object.audit(m_info);
    if (stub->erased)
        return false;
    if (OdDbObjectId const dictionary = object.extensionDictionary(); !dictionary.isNull())
        noteListed(object, dictionary);
    if (auto const* const dictionary = odCast<OdDbDictionary>(static_cast<OdRxObject const*>(&object)))
        for (OdDbDictionary::Entry const& entry : dictionary->entries())
            noteListed(object, entry.id);
    return true;
}

void Audit::auditContained(OdDbStub const* stub, OdDbObject const& container)
{
    if (!auditObject(stub) || stub->object->ownerId() == container.objectId())
        return;
    m_info.report(*stub->object,
                  odFormat(L"its owner is %ls, but it stands in %ls",
                           stub->object->ownerId().getHandle().ascii().c_str(),
                           container.getDbHandle().ascii().c_str()),
                  L"owner set", ownerFix(container.objectId()));
}

void Audit::noteListed(OdDbObject const& lister, OdDbObjectId listed)
{
    if (listed.isErased())
        return;
    if (listed.stub()->object->ownerId() == lister.objectId())
        m_listedByOwner.insert(listed);
    else
        m_otherListers.emplace(listed, lister.objectId());
}

/// Of an object that stands in no table and no block: whoever it says owns it has to know of it.
void Audit::checkOwner(OdDbObject const& object)
{
    OdDbObjectId const id = object.objectId();
    OdDbObjectId const owner = object.ownerId();
    if (m_listedByOwner.contains(id) || id == m_database.getNamedObjectsDictionaryId())
        return;
    bool const isDictionary = !owner.isErased() && odCast<OdDbDictionary>(owner.stub()->object) != nullptr;
    auto const other = m_otherListers.find(id);
    bool const hasOther = other != m_otherListers.end();
    if (!owner.isErased() && !isDictionary && !hasOther)
        return; // objects of classes that the host keeps raw own others without its knowing how
    OdString const text = owner.isNull() ? OdString(L"it has no owner")
                                         : odFormat(owner.isErased() ? L"its owner %ls does not exist"
                                                                     : L"its owner %ls does not list it",
                                                    owner.getHandle().ascii().c_str());
    if (hasOther)
        m_info.report(object, text, odFormat(L"owned by %ls now", other->second.getHandle().ascii().c_str()),
                      ownerFix(other->second));
    else
        m_info.report(object, text);
}

} // namespace

void odDbAudit(OdDbDatabase& database, OdDbAuditInfo& info)
{
    Audit(database, info).run();
}
