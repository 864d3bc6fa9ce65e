#include "testapi/ta_test_suite_arg.h"
#include "tests/support/scoped_environment.h"
#include "tests/support/temp_folder.h"

#include "vorntest/vorn_test_bench.h"

#include <cppunit/TestCase.h>
#include <cppunit/extensions/HelperMacros.h>

namespace {

class NamedTest : public CppUnit::TestCase
{
public:
    explicit NamedTest(std::string const& name) : CppUnit::TestCase(name) { ++s_alive; }
    ~NamedTest() override { --s_alive; }
    void runTest() override {}
    static int s_alive;
};
int NamedTest::s_alive = 0;

/// Records its nodes as tests named after the handler, the node's attribute `n` and the file.
class RecordingSuite : public TestSuiteArgBase
{
public:
    using TestSuiteArgBase::TestSuiteArgBase;
    void addTestSuite(CppUnit::TestBench* bench, pugi::xml_node const& node) override
    {
        record("suite", node);
        addTests(bench, node);
    }
    void addTestCase(CppUnit::TestBench*, pugi::xml_node const& node) override { record("case", node); }
    void addTestFixture(CppUnit::TestBench*, pugi::xml_node const& node) override { record("fixture", node); }

    std::string contents() const
    {
        std::string text;
        for (int i = 0; i < getChildTestCount(); ++i)
            text += (i > 0 ? " " : "") + getChildTestAt(i)->getName();
        return text;
    }

private:
    void record(std::string const& handler, pugi::xml_node const& node)
    {
        std::string const file = std::filesystem::path(odWideToUtf8(suiteFile(node))).filename().string();
        addTest(new NamedTest(handler + ":" + odWideToUtf8(node.attribute(L"n").value()) + "@" + file));
    }
};

/// Ignores cases and fixtures.
class PlainSuite : public TestSuiteArgBase
{
public:
    using TestSuiteArgBase::TestSuiteArgBase;
    void addTestSuite(CppUnit::TestBench*, pugi::xml_node const&) override {}
};

class OtherBench : public CppUnit::TestBench
{
};

class SuiteArgTest : public CppUnit::TestFixture
{
    CPPUNIT_TEST_SUITE(SuiteArgTest);
    CPPUNIT_TEST(dispatchesNodes);
    CPPUNIT_TEST(takesOnlyItsOwnFiles);
    CPPUNIT_TEST(masks);
    CPPUNIT_TEST(tooLongExpansion);
    CPPUNIT_TEST(otherBenches);
    CPPUNIT_TEST(deletesContents);
    CPPUNIT_TEST_SUITE_END();

    TempFolder m_folder;

    void writeSuite(std::string const& file, std::string const& name, std::string const& nodes) const
    {
        m_folder.write(file, "<TestSuite name='" + name + "'>" + nodes + "</TestSuite>");
    }
    vorntest::TestsConfig configOf(std::string const& suites) const
    {
        m_folder.write("config.cfg", "<testsConfig>" + suites + "</testsConfig>");
        vorntest::TestsConfig config;
        config.load((m_folder / "config.cfg").str());
        return config;
    }
    std::string contentsFor(std::string const& masks) const
    {
        vorntest::VornTestBench bench(configOf("<suite name='S'>" + masks + "</suite>"));
        RecordingSuite suite(L"S");
        suite.init(&bench);
        return suite.contents();
    }

public:
    void dispatchesNodes()
    {
        writeSuite("s.xml", "S",
                   "<TestCase n='1'/>text<!-- comment --><TestFixture n='2'/><testcase n='no'/><Other/>"
                   "<TestSuite n='3'><TestCase n='4'/></TestSuite><TestCase n='5'/>");
        CPPUNIT_ASSERT_EQUAL(std::string("case:1@s.xml fixture:2@s.xml suite:3@s.xml case:4@s.xml case:5@s.xml"),
                             contentsFor("<mask>s.xml</mask>"));
        PlainSuite plain(L"S");
        plain.addTests(nullptr, (m_folder / "s.xml").str(), nullptr);
        CPPUNIT_ASSERT_EQUAL(0, plain.getChildTestCount());
    }

    void takesOnlyItsOwnFiles()
    {
        writeSuite("a.xml", "S", "<TestCase n='1'/>");
        writeSuite("b.xml", "T", "<TestCase n='2'/>");
        writeSuite("c.xml", "s", "<TestCase n='3'/>");
        m_folder.write("d.xml", "<TestSuites name='S'><TestCase n='4'/></TestSuites>");
        m_folder.write("e.xml", "<TestSuite name='S'><TestCase n='5'>");
        m_folder.write("f.xml", "");
        std::filesystem::create_directory(m_folder.path() / "g.xml");
        CPPUNIT_ASSERT_EQUAL(std::string("case:1@a.xml"), contentsFor("<mask>*.xml</mask>"));

        writeSuite("u.xml", "\xD0\x96", "<TestCase n='6'/>");
        RecordingSuite cyrillic(L"\u0416");
        cyrillic.addTests(nullptr, (m_folder / "u.xml").str(), nullptr);
        CPPUNIT_ASSERT_EQUAL(std::string("case:6@u.xml"), cyrillic.contents());
    }

    void masks()
    {
        std::filesystem::create_directory(m_folder.path() / "sub");
        writeSuite("sub/a1.xml", "S", "<TestCase n='1'/>");
        writeSuite("sub/.h1.xml", "S", "<TestCase n='2'/>");
        ScopedEnvironment const folder("VORN_TEST_FOLDER", (m_folder.path() / "sub").c_str());
        ScopedEnvironment const name("VORN_TEST_NAME", "sub");
        ScopedEnvironment const unset("VORN_TEST_UNSET", nullptr);
        std::string const a1 = "case:1@a1.xml";
        struct Row
        {
            std::string masks;
            std::string contents;
        };
        Row const rows[] = {
            {"<mask>sub/a1.xml</mask>", a1},
            {"<mask>sub\\a?.xml</mask>", a1},
            {"<mask>sub/../sub/a*</mask>", a1},
            {"<mask>" + m_folder.path().string() + "/sub/a*.xml</mask>", a1},
            {"<mask>$VORN_TEST_FOLDER/a*.xml</mask>", a1},
            {"<mask>%VORN_TEST_NAME%/a1.xml</mask>", a1},
            {"<mask>${VORN_TEST_NAME}/a1.xml</mask>", a1},
            {"<mask>$VORN_TEST_UNSET/a1.xml</mask>", ""},
            {"<mask>sub/.h*.xml</mask>", "case:2@.h1.xml"},
            {"<mask>sub/A1.xml</mask>", ""},
            {"<mask>none/*.xml</mask>", ""},
            {"<mask>sub/a1.xml</mask><mask>sub/a*.xml</mask>", a1 + " " + a1},
            {"", ""},
        };
        for (Row const& row : rows)
            CPPUNIT_ASSERT_EQUAL_MESSAGE(row.masks, row.contents, contentsFor(row.masks));
    }

    void tooLongExpansion()
    {
        std::filesystem::create_directory(m_folder.path() / "$VORN_TEST_LONG");
        writeSuite("$VORN_TEST_LONG/a.xml", "S", "<TestCase n='1'/>");
        // Longest expansion that is used: 4095 characters with the rest of the mask.
        std::size_t const rest = std::string("/a.xml").size();
        ScopedEnvironment const tooLong("VORN_TEST_LONG", std::string(4096 - rest, 'x').c_str());
        CPPUNIT_ASSERT_EQUAL(std::string("case:1@a.xml"), contentsFor("<mask>$VORN_TEST_LONG/a.xml</mask>"));
        std::string dots;
        while (dots.size() + 2 <= 4095 - rest - 1)
            dots += "./";
        writeSuite("a.xml", "S", "<TestCase n='2'/>");
        ScopedEnvironment const longest("VORN_TEST_LONG", dots.c_str());
        CPPUNIT_ASSERT_EQUAL(std::string("case:2@a.xml"), contentsFor("<mask>$VORN_TEST_LONG/a.xml</mask>"));
    }

    void otherBenches()
    {
        writeSuite("a.xml", "S", "<TestCase n='1'/>");
        OtherBench other;
        vorntest::ConfigNode const relative(L"a.xml", 1);
        vorntest::ConfigNode const absolute((m_folder / "a.xml").str(), 1);
        for (CppUnit::TestBench* const bench :
             {static_cast<CppUnit::TestBench*>(&other), static_cast<CppUnit::TestBench*>(nullptr)}) {
            RecordingSuite suite(L"S");
            suite.init(bench);
            suite.createTests(bench, &relative); // from the process's folder, where there is none
            CPPUNIT_ASSERT_EQUAL(std::string(), suite.contents());
            suite.createTests(bench, &absolute);
            CPPUNIT_ASSERT_EQUAL(std::string("case:1@a.xml"), suite.contents());
        }
    }

    void deletesContents()
    {
        writeSuite("a.xml", "S", "<TestCase n='1'/><TestCase n='2'/>");
        {
            RecordingSuite suite(L"S");
            suite.addTests(nullptr, (m_folder / "a.xml").str(), nullptr);
            CPPUNIT_ASSERT_EQUAL(2, NamedTest::s_alive);
            suite.deleteContents();
            CPPUNIT_ASSERT_EQUAL(0, suite.getChildTestCount());
            CPPUNIT_ASSERT_EQUAL(0, NamedTest::s_alive);
            suite.addTests(nullptr, (m_folder / "a.xml").str(), nullptr);
        }
        CPPUNIT_ASSERT_EQUAL(0, NamedTest::s_alive);
    }
};

CPPUNIT_TEST_SUITE_REGISTRATION(SuiteArgTest);

} // namespace
