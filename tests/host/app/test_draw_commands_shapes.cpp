// RECTANG, POLYGON and DONUT, fed with text answers.
#include "host/app/sys_var.h"
#include "host/db/entities/od_db_polyline.h"
#include "host/db/od_db_database.h"
#include "host/db/records/od_db_block_table_record.h"
#include "host/sds/sds.h"
#include "tests/host/app/draw_script.h"

#include <cppunit/extensions/HelperMacros.h>

namespace {

class TestDrawRectangle : public DrawScriptTest
{
    CPPUNIT_TEST_SUITE(TestDrawRectangle);
    CPPUNIT_TEST(cornersAndSides);
    CPPUNIT_TEST(cutCorners);
    CPPUNIT_TEST(modesStay);
    CPPUNIT_TEST(thicknessAndElevation);
    CPPUNIT_TEST(refusals);
    CPPUNIT_TEST(prompts);
    CPPUNIT_TEST_SUITE_END();

public:
    void cornersAndSides()
    {
        DrawnCase const cases[] = {
            {L"RECTANG|1,2|5,4", L"PLINE 1,2 5,2 5,4 1,4 closed"},
            {L"REC|5,4,3|1,2", L"PLINE 5,4,3 1,4,3 1,2,3 5,2,3 closed"},
            {L"RECTANGLE|0,0|D|4|2|9,9", L"PLINE 0,0 4,0 4,2 0,2 closed"},
            {L"RECTANG|0,0|D|4|2|-9,-9", L"PLINE 0,0 -4,0 -4,-2 0,-2 closed"},
            {L"RECTANG|0,0|D|4|2|D|6||9,9", L"PLINE 0,0 6,0 6,2 0,2 closed"},
            {L"RECTANG|0,0|D|||9,9", L"PLINE 0,0 10,0 10,10 0,10 closed"},
            {L"RECTANG|0,0|A|20||5", L"PLINE 0,0 5,0 5,4 0,4 closed"},
            {L"RECTANG|0,0|A|20|W|5", L"PLINE 0,0 4,0 4,5 0,5 closed"},
            {L"RECTANG|0,0|A|||", L"PLINE 0,0 10,0 10,10 0,10 closed"},
            {L"RECTANG|0,0|R|90|-2,4", L"PLINE 0,0 0,4 -2,4 -2,0 closed"},
            {L"RECTANG|0,0|R|1,1|0,2", L"PLINE 0,0 1,1 0,2 -1,1 closed"}, // a direction
            {L"RECTANG|0,0|R|P|5,5|5,9|-2,4", L"PLINE 0,0 0,4 -2,4 -2,0 closed"},
            {L"RECTANG|0,0|R|90|D|4|2|-9,9", L"PLINE 0,0 0,4 -2,4 -2,0 closed"},
            {L"RECTANG|W|0.5|0,0|5,4", L"PLINE 0,0 5,0 5,4 0,4 w0.5 closed"},
            {L"RECTANG|E|3|1,2|5,4", L"PLINE 1,2,3 5,2,3 5,4,3 1,4,3 closed"},
            {L"RECTANG|E|3|1,2,9|5,4", L"PLINE 1,2,3 5,2,3 5,4,3 1,4,3 closed"},
        };
        checkDrawn(cases);
    }

    void cutCorners()
    {
        DrawnCase const cases[] = {
            {L"RECTANG|C|1|2|0,0|9,9", L"PLINE 0,1 2,0 8,0 9,2 9,8 7,9 1,9 0,7 closed"},
            {L"RECTANG|C|1||0,0|9,9", L"PLINE 0,1 1,0 8,0 9,1 9,8 8,9 1,9 0,8 closed"},
            {L"RECTANG|F|1|0,0|9,-9",
             L"PLINE 0,-1~-0.4142 1,0 8,0~-0.4142 9,-1 9,-8~-0.4142 8,-9 1,-9~-0.4142 0,-8 closed"},
            {L"RECTANG|F|1|0,0|2,9", L"PLINE 0,1~0.4142 1,0~0.4142 2,1 2,8~0.4142 1,9~0.4142 0,8 closed"},
            {L"RECTANG|F|1|0,0|2,2", L"PLINE 0,1~0.4142 1,0~0.4142 2,1~0.4142 1,2~0.4142 closed"},
            // The last kind of corners counts.
            {L"RECTANG|F|1|C|0|0|0,0|2,2", L"PLINE 0,0 2,0 2,2 0,2 closed"},
            {L"RECTANG|C|1|2|F||0,0|2,2", L"PLINE 0,0 2,0 2,2 0,2 closed"},
            // Cuts are taken from the area: 4 * 10 - 2 * 1 * 2, and 10 * 10 - (4 - pi) * 3 * 3.
            {L"RECTANG|C|1|2|0,0|A|36||10", L"PLINE 0,1 2,0 9,0 10,2 10,3 8,4 1,4 0,2 closed"},
            {L"RECTANG|F|3|0,0|A|92.2743338823081|W|10", L"PLINE 0,3~0.4142 3,0 7,0~0.4142 10,3 *"},
            {L"RECTANG|F|3|0,0|2,9", L"PLINE 0,0 2,0 2,9 0,9 closed"},
            {L"RECTANG|F|3|0,0|A|20||10", L"PLINE 0,0 10,0 10,2 0,2 closed"},
        };
        checkDrawn(cases);
        CPPUNIT_ASSERT(hasLine(L"The rectangle is too small for its corners to be cut."));
    }

    void modesStay()
    {
        feed(L"RECTANG|C|1|2|E|3|T|4|W|0.5|0,0|R|30|D|9|8|9,9|RECTANG");
        CPPUNIT_ASSERT(hasLine(L"Current rectangle modes:  Chamfer=1 x 2  Elevation=3  Rotation=30  Thickness=4"
                               L"  Width=0.5"));
        feed(L"F|2|0,0|R|0|D||9|9,9|RECTANG");
        CPPUNIT_ASSERT(hasLine(L"Current rectangle modes:  Fillet=2  Elevation=3  Thickness=4  Width=0.5"));
        PromptCase const anotherDrawing[] = {{L"RECTANG|F", L"Specify fillet radius for rectangles <0>: "}};
        checkPrompts(anotherDrawing);
    }

    void thicknessAndElevation()
    {
        db().setHeaderReal("THICKNESS", 40, 2);
        db().setHeaderReal("ELEVATION", 40, 5);
        feed(L"RECTANG|0,0|1,1");
        feed(L"RECTANG|T||E||0,0,9|1,1");
        feed(L"RECTANG|T|-7|E|1|0,0|1,1");
        CPPUNIT_ASSERT_EQUAL(std::string("2@5 2@5 -7@1 "), thicknesses());
    }

    void refusals()
    {
        RefusedCase const cases[] = {
            {L"RECTANG|C|-1", L"Value must not be negative."},
            {L"RECTANG|1,1|1,5", L"The corners must differ in both directions of the rectangle."},
            {L"RECTANG|0,0|R|45|3,3", L"The corners must differ in both directions of the rectangle."},
            {L"RECTANG|0,0|A|0", L"Value must be positive and nonzero."},
            {L"RECTANG|0,0|D|0", L"Value must be positive and nonzero."},
            {L"RECTANG|0,0|R|P|1,1|1,1", L"The two points are the same."},
        };
        checkRefused(cases);
        CPPUNIT_ASSERT_EQUAL(std::string(), drawn().toUtf8());
    }

    void prompts()
    {
        PromptCase const cases[] = {
            {L"RECTANG", L"Specify first corner point or [Chamfer/Elevation/Fillet/Thickness/Width]: "},
            {L"RECTANG|C", L"Specify first chamfer distance for rectangles <0>: "},
            {L"RECTANG|C|1", L"Specify second chamfer distance for rectangles <1>: "},
            {L"RECTANG|E", L"Specify the elevation for rectangles <0>: "},
            {L"RECTANG|F", L"Specify fillet radius for rectangles <0>: "},
            {L"RECTANG|T", L"Specify thickness for rectangles <0>: "},
            {L"RECTANG|W", L"Specify line width for rectangles <0>: "},
            {L"RECTANG|0,0", L"Specify other corner point or [Area/Dimensions/Rotation]: "},
            {L"RECTANG|0,0|A", L"Enter area of rectangle in current units <100>: "},
            {L"RECTANG|0,0|A|20", L"Calculate rectangle dimensions based on [Length/Width] <Length>: "},
            {L"RECTANG|0,0|A|20|L", L"Enter rectangle length <10>: "},
            {L"RECTANG|0,0|A|20|W", L"Enter rectangle width <10>: "},
            {L"RECTANG|0,0|D", L"Specify length for rectangles <10>: "},
            {L"RECTANG|0,0|D|4", L"Specify width for rectangles <10>: "},
            {L"RECTANG|0,0|R", L"Specify rotation angle or [Pick points] <0>: "},
        };
        checkPrompts(cases);
    }

private:
    static std::string thicknesses()
    {
        OdString text;
        auto const space = db().getModelSpaceId().open<OdDbBlockTableRecord>();
        for (OdDbObjectIterator it = space->newIterator(); !it.done(); it.step()) {
            auto const polyline = it.objectId().open<OdDbPolyline>();
            text += odFormat(L"%g@%g ", polyline->thickness(), polyline->elevation());
        }
        return text.toUtf8();
    }
};
CPPUNIT_TEST_SUITE_REGISTRATION(TestDrawRectangle);

class TestDrawPolygonAndDonut : public DrawScriptTest
{
    CPPUNIT_TEST_SUITE(TestDrawPolygonAndDonut);
    CPPUNIT_TEST(polygons);
    CPPUNIT_TEST(polygonsFollowTheSnapGrid);
    CPPUNIT_TEST(donuts);
    CPPUNIT_TEST(refusals);
    CPPUNIT_TEST(prompts);
    CPPUNIT_TEST_SUITE_END();

public:
    void polygons()
    {
        DrawnCase const cases[] = {
            {L"POLYGON|4|0,0|C|5", L"PLINE 5,-5 5,5 -5,5 -5,-5 closed"},
            {L"POL||1,2,3|I|5",
             L"PLINE 4.5355,-1.5355,3 4.5355,5.5355,3 -2.5355,5.5355,3 -2.5355,-1.5355,3 closed"},
            {L"POLYGON|3|0,0|I|2", L"PLINE 1.7321,-1 0,2 -1.7321,-1 closed"},
            // Where a corner, or the middle of an edge, lies.
            {L"POLYGON|4|0,0|I|0,5", L"PLINE 0,5 -5,0 0,-5 5,0 closed"},
            {L"POLYGON|4|0,0|C|0,5", L"PLINE -5,5 -5,-5 5,-5 5,5 closed"},
            {L"POLYGON|4|0,0|C|5|POLYGON||9,0||1", L"PLINE *; PLINE 10,-1 10,1 8,1 8,-1 closed", 2},
            {L"POLYGON|4|E|0,0|5,0", L"PLINE 0,0 5,0 5,5 0,5 closed"},
            {L"POLYGON|4|E|0,0|-5,0", L"PLINE 0,0 -5,0 -5,-5 0,-5 closed"},
            {L"POLYGON|6|E|0,0,2|2,0", L"PLINE 0,0,2 2,0,2 3,1.7321,2 2,3.4641,2 0,3.4641,2 -1,1.7321,2 closed"},
        };
        checkDrawn(cases);
    }

    void polygonsFollowTheSnapGrid()
    {
        CPPUNIT_ASSERT(ca::SysVar::find(L"SNAPANG")->set(90.0));
        feed(L"POLYGON|3|0,0|I|2");
        CPPUNIT_ASSERT_EQUAL(std::string("PLINE 1,1.7321 -2,0 1,-1.7321 closed"), drawn().toUtf8());
    }

    void donuts()
    {
        DrawnCase const cases[] = {
            {L"DONUT|2|4|0,0|9,9,1|", L"PLINE -1.5,0~1 1.5,0~1 w1 closed; PLINE 7.5,9,1~1 10.5,9,1~1 w1 closed"},
            {L"DO|||0,0|", L"PLINE -0.375,0~1 0.375,0~1 w0.25 closed"},
            {L"DOUGHNUT|0|4|0,0|", L"PLINE -1,0~1 1,0~1 w2 closed"},
            {L"DONUT|6|4|0,0|", L"PLINE -2.5,0~1 2.5,0~1 w1 closed"},
            {L"DONUT|4|4|0,0|", L"PLINE -2,0~1 2,0~1 closed"},
        };
        checkDrawn(cases);
        feed(L"DONUT|6|4|0,0||DONUT");
        CPPUNIT_ASSERT_EQUAL(std::string("Specify inside diameter of donut <6>: "), lastPrompt().toUtf8());
    }

    void refusals()
    {
        RefusedCase const cases[] = {
            {L"POLYGON|2", L"Value must be at least 3."},
            {L"POLYGON|1025", L"Value must be at most 1024."},
            {L"POLYGON|3|0,0||0", L"Value must be positive and nonzero."},
            {L"POLYGON|3|0,0||0,0,4", L"The point lies above the center."},
            {L"POLYGON|3|E|1,1|1,1", L"The two points are the same."},
            {L"DONUT|-1", L"Value must not be negative."},
            {L"DONUT|1|0", L"Value must be positive and nonzero."},
        };
        checkRefused(cases);
    }

    void prompts()
    {
        PromptCase const cases[] = {
            {L"POLYGON", L"Enter number of sides <4>: "},
            {L"POLYGON|5", L"Specify center of polygon or [Edge]: "},
            {L"POLYGON|5|0,0", L"Enter an option [Inscribed in circle/Circumscribed about circle] <I>: "},
            {L"POLYGON|5|0,0|C", L"Specify radius of circle: "},
            {L"POLYGON|5|E", L"Specify first endpoint of edge: "},
            {L"POLYGON|5|E|0,0", L"Specify second endpoint of edge: "},
            {L"DONUT|1", L"Specify outside diameter of donut <1>: "},
            {L"DONUT|1|2", L"Specify center of donut or <exit>: "},
        };
        checkPrompts(cases);
    }
};
CPPUNIT_TEST_SUITE_REGISTRATION(TestDrawPolygonAndDonut);

} // namespace
