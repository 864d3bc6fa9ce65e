// STRETCH.
#include "host/app/ca_doc.h"
#include "host/db/od_db_database.h"
#include "tests/host/app/draw_script.h"

#include <cppunit/extensions/HelperMacros.h>

namespace {

class TestStretchCommand : public DrawScriptTest
{
    CPPUNIT_TEST_SUITE(TestStretchCommand);
    CPPUNIT_TEST(movesThePointsInTheWindow);
    CPPUNIT_TEST(takesTheLastCrossingRegion);
    CPPUNIT_TEST(movesWhatOtherAnswersSelected);
    CPPUNIT_TEST(worksInATurnedUserCoordinateSystem);
    CPPUNIT_TEST(prompts);
    CPPUNIT_TEST_SUITE_END();

public:
    void movesThePointsInTheWindow()
    {
        DrawnCase const cases[] = {
            {L"LINE|0,0|10,0||STRETCH|C|8,-1|12,1||0,0|5,3", L"LINE 0,0 15,3", 2},
            {L"LINE|0,0|10,0||S|12,1|8,-1||0,0|5,3", L"LINE 0,0 15,3", 2},
            {L"LINE|0,0|10,0||STRETCH|C|-1,-1|12,1||0,0|5,3", L"LINE 5,3 15,3", 2},
            {L"LINE|0,0|10,0||STRETCH|C|8,-1|12,1||5,3|", L"LINE 0,0 15,3", 2},
            {L"LINE|0,0|10,0||STRETCH|C|8,-1|12,1||D|5,3", L"LINE 0,0 15,3", 2},
            // It runs through the window, but no end lies in it.
            {L"LINE|0,0|10,0||STRETCH|C|4,-1|6,1||0,0|5,3", L"LINE 0,0 10,0", 1},
            {L"PLINE|0,0|10,0|10,5|0,5|C|STRETCH|C|9,-1|11,6||0,0|4,0", L"PLINE 0,0 14,0 14,5 0,5 closed", 2},
            // Round ones go as a whole when their center is caught.
            {L"CIRCLE|10,0|2|STRETCH|C|9,-1|12,1||0,0|5,3", L"CIRCLE 15,3 r2", 2},
            {L"CIRCLE|10,0|2|STRETCH|C|11,-1|13,1||0,0|5,3", L"CIRCLE 10,0 r2", 1},
            {L"TEXT|1,1|2|0|abc||STRETCH|C|0,0|2,2||0,0|5,3", L"TEXT abc 6,4 h2 r0", 2},
            // Arcs keep their height above the chord.
            {L"ARC|5,0|0,5|-5,0|STRETCH|C|4,-1|6,1||0,0|6,8", L"ARC 5.4597,-0.9193 r10.5 58.1532..174.9769", 2},
        };
        checkDrawn(cases);
    }

    void takesTheLastCrossingRegion()
    {
        DrawnCase const cases[] = {
            {L"LINE|0,0|10,0||STRETCH|CP|8,-1|12,-1|10,3|||0,0|5,3", L"LINE 0,0 15,3", 2},
            {L"LINE|0,0|10,0||STRETCH|C|8,-1|12,1|C|-1,-1|1,1||0,0|0,3", L"LINE 0,3 10,0", 2},
            {L"LINE|0,0|10,0||STRETCH|C|8,-1|12,1|W|-1,-1|11,1||0,0|0,3", L"LINE 0,0 10,3", 2},
        };
        checkDrawn(cases);
    }

    void movesWhatOtherAnswersSelected()
    {
        DrawnCase const cases[] = {
            {L"LINE|0,0|10,0||POINT|50,0|STRETCH|C|8,-1|12,1|50,0||0,0|5,3", L"LINE 0,0 15,3; POINT 55,3", 3},
            {L"LINE|0,0|10,0||STRETCH|W|-1,-1|11,1||0,0|5,3", L"LINE 5,3 15,3", 2},
            {L"LINE|0,0|10,0||STRETCH|ALL||0,0|5,3", L"LINE 5,3 15,3", 2},
        };
        checkDrawn(cases);
    }

    void worksInATurnedUserCoordinateSystem()
    {
        feed(L"LINE|0,0|0,10|");
        db().setHeaderPoint("UCSXDIR", {0, 1, 0});
        db().setHeaderPoint("UCSYDIR", {0, 0, 1});
        feed(L"STRETCH|C|8,-1|12,1||0,0|5,3");
        CPPUNIT_ASSERT_EQUAL(std::string("LINE 0,0 0,15,3"), drawn().toUtf8());
    }

    void prompts()
    {
        PromptCase const cases[] = {
            {L"STRETCH", L"Select objects: "},
            {L"POINT|0,0|STRETCH|ALL|", L"Specify base point or [Displacement] <Displacement>: "},
            {L"POINT|0,0|STRETCH|ALL||0,0", L"Specify second point or <use first point as displacement>: "},
        };
        checkPrompts(cases);
    }
};

CPPUNIT_TEST_SUITE_REGISTRATION(TestStretchCommand);

} // namespace
