#include "host/app/command_line.h"
#include "tests/testapi/cmd_test_run.h"

#include <cppunit/extensions/HelperMacros.h>

namespace {

int numEntities()
{
    auto const space = ca::curDb()->getModelSpaceId().open<OdDbBlockTableRecord>();
    int count = 0;
    for (OdDbObjectIterator it = space->newIterator(); !it.done(); it.step())
        ++count;
    return count;
}

class CmdCommandTest : public CppUnit::TestFixture
{
    CPPUNIT_TEST_SUITE(CmdCommandTest);
    CPPUNIT_TEST(badAnswersNeverStartTheCommand);
    CPPUNIT_TEST(failingCommands);
    CPPUNIT_TEST(answersAndNames);
    CPPUNIT_TEST(selectionSets);
    CPPUNIT_TEST(fileNames);
    CPPUNIT_TEST(pendingCommandsAreCancelled);
    CPPUNIT_TEST(manyAnswers);
    CPPUNIT_TEST_SUITE_END();

    static constexpr char const* s_twoLines =
        "<command name='LINE' nameEntities='first,second'><point value='0,0'/><point value='4,0,0'/>"
        "<point value='4,3'/><string_empty/></command>";
    CmdTestFolder m_folder;

    void checkPasses(std::string const& operations, std::function<void(ta::TestCmdArg&)> const& afterwards) const
    {
        CPPUNIT_ASSERT_EQUAL(std::string(), m_folder.run("<t>" + operations + "</t>", afterwards));
    }

public:
    void tearDown() override { CPPUNIT_ASSERT_EQUAL(0, ca::app()->getDocumentsCount()); }

    void badAnswersNeverStartTheCommand()
    {
        struct Row
        {
            char const* answer;
            char const* failure;
        };
        std::string const attribute = "assertion failed|Expression: oa::readAttr(*it, attr_value, ";
        Row const rows[] = {
            {"<string/>", "val)|command LINE: unable to read value attribute for string node"},
            {"<real/>", "val)|command LINE: unable to read value attribute for real node"},
            {"<real value='1,5'/>", "val)|command LINE: unable to read value attribute for real node"},
            {"<point value='1;2'/>", "pt)|command LINE: error reading point"},
            {"<filename/>", "val)|command LINE: unable to read value attribute for filename node"},
        };
        std::string const place = "|Operation 'command' at @/t.xml:2";
        auto const failureFor = [&](std::string const& answer) {
            return m_folder.run("<t>\n<command name='LINE'><point value='0,0'/>" + answer + "</command></t>");
        };
        for (Row const& row : rows)
            CPPUNIT_ASSERT_EQUAL(attribute + row.failure + place, failureFor(row.answer));
        std::string const noSet = "assertion failed|Expression: readSSet(*it, pSSet, instance.curDb(), "
                                  "instance.namedObjectIds())|command LINE: failed to create SSet" +
                                  place;
        CPPUNIT_ASSERT_EQUAL(noSet, failureFor("<sset/>"));
        CPPUNIT_ASSERT_EQUAL(noSet, failureFor("<sset><fullSubentPath entities='none'/></sset>"));
        CPPUNIT_ASSERT_EQUAL("forced failure|command LINE: unknown parameter pont" + place,
                             failureFor("<pont value='0,0'/>"));
        CPPUNIT_ASSERT_EQUAL("assertion failed|Expression: cmdNameAttr|command: error reading command name" +
                                 place,
                             m_folder.run("<t>\n<command/></t>"));
        // No prompt of the command has come, only the reason why nothing was selected.
        CPPUNIT_ASSERT_EQUAL(std::string("fullSubentPath: 'none' is neither a name nor a handle of the drawing"),
                             ca::app()->commandLine().lastPrompt().toUtf8());
    }

    void failingCommands()
    {
        CPPUNIT_ASSERT_EQUAL(
            std::string("assertion failed|Expression: rc == RTNORM|command NOSUCH: command failed|"
                        "Operation 'command' at @/t.xml:1"),
            m_folder.run("<t><command name='NOSUCH'/></t>"));
        CPPUNIT_ASSERT_EQUAL(std::string("assertion failed|Expression: !names.empty()|Entity list cannot be empty|"
                                         "Operation 'command' at @/t.xml:1"),
                             m_folder.run("<t><command name='LINE' nameEntities=''/></t>"));
        CPPUNIT_ASSERT_EQUAL(
            std::string("assertion failed|Expression: !pIt->done()|Entities in DWG do not match with "
                        "entity list provided|Operation 'command' at @/t.xml:1"),
            m_folder.run("<t><command name='LINE' nameEntities='a'/></t>"));
    }

    void answersAndNames()
    {
        checkPasses(s_twoLines, [](ta::TestCmdArg& test) {
            auto const second = test.getObjectId(L"second").open<OdDbLine>();
            CPPUNIT_ASSERT(second->startPoint() == OdGePoint3d(4, 0, 0));
            CPPUNIT_ASSERT(second->endPoint() == OdGePoint3d(4, 3, 0));
            CPPUNIT_ASSERT(test.getObjectId(L"first").open<OdDbLine>()->startPoint() == OdGePoint3d());
            CPPUNIT_ASSERT_EQUAL(2, numEntities());
        });
        checkPasses("<command name='_.circle'><string value='1,2'/><real value=' 2.5 '/></command>"
                    "<command name='LINE'>text and <!-- comments --> between answers"
                    "<string value='0,0'/><string value='1,1'/><string value=''/></command>",
                    [](ta::TestCmdArg&) { CPPUNIT_ASSERT_EQUAL(2, numEntities()); });
    }

    void selectionSets()
    {
        std::string const erase = std::string(s_twoLines) + "<command name='ERASE'><sset";
        std::string const paths = "<fullSubentPath entities='none'/><fullSubentPath entities='second'/>";
        auto const isErased = [](ta::TestCmdArg& test) {
            CPPUNIT_ASSERT(test.getObjectId(L"second").isErased() && !test.getObjectId(L"first").isErased());
        };
        checkPasses(erase + ">" + paths + "</sset></command>", isErased);
        checkPasses(erase + " pressEnter='TRUE'>" + paths + "</sset></command>", isErased);
        checkPasses(erase + " pressEnter='false'>" + paths + "</sset><string_empty/></command>", isErased);
        checkPasses(erase + " pressEnter='0'>" + paths + "</sset></command>", [](ta::TestCmdArg& test) {
            CPPUNIT_ASSERT(!test.getObjectId(L"second").isErased()); // the selection is still open
        });
    }

    void fileNames()
    {
        std::filesystem::create_directory(m_folder.path() / "sub");
        checkPasses(std::string(s_twoLines) +
                        "<command name='SAVEAS'><filename value='sub/../saved.dxf'/></command>",
                    [&](ta::TestCmdArg&) { CPPUNIT_ASSERT(ca::curDoc()->fileName() == m_folder / "saved.dxf"); });
    }

    void pendingCommandsAreCancelled()
    {
        checkPasses("<command name='LINE'><point value='0,0'/></command>"
                    "<lastPromptContains value='next point'/>",
                    [](ta::TestCmdArg&) {});
        // Were the command still waiting, this would be its answer.
        checkPasses("<command name='CIRCLE'><point value='0,0'/><real value='1'/></command>",
                    [](ta::TestCmdArg&) { CPPUNIT_ASSERT_EQUAL(1, numEntities()); });
    }

    void manyAnswers()
    {
        std::string points;
        for (int i = 0; i < 20000; ++i)
            points += "<point value='" + std::to_string(i) + "," + std::to_string(i % 2) + "'/>";
        checkPasses("<command name='LINE'>" + points + "<string_empty/></command>",
                    [](ta::TestCmdArg&) { CPPUNIT_ASSERT_EQUAL(19999, numEntities()); });
    }
};

CPPUNIT_TEST_SUITE_REGISTRATION(CmdCommandTest);

} // namespace
