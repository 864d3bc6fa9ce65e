#include "tests/fuzz/drawing_round.h"

#include "host/db/audit/od_db_audit.h"
#include "host/db/entities/od_db_block_outline.h"
#include "host/db/entities/od_db_curve.h"
#include "host/db/od_db_extents.h"
#include "host/db/records/od_db_block_table_record.h"
#include "host/db/records/od_db_dictionary.h"
#include "host/db/records/od_db_table_kinds.h"
#include "host/dxf/dxf_binary_form.h"

#include <array>

namespace drawingRound {

namespace {

OdString const kPath = L"round.dxf";

/// Stands where results have to be made but are not looked at.
class Sink : public OdDbTagSink
{
public:
    void put(OdDbTag const& tag) override { m_size += tag.text.size(); }

private:
    std::size_t m_size = 0;
};

/// What commands ask of curves. They may refuse to answer, but they have to answer.
void lookAtCurve(OdDbCurve const& curve)
{
    double number = 1;
    OdGePoint3d point;
    curve.getParamAtDist(curve.getLength(number) == eOk ? number / 2 : 1, number);
    curve.getArea(number);
    curve.getClosestPointTo({1, 2, 3}, point, true);
    std::vector<OdDbEntityPtr> pieces;
    double start = 0;
    double end = 1;
    curve.getStartParam(start);
    curve.getEndParam(end);
    double const middle = start + (end - start) / 2;
    curve.getSplitCurves(std::span(&middle, 1), pieces);
    curve.explode(pieces);
    for (OdDbEntityPtr const& piece : pieces)
        piece->extents();
}

void lookAtEntity(OdDbEntity const& entity)
{
    if (auto const* const curve = odCast<OdDbCurve>(&entity))
        lookAtCurve(*curve);
    for (OdDbStub* const part : entity.subentities())
        lookAtEntity(*static_cast<OdDbEntity const*>(part->object));
    if (entity.dxfName() != "INSERT") { // grids of blocks are looked at once, as part of model space
        entity.extents();
        std::vector<OdDbEntityPtr> pieces;
        entity.explode(pieces);
    }
    entity.clone();
}

void lookAtBlock(OdDbBlockTableRecord const& block)
{
    block.origin();
    block.hasAttributeDefinitions();
    for (OdDbStub* const entity : block.entities())
        lookAtEntity(*static_cast<OdDbEntity const*>(entity->object));
}

void lookAtFileObjects(OdDbDatabase const& database)
{
    for (OdDbStub* const stub : database.fileObjects()) {
        Sink fields;
        for (int group = 0; group < stub->object->fieldTable().numGroups(); ++group)
            stub->object->fieldTable().write(*stub->object, group, fields);
        if (auto const* dictionary = odCast<OdDbDictionary>(stub->object))
            dictionary->getAt(L"ACAD_LAYOUT");
    }
}

std::uint64_t hashOf(std::string_view bytes)
{
    std::uint64_t hash = 0xCBF29CE484222325u;
    for (char const byte : bytes)
        hash = (hash ^ static_cast<unsigned char>(byte)) * 0x100000001B3u;
    return hash ^ hash >> 32;
}

dxf::FileFormat formatFor(std::string_view bytes)
{
    constexpr std::uint64_t kForms = 2;
    std::uint64_t const hash = hashOf(bytes);
    auto const releases = dxf::writableReleases();
    return {releases[hash / kForms % releases.size()].id, hash % kForms != 0};
}

std::string nameOf(dxf::FileFormat format)
{
    return OdString(dxf::releaseOf(format.release).name).toUtf8() + (format.isBinary ? " binary" : "");
}

std::string asText(dxf::ReadReport const& report, dxf::ReadNote const& note)
{
    return (locationOf(kPath, report, note) + L": " + note.text).toUtf8();
}

/// What is kept as it is, and noted whenever such a file is opened: what stands among entities without being one,
/// meshes whose size does not fit their vertices.
bool isExpected(dxf::ReadNote const& note)
{
    std::wstring const& text = note.text.str();
    return text.ends_with(L"is no entity; it is kept here as it is") ||
           text.find(L"vertices instead of") != std::wstring::npos;
}

/// The file without the next free handle: opening a file of an old release adds objects that such files cannot
/// hold.
std::string withoutSeed(std::string file)
{
    constexpr std::string_view kSeed = "$HANDSEED";
    std::size_t const at = file.find(kSeed);
    if (at == std::string::npos)
        return file;
    std::size_t const end = std::min(file.find('$', at + kSeed.size()), file.find("ENDSEC", at));
    return file.erase(at, std::min(end, file.size()) - at);
}

/// A part of a file on one line.
std::string shown(std::string_view part)
{
    std::string result(part);
    for (char& ch : result)
        ch = ch == '\n' ? '|' : ch < ' ' ? '.' : ch;
    return result;
}

/// Where two files part, for messages.
std::string difference(std::string_view a, std::string_view b)
{
    constexpr std::size_t kBefore = 80, kBehind = 50;
    auto const at =
        static_cast<std::size_t>(std::mismatch(a.begin(), a.end(), b.begin(), b.end()).first - a.begin());
    std::size_t const from = at < kBefore ? 0 : at - kBefore;
    return "behind byte " + std::to_string(at) + ", " + shown(a.substr(from, at - from)) + ":\n    " +
           shown(a.substr(at, kBehind)) + "\n    " + shown(b.substr(at, kBehind));
}

/// What becomes of a file that was saved when it is opened and saved again.
std::string savedAgain(std::string_view file, dxf::FileFormat format)
{
    dxf::ReadReport report;
    OdDbDatabasePtr const opened = open(file, &report);
    if (!opened)
        throw Fault("saved as " + nameOf(format) + ", the drawing does not open");
    for (dxf::ReadNote const& note : report.notes)
        if (!isExpected(note))
            throw Fault("saved as " + nameOf(format) + ", the drawing opens with a note: " + asText(report, note));
    return dxf::writeBytes(*opened, format);
}

} // namespace

OdDbDatabasePtr open(std::string_view bytes, dxf::ReadReport* report)
{
    try {
        return dxf::readBytes(kPath, bytes, report);
    } catch (OdError const& error) {
        if (!std::string_view(error.what()).starts_with(kPath.toUtf8() + ":"))
            throw Fault("a refusal that does not name the file: " + std::string(error.what()));
        return nullptr;
    }
}

void lookAt(OdDbDatabase& database)
{
    for (OdDbStub* const stub : database.table(OdDbTableKind::kBlock).records())
        lookAtBlock(*static_cast<OdDbBlockTableRecord const*>(stub->object));
    OdDbExtentsSink extents;
    OdDbBlockOutline(*database.getModelSpaceId().open<OdDbBlockTableRecord>(), extents).give({});
    lookAtFileObjects(database);
    OdDbAuditInfo info;
    odDbAudit(database, info);
}

void save(OdDbDatabase const& database, dxf::FileFormat format)
{
    std::string second = savedAgain(dxf::writeBytes(database, format), format);
    std::string third = savedAgain(second, format);
    if (format.release < dxf::ERelease::kR2000) {
        second = withoutSeed(std::move(second));
        third = withoutSeed(std::move(third));
    }
    if (second != third)
        throw Fault("saved as " + nameOf(format) + " again and again, the files differ " +
                    difference(second, third));
}

void run(std::string_view bytes)
{
    OdDbDatabasePtr const database = open(bytes);
    if (!database)
        return;
    lookAt(*database);
    save(*database, formatFor(bytes));
}

void runBinary(std::string_view bytes)
{
    std::string whole;
    if (!bytes.starts_with(dxf::kBinarySentinel))
        whole = dxf::kBinarySentinel;
    whole += bytes;
    run(whole);
}

} // namespace drawingRound
