#include "host/db/entities/od_db_block_reference.h"
#include "host/db/entities/od_db_line.h"
#include "host/db/entities/od_db_text.h"
#include "host/db/records/od_db_block_table_record.h"
#include "host/db/records/od_db_layer_table_record.h"
#include "tests/host/dxf/dxf_text.h"

#include <cppunit/extensions/HelperMacros.h>

namespace {

constexpr char s_ownTables[] =
    "0\nTABLE\n2\nLAYER\n5\n2\n330\n0\n100\nAcDbSymbolTable\n70\n1\n"
    "0\nLAYER\n5\n10\n330\n2\n100\nAcDbSymbolTableRecord\n100\nAcDbLayerTableRecord\n"
    "2\nWalls\n70\n0\n62\n3\n6\nDASHED\n0\nENDTAB\n"
    "0\nTABLE\n2\nLTYPE\n5\n3\n330\n0\n100\nAcDbSymbolTable\n70\n1\n"
    "0\nLTYPE\n5\n11\n330\n3\n100\nAcDbSymbolTableRecord\n100\nAcDbLinetypeTableRecord\n"
    "2\nDashed\n70\n0\n3\n- -\n72\n65\n73\n0\n40\n0.0\n0\nENDTAB\n";

class RoundTripTest : public CppUnit::TestFixture
{
    CPPUNIT_TEST_SUITE(RoundTripTest);
    CPPUNIT_TEST(whatTheHostDoesNotKnowStaysInPlace);
    CPPUNIT_TEST(realsKeepEveryBit);
    CPPUNIT_TEST(savedDrawingReadsAndSavesTheSame);
    CPPUNIT_TEST(namesAreFoundBeforeTheirRecords);
    CPPUNIT_TEST(namesWithoutRecordStayUndefined);
    CPPUNIT_TEST(entitiesFindTheirSpace);
    CPPUNIT_TEST(partsBelongToTheirEntity);
    CPPUNIT_TEST(textOfOldReleasesBecomesUtf8);
    CPPUNIT_TEST(objectsWithoutHandleGetFreeOnes);
    CPPUNIT_TEST(undoIsOnAndEmptyAfterReading);
    CPPUNIT_TEST_SUITE_END();

    static void assertHolds(std::string const& text, std::string const& part)
    {
        CPPUNIT_ASSERT_MESSAGE("missing: " + part, text.find(part) != std::string::npos);
    }

    void whatTheHostDoesNotKnowStaysInPlace()
    {
        std::string const saved = dxfText::resaved(
            "999\nfirst comment\n" + dxfText::header("AC1032", "999\nin header\n9\n$NEWVAR\n40\n1.5\n70\n2\n") +
            dxfText::section("TABLES", "0\nTABLE\n2\nNEWTABLE\n5\nA0\n1\nx\n0\nROW\n5\nA1\n0\nENDTAB\n") +
            dxfText::section("NEWS", "1\nbefore\n0\nSOMETHING\n40\n0.25\n310\nAB01\n") +
            dxfText::section("ENTITIES",
                             "0\nGADGET\n5\n50\n102\n{ACAD_REACTORS\n330\n60\n102\n}\n102\n{OTHER\n40\n1.5\n"
                             "102\n}\n330\n0\n100\nAcDbEntity\n8\n0\n92\n2\n310\nFFEE\n100\nAcDbGadget\n"
                             "40\n3.25\n999\nin entity\n1001\nACAD\n1000\nhello\n1040\n0.5\n1004\nABCD\n") +
            dxfText::section("OBJECTS",
                             "0\nDICTIONARY\n5\n60\n330\n0\n100\nAcDbDictionary\n281\n1\n3\nTHING\n350\n61\n"
                             "0\nTHING\n5\n61\n330\n60\n100\nAcDbThing\n90\n7\n") +
            "999\nlast comment\n0\nEOF\n");
        CPPUNIT_ASSERT(
            saved.starts_with("999\nfirst comment\n  0\nSECTION\n  2\nHEADER\n  9\n$ACADVER\n  1\nAC1032\n"
                              "999\nin header\n  9\n$NEWVAR\n 40\n1.5\n 70\n2\n"));
        assertHolds(saved, "  0\nTABLE\n  2\nNEWTABLE\n  5\nA0\n  1\nx\n  0\nROW\n  5\nA1\n  0\nENDTAB\n");
        assertHolds(saved,
                    "  0\nSECTION\n  2\nNEWS\n  1\nbefore\n  0\nSOMETHING\n 40\n0.25\n310\nAB01\n  0\nENDSEC\n");
        assertHolds(saved,
                    "  0\nGADGET\n  5\n50\n102\n{ACAD_REACTORS\n330\n60\n102\n}\n102\n{OTHER\n 40\n1.5\n102\n}\n");
        assertHolds(saved,
                    "100\nAcDbEntity\n  8\n0\n 92\n2\n310\nFFEE\n100\nAcDbGadget\n 40\n3.25\n999\nin entity\n"
                    "1001\nACAD\n1000\nhello\n1040\n0.5\n1004\nABCD\n");
        assertHolds(saved, "  3\nTHING\n350\n61\n");
        assertHolds(saved, "  0\nTHING\n  5\n61\n330\n60\n100\nAcDbThing\n 90\n7\n");
        CPPUNIT_ASSERT(saved.ends_with("999\nlast comment\n  0\nEOF\n"));
        CPPUNIT_ASSERT(saved.find("NEWTABLE") < saved.find("NEWS") && saved.find("NEWS") < saved.find("GADGET"));
    }

    void realsKeepEveryBit()
    {
        struct Row
        {
            char const* read;
            char const* written;
        };
        Row const rows[] = {
            {"0.1", "0.1"},
            {"-0.0", "-0.0"},
            {"5", "5.0"},
            {"123456789.12345679", "123456789.12345679"},
            {"0.30000000000000004", "0.30000000000000004"},
            {"1e20", "1.0e+20"},
            {"1.7976931348623157e308", "1.7976931348623157e+308"},
            {"5e-324", "5.0e-324"},
            {"0.00001", "0.00001"},
            {"999999999999999", "999999999999999.0"},
        };
        for (Row const& row : rows)
            assertHolds(
                dxfText::resaved(dxfText::entities("0\nGADGET\n5\n50\n100\nAcDbEntity\n8\n0\n100\nG\n40\n" +
                                                   std::string(row.read) + "\n")),
                "100\nG\n 40\n" + std::string(row.written) + "\n");
    }

    void savedDrawingReadsAndSavesTheSame()
    {
        std::string const sparse = dxfText::drawing(
            dxfText::section("TABLES", s_ownTables) +
            dxfText::section("ENTITIES",
                             "0\nLINE\n8\nUnknown\n6\nDotted\n10\n1.0\n11\n2.0\n0\nINSERT\n2\nNowhere\n"));
        std::string const once = dxfText::resaved(sparse);
        CPPUNIT_ASSERT_EQUAL(once, dxfText::resaved(once));
        OdDbDatabasePtr const database = dxfText::read(sparse);
        CPPUNIT_ASSERT_EQUAL(dxfText::written(*database), dxfText::written(*database));
    }

    void namesAreFoundBeforeTheirRecords()
    {
        OdDbDatabasePtr const database = dxfText::read(dxfText::drawing(dxfText::section("TABLES", s_ownTables)));
        auto const layer = database->table(OdDbTableKind::kLayer).getAt(L"Walls").open<OdDbLayerTableRecord>();
        CPPUNIT_ASSERT(layer->linetypeObjectId().getHandle() == OdDbHandle(std::uint64_t{0x11}));
        CPPUNIT_ASSERT(layer->linetypeObjectId() == database->table(OdDbTableKind::kLinetype).getAt(L"dashed"));
    }

    void namesWithoutRecordStayUndefined()
    {
        OdDbDatabasePtr const database =
            dxfText::read(dxfText::entities("0\nLINE\n5\n10\n8\nImplied\n10\n0.0\n11\n1.0\n"));
        OdDbObjectId const id = database->table(OdDbTableKind::kLayer).getAt(L"Implied");
        std::string const record = "AcDbLayerTableRecord\n  2\nImplied\n";
        CPPUNIT_ASSERT(dxfText::written(*database).find(record) == std::string::npos);
        assertHolds(dxfText::written(*database), "  8\nImplied\n");
        id.open<OdDbLayerTableRecord>(OdDb::kForWrite)->setIsFrozen(true);
        assertHolds(dxfText::written(*database), record);
        assertHolds(dxfText::written(*database), "AcDbLayerTableRecord\n  2\n0\n"); // every drawing has layer 0
    }

    void entitiesFindTheirSpace()
    {
        OdDbDatabasePtr const database = dxfText::read(dxfText::drawing(
            dxfText::section("TABLES",
                             "0\nTABLE\n2\nBLOCK_RECORD\n5\n1\n100\nAcDbSymbolTable\n70\n2\n"
                             "0\nBLOCK_RECORD\n5\n20\n2\n*Model_Space\n0\nBLOCK_RECORD\n5\n21\n2\n*Paper_Space\n"
                             "0\nBLOCK_RECORD\n5\n22\n2\n*Paper_Space0\n0\nENDTAB\n") +
            dxfText::section("BLOCKS", "0\nBLOCK\n2\n*Paper_Space0\n0\nPOINT\n5\n33\n0\nENDBLK\n") +
            dxfText::section("ENTITIES", "0\nPOINT\n5\n30\n330\n20\n0\nPOINT\n5\n31\n67\n1\n0\nPOINT\n5\n32\n")));
        auto const handles = [](OdDbObjectId block) {
            std::string text;
            for (auto it = block.open<OdDbBlockTableRecord>()->newIterator(); !it.done(); it.step())
                text += it.objectId().getHandle().ascii().toUtf8() + " ";
            return text;
        };
        CPPUNIT_ASSERT_EQUAL(std::string("30 32 "), handles(database->getModelSpaceId()));
        CPPUNIT_ASSERT_EQUAL(std::string("31 "), handles(database->getPaperSpaceId()));
        CPPUNIT_ASSERT_EQUAL(std::string("33 "),
                             handles(database->table(OdDbTableKind::kBlock).getAt(L"*Paper_Space0")));
        assertHolds(dxfText::written(*database), "  5\n31\n330\n21\n100\nAcDbEntity\n");
    }

    void partsBelongToTheirEntity()
    {
        OdDbDatabasePtr const database = dxfText::read(dxfText::drawing(
            dxfText::section("BLOCKS", "0\nBLOCK\n2\nB\n0\nENDBLK\n") +
            dxfText::section("ENTITIES",
                             "0\nPOLYLINE\n5\n40\n66\n1\n0\nVERTEX\n5\n41\n10\n1.5\n0\nVERTEX\n5\n42\n"
                             "0\nSEQEND\n5\n43\n0\nINSERT\n5\n44\n66\n1\n2\nB\n0\nATTRIB\n5\n45\n2\nTAG\n"
                             "0\nSEQEND\n5\n46\n0\nPOINT\n5\n47\n")));
        auto const space = database->getModelSpaceId().open<OdDbBlockTableRecord>();
        CPPUNIT_ASSERT_EQUAL(std::size_t{3}, space->entities().size());
        auto const reference = OdDbObjectId(space->entities()[1]).open<OdDbBlockReference>();
        CPPUNIT_ASSERT_EQUAL(std::size_t{1}, reference->subentities().size());
        std::string const saved = dxfText::written(*database);
        std::size_t place = 0;
        for (char const* const part :
             {"POLYLINE\n  5\n40", "VERTEX\n  5\n41\n330\n40", "VERTEX\n  5\n42", "SEQEND\n  5\n43",
              "INSERT\n  5\n44", "ATTRIB\n  5\n45", "SEQEND\n  5\n46", "POINT\n  5\n47"}) {
            std::size_t const next = saved.find(part, place);
            CPPUNIT_ASSERT_MESSAGE(part, next != std::string::npos);
            place = next;
        }
    }

    void textOfOldReleasesBecomesUtf8()
    {
        OdDbDatabasePtr const database = dxfText::read(
            dxfText::header("AC1018", "9\n$DWGCODEPAGE\n3\nANSI_1251\n") +
            dxfText::section("ENTITIES", "0\nTEXT\n5\n50\n8\n0\n1\n\xC4\xEE\xEC \\U+4E2D\n") + "0\nEOF\n");
        auto const space = database->getModelSpaceId().open<OdDbBlockTableRecord>();
        CPPUNIT_ASSERT(OdDbObjectId(space->entities()[0]).open<OdDbText>()->textString() ==
                       L"\x414\x43E\x43C \x4E2D");
        assertHolds(dxfText::written(*database), "\xD0\x94\xD0\xBE\xD0\xBC \xE4\xB8\xAD\n");
    }

    void objectsWithoutHandleGetFreeOnes()
    {
        OdDbDatabasePtr const database = dxfText::read(
            dxfText::entities("0\nPOINT\n0\nPOINT\n5\nFF\n0\nGADGET\n5\n10\n100\nAcDbEntity\n340\n1FF\n"));
        auto const space = database->getModelSpaceId().open<OdDbBlockTableRecord>();
        CPPUNIT_ASSERT(OdDbObjectId(space->entities()[0]).getHandle() > OdDbHandle(std::uint64_t{0x1FF}));
    }

    void undoIsOnAndEmptyAfterReading()
    {
        OdDbDatabasePtr const database =
            dxfText::read(dxfText::entities("0\nLINE\n5\n10\n8\n0\n10\n0.0\n11\n1.0\n"));
        CPPUNIT_ASSERT(!database->undoLog().hasUndo());
        database->startUndoRecord();
        OdDbObjectId const id = database->getOdDbObjectId(OdDbHandle(std::uint64_t{0x10}));
        id.open<OdDbLine>(OdDb::kForWrite)->setEndPoint({5, 0, 0});
        database->undo();
        CPPUNIT_ASSERT(id.open<OdDbLine>()->endPoint() == OdGePoint3d(1, 0, 0));
    }
};
CPPUNIT_TEST_SUITE_REGISTRATION(RoundTripTest);

} // namespace
