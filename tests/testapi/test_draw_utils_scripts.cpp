#include "testapi/ta_draw_utils.h"
#include "testapi/ta_utils.h"
#include "tests/support/od_result_of.h"
#include "tests/testapi/cmd_test_run.h"

#include <cppunit/extensions/HelperMacros.h>

namespace {

class DrawUtilsScriptsTest : public CppUnit::TestFixture
{
    CPPUNIT_TEST_SUITE(DrawUtilsScriptsTest);
    CPPUNIT_TEST(scripts);
    CPPUNIT_TEST(refusedAnswers);
    CPPUNIT_TEST(waitingCommands);
    CPPUNIT_TEST(scriptsInFiles);
    CPPUNIT_TEST(records);
    CPPUNIT_TEST_SUITE_END();

    TempFolder m_folder;

public:
    void setUp() override { ca::app()->openFile(); }
    void tearDown() override
    {
        sds_cmd(nullptr);
        while (ca::CaDoc* const document = ca::app()->getDocument(0))
            document->close();
    }

private:
    /// Takes what was drawn away: the lengths of lines, radii of circles, and texts.
    static std::string takeDrawn()
    {
        std::string drawn;
        auto const space = ca::curDb()->getModelSpaceId().open<OdDbBlockTableRecord>();
        for (auto it = space->newIterator(); !it.done(); it.step()) {
            auto const entity = it.objectId().open<OdDbEntity>(OdDb::kForWrite);
            if (auto const* const line = dynamic_cast<OdDbLine const*>(entity.get()))
                drawn += "line " + std::to_string(std::lround((line->endPoint() - line->startPoint()).length()));
            else if (auto const* const circle = dynamic_cast<OdDbCircle const*>(entity.get()))
                drawn += "circle " + std::to_string(std::lround(circle->radius()));
            else if (auto const* const text = dynamic_cast<OdDbText const*>(entity.get()))
                drawn += "text '" + text->textString().toUtf8() + "'";
            drawn += "; ";
            entity->erase();
        }
        return drawn;
    }

    void scripts()
    {
        struct Row
        {
            wchar_t const* script;
            char const* drawn;
        };
        Row const rows[] = {
            {L"", ""},
            {L"\n\n", ""},
            {L"LINE\n0,0\n2,0\n\nCIRCLE\n0,0\n3", "line 2; circle 3; "},
            {L"LINE\r\n0,0\r\n2,0\r\n\r\nCIRCLE\r\n0,0\r\n3\r\n", "line 2; circle 3; "},
            {L"LINE 0,0 2,0 \nCIRCLE 0,0 3 ", "line 2; circle 3; "},
            {L"LINE 0,0\t2,0  CIRCLE 0,0 3", "line 2; circle 3; "},
            {L"LINE 0,0 2,0 5,0  LINE 1,1 1,5 ", "line 2; line 3; line 4; "},
            {L"; LINE 0,0 9,0\nLINE\n;CIRCLE\n0,0\n; and\n2,0\n\n", "line 2; "},
            {L"-TEXT 0,0 2 0 two  words ; \n\n", "text 'two  words ; '; "},
            {L"-LAYER Make two words\n\nLINE 0,0 2,0 ", "line 2; "},
        };
        for (Row const& row : rows) {
            ta::executeCommands(row.script);
            CPPUNIT_ASSERT_EQUAL_MESSAGE(odWideToUtf8(row.script), std::string(row.drawn), takeDrawn());
            CPPUNIT_ASSERT_MESSAGE(odWideToUtf8(row.script), ca::CommandProcessor::get().isIdle());
        }
        CPPUNIT_ASSERT(ca::curDb()->table(OdDbTableKind::kLayer).has(L"two words"));
    }

    void refusedAnswers()
    {
        CPPUNIT_ASSERT_EQUAL(
            std::string("assertion failed|Expression: RTNORM == sds_cmd(rbScript)|Line 4: "
                        "Unknown command \"NOSUCH\"."),
            failureOf([] { ta::executeCommands(L"; four lines\nLINE 0,0 2,0 \n\nNOSUCH\nLINE 1,1 5,1 "); }));
        CPPUNIT_ASSERT_EQUAL(std::string("line 2; "), takeDrawn());
        std::string const failure = failureOf([] { ta::executeCommands(L"CIRCLE 0,0 x"); });
        CPPUNIT_ASSERT_MESSAGE(failure,
                               failure.starts_with("assertion failed|Expression: RTNORM == sds_cmd(rbScript)"
                                                   "|Line 1: "));
        CPPUNIT_ASSERT(ca::CommandProcessor::get().isIdle());
    }

    void waitingCommands()
    {
        ta::executeCommands(L"CIRCLE 0,0");
        CPPUNIT_ASSERT(!ca::CommandProcessor::get().isIdle());
        ta::executeCommands(L"7");
        CPPUNIT_ASSERT_EQUAL(std::string("circle 7; "), takeDrawn());
    }

    void scriptsInFiles()
    {
        ta::executeCommandsFromFile(m_folder.write("s.scr", "\xEF\xBB\xBFLINE\n0,0\n2,0\n\n"));
        CPPUNIT_ASSERT_EQUAL(std::string("line 2; "), takeDrawn());
        std::string const failure = failureOf([&] { ta::executeCommandsFromFile(m_folder / "none.scr"); });
        CPPUNIT_ASSERT_EQUAL(std::string("assertion failed|Expression: script.open(file)|"
                                         "Cannot open script file \"@/none.scr\"."),
                             withoutFolder(failure, m_folder.path().string()));
    }

    void records()
    {
        OdDbDatabase& db = *ca::curDb();
        auto const named = [](OdDbObjectId id, wchar_t const* prefix) {
            return id.open<OdDbSymbolTableRecord>()->getName().startsWith(prefix);
        };
        CPPUNIT_ASSERT(named(ta::createTextStyle(db), L"Style_") && named(ta::createDimStyle(db), L"DStyle_"));
        OdDbObjectId const layers[] = {
            ta::createLayer(db), ta::createLayer(db, L"Wall", {OdCmColor(3), db.getLinetypeByLayerId(), 25})};
        CPPUNIT_ASSERT(named(layers[0], L"Layer_") && named(layers[1], L"Wall"));
        auto const wall = layers[1].open<OdDbLayerTableRecord>();
        CPPUNIT_ASSERT(wall->color() == OdCmColor(3) && wall->linetypeObjectId() == db.getLinetypeByLayerId());
        CPPUNIT_ASSERT_EQUAL(25, wall->lineWeight());
        CPPUNIT_ASSERT_EQUAL(-3, layers[0].open<OdDbLayerTableRecord>()->lineWeight());
        OdDbObjectId const materials[] = {ta::createMaterial(db), ta::createMaterial(db, L"Stone")};
        OdString const stone = materials[1].open<OdDbMaterial>()->name();
        CPPUNIT_ASSERT(materials[0].open<OdDbMaterial>()->name().startsWith(L"Material_"));
        CPPUNIT_ASSERT(stone.startsWith(L"Stone"));
        CPPUNIT_ASSERT(materials[1] == odDbMaterialDictionary(db).open<OdDbDictionary>()->getAt(stone));

        std::size_t const count = db.table(OdDbTableKind::kLayer).records().size();
        OdDbDatabasePtr const other(new OdDbDatabase);
        CPPUNIT_ASSERT_EQUAL(eWrongDatabase, odResultOf([&] {
                                 ta::createLayer(db, L"x", {{}, other->getLinetypeByLayerId(), {}});
                             }));
        CPPUNIT_ASSERT_EQUAL(eOutOfRange, odResultOf([&] { ta::createLayer(db, L"x", {{}, {}, 12345}); }));
        CPPUNIT_ASSERT_EQUAL(eInvalidName, odResultOf([&] { ta::createLayer(db, L"x/y"); }));
        CPPUNIT_ASSERT_EQUAL(count, db.table(OdDbTableKind::kLayer).records().size());
    }
};
CPPUNIT_TEST_SUITE_REGISTRATION(DrawUtilsScriptsTest);

} // namespace
