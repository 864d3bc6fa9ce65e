// Runs the bench on a copy of the example project: what shall pass passes and leaves the shared drawings alone,
// and what shall fail says so in the words that the user guide explains.
#include "tests/apps/vornbench/program_run.h"
#include "tests/support/approved_text.h"
#include "tests/support/scoped_environment.h"
#include "tests/support/temp_folder.h"

#include <cppunit/extensions/HelperMacros.h>

#include <regex>
#include <span>

namespace fs = std::filesystem;

namespace {

constexpr char const* drawings[] = {"examples/drawings/flange.dxf", "examples/drawings/floor_plan.dxf"};
constexpr char const* references[] = {"examples/references/faces_of_a_roof.dxf",
                                      "examples/references/plate_with_holes.dxf",
                                      "examples/references/rounded_coordinates.dxf"};

std::string replacedAll(std::string text, std::string const& what, std::string const& with)
{
    for (std::size_t at = text.find(what); at != std::string::npos; at = text.find(what, at + with.size()))
        text.replace(at, what.size(), with);
    return text;
}

std::string readmeText()
{
    std::ifstream file(std::string(VORN_SOURCE_DIR) + "/README.md");
    return {std::istreambuf_iterator<char>(file), {}};
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
    CPPUNIT_TEST(referencesComeOutTheSame);
    CPPUNIT_TEST(variablesInFileNames);
    CPPUNIT_TEST(firstTestOfTheReadmePasses);
    CPPUNIT_TEST(comparisonsOfTheReadme);
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
        for (char const* const part : {"suites", "commands", "failing", "drawings", "references"})
            fs::copy(source / part, copy / part, fs::copy_options::recursive);
    }

private:
    ProgramRun bench(std::vector<std::string> const& filters)
    {
        std::vector<std::string> arguments{VORN_BENCH_PROGRAM, "run", "examples/tests.xml"};
        arguments.insert(arguments.end(), filters.begin(), filters.end());
        return runProgram(arguments, m_folder.path());
    }

    std::vector<std::string> contentsOf(std::span<char const* const> files)
    {
        std::vector<std::string> contents;
        for (char const* const file : files)
            contents.push_back(m_folder.read(file));
        return contents;
    }

    void assertContents(std::span<char const* const> files, std::vector<std::string> const& expected)
    {
        for (std::size_t i = 0; i < expected.size(); ++i)
            CPPUNIT_ASSERT_MESSAGE(files[i], expected[i] == m_folder.read(files[i]));
    }

    void testsPassAndLeaveDrawingsAlone()
    {
        std::vector<std::string> const before = contentsOf(drawings);
        ProgramRun const run = bench({});
        CPPUNIT_ASSERT_EQUAL_MESSAGE(run.out, 0, run.exitCode);
        CPPUNIT_ASSERT_EQUAL(std::string(), run.err);
        CPPUNIT_ASSERT_EQUAL_MESSAGE("warnings in\n" + run.out, std::string::npos, run.out.find("warning"));
        CPPUNIT_ASSERT_MESSAGE(run.out, run.out.find("\n38 tests: 38 passed in ") != std::string::npos);
        assertContents(drawings, before);
        CPPUNIT_ASSERT_MESSAGE("files are left in results/", fs::is_empty(m_folder.path() / "examples/results"));
    }

    void failuresAreApproved()
    {
        ProgramRun const run = bench({"Failures", "Brackets that fail"});
        CPPUNIT_ASSERT_EQUAL(1, run.exitCode);
        CPPUNIT_ASSERT_EQUAL(std::string(), run.err);
        std::string text = replacedAll(run.out, m_place, "FOLDER/examples");
        text = std::regex_replace(text, std::regex(R"(\d+\.\d+ m?s)"), "TIME");
        text = std::regex_replace(text, std::regex(R"(< \d+\.\d+)"), "< TIME"); // how long a test took
        text = std::regex_replace(text, std::regex(R"((testapi/\w+):\d+)"), "$1:LINE");
        assertApproved("tests/examples/expected/failures.txt", text);
    }

    void referencesComeOutTheSame()
    {
        std::vector<std::string> const shared = contentsOf(drawings);
        std::vector<std::string> const before = contentsOf(references);
        for (char const* const reference : references)
            fs::remove(m_folder.path() / reference);
        ProgramRun const run = bench({"Make references"});
        CPPUNIT_ASSERT_EQUAL_MESSAGE(run.out, 0, run.exitCode);
        assertContents(references, before);
        assertContents(drawings, shared);
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
        std::string const readme = readmeText();
        m_folder.write("line.xml", xmlBlock(readme, 0));
        m_folder.write("suite.xml", xmlBlock(readme, 1));
        m_folder.write("tests.xml", xmlBlock(readme, 2));
        ProgramRun const run = runProgram({VORN_BENCH_PROGRAM, "run", "tests.xml", "-q"}, m_folder.path());
        CPPUNIT_ASSERT_EQUAL_MESSAGE(run.out + run.err, 0, run.exitCode);
        CPPUNIT_ASSERT_MESSAGE(run.out, run.out.starts_with("1 test: 1 passed in "));
    }

    void comparisonsOfTheReadme()
    {
        std::string const readme = readmeText();
        std::vector<std::string> arguments{VORN_BENCH_PROGRAM, "compare", "examples/drawings/flange.dxf",
                                           "examples/references/rounded_coordinates.dxf"};
        ProgramRun const differing = runProgram(arguments, m_folder.path());
        CPPUNIT_ASSERT_EQUAL(1, differing.exitCode);
        CPPUNIT_ASSERT_MESSAGE(differing.out, readme.find(differing.out) != std::string::npos);
        arguments.insert(arguments.end(), {"--tolerance", "0.005"});
        ProgramRun const equal = runProgram(arguments, m_folder.path());
        CPPUNIT_ASSERT_EQUAL(0, equal.exitCode);
        CPPUNIT_ASSERT_MESSAGE(equal.out, readme.find(equal.out) != std::string::npos);
    }
};

CPPUNIT_TEST_SUITE_REGISTRATION(TestExamples);
