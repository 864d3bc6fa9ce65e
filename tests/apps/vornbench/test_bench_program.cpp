// Runs the program itself on small projects; the module bench_probe makes tests that pass, fail, throw, interrupt
// and crash.
#include "host/root/od_string.h"
#include "tests/apps/vornbench/program_run.h"
#include "tests/support/approved_text.h"
#include "tests/support/temp_folder.h"

#include <cppunit/extensions/HelperMacros.h>

#include <csignal>

namespace {

constexpr char const* goodSuite = R"(<TestSuite name="Good">
  <TestCase name="one" does="pass"/>
  <TestSuite name="Sub">
    <TestCase name="two" does="pass"/>
  </TestSuite>
</TestSuite>
)";

constexpr char const* badSuite = R"(<TestSuite name="Bad">
  <TestCase name="check" does="fail"/>
  <TestCase name="text" does="throw C string"/>
  <TestCase name="database" does="throw OdError"/>
  <TestCase name="standard" does="throw exception"/>
  <TestCase name="fine" does="pass"/>
</TestSuite>
)";

constexpr char const* deadlySuite = R"(<TestSuite name="Deadly">
  <TestCase name="before" does="pass"/>
  <TestCase name="stop" does="interrupt"/>
  <TestCase name="crash" does="crash"/>
</TestSuite>
)";

std::string config(std::string const& suites)
{
    return "<testsConfig>\n<module name=\"" VORN_PROBE_MODULE "\"/>\n" + suites + "</testsConfig>\n";
}

constexpr char const* threeSuites = R"(<suite name="Good" module="bench_probe"><mask>good.xml</mask></suite>
<suite name="Bad" module="bench_probe"><mask>bad.xml</mask></suite>
<suite name="Deadly" module="bench_probe" run="explicit"><mask>deadly.xml</mask></suite>
)";

void replaceAll(std::string& text, std::string const& from, std::string const& to)
{
    for (std::size_t at = text.find(from); at != std::string::npos; at = text.find(from, at + to.size()))
        text.replace(at, from.size(), to);
}

/// Puts TIME for what stands between each `before` and the next character of `end`.
void replaceBehind(std::string& text, std::string const& before, char const* end)
{
    for (std::size_t at = text.find(before); at != std::string::npos; at = text.find(before, at)) {
        at += before.size();
        text.replace(at, text.find_first_of(end, at) - at, "TIME");
    }
}

/// Puts TIME for each duration such as "0.4 ms" or "1.25 s".
void replaceDurations(std::string& text)
{
    for (std::string const unit : {" ms", " s"})
        for (std::size_t at = text.find(unit); at != std::string::npos; at = text.find(unit, at + 1)) {
            std::size_t const begin = text.find_last_not_of("0123456789.", at - 1) + 1;
            if (begin < at)
                text.replace(begin, at + unit.size() - begin, "TIME");
        }
}

/// Takes out what differs from run to run: times and the temporary folder.
std::string scrubbed(std::string text, TempFolder const& folder)
{
    replaceAll(text, folder.path().string(), "FOLDER");
    replaceDurations(text);
    replaceBehind(text, "time=\"", "\"");
    replaceBehind(text, "\"time\":\"", "\"");
    replaceBehind(text, "econds\":", ",}");
    return text;
}

} // namespace

class TestBenchProgram : public CppUnit::TestFixture
{
    CPPUNIT_TEST_SUITE(TestBenchProgram);
    CPPUNIT_TEST(reportsAreApproved);
    CPPUNIT_TEST(helpAndListAreApproved);
    CPPUNIT_TEST(exitCodesTellWhatHappened);
    CPPUNIT_TEST(interruptEndsTheRunInOrder);
    CPPUNIT_TEST(crashNamesTheTest);
    CPPUNIT_TEST(warnsOfWhatSuitesPassOver);
    CPPUNIT_TEST_SUITE_END();

    TempFolder m_folder;

public:
    void setUp() override
    {
        m_folder.write("tests.xml", config(threeSuites));
        m_folder.write("good.xml", goodSuite);
        m_folder.write("bad.xml", badSuite);
        m_folder.write("deadly.xml", deadlySuite);
    }

private:
    ProgramRun bench(std::vector<std::string> arguments)
    {
        arguments.insert(arguments.begin(), VORN_BENCH_PROGRAM);
        return runProgram(arguments, m_folder.path());
    }

    void reportsAreApproved()
    {
        ProgramRun const run = bench({"run", "tests.xml", "--junit", "junit.xml", "--results", "results.jsonl"});
        CPPUNIT_ASSERT_EQUAL(1, run.exitCode);
        CPPUNIT_ASSERT_EQUAL(std::string(), run.err);
        assertApproved("tests/apps/vornbench/expected/run.txt", scrubbed(run.out, m_folder));
        assertApproved("tests/apps/vornbench/expected/junit.xml", scrubbed(m_folder.read("junit.xml"), m_folder));
        assertApproved("tests/apps/vornbench/expected/results.jsonl",
                       scrubbed(m_folder.read("results.jsonl"), m_folder));
        ProgramRun const verbose = bench({"run", "tests.xml", "-v", "Good", "Bad/check"});
        assertApproved("tests/apps/vornbench/expected/run_verbose.txt", scrubbed(verbose.out, m_folder));
        ProgramRun const quiet = bench({"run", "tests.xml", "-q", "Good"});
        CPPUNIT_ASSERT_EQUAL(std::string("2 tests: 2 passed in TIME\n"), scrubbed(quiet.out, m_folder));
    }

    void helpAndListAreApproved()
    {
        ProgramRun const help = bench({"run", "--help"});
        CPPUNIT_ASSERT_EQUAL(0, help.exitCode);
        assertApproved("tests/apps/vornbench/expected/help.txt", help.out);
        ProgramRun const list = bench({"list", "tests.xml", "--", "-Bad/*", "Good", "Bad"});
        CPPUNIT_ASSERT_EQUAL(0, list.exitCode);
        CPPUNIT_ASSERT_EQUAL(std::string("Good/one\nGood/Sub/two\n"), list.out);
        CPPUNIT_ASSERT_EQUAL(std::string("selected 2 of 10 tests\n"), list.err);
    }

    void exitCodesTellWhatHappened()
    {
        m_folder.write("impossible.xml",
                       config("<suite name='Impossible' module='bench_probe'><mask>a</mask></suite>"));
        m_folder.write("broken.xml", "<testsConfig><suit/></testsConfig>");
        m_folder.write("module.xml", "<testsConfig>\n<module name='nowhere'/></testsConfig>");
        m_folder.write("text.xml", "<testsConfig>\n<module name='./tests.xml.so'/></testsConfig>");
        m_folder.write("tests.xml.so", "no library");
        struct
        {
            std::vector<std::string> arguments;
            int exitCode;
            char const* said; ///< part of what standard error holds
        } const cases[] = {
            {{"run", "tests.xml", "Good"}, 0, ""},
            {{"run", "tests.xml", "!Bad"}, 0, ""},
            {{"run", "tests.xml"}, 1, ""},
            {{"run", "tests.xml", "nothing"}, 5, "no test matches the filter 'nothing'"},
            {{"list", "tests.xml", "nothing"}, 5, "selected 0 of 10 tests"},
            {{}, 4, "what to do is missing: run, list, audit, convert or compare"},
            {{"walk", "tests.xml"}, 4, "walk"},
            {{"run"}, 4, "CONFIG is required"},
            {{"run", "tests.xml", "--junt", "x"}, 4, "--junt"},
            {{"run", "tests.xml", "!"}, 4, "filter '!' has no text"},
            {{"run", "missing.xml"}, 4, "missing.xml: cannot read missing.xml: No such file"},
            {{"run", "broken.xml"},
             4,
             "broken.xml:1: unknown element <suit> in <testsConfig>; did you mean <suite>?"},
            {{"run", "module.xml"}, 4, "module.xml:2: module 'nowhere' not found: there is no file /"},
            {{"run", "text.xml"}, 4, "text.xml:2: module 'tests' cannot be loaded: "},
            {{"list", "impossible.xml"}, 4, "impossible.xml: the modules cannot make their tests: no such datum"},
            {{"run", "tests.xml", "--junit", "no/folder.xml"}, 4, "cannot write no/folder.xml: "},
            {{"run", "tests.xml", "--results", "no/folder"}, 4, "cannot write no/folder: No such file"},
            {{"run", "tests.xml", "Good", "--results", "/dev/full"}, 3, "cannot write /dev/full: No space left"},
        };
        for (auto const& [arguments, exitCode, said] : cases) {
            ProgramRun const run = bench(arguments);
            std::string const shown = (arguments.empty() ? "" : arguments.back()) + ": " + run.err;
            CPPUNIT_ASSERT_EQUAL_MESSAGE(shown, exitCode, run.exitCode);
            CPPUNIT_ASSERT_MESSAGE(shown, run.err.find(said) != std::string::npos);
        }
    }

    void interruptEndsTheRunInOrder()
    {
        ProgramRun const run = bench({"run", "tests.xml", "Deadly", "--junit", "junit.xml"});
        CPPUNIT_ASSERT_EQUAL(2, run.exitCode);
        CPPUNIT_ASSERT_EQUAL(std::string("selected 3 of 10 tests\n  Deadly  2 passed  TIME\n"
                                         "2 tests: 2 passed, 1 not run in TIME (interrupted)\n"),
                             scrubbed(run.out, m_folder));
        CPPUNIT_ASSERT(run.err.find("stopping after Deadly/stop") != std::string::npos);
        CPPUNIT_ASSERT(m_folder.read("junit.xml").find("skipped=\"1\"") != std::string::npos);
    }

    void crashNamesTheTest()
    {
        m_folder.write("junit.xml", "earlier");
        ProgramRun const run =
            bench({"run", "tests.xml", "Deadly", "!Deadly/stop", "--results", "log", "--junit", "junit.xml"});
        CPPUNIT_ASSERT_EQUAL(SIGABRT, run.signal);
        std::string const log = m_folder.read("log");
        CPPUNIT_ASSERT_MESSAGE(log, log.find(R"("test":"Deadly/before","result":"passed")") != std::string::npos);
        CPPUNIT_ASSERT_MESSAGE(log, log.ends_with("{\"event\":\"start\",\"test\":\"Deadly/crash\"}\n"));
        CPPUNIT_ASSERT_EQUAL(std::string("earlier"), m_folder.read("junit.xml"));
#ifndef __SANITIZE_ADDRESS__
        CPPUNIT_ASSERT_EQUAL(std::string("\nvornbench: abort in test Deadly/crash\n"), run.err);
#endif
    }

    void warnsOfWhatSuitesPassOver()
    {
        m_folder.write("warn.xml", config(R"(<suite name="Good" module="bench_probe">
<mask>good.xml</mask>
<mask>non?*.xml</mask>
<mask>missing/*.xml</mask>
</suite>
<suite name="Orphan"><mask>good.xml</mask></suite>
<suite name="Bare" module="bench_probe"/>
<suite name="Files" module="bench_probe"><mask>bad.xml</mask></suite>
)"));
        m_folder.write(
            "bad.xml",
            "<TestSuite name='File'>\n<TestSuite name='n'>\n\n<TestCas/></TestSuite>\ntext\n</TestSuite>");
        ProgramRun const run = bench({"list", "warn.xml", "-q"});
        CPPUNIT_ASSERT_EQUAL(std::string(
                                 R"(warn.xml:5: warning: mask 'non?*.xml' of suite 'Good' matches nothing
warn.xml:6: warning: mask 'missing/*.xml' of suite 'Good': cannot read the folder: No such file or directory
warn.xml:8: warning: no module builds suite 'Orphan'; name its module with module=
warn.xml:8: warning: no file that its masks match declares suite 'Orphan', so it has no tests
warn.xml:9: warning: suite 'Bare' has no <mask>, so no tests
bad.xml:5: warning: text in <TestSuite> has no meaning
bad.xml:4: warning: unknown element <TestCas> in <TestSuite>; did you mean <TestCase>?
warn.xml:10: warning: no file that its masks match declares suite 'Files', so it has no tests
bad.xml:1: warning: declares suite 'File', which the configuration does not name; did you mean 'Files'?
)"),
                             run.err);
    }
};

CPPUNIT_TEST_SUITE_REGISTRATION(TestBenchProgram);
