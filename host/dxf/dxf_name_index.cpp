#include "host/dxf/dxf_name_index.h"

#include "host/db/filer/od_db_record_reader.h"

namespace dxf {

/// What the first look takes from one record of the section of tables.
struct NameIndex::FoundRecord
{
    std::string_view type;
    OdDbHandle handle;
    std::string name;
};

NameIndex::NameIndex(OdDbDatabase& database, TagSource const& source) : m_database(database), m_source(source)
{
    lookThroughTables();
}

/// Reads from the group 0 that `tag` holds to the next one; false at the end of the file. Of repeated groups the
/// same one counts as when the record is read in full.
bool NameIndex::readRecord(TagSource& source, OdDbTag& tag, FoundRecord& record)
{
    record = {tag.text, {}, {}};
    int const handleCode = tag.text == "DIMSTYLE" ? 105 : 5;
    bool const isHead = tag.text == "TABLE";
    bool hasMarker = false;
    bool isOfApplication = false; // a group in braces, or extended data, has group codes of its own
    while (source.next(tag)) {
        if (tag.code == 0)
            return true;
        if (tag.code == 102 || tag.code >= 1000)
            isOfApplication = tag.code >= 1000 || tag.text.starts_with('{');
        if (isOfApplication)
            continue;
        if (tag.code == 100)
            hasMarker = true;
        else if (tag.code == handleCode && tag.kind == OdDbTagKind::kHandle && !hasMarker &&
                 record.handle.isNull())
            record.handle = tag.handle();
        else if (tag.code == 2 && (!isHead || record.name.empty()))
            record.name = tag.text;
    }
    return false;
}

/// Goes to the first record in the section of the tables; false without one.
bool NameIndex::findTables(TagSource& source, OdDbTag& tag)
{
    bool isBegin = false;
    while (source.next(tag) && !(isBegin && tag.is(2, "TABLES")))
        isBegin = tag.is(0, "SECTION");
    while (isBegin && tag.code != 0)
        isBegin = source.next(tag);
    return isBegin;
}

void NameIndex::lookThroughTables()
{
    std::unique_ptr<TagSource> const source = m_source.fromStart();
    OdDbTag tag;
    bool isMore = findTables(*source, tag);
    OdDbTableKindInfo const* table = nullptr;
    std::unordered_set<std::uint64_t> taken;
    FoundRecord record;
    while (isMore && !tag.is(0, "ENDSEC")) {
        isMore = readRecord(*source, tag, record);
        if (record.type == "TABLE") {
            table = odDbFindTableKind(record.name);
            if (table && m_database.getTableId(table->kind).isNull())
                createTable(*table, taken.insert(record.handle.value()).second ? record.handle : OdDbHandle());
        } else if (table && record.type == table->fileName) {
            noteRecord(table->kind, record, taken);
        }
    }
}

OdDbSymbolTable& NameIndex::createTable(OdDbTableKindInfo const& kind, OdDbHandle handle)
{
    if (!m_database.getOdDbObjectId(handle).isNull())
        handle = {};
    if (handle.isNull())
        openFreeHandles();
    OdSmartPtr<OdDbSymbolTable> const created = OdRxObjectPtr(kind.tableClass()->create());
    m_database.setTableId(kind.kind, m_database.addOdDbObject(created, {}, handle));
    return *created;
}

void NameIndex::noteRecord(OdDbTableKind kind, FoundRecord const& record, std::unordered_set<std::uint64_t>& taken)
{
    if (record.name.empty())
        return;
    OdDbHandle handle = record.handle;
    if (handle.isNull() || !taken.insert(handle.value()).second) {
        openFreeHandles();
        handle = m_database.handseed();
    }
    names(kind).byUpperName.emplace(OdString::fromUtf8(record.name).makeUpper(), byHandle(handle));
}

OdDbObjectId NameIndex::find(OdDbTableKind kind, std::string_view utf8Name)
{
    Names& known = names(kind);
    if (auto const it = known.bySpelling.find(utf8Name); it != known.bySpelling.end() && mayBe(kind, it->second))
        return it->second;
    auto const it = known.byUpperName.find(OdString::fromUtf8(utf8Name).makeUpper());
    if (it == known.byUpperName.end() || !mayBe(kind, it->second))
        return {};
    known.bySpelling.emplace(utf8Name, it->second);
    return it->second;
}

/// In damaged files something else can have come under the handle of a record that was seen by the look ahead.
bool NameIndex::mayBe(OdDbTableKind kind, OdDbObjectId id)
{
    return !id.isValid() || id.stub()->object->isA() == odDbTableKind(kind).recordClass();
}

void NameIndex::noteRead(OdDbTableKind kind, OdDbSymbolTableRecord const& record)
{
    OdString const& name = record.getName();
    if (name.isEmpty() || find(kind, name.toUtf8()).isValid())
        return;
    names(kind).byUpperName.insert_or_assign(name.upper(), record.objectId());
    names(kind).bySpelling.clear();
}

OdDbObjectId NameIndex::byName(OdDbTableKind kind, std::string_view utf8Name)
{
    if (utf8Name.empty())
        return {};
    if (OdDbObjectId const id = find(kind, utf8Name); !id.isNull())
        return id;
    OdDbObjectId const id = addRecord(kind, utf8Name);
    id.open<OdDbSymbolTableRecord>()->setImplied(true);
    return id;
}

OdDbObjectId NameIndex::addRecord(OdDbTableKind kind, std::string_view utf8Name)
{
    OdSmartPtr<OdDbSymbolTableRecord> const record = OdRxObjectPtr(odDbTableKind(kind).recordClass()->create());
    OdDbRecordReader reader(*record, *this);
    reader.put(OdDbTag::ofText(2, utf8Name));
    if (kind == OdDbTableKind::kLayer)
        reader.put(OdDbTag::ofText(6, "Continuous")); // a layer without linetype would not be one
    OdDbSymbolTable& owner = table(kind);
    // What was read before refers to a record that was seen by the look ahead but never came under its handle.
    OdDbObjectId const seen = find(kind, utf8Name);
    OdDbHandle const handle = seen.isValid() ? OdDbHandle() : seen.getHandle();
    if (handle.isNull())
        openFreeHandles();
    OdDbObjectId const id = m_database.addOdDbObject(record, owner.objectId(), handle);
    owner.adopt(*record);
    names(kind).byUpperName.insert_or_assign(record->getName().upper(), id);
    names(kind).bySpelling.erase(std::string(utf8Name));
    return id;
}

/// The look ahead is quick and can take another text of a damaged record for its name.
bool NameIndex::hasName(OdDbObjectId id, OdString const& upperName)
{
    auto const* record = odCast<OdDbSymbolTableRecord>(id.stub()->object);
    return record && record->getName().upper() == upperName;
}

void NameIndex::addMissingRecords()
{
    for (std::size_t i = 0; i < m_names.size(); ++i) {
        std::vector<OdString> missing;
        for (auto const& [name, id] : m_names[i].byUpperName)
            if (!id.isValid() || !hasName(id, name))
                missing.push_back(name);
        m_names[i].bySpelling.clear();
        std::sort(missing.begin(), missing.end());
        for (OdString const& name : missing) {
            OdDbObjectId const id = addRecord(static_cast<OdDbTableKind>(i), name.toUtf8());
            id.open<OdDbSymbolTableRecord>()->setImplied(true);
        }
    }
}

OdString NameIndex::nameSeen(OdDbTableKind kind, OdDbHandle handle)
{
    Names& known = names(kind);
    if (known.upperNameByHandle.empty())
        for (auto const& [name, id] : known.byUpperName)
            known.upperNameByHandle.emplace(id.getHandle().value(), name);
    auto const it = known.upperNameByHandle.find(handle.value());
    return it == known.upperNameByHandle.end() ? OdString() : it->second;
}

std::string NameIndex::freeName(std::string_view prefix)
{
    while (prefix.starts_with('*')) // has a meaning of its own
        prefix.remove_prefix(1);
    return std::string(prefix) + '_' + std::to_string(++m_freeNames);
}

OdDbSymbolTable& NameIndex::table(OdDbTableKind kind)
{
    return m_database.getTableId(kind).isNull() ? createTable(odDbTableKind(kind), {}) : m_database.table(kind);
}

void NameIndex::endOfFile(OdDbHandle highest)
{
    m_hasFreeHandles = true;
    m_database.raiseHandseedAbove(highest);
    addMissingRecords();
}

void NameIndex::openFreeHandles()
{
    if (std::exchange(m_hasFreeHandles, true))
        return;
    std::unique_ptr<TagSource> const source = m_source.fromStart();
    OdDbTag tag;
    bool isSeed = false; // the next free handle is no handle in use
    try {
        while (source->next(tag) && !tag.is(0, "EOF")) {
            if (tag.kind == OdDbTagKind::kHandle && !isSeed)
                m_database.raiseHandseedAbove(tag.handle());
            isSeed = tag.is(9, "$HANDSEED");
        }
    } catch (OdError const&) {
        // Looking ahead stops at damage; the reading itself comes there later and reports it.
    }
}

} // namespace dxf
