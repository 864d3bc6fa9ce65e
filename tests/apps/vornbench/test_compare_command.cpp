// Runs `vornbench compare` on small drawings.
#include "tests/apps/vornbench/program_run.h"
#include "tests/apps/vornbench/small_drawing.h"
#include "tests/support/approved_text.h"
#include "tests/support/temp_folder.h"

#include <cppunit/extensions/HelperMacros.h>

namespace {

constexpr char s_common[] = "0 CIRCLE\n5 A2\n8 0\n10 0.0\n20 0.0\n40 5.0\n";
constexpr char s_onlyInFirst[] = "0 LINE\n5 A1\n8 0\n10 1.5\n20 0.0\n11 4.0\n21 0.0\n"
                                 "0 BALLOON\n5 A4\n8 0\n1 \"raw\" \xC3\xA4\n"
                                 "0 POINT\n5 A5\n8 0\n10 500.0\n20 0.0\n";
constexpr char s_onlyInSecond[] = "0 LINE\n5 A1\n8 0\n10 1.5\n20 0.25\n11 4.0\n21 0.0\n"
                                  "0 BALLOON\n5 A4\n8 0\n1 other\n"
                                  "0 TEXT\n5 B1\n8 0\n10 0.0\n20 0.0\n40 2.5\n1 new\n";

class CompareCommandTest : public CppUnit::TestFixture
{
    CPPUNIT_TEST_SUITE(CompareCommandTest);
    CPPUNIT_TEST(differencesAreApproved);
    CPPUNIT_TEST(equalDrawings);
    CPPUNIT_TEST(tolerance);
    CPPUNIT_TEST(otherHandlesAndOrder);
    CPPUNIT_TEST(whatCannotBeCompared);
    CPPUNIT_TEST(reportReplacesNoDrawing);
    CPPUNIT_TEST(notesOfOpening);
    CPPUNIT_TEST_SUITE_END();

    TempFolder m_folder;

public:
    void setUp() override
    {
        m_folder.write("a.dxf", smallDrawing("AC1015", std::string(s_common) + s_onlyInFirst));
        m_folder.write("b.dxf", smallDrawing("AC1015", std::string(s_common) + s_onlyInSecond));
    }

private:
    ProgramRun bench(std::vector<std::string> arguments)
    {
        arguments.insert(arguments.begin(), VORN_BENCH_PROGRAM);
        return runProgram(arguments, m_folder.path());
    }

    void differencesAreApproved()
    {
        ProgramRun const run = bench({"compare", "a.dxf", "b.dxf", "--json", "report.json"});
        CPPUNIT_ASSERT_EQUAL_MESSAGE(run.err, 1, run.exitCode);
        CPPUNIT_ASSERT_EQUAL(std::string(), run.err);
        assertApproved("tests/apps/vornbench/expected/compare.txt", run.out);
        assertApproved("tests/apps/vornbench/expected/compare.json", m_folder.read("report.json"));
        ProgramRun const judge = runProgram({"python3", "-m", "json.tool", "report.json"}, m_folder.path());
        CPPUNIT_ASSERT_EQUAL_MESSAGE(judge.err, 0, judge.exitCode);
    }

    void equalDrawings()
    {
        CPPUNIT_ASSERT_EQUAL(0, bench({"convert", "a.dxf", "binary.dxf", "--binary"}).exitCode);
        ProgramRun const run = bench({"compare", "a.dxf", "binary.dxf", "--json", "report.json"});
        CPPUNIT_ASSERT_EQUAL_MESSAGE(run.out + run.err, 0, run.exitCode);
        CPPUNIT_ASSERT_EQUAL(
            std::string("a.dxf | binary.dxf\nequal; 4 pairs of entities compared, 1 by the fields "
                        "of drawing files (BALLOON 1)\n"),
            run.out);
        CPPUNIT_ASSERT_EQUAL(
            std::string("{\"files\":[\"a.dxf\",\"binary.dxf\"],\n\"options\":{\"tolerance\":1e-06},\n"
                        "\"differences\":[],\n\"equal\":true,\n\"counts\":{\"differences\":0,"
                        "\"comparedEntities\":4,\"comparedByFields\":{\"BALLOON\":1}}}\n"),
            m_folder.read("report.json"));
    }

    void tolerance()
    {
        for (auto const& [name, radius] : {std::pair("c.dxf", "5.0"), std::pair("d.dxf", "5.001")}) {
            std::string groups = s_common;
            groups.replace(groups.find("5.0"), 3, radius);
            m_folder.write(name, smallDrawing("AC1015", groups));
        }
        CPPUNIT_ASSERT_EQUAL(1, bench({"compare", "c.dxf", "d.dxf"}).exitCode);
        CPPUNIT_ASSERT_EQUAL(1, bench({"compare", "c.dxf", "d.dxf", "--tolerance", "0.0005"}).exitCode);
        CPPUNIT_ASSERT_EQUAL(0, bench({"compare", "c.dxf", "d.dxf", "--tolerance", "0.002"}).exitCode);
        CPPUNIT_ASSERT_EQUAL(0, bench({"compare", "c.dxf", "c.dxf", "--tolerance", "0"}).exitCode);
    }

    /// Circles of which only one is missing, although no handle is the same.
    void otherHandlesAndOrder()
    {
        std::string first, second;
        auto const circle = [](int handle, int x) {
            return "0 CIRCLE\n5 " + std::to_string(handle) + "\n8 0\n10 " + std::to_string(x) +
                   ".0\n20 0.0\n40 1.0\n";
        };
        for (int i = 0; i < 20; ++i) {
            first += circle(100 + i, 10 * i);
            second += i == 7 ? "" : circle(400 - i, 10 * i);
        }
        m_folder.write("c.dxf", smallDrawing("AC1015", first));
        m_folder.write("d.dxf", smallDrawing("AC1015", second));
        ProgramRun const run = bench({"compare", "c.dxf", "d.dxf"});
        CPPUNIT_ASSERT_EQUAL_MESSAGE(run.err, 1, run.exitCode);
        CPPUNIT_ASSERT_MESSAGE(run.out, run.out.find("OdDbCircle 107") != std::string::npos);
        CPPUNIT_ASSERT_MESSAGE(run.out, run.out.ends_with("\n1 difference; 19 pairs of entities compared\n"));
    }

    void whatCannotBeCompared()
    {
        m_folder.write("text.dxf", "no drawing\n");
        m_folder.write("old.json", "old");
        struct
        {
            std::vector<std::string> arguments;
            char const* said;
        } const cases[] = {
            {{"a.dxf"}, "B is required"},
            {{"a.dxf", "missing.dxf"}, "missing.dxf"},
            {{"text.dxf", "b.dxf", "--json", "old.json"}, "text.dxf:1: This is not a drawing"},
            {{"a.dxf", "b.dxf", "--json", "no/report.json"}, "cannot write no/report.json"},
            {{"a.dxf", "b.dxf", "--tolerance", "x"}, "'x' is no tolerance, which is a number from 0 on"},
            {{"a.dxf", "b.dxf", "--tolerance", "-1"}, "'-1' is no tolerance"},
            {{"a.dxf", "b.dxf", "--tolerance", "nan"}, "'nan' is no tolerance"},
        };
        auto const before = m_folder.names();
        for (auto [arguments, said] : cases) {
            arguments.insert(arguments.begin(), "compare");
            ProgramRun const run = bench(arguments);
            CPPUNIT_ASSERT_EQUAL_MESSAGE(run.err, 4, run.exitCode);
            CPPUNIT_ASSERT_EQUAL(std::string(), run.out);
            CPPUNIT_ASSERT_MESSAGE(run.err, run.err.find(said) != std::string::npos);
        }
        CPPUNIT_ASSERT(before == m_folder.names());
        CPPUNIT_ASSERT_EQUAL(std::string("old"), m_folder.read("old.json"));
    }

    void reportReplacesNoDrawing()
    {
        std::string const before = m_folder.read("b.dxf");
        ProgramRun const run = bench({"compare", "a.dxf", "b.dxf", "--json", "./b.dxf"});
        CPPUNIT_ASSERT_EQUAL(4, run.exitCode);
        CPPUNIT_ASSERT_EQUAL(std::string("vornbench: --json would replace the drawing b.dxf\n"), run.err);
        CPPUNIT_ASSERT(before == m_folder.read("b.dxf"));
    }

    void notesOfOpening()
    {
        m_folder.write("c.dxf", smallDrawing("AC1015", std::string(s_common) + s_common));
        ProgramRun const run = bench({"compare", "c.dxf", "c.dxf"});
        CPPUNIT_ASSERT_EQUAL_MESSAGE(run.out + run.err, 0, run.exitCode);
        CPPUNIT_ASSERT_MESSAGE(run.err, run.err.find("The handle A2 is in use twice") != std::string::npos);
    }
};

CPPUNIT_TEST_SUITE_REGISTRATION(CompareCommandTest);

} // namespace
