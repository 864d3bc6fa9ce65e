#include "host/db/records/od_db_block_table_record.h"
#include "host/db/records/od_db_dim_style_table_record.h"
#include "tests/host/dxf/dxf_text.h"
#include "tests/host/dxf/lifted_text.h"

#include <cppunit/extensions/HelperMacros.h>

namespace {

using liftedText::asFile;
using liftedText::lifted;
using liftedText::section;

/// The view of a viewport as extended data.
std::string mview(std::string const& frozen)
{
    return "1000 MVIEW\n1002 {\n1070 16\n1010 1\n1020 2\n1030 3\n1010 0\n1020 0\n1030 1\n1040 45\n1040 9.5\n"
           "1040 6\n1040 4\n1040 50\n1040 7\n1040 8\n1070 1\n1070 1000\n1070 1\n1070 3\n1070 0\n1070 1\n1070 1\n"
           "1070 2\n1040 30\n1040 0.1\n1040 0.2\n1040 0.3\n1040 0.4\n1040 0.5\n1040 0.6\n1070 1\n1002 {\n" +
           frozen + "1002 }\n1002 }\n";
}

/// Perspective 1, fast zoom 128, grid 512, isometric snap 1024, hidden lines 2048, right isometric plane 8192.
std::string const kView =
    "17 1\n27 2\n37 3\n16 0\n26 0\n36 1\n51 45\n45 9.5\n12 6\n22 4\n42 50\n43 7\n44 8\n72 1000\n"
    "74 3\n50 30\n13 0.1\n23 0.2\n14 0.3\n24 0.4\n15 0.5\n25 0.6\n90 11905\n";

class LiftingViewsAndStylesTest : public CppUnit::TestFixture
{
    CPPUNIT_TEST_SUITE(LiftingViewsAndStylesTest);
    CPPUNIT_TEST(viewport);
    CPPUNIT_TEST(viewportWithOtherData);
    CPPUNIT_TEST(arrowNames);
    CPPUNIT_TEST(unitsAndFit);
    CPPUNIT_TEST(headerVariables);
    CPPUNIT_TEST(namesBecomeReferences);
    CPPUNIT_TEST_SUITE_END();

    void viewport()
    {
        CPPUNIT_ASSERT_EQUAL(
            "0 VIEWPORT\n100 AcDbEntity\n67 1\n8 0\n100 AcDbViewport\n10 5\n20 6\n40 7\n41 8\n69 2\n" + kView +
                "331 WALLS\n331 0\n281 0\n",
            lifted("ENTITIES", "0 VIEWPORT\n67 1\n8 0\n10 5\n20 6\n40 7\n41 8\n69 2\n1001 ACAD\n" +
                                   mview("1003 WALLS\n1003 0\n")));
        // From R13 on there are markers, but the view is still extended data.
        std::string const head = "0 VIEWPORT\n5 1\n100 AcDbEntity\n8 0\n100 AcDbViewport\n10 5\n";
        CPPUNIT_ASSERT_EQUAL("0 VIEWPORT\n5 #1\n100 AcDbEntity\n8 0\n100 AcDbViewport\n10 5\n" + kView + "281 0\n",
                             lifted("ENTITIES", head + "1001 ACAD\n" + mview(""), dxf::ERelease::kR14));
    }

    void viewportWithOtherData()
    {
        std::string const head = "0 VIEWPORT\n100 AcDbViewport\n10 5\n";
        CPPUNIT_ASSERT_EQUAL(
            head + kView + "281 0\n1001 MINE\n1000 MVIEW\n1001 ACAD\n1070 1\n1001 YOURS\n",
            lifted("ENTITIES", head + "1001 MINE\n1000 MVIEW\n1001 ACAD\n1070 1\n" + mview("") + "1001 YOURS\n"));
        // What is not of the known form stays.
        std::string const cut = head + "1001 ACAD\n1000 MVIEW\n1002 {\n1070 16\n1010 1\n1002 }\n";
        CPPUNIT_ASSERT_EQUAL(cut, lifted("ENTITIES", cut));
        std::string const today = head + "90 32864\n1001 ACAD\n" + mview("");
        CPPUNIT_ASSERT_EQUAL(today, lifted("ENTITIES", today));
    }

    void arrowNames()
    {
        CPPUNIT_ASSERT_EQUAL(std::string("0 DIMSTYLE\n105 #2F\n100 AcDbSymbolTableRecord\n"
                                         "100 AcDbDimStyleTableRecord\n2 MINE\n70 0\n342 DOT\n344 ACE\n"),
                             lifted("TABLES", "0 DIMSTYLE\n105 2F\n2 MINE\n70 0\n5 DOT\n6 \n7 ACE\n"));
        CPPUNIT_ASSERT_EQUAL(
            std::string("0 DIMSTYLE\n105 #2F\n100 AcDbDimStyleTableRecord\n2 MINE\n342 DEAD\n340 #11\n"),
            lifted("TABLES", "0 DIMSTYLE\n105 2F\n100 AcDbDimStyleTableRecord\n2 MINE\n5 DEAD\n6 \n340 11\n",
                   dxf::ERelease::kR14));
    }

    void unitsAndFit()
    {
        std::string const head = "0 DIMSTYLE\n100 AcDbDimStyleTableRecord\n";
        CPPUNIT_ASSERT_EQUAL(head + "270 6\n276 2\n277 4\n287 4\n279 1\n289 3\n271 2\n",
                             lifted("TABLES", head + "270 6\n287 4\n271 2\n", dxf::ERelease::kR13));
        // What the style says itself counts.
        CPPUNIT_ASSERT_EQUAL(head + "270 6\n276 2\n277 1\n287 99\n",
                             lifted("TABLES", head + "270 6\n277 1\n287 99\n", dxf::ERelease::kR14));
    }

    void headerVariables()
    {
        std::string const r14 = "9 $DIMUNIT\n70 7\n9 $DIMFIT\n70 5\n9 $DIMTMOVE\n70 0\n9 $LUNITS\n70 4\n";
        CPPUNIT_ASSERT_EQUAL(r14 + "9 $DIMLUNIT\n70 5\n9 $DIMFRAC\n70 2\n9 $DIMATFIT\n70 3\n",
                             lifted("HEADER", r14, dxf::ERelease::kR14));
        // Dimensions of R12 have the units of the drawing, and so do its styles.
        std::string const r12 = "9 $LUNITS\n70 4\n9 $LUPREC\n70 3\n";
        CPPUNIT_ASSERT_EQUAL(r12 + "9 $DIMLUNIT\n70 4\n9 $DIMDEC\n70 3\n9 $DIMTDEC\n70 3\n",
                             lifted("HEADER", r12));
        liftedText::Source source(section("HEADER", r12) +
                                      section("TABLES", "0 DIMSTYLE\n2 A\n271 1\n1001 MINE\n"),
                                  dxf::ERelease::kR12);
        std::string const all = liftedText::listing(*source);
        CPPUNIT_ASSERT_MESSAGE(all, all.find("2 A\n271 1\n277 4\n272 3\n1001 MINE\n") != std::string::npos);
    }

    void namesBecomeReferences()
    {
        std::string const tables =
            section("TABLES", "0 TABLE\n2 LAYER\n70 1\n0 LAYER\n2 WALLS\n70 0\n62 1\n6 X\n0 ENDTAB\n"
                              "0 TABLE\n2 DIMSTYLE\n70 1\n0 DIMSTYLE\n2 MINE\n70 0\n5 DOT\n"
                              "6 ACE\n0 ENDTAB\n");
        std::string const blocks = section("BLOCKS", "0 BLOCK\n8 0\n2 dot\n70 0\n10 0\n20 0\n0 ENDBLK\n");
        std::string const viewports =
            section("ENTITIES", "0 VIEWPORT\n5 1\n8 0\n67 1\n1001 ACAD\n" + mview("1003 walls\n1003 GONE\n"));
        dxf::ReadReport report;
        OdDbDatabasePtr const database = dxfText::read(
            asFile(section("HEADER", "9 $ACADVER\n1 AC1009\n") + tables + blocks + viewports + "0 EOF\n"),
            &report);

        OdDbObjectId const id = database->table(OdDbTableKind::kDimStyle).getAt(L"MINE");
        auto const style = id.open<OdDbDimStyleTableRecord>();
        OdDbSymbolTable const& table = database->table(OdDbTableKind::kBlock);
        CPPUNIT_ASSERT(style->reference("DIMBLK").isValid());
        CPPUNIT_ASSERT(style->reference("DIMBLK") == table.getAt(L"DOT"));
        CPPUNIT_ASSERT(style->reference("DIMBLK1") == table.getAt(L"ACE"));
        // A block that is only named is there too, as nothing else can be referred to.
        CPPUNIT_ASSERT(!style->reference("DIMBLK1").open<OdDbBlockTableRecord>()->isImplied());

        OdString const layer = database->table(OdDbTableKind::kLayer).getAt(L"WALLS").getHandle().ascii();
        std::string const written = dxfText::written(*database);
        CPPUNIT_ASSERT(written.find("331\n" + layer.toUtf8() + "\n281\n") != std::string::npos);
        CPPUNIT_ASSERT_EQUAL(std::size_t{1}, report.notes.size());
        CPPUNIT_ASSERT(report.notes.front().text ==
                       L"The layer \"GONE\", which is frozen in a viewport, does not exist");
    }
};

CPPUNIT_TEST_SUITE_REGISTRATION(LiftingViewsAndStylesTest);

} // namespace
