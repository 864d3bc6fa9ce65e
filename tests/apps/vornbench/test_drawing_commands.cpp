// Runs `vornbench audit` and `vornbench convert` on small drawings.
#include "tests/apps/vornbench/program_run.h"
#include "tests/apps/vornbench/small_drawing.h"
#include "tests/support/approved_text.h"
#include "tests/support/temp_folder.h"

#include <cppunit/extensions/HelperMacros.h>

namespace {

constexpr char s_line[] = "0 LINE\n5 A1\n8 0\n10 1.5\n20 0.0\n11 4.0\n21 0.0\n";
constexpr char s_faults[] = "0 CIRCLE\n5 A2\n8 0\n10 0.0\n20 0.0\n40 0.0\n"
                            "0 LINE\n5 A1\n8 0\n10 0.0\n20 0.0\n11 4.0\n21 0.0\n"
                            "0 BALLOON\n5 A4\n8 0\n1 \"raw\" \xC3\xA4\n";

class DrawingCommandsTest : public CppUnit::TestFixture
{
    CPPUNIT_TEST_SUITE(DrawingCommandsTest);
    CPPUNIT_TEST(auditIsApproved);
    CPPUNIT_TEST(auditAsJsonIsApproved);
    CPPUNIT_TEST(exitCodes);
    CPPUNIT_TEST(convertsReleaseAndForm);
    CPPUNIT_TEST(convertsInPlace);
    CPPUNIT_TEST(failedConversionLeavesEverything);
    CPPUNIT_TEST_SUITE_END();

    TempFolder m_folder;

public:
    void setUp() override
    {
        m_folder.write("fine.dxf", smallDrawing("AC1015", s_line));
        m_folder.write("faulty.dxf", smallDrawing("AC1024", std::string(s_line) + s_faults));
        m_folder.write("text.dxf", "no drawing\n");
    }

private:
    ProgramRun bench(std::vector<std::string> arguments)
    {
        arguments.insert(arguments.begin(), VORN_BENCH_PROGRAM);
        return runProgram(arguments, m_folder.path());
    }

    void auditIsApproved()
    {
        ProgramRun const run = bench({"audit", "fine.dxf", "text.dxf", "faulty.dxf"});
        CPPUNIT_ASSERT_EQUAL(4, run.exitCode);
        assertApproved("tests/apps/vornbench/expected/audit.txt", run.out);
        CPPUNIT_ASSERT_MESSAGE(run.err, run.err.starts_with("text.dxf:1: This is not a drawing"));
    }

    void auditAsJsonIsApproved()
    {
        ProgramRun const run = bench({"audit", "--json", "fine.dxf", "text.dxf", "faulty.dxf"});
        CPPUNIT_ASSERT_EQUAL(4, run.exitCode);
        assertApproved("tests/apps/vornbench/expected/audit.json", run.out);
        m_folder.write("audit.json", run.out);
        ProgramRun const judge = runProgram({"python3", "-m", "json.tool", "audit.json"}, m_folder.path());
        CPPUNIT_ASSERT_EQUAL_MESSAGE(judge.err, 0, judge.exitCode);
    }

    void exitCodes()
    {
        CPPUNIT_ASSERT_EQUAL(0, bench({"audit", "fine.dxf"}).exitCode);
        CPPUNIT_ASSERT_EQUAL(1, bench({"audit", "fine.dxf", "faulty.dxf"}).exitCode);
        CPPUNIT_ASSERT_EQUAL(1, bench({"audit", "--json", "faulty.dxf"}).exitCode);
        CPPUNIT_ASSERT_EQUAL(4, bench({"audit", "missing.dxf"}).exitCode);
        CPPUNIT_ASSERT_EQUAL(4, bench({"audit"}).exitCode);
        CPPUNIT_ASSERT_EQUAL(4, bench({"convert", "fine.dxf"}).exitCode);
    }

    void convertsReleaseAndForm()
    {
        assertConverts({"fine.dxf", "a.dxf", "--release", "r12"}, "(R2000, text) -> a.dxf (R12, text)", "AC1009");
        assertConverts({"fine.dxf", "a.dxf", "--release", "AC1018"}, "(R2000, text) -> a.dxf (R2004, text)",
                       "AC1018");
        assertConverts({"fine.dxf", "a.dxf"}, "(R2000, text) -> a.dxf (R2000, text)", "AC1015");
        assertConverts({"fine.dxf", "b.dxf", "--binary"}, "(R2000, text) -> b.dxf (R2000, binary)", "AC1015");
        CPPUNIT_ASSERT(m_folder.read("b.dxf").starts_with("AutoCAD Binary DXF\r\n\x1A"));
        assertConverts({"b.dxf", "c.dxf", "--release", "R2018"}, "(R2000, binary) -> c.dxf (R2018, binary)",
                       "AC1032");
        m_folder.write("r9.dxf", smallDrawing("AC1004", s_line));
        assertConverts({"r9.dxf", "a.dxf"}, "(R9, text) -> a.dxf (R12, text)", "AC1009");
        ProgramRun const mended = bench({"convert", "faulty.dxf", "a.dxf"});
        CPPUNIT_ASSERT_EQUAL(0, mended.exitCode);
        CPPUNIT_ASSERT_MESSAGE(mended.out, mended.out.find("\nfaulty.dxf:") != std::string::npos);
    }

    void convertsInPlace()
    {
        std::string const before = m_folder.read("fine.dxf");
        CPPUNIT_ASSERT_EQUAL(0, bench({"convert", "fine.dxf", "fine.dxf", "--release", "R2010"}).exitCode);
        CPPUNIT_ASSERT(m_folder.read("fine.dxf").find("AC1024") != std::string::npos);
        CPPUNIT_ASSERT_EQUAL(0, bench({"audit", "fine.dxf"}).exitCode);
    }

    void failedConversionLeavesEverything()
    {
        m_folder.write("old.dxf", "old");
        struct
        {
            std::vector<std::string> arguments;
            char const* said;
        } const cases[] = {
            {{"fine.dxf", "old.dxf", "--release", "R1"}, "'R1' is no release that can be written; known are R12"},
            {{"text.dxf", "old.dxf"}, "text.dxf:1: "},
            {{"missing.dxf", "old.dxf"}, "missing.dxf"},
            {{"fine.dxf", "no/folder.dxf"}, "no/folder.dxf"},
        };
        auto const before = m_folder.names();
        for (auto [arguments, said] : cases) {
            arguments.insert(arguments.begin(), "convert");
            ProgramRun const run = bench(arguments);
            CPPUNIT_ASSERT_EQUAL_MESSAGE(run.err, 4, run.exitCode);
            CPPUNIT_ASSERT_MESSAGE(run.err, run.err.find(said) != std::string::npos);
        }
        CPPUNIT_ASSERT_EQUAL(std::string("old"), m_folder.read("old.dxf"));
        CPPUNIT_ASSERT(before == m_folder.names());
    }

    void assertConverts(std::vector<std::string> arguments, std::string const& said, std::string const& code)
    {
        std::string const output = arguments[1];
        arguments.insert(arguments.begin(), "convert");
        ProgramRun const run = bench(arguments);
        CPPUNIT_ASSERT_EQUAL_MESSAGE(run.err, 0, run.exitCode);
        CPPUNIT_ASSERT_MESSAGE(run.out, run.out.find(said) != std::string::npos);
        CPPUNIT_ASSERT_MESSAGE(output, m_folder.read(output).find(code) != std::string::npos);
    }
};

CPPUNIT_TEST_SUITE_REGISTRATION(DrawingCommandsTest);

} // namespace
