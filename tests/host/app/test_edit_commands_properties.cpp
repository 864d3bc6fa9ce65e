// CHPROP.
#include "host/app/ca_doc.h"
#include "host/app/color_text.h"
#include "host/app/line_weight.h"
#include "host/db/entities/od_db_circle.h"
#include "host/db/entities/od_db_line.h"
#include "host/db/od_db_database.h"
#include "host/db/records/od_db_block_table_record.h"
#include "tests/host/app/draw_script.h"

#include <cppunit/extensions/HelperMacros.h>

namespace {

class TestPropertyCommands : public DrawScriptTest
{
    CPPUNIT_TEST_SUITE(TestPropertyCommands);
    CPPUNIT_TEST(changesEachProperty);
    CPPUNIT_TEST(changesSeveralAtOnceAndTakesThemBack);
    CPPUNIT_TEST(thicknessIsForClassesThatHaveOne);
    CPPUNIT_TEST(refusals);
    CPPUNIT_TEST(prompts);
    CPPUNIT_TEST_SUITE_END();

public:
    void changesEachProperty()
    {
        struct
        {
            wchar_t const* script;
            char const* properties;
        } const cases[] = {
            {L"C|red|", "1 (red) 0 ByLayer 1 ByLayer 0"},
            {L"C|30|C|ByBlock|", "ByBlock 0 ByLayer 1 ByLayer 0"},
            {L"C|T|10,20,30|", "10,20,30 0 ByLayer 1 ByLayer 0"},
            {L"LA|walls|", "ByLayer walls ByLayer 1 ByLayer 0"},
            {L"LT|continuous|", "ByLayer 0 Continuous 1 ByLayer 0"},
            {L"S|2.5|", "ByLayer 0 ByLayer 2.5 ByLayer 0"},
            {L"LW|0.5|", "ByLayer 0 ByLayer 1 0.50 mm 0"},
            {L"LW|Byblock|", "ByLayer 0 ByLayer 1 ByBlock 0"},
            {L"LW|default|", "ByLayer 0 ByLayer 1 Default 0"},
            {L"T|-3|", "ByLayer 0 ByLayer 1 ByLayer -3"},
            {L"T|1,1|4,5|", "ByLayer 0 ByLayer 1 ByLayer 5"},
            // Enter leaves a property as it is.
            {L"C||LA||LT||S||LW||T||", "ByLayer 0 ByLayer 1 ByLayer 0"},
        };
        for (auto const& each : cases) {
            tearDown();
            setUp();
            feed(L"LINE|0,0|10,0||-LAYER|N|walls||");
            feed(L"CHPROP|ALL||" + OdString(each.script));
            CPPUNIT_ASSERT_EQUAL_MESSAGE(OdString(each.script).toUtf8(), std::string(each.properties),
                                         properties());
        }
    }

    void changesSeveralAtOnceAndTakesThemBack()
    {
        feed(L"CIRCLE|0,0|1|LINE|0,0|10,0|");
        std::string const before = bytes();
        feed(L"CHPROP|ALL||C|1|T|2|LW|0.3|");
        CPPUNIT_ASSERT_EQUAL(std::string("1 (red) 0 ByLayer 1 0.30 mm 2"), properties());
        std::string const after = bytes();
        feed(L"U");
        CPPUNIT_ASSERT(bytes() == before);
        feed(L"REDO");
        CPPUNIT_ASSERT(bytes() == after);
    }

    void thicknessIsForClassesThatHaveOne()
    {
        feed(L"XLINE|0,0|1,0||CHPROP|ALL||T|");
        CPPUNIT_ASSERT_EQUAL(
            std::string("Enter property to change [Color/LAyer/LType/ltScale/LWeight/Thickness]: "),
            lastPrompt().toUtf8());
    }

    void refusals()
    {
        RefusedCase const cases[] = {
            {L"POINT|0,0|CHPROP|ALL||C|300", L"Requires a color: ByLayer, ByBlock, a number between 1 and 255, "
                                             L"the name of one of the first seven, "
                                             L"or Truecolor."},
            {L"POINT|0,0|CHPROP|ALL||C|T|1,2", L"Requires three numbers between 0 and 255, separated by commas."},
            {L"POINT|0,0|CHPROP|ALL||LA|walls", L"There is no layer \"walls\"."},
            {L"POINT|0,0|CHPROP|ALL||LT|dashes", L"There is no linetype \"dashes\"."},
            {L"POINT|0,0|CHPROP|ALL||S|0", L"Value must be positive and nonzero."},
            {L"POINT|0,0|CHPROP|ALL||LW|3",
             L"Requires a lineweight between 0 and 2.11 mm, ByLayer, ByBlock, or Default."},
            {L"POINT|0,0|CHPROP|ALL||Elevation", L"Invalid option keyword."},
        };
        checkRefused(cases);
    }

    void prompts()
    {
        PromptCase const cases[] = {
            {L"POINT|0,0|CHPROP|ALL|",
             L"Enter property to change [Color/LAyer/LType/ltScale/LWeight/Thickness]: "},
            {L"POINT|0,0|CHPROP|ALL||C", L"New color [Truecolor] <ByLayer>: "},
            {L"POINT|0,0|CHPROP|ALL||LA", L"Enter new layer name <0>: "},
            {L"POINT|0,0|CHPROP|ALL||LT", L"Enter new linetype name <ByLayer>: "},
            {L"POINT|0,0|CHPROP|ALL||S", L"Specify new linetype scale <1>: "},
            {L"POINT|0,0|CHPROP|ALL||LW", L"Enter new lineweight <ByLayer>: "},
            {L"THICKNESS|2|POINT|0,0|THICKNESS|0|POINT|1,0|CHPROP|ALL||T", L"Specify new thickness <varies>: "},
        };
        checkPrompts(cases);
    }

private:
    /// Of the line in the drawing: color, layer, linetype, its scale, lineweight, thickness.
    static std::string properties()
    {
        OdDbObjectIterator it = db().getModelSpaceId().open<OdDbBlockTableRecord>()->newIterator();
        while (!odCast<OdDbLine>(it.entity().get()))
            it.step();
        auto const line = it.objectId().open<OdDbLine>();
        auto const name = [](OdDbObjectId id) { return id.open<OdDbSymbolTableRecord>()->getName(); };
        return (ca::colorText(line->color()) + L" " + name(line->layerId()) + L" " + name(line->linetypeId()) +
                odFormat(L" %g ", line->linetypeScale()) + ca::entityLineWeightText(line->lineWeight()) +
                odFormat(L" %g", line->thickness()))
            .toUtf8();
    }
};

CPPUNIT_TEST_SUITE_REGISTRATION(TestPropertyCommands);

} // namespace
