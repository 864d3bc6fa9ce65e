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

void readTableRecord(Reading& reading, OdDbTableKindInfo const& kind, OdDbSymbolTable& table)
{
    OdSmartPtr<OdDbSymbolTableRecord> const record = OdRxObjectPtr(kind.recordClass()->create());
    RecordHead head = reading.readRecord(*record);
    // What was read before refers to the record under the handle that came with its name.
    OdDbObjectId const found = reading.names().find(kind.kind, record->getName().toUtf8());
    if (!found.isNull() && !found.isValid())
        head.handle = found.getHandle();
    reading.add(*record, table.objectId(), head);
    table.adopt(*record);
    reading.names().noteRead(kind.kind, *record);
}

void readKnownTable(Reading& reading, OdDbTableKindInfo const& kind, OdDbTagList& unknownRecords)
{
    OdDbSymbolTable& table = reading.names().table(kind.kind);
    readHead(reading, table);
    while (!reading.isAt(0, "ENDTAB")) {
        if (reading.isAt(0, kind.fileName))
            readTableRecord(reading, kind, table);
        else if (reading.isAt(0, "ENDSEC") || reading.isAt(0, "TABLE") || reading.isAt(0, "EOF"))
            reading.fail(L"A table ends without ENDTAB");
        else
            reading.keepRecord(unknownRecords);
    }
}

void readTable(Reading& reading)
{
    OdDbTagList comments;
    reading.advance();
    reading.takeComments(comments);
    if (reading.tag().code != 2)
        reading.fail(L"A table begins without its name (group 2)");
    auto& tables = reading.database().fileContent().tables;
    tables.push_back({std::string(reading.tag().text), std::move(comments)});
    reading.advance();
    if (OdDbTableKindInfo const* const kind = odDbFindTableKind(tables.back().name))
        readKnownTable(reading, *kind, tables.back().tags);
    else
        reading.keepUntil("ENDTAB", tables.back().tags);
    reading.advance();
    reading.takeComments(tables.back().tags);
}

} // namespace

void readTables(Reading& reading)
{
    while (!reading.isAt(0, "ENDSEC")) {
        if (!reading.isAt(0, "TABLE"))
            reading.fail(L"A table or ENDSEC is expected here");
        readTable(reading);
    }
}

} // namespace dxf
