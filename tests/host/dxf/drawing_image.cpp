#include "tests/host/dxf/drawing_image.h"

#include "host/db/filer/od_db_record_writer.h"
#include "host/db/records/od_db_block_table_record.h"
#include "host/db/records/od_db_table_kinds.h"

#include <bit>
#include <cstdio>

namespace {

/// Text and bytes with what nobody sees made visible.
std::string shownBytes(std::string_view bytes)
{
    std::string shown;
    for (char const byte : bytes) {
        auto const value = static_cast<unsigned char>(byte);
        char code[5];
        std::snprintf(code, sizeof code, "\\x%02X", value);
        shown += value >= 0x20 && value < 0x7F ? std::string(1, byte) : std::string(code);
    }
    return '"' + shown + '"';
}

} // namespace

std::string shownTag(OdDbTag const& tag)
{
    constexpr std::size_t kLongestNumber = 64;
    char number[kLongestNumber] = "";
    switch (tag.kind) {
    case OdDbTagKind::kText:
    case OdDbTagKind::kBinary: return std::to_string(tag.code) + ' ' + shownBytes(tag.text);
    case OdDbTagKind::kReal: std::snprintf(number, sizeof number, "%.17g", tag.real); break;
    case OdDbTagKind::kInteger:
        std::snprintf(number, sizeof number, "%lld", static_cast<long long>(tag.integer));
        break;
    case OdDbTagKind::kHandle: return std::to_string(tag.code) + " #" + tag.handle().ascii().toUtf8();
    }
    return std::to_string(tag.code) + ' ' + number;
}

DrawingImage::DrawingImage(OdDbDatabase const& database)
{
    addHeader(database);
    addRecords(database);
    addFileContent(database.fileContent());
}

void DrawingImage::addRecord(OdDbObject const& object)
{
    Part& part = m_parts.emplace_back();
    part.title = std::string(object.dxfName()) + " with the handle " + object.getDbHandle().ascii().toUtf8();
    odDbWriteRecord(object, part.tags);
}

void DrawingImage::addEntity(OdDbEntity const& entity)
{
    addRecord(entity);
    for (OdDbStub const* const part : entity.subentities())
        addRecord(*part->object);
    if (OdDbObjectId const end = entity.sequenceEnd(); end.isValid())
        addRecord(*end.stub()->object);
}

void DrawingImage::addRecords(OdDbDatabase const& database)
{
    for (OdDbTableKindInfo const& kind : odDbTableKinds()) {
        OdDbSymbolTable const& table = database.table(kind.kind);
        addRecord(table);
        for (OdDbStub const* const stub : table.records())
            addRecord(*stub->object);
    }
    for (OdDbStub const* const stub : database.table(OdDbTableKind::kBlock).records()) {
        auto const& block = static_cast<OdDbBlockTableRecord const&>(*stub->object);
        addRecord(*block.beginId().stub()->object);
        for (OdDbStub const* const entity : block.entities())
            addEntity(static_cast<OdDbEntity const&>(*entity->object));
        addRecord(*block.endId().stub()->object);
    }
    for (OdDbStub const* const stub : database.fileObjects())
        addRecord(*stub->object);
}

/// Variables that the drawing itself answers for are not what the header holds under their names.
void DrawingImage::addHeader(OdDbDatabase const& database)
{
    for (OdDbHeader::Variable const& variable : database.header().variables())
        if (variable.name != "ACADVER" && variable.name != "HANDSEED")
            m_parts.push_back({"$" + variable.name, variable.tags});
    m_parts.push_back({"the next handle " + database.handseed().ascii().toUtf8(), {}});
}

/// The list of classes is not compared: saving completes it.
void DrawingImage::addFileContent(OdDbFileContent const& content)
{
    for (OdDbFileContent::Section const& section : content.sections) {
        m_parts.push_back({"comments before " + section.name, section.commentsBefore});
        m_parts.push_back({"comments in " + section.name, section.commentsInside});
        m_parts.push_back({"section " + section.name, section.name == "CLASSES" ? OdDbTagList() : section.tags});
    }
    for (OdDbFileContent::Table const& table : content.tables) {
        m_parts.push_back({"table " + table.name, table.tags});
        m_parts.push_back({"comments behind " + table.name, table.commentsBehind});
    }
    m_parts.push_back({"closing comments", content.closingComments});
}

std::string DrawingImage::differenceTo(DrawingImage const& other) const
{
    std::size_t const count = std::min(m_parts.size(), other.m_parts.size());
    for (std::size_t i = 0; i < count; ++i) {
        Part const& a = m_parts[i];
        Part const& b = other.m_parts[i];
        if (a.title != b.title)
            return a.title + " against " + b.title;
        auto ofA = a.tags.begin();
        auto ofB = b.tags.begin();
        for (; !(ofA == a.tags.end()) && !(ofB == b.tags.end()); ++ofA, ++ofB)
            if (shownTag(*ofA) != shownTag(*ofB) || (*ofA).kind != (*ofB).kind)
                return a.title + ": " + shownTag(*ofA) + " against " + shownTag(*ofB);
        if (!(ofA == a.tags.end()) || !(ofB == b.tags.end()))
            return a.title + ": " +
                   (ofA == a.tags.end() ? "nothing against " + shownTag(*ofB)
                                        : shownTag(*ofA) + " against nothing");
    }
    return m_parts.size() == other.m_parts.size() ? "" : "there are more objects in one";
}
