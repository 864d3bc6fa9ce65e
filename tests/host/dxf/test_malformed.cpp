// Drawings that something is wrong with are opened as far as can be, or refused, within a measure of time and
// memory; and what was opened is a drawing like any other.
#include "tests/fuzz/drawing_round.h"
#include "tests/host/dxf/dxf_text.h"
#include "tests/host/dxf/malformed_drawings.h"
#include "tests/support/limited_run.h"

#include "host/db/records/od_db_block_table_record.h"
#include "host/db/records/od_db_table_kinds.h"

#include <cppunit/extensions/HelperMacros.h>

#include <cstring>

namespace {

constexpr double kMostSeconds = 2;
constexpr double kMostMegabytes = 200;
/// For everything that is done with a drawing besides opening it.
constexpr unsigned kMostSecondsInAll = kIsSanitized ? 240 : 60;

int entitiesOf(OdDbDatabase const& database)
{
    auto const space = database.getModelSpaceId().open<OdDbBlockTableRecord>();
    return static_cast<int>(space->entities().size());
}

int blocksOf(OdDbDatabase const& database)
{
    auto const& records = database.table(OdDbTableKind::kBlock).records();
    return static_cast<int>(std::count_if(records.begin(), records.end(), [](OdDbStub* record) {
        return !static_cast<OdDbBlockTableRecord const*>(record->object)->isLayout();
    }));
}

std::string shown(dxf::ReadReport const& report, dxf::ReadNote const& note)
{
    return (dxf::locationOf({}, report, note) + L": " + note.text).toUtf8();
}

void checkMessages(MalformedDrawing const& row, dxf::ReadReport const& report)
{
    std::string all;
    bool isThere = *row.message == '\0' && report.notes.empty();
    for (dxf::ReadNote const& note : report.notes) {
        CPPUNIT_ASSERT(note.place > 0);
        std::string const text = shown(report, note);
        isThere |= *row.message != '\0' && text.starts_with(row.message);
        if (all.size() < 2000)
            all += text + "\n";
    }
    if (!isThere)
        throw std::runtime_error("expected the message \"" + std::string(row.message) + "\", found:\n" + all);
}

void checkMeasure(RunWatch const& watch)
{
    if (!kIsSanitized && (watch.seconds() > kMostSeconds || watch.megabytes() > kMostMegabytes))
        throw std::runtime_error("opening took " + std::to_string(watch.seconds()) + " s and " +
                                 std::to_string(watch.megabytes()) + " MB");
}

void checkRefused(MalformedDrawing const& row, std::string const& bytes)
{
    RunWatch const watch;
    try {
        dxf::readBytes(L"", bytes);
    } catch (OdError const& error) {
        checkMeasure(watch);
        CPPUNIT_ASSERT_EQUAL(std::string(row.message),
                             std::string(error.what()).substr(0, std::strlen(row.message)));
        return;
    }
    throw std::runtime_error("was opened");
}

void checkOpened(MalformedDrawing const& row, std::string const& bytes)
{
    dxf::ReadReport report;
    RunWatch const watch;
    OdDbDatabasePtr const database = dxf::readBytes(L"", bytes, &report);
    checkMeasure(watch);
    checkMessages(row, report);
    CPPUNIT_ASSERT_EQUAL(row.entities, entitiesOf(*database));
    CPPUNIT_ASSERT_EQUAL(row.blocks, blocksOf(*database));
    drawingRound::lookAt(*database);
    drawingRound::save(*database, {});
    drawingRound::save(*database, {dxf::ERelease::kR12, false});
    drawingRound::save(*database, {dxf::kCurrentRelease, true});
}

class MalformedDrawingTest : public CppUnit::TestFixture
{
    CPPUNIT_TEST_SUITE(MalformedDrawingTest);
    CPPUNIT_TEST(cutOff);
    CPPUNIT_TEST(structures);
    CPPUNIT_TEST(values);
    CPPUNIT_TEST(binary);
    CPPUNIT_TEST(excesses);
    CPPUNIT_TEST(otherKindsOfFiles);
    CPPUNIT_TEST(missingFile);
    CPPUNIT_TEST(mostNotes);
    CPPUNIT_TEST_SUITE_END();

    void cutOff() { checkAll(cutOffDrawings()); }
    void structures() { checkAll(wrongStructures()); }
    void values() { checkAll(wrongValues()); }
    void binary() { checkAll(wrongBinaryDrawings()); }
    void excesses() { checkAll(excessiveDrawings()); }

    /// Each drawing in a process of its own, all of them before the result: one fault often explains another.
    static void checkAll(std::vector<MalformedDrawing> const& rows)
    {
        std::string faults;
        for (MalformedDrawing const& row : rows) {
            RunOutcome const outcome = runLimited(kMostSecondsInAll, [&row] {
                std::string const bytes = row.build();
                row.entities == MalformedDrawing::kRefused ? checkRefused(row, bytes) : checkOpened(row, bytes);
                return std::string();
            });
            if (!outcome.fault.empty())
                faults += std::string(row.name) + ": " + outcome.fault + "\n";
        }
        CPPUNIT_ASSERT_EQUAL(std::string(), faults);
    }

    void otherKindsOfFiles()
    {
        try {
            dxf::readBytes(L"a.dwg", std::string_view("AC1032\0\0\0", 9));
            CPPUNIT_FAIL("was opened");
        } catch (OdError const& error) {
            CPPUNIT_ASSERT_EQUAL(eUnsupportedFormat, error.code());
            CPPUNIT_ASSERT(std::string_view(error.what()).starts_with("a.dwg:1: This is a DWG file"));
        }
    }

    void missingFile() { CPPUNIT_ASSERT_THROW(dxf::readFile(L"/no/such/drawing.dxf"), OdError); }

    void mostNotes()
    {
        std::string values;
        for (int i = 0; i < 1500; ++i)
            values += "10\nx\n";
        dxf::ReadReport report;
        dxf::readBytes(L"a.dxf", dxfText::entities("0\nPOINT\n" + values), &report);
        CPPUNIT_ASSERT_EQUAL(std::size_t{1000}, report.notes.size());
        CPPUNIT_ASSERT_EQUAL(std::size_t{500}, report.moreNotes);
    }
};
CPPUNIT_TEST_SUITE_REGISTRATION(MalformedDrawingTest);

} // namespace
