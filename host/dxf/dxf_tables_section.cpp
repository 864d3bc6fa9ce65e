#include "host/dxf/dxf_sections.h"

#include "host/db/filer/od_db_class_registry.h"
#include "host/db/filer/od_db_record_reader.h"

namespace dxf {

namespace {

/// Reads the tags of a table head into the table object; its name and the number of records are not kept.
void readHead(Reading& reading, OdDbSymbolTable& table)
{
    OdDbRecordReader reader(table, reading.names());
    bool isInOwnSection = true;
    for (; reading.tag().code != 0; reading.advance()) {
        OdDbTag const& tag = reading.tag();
        if (tag.code == 100)
            isInOwnSection = tag.text == "AcDbSymbolTable";
        if (tag.code != 70 || !isInOwnSection)
            reader.put(tag);
    }
}

/// Gives a record that has no name, or that of another record, one of its own; returns what to say of it.
OdString giveOwnName(Reading& reading, OdDbTableKindInfo const& kind, OdDbSymbolTableRecord& record,
                     OdDbHandle handle)
{
    // The views of a tiled screen share one name, and shape files have none.
    if (record.isNameless() || kind.kind == OdDbTableKind::kViewport)
        return {};
    NameIndex& names = reading.names();
    OdString const table = OdString::fromUtf8(kind.fileName);
    OdString const given = record.getName();
    if (given.isEmpty()) {
        OdString const seen = names.nameSeen(kind.kind, handle);
        bool const isFree = OdDbSymbolTable::isValidName(seen) && !names.find(kind.kind, seen.toUtf8()).isValid();
        record.setName(isFree ? seen : OdString::fromUtf8(names.freeName()));
        return odFormat(L"A record of the table %ls had no name; it is \"%ls\" now", table.c_str(),
                        record.getName().c_str());
    }
    if (!names.find(kind.kind, given.toUtf8()).isValid())
        return {};
    bool const isValid = OdDbSymbolTable::isValidName(given);
    record.setName(OdString::fromUtf8(isValid ? names.freeName(given.toUtf8()) : names.freeName()));
    return odFormat(L"The name \"%ls\" is in use twice in the table %ls; this record has the name \"%ls\" now",
                    given.c_str(), table.c_str(), record.getName().c_str());
}

void readTableRecord(Reading& reading, OdDbTableKindInfo const& kind, OdDbSymbolTable& table)
{
    OdSmartPtr<OdDbSymbolTableRecord> const record = OdRxObjectPtr(kind.recordClass()->create());
    RecordHead head = reading.readRecord(*record);
    OdString const renaming = giveOwnName(reading, kind, *record, head.handle);
    // What was read before refers to the record under the handle that came with its name.
    OdDbObjectId const found = reading.names().find(kind.kind, record->getName().toUtf8());
    OdDbHandle const inFile = head.handle;
    if (!found.isNull() && !found.isValid())
        head.handle = found.getHandle();
    if (head.handle != inFile && !reading.database().getOdDbObjectId(inFile).isNull())
        reading.noteHandleChange(head.place, inFile, head.handle);
    reading.add(*record, table.objectId(), head);
    if (!renaming.isEmpty())
        reading.note(head.place, record->getDbHandle(), renaming);
    table.adopt(*record);
    reading.names().noteRead(kind.kind, *record);
}

bool isTableEnd(Reading const& reading)
{
    return reading.isAt(0, "ENDTAB") || reading.isAt(0, "TABLE") || reading.isAtSectionEnd();
}

void readKnownTable(Reading& reading, OdDbTableKindInfo const& kind, OdDbTagList& unknownRecords)
{
    OdDbSymbolTable& table = reading.names().table(kind.kind);
    readHead(reading, table);
    while (!isTableEnd(reading)) {
        if (reading.isAt(0, kind.fileName))
            readTableRecord(reading, kind, table);
        else
            reading.keepRecord(unknownRecords);
    }
}

/// Damage: goes to the next table or to the end of the section.
void skipToTable(Reading& reading, OdString const& reason)
{
    reading.note(reason + L"; what stands up to the next table is left out");
    while (!reading.isAt(0, "TABLE") && !reading.isAtSectionEnd())
        reading.advance();
}

void readTable(Reading& reading)
{
    OdDbTagList comments;
    reading.advance();
    reading.takeComments(comments);
    if (reading.tag().code != 2)
        return skipToTable(reading, L"A table begins without its name (group 2)");
    auto& tables = reading.database().fileContent().tables;
    tables.push_back({std::string(reading.tag().text), std::move(comments), {}});
    reading.advance();
    if (OdDbTableKindInfo const* const kind = odDbFindTableKind(tables.back().name))
        readKnownTable(reading, *kind, tables.back().tags);
    else
        while (!isTableEnd(reading))
            reading.keepRecord(tables.back().tags);
    if (reading.isAt(0, "ENDTAB"))
        reading.advance();
    else if (!reading.isCutOff())
        reading.note(
            odFormat(L"The table %ls ends without ENDTAB", OdString::fromUtf8(tables.back().name).c_str()));
    reading.takeComments(tables.back().commentsBehind);
}

} // namespace

void readTables(Reading& reading)
{
    while (!reading.isAtSectionEnd()) {
        if (reading.isAt(0, "TABLE"))
            readTable(reading);
        else
            skipToTable(reading, L"A table or ENDSEC is expected here");
    }
}

} // namespace dxf
