// Object selection by polygons, fences and groups, and what entities of each kind are found by.
#include "host/app/ca_doc.h"
#include "host/app/ca_ucs_op.h"
#include "host/app/command_line.h"
#include "host/app/command_processor.h"
#include "host/app/sds_cmd.h"
#include "host/db/od_db_database.h"
#include "host/db/records/od_db_dictionary.h"
#include "host/db/records/od_db_group.h"
#include "tests/host/app/selection_script.h"

#include <cppunit/extensions/HelperMacros.h>

namespace {

class TestSelectionRegions : public SelectionScriptTest
{
    CPPUNIT_TEST_SUITE(TestSelectionRegions);
    CPPUNIT_TEST(polygonsWithAndWithoutCrossing);
    CPPUNIT_TEST(fences);
    CPPUNIT_TEST(pointsCanBeTakenBack);
    CPPUNIT_TEST(polygonsDoNotCrossThemselves);
    CPPUNIT_TEST(tooFewPointsSelectNothing);
    CPPUNIT_TEST(regionsAddAndRemove);
    CPPUNIT_TEST(curvesAreExact);
    CPPUNIT_TEST(endlessLines);
    CPPUNIT_TEST(filledAreas);
    CPPUNIT_TEST(regionsLieInTheUserCoordinateSystem);
    CPPUNIT_TEST(groupsByName);
    CPPUNIT_TEST(pickingAMemberPicksTheGroup);
    CPPUNIT_TEST_SUITE_END();

public:
    void setUp() override
    {
        DrawScriptTest::setUp();
        feed(L"LINE|0,0|10,0||"   // a
             L"CIRCLE|50,50|10|"  // b
             L"LINE|0,20|10,20||" // c
             L"POINT|5,30");      // d
        CPPUNIT_ASSERT_EQUAL(std::size_t(4), entities().size());
    }

    void polygonsWithAndWithoutCrossing()
    {
        check({
            {L"WP|-1,-1|11,-1|11,21|-1,21||", "ac"},
            {L"WP|-1,-1|11,-1|5,25|-1,21||", "a"},
            {L"CP|-1,-1|11,-1|5,25|-1,21||", "ac"},
            {L"CP|2,-1|3,-1|3,31|2,31||", "ac"},
            // A U whose legs hold both ends of each line, but not the middle.
            {L"WP|-1,-2|11,-2|11,21|8,21|8,-1|2,-1|2,21|-1,21||", ""},
            {L"CP|3,-1.5|7,-1.5|7,-0.5|3,-0.5||", ""},
            {L"CP|3,-1.5|7,-1.5|7,0|3,0||", "a"},
            {L"WP|4,29|6,29|5,31||", "d"},
            {L"WP|30,30|70,30|70,70|30,70||", "b"},
            {L"CP|45,45|55,45|50,55||", ""}, // within the circle
        });
    }

    void fences()
    {
        check({
            {L"F|5,-5|5,25||", "ac"},
            {L"F|5,-5|5,30||", "acd"}, // ends in the point
            {L"F|5,-5|5,-1|20,-1|20,20|9,20||", "c"},
            {L"F|45,45|55,55||", ""},
            {L"F|45,45|58,58||", "b"},
            {L"F|12,0|20,0||", ""},
            {L"F|9,0|20,0||", "a"},
            {L"F|2,25|8,25|8,19|5,27||", "c"}, // a fence may cross itself, and is not closed
        });
    }

    void pointsCanBeTakenBack()
    {
        check({
            {L"F|5,-5|5,25|U|5,5||", "a"},
            {L"F|5,-5|U|5,5||", "a"}, // the first point stays
            {L"WP|-1,-1|11,-1|50,50|U|11,21|-1,21||", "ac"},
        });
        feed(L"ERASE|F|5,-5|U");
        CPPUNIT_ASSERT_EQUAL(std::string("All segments already undone."), messageBefore());
    }

    void polygonsDoNotCrossThemselves()
    {
        std::string const refusal = "Invalid point: the sides of the polygon cannot touch or cross each other.";
        for (wchar_t const* const script : {
                 L"ERASE|CP|0,0|10,0|10,10|5,-5", // over the first side
                 L"ERASE|CP|0,0|10,0|10,10|5,0",  // touches it
                 L"ERASE|CP|0,0|10,0|10,10|0,0",  // the first point again
                 L"ERASE|CP|0,0|10,0|10,0",       // the same point
                 L"ERASE|CP|0,0|10,0|5,0",        // back along the side
                 L"ERASE|CP|0,0|10,0|-5,0",
             }) {
            CPPUNIT_ASSERT_EQUAL(int(RTNORM), feed(script));
            CPPUNIT_ASSERT_EQUAL_MESSAGE(OdString(script).toUtf8(), refusal, messageBefore());
            CPPUNIT_ASSERT_EQUAL(std::string("Specify endpoint of line or [Undo]: "), lastPrompt().toUtf8());
            sds_cmd(nullptr);
        }
        // The side that closes a polygon is looked at in the end.
        feed(L"ERASE|CP|0,0|10,0|10,10|4,10|4,5|8,5|8,8|6,8|");
        CPPUNIT_ASSERT_EQUAL(std::string("The side that closes the polygon cannot touch or cross the others."),
                             messageBefore());
        sds_cmd(nullptr);
        check({{L"CP|-1,-1|6,-1|6,0.5|5,-5|4,0.5|-1,1||", "a"}, {L"CP|0,0|5,0|10,0|10,1||", "a"}});
    }

    void tooFewPointsSelectNothing()
    {
        feed(L"ERASE|WP|0,0|10,0|");
        CPPUNIT_ASSERT_EQUAL(std::string("A polygon needs at least three points."), messageBefore());
        CPPUNIT_ASSERT_EQUAL(std::string("Select objects: "), lastPrompt().toUtf8());
        feed(L"F|0,0|");
        CPPUNIT_ASSERT_EQUAL(std::string("A fence needs at least two points."), messageBefore());
        CPPUNIT_ASSERT_EQUAL(std::string("Select objects: "), lastPrompt().toUtf8());
    }

    void regionsAddAndRemove()
    {
        check({
            {L"ALL|R|F|5,-5|5,25||A|WP|-1,-1|11,-1|11,1|-1,1||", "bda"},
            {L"F|5,-5|5,25||U|5,30", "d"},
        });
        PromptCase const prompts[] = {
            {L"ERASE|WP", L"Specify first polygon point: "},
            {L"ERASE|CP|1,1", L"Specify endpoint of line or [Undo]: "},
            {L"ERASE|F", L"Specify first fence point: "},
            {L"ERASE|F|1,1", L"Specify next fence point or [Undo]: "},
            {L"ERASE|G", L"Enter group name: "},
        };
        checkPrompts(prompts);
        RefusedCase const refused[] = {{L"ERASE|F|nowhere", L"Invalid point."},
                                       {L"ERASE|WP|1,1|2,2|Q", L"Point or option keyword required."}};
        checkRefused(refused);
    }

    void curvesAreExact()
    {
        feed(L"ELLIPSE|200,0|240,0|10|"                // e: about 220,0, 20 and 10
             L"SPLINE|300,0|310,10|320,0|330,10||||"); // f
        check({
            {L"F|200,-9|206,-9||", ""}, // in the box of the ellipse, beside it
            {L"F|220,-11|220,-9||", "e"},
            {L"WP|199,-11|241,-11|241,11|199,11||", "e"},
            {L"CP|215,-2|225,-2|225,2|215,2||", ""},
            {L"CP|202,7.5|205,7.5|202,10||", ""},
            {L"F|305,11|310,9.9||", "f"},
            {L"F|310,10.5|310,20||", ""},
            {L"F|310,10|310,20||", "f"}, // through a fit point
            {L"W|299,-2|331,12", "f"},
        });
    }

    void endlessLines()
    {
        feed(L"XLINE|0,100|10,110||RAY|0,-100|10,-100||"); // e, f
        check({
            {L"F|500,590|500,610||", "e"},
            {L"C|-999,-899|-998,-898", "e"},
            {L"C|500,500|510,510", ""},
            {L"F|400,-99|400,-101||", "f"},
            {L"F|-5,-99|-5,-101||", ""},
            {L"W|-2000,-2000|2000,2000", "abcd"},
            {L"700,-100", "f"},
        });
    }

    void filledAreas()
    {
        feed(L"SOLID|200,0|220,0|200,20|220,20||"   // e
             L"SOLID|300,0|320,0|320,20|300,20||"); // f: a bow tie, open at its sides
        check({
            {L"210,10", "e"},
            {L"F|205,5|206,6||", "e"},
            {L"CP|205,5|206,5|206,6||", "e"},
            {L"WP|199,-1|221,-1|221,21|199,21||", "e"},
            {L"F|301,9|301,11||", ""},
            {L"F|309,2|310,3||", "f"},
        });
    }

    void regionsLieInTheUserCoordinateSystem()
    {
        ca::UcsOp op(*ca::curDoc());
        op.set({0, 0, 7}, {0, 1, 0}, {0, 0, 1}); // looks along the world's X axis
        op.commit();
        check({
            // The lines lie in the world's XY plane: seen from here, each is a point at a height of -7.
            {L"WP|-1,-8|1,-8|1,-6|-1,-6||", "a"},
            {L"F|20,-10|20,0||", "c"},
            // The circle is seen from its side.
            {L"F|45,-8|45,-6||", "b"},
            {L"F|61,-8|61,-6||", ""},
            {L"WP|39,-8|61,-8|61,-6|39,-6||", "b"},
            {L"CP|-1,-6|100,-6|100,6|-1,6||", ""},
        });
    }

    void groupsByName()
    {
        makeGroup(L"PAIR", {3, 0}, true);
        makeGroup(L"LOOSE", {1, 2}, false);
        check({
            {L"G|PAIR", "da"},
            {L"g|loose", "bc"},
            {L"G|PAIR|R|5,0", ""}, // picks the group
            {L"G|NONE|5,20", "c"},
        });
        feed(L"ERASE|G|NONE");
        CPPUNIT_ASSERT_EQUAL(std::string("Group \"NONE\" does not exist."), messageBefore());
        sds_cmd(nullptr);
        feed(L"ERASE|G|LOOSE|");
        check({{L"G|LOOSE", ""}, {L"ALL", "ad"}});
        feed(L"U");
        check({{L"G|LOOSE", "bc"}});
    }

    void pickingAMemberPicksTheGroup()
    {
        makeGroup(L"PAIR", {3, 0}, true);
        makeGroup(L"MORE", {0, 1}, true);
        makeGroup(L"LOOSE", {0, 2}, false);
        check({
            {L"5,0", "adb"}, // all selectable groups that it is in
            {L"5,30", "da"},
            {L"5,20", "c"},
            {L"F|5,-5|5,5||", "adb"},
            {L"L", "d"},
        });
        feed(L"PICKSTYLE|0");
        check({{L"5,0", "a"}, {L"G|PAIR", "da"}});
        feed(L"PICKSTYLE|1");
    }

private:
    static void makeGroup(wchar_t const* name, std::vector<std::size_t> const& members, bool selectable)
    {
        auto const named = db().getNamedObjectsDictionaryId().open<OdDbDictionary>();
        auto const groups = named->getAt(L"ACAD_GROUP").open<OdDbDictionary>(OdDb::kForWrite);
        OdDbGroupPtr const group(new OdDbGroup);
        group->setSelectable(selectable);
        std::vector<OdDbObjectId> const all = entities();
        for (std::size_t const member : members)
            group->append(all[member]);
        groups->setAt(name, group.get());
    }
};

CPPUNIT_TEST_SUITE_REGISTRATION(TestSelectionRegions);

} // namespace
