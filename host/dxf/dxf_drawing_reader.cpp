#include "host/dxf/dxf_drawing_reader.h"

#include "host/db/records/od_db_block_table_record.h"
#include "host/dxf/dxf_current_records.h"
#include "host/dxf/dxf_entity_reader.h"
#include "host/dxf/dxf_sections.h"

namespace dxf {

namespace {

struct SectionReader
{
    std::string_view name;
    void (*read)(Reading& reading);
};

constexpr SectionReader s_readers[] = {
    {"HEADER", &readHeader},     {"TABLES", &readTables},   {"BLOCKS", &readBlocks},
    {"ENTITIES", &readEntities}, {"OBJECTS", &readObjects},
};

SectionReader const* findReader(std::string_view name)
{
    for (SectionReader const& reader : s_readers)
        if (reader.name == name)
            return &reader;
    return nullptr;
}

bool holdsObjects(std::string_view section)
{
    return section == "BLOCKS" || section == "ENTITIES" || section == "OBJECTS";
}

/// Names in the tables are looked up by everything behind them. `firstOfObjects` is the name of the first section
/// that holds objects, empty until it comes.
void checkOrder(Reading& reading, std::string_view name, std::string& firstOfObjects)
{
    if (name == "TABLES" && !firstOfObjects.empty())
        reading.fail(odFormat(L"The section TABLES comes behind %ls; it has to come first",
                              OdString::fromUtf8(firstOfObjects).c_str()));
    if (firstOfObjects.empty() && holdsObjects(name))
        firstOfObjects = name;
}

/// What stands where a section should begin is left out.
void skipToSection(Reading& reading, OdString const& reason)
{
    reading.note(reason + L"; what stands up to the next section is left out");
    while (!reading.isAt(0, "SECTION") && !reading.isAt(0, "EOF"))
        reading.advance();
}

void readContent(Reading& reading, OdDbFileContent::Section& section)
{
    reading.takeComments(section.commentsInside);
    if (SectionReader const* const reader = findReader(section.name))
        reader->read(reading);
    else
        reading.keepSection(section.tags);
    if (reading.isAt(0, "ENDSEC"))
        reading.advance();
    else if (!reading.isCutOff())
        reading.note(odFormat(L"The section %ls ends without ENDSEC", OdString::fromUtf8(section.name).c_str()));
}

void readSection(Reading& reading, OdDbTagList commentsBefore, std::string& firstOfObjects)
{
    auto& sections = reading.database().fileContent().sections;
    reading.advance();
    if (reading.tag().code != 2)
        return skipToSection(reading, L"A section begins without its name (group 2)");
    std::string const name(reading.tag().text);
    checkOrder(reading, name, firstOfObjects);
    sections.push_back({name, std::move(commentsBefore), {}, {}});
    reading.advance();
    readContent(reading, sections.back());
}

void readSections(Reading& reading)
{
    OdDbFileContent& content = reading.database().fileContent();
    std::string firstOfObjects;
    for (reading.advance();;) {
        OdDbTagList comments;
        reading.takeComments(comments);
        if (reading.isAt(0, "EOF")) {
            content.closingComments = std::move(comments);
            break;
        }
        if (reading.isAt(0, "SECTION"))
            readSection(reading, std::move(comments), firstOfObjects);
        else
            skipToSection(reading, L"A section or the end mark EOF is expected here");
    }
    if (reading.isCutOff() && firstOfObjects.empty())
        reading.fail(L"The file ends before the first entity; it is cut off");
}

struct NamedRecord
{
    OdDbTableKind table;
    std::string_view name;
};

/// Records that every drawing has: a file that uses one without defining it gets it defined.
constexpr NamedRecord s_required[] = {
    {OdDbTableKind::kLayer, "0"},
    {OdDbTableKind::kLinetype, "ByLayer"},
    {OdDbTableKind::kLinetype, "ByBlock"},
    {OdDbTableKind::kLinetype, "Continuous"},
    {OdDbTableKind::kTextStyle, "Standard"},
    {OdDbTableKind::kDimStyle, "Standard"},
};

void completeBlocks(Reading& reading)
{
    OdDbDatabase& database = reading.database();
    database.setSpaces(spaceBlock(reading, false).objectId(), spaceBlock(reading, true).objectId());
    for (OdDbStub* const stub : database.table(OdDbTableKind::kBlock).records()) {
        auto& block = *static_cast<OdDbBlockTableRecord*>(stub->object);
        if (!block.beginId().isNull() && !block.endId().isNull())
            continue;
        reading.names().byName(OdDbTableKind::kLayer, "0");
        block.completeFrame();
    }
}

void complete(Reading& reading)
{
    OdDbDatabase& database = reading.database();
    NameIndex& names = reading.names();
    reading.allRecordsRead();
    completeBlocks(reading);
    for (CurrentRecordVariable const& current : kCurrentRecordVariables) {
        OdDbObjectId const id = names.byName(current.table, database.header().text(current.name).toUtf8());
        if (id.isValid())
            database.setCurrent(current.table, id);
    }
    for (NamedRecord const& required : s_required)
        if (OdDbObjectId const id = names.find(required.table, required.name); id.isValid())
            id.open<OdDbSymbolTableRecord>()->setImplied(false);
    database.setBeingRead(false);
    database.completeFromTemplate();
}

} // namespace

void readDrawing(OdDbDatabase& database, TagSource& source, Release const& release, ReadReport& report)
{
    database.fileContent().release = release.code;
    Reading reading(database, source, release.id, report);
    readSections(reading);
    complete(reading);
}

} // namespace dxf
