// LIST, ID, DIST and AREA: what they say and which variables they set.
#include "tests/host/app/draw_script.h"

#include "host/app/command_line.h"
#include "host/app/sys_var.h"
#include "host/db/od_db_database.h"
#include "host/db/records/od_db_block_table_record.h"
#include "host/sds/sds.h"

#include <cppunit/extensions/HelperMacros.h>

namespace {

class InquiryCommandsTest : public DrawScriptTest
{
    CPPUNIT_TEST_SUITE(InquiryCommandsTest);
    CPPUNIT_TEST(id);
    CPPUNIT_TEST(dist);
    CPPUNIT_TEST(areaOfPoints);
    CPPUNIT_TEST(areaOfObjects);
    CPPUNIT_TEST(addsAndSubtracts);
    CPPUNIT_TEST(lists);
    CPPUNIT_TEST(listsInTurnedUcsAndUnits);
    CPPUNIT_TEST(prompts);
    CPPUNIT_TEST(refusals);
    CPPUNIT_TEST_SUITE_END();

    /// The lines that the command line shows, without prompts and echoes.
    static std::string said(OdString const& script)
    {
        std::string lines;
        ca::app()->commandLine().setListener([&lines](OdString const& line) {
            bool const isPrompt = line.find(L": ") != OdString::npos && line.find(L"[") != OdString::npos;
            if (!isPrompt && !line.startsWith(L"Specify") && !line.startsWith(L"Select objects") &&
                !line.startsWith(L"("))
                lines += line.toUtf8() + "\n";
        });
        int const result = feed(script);
        ca::app()->commandLine().setListener({});
        CPPUNIT_ASSERT_EQUAL_MESSAGE(script.toUtf8() + ": " + lastPrompt().toUtf8(), int(RTNORM), result);
        return lines;
    }
    static void check(OdString const& script, std::string const& expected)
    {
        CPPUNIT_ASSERT_EQUAL_MESSAGE(script.toUtf8(), expected, said(script));
    }
    static double variable(wchar_t const* name) { return std::get<double>(ca::SysVar::find(name)->value()); }

public:
    void id()
    {
        check(L"ID|1,2.5,-3", "X = 1.0000     Y = 2.5000     Z = -3.0000\n");
        CPPUNIT_ASSERT(std::get<OdGePoint3d>(ca::SysVar::find(L"LASTPOINT")->value()).isEqualTo({1, 2.5, -3}));
    }

    void dist()
    {
        check(L"DIST|1,1,1|4,5,1", "Distance = 5.0000,  Angle in XY Plane = 53.13,  Angle from XY Plane = 0.00\n"
                                   "Delta X = 3.0000,  Delta Y = 4.0000,  Delta Z = 0.0000\n");
        CPPUNIT_ASSERT_EQUAL(5.0, variable(L"DISTANCE"));
        check(L"DI|0,0,0|0,0,-2", "Distance = 2.0000,  Angle in XY Plane = 0.00,  Angle from XY Plane = 270.00\n"
                                  "Delta X = 0.0000,  Delta Y = 0.0000,  Delta Z = -2.0000\n");
        check(L"DIST|0,0|M|3,0|3,4|U|3,1|T", "Distance = 3.0000\nDistance = 7.0000\nDistance = 3.0000\n"
                                             "Distance = 4.0000\nDistance = 4.0000\n");
        CPPUNIT_ASSERT_EQUAL(4.0, variable(L"DISTANCE"));
    }

    void areaOfPoints()
    {
        check(L"AREA|0,0|4,0|4,3|", "Area = 6.0000, Perimeter = 12.0000\n");
        CPPUNIT_ASSERT_EQUAL(6.0, variable(L"AREA"));
        CPPUNIT_ASSERT_EQUAL(12.0, variable(L"PERIMETER"));
        check(L"AREA|1e7,1e7|@0,2|@2,0|9,9|U|@0,-2|T", "Area = 4.0000, Perimeter = 8.0000\n");
        CPPUNIT_ASSERT_EQUAL(4.0, variable(L"AREA"));
    }

    void areaOfObjects()
    {
        feed(L"CIRCLE|0,0|2");
        check(L"AREA|O|L", "Area = 12.5664, Circumference = 12.5664\n");
        feed(L"PLINE|0,0|4,0|4,3|");
        check(L"AREA||L", "Area = 6.0000, Length = 7.0000\n");
        feed(L"PLINE|0,0|4,0|4,3|C");
        check(L"AREA|O|L", "Area = 6.0000, Perimeter = 12.0000\n");
    }

    void addsAndSubtracts()
    {
        feed(L"CIRCLE|0,0|1|POINT|9,9");
        check(L"AREA|A|0,0|10,0|10,10|0,10||S|O|1,0|9,9||",
              "Area = 100.0000, Perimeter = 40.0000\nTotal area = 100.0000\n"
              "Area = 3.1416, Circumference = 6.2832\nTotal area = 96.8584\n"
              "Selected object does not have an area.\n");
        CPPUNIT_ASSERT_DOUBLES_EQUAL(100 - OdaPI, variable(L"AREA"), 1e-12);
    }

    void lists()
    {
        feed(L"LINE|1,2|4,6|");
        std::string const handle = lastHandle();
        check(L"LIST|L|",
              "1 found\nLINE      Layer: \"0\"\n          Space: Model space\n          Handle: " + handle +
                  "\n          start point: X=1.0000  Y=2.0000  Z=0.0000\n"
                  "          end point: X=4.0000  Y=6.0000  Z=0.0000\n"
                  "          length: 5.0000\n          angle in XY plane: 53.13\n"
                  "          offset: X=3.0000  Y=4.0000  Z=0.0000\n");
        feed(L"-LAYER|M|Walls||CECOLOR|1|CELWEIGHT|50|CELTSCALE|2|PLINE|0,0|1,0|");
        std::string const text = said(L"LI|L|");
        for (char const* line : {"LIGHTWEIGHT POLYLINE Layer: \"Walls\"\n", "          Color: 1 (red)\n",
                                 "          Linetype scale: 2.0000\n", "          Lineweight: 0.50 mm\n",
                                 "          vertex 2\n            position: X=1.0000"})
            CPPUNIT_ASSERT_MESSAGE(line + text, text.find(line) != std::string::npos);
    }

    void listsInTurnedUcsAndUnits()
    {
        feed(L"ARC|C|10,0|11,0|10,1|LUNITS|4|LUPREC|4|AUNITS|1|AUPREC|3");
        db().setHeaderPoint("UCSORG", {0, 5, 0});
        db().setHeaderPoint("UCSXDIR", {0, 1, 0});
        db().setHeaderPoint("UCSYDIR", {-1, 0, 0});
        std::string const text = said(L"LIST|L|");
        for (char const* line : {"center: X=-0'-5\"  Y=-0'-10\"  Z=0'-0\"\n", "radius: 0'-1\"\n",
                                 "start angle: 270d0'0\"\n", "end angle: 0d0'0\"\n"})
            CPPUNIT_ASSERT_MESSAGE(line + text, text.find(line) != std::string::npos);
        feed(L"RAY|0,0|1,1|");
        CPPUNIT_ASSERT(said(L"LIST|L|").find("direction: X=0.7071  Y=0.7071  Z=0.0000\n") != std::string::npos);
        check(L"ID|1,2,3", "X = 0'-1\"     Y = 0'-2\"     Z = 0'-3\"\n");
        check(L"DIST|0,0|0,12",
              "Distance = 1'-0\",  Angle in XY Plane = 90d0'0\",  Angle from XY Plane = 0d0'0\"\n"
              "Delta X = 0'-0\",  Delta Y = 1'-0\",  Delta Z = 0'-0\"\n");
    }

    void prompts()
    {
        PromptCase const cases[] = {
            {L"LIST", L"Select objects: "},
            {L"ID", L"Specify point: "},
            {L"DIST|0,0", L"Specify second point or [Multiple]: "},
            {L"DIST|0,0|M", L"Specify next point or [Undo/Total] <Total>: "},
            {L"AREA", L"Specify first corner point or [Object/Add/Subtract] <Object>: "},
            {L"AREA|A", L"Specify first corner point or [Object/Subtract]: "},
            {L"AREA|A|O", L"(ADD mode) Select objects: "},
            {L"AREA|S|0,0|1,0", L"(SUBTRACT mode) Specify next point or [Undo]: "},
            {L"AREA|0,0|1,0|1,1", L"Specify next point or [Undo/Total] <Total>: "},
        };
        checkPrompts(cases);
    }

    void refusals()
    {
        RefusedCase const cases[] = {
            {L"AREA|0,0|1,0|", L"Point or option keyword required."},
            {L"AREA|0,0|1,0|1,1,5", L"All points must lie in one plane parallel to the XY plane of the UCS."},
            {L"AREA|O|5,5", L"No object found."},
            {L"POINT|5,5|AREA|O|L", L"Selected object does not have an area."},
            {L"DIST|x", L"Invalid point."},
        };
        checkRefused(cases);
    }

private:
    static std::string lastHandle();
};
CPPUNIT_TEST_SUITE_REGISTRATION(InquiryCommandsTest);

/// Of the entity drawn last.
std::string InquiryCommandsTest::lastHandle()
{
    std::string handle;
    auto const space = db().getModelSpaceId().open<OdDbBlockTableRecord>();
    for (auto it = space->newIterator(); !it.done(); it.step())
        handle = it.objectId().getHandle().ascii().toUtf8();
    return handle;
}

} // namespace
