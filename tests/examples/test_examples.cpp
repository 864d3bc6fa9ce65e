// Runs the bench on a copy of the example project: what shall pass passes and leaves the shared drawings alone,
// and what shall fail says so in the words that the user guide explains.
#include "tests/apps/vornbench/program_run.h"
#include "tests/support/approved_text.h"
#include "tests/support/scoped_environment.h"
#include "tests/support/temp_folder.h"

#include <cppunit/extensions/HelperMacros.h>

#include <regex>

namespace fs = std::filesystem;

namespace {

constexpr char const* drawings[] = {"examples/drawings/flange.dxf", "examples/drawings/floor_plan.dxf"};

std::string replacedAll(std::string text, std::string const& what, std::string const& with)
{
    for (std::size_t at = text.find(what); at != std::string::npos; at = text.find(what, at + with.size()))
        text.replace(at, what.size(), with);
    return text;
}

/// The n-th block of XML in a Markdown text, counted from 0.
std::string xmlBlock(std::string const& markdown, int number)
{
    std::string const begin = "\n```xml\n";
    std::size_t at = markdown.find(begin);
    for (; number > 0 && at != std::string::npos; --number)
        at = markdown.find(begin, at + 1);
    CPPUNIT_ASSERT(at != std::string::npos);
    at += begin.size();
    return markdown.substr(at, markdown.find("```", at) - at);
}

} // namespace

class TestExamples : public CppUnit::TestFixture
{
    CPPUNIT_TEST_SUITE(TestExamples);
    CPPUNIT_TEST(testsPassAndLeaveDrawingsAlone);
    CPPUNIT_TEST(failuresAreApproved);
    CPPUNIT_TEST(variablesInFileNames);
    CPPUNIT_TEST(firstTestOfTheReadmePasses);
    CPPUNIT_TEST_SUITE_END();

    TempFolder m_folder;
    std::string m_place;

public:
    void setUp() override
    {
        fs::path const source = fs::path(VORN_SOURCE_DIR) / "examples";
        fs::path const copy = m_folder.path() / "examples";
        m_place = copy.string();
        fs::create_directories(copy / "results");
        fs::copy(source / "tests.xml", copy);
        for (char const* const part : {"suites", "commands", "failing", "drawings"})
            fs::copy(source / part, copy / part, fs::copy_options::recursive);
    }

private:
    ProgramRun bench(std::vector<std::string> const& filters)
    {
        std::vector<std::string> arguments{VORN_BENCH_PROGRAM, "run", "examples/tests.xml"};
        arguments.insert(arguments.end(), filters.begin(), filters.end());
        return runProgram(arguments, m_folder.path());
    }

    void testsPassAndLeaveDrawingsAlone()
    {
        std::vector<std::string> before;
        for (char const* const drawing : drawings)
            before.push_back(m_folder.read(drawing));
        ProgramRun const run = bench({});
        CPPUNIT_ASSERT_EQUAL_MESSAGE(run.out, 0, run.exitCode);
        CPPUNIT_ASSERT_EQUAL(std::string(), run.err);
        CPPUNIT_ASSERT_EQUAL_MESSAGE("warnings in\n" + run.out, std::string::npos, run.out.find("warning"));
        CPPUNIT_ASSERT_MESSAGE(run.out, run.out.find("\n27 tests: 27 passed in ") != std::string::npos);
        for (std::size_t i = 0; i < before.size(); ++i)
            CPPUNIT_ASSERT_MESSAGE(drawings[i], before[i] == m_folder.read(drawings[i]));
        CPPUNIT_ASSERT_MESSAGE("files are left in results/", fs::is_empty(m_folder.path() / "examples/results"));
    }

    void failuresAreApproved()
    {
        ProgramRun const run = bench({"Failures"});
        CPPUNIT_ASSERT_EQUAL(1, run.exitCode);
        CPPUNIT_ASSERT_EQUAL(std::string(), run.err);
        std::string text = replacedAll(run.out, m_place, "FOLDER/examples");
        text = std::regex_replace(text, std::regex(R"(\d+\.\d+ m?s)"), "TIME");
        text = std::regex_replace(text, std::regex(R"(< \d+\.\d+)"), "< TIME"); // how long a test took
        assertApproved("tests/examples/expected/failures.txt", text);
    }

    void variablesInFileNames()
    {
        {
            ScopedEnvironment const isSet("VORN_EXAMPLES", m_place.c_str());
            ProgramRun const run = bench({"Environment"});
            CPPUNIT_ASSERT_EQUAL_MESSAGE(run.out, 0, run.exitCode);
            CPPUNIT_ASSERT_MESSAGE(run.out, run.out.find("\n3 tests: 3 passed in ") != std::string::npos);
        }
        ScopedEnvironment const isUnset("VORN_EXAMPLES", nullptr);
        ProgramRun const run = bench({"Environment/braces"});
        CPPUNIT_ASSERT_EQUAL(1, run.exitCode);
        std::string const expected =
            "Test file not found: " + m_place + "/suites/${VORN_EXAMPLES}/commands/environment.xml\n";
        CPPUNIT_ASSERT_MESSAGE(run.out, run.out.find(expected) != std::string::npos);
    }

    void firstTestOfTheReadmePasses()
    {
        std::ifstream file(std::string(VORN_SOURCE_DIR) + "/README.md");
        std::string const readme{std::istreambuf_iterator<char>(file), {}};
        m_folder.write("line.xml", xmlBlock(readme, 0));
        m_folder.write("suite.xml", xmlBlock(readme, 1));
        m_folder.write("tests.xml", xmlBlock(readme, 2));
        ProgramRun const run = runProgram({VORN_BENCH_PROGRAM, "run", "tests.xml", "-q"}, m_folder.path());
        CPPUNIT_ASSERT_EQUAL_MESSAGE(run.out + run.err, 0, run.exitCode);
        CPPUNIT_ASSERT_MESSAGE(run.out, run.out.starts_with("1 test: 1 passed in "));
    }
};

CPPUNIT_TEST_SUITE_REGISTRATION(TestExamples);
