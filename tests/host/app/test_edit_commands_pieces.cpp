// -ARRAY and EXPLODE.
#include "host/app/ca_doc.h"
#include "host/db/entities/od_db_polyline.h"
#include "host/db/od_db_database.h"
#include "host/db/records/od_db_block_table_record.h"
#include "host/db/records/od_db_layer_table_record.h"
#include "tests/host/app/draw_script.h"

#include <cppunit/extensions/HelperMacros.h>

namespace {

class TestPiecesCommands : public DrawScriptTest
{
    CPPUNIT_TEST_SUITE(TestPiecesCommands);
    CPPUNIT_TEST(rectangularArrays);
    CPPUNIT_TEST(polarArrays);
    CPPUNIT_TEST(arraysInATurnedUserCoordinateSystem);
    CPPUNIT_TEST(explodes);
    CPPUNIT_TEST(explodesReferences);
    CPPUNIT_TEST(saysWhatCannotBeExploded);
    CPPUNIT_TEST(refusals);
    CPPUNIT_TEST(prompts);
    CPPUNIT_TEST_SUITE_END();

public:
    void rectangularArrays()
    {
        DrawnCase const cases[] = {
            {L"POINT|0,0|-ARRAY|ALL||R|2|3|10|5",
             L"POINT 0,0; POINT 5,0; POINT 10,0; POINT 0,10; POINT 5,10; POINT 10,10", 2},
            {L"POINT|0,0|-AR|ALL|||1|3|-4", L"POINT 0,0; POINT -4,0; POINT -8,0", 2},
            {L"POINT|0,0|-ARRAY|ALL||R|3||4", L"POINT 0,0; POINT 0,4; POINT 0,8", 2},
            {L"POINT|0,0|-ARRAY|ALL||R|2|2|1,1|-4,7", L"POINT 0,0; POINT -5,0; POINT 0,6; POINT -5,6", 2},
        };
        checkDrawn(cases);
        tearDown();
        setUp();
        feed(L"SNAPANG|90|POINT|0,0|-ARRAY|ALL||R|2|2|10|5");
        CPPUNIT_ASSERT_EQUAL(std::string("POINT 0,0; POINT 0,5; POINT -10,0; POINT -10,5"), drawn().toUtf8());
    }

    void polarArrays()
    {
        DrawnCase const cases[] = {
            {L"LINE|10,0|11,0||-ARRAY|ALL||P|0,0|4||",
             L"LINE 10,0 11,0; LINE 0,10 0,11; LINE -10,0 -11,0; LINE 0,-10 0,-11", 2},
            {L"LINE|10,0|11,0||-ARRAY|ALL||P|0,0|3|-180|Y", L"LINE 10,0 11,0; LINE 0,-10 0,-11; LINE -10,0 -11,0",
             2},
            // Keeps its direction; the start of the line goes round.
            {L"LINE|10,0|11,0||-ARRAY|ALL||P|0,0|3|180|N", L"LINE 10,0 11,0; LINE 0,10 1,10; LINE -10,0 -9,0", 2},
            {L"LINE|10,0|11,0||-ARRAY|ALL||P|B|11,0|0,0|3|180|N",
             L"LINE 10,0 11,0; LINE -1,11 0,11; LINE -12,0 -11,0", 2},
            {L"CIRCLE|10,0|1|-ARRAY|ALL||P|0,0|2|180|N", L"CIRCLE 10,0 r1; CIRCLE -10,0 r1", 2},
            {L"POINT|10,0|-ARRAY|ALL||P|0,0||180|90|", L"POINT 10,0; POINT 0,10; POINT -10,0", 2},
            {L"POINT|10,0|-ARRAY|ALL||P|0,0||-90|45|", L"POINT 10,0; POINT 7.0711,-7.0711; POINT 0,-10", 2},
            {L"POINT|10,0|-ARRAY|ALL||P|0,0|||90|", L"POINT 10,0; POINT 0,10; POINT -10,0; POINT 0,-10", 2},
            {L"POINT|10,0|-ARRAY|ALL||P|0,0|3|0|90|", L"POINT 10,0; POINT 0,10; POINT -10,0", 2},
            // The last type is offered again.
            {L"POINT|10,0|-ARRAY|ALL||P|0,0|2|||-ARRAY|L|||0,5|2||", L"POINT 10,0; POINT -10,0; POINT 10,10", 3},
        };
        checkDrawn(cases);
    }

    void arraysInATurnedUserCoordinateSystem()
    {
        feed(L"POINT|0,0");
        db().setHeaderPoint("UCSXDIR", {0, 1, 0});
        db().setHeaderPoint("UCSYDIR", {0, 0, 1});
        feed(L"-ARRAY|ALL||R|2|2|10|5|-ARRAY|L||P|0,0|2||");
        CPPUNIT_ASSERT_EQUAL(
            std::string("POINT 0,0; POINT 0,5; POINT 0,0,10; POINT 0,5,10; POINT 0,-5,-10 n0,0,-1"),
            drawn().toUtf8());
    }

    void explodes()
    {
        DrawnCase const cases[] = {
            {L"PLINE|0,0|10,0|A|10,10||EXPLODE|ALL|", L"LINE 0,0 10,0; ARC 10,5 r5 270..90", 2},
            {L"PLINE|0,0|10,0|10,10|C|X|ALL|", L"LINE 0,0 10,0; LINE 10,0 10,10; LINE 10,10 0,0", 2},
            {L"3DPOLY|0,0,0|10,0,0|10,0,10||EXPLODE|ALL|", L"LINE 0,0 10,0; LINE 10,0 10,0,10", 2},
            {L"CIRCLE|0,0|1|EXPLODE|ALL|", L"CIRCLE 0,0 r1", 1},
        };
        checkDrawn(cases);
    }

    /// The contents of the block come out at their place; unequal factors make ellipses.
    void explodesReferences()
    {
        feed(L"CIRCLE|1,0|1|-BLOCK|B|0,0|ALL||-INSERT|B|10,0|2|2|90|EXPLODE|L|");
        CPPUNIT_ASSERT_EQUAL(std::string("CIRCLE 10,2 r2"), drawn().toUtf8());
        feed(L"ERASE|ALL||-INSERT|B|10,0|1|3|0|EXPLODE|L|");
        CPPUNIT_ASSERT(drawn().startsWith(L"ELLIPSE center 11,0 major axis 0,3 minor axis -1,0 "));
    }

    void saysWhatCannotBeExploded()
    {
        feed(L"POINT|0,0|LINE|0,0|1,0||PLINE|0,0|10,0||EXPLODE|ALL|");
        CPPUNIT_ASSERT_EQUAL(std::string("POINT 0,0; LINE 0,0 1,0; LINE 0,0 10,0"), drawn().toUtf8());
        CPPUNIT_ASSERT_EQUAL(std::string("2 objects could not be exploded."), lastPrompt().toUtf8());
    }

    void refusals()
    {
        RefusedCase const cases[] = {
            {L"POINT|0,0|-ARRAY|ALL||R|1|1", L"An array of one element: nothing to do."},
            {L"POINT|0,0|-ARRAY|ALL||R|0", L"Value must be at least 1."},
            {L"POINT|0,0|-ARRAY|ALL||R|2|1|0", L"Value must be nonzero."},
            {L"POINT|0,0|-ARRAY|ALL||R|2|2|1,1|1,5", L"The unit cell has no width or no height."},
            {L"POINT|0,0|-ARRAY|ALL||R|100000|3", L"The array would have more than 100000 objects (MAXARRAY)."},
            {L"POINT|0,0|-ARRAY|ALL||P|0,0|1", L"Value must be at least 2."},
            {L"POINT|0,0|-ARRAY|ALL||P|0,0||0", L"Value must be nonzero."},
            {L"POINT|0,0|-ARRAY|ALL||P|0,0||30|45", L"An array of one element: nothing to do."},
            {L"POINT|0,0|-ARRAY|ALL||P|0,0|||0.0001",
             L"The array would have more than 100000 objects (MAXARRAY)."},
        };
        checkRefused(cases);
    }

    void prompts()
    {
        PromptCase const cases[] = {
            {L"POINT|0,0|-ARRAY|ALL|", L"Enter the type of array [Rectangular/Polar] <R>: "},
            {L"POINT|0,0|-ARRAY|ALL||R", L"Enter the number of rows (---) <1>: "},
            {L"POINT|0,0|-ARRAY|ALL||R|2", L"Enter the number of columns (|||) <1>: "},
            {L"POINT|0,0|-ARRAY|ALL||R|2|2", L"Enter the distance between rows or specify unit cell (---): "},
            {L"POINT|0,0|-ARRAY|ALL||R|2|2|5", L"Specify the distance between columns (|||): "},
            {L"POINT|0,0|-ARRAY|ALL||P", L"Specify center point of array or [Base]: "},
            {L"POINT|0,0|-ARRAY|ALL||P|5,5", L"Enter the number of items in the array: "},
            {L"POINT|0,0|-ARRAY|ALL||P|5,5|4", L"Specify the angle to fill (+=ccw, -=cw) <360>: "},
            {L"POINT|0,0|-ARRAY|ALL||P|5,5||90", L"Specify angle between items: "},
            {L"POINT|0,0|-ARRAY|ALL||P|5,5|4|", L"Rotate arrayed objects? [Yes/No] <Y>: "},
        };
        checkPrompts(cases);
    }
};

CPPUNIT_TEST_SUITE_REGISTRATION(TestPiecesCommands);

} // namespace
