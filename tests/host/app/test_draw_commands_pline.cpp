// PLINE in line and arc mode, fed with text answers.
#include "host/app/command_line.h"
#include "host/app/sds_cmd.h"
#include "host/db/od_db_database.h"
#include "tests/host/app/draw_script.h"

#include <cppunit/extensions/HelperMacros.h>

#include <algorithm>

namespace {

class TestDrawPline : public DrawScriptTest
{
    CPPUNIT_TEST_SUITE(TestDrawPline);
    CPPUNIT_TEST(lineMode);
    CPPUNIT_TEST(widths);
    CPPUNIT_TEST(widthIsRememberedAndUndone);
    CPPUNIT_TEST(arcMode);
    CPPUNIT_TEST(arcOptions);
    CPPUNIT_TEST(refusals);
    CPPUNIT_TEST(prompts);
    CPPUNIT_TEST(refusedAnswerAndCancelKeepWhatWasDrawn);
    CPPUNIT_TEST_SUITE_END();

public:
    void lineMode()
    {
        DrawnCase const cases[] = {
            {L"PLINE|0,0|10,0|10,5|", L"PLINE 0,0 10,0 10,5"},
            {L"PL|0,0,3|10,0,3|10,5,3|C", L"PLINE 0,0,3 10,0,3 10,5,3 closed"},
            {L"PLINE|0,0|10,0|U|0,5|", L"PLINE 0,0 0,5"},
            {L"PLINE|0,0|10,0|10,5|U|@1,1|", L"PLINE 0,0 10,0 11,1"},
            {L"PLINE|0,0|10,0|10,5|U|U|U|1,1|", L"PLINE 0,0 1,1"},
            {L"PLINE|0,0|3,4|L|5|", L"PLINE 0,0 3,4 6,8"},
            // Without a segment, a length goes on in the direction of the last line.
            {L"LINE|0,0|0,9||PLINE|0,0|L|5|@1,0|", L"LINE 0,0 0,9; PLINE 0,0 0,5 1,5", 2},
        };
        checkDrawn(cases);
    }

    void widths()
    {
        DrawnCase const cases[] = {
            {L"PLINE|0,0|W|2||10,0|10,5|", L"PLINE 0,0 10,0 10,5 w2"},
            {L"PLINE|0,0|W|0|2|10,0|10,5|", L"PLINE 0,0[0-2] 10,0[2-2] 10,5[2-2]"},
            {L"PLINE|0,0|10,0|W|3|1|10,5|C", L"PLINE 0,0[0-0] 10,0[3-1] 10,5[1-1] closed"},
            {L"PLINE|0,0|H|1|2|10,0|", L"PLINE 0,0[2-4] 10,0[4-4]"},
            {L"PLINE|0,0|A|H|1||D|90|10,0|", L"PLINE 0,0~-1 10,0 w2"},
            {L"PLINE|0,0|A|W|0,3||L|10,0|", L"PLINE 0,0 10,0 w3"},
            // Taken back, the segment's widths are those of the next one again.
            {L"PLINE|0,0|10,0|W|3|1|10,5|U|10,7|", L"PLINE 0,0[0-0] 10,0[3-1] 10,7[1-1]"},
        };
        checkDrawn(cases);
    }

    void widthIsRememberedAndUndone()
    {
        feed(L"PLINE|0,0|W|0|2|5,0|");
        CPPUNIT_ASSERT_EQUAL(2.0, db().header().real("PLINEWID"));
        feed(L"PLINE|0,9");
        auto const& lines = ca::app()->commandLine().lines();
        CPPUNIT_ASSERT(std::find(lines.begin(), lines.end(), L"Current line-width is 2") != lines.end());
        feed(L"5,9|");
        CPPUNIT_ASSERT_EQUAL(std::string("PLINE 0,0[0-2] 5,0[2-2]; PLINE 0,9 5,9 w2"), drawn().toUtf8());
        feed(L"U|U");
        CPPUNIT_ASSERT_EQUAL(0.0, db().header().real("PLINEWID"));
    }

    void arcMode()
    {
        DrawnCase const cases[] = {
            {L"PLINE|0,0|10,0|A|10,10|", L"PLINE 0,0 10,0~1 10,10"},
            {L"PLINE|0,0|10,0|A|10,10|L|0,10|", L"PLINE 0,0 10,0~1 10,10 0,10"},
            {L"PLINE|0,0|10,0|A|10,10|L|L|4|", L"PLINE 0,0 10,0~1 10,10 6,10"},
            {L"PLINE|0,0|10,0|A|10,10|0,0|", L"PLINE 0,0 10,0~1 10,10~0.4142 0,0"},
            {L"PLINE|0,0|10,0|A|10,10|CL", L"PLINE 0,0 10,0~1 10,10~0.4142 closed"},
            {L"PLINE|0,0|10,0|A|10,10|U|10,-10|", L"PLINE 0,0 10,0~-1 10,-10"},
            {L"PLINE|0,0|10,0|A|10,10|L|U|20,0|", L"PLINE 0,0 10,0 20,0"},
        };
        checkDrawn(cases);
    }

    void arcOptions()
    {
        DrawnCase const cases[] = {
            {L"PLINE|0,0|A|A|90|10,0|", L"PLINE 0,0~0.4142 10,0"},
            {L"PLINE|5,0|A|A|90|CE|0,0|", L"PLINE 5,0~0.4142 0,5"},
            {L"PLINE|5,0|A|A|-90|CE|0,0|", L"PLINE 5,0~-0.4142 0,-5"},
            {L"PLINE|0,0|A|A|180|R|5|0|", L"PLINE 0,0~1 10,0"},
            {L"PLINE|0,0|0,5|A|A|180|R|5||", L"PLINE 0,0 0,5~1 0,15"},
            {L"PLINE|5,0|A|CE|0,0|0,9|", L"PLINE 5,0~0.4142 0,5"},
            {L"PLINE|5,0|A|CE|0,0|A|90|", L"PLINE 5,0~0.4142 0,5"},
            {L"PLINE|5,0|A|CE|0,0|L|5|", L"PLINE 5,0~0.2679 2.5,4.3301"},
            {L"PLINE|0,0|A|D|90|10,0|", L"PLINE 0,0~-1 10,0"},
            {L"PLINE|5,0|A|R|5|0,5|", L"PLINE 5,0~0.4142 0,5"},
            {L"PLINE|5,0|A|R|-5|0,5|", L"PLINE 5,0~2.4142 0,5"},
            {L"PLINE|0,0|A|R|5|A|180|0|", L"PLINE 0,0~1 10,0"},
            {L"PLINE|5,0|A|S|0,5|-5,0|", L"PLINE 5,0~1 -5,0"},
            // What follows is tangent to the arc, whatever gave it.
            {L"PLINE|5,0|A|S|0,5|-5,0|L|L|3|", L"PLINE 5,0~1 -5,0 -5,-3"},
        };
        checkDrawn(cases);
    }

    void refusals()
    {
        RefusedCase const cases[] = {
            {L"PLINE|0,0|C", L"Point or option keyword required."},
            {L"PLINE|0,0|W|-1", L"Value must not be negative."},
            {L"PLINE|0,0|1,0|A|0,0", L"No arc segment ends there."},
            {L"PLINE|0,0|A|S|1,0|2,0", L"The three points lie on a line."},
            {L"PLINE|0,0|A|A|360", L"The included angle must not be zero or a full turn."},
            {L"PLINE|0,0|A|R|1|9,0", L"The points are farther apart than the diameter."},
            {L"PLINE|0,0|A|CE|0,0", L"The center lies at the start of the arc."},
            {L"PLINE|5,0|A|CE|0,0|9,0", L"No arc segment ends there."},
            {L"PLINE|5,0|A|CE|0,0|L|11", L"The chord is longer than the diameter of the arc."},
        };
        checkRefused(cases);
    }

    void prompts()
    {
        PromptCase const cases[] = {
            {L"PLINE", L"Specify start point: "},
            {L"PLINE|0,0", L"Specify next point or [Arc/Halfwidth/Length/Undo/Width]: "},
            {L"PLINE|0,0|1,0", L"Specify next point or [Arc/Close/Halfwidth/Length/Undo/Width]: "},
            {L"PLINE|0,0|A", L"Specify endpoint of arc or [Angle/CEnter/Direction/Halfwidth/Line/Radius/"
                             L"Second pt/Undo/Width]: "},
            {L"PLINE|0,0|1,0|A", L"Specify endpoint of arc or [Angle/CEnter/CLose/Direction/Halfwidth/Line/"
                                 L"Radius/Second pt/Undo/Width]: "},
            {L"PLINE|0,0|W", L"Specify starting width <0>: "},
            {L"PLINE|0,0|W|1.5", L"Specify ending width <1.5>: "},
            {L"PLINE|0,0|H|1.5", L"Specify ending half-width <1.5>: "},
            {L"PLINE|0,0|0,5|A|A|180|R|5", L"Specify direction of chord for arc <90>: "},
        };
        checkPrompts(cases);
    }

    void refusedAnswerAndCancelKeepWhatWasDrawn()
    {
        CPPUNIT_ASSERT_EQUAL(int(RTERROR), feed(L"PLINE|0,0|10,0|nonsense"));
        feed(L"PLINE|0,5|10,5");
        sds_cmd(nullptr);
        feed(L"PLINE|0,9");
        sds_cmd(nullptr);
        CPPUNIT_ASSERT_EQUAL(std::string("PLINE 0,0 10,0; PLINE 0,5 10,5"), drawn().toUtf8());
        feed(L"U|U");
        CPPUNIT_ASSERT_EQUAL(std::string(), drawn().toUtf8());
    }
};
CPPUNIT_TEST_SUITE_REGISTRATION(TestDrawPline);

} // namespace
