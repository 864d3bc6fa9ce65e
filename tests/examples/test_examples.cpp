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
    CPPUNIT_TEST(testsForEachDatum);
    CPPUNIT_TEST(dataThatAreLeftOut);
    CPPUNIT_TEST(testsForEachParametersFile);
    CPPUNIT_TEST(suiteOfFilesThatNothingNames);
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
        for (char const* const part :
             {"suites", "commands", "failing", "drawings", "references", "data", "params"})
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
        CPPUNIT_ASSERT_MESSAGE(run.out, run.out.find("\n56 tests: 56 passed in ") != std::string::npos);
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

    ProgramRun listOfArcs()
    {
        return runProgram({VORN_BENCH_PROGRAM, "list", "examples/tests.xml", "ArcTests/ArcTests.trim", "-q"},
                          m_folder.path());
    }

    void testsForEachDatum()
    {
        ProgramRun const list = listOfArcs();
        std::string expected;
        for (int i = 0; i < 6; ++i) // the last two are circles
            expected += "ArcTests/ArcTests.trim/ArcTests.trim.Data#" + std::to_string(i) + "\n";
        CPPUNIT_ASSERT_EQUAL(expected, list.out);
        CPPUNIT_ASSERT_EQUAL(std::string(), list.err);
    }

    void dataThatAreLeftOut()
    {
        m_folder.write("examples/data/arcs.xml",
                       "<Arcs>\n<TestOdGeCircArc2d/>\n"
                       "<TestOdGeCircArc2d center='0,0' radius='2' startAng='0' endAng='1'/>\n<Arc/>\n</Arcs>\n");
        ProgramRun const list = listOfArcs();
        CPPUNIT_ASSERT_EQUAL(std::string("ArcTests/ArcTests.trim/ArcTests.trim.Data#0\n"), list.out);
        std::string const warnings =
            "examples/data/arcs.xml:2: warning: TestOdGeCircArc2d could not be read, left out: it has no center\n"
            "examples/data/arcs.xml:4: warning: no class of data is named Arc, left out\n";
        CPPUNIT_ASSERT_EQUAL(warnings, list.err);
        ProgramRun const run = bench({"ArcTests"});
        CPPUNIT_ASSERT_EQUAL(warnings, run.err);
        CPPUNIT_ASSERT_EQUAL_MESSAGE(run.out, 0, run.exitCode);
        CPPUNIT_ASSERT_EQUAL(1, bench({"ArcTests", "--strict"}).exitCode);

        fs::remove(m_folder.path() / "examples/data/arcs.xml");
        CPPUNIT_ASSERT_EQUAL(
            std::string("examples/data/arcs.xml:1: warning: no data are read: File was not found\n"
                        "vornbench: warning: no test matches the filter 'ArcTests/ArcTests.trim'\n"),
            listOfArcs().err);
    }

    void testsForEachParametersFile()
    {
        m_folder.write("examples/params/broken.xml", "<params\n  on=turn/>");
        m_folder.write("examples/params/no_drawing.xml", "<!-- -->\n<params onn='turn' dwg='none.dxf'/>");
        ProgramRun const run = bench({"Transformations/*/MIRROR*", "-q"});
        CPPUNIT_ASSERT_EQUAL(1, run.exitCode);
        CPPUNIT_ASSERT_EQUAL(std::string("examples/params/broken.xml:2: warning: the parameters cannot be read: "
                                         "Error parsing element attribute\n"
                                         "examples/params/no_drawing.xml:2: warning: no parameter is named onn; "
                                         "did you mean 'on'?\n"),
                             run.err);
        std::string const test = "MIRROR keeps its sources when told to";
        for (std::string const& failure :
             {"examples/params/broken.xml:2: failed: Transformations/broken/" + test +
                  "\n    setUp() failed\n    - forced failure\n    - could not read params file\n",
              "examples/params/no_drawing.xml:1: failed: Transformations/no_drawing/" + test +
                  "\n    setUp() failed\n    - forced failure\n    - failed to open the drawing\n    | cannot "
                  "read " +
                  m_place + "/params/none.dxf: "})
            CPPUNIT_ASSERT_MESSAGE(run.out, run.out.find(failure) != std::string::npos);
        CPPUNIT_ASSERT_MESSAGE(run.out, run.out.find("4 tests: 2 passed, 2 failed in ") != std::string::npos);
    }

    void suiteOfFilesThatNothingNames()
    {
        m_folder.write("tests.xml", "<testsConfig>\n<module name='brackets'/></testsConfig>");
        ProgramRun run = runProgram({VORN_BENCH_PROGRAM, "list", "tests.xml", "Brackets", "-q"}, m_folder.path());
        CPPUNIT_ASSERT_EQUAL(std::string("tests.xml:1: warning: suite 'Transformations' makes its tests of files, "
                                         "but no <suite> names it and them\n"),
                             run.err);
        m_folder.write("tests.xml", "<testsConfig>\n<module name='brackets'/>\n<suite name='Transformations'/>"
                                    "</testsConfig>");
        run = runProgram({VORN_BENCH_PROGRAM, "list", "tests.xml", "Brackets", "-q"}, m_folder.path());
        CPPUNIT_ASSERT_EQUAL(
            std::string("tests.xml:3: warning: suite 'Transformations' has no <mask>, so no tests\n"), run.err);
    }
};

CPPUNIT_TEST_SUITE_REGISTRATION(TestExamples);
