// ZOOM and PLAN, and the variables that show the view. A new drawing shows its limits, 420 by 297.
#include "host/app/command_line.h"
#include "host/app/command_processor.h"
#include "host/app/sys_var.h"
#include "host/db/od_db_database.h"
#include "host/db/records/od_db_viewport_table_record.h"
#include "tests/host/app/draw_script.h"

#include <cppunit/extensions/HelperMacros.h>

namespace {

struct ViewCase
{
    wchar_t const* script;
    char const* view; ///< center and height
    int units = 1;    ///< how often U has to run: views in a row are taken back together
};

class TestViewCommands : public DrawScriptTest
{
    CPPUNIT_TEST_SUITE(TestViewCommands);
    CPPUNIT_TEST(zoomByScale);
    CPPUNIT_TEST(zoomToBoxes);
    CPPUNIT_TEST(zoomBack);
    CPPUNIT_TEST(extentsLeaveOut);
    CPPUNIT_TEST(planOfSystems);
    CPPUNIT_TEST(zoomInATurnedView);
    CPPUNIT_TEST(variablesAreInTheUserCoordinateSystem);
    CPPUNIT_TEST(runsWithinOtherCommands);
    CPPUNIT_TEST(promptsAndRefusals);
    CPPUNIT_TEST_SUITE_END();

    void zoomByScale()
    {
        check({
            {L"ZOOM|2X", "210,148.5 148.5"},
            {L"ZOOM|0.5", "210,148.5 594"}, // of the limits
            {L"ZOOM|4X|ZOOM|S|2", "210,148.5 148.5"},
            {L"Z|S|.5x", "210,148.5 594"},
            {L"ZOOM|C|10,20|50", "10,20 50"},
            {L"ZOOM|C|10,20|", "10,20 297"},
            {L"ZOOM|C|10,20|3X", "10,20 99"},
        });
    }

    void zoomToBoxes()
    {
        check({
            {L"ZOOM|W|0,0|42,29.7", "21,14.85 29.7"},
            {L"ZOOM|42,29.7|0,0", "21,14.85 29.7"},
            {L"ZOOM|0,0|840,10", "420,5 594"}, // as wide as the window
            {L"ZOOM|0,0|0,10", "0,5 10"},
            {L"ZOOM|2X|ZOOM|E", "210,148.5 297"}, // the limits of an empty drawing
            {L"CIRCLE|100,100|50|ZOOM|E", "100,100 100", 2},
            {L"ARC|C|0,0|10,0|0,10|ZOOM|E", "5,5 10", 2},
            {L"POINT|7,8|ZOOM|E", "7,8 297", 2}, // a point has no size
            {L"CIRCLE|100,100|50|ZOOM|2X|ZOOM|A", "210,148.5 297", 2},
            {L"CIRCLE|0,0|1000|ZOOM|A", "0,0 2000", 2},
            {L"CIRCLE|0,0|1|CIRCLE|100,100|50|ZOOM|O|0,1||", "0,0 2", 3},
            {L"CIRCLE|0,0|1|CIRCLE|100,100|50|ZOOM|O|ALL|", "74.5,74.5 151", 3},
        });
    }

    void zoomBack()
    {
        feed(L"ZOOM|P");
        CPPUNIT_ASSERT_EQUAL(std::string("No previous view is saved."), lastPrompt().toUtf8());
        feed(L"ZOOM|2X|ZOOM|4X|ZOOM|P");
        CPPUNIT_ASSERT_EQUAL(std::string("210,148.5 148.5"), view());
        feed(L"ZOOM|P");
        CPPUNIT_ASSERT_EQUAL(std::string("210,148.5 297"), view());
        feed(L"ZOOM|P");
        CPPUNIT_ASSERT_EQUAL(std::string("No previous view is saved."), lastPrompt().toUtf8());
        for (int i = 0; i < 12; ++i)
            feed(L"ZOOM|.5X");
        for (int i = 0; i < 12; ++i)
            feed(L"ZOOM|P");
        CPPUNIT_ASSERT_EQUAL_MESSAGE("ten are remembered", std::string("210,148.5 1188"), view());
        feed(L"POINT|0,0|ZOOM|2X|U|ZOOM|P");
        CPPUNIT_ASSERT_EQUAL_MESSAGE("what U took back", std::string("No previous view is saved."),
                                     lastPrompt().toUtf8());
    }

    void extentsLeaveOut()
    {
        feed(L"CIRCLE|0,0|10|XLINE|0,0|1,1||-LAYER|M|F||CIRCLE|900,0|10|-LAYER|M|OFF||CIRCLE|50,0|10|"
             L"-LAYER|S|0|F|F|OFF|OFF|");
        feed(L"ZOOM|E"); // frozen layers and construction lines; layers that are off count
        CPPUNIT_ASSERT_EQUAL(std::string("25,0 49.5"), view());
    }

    void planOfSystems()
    {
        feed(L"UCS|X|90|LINE|0,0|100,50||PLAN|");
        CPPUNIT_ASSERT_EQUAL(std::string("50,25 70.7143"), view());
        CPPUNIT_ASSERT_EQUAL(std::string("0,0,1"), text(L"VIEWDIR"));
        feed(L"UCS|W");
        CPPUNIT_ASSERT_EQUAL(std::string("0,-1,0"), text(L"VIEWDIR"));
        feed(L"._plan|w");
        CPPUNIT_ASSERT_EQUAL(std::string("0,0,1"), text(L"VIEWDIR"));
        CPPUNIT_ASSERT_EQUAL(std::string("0"), text(L"VIEWTWIST"));
        feed(L"UCS|Z|90|UCS|NA|S|A|UCS|W|PLAN|U|A");
        CPPUNIT_ASSERT_EQUAL(std::string("270"), text(L"VIEWTWIST"));
        feed(L"U");
        CPPUNIT_ASSERT_EQUAL(std::string("0"), text(L"VIEWTWIST"));
    }

    void zoomInATurnedView()
    {
        // Seen from the front, with the world's Z axis upwards.
        feed(L"UCS|X|90|PLAN||ZOOM|W|0,0|10,20");
        CPPUNIT_ASSERT_EQUAL(std::string("5,10 20"), view());
        feed(L"UCS|W|ZOOM|C|3,99,4|50"); // depth does not matter
        CPPUNIT_ASSERT_EQUAL(std::string("3,4 50"), view());
        feed(L"POINT|1,2,3|POINT|1,2,9|ZOOM|A"); // without the limits
        CPPUNIT_ASSERT_EQUAL(std::string("1,6 6"), view());
        // Turned by a quarter: the world's Y axis to the right.
        feed(L"ERASE|ALL||UCS|Z|90|PLAN||UCS|W|ZOOM|W|-20,5|0,15");
        CPPUNIT_ASSERT_EQUAL(std::string("10,10 20"), view());
        CPPUNIT_ASSERT_EQUAL(std::string("-10,10,0"), text(L"VIEWCTR"));
    }

    void variablesAreInTheUserCoordinateSystem()
    {
        feed(L"UCS|10,0|");
        CPPUNIT_ASSERT_EQUAL(std::string("200,148.5,0"), text(L"VIEWCTR"));
        CPPUNIT_ASSERT_EQUAL(std::string("-10,0,0"), text(L"TARGET"));
    }

    void runsWithinOtherCommands()
    {
        feed(L"LINE|0,0|'ZOOM|2X|10,0|");
        CPPUNIT_ASSERT_EQUAL(std::string("LINE 0,0 10,0"), drawn().toUtf8());
        CPPUNIT_ASSERT_EQUAL(std::string("210,148.5 148.5"), view());
        feed(L"U");
        CPPUNIT_ASSERT_EQUAL(std::string("210,148.5 297"), view());
    }

    void promptsAndRefusals()
    {
        PromptCase const prompts[] = {
            {L"ZOOM", L"Specify corner of window, enter a scale factor (nX or nXP), or "
                      L"[All/Center/Extents/Previous/Scale/Window/Object]: "},
            {L"ZOOM|C|1,1", L"Enter magnification or height <297.0000>: "},
            {L"ZOOM|1,1", L"Specify opposite corner: "},
            {L"PLAN", L"Enter an option [Current/Ucs/World] <Current>: "},
        };
        checkPrompts(prompts);
        RefusedCase const refused[] = {
            {L"ZOOM|-2", L"Value must be positive and nonzero."},
            {L"ZOOM|0X", L"Value must be positive and nonzero."},
            {L"ZOOM|abc", L"Requires a number, a number and X, or an option keyword."},
            {L"ZOOM|2XP", L"A scale relative to paper units (XP) needs a viewport of a sheet."},
            {L"ZOOM|W|1,1|1,1", L"The window has no size."},
            {L"ZOOM|C|1,1|-5", L"Value must be positive and nonzero."},
            {L"PLAN|U|NONE", L"UCS \"NONE\" does not exist."},
            {L"TILEMODE|0|ZOOM", L"The view can be changed in model space only."},
            {L"TILEMODE|0|PLAN", L"The view can be changed in model space only."},
        };
        checkRefused(refused);
    }

    static std::string text(wchar_t const* variable) { return ca::SysVar::find(variable)->text().toUtf8(); }

    static std::string view()
    {
        auto const record = db().table(OdDbTableKind::kViewport).getAt(L"*Active").open<OdDbViewportTableRecord>();
        auto const number = [](double value) { return odFormat(L"%.9g", std::round(value * 1e4) / 1e4 + 0.0); };
        return (number(record->centerPoint().x) + L"," + number(record->centerPoint().y) + L" " +
                number(record->height()))
            .toUtf8();
    }

    /// Each script in the drawing as it was at first; then U and REDO, to the bytes.
    static void check(std::vector<ViewCase> const& cases)
    {
        for (ViewCase const& each : cases) {
            std::string const script = OdString(each.script).toUtf8();
            std::string const before = bytes();
            CPPUNIT_ASSERT_EQUAL_MESSAGE(script + ": " + lastPrompt().toUtf8(), int(RTNORM), feed(each.script));
            CPPUNIT_ASSERT_MESSAGE(script, ca::CommandProcessor::get().isIdle());
            CPPUNIT_ASSERT_EQUAL_MESSAGE(script, std::string(each.view), view());
            std::string const after = bytes();
            for (int i = 0; i < each.units; ++i)
                feed(L"U");
            CPPUNIT_ASSERT_MESSAGE(script + ": U left traces", bytes() == before);
            for (int i = 0; i < each.units; ++i)
                feed(L"REDO");
            CPPUNIT_ASSERT_MESSAGE(script + ": REDO did not bring all again", bytes() == after);
            for (int i = 0; i < each.units; ++i)
                feed(L"U");
        }
    }
};

CPPUNIT_TEST_SUITE_REGISTRATION(TestViewCommands);

} // namespace
