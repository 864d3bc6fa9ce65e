// COLOR, -LINETYPE and LWEIGHT: what new entities get.
#include "tests/host/app/draw_script.h"

#include "host/app/ca_doc.h"
#include "host/app/sys_var.h"
#include "host/db/entities/od_db_line.h"
#include "host/db/od_db_database.h"
#include "host/db/records/od_db_block_table_record.h"
#include "host/db/records/od_db_linetype_table_record.h"
#include "host/sds/sds.h"
#include "tests/support/temp_folder.h"

#include <cppunit/extensions/HelperMacros.h>

namespace {

class SettingsCommandsTest : public DrawScriptTest
{
    CPPUNIT_TEST_SUITE(SettingsCommandsTest);
    CPPUNIT_TEST(colors);
    CPPUNIT_TEST(trueColorComesAndGoes);
    CPPUNIT_TEST(lineweights);
    CPPUNIT_TEST(linetypesFromTheStandard);
    CPPUNIT_TEST(linetypesFromAFile);
    CPPUNIT_TEST(linetypesOfOnesOwn);
    CPPUNIT_TEST(undoes);
    CPPUNIT_TEST(prompts);
    CPPUNIT_TEST(refusals);
    CPPUNIT_TEST_SUITE_END();

    static void run(OdString const& script)
    {
        CPPUNIT_ASSERT_EQUAL_MESSAGE(script.toUtf8() + ": " + lastPrompt().toUtf8(), int(RTNORM), feed(script));
    }
    static std::string variable(wchar_t const* name) { return ca::SysVar::find(name)->text().toUtf8(); }
    static OdDbObjectId linetype(wchar_t const* name) { return db().table(OdDbTableKind::kLinetype).getAt(name); }
    static OdDbLinetypeTableRecordPtr linetypeRecord(wchar_t const* name)
    {
        return linetype(name).open<OdDbLinetypeTableRecord>();
    }
    static OdDbEntityPtr drawLine()
    {
        run(L"LINE|0,0|1,0|");
        auto const space = db().getModelSpaceId().open<OdDbBlockTableRecord>();
        return OdDbObjectId(space->entities().back()).open<OdDbEntity>();
    }

public:
    void colors()
    {
        struct Case
        {
            wchar_t const* script;
            char const* value;
            std::int16_t index;
        };
        Case const cases[] = {
            {L"COLOR|red", "1", 1},
            {L"-COLOR|255", "255", 255},
            {L"COL|BYBLOCK", "BYBLOCK", 0},
            {L"COLOR|", "BYBLOCK", 0},
            {L"COLOR|_bylayer", nullptr, 0},
            {L"COLOR|T|10,20,30", "RGB:10,20,30", 179},
            {L"CECOLOR|rgb:255,0,0", "RGB:255,0,0", 1},
            {L"COLOR|1", "1", 1},
        };
        for (Case const& each : cases) {
            if (!each.value) {
                CPPUNIT_ASSERT_EQUAL(int(RTERROR), feed(each.script));
                continue;
            }
            run(each.script);
            CPPUNIT_ASSERT_EQUAL(std::string(each.value), variable(L"CECOLOR"));
            CPPUNIT_ASSERT_EQUAL(each.index, drawLine()->color().colorIndex());
        }
    }

    void trueColorComesAndGoes()
    {
        run(L"COLOR|Truecolor|255,0,0");
        CPPUNIT_ASSERT(drawLine()->color() == OdCmColor::trueColor(255, 0, 0, 1));
        run(L"COLOR|red");
        CPPUNIT_ASSERT_MESSAGE("the palette color, which is the nearest", drawLine()->color() == OdCmColor(1));
        run(L"U|U");
        CPPUNIT_ASSERT_EQUAL(std::string("RGB:255,0,0"), variable(L"CECOLOR"));
        run(L"U|U");
        CPPUNIT_ASSERT_EQUAL(std::string("BYLAYER"), variable(L"CECOLOR"));
        run(L"REDO");
        CPPUNIT_ASSERT_EQUAL(std::string("RGB:255,0,0"), variable(L"CECOLOR"));
    }

    void lineweights()
    {
        run(L"LWEIGHT|?|0.5");
        CPPUNIT_ASSERT_EQUAL(50, drawLine()->lineWeight());
        run(L"-LW|0.51"); // the nearest there is
        CPPUNIT_ASSERT_EQUAL(std::string("50"), variable(L"CELWEIGHT"));
        run(L"LW|default");
        CPPUNIT_ASSERT_EQUAL(-3, drawLine()->lineWeight());
        run(L"LINEWEIGHT|bylayer|LWEIGHT|");
        CPPUNIT_ASSERT_EQUAL(-1, drawLine()->lineWeight());
    }

    void linetypesFromTheStandard()
    {
        run(L"-LINETYPE|L|dash*,DOT||S|dashed|");
        CPPUNIT_ASSERT(!linetype(L"DASHED2").isNull() && !linetype(L"DASHDOTX2").isNull());
        CPPUNIT_ASSERT(linetype(L"DOT2").isNull() && linetype(L"CENTER").isNull());
        CPPUNIT_ASSERT_DOUBLES_EQUAL(0.75 * 25.4, linetypeRecord(L"DASHED")->patternLength(), 1e-12);
        CPPUNIT_ASSERT(drawLine()->linetypeId() == linetype(L"DASHED"));
        run(L"MEASUREMENT|0|-LINETYPE|L|DASHED||N|L|DOT||Y||");
        CPPUNIT_ASSERT_DOUBLES_EQUAL(0.75 * 25.4, linetypeRecord(L"DASHED")->patternLength(), 1e-12);
        CPPUNIT_ASSERT_DOUBLES_EQUAL(0.25, linetypeRecord(L"DOT")->patternLength(), 1e-12);
        run(L"-LT|?||S|?|ByBlock|");
        CPPUNIT_ASSERT_EQUAL(std::string("ByBlock"), variable(L"CELTYPE"));
    }

    void linetypesFromAFile()
    {
        TempFolder const folder;
        OdString const path =
            folder.write("own types.lin", "*GAS,Gas ---GAS---\nA,.5,-.2,[\"GAS\",STANDARD,S=.1,Y=-.05],-.25\n"
                                          "*BAD,no such style\nA,1,-1,[\"X\",Nowhere]\n");
        run(L"-LINETYPE|?|" + path + L"|L|gas|" + path + L"|");
        auto const gas = linetypeRecord(L"Gas");
        CPPUNIT_ASSERT(gas->comments() == L"Gas ---GAS---" && gas->dashes().size() == 3);
        auto const& dash = gas->dashes()[1];
        CPPUNIT_ASSERT(dash.flags == OdDbLinetypeTableRecord::Dash::kText && dash.text == L"GAS");
        CPPUNIT_ASSERT(dash.style == db().getTEXTSTYLE() && dash.scale == 0.1 && dash.offset.y == -0.05);
        CPPUNIT_ASSERT_EQUAL(int(RTERROR), feed(L"-LINETYPE|L|BAD|" + path));
        CPPUNIT_ASSERT_EQUAL(std::string("Text style \"Nowhere\" of linetype \"BAD\" does not exist."),
                             lastPrompt().toUtf8());
        CPPUNIT_ASSERT(linetype(L"BAD").isNull());
    }

    void linetypesOfOnesOwn()
    {
        run(L"-LINETYPE|C|Fence|Wooden fence|1,-.5,0,-.5|S|fence|");
        CPPUNIT_ASSERT(linetypeRecord(L"FENCE")->comments() == L"Wooden fence");
        CPPUNIT_ASSERT_EQUAL(2.0, linetypeRecord(L"FENCE")->patternLength());
        CPPUNIT_ASSERT_EQUAL(std::string("Fence"), variable(L"CELTYPE"));
    }

    void undoes()
    {
        for (wchar_t const* script : {L"COLOR|T|1,2,3", L"COLOR|3", L"LWEIGHT|0.5", L"-LINETYPE|L|HIDDEN||",
                                      L"-LINETYPE|C|X||1,-1|S|X|", L"-LINETYPE|L|CENTER*||S|CENTER2|"}) {
            std::string const before = bytes();
            run(script);
            std::string const after = bytes();
            CPPUNIT_ASSERT_MESSAGE(OdString(script).toUtf8(), before != after);
            run(L"U");
            CPPUNIT_ASSERT_MESSAGE(OdString(script).toUtf8(), before == bytes());
            run(L"REDO");
            CPPUNIT_ASSERT_MESSAGE(OdString(script).toUtf8(), after == bytes());
        }
    }

    void prompts()
    {
        PromptCase const cases[] = {
            {L"COLOR", L"Enter default object color [Truecolor] <ByLayer>: "},
            {L"COLOR|Truecolor", L"Red,Green,Blue: "},
            {L"COLOR|1|COLOR", L"Enter default object color [Truecolor] <1 (red)>: "},
            {L"LWEIGHT", L"Enter default lineweight for new objects or [?] <ByLayer>: "},
            {L"-LINETYPE", L"Enter an option [?/Create/Load/Set]: "},
            {L"-LINETYPE|L|DOT", L"Enter name of linetype file to search <standard linetypes>: "},
            {L"-LINETYPE|L|DOT||L|DOT|", L"Linetype \"DOT\" is already loaded. Reload it? [Yes/No] <Y>: "},
            {L"-LINETYPE|S", L"Specify linetype name or [?] <ByLayer>: "},
            {L"-LINETYPE|C|X|a", L"Enter linetype pattern: A,: "},
        };
        checkPrompts(cases);
    }

    void refusals()
    {
        constexpr wchar_t const* kColor =
            L"Requires a color: ByLayer, ByBlock, a number between 1 and 255, the name "
            L"of one of the first seven, or Truecolor.";
        RefusedCase const cases[] = {
            {L"COLOR|256", kColor},
            {L"COLOR|0", kColor},
            {L"COLOR|pink", kColor},
            {L"COLOR|T|1,2", L"Requires three numbers between 0 and 255, separated by commas."},
            {L"LWEIGHT|3", L"Requires a lineweight between 0 and 2.11 mm, ByLayer, ByBlock, or Default."},
            {L"-LINETYPE|S|DASHED", L"Linetype \"DASHED\" is not loaded."},
            {L"-LINETYPE|L|NOTHING|", L"Linetype \"NOTHING\" is not in the file."},
            {L"-LINETYPE|C|ByLayer", L"\"ByLayer\" is not a valid linetype name."},
            {L"-LINETYPE|L|DOT||C|dot", L"Linetype \"dot\" already exists."},
            {L"-LINETYPE|C|X|a|-1,1", L"A linetype begins with a dash or a dot."},
        };
        checkRefused(cases);
    }
};
CPPUNIT_TEST_SUITE_REGISTRATION(SettingsCommandsTest);

} // namespace
