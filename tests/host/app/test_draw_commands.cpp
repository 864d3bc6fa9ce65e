// LINE, CIRCLE, ARC and POINT, fed with text answers.
#include "host/app/ca_doc.h"
#include "host/app/command_line.h"
#include "host/app/sds_cmd.h"
#include "host/db/entities/od_db_line.h"
#include "host/db/od_db_database.h"
#include "host/db/records/od_db_block_table_record.h"
#include "tests/host/app/draw_script.h"

#include <cppunit/extensions/HelperMacros.h>

#include <algorithm>

namespace {

class TestDrawCommands : public DrawScriptTest
{
    CPPUNIT_TEST_SUITE(TestDrawCommands);
    CPPUNIT_TEST(lines);
    CPPUNIT_TEST(linesBehindArcs);
    CPPUNIT_TEST(circles);
    CPPUNIT_TEST(arcs);
    CPPUNIT_TEST(arcsThatContinue);
    CPPUNIT_TEST(refusals);
    CPPUNIT_TEST(prompts);
    CPPUNIT_TEST(pointSaysItsModes);
    CPPUNIT_TEST(tiltedUserCoordinateSystem);
    CPPUNIT_TEST(entitiesTakeTheThickness);
    CPPUNIT_TEST(cancelledLineLeavesWhatWasDrawn);
    CPPUNIT_TEST_SUITE_END();

public:
    void lines()
    {
        DrawnCase const cases[] = {
            {L"LINE|0,0|10,0|10,5|", L"LINE 0,0 10,0; LINE 10,0 10,5"},
            {L"_.l|0,0|10,0|10,5|C", L"LINE 0,0 10,0; LINE 10,0 10,5; LINE 10,5 0,0"},
            {L"LINE|0,0|10,0|U|0,7|", L"LINE 0,0 0,7"},
            {L"LINE|1,1|@2,0|@0,3|U|@1,1|", L"LINE 1,1 3,1; LINE 3,1 4,2"},
            {L"LINE|0,0|U|1,1,1|", L"LINE 0,0 1,1,1"},
            {L"LINE|0,0|3,4||LINE||9,9|", L"LINE 0,0 3,4; LINE 3,4 9,9", 2},
            {L"LINE|0,0|4,0|4,3|C|LINE||9,9|", L"LINE 0,0 4,0; LINE 4,0 4,3; LINE 4,3 0,0; LINE 0,0 9,9", 2},
            // Something else drawn in between does not matter.
            {L"LINE|0,0|3,4||POINT|7,7|LINE||9,9|", L"LINE 0,0 3,4; POINT 7,7; LINE 3,4 9,9", 3},
        };
        checkDrawn(cases);
        CPPUNIT_ASSERT_EQUAL(int(RTNORM), feed(L"LINE|0,0|U"));
        auto const& lines = ca::app()->commandLine().lines();
        CPPUNIT_ASSERT(std::find(lines.begin(), lines.end(), L"All segments already undone.") != lines.end());
    }

    void linesBehindArcs()
    {
        DrawnCase const cases[] = {
            // Drawn clockwise: the end is where the drawing entity starts.
            {L"ARC|0,0|5,5|10,0|LINE||4|", L"ARC 5,0 r5 0..180; LINE 10,0 10,-4", 2},
            {L"ARC|10,0|5,5|0,0|LINE||4|", L"ARC 5,0 r5 0..180; LINE 0,0 0,-4", 2},
            {L"ARC|10,0|5,5|0,0|LINE||4|5,-4|", L"ARC 5,0 r5 0..180; LINE 0,0 0,-4; LINE 0,-4 5,-4", 2},
            // The last point lies elsewhere: the end point of the entity.
            {L"ARC|0,0|5,5|10,0|POINT|99,99|LINE||4|", L"ARC 5,0 r5 0..180; POINT 99,99; LINE 0,0 0,-4", 3},
        };
        checkDrawn(cases);
    }

    void circles()
    {
        DrawnCase const cases[] = {
            {L"CIRCLE|1,2|3", L"CIRCLE 1,2 r3"},
            {L"C|1,2,5|1,6,5", L"CIRCLE 1,2,5 r4"},
            {L"CIRCLE|1,2|D|6", L"CIRCLE 1,2 r3"},
            {L"CIRCLE|0,0|5|CIRCLE|9,0||CIRCLE|0,9|D|", L"CIRCLE 0,0 r5; CIRCLE 9,0 r5; CIRCLE 0,9 r5", 3},
            {L"CIRCLE|2P|0,0|10,0|CIRCLE|0,0|", L"CIRCLE 5,0 r5; CIRCLE 0,0 r5", 2},
            {L"CIRCLE|3P|5,0,1|0,5,1|-5,0,1", L"CIRCLE 0,0,1 r5"},
        };
        checkDrawn(cases);
    }

    void arcs()
    {
        DrawnCase const cases[] = {
            {L"ARC|5,0|0,5|-5,0", L"ARC 0,0 r5 0..180"},     {L"A|-5,0,2|0,5,2|5,0,2", L"ARC 0,0,2 r5 0..180"},
            {L"ARC|5,0|C|0,0|0,9", L"ARC 0,0 r5 0..90"},     {L"ARC|5,0|C|0,0|A|60", L"ARC 0,0 r5 0..60"},
            {L"ARC|5,0|C|0,0|A|-60", L"ARC 0,0 r5 300..0"},  {L"ARC|5,0|C|0,0|L|5", L"ARC 0,0 r5 0..60"},
            {L"ARC|5,0|C|0,0|L|-5", L"ARC 0,0 r5 0..300"},   {L"ARC|5,0|E|0,9|0,0", L"ARC 0,0 r5 0..90"},
            {L"ARC|5,0|E|-5,0|A|180", L"ARC 0,0 r5 0..180"}, {L"ARC|5,0|E|-5,0|A|-180", L"ARC 0,0 r5 180..0"},
            {L"ARC|5,0|E|-5,0|D|90", L"ARC 0,0 r5 0..180"},  {L"ARC|5,0|E|-5,0|D|5,-9", L"ARC 0,0 r5 180..0"},
            {L"ARC|5,0|E|0,5|R|5", L"ARC 0,0 r5 0..90"},     {L"ARC|5,0|E|0,5|R|-5", L"ARC 5,5 r5 270..180"},
            {L"ARC|C|0,0|5,0|0,5", L"ARC 0,0 r5 0..90"},     {L"ARC|C|0,0|5,0|A|90", L"ARC 0,0 r5 0..90"},
            {L"ARC|C|0,0|5,0|L|5", L"ARC 0,0 r5 0..60"},
        };
        checkDrawn(cases);
    }

    void arcsThatContinue()
    {
        DrawnCase const cases[] = {
            {L"LINE|0,0|5,0||ARC||10,5", L"LINE 0,0 5,0; ARC 5,5 r5 270..0", 2},
            {L"PLINE|0,0|5,0||ARC||10,5", L"PLINE 0,0 5,0; ARC 5,5 r5 270..0", 2},
            // Goes on downwards from (10, 0), where the first arc was drawn to.
            {L"ARC|0,0|5,5|10,0|ARC||20,0", L"ARC 5,0 r5 0..180; ARC 15,0 r5 180..0", 2},
        };
        checkDrawn(cases);
    }

    void refusals()
    {
        RefusedCase const cases[] = {
            {L"LINE|", L"No line or arc to continue."},
            {L"LINE|0,0|C", L"Point or option keyword required."},
            {L"CIRCLE|0,0|0", L"Value must be positive and nonzero."},
            {L"CIRCLE|0,0|D|-2", L"Value must be positive and nonzero."},
            {L"CIRCLE|2P|1,1|1,1", L"The two points are the same."},
            {L"CIRCLE|3P|0,0|1,1|2,2", L"The three points lie on a line."},
            {L"ARC|", L"No line or arc to continue."},
            {L"ARC|0,0|1,1|2,2", L"The three points lie on a line."},
            {L"ARC|5,0|C|5,0|0,5", L"Two of the points are the same."},
            {L"ARC|5,0|C|0,0|A|360", L"The included angle must not be zero or a full turn."},
            {L"ARC|5,0|C|0,0|L|11", L"The chord is longer than the diameter of the arc."},
            {L"ARC|5,0|E|5,0", L"Two of the points are the same."},
            {L"ARC|0,0|E|10,0|A|720", L"The included angle must not be zero or a full turn."},
            {L"ARC|0,0|E|10,0|D|180", L"No arc of that direction ends there."},
            {L"ARC|0,0|E|10,0|D|0", L"The arc would be straight."},
            {L"ARC|0,0|E|10,0|R|3", L"The points are farther apart than the diameter."},
            {L"LINE|0,0|5,0||ARC||9,0", L"No tangent arc ends there."},
        };
        checkRefused(cases);
    }

    void prompts()
    {
        PromptCase const cases[] = {
            {L"LINE", L"Specify first point: "},
            {L"LINE|0,0", L"Specify next point or [Undo]: "},
            {L"LINE|0,0|1,0|1,1", L"Specify next point or [Close/Undo]: "},
            {L"ARC|0,0|5,5|10,0|LINE|", L"Length of line: "},
            {L"CIRCLE", L"Specify center point for circle or [3P/2P]: "},
            {L"CIRCLE|0,0|2.5|CIRCLE|1,1", L"Specify radius of circle or [Diameter] <2.5>: "},
            {L"CIRCLE|0,0|2.5|CIRCLE|1,1|D", L"Specify diameter of circle <5>: "},
            {L"ARC", L"Specify start point of arc or [Center]: "},
            {L"ARC|0,0", L"Specify second point of arc or [Center/End]: "},
            {L"ARC|0,0|C|5,0", L"Specify end point of arc or [Angle/chord Length]: "},
            {L"ARC|0,0|E|5,0", L"Specify center point of arc or [Angle/Direction/Radius]: "},
            {L"POINT", L"Specify a point: "},
        };
        checkPrompts(cases);
    }

    void pointSaysItsModes()
    {
        db().setHeaderInteger("PDMODE", 70, 34);
        db().setHeaderReal("PDSIZE", 40, -2.5);
        feed(L"POINT|1,2,3");
        CPPUNIT_ASSERT_EQUAL(std::string("POINT 1,2,3"), drawn().toUtf8());
        auto const& lines = ca::app()->commandLine().lines();
        CPPUNIT_ASSERT(std::find(lines.begin(), lines.end(), L"Current point modes:  PDMODE=34  PDSIZE=-2.5000") !=
                       lines.end());
    }

    /// X up, Y back, so that Z is the world's X; the X axis of the entities' plane is the world's Y.
    void tiltedUserCoordinateSystem()
    {
        db().setHeaderPoint("UCSORG", {7, 0, 0});
        db().setHeaderPoint("UCSXDIR", {0, 0, 1});
        db().setHeaderPoint("UCSYDIR", {0, -1, 0});
        feed(L"CIRCLE|5,6|2");
        feed(L"ARC|5,0|C|0,0|0,5");
        feed(L"ARC|5,0|E|-5,0|D|90");
        feed(L"PLINE|0,0|10,0|L|2|");
        feed(L"TEXT|1,2|3|0|a|b|");
        CPPUNIT_ASSERT_EQUAL(std::string("CIRCLE 7,-6,5 r2 n1,0; "
                                         "ARC 7,0 r5 90..180 n1,0; "
                                         "ARC 7,0 r5 90..270 n1,0; "
                                         "PLINE 7,0 7,0,10 7,0,12 n1,0; "
                                         "TEXT a 7,-2,1 h3 r90 n1,0; TEXT b 7,3,1 h3 r90 n1,0"),
                             drawn().toUtf8());
        feed(L"LINE|0,0|1,0|");
        CPPUNIT_ASSERT_DOUBLES_EQUAL(0, ca::curDoc()->lastAngle(), 1e-12);
    }

    void entitiesTakeTheThickness()
    {
        db().setHeaderReal("THICKNESS", 40, 2);
        feed(L"LINE|0,0|1,0|");
        auto const space = db().getModelSpaceId().open<OdDbBlockTableRecord>();
        OdDbLinePtr const line = space->newIterator().entity();
        CPPUNIT_ASSERT_EQUAL(2.0, line->thickness());
    }

    void cancelledLineLeavesWhatWasDrawn()
    {
        feed(L"LINE|0,0|1,0|2,0");
        sds_cmd(nullptr);
        CPPUNIT_ASSERT_EQUAL(std::string("LINE 0,0 1,0; LINE 1,0 2,0"), drawn().toUtf8());
        feed(L"U");
        CPPUNIT_ASSERT_EQUAL(std::string(), drawn().toUtf8());
    }
};
CPPUNIT_TEST_SUITE_REGISTRATION(TestDrawCommands);

} // namespace
