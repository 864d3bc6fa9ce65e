// The command AUDIT, what opening says, and what saving says.
#include "host/app/ca_doc.h"
#include "host/app/command_line.h"
#include "host/app/file_notes.h"
#include "host/sds/sds.h"
#include "tests/host/app/draw_script.h"
#include "tests/support/temp_folder.h"

#include <cppunit/extensions/HelperMacros.h>

namespace {

/// A circle without radius, a section that nobody knows, and no end mark.
constexpr char s_damaged[] = R"(  0
SECTION
  2
HEADER
  9
$ACADVER
  1
AC1015
  0
ENDSEC
  0
SECTION
  2
EXTRAS
  1
kept
  0
ENDSEC
  0
SECTION
  2
ENTITIES
  0
CIRCLE
  5
A0
  8
0
 10
1.0
 20
1.0
 40
0.0
  0
LINE
  5
A1
  8
0
 10
1.0
 20
1.0
 11
2.0
 21
2.0
  0
ENDSEC
)";

class TestAuditCommand : public DrawScriptTest
{
    CPPUNIT_TEST_SUITE(TestAuditCommand);
    CPPUNIT_TEST(asksAndShows);
    CPPUNIT_TEST(fixesAsOneStep);
    CPPUNIT_TEST(savingSaysWhatIsLost);
    CPPUNIT_TEST(textOfNotes);
    CPPUNIT_TEST_SUITE_END();

public:
    void asksAndShows()
    {
        run(L"AUDIT");
        CPPUNIT_ASSERT_EQUAL(std::string("Fix any errors detected? [Yes/No] <N>: "), lastPrompt().toUtf8());
        run(L"N");
        CPPUNIT_ASSERT_EQUAL(std::string("Total errors found 0 fixed 0"), lastPrompt().toUtf8());
        assertSaid("Release: R2018, new drawing");
        CPPUNIT_ASSERT(!ca::curDoc()->isModified() && ca::curDoc()->openReport().notes.empty());

        openDamaged();
        CPPUNIT_ASSERT_EQUAL(std::size_t(1), ca::curDoc()->openReport().notes.size());
        run(L"AUDIT|");
        CPPUNIT_ASSERT_EQUAL(std::string("Total errors found 1 fixed 0"), lastPrompt().toUtf8());
        assertSaid("Release: R2000, text");
        assertSaid("Model space: CIRCLE 1, LINE 1");
        assertSaid("Raw sections: EXTRAS 1");
        assertSaid((m_folder / "damaged.dxf").toUtf8() + ":");
        assertSaid("CIRCLE: its radius is 0 (can be fixed) (handle A0)");
        CPPUNIT_ASSERT(!ca::curDoc()->isModified());
    }

    void fixesAsOneStep()
    {
        openDamaged();
        std::string const before = drawn().toUtf8();
        run(L"AUDIT|Y");
        CPPUNIT_ASSERT_EQUAL(std::string("Total errors found 1 fixed 1"), lastPrompt().toUtf8());
        assertSaid("CIRCLE: its radius is 0; erased (handle A0)");
        CPPUNIT_ASSERT_EQUAL(std::string("LINE 1,1 2,2"), drawn().toUtf8());
        run(L"AUDIT|N");
        CPPUNIT_ASSERT_EQUAL(std::string("Total errors found 0 fixed 0"), lastPrompt().toUtf8());
        run(L"U");
        CPPUNIT_ASSERT_EQUAL(before, drawn().toUtf8());
    }

    void savingSaysWhatIsLost()
    {
        std::string withRegion = s_damaged;
        withRegion.replace(withRegion.find("CIRCLE"), 6, "REGION");
        openDamaged(withRegion);
        constexpr int kR12 = 68;
        CPPUNIT_ASSERT(ca::curDoc()->saveAs(m_folder / "old.dxf", kR12));
        CPPUNIT_ASSERT(m_folder.read("old.dxf").find("AC1009") != std::string::npos);
        assertSaid((m_folder / "old.dxf").toUtf8() + ": REGION");
        CPPUNIT_ASSERT_MESSAGE("what was said of opening stays",
                               ca::curDoc()->openedFrom() == m_folder / "damaged.dxf");
        CPPUNIT_ASSERT_EQUAL(std::size_t(1), ca::curDoc()->openReport().notes.size());
        run(L"SAVE|" + (m_folder / "copy.dxf"));
        CPPUNIT_ASSERT_MESSAGE("the current release holds all", lastPrompt().find(L"REGION") == OdString::npos);
    }

    void textOfNotes()
    {
        dxf::ReadReport report;
        dxf::SaveReport saving;
        saving.add(L"HATCH: left out", OdDbHandle(0x2Fu));
        CPPUNIT_ASSERT_EQUAL(std::string("a.dxf: HATCH: left out (handle 2F)"), noteOf(saving));
        saving.add(L"HATCH: left out", OdDbHandle(0x30u));
        CPPUNIT_ASSERT_EQUAL(std::string("a.dxf: HATCH: left out (2 times, first 2F)"), noteOf(saving));
        auto const text = [&report](std::size_t place, OdDbHandle handle) {
            return ca::noteText(L"a.dxf", report, {place, handle, L"mended"}).toUtf8();
        };
        CPPUNIT_ASSERT_EQUAL(std::string("a.dxf:12: mended (handle 2F)"), text(12, OdDbHandle(0x2Fu)));
        CPPUNIT_ASSERT_EQUAL(std::string("a.dxf: mended"), text(0, {}));
        report.isBinary = true;
        CPPUNIT_ASSERT_EQUAL(std::string("a.dxf: byte 300: mended"), text(300, {}));
    }

private:
    static std::string noteOf(dxf::SaveReport const& report)
    {
        return ca::noteText(L"a.dxf", report.notes().front()).toUtf8();
    }
    void openDamaged(std::string const& content = s_damaged)
    {
        m_folder.write("damaged.dxf", content);
        run(L"OPEN|" + (m_folder / "damaged.dxf"));
        CPPUNIT_ASSERT(!ca::curDoc()->isModified());
    }
    static void run(OdString const& script)
    {
        int const result = feed(script);
        CPPUNIT_ASSERT_EQUAL_MESSAGE(script.toUtf8() + ": " + lastPrompt().toUtf8(), int(RTNORM), result);
    }
    static void assertSaid(std::string const& begin)
    {
        std::string said;
        for (OdString const& line : ca::app()->commandLine().lines()) {
            said += line.toUtf8() + "\n";
            if (line.toUtf8().starts_with(begin))
                return;
        }
        CPPUNIT_FAIL("no line begins with \"" + begin + "\":\n" + said);
    }

    TempFolder m_folder;
};

CPPUNIT_TEST_SUITE_REGISTRATION(TestAuditCommand);

} // namespace
