// How the command processor takes its answers: what is told by no single command.
#include "host/app/ca_doc.h"
#include "host/app/ca_doc_manager.h"
#include "host/app/command_line.h"
#include "host/app/command_processor.h"
#include "host/app/sds_cmd.h"
#include "host/app/sys_var.h"
#include "host/sds/ca_resbuf.h"
#include "tests/host/app/draw_script.h"

#include <cppunit/extensions/HelperMacros.h>

namespace {

std::string activeCommands()
{
    return ca::CommandProcessor::get().activeNames().toUtf8();
}

double linetypeScale()
{
    return std::get<double>(ca::SysVar::find(L"LTSCALE")->value());
}

class TestCommandProcessor : public DrawScriptTest
{
    CPPUNIT_TEST_SUITE(TestCommandProcessor);
    CPPUNIT_TEST(commandNames);
    CPPUNIT_TEST(tooFewAnswersLeaveTheCommandWaiting);
    CPPUNIT_TEST(surplusAnswersAreTheNextCommands);
    CPPUNIT_TEST(refusedAnswerCancelsAndDropsTheRest);
    CPPUNIT_TEST(nullListCancels);
    CPPUNIT_TEST(everyPromptCanBeCancelled);
    CPPUNIT_TEST(listThatIsNoListOfAnswers);
    CPPUNIT_TEST(transparentCommands);
    CPPUNIT_TEST(transparentSyntaxIsTextWhereTextIsAsked);
    CPPUNIT_TEST(answersOfAllTypes);
    CPPUNIT_TEST(pointsAreInTheUserCoordinateSystem);
    CPPUNIT_TEST(lastPromptOutlivesCommandsAndDocuments);
    CPPUNIT_TEST(oneUndoRecordPerCommand);
    CPPUNIT_TEST(withoutUndoFlagCommandsStartNoRecord);
    CPPUNIT_TEST(commandsWithoutDocument);
    CPPUNIT_TEST(closingADocumentCancelsItsCommands);
    CPPUNIT_TEST(switchThatWasPutOffHappensWhenTheCommandEnds);
    CPPUNIT_TEST(answersFromWithinARunningCommandAreRefused);
    CPPUNIT_TEST(idleCodeRunsInOrderAndStopsAtAnException);
    CPPUNIT_TEST_SUITE_END();

public:
    void commandNames()
    {
        DrawnCase const cases[] = {
            {L"line|0,0|1,0|", L"LINE 0,0 1,0"},    {L"_LINE|0,0|1,0|", L"LINE 0,0 1,0"},
            {L"._-LINE|0,0|1,0|", L"LINE 0,0 1,0"}, {L"'_.line|0,0|1,0|", L"LINE 0,0 1,0"},
            {L"-_.l|0,0|1,0|", L"LINE 0,0 1,0"},
        };
        checkDrawn(cases);
        RefusedCase const refused[] = {
            {L"LINES", L"Unknown command \"LINES\"."},
            {L"LI NE", L"Unknown command \"LI NE\"."},
            {L"1,2", L"Unknown command \"1,2\"."},
            {L"_", L"Unknown command \"_\"."},
        };
        checkRefused(refused);
    }

    void tooFewAnswersLeaveTheCommandWaiting()
    {
        CPPUNIT_ASSERT_EQUAL(int(RTNORM), feed(L"LINE|0,0"));
        CPPUNIT_ASSERT_EQUAL(std::string("LINE"), activeCommands());
        CPPUNIT_ASSERT_EQUAL(std::string("Specify next point or [Undo]: "), lastPrompt().toUtf8());
        CPPUNIT_ASSERT_EQUAL(int(RTNORM), feed(L"5,0"));
        CPPUNIT_ASSERT_EQUAL(int(RTNORM), feed(L"5,5|"));
        CPPUNIT_ASSERT_EQUAL(std::string("LINE 0,0 5,0; LINE 5,0 5,5"), drawn().toUtf8());
        CPPUNIT_ASSERT(ca::CommandProcessor::get().isIdle());
    }

    void surplusAnswersAreTheNextCommands()
    {
        CPPUNIT_ASSERT_EQUAL(int(RTNORM), feed(L"LINE|0,0|1,0||CIRCLE|0,0|2|||"));
        CPPUNIT_ASSERT_EQUAL(std::string("LINE 0,0 1,0; CIRCLE 0,0 r2"), drawn().toUtf8());
        CPPUNIT_ASSERT_MESSAGE("Enter repeats nothing", ca::CommandProcessor::get().isIdle());
        CPPUNIT_ASSERT_EQUAL(int(RTERROR), feed(L"LINE|2,0|3,0||4,0|CIRCLE|0,0|2"));
        CPPUNIT_ASSERT_EQUAL(std::string("Unknown command \"4,0\"."), lastPrompt().toUtf8());
        CPPUNIT_ASSERT_EQUAL(std::string("LINE 0,0 1,0; CIRCLE 0,0 r2; LINE 2,0 3,0"), drawn().toUtf8());
    }

    void refusedAnswerCancelsAndDropsTheRest()
    {
        CPPUNIT_ASSERT_EQUAL(int(RTERROR), feed(L"LINE|0,0|1,0|nowhere|CIRCLE|0,0|2"));
        CPPUNIT_ASSERT_EQUAL(std::string("Point or option keyword required."), lastPrompt().toUtf8());
        CPPUNIT_ASSERT_EQUAL(std::string("LINE 0,0 1,0"), drawn().toUtf8());
        CPPUNIT_ASSERT(ca::CommandProcessor::get().isIdle());
        auto const& lines = ca::app()->commandLine().lines();
        CPPUNIT_ASSERT_EQUAL(std::string("Specify next point or [Undo]: nowhere"),
                             lines[lines.size() - 2].toUtf8());
    }

    void nullListCancels()
    {
        feed(L"LINE|0,0|1,0|'SETVAR|LTSCALE");
        CPPUNIT_ASSERT_EQUAL(std::string("LINE'SETVAR"), activeCommands());
        CPPUNIT_ASSERT_EQUAL(int(RTNORM), sds_cmd(nullptr));
        CPPUNIT_ASSERT_EQUAL(std::string(), activeCommands());
        CPPUNIT_ASSERT_EQUAL(std::string("Enter new value for LTSCALE <1>: *Cancel*"), lastPrompt().toUtf8());
        CPPUNIT_ASSERT_EQUAL(std::string("LINE 0,0 1,0"), drawn().toUtf8());
        CPPUNIT_ASSERT_EQUAL(int(RTNORM), sds_cmd(nullptr));
        feed(L"LINE");
        CPPUNIT_ASSERT_EQUAL(int(RTNORM), sds_command(0));
        CPPUNIT_ASSERT_EQUAL(std::string(), activeCommands());
    }

    void everyPromptCanBeCancelled()
    {
        // A suspended coroutine holds the temporaries of its question; destroying it has to release each once.
        wchar_t const* const scripts[] = {
            L"LINE|0,0|1,0|'SETVAR|INSNAME|x|1,1|'SETVAR|?|DWG*|C",
            L"CIRCLE|0,0|D|8|CIRCLE|2P|0,0|1,1|CIRCLE|3P|0,0|1,0|1,1|",
            L"ARC|0,0|E|5,5|A|90|ARC|C|0,0|1,0|L|1|ARC|0,0|C|1,0|A|45",
            L"PLINE|0,0|W|1|2|A|S|3,3|5,0|L|9,9|CL|",
            L"TEXT|J|F|0,0|9,0|1|some text|",
            L"ERASE|W|0,0|1,1|BOX|0,0|1,1|R|ALL|A|900,900|901,901|",
            L"MOVE|ALL||D|1,1|COPY|ALL||O|M|0,0|1,1|U|2,2|",
            L"-LAYER|M|a|S||0,0|N|b|R|b|c|OFF|0|N|OFF||ALL||N|C|T|1,2,3|a|L|?|*|L||a|LW|1|a|P|N|a|D|text|a|?|*|",
            L"-BLOCK|B|0,0|ALL||-INSERT|B|B|0,0|0,0|XYZ|C|1,1|3|45|-INSERT|B|S|2|R|0|5,5|-BLOCK|B|Y|0,0|ALL|",
            L"NEW|.|SAVEAS|/no/such/folder/a.dwg",
            L"LINE|0,0|1,0||CLOSE|Y|/no/such/folder/a.dwg",
        };
        for (OdString const script : scripts) {
            for (std::size_t end = script.find(L'|'); end != OdString::npos; end = script.find(L'|', end + 1)) {
                tearDown();
                setUp();
                feed(L"POINT|0,0");
                OdString const part = script.left(end);
                CPPUNIT_ASSERT_EQUAL_MESSAGE(part.toUtf8() + ": " + lastPrompt().toUtf8(), int(RTNORM),
                                             feed(part));
                CPPUNIT_ASSERT_EQUAL(int(RTNORM), sds_cmd(nullptr));
                CPPUNIT_ASSERT_MESSAGE(part.toUtf8(), ca::CommandProcessor::get().isIdle());
            }
        }
    }

    void listThatIsNoListOfAnswers()
    {
        std::int64_t const unknown[2] = {12345, 67890};
        feed(L"LINE|0,0");
        CPPUNIT_ASSERT_EQUAL(int(RTERROR), sds_command(RTSTR, L"1,0", RTLB, RTSTR, L"", 0));
        CPPUNIT_ASSERT_EQUAL(int(RTERROR), sds_command(RTSTR, L"1,0", RTPICKS, unknown, 0));
        CPPUNIT_ASSERT_EQUAL(int(RTERROR), sds_command(RTENAME, unknown, 0));
        CPPUNIT_ASSERT_MESSAGE("none of the answers counts", drawn().isEmpty());
        CPPUNIT_ASSERT_EQUAL(std::string("LINE"), activeCommands());
    }

    void transparentCommands()
    {
        CPPUNIT_ASSERT_EQUAL(int(RTNORM), feed(L"LINE|0,0|'SETVAR|LTSCALE|3"));
        CPPUNIT_ASSERT_EQUAL(3.0, linetypeScale());
        CPPUNIT_ASSERT_EQUAL(std::string("Specify next point or [Undo]: "), lastPrompt().toUtf8());
        CPPUNIT_ASSERT_EQUAL(int(RTNORM), feed(L"'_LTSCALE|4|7,0|"));
        CPPUNIT_ASSERT_EQUAL(4.0, linetypeScale());
        CPPUNIT_ASSERT_EQUAL(std::string("LINE 0,0 7,0"), drawn().toUtf8());
        CPPUNIT_ASSERT_MESSAGE("not transparent", feed(L"LINE|0,0|'CIRCLE") == RTERROR);
        CPPUNIT_ASSERT_MESSAGE("without the mark", feed(L"LINE|0,0|SETVAR") == RTERROR);
        CPPUNIT_ASSERT_MESSAGE("a refusal within cancels all", feed(L"LINE|0,0|'LTSCALE|-1|9,9") == RTERROR);
        CPPUNIT_ASSERT_EQUAL(std::string("Requires a number above 0."), lastPrompt().toUtf8());
        CPPUNIT_ASSERT(ca::CommandProcessor::get().isIdle());
        CPPUNIT_ASSERT_EQUAL(4.0, linetypeScale());
    }

    void transparentSyntaxIsTextWhereTextIsAsked()
    {
        feed(L"TEXT|0,0|1|0|'SETVAR|");
        CPPUNIT_ASSERT_EQUAL(std::string("TEXT 'SETVAR 0,0 h1 r0"), drawn().toUtf8());
    }

    void answersOfAllTypes()
    {
        double const center[3] = {1, 2, 0};
        double const flat[2] = {6, 2};
        CPPUNIT_ASSERT_EQUAL(int(RTNORM),
                             sds_command(RTSTR, L"CIRCLE", RT3DPOINT, center, RTREAL, 2.5, RTSTR, L"CIRCLE",
                                         RT3DPOINT, center, RTSHORT, 3, RTSTR, L"CIRCLE", RTPOINT, center, RTPOINT,
                                         flat, RTSTR, L"CIRCLE", RTPOINT, flat, RTLONG, std::int64_t(4), 0));
        CPPUNIT_ASSERT_EQUAL(std::string("CIRCLE 1,2 r2.5; CIRCLE 1,2 r3; CIRCLE 1,2 r5; CIRCLE 6,2 r4"),
                             drawn().toUtf8());
        CPPUNIT_ASSERT_EQUAL_MESSAGE("a number is no point", int(RTERROR),
                                     sds_command(RTSTR, L"LINE", RTREAL, 2.5, 0));
        CPPUNIT_ASSERT_EQUAL_MESSAGE("a point names no command", int(RTERROR), sds_command(RTPOINT, flat, 0));
    }

    void pointsAreInTheUserCoordinateSystem()
    {
        db().setHeaderPoint("UCSORG", {100, 0, 0});
        db().setHeaderPoint("UCSXDIR", {0, 1, 0});
        db().setHeaderPoint("UCSYDIR", {-1, 0, 0});
        double const end[3] = {5, 1, 0};
        feed(L"LINE|0,0|@2<90|*7,7|@*1,0|@");
        CPPUNIT_ASSERT_EQUAL(int(RTNORM), sds_command(RT3DPOINT, end, RTSTR, L"", 0));
        CPPUNIT_ASSERT_EQUAL(
            std::string("LINE 100,0 98,0; LINE 98,0 7,7; LINE 7,7 8,7; LINE 8,7 8,7; LINE 8,7 99,5"),
            drawn().toUtf8());
    }

    void lastPromptOutlivesCommandsAndDocuments()
    {
        feed(L"LINE|0,0|3,0");
        CPPUNIT_ASSERT_EQUAL(std::string("Specify next point or [Undo]: "), lastPrompt().toUtf8());
        feed(L"");
        CPPUNIT_ASSERT_EQUAL(std::string("Specify next point or [Undo]: "), lastPrompt().toUtf8());
        feed(L"CIRCLE|0,0|2");
        std::string const answered = lastPrompt().toUtf8();
        CPPUNIT_ASSERT_EQUAL(std::string(": 2"), answered.substr(answered.size() - 3));
        sds_cmd(nullptr);
        CPPUNIT_ASSERT(ca::app()->openFile());
        ca::curDoc()->close();
        feed(L"");
        CPPUNIT_ASSERT_EQUAL(answered, lastPrompt().toUtf8());
        feed(L"LINE");
        sds_cmd(nullptr);
        CPPUNIT_ASSERT_EQUAL(std::string("Specify first point: *Cancel*"), lastPrompt().toUtf8());
        ca::app()->commandLine().message(L"first\n\nsecond\n");
        CPPUNIT_ASSERT_EQUAL(std::string("second"), lastPrompt().toUtf8());
    }

    void oneUndoRecordPerCommand()
    {
        feed(L"LINE|0,0|1,0|'LTSCALE|5|2,0||CIRCLE|0,0|2|LINE|");
        sds_cmd(nullptr); // a command that changed nothing leaves no record
        feed(L"U");
        CPPUNIT_ASSERT_EQUAL(std::string("CIRCLE"), lastPrompt().toUtf8());
        CPPUNIT_ASSERT_EQUAL(std::string("LINE 0,0 1,0; LINE 1,0 2,0"), drawn().toUtf8());
        CPPUNIT_ASSERT_EQUAL(5.0, linetypeScale());
        feed(L"U");
        CPPUNIT_ASSERT(drawn().isEmpty());
        CPPUNIT_ASSERT_EQUAL(1.0, linetypeScale());
        feed(L"U");
        CPPUNIT_ASSERT_EQUAL(std::string("Nothing to undo."), lastPrompt().toUtf8());
    }

    void withoutUndoFlagCommandsStartNoRecord()
    {
        feed(L"POINT|9,9");
        ca::curDoc()->enableUndoRecording(false);
        db().disableUndoRecording(false);
        db().startUndoRecord(L"all");
        feed(L"LINE|0,0|1,0||CIRCLE|0,0|2|LTSCALE|5");
        feed(L"U");
        CPPUNIT_ASSERT_EQUAL(std::string("Nothing to undo."), lastPrompt().toUtf8());
        db().disableUndoRecording(true);
        db().undo();
        CPPUNIT_ASSERT_EQUAL(std::string("POINT 9,9"), drawn().toUtf8());
        CPPUNIT_ASSERT_EQUAL(1.0, linetypeScale());
    }

    void commandsWithoutDocument()
    {
        ca::curDoc()->close();
        CPPUNIT_ASSERT_EQUAL(int(RTERROR), feed(L"LINE|0,0"));
        CPPUNIT_ASSERT_EQUAL(OdError(eNoDocument).description().toUtf8(), lastPrompt().toUtf8());
        CPPUNIT_ASSERT_EQUAL(int(RTNORM), feed(L"NEW||LINE|0,0|1,0|"));
        CPPUNIT_ASSERT_EQUAL(std::string("LINE 0,0 1,0"), drawn().toUtf8());
    }

    void closingADocumentCancelsItsCommands()
    {
        ca::CaDoc* const first = ca::curDoc();
        CPPUNIT_ASSERT(ca::app()->openFile());
        feed(L"LINE|0,0|'SETVAR");
        ca::curDoc()->close();
        CPPUNIT_ASSERT(ca::CommandProcessor::get().isIdle());
        CPPUNIT_ASSERT(ca::curDoc() == first);
        CPPUNIT_ASSERT_EQUAL(int(RTNORM), feed(L"LINE|0,0|1,0|"));
        CPPUNIT_ASSERT_EQUAL(std::string("LINE 0,0 1,0"), drawn().toUtf8());
    }

    void switchThatWasPutOffHappensWhenTheCommandEnds()
    {
        ca::CaDoc* const first = ca::curDoc();
        CPPUNIT_ASSERT(ca::app()->openFile());
        feed(L"LINE|0,0|1,0");
        CPPUNIT_ASSERT(odapDocManager()->activate(first, true));
        CPPUNIT_ASSERT(ca::curDoc() != first);
        feed(L"|CIRCLE|0,0|2");
        CPPUNIT_ASSERT(ca::curDoc() == first);
        CPPUNIT_ASSERT_EQUAL_MESSAGE("the next command runs in it", std::string("CIRCLE 0,0 r2"),
                                     drawn().toUtf8());
    }

    void answersFromWithinARunningCommandAreRefused()
    {
        int result = 0;
        ca::app()->commandLine().setListener([&](OdString const& line) {
            if (line.startsWith(L"Specify first"))
                result = sds_command(RTSTR, L"CIRCLE", 0);
        });
        feed(L"LINE|0,0|1,0|");
        ca::app()->commandLine().setListener({});
        CPPUNIT_ASSERT_EQUAL(int(RTERROR), result);
        CPPUNIT_ASSERT_EQUAL(std::string("LINE 0,0 1,0"), drawn().toUtf8());
    }

    void idleCodeRunsInOrderAndStopsAtAnException()
    {
        ca::CommandProcessor& processor = ca::CommandProcessor::get();
        std::string ran;
        processor.queueForIdle([&] {
            ran += "a";
            processor.queueForIdle([&] { ran += "d"; });
        });
        processor.queueForIdle([&] {
            ran += "b";
            throw OdError(eNotApplicable);
        });
        processor.queueForIdle([&] { ran += "c"; });
        CPPUNIT_ASSERT_THROW(processor.processIdle(), OdError);
        CPPUNIT_ASSERT_EQUAL(std::string("ab"), ran);
        processor.processIdle();
        CPPUNIT_ASSERT_EQUAL(std::string("abcd"), ran);
    }
};

CPPUNIT_TEST_SUITE_REGISTRATION(TestCommandProcessor);

} // namespace
