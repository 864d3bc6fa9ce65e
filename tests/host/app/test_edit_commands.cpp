// ERASE, MOVE, COPY, U and SETVAR.
#include "host/app/ca_doc.h"
#include "host/app/command_line.h"
#include "host/app/sys_var.h"
#include "host/sds/sds.h"
#include "tests/host/app/draw_script.h"

#include <cppunit/extensions/HelperMacros.h>

#include <algorithm>

namespace {

class TestEditCommands : public DrawScriptTest
{
    CPPUNIT_TEST_SUITE(TestEditCommands);
    CPPUNIT_TEST(moves);
    CPPUNIT_TEST(copies);
    CPPUNIT_TEST(copyOnceAndInstead);
    CPPUNIT_TEST(displacementsAreInTheUserCoordinateSystem);
    CPPUNIT_TEST(undoBringsBackWhatWasErased);
    CPPUNIT_TEST(setsVariables);
    CPPUNIT_TEST(listsVariables);
    CPPUNIT_TEST(refusals);
    CPPUNIT_TEST(prompts);
    CPPUNIT_TEST_SUITE_END();

public:
    void moves()
    {
        DrawnCase const cases[] = {
            {L"CIRCLE|0,0|1|MOVE|ALL||0,0|5,2", L"CIRCLE 5,2 r1", 2},
            {L"CIRCLE|0,0|1|M|L||1,1|@5<90", L"CIRCLE 0,5 r1", 2},
            {L"CIRCLE|0,0|1|MOVE|ALL||3,4|", L"CIRCLE 3,4 r1", 2},
            {L"CIRCLE|0,0|1|MOVE|ALL||D|3,4,5", L"CIRCLE 3,4,5 r1", 2},
            {L"CIRCLE|0,0|1|MOVE|ALL|||3,4", L"CIRCLE 3,4 r1", 2},
            {L"CIRCLE|0,0|1|POINT|9,9|MOVE|1,0||0,0|7,0", L"CIRCLE 7,0 r1; POINT 9,9", 3},
            {L"CIRCLE|0,0|1|MOVE|", L"CIRCLE 0,0 r1", 1},
        };
        checkDrawn(cases);
    }

    void copies()
    {
        DrawnCase const cases[] = {
            {L"POINT|0,0|COPY|ALL||0,0|1,0|2,0|", L"POINT 0,0; POINT 1,0; POINT 2,0", 2},
            {L"POINT|0,0|COPY|ALL||0,0|1,0|2,0|U|3,0|E", L"POINT 0,0; POINT 1,0; POINT 3,0", 2},
            {L"POINT|0,0|CP|ALL||4,5|", L"POINT 0,0; POINT 4,5", 2},
            {L"POINT|0,0|COPY|ALL||D|4,5", L"POINT 0,0; POINT 4,5", 2},
            {L"POINT|0,0|LINE|0,1|5,1||CO|ALL||0,0|0,9|", L"POINT 0,0; LINE 0,1 5,1; POINT 0,9; LINE 0,10 5,10",
             3},
        };
        checkDrawn(cases);
    }

    void copyOnceAndInstead()
    {
        DrawnCase const cases[] = {
            {L"POINT|0,0|COPY|ALL||O|S|0,0|1,0", L"POINT 0,0; POINT 1,0", 2},
            {L"COPYMODE|1|POINT|0,0|COPY|ALL||0,0|1,0", L"POINT 0,0; POINT 1,0", 2},
            {L"COPYMODE|1|POINT|0,0|COPY|ALL||O|M|0,0|1,0|2,0|", L"POINT 0,0; POINT 1,0; POINT 2,0", 2},
        };
        checkDrawn(cases);
        CPPUNIT_ASSERT_EQUAL(int(RTNORM), feed(L"POINT|0,0|COPY|ALL||O|S|0,0|1,0"));
        CPPUNIT_ASSERT_EQUAL(std::string("1"), ca::SysVar::find(L"COPYMODE")->text().toUtf8());
    }

    void displacementsAreInTheUserCoordinateSystem()
    {
        feed(L"POINT|0,0");
        db().setHeaderPoint("UCSORG", {100, 0, 0});
        db().setHeaderPoint("UCSXDIR", {0, 1, 0});
        db().setHeaderPoint("UCSYDIR", {-1, 0, 0});
        feed(L"MOVE|ALL||3,1||MOVE|ALL||D|0,1|COPY|ALL||1,1|2,1|");
        CPPUNIT_ASSERT_EQUAL(std::string("POINT -2,3; POINT -2,4"), drawn().toUtf8());
    }

    void undoBringsBackWhatWasErased()
    {
        feed(L"POINT|10,10|CIRCLE|0,0|2|POINT|20,20|ERASE|10,10|20,20|");
        CPPUNIT_ASSERT_EQUAL(std::string("CIRCLE 0,0 r2"), drawn().toUtf8());
        feed(L"U");
        CPPUNIT_ASSERT_EQUAL(std::string("POINT 10,10; CIRCLE 0,0 r2; POINT 20,20"), drawn().toUtf8());
        feed(L"DELETE|ALL||U|U|U|U");
        CPPUNIT_ASSERT_EQUAL(std::string(), drawn().toUtf8());
    }

    void setsVariables()
    {
        struct
        {
            wchar_t const* script;
            wchar_t const* name;
            char const* text;
        } const cases[] = {
            {L"SETVAR|LTSCALE|2.5", L"LTSCALE", "2.5"},
            {L"SET|ltscale|", L"LTSCALE", "2.5"},
            {L"LTSCALE|3", L"LTSCALE", "3"},
            {L"SETVAR|PDMODE|34", L"PDMODE", "34"},
            {L"SETVAR|FILLMODE|OFF", L"FILLMODE", "0"},
            {L"SETVAR|SRCHPATH|/a;/b c", L"SRCHPATH", "/a;/b c"},
            {L"SETVAR|SRCHPATH|", L"SRCHPATH", "/a;/b c"},
            {L"SETVAR|SRCHPATH|.", L"SRCHPATH", ""},
            {L"LIMMAX|5,6", L"LIMMAX", "5,6"},
        };
        for (auto const& each : cases) {
            std::string const script = OdString(each.script).toUtf8();
            int const result = feed(each.script);
            CPPUNIT_ASSERT_EQUAL_MESSAGE(script + ": " + lastPrompt().toUtf8(), int(RTNORM), result);
            CPPUNIT_ASSERT_EQUAL_MESSAGE(script, std::string(each.text),
                                         ca::SysVar::find(each.name)->text().toUtf8());
        }
        feed(L"U|U|U|U|U");
        CPPUNIT_ASSERT_EQUAL(std::string("1"), ca::SysVar::find(L"LTSCALE")->text().toUtf8());
    }

    void listsVariables()
    {
        feed(L"SETVAR|?|LTSC*|SETVAR|dwgtitled");
        auto const& lines = ca::app()->commandLine().lines();
        CPPUNIT_ASSERT(std::find(lines.begin(), lines.end(), L"LTSCALE = 1") != lines.end());
        CPPUNIT_ASSERT_EQUAL(std::string("DWGTITLED = 0 (read only)"), lastPrompt().toUtf8());
    }

    void refusals()
    {
        RefusedCase const cases[] = {
            {L"SETVAR|NOSUCH", L"Unknown variable name \"NOSUCH\"."},
            {L"SETVAR|LTSCALE|0", L"Requires a number above 0."},
            {L"SETVAR|LTSCALE|big", L"Requires a number above 0."},
            {L"SETVAR|FILLMODE|2", L"Requires an integer between 0 and 1 only."},
            {L"SETVAR|CLAYER|WALLS", L"The drawing has nothing named \"WALLS\"."},
            {L"POINT|0,0|MOVE|ALL||here", L"Point or option keyword required."},
            {L"CIRCLE|0,0|1|COPY|ALL||O|Twice", L"Invalid option keyword."},
        };
        checkRefused(cases);
    }

    void prompts()
    {
        PromptCase const cases[] = {
            {L"POINT|0,0|MOVE|ALL|", L"Specify base point or [Displacement] <Displacement>: "},
            {L"POINT|0,0|MOVE|ALL||D", L"Specify displacement <0,0,0>: "},
            {L"POINT|0,0|MOVE|ALL||1,1", L"Specify second point or <use first point as displacement>: "},
            {L"POINT|0,0|COPY|ALL|", L"Specify base point or [Displacement/mOde] <Displacement>: "},
            {L"POINT|0,0|COPY|ALL||1,1|2,2", L"Specify second point or [Exit/Undo] <Exit>: "},
            {L"SETVAR", L"Enter variable name or [?]: "},
            {L"SETVAR|INSNAME", L"Enter new value for INSNAME <\"\">: "},
        };
        checkPrompts(cases);
    }
};

CPPUNIT_TEST_SUITE_REGISTRATION(TestEditCommands);

} // namespace
