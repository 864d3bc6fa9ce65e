#include "host/db/records/od_db_layer_table_record.h"
#include "tests/host/dxf/lowered_text.h"

namespace {

using dxf::ERelease;
using loweredText::entity;
using loweredText::lowered;
using loweredText::Lowered;
using loweredText::loweredEntities;

class LoweringTest : public CppUnit::TestFixture
{
    CPPUNIT_TEST_SUITE(LoweringTest);
    CPPUNIT_TEST(formOfR12);
    CPPUNIT_TEST(kindsOfPolylines);
    CPPUNIT_TEST(lateGroups);
    CPPUNIT_TEST(usualValuesAreNotTold);
    CPPUNIT_TEST(classesOfOtherReleases);
    CPPUNIT_TEST(whatBelongsToLeftOutEntities);
    CPPUNIT_TEST(bodiesOfTheCurrentForm);
    CPPUNIT_TEST(furtherSheets);
    CPPUNIT_TEST(headerVariables);
    CPPUNIT_TEST(namesForOldReleases);
    CPPUNIT_TEST(namesOfOldDrawingsStay);
    CPPUNIT_TEST(dimensionStyles);
    CPPUNIT_TEST(views);
    CPPUNIT_TEST(savingChangesNothing);
    CPPUNIT_TEST_SUITE_END();

    static constexpr char const* kDrawingOrder =
        "0\nHATCH\n5\n50\n100\nAcDbEntity\n8\n0\n100\nAcDbHatch\n10\n0\n20\n0\n30\n0\n";

    void formOfR12()
    {
        Lowered const file = loweredEntities(entity("LINE", "A0",
                                                    "100\nAcDbLine\n10\n1\n20\n2\n30\n3\n11\n4\n21\n5\n31\n6\n"
                                                    "1001\nACAD\n1071\n70000\n"),
                                             ERelease::kR12);
        CPPUNIT_ASSERT_EQUAL(
            std::string("LINE 5 A0 8 0 10 1.0 20 2.0 30 3.0 11 4.0 21 5.0 31 6.0 1001 ACAD 1071 70000 0 "),
            file.between("LINE\n  5\nA0", "ENDSEC"));
        CPPUNIT_ASSERT(file.has("$ACADVER\n  1\nAC1009\n"));
        CPPUNIT_ASSERT(file.has("$HANDLING\n 70\n1\n  9\n$HANDSEED\n"));
        for (char const* const name : {"$MODEL_SPACE", "$PAPER_SPACE"})
            CPPUNIT_ASSERT_MESSAGE(name, file.has(std::string("  2\n") + name + "\n"));
        for (char const* const part :
             {"\n100\n", "\n102\n", "\n330\n", "CLASSES", "OBJECTS", "BLOCK_RECORD", "*Model"})
            CPPUNIT_ASSERT_MESSAGE(part, !file.has(part));
    }

    /// Without markers the flags alone say what a polyline is, also where they did not before.
    void kindsOfPolylines()
    {
        std::string const content = "10\n0\n20\n0\n30\n0\n70\n17\n";
        auto const asR12 = [&](std::string const& whole, std::string const& part) {
            return loweredEntities(entity("POLYLINE", "A0", "100\n" + whole + "\n66\n1\n" + content) +
                                       entity("VERTEX", "A1", "100\nAcDbVertex\n100\n" + part + "\n" + content) +
                                       "0\nSEQEND\n5\nA2\n100\nAcDbEntity\n8\n0\n",
                                   ERelease::kR12)
                .between("POLYLINE\n  5\nA0", "SEQEND");
        };
        CPPUNIT_ASSERT_EQUAL(std::string("POLYLINE 5 A0 8 0 66 1 10 0.0 20 0.0 30 0.0 70 9 "
                                         "0 VERTEX 5 A1 8 0 10 0.0 20 0.0 30 0.0 70 49 0 "),
                             asR12("AcDb3dPolyline", "AcDb3dPolylineVertex"));
        CPPUNIT_ASSERT_EQUAL(std::string("POLYLINE 5 A0 8 0 66 1 10 0.0 20 0.0 30 0.0 70 65 71 1 "
                                         "0 VERTEX 5 A1 8 0 10 0.0 20 0.0 30 0.0 70 209 0 "),
                             asR12("AcDbPolyFaceMesh", "AcDbPolyFaceMeshVertex"));
        CPPUNIT_ASSERT_EQUAL(std::string("POLYLINE 5 A0 8 0 66 1 10 0.0 20 0.0 30 0.0 70 1 "
                                         "0 VERTEX 5 A1 8 0 10 0.0 20 0.0 30 0.0 70 17 0 "),
                             asR12("AcDb2dPolyline", "AcDb2dVertex"));
    }

    void lateGroups()
    {
        std::string const line = entity("LINE", "A0",
                                        "48\n2.5\n370\n25\n420\n255\n440\n33554559\n100\nAcDbLine\n"
                                        "10\n0\n20\n0\n30\n0\n11\n1\n21\n0\n31\n0\n");
        Lowered const r2000 = loweredEntities(line, ERelease::kR2000);
        CPPUNIT_ASSERT_EQUAL(std::string("A0 x1"),
                             r2000.told(L"LINE: true color (group 420) needs R2004; left out"));
        CPPUNIT_ASSERT_EQUAL(std::string("A0 x1"),
                             r2000.told(L"LINE: transparency (group 440) needs R2004; left out"));
        CPPUNIT_ASSERT(r2000.has("370\n25\n") && r2000.has(" 48\n2.5\n") && !r2000.has("420\n255\n"));
        Lowered const r14 = loweredEntities(line, ERelease::kR14);
        CPPUNIT_ASSERT_EQUAL(std::string("A0 x1"),
                             r14.told(L"LINE: line weight (group 370) needs R2000; left out"));
        CPPUNIT_ASSERT(r14.has(" 48\n2.5\n"));
        Lowered const r12 = loweredEntities(line, ERelease::kR12);
        CPPUNIT_ASSERT_EQUAL(std::string("A0 x1"),
                             r12.told(L"LINE: linetype scale (group 48) needs R13; left out"));
        CPPUNIT_ASSERT(!loweredEntities(line, ERelease::kR2004).tellsOf(L"LINE"));
    }

    void usualValuesAreNotTold()
    {
        Lowered const file = loweredEntities(
            entity("LINE", "A0",
                   "48\n1\n60\n0\n370\n-1\n100\nAcDbLine\n10\n0\n20\n0\n30\n0\n11\n1\n21\n0\n31\n0\n"),
            ERelease::kR12);
        CPPUNIT_ASSERT(!file.tellsOf(L"LINE:"));
        CPPUNIT_ASSERT(!file.has("370\n-1\n"));
    }

    void classesOfOtherReleases()
    {
        std::string const content = entity("MULTILEADER", "A0", "100\nAcDbMLeader\n270\n2\n") +
                                    entity("ACME_GEAR", "A1", "100\nAcmeGear\n90\n12\n") + kDrawingOrder;
        std::string const classes = dxfText::section(
            "CLASSES", "0\nCLASS\n1\nMULTILEADER\n2\nAcDbMLeader\n3\nACDB\n90\n1025\n91\n1\n280\n0\n281\n1\n");
        std::string const listed = classes + dxfText::section("ENTITIES", content);
        Lowered const r2000 = lowered(listed, ERelease::kR2000);
        CPPUNIT_ASSERT_EQUAL(std::string("A0 x1"),
                             r2000.told(L"MULTILEADER: R2000 does not know the class; kept"));
        CPPUNIT_ASSERT(r2000.has("MULTILEADER\n  5\nA0\n") && r2000.has("ACME_GEAR\n") && r2000.has("HATCH\n"));
        CPPUNIT_ASSERT(!r2000.has(" 91\n1\n280\n"));
        Lowered const r13 = lowered(listed, ERelease::kR13);
        CPPUNIT_ASSERT_EQUAL(std::string("50 x1"), r13.told(L"HATCH: R13 has no such entities; left out"));
        CPPUNIT_ASSERT(r13.has("ACME_GEAR\n") && !r13.has("HATCH\n"));
        Lowered const r12 = lowered(listed, ERelease::kR12);
        CPPUNIT_ASSERT_EQUAL(std::string("A1 x1"), r12.told(L"ACME_GEAR: R12 has no such entities; left out"));
        Lowered const unlisted = lowered(dxfText::section("ENTITIES", content), ERelease::kR2000);
        CPPUNIT_ASSERT_EQUAL(std::string("A0 x1"),
                             unlisted.told(L"MULTILEADER: R2000 has no such entities; left out"));
    }

    void whatBelongsToLeftOutEntities()
    {
        std::string const group =
            "0\nGROUP\n5\nB0\n330\nC\n100\nAcDbGroup\n300\n\n70\n0\n71\n1\n340\n50\n340\nA1\n";
        std::string const line = entity("LINE", "A1", "100\nAcDbLine\n10\n0\n20\n0\n30\n0\n11\n1\n21\n0\n31\n0\n");
        Lowered const file =
            lowered(dxfText::section("ENTITIES", kDrawingOrder + line) + dxfText::section("OBJECTS", group),
                    ERelease::kR13);
        CPPUNIT_ASSERT(file.has("340\nA1\n"));
        CPPUNIT_ASSERT(!file.has("340\n50\n"));
    }

    void bodiesOfTheCurrentForm()
    {
        std::string const solid =
            entity("3DSOLID", "A0", "100\nAcDbModelerGeometry\n290\n1\n2\n{1}\n100\nAcDb3dSolid\n350\n0\n");
        CPPUNIT_ASSERT(loweredEntities(solid, ERelease::kR2013).has("3DSOLID\n"));
        Lowered const file = loweredEntities(solid, ERelease::kR2010);
        CPPUNIT_ASSERT(!file.has("3DSOLID\n"));
        CPPUNIT_ASSERT_EQUAL(std::string("A0 x1"),
                             file.told(L"3DSOLID: the form of its body needs R2013; left out"));
        Lowered const old = loweredEntities(entity("3DSOLID", "A0", "100\nAcDbModelerGeometry\n70\n1\n1\nabc\n"),
                                            ERelease::kR2000);
        CPPUNIT_ASSERT(old.has("3DSOLID\n"));
    }

    void furtherSheets()
    {
        std::string const line = entity("LINE", "A1", "100\nAcDbLine\n10\n0\n20\n0\n30\n0\n11\n1\n21\n0\n31\n0\n");
        std::string const block =
            "0\nBLOCK\n5\nA0\n100\nAcDbEntity\n8\n0\n100\nAcDbBlockBegin\n2\n*Paper_Space0\n70\n0\n"
            "10\n0\n20\n0\n30\n0\n3\n*Paper_Space0\n1\n\n" +
            line + "0\nENDBLK\n5\nA2\n8\n0\n";
        std::string const sections = dxfText::section("BLOCKS", block);
        Lowered const file = lowered(sections, ERelease::kR12);
        CPPUNIT_ASSERT(!file.has("Space0") && !file.has("SPACE0") && !file.has("LINE\n"));
        CPPUNIT_ASSERT_EQUAL(std::string("A1 x1"),
                             file.told(L"LINE: R12 has one sheet only; left out with another one"));
        CPPUNIT_ASSERT(lowered(sections, ERelease::kR14).has("LINE\n  5\nA1\n"));
    }

    void headerVariables()
    {
        OdDbDatabasePtr const database = new OdDbDatabase;
        database->setHeaderReal("DIMFXL", 40, 7);
        database->setHeaderInteger("DIMLUNIT", 70, 4);
        database->setHeaderInteger("DIMFRAC", 70, 2);
        database->setHeaderText("ACMEVAR", 1, L"kept");
        Lowered const r14 = lowered(*database, ERelease::kR14);
        CPPUNIT_ASSERT_EQUAL(std::string("0 x1"), r14.told(L"$DIMFXL: the variable needs R2007; left out"));
        CPPUNIT_ASSERT(!r14.tellsOf(L"$LATITUDE")); // as every drawing has it
        CPPUNIT_ASSERT(r14.has("$DIMUNIT\n 70\n6\n") && r14.has("$ACMEVAR\n  1\nkept\n"));
        for (char const* const name : {"$DIMLUNIT", "$DIMFRAC", "$DIMFXL", "$CELWEIGHT"})
            CPPUNIT_ASSERT_MESSAGE(name, !r14.has(name));
        database->setHeaderInteger("DRAGMODE", 70, 2);
        CPPUNIT_ASSERT(lowered(*database, ERelease::kR12).has("$DRAGMODE"));
        CPPUNIT_ASSERT(lowered(*database, ERelease::kR2000).has("$DRAGMODE")); // as in the current release
    }

    static OdDbObjectId addLayer(OdDbDatabase& database, wchar_t const* name)
    {
        OdSmartPtr<OdDbLayerTableRecord> const layer = new OdDbLayerTableRecord;
        layer->setName(name);
        return database.getLayerTableId().open<OdDbSymbolTable>(OdDb::kForWrite)->add(layer);
    }

    void namesForOldReleases()
    {
        OdDbDatabasePtr const database = new OdDbDatabase;
        addLayer(*database, L"Walls");
        addLayer(*database, L"A B");
        addLayer(*database, L"A_B");
        OdDbObjectId const layer = addLayer(*database, L"Wände (alt)");
        addLayer(*database, L"A very long name of more than thirty-one characters");
        database->setCurrent(OdDbTableKind::kLayer, layer);
        Lowered const file = lowered(*database, ERelease::kR14);
        for (char const* const name : {"WALLS", "A_B", "A_B_1", "W_NDE__ALT_", "A_VERY_LONG_NAME_OF_MORE_THAN_T"})
            CPPUNIT_ASSERT_MESSAGE(name, file.has(std::string("AcDbLayerTableRecord\n  2\n") + name + "\n"));
        CPPUNIT_ASSERT(file.has("$CLAYER\n  8\nW_NDE__ALT_\n"));
        CPPUNIT_ASSERT_EQUAL(layer.getHandle().ascii().toUtf8() + " x1",
                             file.told(L"Layer \"Wände (alt)\" is named \"W_NDE__ALT_\" in R14"));
        file.told(L"Layer \"A B\" is named \"A_B_1\" in R14");
        CPPUNIT_ASSERT(!file.tellsOf(L"\"Walls\""));
        CPPUNIT_ASSERT(lowered(*database, ERelease::kR2000).has("\nWalls\n"));
    }

    void namesOfOldDrawingsStay()
    {
        std::string const line = "0\nLINE\n5\nA0\n8\nmy layer\n10\n0\n20\n0\n11\n1\n21\n0\n";
        OdDbDatabasePtr const database =
            dxfText::read(dxfText::header("AC1009") + dxfText::section("ENTITIES", line) + "0\nEOF\n");
        CPPUNIT_ASSERT(lowered(*database, ERelease::kR12).has("  8\nmy layer\n"));
    }

    void dimensionStyles()
    {
        std::string const style =
            "0\nTABLE\n2\nDIMSTYLE\n5\nA\n100\nAcDbSymbolTable\n70\n1\n100\nAcDbDimStyleTable\n71\n1\n340\n27\n"
            "0\nDIMSTYLE\n105\n27\n330\nA\n100\nAcDbSymbolTableRecord\n100\nAcDbDimStyleTableRecord\n2\nIso\n70\n0"
            "\n"
            "40\n2\n276\n2\n277\n5\n279\n1\n289\n3\n342\n30\n0\nENDTAB\n"
            "0\nTABLE\n2\nBLOCK_RECORD\n5\n1\n100\nAcDbSymbolTable\n70\n1\n0\nBLOCK_RECORD\n5\n30\n330\n1\n"
            "100\nAcDbSymbolTableRecord\n100\nAcDbBlockTableRecord\n2\n_Dot\n0\nENDTAB\n";
        std::string const sections = dxfText::section("TABLES", style);
        Lowered const r14 = lowered(sections, ERelease::kR14);
        std::string const record = r14.between("\nDIMSTYLE\n105\n27\n", "ENDTAB");
        for (char const* const part : {" 5 _DOT ", " 6  ", " 7  ", " 270 7 ", " 287 4 ", " 40 2.0 "})
            CPPUNIT_ASSERT_MESSAGE(part + record, record.find(part) != std::string::npos);
        for (char const* const part : {" 277 ", " 289 ", " 342 "})
            CPPUNIT_ASSERT_MESSAGE(part + record, record.find(part) == std::string::npos);
        Lowered const r12 = lowered(sections, ERelease::kR12);
        CPPUNIT_ASSERT(r12.has("\nDIMSTYLE\n105\n27\n  2\nISO\n"));
        r12.told(L"DIMSTYLE: DIMTMOVE needs R2000; left out");
    }

    void views()
    {
        std::string const viewport =
            entity("VIEWPORT", "A0",
                   "67\n1\n100\nAcDbViewport\n10\n5\n20\n6\n30\n0\n40\n8\n41\n4\n68\n2\n69\n2\n12\n3\n22\n4\n"
                   "45\n9\n72\n500\n90\n32864\n74\n1\n");
        Lowered const file = loweredEntities(viewport, ERelease::kR12);
        std::string const record = file.between("VIEWPORT\n  5\nA0", "ENDSEC");
        CPPUNIT_ASSERT_EQUAL(
            std::string("VIEWPORT 5 A0 8 0 67 1 10 5.0 20 6.0 30 0.0 40 8.0 41 4.0 68 2 69 2 1001 ACAD 1000 MVIEW "
                        "1002 { 1070 16 "
                        "1010 0.0 1020 0.0 1030 0.0 1010 0.0 1020 0.0 1030 1.0 1040 0.0 1040 9.0 1040 3.0 1040 "
                        "4.0 1040 50.0 "
                        "1040 0.0 1040 0.0 1070 0 1070 500 1070 0 1070 1 1070 0 1070 0 1070 0 1070 0 1040 0.0 "
                        "1040 0.0 1040 0.0 1040 0.0 1040 0.0 1040 0.0 1040 0.0 1070 0 1002 { 1002 } 1002 } 0 "),
            record);
    }

    void savingChangesNothing()
    {
        OdDbDatabasePtr const database = dxfText::read(
            dxfText::header("AC1032") +
            dxfText::section("ENTITIES", entity("LWPOLYLINE", "A0",
                                                "100\nAcDbPolyline\n90\n2\n70\n0\n10\n0\n20\n0\n10\n1\n20\n1\n")) +
            "0\nEOF\n");
        std::string const before = dxf::writeBytes(*database);
        for (dxf::Release const& release : dxf::writableReleases())
            CPPUNIT_ASSERT_MESSAGE(std::string(release.code),
                                   lowered(*database, release.id).text == lowered(*database, release.id).text);
        CPPUNIT_ASSERT(before == dxf::writeBytes(*database));
    }
};
CPPUNIT_TEST_SUITE_REGISTRATION(LoweringTest);

} // namespace
