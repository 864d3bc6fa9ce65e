#include "tests/host/dxf/lifted_text.h"

#include <cppunit/extensions/HelperMacros.h>

namespace {

using liftedText::lifted;
using liftedText::section;

class LiftingTest : public CppUnit::TestFixture
{
    CPPUNIT_TEST_SUITE(LiftingTest);
    CPPUNIT_TEST(groupsStandBelowMarkers);
    CPPUNIT_TEST(formsOfOneType);
    CPPUNIT_TEST(verticesFollowTheirPolyline);
    CPPUNIT_TEST(markedRecordsPassThrough);
    CPPUNIT_TEST(tables);
    CPPUNIT_TEST(elevation);
    CPPUNIT_TEST(namesOfSpaces);
    CPPUNIT_TEST(otherSectionsPassThrough);
    CPPUNIT_TEST(placesOfTags);
    CPPUNIT_TEST(damageIsToldWithinItsRecord);
    CPPUNIT_TEST(startsAgain);
    CPPUNIT_TEST_SUITE_END();

    static void check(std::string const& expected, std::string const& lines,
                      dxf::ERelease release = dxf::ERelease::kR12)
    {
        CPPUNIT_ASSERT_EQUAL(expected, lifted("ENTITIES", lines, release));
    }

    void groupsStandBelowMarkers()
    {
        check("0 LINE\n5 #1A\n102 {MINE\n40 7\n102 }\n"
              "100 AcDbEntity\n8 WALLS\n999 about the layer\n62 3\n48 2\n"
              "100 AcDbLine\n10 1\n20 2\n11 3\n21 4\n39 5\n77 6\n"
              "1001 MINE\n1040 8\n999 at the end\n",
              "0 LINE\n10 1\n20 2\n5 1A\n11 3\n21 4\n39 5\n8 WALLS\n999 about the layer\n62 3\n48 2\n"
              "102 {MINE\n40 7\n102 }\n77 6\n1001 MINE\n1040 8\n999 at the end\n");
        check("0 ATTRIB\n100 AcDbEntity\n8 0\n100 AcDbText\n10 1\n20 2\n40 3\n1 value\n72 1\n"
              "100 AcDbAttribute\n2 TAG\n70 0\n74 2\n",
              "0 ATTRIB\n8 0\n10 1\n20 2\n40 3\n1 value\n2 TAG\n70 0\n72 1\n74 2\n");
        check("0 TEXT\n100 AcDbEntity\n8 0\n100 AcDbText\n10 1\n20 2\n40 3\n1 text\n100 AcDbText\n73 2\n",
              "0 TEXT\n8 0\n10 1\n20 2\n40 3\n73 2\n1 text\n");
        // What stands there twice was below different markers once.
        check("0 ARC\n100 AcDbEntity\n8 A\n100 AcDbCircle\n40 1\n230 1\n100 AcDbArc\n50 0\n230 2\n8 B\n51 9\n",
              "0 ARC\n8 A\n40 1\n230 1\n50 0\n230 2\n8 B\n51 9\n");
        check("0 SEQEND\n100 AcDbEntity\n8 0\n0 CUSTOM\n8 0\n10 1\n", "0 SEQEND\n8 0\n0 CUSTOM\n8 0\n10 1\n");
        check("0 LINE\n100 AcDbEntity\n100 AcDbLine\n", "0 3DLINE\n");
    }

    void formsOfOneType()
    {
        struct Row
        {
            char const* record;
            char const* markers;
        };
        Row const rows[] = {
            {"0 INSERT\n2 A\n", "AcDbEntity AcDbBlockReference "},
            {"0 INSERT\n2 A\n70 2\n", "AcDbEntity AcDbMInsertBlock "},
            {"0 INSERT\n2 A\n70 1\n71 3\n", "AcDbEntity AcDbMInsertBlock "},
            {"0 POLYLINE\n70 1\n", "AcDbEntity AcDb2dPolyline "},
            {"0 POLYLINE\n70 8\n", "AcDbEntity AcDb3dPolyline "},
            {"0 POLYLINE\n70 49\n", "AcDbEntity AcDbPolygonMesh "},
            {"0 POLYLINE\n70 64\n", "AcDbEntity AcDbPolyFaceMesh "},
            {"0 DIMENSION\n70 32\n", "AcDbEntity AcDbDimension AcDbAlignedDimension AcDbRotatedDimension "},
            {"0 DIMENSION\n70 1\n", "AcDbEntity AcDbDimension AcDbAlignedDimension "},
            {"0 DIMENSION\n70 162\n", "AcDbEntity AcDbDimension AcDb2LineAngularDimension "},
            {"0 DIMENSION\n70 3\n", "AcDbEntity AcDbDimension AcDbDiametricDimension "},
            {"0 DIMENSION\n70 4\n", "AcDbEntity AcDbDimension AcDbRadialDimension "},
            {"0 DIMENSION\n70 5\n", "AcDbEntity AcDbDimension AcDb3PointAngularDimension "},
            {"0 DIMENSION\n70 70\n", "AcDbEntity AcDbDimension AcDbOrdinateDimension "},
        };
        for (Row const& row : rows)
            CPPUNIT_ASSERT_EQUAL_MESSAGE(row.record, std::string(row.markers),
                                         markersOf(lifted("BLOCKS", row.record)));
        check("0 DIMENSION\n100 AcDbEntity\n8 0\n100 AcDbDimension\n2 *D1\n10 1\n20 2\n11 3\n21 4\n70 0\n1 <>\n"
              "100 AcDbAlignedDimension\n13 5\n23 6\n14 7\n24 8\n50 90\n100 AcDbRotatedDimension\n",
              "0 DIMENSION\n8 0\n2 *D1\n10 1\n20 2\n11 3\n21 4\n70 0\n13 5\n23 6\n14 7\n24 8\n1 <>\n50 90\n");
    }

    static std::string markersOf(std::string const& listing)
    {
        std::string markers;
        for (std::size_t at = 0; (at = listing.find("\n100 ", at)) != std::string::npos;) {
            at += 5;
            markers += listing.substr(at, listing.find('\n', at) - at) + " ";
        }
        return markers;
    }

    void verticesFollowTheirPolyline()
    {
        CPPUNIT_ASSERT_EQUAL(std::string("AcDbEntity AcDbPolyFaceMesh "
                                         "AcDbEntity AcDbVertex AcDbPolyFaceMeshVertex "
                                         "AcDbEntity AcDbFaceRecord "),
                             markersOf(lifted("ENTITIES", "0 POLYLINE\n70 64\n0 VERTEX\n70 192\n"
                                                          "0 VERTEX\n70 128\n71 1\n72 -2\n")));
        // No flags of its own.
        CPPUNIT_ASSERT_EQUAL(std::string("AcDbEntity AcDb3dPolyline AcDbEntity AcDbVertex AcDb3dPolylineVertex "
                                         "AcDbEntity AcDb2dPolyline AcDbEntity AcDbVertex AcDb2dVertex "),
                             markersOf(lifted("ENTITIES", "0 POLYLINE\n70 8\n0 VERTEX\n10 1\n"
                                                          "0 POLYLINE\n0 VERTEX\n10 1\n")));
    }

    void markedRecordsPassThrough()
    {
        std::string const line =
            "0 LINE\n100 AcDbEntity\n8 0\n100 AcDbLine\n39 1\n62 5\n10 1\n20 2\n0 LINE\n8 A\n";
        check("0 LINE\n100 AcDbEntity\n8 0\n100 AcDbLine\n39 1\n62 5\n10 1\n20 2\n"
              "0 LINE\n100 AcDbEntity\n8 A\n100 AcDbLine\n",
              line, dxf::ERelease::kR14);
        check("0 LINE\n100 AcDbEntity\n8 0\n100 AcDbLine\n39 1\n62 5\n10 1\n20 2\n"
              "0 LINE\n100 AcDbEntity\n8 A\n100 AcDbLine\n",
              line);
    }

    void tables()
    {
        CPPUNIT_ASSERT_EQUAL(
            std::string(
                "0 TABLE\n2 LAYER\n100 AcDbSymbolTable\n70 1\n"
                "0 LAYER\n5 #10\n100 AcDbSymbolTableRecord\n100 AcDbLayerTableRecord\n2 0\n70 0\n62 7\n6 X\n"
                "0 ENDTAB\n"
                "0 TABLE\n2 GEARS\n70 1\n0 GEAR\n2 A\n0 ENDTAB\n"),
            lifted("TABLES", "0 TABLE\n2 LAYER\n70 1\n0 LAYER\n2 0\n70 0\n62 7\n5 10\n6 X\n0 ENDTAB\n"
                             "0 TABLE\n2 GEARS\n70 1\n0 GEAR\n2 A\n0 ENDTAB\n"));
    }

    void elevation()
    {
        check("0 CIRCLE\n100 AcDbEntity\n100 AcDbCircle\n10 1\n20 2\n30 5\n40 3\n",
              "0 CIRCLE\n38 5\n10 1\n20 2\n40 3\n");
        check("0 SOLID\n100 AcDbEntity\n100 AcDbTrace\n10 1\n20 2\n30 5\n11 3\n21 4\n31 5\n",
              "0 SOLID\n10 1\n20 2\n30 0\n11 3\n21 4\n38 5\n");
        // A line has its own z where it has one.
        check("0 LINE\n100 AcDbEntity\n100 AcDbLine\n10 1\n20 2\n30 0\n11 3\n21 4\n31 5\n",
              "0 LINE\n38 5\n10 1\n20 2\n30 0\n11 3\n21 4\n");
        check("0 POLYLINE\n100 AcDbEntity\n100 AcDb2dPolyline\n10 0\n20 0\n30 5\n66 1\n",
              "0 POLYLINE\n38 5\n66 1\n");
        check("0 3DFACE\n100 AcDbEntity\n100 AcDbFace\n38 5\n10 1\n20 2\n", "0 3DFACE\n38 5\n10 1\n20 2\n");
    }

    void namesOfSpaces()
    {
        std::string const lines = "0 BLOCK\n8 0\n2 $PAPER_SPACE\n70 0\n3 $Paper_Space\n0 BLOCK\n2 $MODEL\n";
        CPPUNIT_ASSERT_EQUAL(std::string("0 BLOCK\n100 AcDbEntity\n8 0\n100 AcDbBlockBegin\n2 *Paper_Space\n70 0\n"
                                         "3 *Paper_Space\n"
                                         "0 BLOCK\n100 AcDbEntity\n100 AcDbBlockBegin\n2 $MODEL\n"),
                             lifted("BLOCKS", lines));
        // A block of the user's from R13 on.
        CPPUNIT_ASSERT(lifted("BLOCKS", lines, dxf::ERelease::kR13).find("*Paper") == std::string::npos);
    }

    void otherSectionsPassThrough()
    {
        std::string const lines = "0 LINE\n8 0\n10 1\n0 DIMSTYLE\n5 A\n";
        for (char const* const name : {"OBJECTS", "CLASSES", "MINE"})
            CPPUNIT_ASSERT_EQUAL_MESSAGE(name, std::string("0 LINE\n8 0\n10 1\n0 DIMSTYLE\n5 #A\n"),
                                         lifted(name, lines));
    }

    void placesOfTags()
    {
        liftedText::Source source(section("ENTITIES", "0 POINT\n10 1\n20 2\n8 0\n"), dxf::ERelease::kR12);
        std::string places;
        for (OdDbTag tag; source->next(tag);)
            places += std::to_string(tag.code) + "@" + std::to_string(source->place()) + " ";
        // Markers stand where their record begins.
        CPPUNIT_ASSERT_EQUAL(std::string("0@1 2@3 0@5 100@5 8@11 100@5 10@7 20@9 0@13 "), places);
    }

    /// Whoever reads a record hears of damage to it behind its group 0, and in front of the next one.
    void damageIsToldWithinItsRecord()
    {
        liftedText::Source source(section("ENTITIES", "0 POINT\n10 1\n0 CIRCLE\n10 x\n40 3\n0 CUSTOM\n10 y\n"),
                                  dxf::ERelease::kR12);
        std::string log;
        source->setDamageListener(
            [&log](dxf::Damage const& damage) { log += "!" + std::to_string(damage.place) + " "; });
        for (OdDbTag tag; source->next(tag);)
            if (tag.code == 0)
                log += std::string(tag.text) + " ";
        CPPUNIT_ASSERT_EQUAL(std::string("SECTION POINT CIRCLE !12 CUSTOM !18 ENDSEC "), log);
    }

    void startsAgain()
    {
        liftedText::Source source(section("ENTITIES", "0 POINT\n10 1\n20 2\n8 0\n"), dxf::ERelease::kR12);
        OdDbTag tag;
        for (int i = 0; i < 4; ++i)
            source->next(tag);
        std::unique_ptr<dxf::TagSource> const again = source->fromStart();
        CPPUNIT_ASSERT_EQUAL(std::string("0 SECTION\n2 ENTITIES\n0 POINT\n100 AcDbEntity\n8 0\n100 AcDbPoint\n"
                                         "10 1\n20 2\n0 ENDSEC\n"),
                             liftedText::listing(*again));
        CPPUNIT_ASSERT_EQUAL(std::string("8 0\n100 AcDbPoint\n10 1\n20 2\n0 ENDSEC\n"),
                             liftedText::listing(*source));
    }
};

CPPUNIT_TEST_SUITE_REGISTRATION(LiftingTest);

} // namespace
