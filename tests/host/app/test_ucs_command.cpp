// UCS, UcsOp, and the variables that show the user coordinate system.
#include "host/app/ca_doc.h"
#include "host/app/ca_ucs_op.h"
#include "host/app/command_line.h"
#include "host/app/sds_cmd.h"
#include "host/app/sys_var.h"
#include "host/db/oa_space.h"
#include "host/db/records/od_db_symbol_table.h"
#include "tests/host/app/draw_script.h"
#include "tests/support/od_result_of.h"

#include <cppunit/extensions/HelperMacros.h>

namespace {

struct UcsCase
{
    wchar_t const* script;
    char const* ucs; ///< origin, X axis, Y axis
    int commands = 1;
};

class TestUcsCommand : public DrawScriptTest
{
    CPPUNIT_TEST_SUITE(TestUcsCommand);
    CPPUNIT_TEST(byPoints);
    CPPUNIT_TEST(aboutAxes);
    CPPUNIT_TEST(alongZ);
    CPPUNIT_TEST(olderOptions);
    CPPUNIT_TEST(worldAndView);
    CPPUNIT_TEST(ofObjects);
    CPPUNIT_TEST(previousOnes);
    CPPUNIT_TEST(namedOnes);
    CPPUNIT_TEST(sheetsHaveTheirOwn);
    CPPUNIT_TEST(prompts);
    CPPUNIT_TEST(refusalsChangeNothing);
    CPPUNIT_TEST(operation);
    CPPUNIT_TEST_SUITE_END();

    void byPoints()
    {
        check({
            {L"UCS|10,20,5|", "10,20,5 1,0,0 0,1,0"},
            {L"UCS|10,20|10,30|", "10,20,0 0,1,0 -1,0,0"},
            {L"UCS|10,20|10,30|20,20", "10,20,0 0,1,0 1,0,0"},
            {L"UCS|10,20|15,20|10,20,9", "10,20,0 1,0,0 0,0,1"},
            {L"UCS|0,0|0,0,5|", "0,0,0 0,0,1 0,-1,0"}, // along the old Z axis
            {L"UCS|0,0|3,0,3|", "0,0,0 0.7071,0,0.7071 0,1,0"},
            {L"UCS|Z|90|UCS|10,0|", "0,10,0 0,1,0 -1,0,0", 2}, // points are in the present system
        });
    }

    void aboutAxes()
    {
        check({
            {L"UCS|Z|90", "0,0,0 0,1,0 -1,0,0"},
            {L"UCS|X|90", "0,0,0 1,0,0 0,0,1"},
            {L"UCS|Y|90", "0,0,0 0,0,-1 0,1,0"},
            {L"UCS|X|", "0,0,0 1,0,0 0,0,1"},
            {L"UCS|Z|0,0|5,5", "0,0,0 0.7071,0.7071,0 -0.7071,0.7071,0"},
            {L"UCS|1,2,3||UCS|X|90|UCS|Z|90", "1,2,3 0,0,1 -1,0,0",
             3}, // the system's own axes, through its origin
        });
        feed(L"UCSAXISANG|30");
        feed(L"UCS|W|UCS|Z|");
        CPPUNIT_ASSERT_EQUAL(std::string("0,0,0 0.866,0.5,0 -0.5,0.866,0"), ucs());
    }

    void alongZ()
    {
        check({
            {L"UCS|ZA|1,2,3|1,2,13", "1,2,3 1,0,0 0,1,0"},
            {L"UCS|Z|90|UCS|ZA|1,2,3|", "-2,1,3 0,1,0 -1,0,0", 2}, // only the origin moves
            {L"UCS|ZA|1,2,3|11,2,3", "1,2,3 0,1,0 0,0,1"},
            {L"UCS|ZA||0,9,0", "0,0,0 -1,0,0 0,0,1"},
        });
    }

    void olderOptions()
    {
        check({
            {L"UCS|M|5,6,7", "5,6,7 1,0,0 0,1,0"},
            {L"UCS|X|90|UCS|M|Z|5", "0,-5,0 1,0,0 0,0,1", 2},
            {L"UCS|OR|1,2", "1,2,0 1,0,0 0,1,0"},
            {L"UCS|3|1,2|1,5|-5,2", "1,2,0 0,1,0 -1,0,0"},
            {L"UCS|1,2||UCS|3||1,0|0,-1", "1,2,0 1,0,0 0,-1,0", 2},
            {L"UCS|N|1,2,3", "1,2,3 1,0,0 0,1,0"},
            {L"UCS|N|ZA||0,9,0", "0,0,0 -1,0,0 0,0,1"},
        });
    }

    void worldAndView()
    {
        check({
            {L"UCS|Z|30|UCS|W|UCS|X|90", "0,0,0 1,0,0 0,0,1", 3},
            {L"UCS|1,2,3||PLAN||UCS|Y|90|UCS|V", "1,2,3 1,0,0 0,1,0", 4},
            {L"UCS|X|90|PLAN||UCS|W|UCS|V", "0,0,0 1,0,0 0,0,1", 4},
            {L"UCS|Z|90|PLAN||UCS|W|UCS|V", "0,0,0 0,1,0 -1,0,0", 4}, // a view that is turned
        });
        feed(L"UCS|W|UCS|X|30");
        CPPUNIT_ASSERT_EQUAL(0, std::get<int>(ca::SysVar::find(L"WORLDUCS")->value()));
        feed(L"UCS|"); // Enter: the world
        CPPUNIT_ASSERT_EQUAL(std::string("0,0,0 1,0,0 0,1,0"), ucs());
        CPPUNIT_ASSERT_EQUAL(1, std::get<int>(ca::SysVar::find(L"WORLDUCS")->value()));
    }

    void ofObjects()
    {
        checkObject(L"LINE|10,10|20,20|", L"19,19", "20,20,0 -0.7071,-0.7071,0 0.7071,-0.7071,0");
        checkObject(L"LINE|10,10|20,20|", L"11,11", "10,10,0 0.7071,0.7071,0 -0.7071,0.7071,0");
        checkObject(L"LINE|1,1,1|1,1,9|", L"L", "1,1,1 0,0,1 0,-1,0");
        checkObject(L"ARC|C|5,5|15,5|5,15", L"5,15", "5,5,0 0,1,0 -1,0,0");
        checkObject(L"ARC|C|5,5|15,5|5,15", L"15,5", "5,5,0 1,0,0 0,1,0");
        checkObject(L"CIRCLE|5,5|20", L"5,25", "5,5,0 0,1,0 -1,0,0");
        checkObject(L"PLINE|1,1|1,50|90,90|", L"1,25", "1,1,0 0,1,0 -1,0,0");
        checkObject(L"POINT|3,4,5", L"3,4", "3,4,5 1,0,0 0,1,0");
        checkObject(L"TEXT|2,3|5|90|HI|", L"L", "2,3,0 0,1,0 -1,0,0");
        checkObject(L"SOLID|0,0|0,10|10,0|10,10|", L"L", "0,0,0 0,1,0 -1,0,0");
        checkObject(L"3DFACE|0,0,0|0,0,10|0,10,10|0,10,0|", L"L", "0,0,0 0,0,1 0,1,0");
        checkObject(L"POINT|0,0|-BLOCK|B|0,0|L||-INSERT|B|7,8|1|1|90", L"L", "7,8,0 0,1,0 -1,0,0");
        // What is drawn in a turned system lies in it.
        checkObject(L"UCS|X|90|CIRCLE|5,5|2|UCS|W", L"L", "5,0,5 1,0,0 0,0,1");
    }

    void previousOnes()
    {
        feed(L"UCS|P");
        CPPUNIT_ASSERT_EQUAL(std::string("No previous coordinate system is saved."), lastPrompt().toUtf8());
        feed(L"UCS|1,0||UCS|2,0||UCS|P");
        CPPUNIT_ASSERT_EQUAL(std::string("1,0,0 1,0,0 0,1,0"), ucs());
        feed(L"UCS|P|UCS|P");
        CPPUNIT_ASSERT_EQUAL(std::string("0,0,0 1,0,0 0,1,0"), ucs());
        for (int i = 0; i < 12; ++i)
            feed(L"UCS|1,0|");
        for (int i = 0; i < 12; ++i)
            feed(L"UCS|P");
        CPPUNIT_ASSERT_EQUAL_MESSAGE("ten are remembered", std::string("2,0,0 1,0,0 0,1,0"), ucs());
        // What U took back is no previous system.
        feed(L"UCS|W|UCS|5,5||U|UCS|P");
        CPPUNIT_ASSERT_EQUAL(std::string("2,0,0 1,0,0 0,1,0"), ucs());
    }

    void namedOnes()
    {
        feed(L"UCS|Z|90|UCS|NA|S|Side");
        CPPUNIT_ASSERT_EQUAL(std::string("Side"), name());
        feed(L"UCS|W");
        CPPUNIT_ASSERT_EQUAL(std::string(), name());
        feed(L"UCS|NA|R|SIDE");
        CPPUNIT_ASSERT_EQUAL(std::string("0,0,0 0,1,0 -1,0,0"), ucs());
        CPPUNIT_ASSERT_EQUAL(std::string("Side"), name());
        CPPUNIT_ASSERT(bytes().find("\nSide\n") != std::string::npos);
        feed(L"UCS|X|90");
        CPPUNIT_ASSERT_EQUAL(std::string(), name());
        feed(L"UCS|S|side|No|UCS|R|side");
        CPPUNIT_ASSERT_EQUAL(std::string("0,0,0 0,1,0 -1,0,0"), ucs());
        feed(L"UCS|1,2,3||UCS|NA|S|side|Yes|UCS|NA|S|top|UCS|W|UCS|NA|R|side");
        CPPUNIT_ASSERT_EQUAL(std::string("-2,1,3 0,1,0 -1,0,0"), ucs());
        feed(L"UCS|?|s*");
        CPPUNIT_ASSERT_EQUAL(std::string("Named coordinate systems: 1"), lastPrompt().toUtf8());
        feed(L"UCS|NA|D|S*,TOP");
        CPPUNIT_ASSERT_EQUAL(std::string("2 UCS names were deleted."), lastPrompt().toUtf8());
        CPPUNIT_ASSERT_EQUAL(std::string(), name());
        CPPUNIT_ASSERT_EQUAL(std::string("-2,1,3 0,1,0 -1,0,0"), ucs());
        feed(L"U");
        CPPUNIT_ASSERT_EQUAL(std::string("Side"), name());
        feed(L"UCS|NA|?|");
        CPPUNIT_ASSERT_EQUAL(std::string("Named coordinate systems: 2"), lastPrompt().toUtf8());
    }

    void sheetsHaveTheirOwn()
    {
        feed(L"UCS|Z|90|TILEMODE|0|UCS|3,4|");
        CPPUNIT_ASSERT_EQUAL(std::string("3,4,0 1,0,0 0,1,0"), ucs());
        feed(L"TILEMODE|1");
        CPPUNIT_ASSERT_EQUAL(std::string("0,0,0 0,1,0 -1,0,0"), ucs());
        feed(L"UCS|P");
        CPPUNIT_ASSERT_EQUAL(std::string("0,0,0 1,0,0 0,1,0"), ucs());
        feed(L"TILEMODE|0");
        CPPUNIT_ASSERT_EQUAL(std::string("3,4,0 1,0,0 0,1,0"), ucs());
    }

    void prompts()
    {
        PromptCase const cases[] = {
            {L"UCS", L"Specify origin of UCS or [NAmed/OBject/Previous/View/World/X/Y/Z/ZAxis] <World>: "},
            {L"UCS|1,1", L"Specify point on X-axis or <accept>: "},
            {L"UCS|1,1|2,2", L"Specify point on the XY plane or <accept>: "},
            {L"UCS|Y", L"Specify rotation angle about Y axis <90.00>: "},
            {L"UCS|ZA|1,2,3", L"Specify point on positive portion of Z-axis <1.0000,2.0000,4.0000>: "},
            {L"UCS|NA", L"Enter an option [Restore/Save/Delete/?]: "},
            {L"UCS|NA|R", L"Enter name of UCS to restore or [?]: "},
            {L"UCS|OB", L"Select object to align UCS: "},
        };
        checkPrompts(cases);
        sds_cmd(nullptr);
        feed(L"UCS|?|*");
        CPPUNIT_ASSERT_EQUAL(std::string("Named coordinate systems: 0"), lastPrompt().toUtf8());
        checkCurrentName(L"W", "*WORLD*");
        checkCurrentName(L"X|30", "*NO NAME*");
        checkCurrentName(L"NA|S|Own", "Own");
    }

    void refusalsChangeNothing()
    {
        RefusedCase const cases[] = {
            {L"UCS|1,1|1,1", L"The point on the X axis must differ from the origin."},
            {L"UCS|0,0|1,0|5,0", L"The three points lie on one line."},
            {L"UCS|ZA|1,1|1,1", L"The point on the Z axis must differ from the origin."},
            {L"UCS|NA|R|NONE", L"UCS \"NONE\" does not exist."},
            {L"UCS|NA|S|a*b", L"\"a*b\" is not a valid name."},
            {L"UCS|NA|D|NONE", L"UCS \"NONE\" does not exist."},
            {L"XLINE|0,0|1,1||UCS|OB|L", L"This object defines no coordinate system."},
            {L"UCS|OB|L", L"No object found."},
            {L"UCS|Z|1,1|1,1", L"The two points are the same."},
            {L"UCS|5", L"Point or option keyword required."},
        };
        checkRefused(cases);
        std::string const before = bytes();
        feed(L"UCS|0,0|1,0|5,0");
        CPPUNIT_ASSERT(bytes() == before);
    }

    void operation()
    {
        ca::CaDoc& document = *ca::curDoc();
        {
            ca::UcsOp forgotten(document);
            forgotten.setOrigin({1, 1, 1});
        }
        CPPUNIT_ASSERT_EQUAL(std::string("0,0,0 1,0,0 0,1,0"), ucs());
        ca::UcsOp op(document);
        OdGeMatrix3d expected;
        for (int axis = 0; axis < 3; ++axis) {
            double const angle = (axis + 1) * OdaPI / 18;
            op.rotate(axis, angle);
            op.commit();
            OdGeVector3d const direction(axis == 0, axis == 1, axis == 2);
            expected = expected * OdGeMatrix3d::rotation(angle, direction);
        }
        op.setOrigin({7, 8, 9});
        op.commit();
        CPPUNIT_ASSERT(oa::ucsToWorld(&db()) == OdGeMatrix3d::translation({7, 8, 9}) * expected);
        op.rotate(OdGeVector3d(1, 1, 1), Oda2PI / 3); // X becomes Y, Y becomes Z
        CPPUNIT_ASSERT(op.xAxis() == expected * OdGeVector3d(0, 1, 0) &&
                       op.yAxis() == expected * OdGeVector3d(0, 0, 1));
        CPPUNIT_ASSERT_EQUAL(eDegenerateGeometry, odResultOf([&] { op.set({0, 0, 0}, {1, 0, 0}, {1, 1, 0}); }));
        CPPUNIT_ASSERT_EQUAL(eDegenerateGeometry, odResultOf([&] { op.set({0, 0, 0}, {1, 0, 0}, {0, 0, 0}); }));
        CPPUNIT_ASSERT_EQUAL(eOutOfRange, odResultOf([&] { op.rotate(3, 1); }));
        CPPUNIT_ASSERT(op.origin() == OdGePoint3d(7, 8, 9));
    }

    static std::string name() { return ca::SysVar::find(L"UCSNAME")->text().toUtf8(); }

    static std::string coordinates(wchar_t const* variable)
    {
        auto const point = std::get<OdGePoint3d>(ca::SysVar::find(variable)->value());
        auto const number = [](double value) { return odFormat(L"%.5g", std::round(value * 1e4) / 1e4 + 0.0); };
        return (number(point.x) + L"," + number(point.y) + L"," + number(point.z)).toUtf8();
    }
    static std::string ucs()
    {
        return coordinates(L"UCSORG") + " " + coordinates(L"UCSXDIR") + " " + coordinates(L"UCSYDIR");
    }

    /// Each script in the drawing as it was at first; then U and REDO, to the bytes.
    static void check(std::vector<UcsCase> const& cases)
    {
        for (UcsCase const& each : cases) {
            std::string const script = OdString(each.script).toUtf8();
            std::string const before = bytes();
            CPPUNIT_ASSERT_EQUAL_MESSAGE(script + ": " + lastPrompt().toUtf8(), int(RTNORM), feed(each.script));
            CPPUNIT_ASSERT_EQUAL_MESSAGE(script, std::string(each.ucs), ucs());
            std::string const after = bytes();
            for (int i = 0; i < each.commands; ++i)
                feed(L"U");
            CPPUNIT_ASSERT_MESSAGE(script + ": U left traces", bytes() == before);
            for (int i = 0; i < each.commands; ++i)
                feed(L"REDO");
            CPPUNIT_ASSERT_MESSAGE(script + ": REDO did not bring all again", bytes() == after);
            for (int i = 0; i < each.commands; ++i)
                feed(L"U");
        }
    }

    static void checkObject(OdString const& drawing, OdString const& pick, char const* expected)
    {
        feed(L"UCS|W");
        std::string const script = (drawing + L"|UCS|OB|" + pick).toUtf8();
        CPPUNIT_ASSERT_EQUAL_MESSAGE(script + ": " + lastPrompt().toUtf8(), int(RTNORM), feed(drawing));
        CPPUNIT_ASSERT_EQUAL_MESSAGE(script + ": " + lastPrompt().toUtf8(), int(RTNORM), feed(L"UCS|OB|" + pick));
        CPPUNIT_ASSERT_EQUAL_MESSAGE(script, std::string(expected), ucs());
        feed(L"ERASE|ALL|");
    }

    static void checkCurrentName(OdString const& option, char const* shown)
    {
        feed(L"UCS|" + option);
        feed(L"UCS");
        CPPUNIT_ASSERT_EQUAL("Current ucs name:  " + std::string(shown),
                             ca::app()->commandLine().lines().back().toUtf8());
        sds_cmd(nullptr);
    }
};

CPPUNIT_TEST_SUITE_REGISTRATION(TestUcsCommand);

} // namespace
