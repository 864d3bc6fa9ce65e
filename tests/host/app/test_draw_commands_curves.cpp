// ELLIPSE, SPLINE, RAY and XLINE, fed with text answers.
#include "host/app/sys_var.h"
#include "host/db/entities/od_db_2d_polyline.h"
#include "host/db/entities/od_db_3d_polyline.h"
#include "host/db/od_db_database.h"
#include "host/db/records/od_db_block_table_record.h"
#include "host/sds/sds.h"
#include "host/ut/ut_text.h"
#include "tests/host/app/draw_script.h"

#include <cppunit/extensions/HelperMacros.h>

namespace {

class TestDrawEllipse : public DrawScriptTest
{
    CPPUNIT_TEST_SUITE(TestDrawEllipse);
    CPPUNIT_TEST(wholeEllipses);
    CPPUNIT_TEST(ellipticArcs);
    CPPUNIT_TEST(isometricCircles);
    CPPUNIT_TEST(refusals);
    CPPUNIT_TEST(prompts);
    CPPUNIT_TEST_SUITE_END();

public:
    void wholeEllipses()
    {
        DrawnCase const cases[] = {
            {L"ELLIPSE|-5,0,1|5,0|3", L"ELLIPSE center 0,0,1 major axis -5,0 minor axis 0,-3 radius ratio 0.6 "
                                      L"circumference 25.527 area 47.1239"},
            {L"EL|-5,0|5,0|0,3",
             L"ELLIPSE center 0,0 major axis -5,0 minor axis 0,-3 radius ratio 0.6 circumference*"},
            // The other axis is the longer one.
            {L"ELLIPSE|-3,0|3,0|0,5",
             L"ELLIPSE center 0,0 major axis 0,-5 minor axis 3,0 radius ratio 0.6 circumference*"},
            {L"ELLIPSE|-5,0|5,0|R|60",
             L"ELLIPSE center 0,0 major axis -5,0 minor axis 0,-2.5 radius ratio 0.5 circumference*"},
            {L"ELLIPSE|-5,0|5,0|R|0",
             L"ELLIPSE center 0,0 major axis -5,0 minor axis 0,-5 radius ratio 1 circumference*"},
            {L"ELLIPSE|C|1,2|6,2,9|3",
             L"ELLIPSE center 1,2 major axis 5,0 minor axis 0,3 radius ratio 0.6 circumference*"},
            {L"ELLIPSE|C|1,2|@3,4|R|60",
             L"ELLIPSE center 1,2 major axis 3,4 minor axis -2,1.5 radius ratio 0.5 circumference*"},
        };
        checkDrawn(cases);
    }

    void ellipticArcs()
    {
        DrawnCase const cases[] = {
            {L"ELLIPSE|A|C|0,0|5,0|3|0|90", L"*start point 5,0 end point 0,3 start parameter 0 end parameter 90*"},
            // The ray of 45 degrees meets the ellipse at (2.5725, 2.5725).
            {L"ELLIPSE|A|C|0,0|5,0|3|45|90", L"*start point 2.5725,2.5725 end point 0,3 start parameter 59.0362*"},
            {L"ELLIPSE|A|C|0,0|5,0|3|P|45|90",
             L"*start point 3.5355,2.1213 end point 0,3 start parameter 45 end parameter 90*"},
            {L"ELLIPSE|A|C|0,0|5,0|3|P|45|A|45", L"*start parameter 45 end parameter 59.0362*"},
            {L"ELLIPSE|A|C|0,0|5,0|3|P|A|45|P|90", L"*start parameter 59.0362 end parameter 90*"},
            {L"ELLIPSE|A|C|0,0|5,0|3|0|I|90", L"*start parameter 0 end parameter 90*"},
            {L"ELLIPSE|A|C|0,0|5,0|3|0|I|", L"*start parameter 0 end parameter 180*"},
            {L"ELLIPSE|A|C|0,0|5,0|3|0|I|-90", L"*start parameter 270 end parameter 0*"},
            {L"ELLIPSE|A|C|0,0|5,0|3|45|I|-45", L"*start parameter 0 end parameter 59.0362*"},
            // Points give directions, whatever way the axis points.
            {L"ELLIPSE|A|C|0,0|0,5|3|0,9|-9,0", L"*start point 0,5 end point -3,0*"},
            // Angles count from the first end of the axis, also where the other axis is longer.
            {L"ELLIPSE|A|-5,0|5,0|3|0|90",
             L"*start point -5,0 end point 0,-3 start parameter 0 end parameter 90*"},
            {L"ELLIPSE|A|C|0,0|3,0|5|0|90",
             L"*major axis 0,5 minor axis -3,0*start point 3,0 end point 0,5 start parameter 270*"},
            {L"ELLIPSE|A|C|0,0|5,0|3|30|30", L"*radius ratio 0.6 circumference 25.527*"},
        };
        checkDrawn(cases);
    }

    void isometricCircles()
    {
        struct
        {
            int plane;
            char const* drawn;
        } const cases[] = {
            {0, "ELLIPSE center 1,2 major axis -6.1237,10.6066 minor axis -6.1237,-3.5355 radius ratio 0.5774"},
            {1, "ELLIPSE center 1,2 major axis 12.2474,0 minor axis 0,7.0711 radius ratio 0.5774"},
            {2, "ELLIPSE center 1,2 major axis 6.1237,10.6066 minor axis -6.1237,3.5355 radius ratio 0.5774"},
        };
        CPPUNIT_ASSERT_EQUAL_MESSAGE("the option is not there", int(RTERROR), feed(L"ELLIPSE|I"));
        CPPUNIT_ASSERT(ca::SysVar::find(L"SNAPSTYL")->set(1));
        for (auto const& each : cases) {
            CPPUNIT_ASSERT(ca::SysVar::find(L"SNAPISOPAIR")->set(each.plane));
            CPPUNIT_ASSERT_EQUAL(int(RTNORM), feed(L"ELLIPSE|I|1,2|10"));
            CPPUNIT_ASSERT_EQUAL(std::string(each.drawn),
                                 drawn().toUtf8().substr(0, std::string(each.drawn).size()));
            feed(L"U");
        }
        feed(L"ELLIPSE|A|I|1,2|D|20|90|180");
        CPPUNIT_ASSERT(drawn().find(L"major axis 6.1237,10.6066") != std::wstring::npos);
        CPPUNIT_ASSERT(drawn().find(L"start parameter 90 end parameter 180") != std::wstring::npos);
        feed(L"ELLIPSE");
        CPPUNIT_ASSERT_EQUAL(std::string("Specify axis endpoint of ellipse or [Arc/Center/Isocircle]: "),
                             lastPrompt().toUtf8());
    }

    void refusals()
    {
        RefusedCase const cases[] = {
            {L"ELLIPSE|1,1|1,1", L"The two points are the same."},
            {L"ELLIPSE|C|1,1|1,1,5", L"The two points are the same."},
            {L"ELLIPSE|C|1,1|5,1|0", L"Value must be positive and nonzero."},
            {L"ELLIPSE|C|1,1|5,1|1,1,3", L"The ellipse would have no area."},
            {L"ELLIPSE|C|1,1|5,1|1e-6", L"The axes differ too much in length."},
            {L"ELLIPSE|C|1,1|5,1|R|89.5", L"Requires an angle between 0 and 89.4 degrees."},
            {L"ELLIPSE|A|C|0,0|5,0|3|0|I|0", L"Value must be nonzero."},
        };
        checkRefused(cases);
        CPPUNIT_ASSERT_EQUAL(std::string(), drawn().toUtf8());
    }

    void prompts()
    {
        PromptCase const cases[] = {
            {L"ELLIPSE", L"Specify axis endpoint of ellipse or [Arc/Center]: "},
            {L"ELLIPSE|0,0", L"Specify other endpoint of axis: "},
            {L"ELLIPSE|0,0|9,0", L"Specify distance to other axis or [Rotation]: "},
            {L"ELLIPSE|0,0|9,0|R", L"Specify rotation around major axis: "},
            {L"ELLIPSE|C", L"Specify center of ellipse: "},
            {L"ELLIPSE|C|0,0", L"Specify endpoint of axis: "},
            {L"ELLIPSE|A", L"Specify axis endpoint of elliptical arc or [Center]: "},
            {L"ELLIPSE|A|C", L"Specify center of elliptical arc: "},
            {L"ELLIPSE|A|0,0|9,0|3", L"Specify start angle or [Parameter]: "},
            {L"ELLIPSE|A|0,0|9,0|3|P", L"Specify start parameter or [Angle]: "},
            {L"ELLIPSE|A|0,0|9,0|3|0", L"Specify end angle or [Parameter/Included angle]: "},
            {L"ELLIPSE|A|0,0|9,0|3|0|P", L"Specify end parameter or [Angle/Included angle]: "},
            {L"ELLIPSE|A|0,0|9,0|3|0|I", L"Specify included angle for arc <180>: "},
        };
        checkPrompts(cases);
    }
};
CPPUNIT_TEST_SUITE_REGISTRATION(TestDrawEllipse);

class TestDrawSpline : public DrawScriptTest
{
    CPPUNIT_TEST_SUITE(TestDrawSpline);
    CPPUNIT_TEST(splinesThroughPoints);
    CPPUNIT_TEST(fittedPolylinesBecomeSplines);
    CPPUNIT_TEST(refusals);
    CPPUNIT_TEST(prompts);
    CPPUNIT_TEST_SUITE_END();

public:
    void splinesThroughPoints()
    {
        DrawnCase const cases[] = {
            {L"SPLINE|0,0|5,5|10,0|||",
             L"SPLINE degree 3 closed no periodic no * fit tolerance 0 start tangent 0,0 end tangent 0,0*"
             L"fit point 1: position 0,0 fit point 2: position 5,5 fit point 3: position 10,0*"},
            {L"SPL|0,0|0,0|5,5|||", L"*end tangent 0,0*fit point 1: position 0,0 fit point 2: position 5,5*"},
            {L"SPLINE|0,0|5,5,2|10,0||0,1|11,-1",
             L"*planar no * start tangent 0,1 end tangent 1,-1*fit point 1: position 0,0 fit point 2: position "
             L"5,5,2 fit point 3: position 10,0*"},
            {L"SPLINE|0,0|10,0|5,8|C|",
             L"SPLINE degree 3 closed yes periodic yes * fit point 1: position 0,0 fit point 2: position 10,0 "
             L"fit point 3: position 5,8*"},
            // With a direction at the first point the curve comes back to it as an open one.
            {L"SPLINE|0,0|10,0|5,8|C|2,-1",
             L"SPLINE degree 3 closed yes periodic no * start tangent 2,-1 end tangent 2,-1*fit point 1: position "
             L"0,0 fit point 2: position 10,0 fit point 3: position 5,8 fit point 4: position 0,0*"},
            {L"SPLINE|0,0|5,5|F|0.5|F||10,0|||", L"* fit tolerance 0.5 *"},
            {L"SPLINE|0,0|5,5|9,9|U|U|U|6,1|||", L"*fit point 1: position 0,0 fit point 2: position 6,1*"},
        };
        checkDrawn(cases);
        feed(L"SPLINE|0,0|U|0,0");
        CPPUNIT_ASSERT(hasLine(L"All points already undone."));
    }

    void fittedPolylinesBecomeSplines()
    {
        OdDb2dPolylinePtr const flat = new OdDb2dPolyline;
        for (OdGePoint3d const& point : {OdGePoint3d(0, 0, 0), OdGePoint3d(0, 9, 0), OdGePoint3d(9, 9, 0)})
            flat->appendVertex(new OdDb2dVertex(point));
        flat->setNormal({1, 0, 0});
        CPPUNIT_ASSERT_EQUAL(eOk, flat->splineFit(OdDb::k2dQuadSplinePoly, 4));
        flat->setColor(OdCmColor(3));
        OdDb3dPolylinePtr const spatial = new OdDb3dPolyline;
        for (OdGePoint3d const& point : {OdGePoint3d(0, 0, 1), OdGePoint3d(0, 9, 2), OdGePoint3d(9, 9, 3)})
            spatial->appendVertex(new OdDb3dPolylineVertex(point));
        spatial->setClosed(true);
        CPPUNIT_ASSERT_EQUAL(eOk, spatial->splineFit(OdDb::k3dCubicSplinePoly, 4));
        auto const space = db().getModelSpaceId().open<OdDbBlockTableRecord>(OdDb::kForWrite);
        space->appendOdDbEntity(flat);
        space->appendOdDbEntity(spatial);
        OdDb3dPolylinePtr const simple = new OdDb3dPolyline;
        simple->appendVertex(new OdDb3dPolylineVertex({5, 5, 5}));
        space->appendOdDbEntity(simple);
        std::string const before = bytes();
        CPPUNIT_ASSERT_EQUAL(int(RTNORM), feed(L"SPLINE|O|ALL|"));
        CPPUNIT_ASSERT(hasLine(L"Only spline-fit polylines can be converted to splines."));
        checkConverted();
        std::string const after = bytes();
        feed(L"U");
        CPPUNIT_ASSERT(bytes() == before);
        feed(L"REDO");
        CPPUNIT_ASSERT(bytes() == after);
        feed(L"U");
        CPPUNIT_ASSERT(ca::SysVar::find(L"DELOBJ")->set(0));
        feed(L"SPLINE|O|ALL|");
        CPPUNIT_ASSERT_EQUAL(5, entities());
        feed(L"U");
        CPPUNIT_ASSERT(ca::SysVar::find(L"DELOBJ")->set(-1));
        feed(L"SPLINE|O|ALL|");
        CPPUNIT_ASSERT_EQUAL(std::string("Delete source objects? [Yes/No] <Yes>: "), lastPrompt().toUtf8());
        feed(L"N");
        CPPUNIT_ASSERT_EQUAL(5, entities());
    }

    void refusals()
    {
        RefusedCase const cases[] = {
            {L"SPLINE|0,0|", L"Invalid point."},
            {L"SPLINE|0,0|1,1|C", L"Invalid point."},
            {L"SPLINE|0,0|1,1|F|-1", L"Value must not be negative."},
        };
        checkRefused(cases);
    }

    void prompts()
    {
        PromptCase const cases[] = {
            {L"SPLINE", L"Specify first point or [Object]: "},
            {L"SPLINE|0,0", L"Specify next point: "},
            {L"SPLINE|0,0|1,1", L"Specify next point or [Fit tolerance] <start tangent>: "},
            {L"SPLINE|0,0|1,1|2,0", L"Specify next point or [Close/Fit tolerance] <start tangent>: "},
            {L"SPLINE|0,0|1,1|F", L"Specify fit tolerance <0>: "},
            {L"SPLINE|0,0|1,1|2,0|", L"Specify start tangent: "},
            {L"SPLINE|0,0|1,1|2,0||", L"Specify end tangent: "},
            {L"SPLINE|0,0|1,1|2,0|C", L"Specify tangent: "},
        };
        checkPrompts(cases);
    }

private:
    static int entities()
    {
        auto const space = db().getModelSpaceId().open<OdDbBlockTableRecord>();
        int count = 0;
        for (OdDbObjectIterator it = space->newIterator(); !it.done(); it.step())
            ++count;
        return count;
    }

    /// A clamped one in the plane of the flat polyline, and a periodic one, which repeats its first points.
    static void checkConverted()
    {
        auto const space = db().getModelSpaceId().open<OdDbBlockTableRecord>();
        OdDbObjectIterator it = space->newIterator();
        CPPUNIT_ASSERT(it.entity()->isA() == OdDb3dPolyline::desc());
        it.step();
        CPPUNIT_ASSERT_EQUAL(3, int(it.entity()->color().colorIndex()));
        CPPUNIT_ASSERT(ut::matchesWildcard(
            drawn().str(),
            L"POLYLINE *; SPLINE degree 2 closed no periodic no * "
            L"control point 1: position 0,0 control point 2: position 0,0,9 control point 3: position 0,9,9 "
            L"knot 1: parameter 0 knot 2: parameter 0 knot 3: parameter 0 "
            L"knot 4: parameter 1 knot 5: parameter 1 knot 6: parameter 1; "
            L"SPLINE degree 3 closed yes periodic yes * control point 1: position 0,0,1 "
            L"control point 2: position 0,9,2 control point 3: position 9,9,3 control point 4: position 0,0,1 *"));
    }
};
CPPUNIT_TEST_SUITE_REGISTRATION(TestDrawSpline);

class TestDrawEndless : public DrawScriptTest
{
    CPPUNIT_TEST_SUITE(TestDrawEndless);
    CPPUNIT_TEST(rays);
    CPPUNIT_TEST(constructionLines);
    CPPUNIT_TEST(linesBesideOthers);
    CPPUNIT_TEST(refusals);
    CPPUNIT_TEST(prompts);
    CPPUNIT_TEST_SUITE_END();

public:
    void rays()
    {
        DrawnCase const cases[] = {
            {L"RAY|1,2|4,6|1,9|", L"RAY base point 1,2 direction 0.6,0.8 angle in XY plane 53.1301; "
                                  L"RAY base point 1,2 direction 0,1 angle in XY plane 90"},
            {L"RAY|1,2,3|1,2,9|", L"RAY base point 1,2,3 direction 0,0,1 *"},
        };
        checkDrawn(cases);
    }

    void constructionLines()
    {
        DrawnCase const cases[] = {
            {L"XLINE|1,2|4,6|1,9|",
             L"XLINE base point 1,2 direction 0.6,0.8 *; XLINE base point 1,2 direction 0,1 *"},
            {L"XL|H|1,2|3,4,5|", L"XLINE base point 1,2 direction 1,0 *; XLINE base point 3,4,5 direction 1,0 *"},
            {L"XLINE|V|1,2|", L"XLINE base point 1,2 direction 0,1 *"},
            {L"XLINE|A|30|1,2|", L"XLINE base point 1,2 direction 0.866,0.5 *"},
            {L"XLINE|A||1,2|", L"XLINE base point 1,2 direction 1,0 *"},
            {L"XLINE|B|0,0|5,0|0,5|-5,0|", L"XLINE base point 0,0 direction 0.7071,0.7071 *; "
                                           L"XLINE base point 0,0 direction 0,1 *"},
            {L"XLINE|B|0,0|5,0|0,0,5|", L"XLINE base point 0,0 direction 0.7071,0,0.7071 *"},
        };
        checkDrawn(cases);
    }

    void linesBesideOthers()
    {
        DrawnCase const cases[] = {
            {L"LINE|0,0|3,3||XLINE|A|R|1,1|45|5,5|", L"LINE *; XLINE base point 5,5 direction 0,1 *", 2},
            {L"LINE|0,0|3,3||XLINE|A|R|1,1||5,5|", L"LINE *; XLINE base point 5,5 direction 0.7071,0.7071 *", 2},
            {L"LINE|0,0|10,0||XLINE|O|2|5,0|5,9|5,0|5,-1|",
             L"LINE *; XLINE base point 5,2 direction 1,0 *; XLINE base point 5,-2 direction 1,0 *", 2},
            {L"LINE|0,0|10,0||XLINE|O|T|5,0|3,4|", L"LINE *; XLINE base point 3,4 direction 1,0 *", 2},
            // The distance is offered again, and so is Through; commands that drew nothing are no steps for U.
            {L"LINE|0,0|10,0||XLINE|O|2||XLINE|O||5,0|5,9||XLINE|O|T||XLINE|O||5,0|7,7|",
             L"LINE *; XLINE base point 5,2 *; XLINE base point 7,7 *", 3},
            {L"PLINE|0,0|10,0|10,10||XLINE|O|2|10,5|0,0|", L"PLINE *; XLINE base point 8,5 direction 0,1 *", 2},
            {L"RAY|0,0|0,9||XLINE|O|2|0,5|9,9|", L"RAY *; XLINE base point 2,5 direction 0,1 *", 2},
            {L"XLINE|V|1,0||XLINE|O|2|1,7|-9,9|", L"XLINE *; XLINE base point -1,7 direction 0,1 *", 2},
        };
        checkDrawn(cases);
    }

    void refusals()
    {
        RefusedCase const cases[] = {
            {L"RAY|1,1|1,1", L"The two points are the same."},
            {L"XLINE|1,1|1,1", L"The two points are the same."},
            {L"XLINE|B|0,0|0,0|1,1", L"The two points are the same."},
            {L"XLINE|O|0", L"Value must be positive and nonzero."},
            {L"XLINE|O|2|9,9", L"No object found."},
            {L"CIRCLE|0,0|5|XLINE|O|2|5,0", L"The object is not a line."},
            {L"PLINE|0,0|A|0,10||XLINE|A|R|5,5", L"The object is not a line."},
            {L"LINE|0,0|0,0,5||XLINE|O|2|0,0|1,1",
             L"The line is perpendicular to the plane of the user coordinate system."},
        };
        checkRefused(cases);
        feed(L"RAY|1,1|2,1|1,1");
        CPPUNIT_ASSERT_EQUAL_MESSAGE("what was drawn stays",
                                     std::string("RAY base point 1,1 direction 1,0 angle in XY plane 0"),
                                     drawn().toUtf8().substr(drawn().toUtf8().rfind("RAY")));
    }

    void prompts()
    {
        PromptCase const cases[] = {
            {L"RAY", L"Specify start point: "},
            {L"RAY|0,0", L"Specify through point: "},
            {L"XLINE", L"Specify a point or [Hor/Ver/Ang/Bisect/Offset]: "},
            {L"XLINE|A", L"Enter angle of xline (0) or [Reference]: "},
            {L"XLINE|A|R", L"Select a line object: "},
            {L"XLINE|B", L"Specify angle vertex point: "},
            {L"XLINE|B|0,0", L"Specify angle start point: "},
            {L"XLINE|B|0,0|1,0", L"Specify angle end point: "},
            {L"XLINE|O", L"Specify offset distance or [Through] <1>: "},
            {L"XLINE|O|T", L"Select a line object or <exit>: "},
        };
        checkPrompts(cases);
    }
};
CPPUNIT_TEST_SUITE_REGISTRATION(TestDrawEndless);

} // namespace
