// Commands that draw, in a user coordinate system that is turned: X goes up, Y backwards, Z along the X axis of
// the world, and the origin lies at (7, 0, 0).
#include "host/db/od_db_database.h"
#include "host/sds/sds.h"
#include "tests/host/app/draw_script.h"

#include <cppunit/extensions/HelperMacros.h>

namespace {

class TestDrawInUcs : public DrawScriptTest
{
    CPPUNIT_TEST_SUITE(TestDrawInUcs);
    CPPUNIT_TEST(curves);
    CPPUNIT_TEST(polylines);
    CPPUNIT_TEST(faces);
    CPPUNIT_TEST_SUITE_END();

public:
    void setUp() override
    {
        DrawScriptTest::setUp();
        db().setHeaderPoint("UCSORG", {7, 0, 0});
        db().setHeaderPoint("UCSXDIR", {0, 0, 1});
        db().setHeaderPoint("UCSYDIR", {0, -1, 0});
    }

    void curves()
    {
        DrawnCase const cases[] = {
            {L"ELLIPSE|C|5,6|10,6|3", L"ELLIPSE center 7,-6,5 major axis 0,0,5 minor axis 0,-3 radius ratio 0.6*"},
            {L"ELLIPSE|-5,0|5,0,9|3", L"ELLIPSE center 7,0 major axis 0,0,-5 minor axis 0,3 radius ratio 0.6*"},
            {L"ELLIPSE|A|C|0,0|5,0|3|0|90", L"*start point 7,0,5 end point 7,-3 start parameter 0*"},
            {L"ELLIPSE|A|C|0,0|0,5|3|0,9|-9,0", L"*start point 7,-5 end point 7,0,-3 start parameter 0*"},
            {L"SPLINE|0,0|5,5|10,0||0,1|",
             L"SPLINE * normal 1,0 *start tangent 0,-1 end tangent 0,0*fit point 1: "
             L"position 7,0 fit point 2: position 7,-5,5 fit point 3: position 7,0,10*"},
            {L"RAY|1,2|4,6|", L"RAY base point 7,-2,1 direction 0,-0.8,0.6 *"},
            {L"XLINE|H|1,2|", L"XLINE base point 7,-2,1 direction 0,0,1 *"},
            {L"XLINE|V|1,2|", L"XLINE base point 7,-2,1 direction 0,-1 *"},
            {L"XLINE|A|30|1,2|", L"XLINE base point 7,-2,1 direction 0,-0.5,0.866 *"},
            {L"XLINE|B|0,0|5,0|-5,0|", L"XLINE base point 7,0 direction 0,-1 *"},
            {L"LINE|0,0|10,0||XLINE|O|2|5,0|5,9|", L"LINE *; XLINE base point 7,-2,5 direction 0,0,1 *", 2},
        };
        checkDrawn(cases);
    }

    void polylines()
    {
        DrawnCase const cases[] = {
            {L"RECTANG|0,0|10,5", L"PLINE 7,0 7,0,10 7,-5,10 7,-5 closed n1,0"},
            {L"RECTANG|0,0|R|90|-2,4", L"PLINE 7,0 7,-4 7,-4,-2 7,0,-2 closed n1,0"},
            {L"RECTANG|E|3|0,0|A|20||5", L"PLINE 10,0 10,0,5 10,-4,5 10,-4 closed n1,0"},
            {L"RECTANG|F|1|0,0|9,9", L"PLINE 7,-1~0.4142 7,0,1 7,0,8~0.4142 7,-1,9 * closed n1,0"},
            {L"POLYGON|4|0,0|C|5", L"PLINE 7,5,5 7,-5,5 7,-5,-5 7,5,-5 closed n1,0"},
            {L"POLYGON|4|E|0,0|5,0", L"PLINE 7,0 7,0,5 7,-5,5 7,-5 closed n1,0"},
            {L"DONUT|2|4|1,2|", L"PLINE 7,-2,-0.5~1 7,-2,2.5~1 w1 closed n1,0"},
            {L"3DPOLY|0,0|3,4,5|", L"POLYLINE * vertex 1: position 7,0 vertex 2: position 12,-4,3"},
        };
        checkDrawn(cases);
    }

    void faces()
    {
        DrawnCase const cases[] = {
            {L"SOLID|0,0,1|4,0,2|2,3|||", L"SOLID corner 8,0 corner 8,0,4 corner 8,-3,2 corner 8,-3,2 *1,0*"},
            {L"TRACE|2|0,0|9,0|", L"TRACE corner 7,-1 corner 7,1 corner 7,-1,9 corner 7,1,9 *1,0*"},
            {L"3DFACE|0,0|4,0|4,3,1|0,3,1||", L"3DFACE *position 7,0 *position 7,0,4 *position 8,-3,4 "
                                              L"*position 8,-3 edge visible yes"},
            {L"3DMESH|2|2|0,0|1,0|0,1|1,1,5",
             L"POLYLINE * position 7,0 vertex 2: position 7,0,1 vertex 3: position "
             L"7,-1 vertex 4: position 12,-1,1"},
            {L"PFACE|0,0|4,0|4,3,1||1|2|3||",
             L"POLYLINE * position 7,0 vertex 2: position 7,0,4 vertex 3: position "
             L"8,-3,4 face 1: *"},
        };
        checkDrawn(cases);
    }
};
CPPUNIT_TEST_SUITE_REGISTRATION(TestDrawInUcs);

} // namespace
