// U, UNDO with all its options, REDO.
#include "tests/host/app/draw_script.h"

#include "host/app/ca_doc.h"
#include "host/app/command_line.h"
#include "host/app/sys_var.h"
#include "host/db/od_db_database.h"
#include "host/sds/sds.h"

#include <cppunit/extensions/HelperMacros.h>

namespace {

class UndoCommandsTest : public DrawScriptTest
{
    CPPUNIT_TEST_SUITE(UndoCommandsTest);
    CPPUNIT_TEST(drawsUndoesAndRedoes);
    CPPUNIT_TEST(namesWhatItDid);
    CPPUNIT_TEST(redoesUntilSomethingChanges);
    CPPUNIT_TEST(backWithoutAMarkAsks);
    CPPUNIT_TEST(controlsHowMuchIsKept);
    CPPUNIT_TEST(combinesViewsOnlyOnDemand);
    CPPUNIT_TEST(refusals);
    CPPUNIT_TEST(prompts);
    CPPUNIT_TEST(leavesAloneWhatIsNotTheDrawing);
    CPPUNIT_TEST_SUITE_END();

    static void run(OdString const& script)
    {
        CPPUNIT_ASSERT_EQUAL_MESSAGE(script.toUtf8(), int(RTNORM), feed(script));
    }
    static void checkLast(char const* expected)
    {
        CPPUNIT_ASSERT_EQUAL(std::string(expected), lastPrompt().toUtf8());
    }
    static void checkLeft(char const* expected) { CPPUNIT_ASSERT_EQUAL(std::string(expected), drawn().toUtf8()); }
    static int variable(wchar_t const* name) { return std::get<int>(ca::SysVar::find(name)->value()); }

public:
    void drawsUndoesAndRedoes()
    {
        DrawnCase const cases[] = {
            {L"POINT|1,1|POINT|2,2|UNDO|1|REDO", L"POINT 1,1; POINT 2,2", 2},
            {L"POINT|1,1|POINT|2,2|POINT|3,3|UNDO|2|POINT|4,4", L"POINT 1,1; POINT 4,4", 2},
            {L"UNDO|BE|POINT|1,1|POINT|2,2|UNDO|E|POINT|3,3", L"POINT 1,1; POINT 2,2; POINT 3,3", 2},
            {L"UNDO|BE|POINT|1,1|UNDO|BE|POINT|2,2|UNDO|END", L"POINT 1,1; POINT 2,2", 2},
            {L"POINT|1,1|UNDO|Mark|POINT|2,2|POINT|3,3|UNDO|Back|POINT|4,4", L"POINT 1,1; POINT 4,4", 2},
            {L"UNDO|M|POINT|1,1|UNDO|M|POINT|2,2|UNDO|B|UNDO|B|POINT|3,3", L"POINT 3,3", 1},
            {L"POINT|1,1|POINT|2,2|UNDO|B|Y|POINT|3,3", L"POINT 3,3", 1},
            {L"POINT|1,1|UNDO|BE|UNDO|E|U|POINT|2,2", L"POINT 2,2", 1},
        };
        checkDrawn(cases);
    }

    void namesWhatItDid()
    {
        run(L"POINT|1,1|CIRCLE|0,0|2|LINE|0,0|1,1||UNDO|2");
        checkLast("LINE CIRCLE");
        run(L"REDO");
        checkLast("CIRCLE LINE");
        run(L"UNDO|9");
        checkLast("Everything has been undone.");
        run(L"U");
        checkLast("Nothing to undo.");
        run(L"REDO|UNDO|BE|POINT|5,5|UNDO|E|U");
        checkLast("GROUP");
        run(L"UNDO|BE|U");
        checkLast("The begin of the group is reached.");
    }

    void redoesUntilSomethingChanges()
    {
        run(L"POINT|1,1|POINT|2,2|POINT|3,3|U|U|REDO|LIST|LAST||REDO");
        checkLeft("POINT 1,1; POINT 2,2; POINT 3,3");
        run(L"REDO");
        checkLast("Nothing to redo.");
        run(L"U|POINT|4,4|REDO");
        checkLast("Nothing to redo.");
        checkLeft("POINT 1,1; POINT 2,2; POINT 4,4");
    }

    void backWithoutAMarkAsks()
    {
        run(L"UNDO|B");
        checkLast("Nothing to undo.");
        run(L"POINT|1,1|UNDO|B");
        checkLast("This will undo everything. OK? [Yes/No] <Y>: ");
        run(L"N");
        checkLeft("POINT 1,1");
        run(L"UNDO|M|POINT|2,2|UNDO|B");
        checkLast("Mark encountered.");
        run(L"UNDO|B|");
        checkLast("Everything has been undone.");
        checkLeft("");
        run(L"REDO");
        checkLeft("POINT 1,1");
    }

    void controlsHowMuchIsKept()
    {
        CPPUNIT_ASSERT_EQUAL(1 + 16, variable(L"UNDOCTL"));
        run(L"POINT|1,1|UNDO|M|UNDO|BE|POINT|2,2");
        CPPUNIT_ASSERT_EQUAL(1 + 8 + 16, variable(L"UNDOCTL"));
        CPPUNIT_ASSERT_EQUAL(1, variable(L"UNDOMARKS"));
        run(L"UNDO|E|UNDO|C|O");
        CPPUNIT_ASSERT_EQUAL(1 + 2 + 16, variable(L"UNDOCTL"));
        run(L"POINT|3,3|POINT|4,4|U|U");
        checkLast("Nothing to undo.");
        checkLeft("POINT 1,1; POINT 2,2; POINT 3,3");
        run(L"UNDO|C|N|REDO");
        checkLast("Nothing to redo.");
        run(L"POINT|5,5|U");
        checkLast("Nothing to undo.");
        run(L"UNDO||POINT|6,6|U");
        checkLeft("POINT 1,1; POINT 2,2; POINT 3,3; POINT 5,5");
    }

    void combinesViewsOnlyOnDemand()
    {
        run(L"POINT|1,1|ZOOM|C|5,5|10|ZOOM|C|6,6|20|U|U");
        checkLast("POINT");
        run(L"REDO|REDO|UNDO|C|C|N");
        CPPUNIT_ASSERT_EQUAL(1, variable(L"UNDOCTL"));
        run(L"ZOOM|C|7,7|30|ZOOM|C|8,8|40|U|U");
        checkLast("ZOOM");
        CPPUNIT_ASSERT_DOUBLES_EQUAL(20.0, std::get<double>(ca::SysVar::find(L"VIEWSIZE")->value()), 1e-9);
        run(L"UNDO|C|C|Y");
        CPPUNIT_ASSERT_EQUAL(1 + 16, variable(L"UNDOCTL"));
    }

    void refusals()
    {
        RefusedCase const cases[] = {
            {L"UNDO|E", L"No group has been begun."},
            {L"UNDO|0", L"Value must be at least 1."},
            {L"UNDO|2.5", L"Requires an integer value or an option keyword."},
            {L"UNDO|C|O|UNDO|M", L"Requires an integer value or an option keyword."},
        };
        checkRefused(cases);
    }

    void prompts()
    {
        PromptCase const cases[] = {
            {L"UNDO", L"Enter the number of operations to undo or [Control/BEgin/End/Mark/Back] <1>: "},
            {L"UNDO|C", L"Enter an UNDO control option [All/None/One/Combine] <All>: "},
            {L"UNDO|C|C", L"Combine zoom and pan operations? [Yes/No] <Yes>: "},
            {L"UNDO|C|O|UNDO", L"Enter the number of operations to undo or [Control] <1>: "},
            {L"UNDO|C|N|UNDO", L"Enter an UNDO control option [All/None/One/Combine] <All>: "},
        };
        checkPrompts(cases);
    }

    void leavesAloneWhatIsNotTheDrawing()
    {
        ca::CaDoc& document = *ca::curDoc();
        run(L"PICKBOX|5|LINE|0,0|3,3||U");
        checkLast("LINE");
        CPPUNIT_ASSERT_EQUAL(5, variable(L"PICKBOX"));
        CPPUNIT_ASSERT_EQUAL_MESSAGE("undoing is a change too", true, document.isModified());
        CPPUNIT_ASSERT_EQUAL(3.0, document.lastPoint().x);
        ca::app()->setUndoInProgress(false);
        run(L"REDO");
        CPPUNIT_ASSERT(!ca::app()->isUndoInProgress());
    }
};
CPPUNIT_TEST_SUITE_REGISTRATION(UndoCommandsTest);

} // namespace
