#include "testapi/ta_test_case_arg.h"
#include "tests/host/app/document_fixture.h"
#include "tests/testapi/cmd_test_run.h"

#include <cppunit/extensions/HelperMacros.h>

namespace {

using Names = std::set<std::wstring>;

class TestCaseArgTest : public DocumentFixture
{
    CPPUNIT_TEST_SUITE(TestCaseArgTest);
    CPPUNIT_TEST(lists);
    CPPUNIT_TEST(features);
    CPPUNIT_TEST(messages);
    CPPUNIT_TEST(drawings);
    CPPUNIT_TEST(drawingIsClosedWithItsChanges);
    CPPUNIT_TEST(currentDrawingStays);
    CPPUNIT_TEST(failures);
    CPPUNIT_TEST(madeFromText);
    CPPUNIT_TEST_SUITE_END();

    ta::TestCaseArgParams params(std::string const& xml) const
    {
        return ta::TestCaseArgParams(m_folder.write("params.xml", xml).str());
    }
    void assertOnlyOpen(std::string const& drawing) const
    {
        CPPUNIT_ASSERT_EQUAL(1, m_app.getDocumentsCount());
        CPPUNIT_ASSERT_EQUAL((m_folder / drawing).toUtf8(), m_app.currentDocument()->fileName().toUtf8());
    }

public:
    void lists()
    {
        struct Row
        {
            wchar_t const* list;
            Names names;
        };
        Row const rows[] = {
            {nullptr, {}},
            {L"", {}},
            {L",", {}},
            {L"a", {L"a"}},
            {L"a,,b", {L"a", L"b"}},
            {L",b,a,", {L"a", L"b"}},
            {L"a, b", {L"a", L" b"}},
            {L"a,A,a", {L"A", L"a"}},
            {L" , ,\u0436", {L" ", L"\u0436"}},
        };
        for (Row const& row : rows) {
            Names names;
            ta::str2set(row.list, names);
            CPPUNIT_ASSERT_MESSAGE(OdString(row.list ? row.list : L"null").toUtf8(), names == row.names);
        }
        Names kept{L"z"};
        ta::str2set(L"y,z", kept);
        CPPUNIT_ASSERT((kept == Names{L"y", L"z"}));
    }

    void features()
    {
        ta::TestCaseArgParams arg = params("<!-- any name --><settings on='snap,grid, polar' off='ortho,,snap'/>");
        CPPUNIT_ASSERT(!arg.isOn(L"snap"));
        arg.setup();
        CPPUNIT_ASSERT(arg.isOn(L"snap") && arg.isOn(L"grid") && arg.isOn(L" polar") && !arg.isOn(L"polar"));
        CPPUNIT_ASSERT(arg.isOff(L"ortho") && arg.isOff(L"snap") && !arg.isOff(L"grid") && !arg.isOff(L""));
        arg.cleanup();
        CPPUNIT_ASSERT(!arg.isOn(L"grid") && !arg.isOff(L"ortho"));

        m_folder.write("params.xml", "<p on=''/>");
        arg.setup();
        CPPUNIT_ASSERT(!arg.isOn(L"") && !arg.isOn(L"snap") && !arg.isOff(L"snap"));
    }

    void messages()
    {
        ta::TestCaseArgParams arg = params("<p/>");
        CPPUNIT_ASSERT(arg.GetMessage().empty());
        arg.setMessagePrefix(L"gears");
        arg.message(L"turning", false);
        CPPUNIT_ASSERT(arg.GetMessage() == L"gears: turning\n");
        CPPUNIT_ASSERT_EQUAL(std::string("forced failure|gears: stuck\n"),
                             failureOf([&] { arg.message(L"stuck", true); }));
        CPPUNIT_ASSERT(arg.GetMessage() == L"gears: turning\n");
        arg.setup();
        CPPUNIT_ASSERT(arg.GetMessage() == L"using the current open drawing for testing\n");
    }

    void drawings()
    {
        std::filesystem::create_directory(m_folder.path() / "other");
        drawingFile("gear.v2.dxf");
        drawingFile("other/gear.v2.dxf");
        drawingFile("other/rack.dxf");
        std::string const folder = m_folder.path().string();
        struct Row
        {
            std::string dwg;
            std::string opened;
        };
        Row const rows[] = {
            {"gear.v2.dxf", "gear.v2.dxf"},
            {"no/such/folder/gear.v2.dxf", "gear.v2.dxf"},
            {"/gear.v2.dxf", "gear.v2.dxf"},
            {folder + "/other/gear.v2.dxf", "other/gear.v2.dxf"},
            {folder + "/other/rack.dxf", "other/rack.dxf"},
        };
        for (Row const& row : rows) {
            ta::TestCaseArgParams arg = params("<p on='a' dwg='" + row.dwg + "'/>");
            arg.setup();
            assertOnlyOpen(row.opened);
            CPPUNIT_ASSERT(arg.GetMessage().empty());
            arg.cleanup();
            CPPUNIT_ASSERT_EQUAL_MESSAGE(row.dwg, 0, m_app.getDocumentsCount());
        }
    }

    void drawingIsClosedWithItsChanges()
    {
        drawingFile("gear.dxf");
        std::string const saved = m_folder.read("gear.dxf");
        savedDocument("before.dxf");
        ta::TestCaseArgParams arg = params("<p dwg='gear.dxf'/>");
        arg.setup();
        CPPUNIT_ASSERT_EQUAL(2, m_app.getDocumentsCount());
        sds_command(RTSTR, L"LINE", RTSTR, L"0,0", RTSTR, L"1,1", RTNONE); // goes on waiting
        CPPUNIT_ASSERT(m_app.currentDocument()->isModified());
        arg.cleanup();
        assertOnlyOpen("before.dxf");
        CPPUNIT_ASSERT_EQUAL(saved, m_folder.read("gear.dxf"));
        arg.cleanup(); // closes nothing a second time
        assertOnlyOpen("before.dxf");

        arg.setup();
        m_app.currentDocument()->close();
        m_app.currentDocument()->close();
        arg.cleanup(); // the test has closed all by itself
        CPPUNIT_ASSERT_EQUAL(0, m_app.getDocumentsCount());
    }

    void currentDrawingStays()
    {
        ca::CaDoc const& current = savedDocument("mine.dxf");
        sds_command(RTSTR, L"POINT", RTSTR, L"0,0", RTNONE);
        for (char const* const xml : {"<p/>", "<p dwg=''/>"}) {
            ta::TestCaseArgParams arg = params(xml);
            arg.setup();
            CPPUNIT_ASSERT(arg.GetMessage() == L"using the current open drawing for testing\n");
            arg.cleanup();
            assertOnlyOpen("mine.dxf");
            CPPUNIT_ASSERT(current.isModified());
        }
    }

    void failures()
    {
        std::string const noParams = "forced failure|could not read params file\n";
        std::filesystem::create_directory(m_folder.path() / "folder.xml");
        for (char const* const file : {"none.xml", "folder.xml"}) {
            ta::TestCaseArgParams arg((m_folder / file).str());
            CPPUNIT_ASSERT_EQUAL_MESSAGE(file, noParams, failureOf([&] { arg.setup(); }));
        }
        for (char const* const xml : {"", "<p on='a'", "<!-- nothing -->"})
            CPPUNIT_ASSERT_EQUAL_MESSAGE(xml, noParams, failureOf([&] { params(xml).setup(); }));

        m_folder.write("text.dxf", "no drawing");
        savedDocument("mine.dxf");
        for (char const* const dwg : {"none.dxf", "text.dxf", "folder.xml", "."}) {
            ta::TestCaseArgParams arg = params("<p on='a' dwg='" + std::string(dwg) + "'/>");
            CPPUNIT_ASSERT_EQUAL_MESSAGE(dwg, std::string("forced failure|failed to open the drawing\n"),
                                         failureOf([&] { arg.setup(); }));
            arg.cleanup(); // opened nothing, so closes nothing
            assertOnlyOpen("mine.dxf");
        }
    }

    void madeFromText()
    {
        vorntest::TypeDescriptor const& type = *ta::TestCaseArgParams::desc();
        CPPUNIT_ASSERT(type.name() == L"TestCaseArgParams" && type.parent() == vorntest::TestCaseArgBase::desc());
        CPPUNIT_ASSERT_EQUAL(std::size_t(1), type.properties().size());
        CPPUNIT_ASSERT(type.properties().front().name == L"paramsFile");
        auto const arg = type.create(m_folder.write("text.xml", "<p on='a'/>").str());
        CPPUNIT_ASSERT(arg->isA() == &type && arg->testArg() == (m_folder / "text.xml").str());
        auto& made = dynamic_cast<ta::TestCaseArgParams&>(*arg);
        made.setup();
        CPPUNIT_ASSERT(made.isOn(L"a"));
    }
};

CPPUNIT_TEST_SUITE_REGISTRATION(TestCaseArgTest);

} // namespace
