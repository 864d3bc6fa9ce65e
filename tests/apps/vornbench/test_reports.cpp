#include "apps/vornbench/junit_writer.h"
#include "apps/vornbench/legal_text.h"
#include "apps/vornbench/progress_reporter.h"
#include "apps/vornbench/text_width.h"
#include "apps/vornbench/usage_error.h"
#include "host/root/od_string.h"
#include "tests/apps/vornbench/program_run.h"
#include "tests/support/temp_folder.h"

#include <cppunit/extensions/HelperMacros.h>

#include <pugixml.hpp>

#include <algorithm>
#include <sstream>

namespace {

CatalogEntry entry(std::string const& name, std::size_t suiteLength)
{
    return {name, nullptr, suiteLength, name.find('/'), false, nullptr};
}

TestOutcome failedOutcome(CatalogEntry const& test, std::string const& text)
{
    TestOutcome outcome;
    outcome.entry = &test;
    outcome.seconds = 0.25;
    outcome.failures.push_back(
        {.isError = false, .summary = "assertion failed", .details = {text}, .location = {text, 3}, .source = {}});
    outcome.leftovers = {text};
    return outcome;
}

// What messages really hold when drawings and test files are damaged, and what breaks XML.
std::string const hostileTexts[] = {
    std::string("nul \0 inside", 12),
    "controls \x01\x08\x0B\x0C\x1B[31m\x7F",
    "line\nfeed, tab\t, return\r\n",
    "markup <a b='c'>&amp;\"</a> ]]> <!-- --> <?x?>",
    "lone surrogates \xED\xA0\x80 \xED\xBF\xBF",
    "not characters \xEF\xBF\xBE \xEF\xBF\xBF",
    "no UTF-8 \xFF\xC0\x80 cut \xE2\x82",
    "beyond the planes \xF4\x90\x80\x80, fine \xF0\x9F\x93\x90",
};

} // namespace

class TestReports : public CppUnit::TestFixture
{
    CPPUNIT_TEST_SUITE(TestReports);
    CPPUNIT_TEST(junitIsLegalXmlForAnyText);
    CPPUNIT_TEST(junitGroupsAndCounts);
    CPPUNIT_TEST(junitFileIsCheckedBeforeTheRun);
    CPPUNIT_TEST(jsonStringsAreAscii);
    CPPUNIT_TEST(terminalIsUpdatedSeldom);
    CPPUNIT_TEST(textsAreCutByCharacters);
    CPPUNIT_TEST_SUITE_END();

    void junitIsLegalXmlForAnyText()
    {
        TempFolder const folder;
        for (std::string const& text : hostileTexts) {
            CatalogEntry const test = entry("Suite/" + text, 5);
            JunitWriter writer((folder / "report.xml").toUtf8());
            writer.testEnded(failedOutcome(test, text));
            writer.runEnded({});
            CPPUNIT_ASSERT_EQUAL(std::string(), writer.error());
            ProgramRun const check = runProgram({"xmllint", "--noout", "report.xml"}, folder.path());
            CPPUNIT_ASSERT_EQUAL_MESSAGE(check.err, 0, check.exitCode);
        }
        std::string const kept = hostileTexts[3] + "\n\xF0\x9F\x93\x90";
        CatalogEntry const test = entry("Suite/test", 5);
        JunitWriter writer((folder / "report.xml").toUtf8());
        writer.testEnded(failedOutcome(test, kept));
        pugi::xml_document document;
        document.load_string(odUtf8ToWide(writer.report({})).c_str());
        std::wstring const message = document.select_node(L"//failure/@message").attribute().value();
        CPPUNIT_ASSERT_EQUAL(kept, odWideToUtf8(message));
    }

    void junitGroupsAndCounts()
    {
        TempFolder const folder;
        CatalogEntry const tests[] = {entry("A/one", 1), entry("A/B/two", 3), entry("A/three", 1),
                                      entry("C/four", 1)};
        JunitWriter writer((folder / "report.xml").toUtf8());
        RunPlan plan;
        for (CatalogEntry const& test : tests)
            plan.entries.push_back(&test);
        writer.runStarted(plan);
        TestOutcome passed;
        passed.entry = &tests[0];
        passed.seconds = 0.5;
        TestOutcome error = failedOutcome(tests[2], "x");
        error.failures[0].isError = true;
        writer.testEnded(passed);
        writer.testEnded(failedOutcome(tests[1], "y"));
        writer.testEnded(error);
        RunSummary summary;
        summary.counts = {.passed = 1, .failed = 1, .errors = 1};
        summary.selected = 4;
        std::string const report = writer.report(summary);
        for (char const* const part : {
                 "<testsuites name=\"vornbench\" tests=\"4\" failures=\"1\" errors=\"1\" skipped=\"1\"",
                 "<testsuite name=\"A\" tests=\"2\" failures=\"0\" errors=\"1\" skipped=\"0\" time=\"0.750000\">",
                 ("<testsuite name=\"A/B\" tests=\"1\" failures=\"1\" errors=\"0\" skipped=\"0\" "
                  "time=\"0.250000\">"),
                 "<testcase name=\"two\" classname=\"A.B\" file=\"y\" line=\"3\" time=\"0.250000\">",
                 "<testcase name=\"four\" classname=\"C\"><skipped message=\"not run\"/></testcase>",
             })
            CPPUNIT_ASSERT_MESSAGE(part + ("\nnot in\n" + report), report.find(part) != std::string::npos);
    }

    void junitFileIsCheckedBeforeTheRun()
    {
        TempFolder const folder;
        CPPUNIT_ASSERT_THROW(JunitWriter((folder / "missing/report.xml").toUtf8()), UsageError);
        folder.write("report.xml", "earlier");
        JunitWriter const writer((folder / "report.xml").toUtf8());
        CPPUNIT_ASSERT_EQUAL(std::string("earlier"), folder.read("report.xml"));
        CPPUNIT_ASSERT_EQUAL(std::size_t(1), folder.names().size());
    }

    void jsonStringsAreAscii()
    {
        CPPUNIT_ASSERT_EQUAL(std::string(R"("a \"b\" \\ \n\t\u0001\u007f")"),
                             jsonString("a \"b\" \\ \n\t\x01\x7F"));
        CPPUNIT_ASSERT_EQUAL(std::string("\"\xEF\xBF\xBD \xD1\x82\""), jsonString("\xFF \xD1\x82"));
    }

    void terminalIsUpdatedSeldom()
    {
        std::ostringstream out;
        ProgressReporter reporter(Terminal(out, true, false, 40), Verbosity::Normal);
        CatalogEntry const test =
            entry("Suite/a name that is longer than the line \xE4\xB8\xAD of the terminal", 5);
        RunPlan plan;
        plan.selected = 100'000;
        plan.entries = {&test};
        reporter.runStarted(plan);
        auto const start = std::chrono::steady_clock::now();
        TestOutcome passed;
        passed.entry = &test;
        for (std::size_t i = 0; i < plan.selected; ++i) {
            reporter.testStarted(test);
            reporter.testEnded(passed);
        }
        auto const tenths = (std::chrono::steady_clock::now() - start) / std::chrono::milliseconds(100);
        std::string const text = out.str();
        CPPUNIT_ASSERT(std::ranges::count(text, '\r') <= tenths + 1);
        std::size_t const begin = text.find("\x1b[K") + 3;
        std::string const line = text.substr(begin, text.find('\r', begin) - begin);
        CPPUNIT_ASSERT_EQUAL(std::string("0/100000  Suite/a name that is longer \xE2\x80\xA6"), line);
    }

    void textsAreCutByCharacters()
    {
        CPPUNIT_ASSERT_EQUAL(std::string("\xD1\x82\xD1\x82\xE2\x80\xA6"),
                             shortened("\xD1\x82\xD1\x82\xD1\x82\xD1\x82", 3));
        CPPUNIT_ASSERT_EQUAL(std::string("abc"), shortened("abc", 3));
        CPPUNIT_ASSERT_EQUAL(std::string("\xD1\x82  "), padded("\xD1\x82", 3));
        CPPUNIT_ASSERT_EQUAL(std::string("59.99 s"), durationText(59.99));
        CPPUNIT_ASSERT_EQUAL(std::string("1 min 00 s"), durationText(59.997));
        CPPUNIT_ASSERT_EQUAL(std::string("61 min 05 s"), durationText(3665.2));
    }
};

CPPUNIT_TEST_SUITE_REGISTRATION(TestReports);
