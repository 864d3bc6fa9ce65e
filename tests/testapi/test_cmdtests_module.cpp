// The test module cmdtests, loaded as the bench loads it.
#include "tests/support/scoped_environment.h"
#include "tests/testapi/cmd_test_run.h"

#include "vorntest/module_path.h"
#include "vorntest/vorn_test_bench.h"

#include <cppunit/TestFailure.h>
#include <cppunit/TestListener.h>
#include <cppunit/TestResult.h>
#include <cppunit/TestSuite.h>
#include <cppunit/extensions/HelperMacros.h>
#include <cppunit/plugin/PlugInManager.h>

namespace {

/// One line for each test: its name and "passed", or place and short description of its failure.
class OutcomeList : public CppUnit::TestListener
{
public:
    std::string text;

    void startTest(CppUnit::Test* test) override { m_current = test->getName() + ": passed"; }
    void addFailure(CppUnit::TestFailure const& failure) override
    {
        CppUnit::SourceLine const place = failure.sourceLine();
        m_current = failure.failedTestName() + ": " + place.fileName() + ":" + std::to_string(place.lineNumber()) +
                    " " + failure.thrownException()->message().shortDescription();
    }
    void endTest(CppUnit::Test*) override { text += m_current + "\n"; }

private:
    std::string m_current;
};

class CmdTestsModuleTest : public CppUnit::TestFixture
{
    CPPUNIT_TEST_SUITE(CmdTestsModuleTest);
    CPPUNIT_TEST(buildsAndRunsSuites);
    CPPUNIT_TEST(mistakesAreFailingTests);
    CPPUNIT_TEST(deepNesting);
    CPPUNIT_TEST_SUITE_END();

    TempFolder m_folder;

    /// Outcomes of all suites that the module makes of suite.xml with these nodes.
    std::string outcomes(std::string const& nodes) const
    {
        m_folder.write("suites/suite.xml", "<TestSuite name='S'>\n" + nodes + "\n</TestSuite>");
        m_folder.write("config.xml", "<testsConfig><module name='cmdtests'/><suite name='S' module='cmdtests'>"
                                     "<mask>suites/*.xml</mask></suite><suite name='T'/></testsConfig>");
        vorntest::TestsConfig config;
        config.load((m_folder / "config.xml").str());
        vorntest::VornTestBench bench(config);
        bench.makeCurrent();

        CppUnit::PlugInManager manager;
        std::string const module = odWideToUtf8(vorntest::modulePath(config.modules()[0], config));
        manager.load(module, CppUnit::PlugInParameters("cmdtests"));
        OutcomeList list;
        {
            CppUnit::TestSuite all;
            CppUnit::TestFactoryRegistry& registry = CppUnit::TestFactoryRegistry::getRegistry();
            registry.addTestToSuite(&all);
            CppUnit::TestResult result;
            result.addListener(&list);
            for (int i = 0; i < all.getChildTestCount(); ++i)
                if (all.getChildTestAt(i)->getName() == "S")
                    all.getChildTestAt(i)->run(&result);
        }
        manager.unload(module);
        return withoutFolder(list.text, m_folder.path().string());
    }

public:
    void setUp() override
    {
        std::filesystem::create_directory(m_folder.path() / "suites");
        m_folder.write("suites/good.xml", "<t><command name='LINE'><point value='0,0'/><point value='1,0'/>"
                                          "<string_empty/></command></t>");
        m_folder.write("bad.xml", "<t><nonsense/></t>");
    }

    void buildsAndRunsSuites()
    {
        ScopedEnvironment const folder("VORN_TEST_FOLDER", m_folder.path().c_str());
        CPPUNIT_ASSERT_EQUAL(
            std::string("one: passed\n"
                        "two: testapi/ta_test_cmd:0 assertion failed\n"
                        "three: passed\n"
                        "four: passed\n"),
            withoutLines(outcomes("<TestCase name='one' file='good.xml'/>"
                                  "<TestSuite name='inner'><TestCase name='two' file='../bad.xml'/>"
                                  "<TestSuite name='innermost'>"
                                  "<TestCase name='three' file='$VORN_TEST_FOLDER/suites/good.xml'/>"
                                  "</TestSuite></TestSuite><TestFixture name='not mine'/>"
                                  "<TestCase name='four' file='%VORN_TEST_FOLDER%\\suites\\good.xml'/>")));
    }
    /// Line numbers of the library's own sources are none of the module's business.
    static std::string withoutLines(std::string text)
    {
        std::string const area = "ta_test_cmd:";
        std::size_t const at = text.find(area) + area.size();
        return text.replace(at, text.find(' ', at) - at, "0");
    }

    void mistakesAreFailingTests()
    {
        CPPUNIT_ASSERT_EQUAL(
            std::string("gone: @/suites/suite.xml:2 Test file not found: @/suites/none.xml\n"
                        "unset: @/suites/suite.xml:3 Test file not found: @/suites/${VORN_TEST_UNSET}/good.xml\n"
                        "nofile: @/suites/suite.xml:4 TestCase has no attribute 'file'\n"
                        "TestCase: @/suites/suite.xml:5 TestCase has no attribute 'name'\n"
                        "TestSuite: @/suites/suite.xml:6 TestSuite has no attribute 'name', so its tests are left "
                        "out\n"
                        "inner: @/suites/suite.xml:8 TestCase has no attribute 'file'\n"),
            outcomes("<TestCase name='gone' file='none.xml'/>\n"
                     "<TestCase name='unset' file='${VORN_TEST_UNSET}/good.xml'/>\n"
                     "<TestCase name='nofile' fiel='good.xml'/>\n"
                     "<TestCase file='good.xml'/>\n"
                     "<TestSuite><TestCase name='left out' file='good.xml'/></TestSuite>\n"
                     "<TestSuite name='S2'>\n<TestCase name='inner' file=''/></TestSuite>"));
    }

    void deepNesting()
    {
        std::string nodes;
        for (int i = 0; i < 50000; ++i)
            nodes += "<TestSuite name='n'>";
        for (int i = 0; i < 50000; ++i)
            nodes += "</TestSuite>";
        CPPUNIT_ASSERT_EQUAL(std::string("n: @/suites/suite.xml:2 TestSuite is nested more than 100 deep\n"),
                             outcomes(nodes));
    }
};

CPPUNIT_TEST_SUITE_REGISTRATION(CmdTestsModuleTest);

} // namespace
