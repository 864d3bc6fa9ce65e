#include "testapi/ta_assert.h"
#include "tests/testapi/cmd_test_run.h"

#include "vorntest/vorn_test_bench.h"

#include <cppunit/extensions/HelperMacros.h>

namespace {

constexpr char s_area[] = "tests/frame";

// Operations for these tests.
std::vector<std::wstring> s_visited;
void visitOpFunc(ta::TestCmdArg&, pugi::xml_node node)
{
    s_visited.emplace_back(node.attribute(L"n").value());
}
void failOpFunc(ta::TestCmdArg&, pugi::xml_node)
{
    TA_CHECK(1 > 2, L"%ls is wrong", L"it");
}
void throwOpFunc(ta::TestCmdArg&, pugi::xml_node)
{
    throw OdError(eOutOfRange);
}
void nestedOpFunc(ta::TestCmdArg& test, pugi::xml_node node)
{
    test.runOperations(node);
}
void newDocOpFunc(ta::TestCmdArg&, pugi::xml_node)
{
    CPPUNIT_ASSERT(ca::app()->openFile());
}
ta::TestCmdArg::OperationFunc const s_visitOperation(L"visit", visitOpFunc);
ta::TestCmdArg::OperationFunc const s_failOperation(L"fail", failOpFunc);
ta::TestCmdArg::OperationFunc const s_throwOperation(L"throw", throwOpFunc);
ta::TestCmdArg::OperationFunc const s_nestedOperation(L"nested", nestedOpFunc);
ta::TestCmdArg::OperationFunc const s_newDocOperation(L"newDoc", newDocOpFunc);

/// Uses the hooks of derived tests and keeps the current drawing.
class HookedTest : public ta::TestCmdArg
{
public:
    using TestCmdArg::TestCmdArg;
    std::string calls;

    void setUp() override { setUpImp(false); }
    void initFromXmlDoc() override { calls += "init(" + odWideToUtf8(xmlDocument().first_child().name()) + ") "; }
    void runOperation(Operation const* op, pugi::xml_node node) override
    {
        calls += "<" + op->name().toUtf8();
        TestCmdArg::runOperation(op, node);
        calls += ">";
    }
};

class CmdFrameTest : public CppUnit::TestFixture
{
    CPPUNIT_TEST_SUITE(CmdFrameTest);
    CPPUNIT_TEST(setUpFailures);
    CPPUNIT_TEST(opensDrawings);
    CPPUNIT_TEST(runsOperationsInOrder);
    CPPUNIT_TEST(failuresNameTheirPlace);
    CPPUNIT_TEST(timeLimits);
    CPPUNIT_TEST(hooks);
    CPPUNIT_TEST(closesOnlyItsOwnDocuments);
    CPPUNIT_TEST(recognisesReopenedDocuments);
    CPPUNIT_TEST(namesOfTests);
    CPPUNIT_TEST_SUITE_END();

    CmdTestFolder m_folder;

    OdString writeDrawing(std::string const& name) const
    {
        CPPUNIT_ASSERT(ca::app()->openFile());
        CPPUNIT_ASSERT(ca::curDoc()->saveAs(m_folder / name, 60));
        ca::curDoc()->close();
        return m_folder / name;
    }

public:
    void setUp() override { s_visited.clear(); }
    void tearDown() override { CPPUNIT_ASSERT_EQUAL(0, ca::app()->getDocumentsCount()); }

    void setUpFailures()
    {
        struct Row
        {
            char const* xml;
            char const* failure;
        };
        Row const rows[] = {
            {"",
             "assertion failed|Expression: !!parseResult|Failed to load @/t.xml file, No document element found"},
            {"<t><op></t>",
             "assertion failed|Expression: !!parseResult|Failed to load @/t.xml file, Start-end tags "
             "mismatch"},
            {"<t dwgName='sub/none.dwg'/>",
             "assertion failed|Expression: fileName.fileExists()|openFile: file not "
             "found: sub/none.dwg"},
            {"<t dwgName='t.xml'/>",
             "assertion failed|Expression: ca::app()->openFile(fileName.getFullPath().c_str())|"
             "fileOpen: failed to open @/t.xml"},
        };
        for (Row const& row : rows)
            CPPUNIT_ASSERT_EQUAL(std::string(row.failure), m_folder.run(row.xml));

        ta::TestCmdArg missing((m_folder / "missing.xml").str());
        CPPUNIT_ASSERT_EQUAL(std::string("assertion failed|Expression: !!parseResult|Failed to load @/missing.xml "
                                         "file, File was not found"),
                             withoutFolder(failureOf([&] { missing.setUp(); }), m_folder.path().string()));
        missing.tearDown();
    }

    void opensDrawings()
    {
        OdString const drawing = writeDrawing("part.dwg");
        auto const isPart = [&](ta::TestCmdArg&) { CPPUNIT_ASSERT(ca::curDoc()->fileName() == drawing); };
        auto const isNew = [](ta::TestCmdArg& test) {
            CPPUNIT_ASSERT(ca::curDoc()->fileName().isEmpty());
            CPPUNIT_ASSERT(test.curDb() == ca::curDb());
        };
        CPPUNIT_ASSERT_EQUAL(std::string(), m_folder.run("<t dwgName='part.dwg'/>", isPart));
        CPPUNIT_ASSERT_EQUAL(std::string(), m_folder.run("<t dwgName='x\\../part.dwg'/>", isPart));
        CPPUNIT_ASSERT_EQUAL(std::string(), m_folder.run("<t dwgName='" + drawing.toUtf8() + "'/>", isPart));
        CPPUNIT_ASSERT_EQUAL(std::string(), m_folder.run("<t dwgName=''/>", isNew));
        CPPUNIT_ASSERT_EQUAL(std::string(), m_folder.run("<t/>", isNew));
    }

    void runsOperationsInOrder()
    {
        CPPUNIT_ASSERT_EQUAL(
            std::string(), m_folder.run("<any><!-- comment --><?pi?><visit n='1'/><nested><visit n='2'/></nested>"
                                        "<visit n='3'/></any>"));
        CPPUNIT_ASSERT((s_visited == std::vector<std::wstring>{L"1", L"2", L"3"}));
    }

    void failuresNameTheirPlace()
    {
        struct Row
        {
            char const* xml;
            char const* failure;
        };
        Row const rows[] = {
            {"<t>\n<visit/>\n<Fail/>\n<visit/></t>", "assertion failed|Expression: !!op|Unknown operation 'Fail' "
                                                     "in .xml file|Operation 'Fail' at @/t.xml:3"},
            {"<t>\n\n<fail/></t>", "assertion failed|Expression: 1 > 2|it is wrong|Operation 'fail' at @/t.xml:3"},
            {"<t>\n<nested>\n<fail/></nested></t>",
             "assertion failed|Expression: 1 > 2|it is wrong|Operation 'fail' at @/t.xml:3|Operation 'nested' at "
             "@/t.xml:2"},
            {"<t>\n<visit/>text</t>",
             "assertion failed|Expression: !!op|Unknown operation '' in .xml file|Operation '' at @/t.xml:2"},
            {"<t><throw/></t>", "OdError|Value is out of range"},
        };
        for (Row const& row : rows)
            CPPUNIT_ASSERT_EQUAL(std::string(row.failure), m_folder.run(row.xml));
        CPPUNIT_ASSERT_EQUAL(std::size_t(2), s_visited.size());

        ta::TestCmdArg test(m_folder.write("t.xml", "<t>\n<fail/></t>").str());
        test.setUp();
        std::filesystem::remove(m_folder.path() / "t.xml");
        CPPUNIT_ASSERT_EQUAL(std::string("assertion failed|Expression: 1 > 2|it is wrong"),
                             failureOf([&] { test.runTest(); }));
        test.tearDown();
        try {
            test.runTest();
            CPPUNIT_FAIL("a test without document passed");
        } catch (CppUnit::Exception const& failure) {
            CPPUNIT_ASSERT_EQUAL(std::string("testapi/ta_test_cmd"), failure.sourceLine().fileName());
            CPPUNIT_ASSERT_EQUAL(std::string("Root node not found"), failure.message().detailAt(1));
        }
    }

    void timeLimits()
    {
        CPPUNIT_ASSERT_EQUAL(std::string(), m_folder.run("<t timeLimit='1000'/>"));
        for (char const* const limit : {"0", "x", ""}) {
            std::string const failure = m_folder.run(std::string("<t timeLimit='") + limit + "'/>");
            std::string const begin = "assertion failed|Expression: OdGreater(durationLimit, actualDuration)|Test "
                                      "succeeded, but specified timelimit is exceeded: 0.000000 < 0.0";
            CPPUNIT_ASSERT_EQUAL(begin, failure.substr(0, begin.size()));
        }
        CPPUNIT_ASSERT(m_folder.run("<t timeLimit='-1.5'/>").find("exceeded: -1.500000 < 0.0") !=
                       std::string::npos);
        // What an operation fails at is never reported as lack of time.
        CPPUNIT_ASSERT(
            m_folder.run("<t timeLimit='0'><fail/></t>").starts_with("assertion failed|Expression: 1 > 2"));
    }

    void hooks()
    {
        std::string calls;
        CPPUNIT_ASSERT_EQUAL(std::string(),
                             m_folder.runAs<HookedTest>("<root><visit/><nested><visit/></nested></root>",
                                                        [&](HookedTest& test) { calls = test.calls; }));
        CPPUNIT_ASSERT_EQUAL(std::string("init(root) <visit><nested<visit>>"), calls);
        CPPUNIT_ASSERT(!ca::curDoc());
    }

    void closesOnlyItsOwnDocuments()
    {
        CPPUNIT_ASSERT(ca::app()->openFile());
        ca::CaDoc* const before = ca::curDoc();
        std::string const failure = m_folder.run("<t><newDoc/><newDoc/><fail/></t>", [](ta::TestCmdArg&) {
            CPPUNIT_ASSERT_EQUAL(4, ca::app()->getDocumentsCount());
        });
        CPPUNIT_ASSERT(!failure.empty());
        CPPUNIT_ASSERT_EQUAL(1, ca::app()->getDocumentsCount());
        CPPUNIT_ASSERT(ca::curDoc() == before);
        before->close();
    }

    void recognisesReopenedDocuments()
    {
        OdString const drawing = writeDrawing("part.dwg");
        CPPUNIT_ASSERT(ca::app()->openFile(drawing.c_str()));
        CPPUNIT_ASSERT_EQUAL(std::string(),
                             m_folder.run("<t><closeDoc name='part.dwg'/><openDoc name='part.dwg'/></t>"));
        CPPUNIT_ASSERT_EQUAL(0, ca::app()->getDocumentsCount());
    }

    void namesOfTests()
    {
        CPPUNIT_ASSERT_EQUAL(std::string("/a/b.c"), ta::TestCmdArg(L"\\a\\b.c.xml").getName());
        m_folder.write("config.xml", "<testsConfig basePath='.'/>");
        vorntest::TestsConfig config;
        config.load((m_folder / "config.xml").str());
        vorntest::VornTestBench bench(config);
        bench.makeCurrent();
        CPPUNIT_ASSERT_EQUAL(std::string("sub/t"), ta::TestCmdArg((m_folder / "sub/t.xml").str()).getName());
        CPPUNIT_ASSERT_EQUAL(std::string("/else/t"), ta::TestCmdArg(L"/else/t.xml").getName());
        CPPUNIT_ASSERT_EQUAL(std::string("given"), ta::TestCmdArg(L"given", L"/else/t.xml").getName());
    }
};

CPPUNIT_TEST_SUITE_REGISTRATION(CmdFrameTest);

} // namespace
