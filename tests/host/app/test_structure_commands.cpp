// -LAYER, fed with text answers.
#include "host/app/ca_doc.h"
#include "host/app/color_text.h"
#include "host/app/command_line.h"
#include "host/db/od_db_database.h"
#include "host/db/records/od_db_layer_table_record.h"
#include "host/db/records/od_db_linetype_table_record.h"
#include "host/sds/sds.h"
#include "tests/host/app/draw_script.h"

#include <cppunit/extensions/HelperMacros.h>

namespace {

struct LayerCase
{
    wchar_t const* script; ///< options of -LAYER
    char const* layers;    ///< as layers() gives it
};

class TestLayerCommand : public DrawScriptTest
{
    CPPUNIT_TEST_SUITE(TestLayerCommand);
    CPPUNIT_TEST(makesAndSetsCurrentLayers);
    CPPUNIT_TEST(switchesStates);
    CPPUNIT_TEST(takesLayersFromObjects);
    CPPUNIT_TEST(givesProperties);
    CPPUNIT_TEST(renames);
    CPPUNIT_TEST(describes);
    CPPUNIT_TEST(lists);
    CPPUNIT_TEST(refusals);
    CPPUNIT_TEST(prompts);
    CPPUNIT_TEST(nearestPaletteColors);
    CPPUNIT_TEST(oneUndoTakesAllBack);
    CPPUNIT_TEST_SUITE_END();

public:
    void setUp() override
    {
        DrawScriptTest::setUp();
        addLinetype();
    }

    void makesAndSetsCurrentLayers()
    {
        check({
            {L"M|Walls|", "0; *Walls"},
            {L"MAKE|Walls|S|0|", "*0; Walls"},
            {L"M||", "*0"},
            {L"N|a, b ,,c|", "*0; a; b; c"},
            {L"N|a|N|A,b|", "*0; a; b"},
            {L"N|a|S|A|", "0; *a"},
            {L"N|a|OFF|a|M|a|", "0; *a"}, // made visible
            {L"N|a|OFF|a|S|a|", "0; *a off"},
        });
    }

    void switchesStates()
    {
        check({
            {L"N|a,b,ab|OFF|a*|", "*0; a off; b; ab off"},
            {L"N|a,b,ab|OFF|?|", "*0; a off; b off; ab"},
            {L"N|a,b|OFF|A,b|ON|*|", "*0; a; b"},
            {L"N|a,b|F|a,b|T|B|", "*0; a frozen; b"},
            {L"N|a,b|LO|*|U|b|", "*0 locked; a locked; b"},
            {L"OFF|0|Y|", "*0 off"},
            {L"OFF|0||", "*0"},
            {L"N|a|OFF|*|N|", "*0; a off"},
            {L"N|a|F|*|", "*0; a frozen"}, // the current layer is left alone
            {L"OFF|0|Y|C|1|0|", "*0 off c1 (red)"},
        });
    }

    void takesLayersFromObjects()
    {
        feed(L"-LAYER|N|a,b,c|S|a||POINT|10,10|-LAYER|S|b||POINT|20,20|POINT|30,30|-LAYER|S|c|");
        feed(L"-LAYER|LO||10,10|20,20|30,30||");
        CPPUNIT_ASSERT_EQUAL(std::string("0; a locked; b locked; *c"), layers());
        feed(L"-LAYER|U||20,20|||");
        CPPUNIT_ASSERT_EQUAL_MESSAGE("locked objects count", std::string("0; a locked; b; *c"), layers());
        feed(L"-LAYER|S||10,10|");
        CPPUNIT_ASSERT_EQUAL(std::string("0; *a locked; b; c"), layers());
        feed(L"-LAYER|F||30,30||OFF||10,10||Y|");
        CPPUNIT_ASSERT_EQUAL(std::string("0; *a off locked; b frozen; c"), layers());
    }

    void givesProperties()
    {
        check({
            {L"C|1||", "*0 c1 (red)"},
            {L"N|a,b|C|Magenta|a,b|", "*0; a c6 (magenta); b c6 (magenta)"},
            {L"C|255|0|", "*0 c255"},
            {L"C|T|10,20,30|0|", "*0 c10,20,30"},
            {L"C|TRUECOLOR|255,0,0|0|C|||", "*0 c255,0,0"}, // Enter keeps the color of the current layer
            {L"C|T|255,0,0|0|C|7|0|", "*0"},
            {L"N|a|LW|0.5|a|", "*0; a w50"},
            {L"LW|0.52|0|", "*0 w53"},
            {L"LW|0||", "*0 w0"},
            {L"LW|2.11||LW|default||", "*0"},
            {L"N|a|P|N|a|", "*0; a unplotted"},
            {L"P|N||P|||", "*0"},
            {L"L|DASHED|0|", "*0 tDASHED"},
            {L"L|dashed|0|L|||", "*0"},
        });
    }

    void renames()
    {
        check({
            {L"N|a|R|A|Walls|", "*0; Walls"},
            {L"N|a|R|a|A|", "*0; A"}, // only the spelling
            {L"M|a|R|a|b|", "0; *b"},
        });
    }

    void describes()
    {
        feed(L"-LAYER|N|a|D|Load-bearing walls, 1st floor|a|");
        CPPUNIT_ASSERT_EQUAL(std::string("Load-bearing walls, 1st floor"), layer(L"a")->description().toUtf8());
        feed(L"-LAYER|D||a|");
        CPPUNIT_ASSERT(layer(L"a")->description().isEmpty());
    }

    void lists()
    {
        feed(L"-LAYER|N|Walls,Doors|C|3|Walls|LO|Walls|?|w*|L|?||");
        CPPUNIT_ASSERT(hasLine(L"\"Walls\"              On, locked         3 (green)    Continuous     Default"));
        CPPUNIT_ASSERT(!hasLine(L"\"Doors\"              On                 7 (white)    Continuous     Default"));
        CPPUNIT_ASSERT(hasLine(L"Current layer:  \"0\""));
        CPPUNIT_ASSERT(hasLine(L"\"DASHED\"  _ _"));
        CPPUNIT_ASSERT_EQUAL(std::string("Enter an option [?/Make/Set/New/Rename/ON/OFF/Color/Ltype/LWeight/Plot/"
                                         "Freeze/Thaw/LOck/Unlock/Description]: "),
                             lastPrompt().toUtf8());
    }

    void refusals()
    {
        RefusedCase const cases[] = {
            {L"-LAYER|S|a", L"Layer \"a\" does not exist."},
            {L"-LAYER|ON|0,a", L"Layer \"a\" does not exist."},
            {L"-LAYER|ON|a*", L"Layer \"a*\": nothing matches."},
            {L"-LAYER|LO| , ", L"A name is required."},
            {L"-LAYER|N|", L"A name is required."},
            {L"-LAYER|M|a/b", L"\"a/b\" is not a valid layer name."},
            {L"-LAYER|N|a,b<c", L"\"b<c\" is not a valid layer name."},
            {L"-LAYER|F|0", L"Layer \"0\" is current and cannot be frozen."},
            {L"-LAYER|N|a|F|a,0", L"Layer \"0\" is current and cannot be frozen."},
            {L"-LAYER|N|a|F|a|S|a", L"Layer \"a\" is frozen and cannot be current."},
            {L"-LAYER|N|a|F|a|M|a", L"Layer \"a\" is frozen and cannot be current."},
            {L"-LAYER|R|0|a", L"Layer \"0\" cannot be renamed."},
            {L"-LAYER|R|a", L"Layer \"a\" does not exist."},
            {L"-LAYER|N|a,b|R|a|B", L"Layer \"B\" already exists."},
            {L"-LAYER|N|a|R|a|b*", L"\"b*\" is not a valid layer name."},
            {L"-LAYER|C|256",
             L"Requires a color: a number between 1 and 255, the name of one of the first seven, or "
             L"Truecolor."},
            {L"-LAYER|C|T|1,2", L"Requires three numbers between 0 and 255, separated by commas."},
            {L"-LAYER|C|T|1,2,256", L"Requires three numbers between 0 and 255, separated by commas."},
            {L"-LAYER|LW|2.12", L"Requires a lineweight between 0 and 2.11 mm, or Default."},
            {L"-LAYER|L|NOSUCH", L"Linetype \"NOSUCH\" is not loaded."},
            {L"-LAYER|L|bylayer", L"A layer cannot have the linetype \"ByLayer\"."},
            {L"-LAYER|S||500,500", L"No object found."},
            {L"-LAYER|X", L"Invalid option keyword."},
        };
        checkRefused(cases);
        feed(L"-LAYER|N|a|OFF|a,b");
        CPPUNIT_ASSERT_EQUAL_MESSAGE("a list with a wrong name changes nothing", std::string("*0; a"), layers());
    }

    void prompts()
    {
        PromptCase const cases[] = {
            {L"-LA|M", L"Enter name for new layer (becomes the current layer) <0>: "},
            {L"-LAYER|S", L"Enter layer name to make current or <select object>: "},
            {L"-LAYER|ON", L"Enter name list of layer(s) to turn on: "},
            {L"-LAYER|F", L"Enter name list of layer(s) to freeze or <select objects>: "},
            {L"-LAYER|OFF|0", L"Layer \"0\" is the current layer. Turn it off? [Yes/No] <No>: "},
            {L"-LAYER|C", L"New color [Truecolor] <7 (white)>: "},
            {L"-LAYER|C|red", L"Enter name list of layer(s) for color 1 (red) <0>: "},
            {L"-LAYER|LW|0.5", L"Enter name list of layer(s) for lineweight 0.50 mm <0>: "},
            {L"-LAYER|P", L"Enter a plotting preference [Plot/No] <Plot>: "},
        };
        checkPrompts(cases);
    }

    void nearestPaletteColors()
    {
        struct
        {
            std::uint8_t red, green, blue;
            int nearest;
        } const cases[] = {
            {255, 0, 0, 1},     {250, 4, 3, 1},    {255, 255, 250, 7}, {0, 0, 30, 178},    {255, 127, 0, 30},
            {0, 165, 124, 122}, {127, 63, 63, 15}, {130, 126, 128, 8}, {190, 192, 195, 9}, {51, 51, 52, 250},
        };
        for (auto const& each : cases)
            CPPUNIT_ASSERT_EQUAL(each.nearest, int(ca::nearestPaletteColor(each.red, each.green, each.blue)));
    }

    void oneUndoTakesAllBack()
    {
        feed(L"-LAYER|M|a|C|1|a|OFF|0|R|a|b||U");
        CPPUNIT_ASSERT_EQUAL(std::string("*0"), layers());
        feed(L"-LAYER|M|a|");
        CPPUNIT_ASSERT_EQUAL_MESSAGE("the name is free again", std::string("0; *a"), layers());
    }

private:
    static OdDbLayerTableRecordPtr layer(OdString const& name)
    {
        return db().table(OdDbTableKind::kLayer).getAt(name).open<OdDbLayerTableRecord>();
    }

    /// All layers in order of making, each with what differs from a new one; "*" marks the current one.
    static std::string layers()
    {
        OdString all;
        for (OdDbStub* const stub : db().table(OdDbTableKind::kLayer).records())
            if (!stub->erased)
                all += (all.isEmpty() ? OdString() : OdString(L"; ")) +
                       describe(static_cast<OdDbLayerTableRecord const&>(*stub->object));
        return all.toUtf8();
    }

    static OdString describe(OdDbLayerTableRecord const& layer)
    {
        OdString text = layer.objectId() == db().getCLAYER() ? L"*" : L"";
        text += layer.getName();
        text += layer.isOff() ? L" off" : L"";
        text += layer.isFrozen() ? L" frozen" : L"";
        text += layer.isLocked() ? L" locked" : L"";
        if (layer.color() != OdCmColor(7))
            text += L" c" + ca::colorText(layer.color());
        if (OdString const type = layer.linetypeObjectId().open<OdDbLinetypeTableRecord>()->getName();
            !type.equalsNoCase(L"Continuous"))
            text += L" t" + type;
        if (layer.lineWeight() != -3)
            text += odFormat(L" w%d", layer.lineWeight());
        text += layer.isPlottable() ? L"" : L" unplotted";
        return text;
    }

    static void addLinetype()
    {
        OdSmartPtr<OdDbLinetypeTableRecord> const dashed(new OdDbLinetypeTableRecord);
        dashed->setName(L"DASHED");
        dashed->setComments(L"_ _");
        db().getLinetypeTableId().open<OdDbSymbolTable>(OdDb::kForWrite)->add(dashed);
    }

    void check(std::vector<LayerCase> const& cases)
    {
        for (LayerCase const& each : cases) {
            tearDown();
            setUp();
            OdString const script = OdString(L"-LAYER|") + each.script;
            CPPUNIT_ASSERT_EQUAL_MESSAGE(script.toUtf8() + ": " + lastPrompt().toUtf8(), int(RTNORM),
                                         feed(script));
            CPPUNIT_ASSERT_EQUAL_MESSAGE(script.toUtf8(), std::string(each.layers), layers());
        }
    }
};

CPPUNIT_TEST_SUITE_REGISTRATION(TestLayerCommand);

} // namespace
