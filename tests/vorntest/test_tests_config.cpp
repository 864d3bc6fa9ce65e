#include "tests/support/scoped_environment.h"
#include "tests/support/temp_folder.h"
#include "vorntest/module_path.h"
#include "vorntest/tests_config.h"
#include "vorntest/vorn_test_bench.h"

#include <cppunit/extensions/HelperMacros.h>

namespace {

using vorntest::ConfigError;
using vorntest::ConfigNode;
using vorntest::TestsConfig;

struct BadFile
{
    char const* content;
    char const* message; ///< behind "tests.xml:"
};

// clang-format off
BadFile const badFiles[] = {
    {"<testsConfig>\n<suite name='a'>\n<mask>x</mask>\n</testsConfig>",
     "4: not well formed: Start-end tags mismatch"},
    {"",
     "1: not well formed: No document element found"},
    {"<testConfig/>",
     "1: the document element is <testConfig>, expected <testsConfig>"},
    {"<testsConfig/>\n<testsConfig/>",
     "2: a second document element <testsConfig>"},
    {"<testsConfig\n\n basepath='x'/>",
     "1: unknown attribute 'basepath' of <testsConfig>; did you mean 'basePath'?"},
    {"<testsConfig>\n<sutie name='a'/></testsConfig>",
     "2: unknown element <sutie> in <testsConfig>; did you mean <suite>?"},
    {"<testsConfig>\n\n<zebra/></testsConfig>",
     "3: unknown element <zebra> in <testsConfig>; known are <module>, <suite>"},
    {"\xEF\xBB\xBF<testsConfig>\r\n<!-- \xD1\x82\xD0\xB5\xD1\x81\xD1\x82\xD1\x8B \xE4\xB8\xAD\xE6\x96\x87 -->\r\n<suite name='a'>\r\n<param nam='b'/></suite></testsConfig>",
     "4: unknown attribute 'nam' of <param>; did you mean 'name'?"},
    {"<testsConfig>\n<suite name='a' mod='TEST'/></testsConfig>",
     "2: unknown attribute 'mod' of <suite>; did you mean 'mode'?"},
    {"<testsConfig>\n<suite name='a' reference='x'/></testsConfig>",
     "2: unknown attribute 'reference' of <suite>; did you mean 'reference_folder'?"},
    {"<testsConfig>\n<suite name='a' name='b'/></testsConfig>",
     "2: attribute 'name' of <suite> is given twice"},
    {"<testsConfig>\n<suite mode='TEST'/></testsConfig>",
     "2: <suite> needs the attribute 'name'"},
    {"<testsConfig>\n<suite name='a' run='explcit'/></testsConfig>",
     "2: run='explcit' of <suite>; did you mean 'explicit'?"},
    {"<testsConfig>\n<suite name='a'>\nmask.xml</suite></testsConfig>",
     "3: text is not allowed in <suite>"},
    {"<testsConfig>\n<suite name='a'>\n<mask> </mask></suite></testsConfig>",
     "3: <mask> is empty"},
    {"<testsConfig>\n<suite name='a'>\n<mask>\n<mask>x</mask></mask></suite></testsConfig>",
     "4: unknown element <mask> in <mask>"},
    {"<testsConfig>\n<suite name='a'>\n<param name='x'/></suite></testsConfig>",
     "3: <param> 'x' has no attribute 'value'"},
    {"<testsConfig>\n<module name='gears'/>\n<module name='build/libgears.so'/></testsConfig>",
     "3: module 'gears' is already named in line 2"},
    {"<testsConfig>\n<module name='cmdtests'/>\n<suite name='a'/>\n<suite name='a' module='cmdtest'/></testsConfig>",
     "4: suite 'a' wants the module 'cmdtest', which no <module> names; did you mean 'cmdtests'?"},
    {"<testsConfig>\n<suite name='a' module='cmdtests'/></testsConfig>",
     "2: suite 'a' wants the module 'cmdtests', which no <module> names"},
};
// clang-format on

std::wstring text(wchar_t const* parameter)
{
    return parameter ? parameter : L"(absent)";
}

} // namespace

class TestTestsConfig : public CppUnit::TestFixture
{
    CPPUNIT_TEST_SUITE(TestTestsConfig);
    CPPUNIT_TEST(readsEverything);
    CPPUNIT_TEST(resolvesBasePath);
    CPPUNIT_TEST(refusesBadFiles);
    CPPUNIT_TEST(keepsContentsWhenLoadingFails);
    CPPUNIT_TEST(findsModules);
    CPPUNIT_TEST(benchGivesParameters);
    CPPUNIT_TEST_SUITE_END();

    TempFolder m_folder;

    TestsConfig loaded(std::string const& content)
    {
        TestsConfig config;
        config.load(m_folder.write("tests.xml", content).str());
        return config;
    }

    void readsEverything()
    {
        TestsConfig const config = loaded(R"(<?xml version="1.0"?>
<testsConfig logPath="logs">
  <!-- the ready module -->
  <module name="cmdtests"/>
  <suite name="A" module="cmdtests" mode="TEST" repeatCount=" 3" precision="1e-6">
    <mask>  one/*.xml
    </mask>
    <mask><![CDATA[a&b/*.xml]]></mask>
    <param name="own" value="first"/>
  </suite>
  <suite name="B" run="explicit"/>
  <suite name="A" mode="REF" repeatCount="3x"><mask>two.xml</mask><param name="own" value="second"/></suite>
</testsConfig>)");
        CPPUNIT_ASSERT_EQUAL(std::size_t(2), config.suites().size());
        CPPUNIT_ASSERT(config.suites()[0].name() == L"A" && config.suites()[1].name() == L"B");
        CPPUNIT_ASSERT(!config.suites()[0].isExplicit() && config.suites()[1].isExplicit());
        CPPUNIT_ASSERT(config.suites()[0].module() == L"cmdtests" && config.suites()[1].module().empty());

        auto const masks = config.range(L"A", L"mask");
        CPPUNIT_ASSERT_EQUAL(std::size_t(3), masks.size());
        CPPUNIT_ASSERT(masks[0].value() == L"one/*.xml" && masks[1].value() == L"a&b/*.xml");
        CPPUNIT_ASSERT(masks[2].value() == L"two.xml");
        CPPUNIT_ASSERT_EQUAL(6, masks[0].line());
        CPPUNIT_ASSERT_EQUAL(12, masks[2].line());
        CPPUNIT_ASSERT(config.range(L"A", L"masks").empty() && config.range(L"C", L"mask").empty());

        ConfigNode const* const node = config.node(L"A");
        CPPUNIT_ASSERT(text(node->parameter(L"mode")) == L"REF" && text(node->parameter(L"own")) == L"second");
        CPPUNIT_ASSERT(!node->parameter(L"output_folder") && !config.node(L"C"));
        CPPUNIT_ASSERT_EQUAL(7, node->asInt(L"repeatCount", 7)); // "3x" is no number
        CPPUNIT_ASSERT_EQUAL(1e-6, node->asDouble(L"precision", 0.5));
        CPPUNIT_ASSERT_EQUAL(0.5, node->asDouble(L"plotstyles_folder", 0.5));
    }

    void resolvesBasePath()
    {
        ScopedEnvironment const variable("VORN_TEST_BASE", "data");
        std::wstring const folder = OdString::fromUtf8(m_folder.path().string()).str();
        struct
        {
            char const* attribute;
            std::wstring expected;
        } const cases[] = {
            {"", folder},
            {"basePath='.'", folder},
            {"basePath='./x//y/../'", folder + L"/x"},
            {"basePath='${VORN_TEST_BASE}/%VORN_TEST_BASE%'", folder + L"/data/data"},
            {"basePath='$VORN_TEST_UNSET'", folder + L"/$VORN_TEST_UNSET"},
            {"basePath='sub\\dir'", folder + L"/sub/dir"},
            {"basePath='/absolute/'", L"/absolute"},
            {"basePath='/'", L"/"},
        };
        for (auto const& [attribute, expected] : cases) {
            TestsConfig const config = loaded("<testsConfig " + std::string(attribute) + "/>");
            CPPUNIT_ASSERT_EQUAL_MESSAGE(attribute, odWideToUtf8(expected),
                                         odWideToUtf8(config.root().parameter(L"basePath")));
        }
    }

    void refusesBadFiles()
    {
        std::string const path = (m_folder / "tests.xml").toUtf8();
        for (auto const& [content, message] : badFiles) {
            try {
                loaded(content);
                CPPUNIT_FAIL(std::string("was accepted: ") + content);
            } catch (ConfigError const& error) {
                CPPUNIT_ASSERT_EQUAL(path + ":" + message, std::string(error.what()));
            }
        }
        CPPUNIT_ASSERT_THROW(TestsConfig().load(L"/no/such/file.xml"), ConfigError);
    }

    void keepsContentsWhenLoadingFails()
    {
        TestsConfig config = loaded("<testsConfig><suite name='a'/></testsConfig>");
        CPPUNIT_ASSERT_THROW(config.load(m_folder.write("bad.xml", "<testsConfig><x/></testsConfig>").str()),
                             ConfigError);
        CPPUNIT_ASSERT(config.node(L"a"));
    }

    void findsModules()
    {
        TestsConfig const config = loaded(R"(<testsConfig basePath="base">
            <module name="cmdtests"/><module name="../lib/libgears.so"/><module name="x/y"/></testsConfig>)");
        auto const modules = config.modules();
        std::wstring const folder = OdString::fromUtf8(m_folder.path().string()).str();
        std::wstring const ready = modulePath(modules[0], config);
        CPPUNIT_ASSERT(ready.starts_with(L"/") && ready.ends_with(L"/vorn/cmdtests.so"));
        CPPUNIT_ASSERT(modules[1].name == L"gears" &&
                       modulePath(modules[1], config) == folder + L"/lib/libgears.so");
        CPPUNIT_ASSERT(modules[2].name == L"y" && modulePath(modules[2], config) == folder + L"/base/x/y.so");
    }

    void benchGivesParameters()
    {
        CPPUNIT_ASSERT(!vorntest::VornTestBench::current());
        {
            vorntest::VornTestBench bench(loaded("<testsConfig logPath='logs'/>"));
            bench.makeCurrent();
            CPPUNIT_ASSERT(vorntest::VornTestBench::current() == &bench);
            CPPUNIT_ASSERT(bench.parameter(L"logPath") == L"logs" && bench.parameter(L"other").empty());
        }
        CPPUNIT_ASSERT(!vorntest::VornTestBench::current());
    }
};

CPPUNIT_TEST_SUITE_REGISTRATION(TestTestsConfig);
