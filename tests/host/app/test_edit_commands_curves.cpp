// OFFSET and BREAK.
#include "host/app/ca_doc.h"
#include "host/app/sys_var.h"
#include "host/db/entities/od_db_line.h"
#include "host/db/entities/od_db_spline.h"
#include "host/db/od_db_database.h"
#include "host/db/records/od_db_block_table_record.h"
#include "tests/host/app/draw_script.h"

#include <cppunit/extensions/HelperMacros.h>

namespace {

class TestCurveCommands : public DrawScriptTest
{
    CPPUNIT_TEST_SUITE(TestCurveCommands);
    CPPUNIT_TEST(offsetsToTheSideOfThePoint);
    CPPUNIT_TEST(offsetsOfPolylines);
    CPPUNIT_TEST(offsetsThroughPoints);
    CPPUNIT_TEST(offsetOptions);
    CPPUNIT_TEST(offsetTakesTheLayerThatWasAskedFor);
    CPPUNIT_TEST(worksInATurnedUserCoordinateSystem);
    CPPUNIT_TEST(breaksLines);
    CPPUNIT_TEST(breaksRoundCurves);
    CPPUNIT_TEST(circlesSeenFromBehind);
    CPPUNIT_TEST(breaksOtherCurves);
    CPPUNIT_TEST(breaksSplines);
    CPPUNIT_TEST(brokenCurveKeepsItsIdentity);
    CPPUNIT_TEST(refusals);
    CPPUNIT_TEST(prompts);
    CPPUNIT_TEST_SUITE_END();

public:
    void offsetsToTheSideOfThePoint()
    {
        DrawnCase const cases[] = {
            {L"LINE|0,0|10,0||OFFSET|2|5,0|5,1|", L"LINE 0,0 10,0; LINE 0,2 10,2", 2},
            {L"LINE|0,0|10,0||O|2|5,0|50,-1|", L"LINE 0,0 10,0; LINE 0,-2 10,-2", 2},
            {L"CIRCLE|0,0|5|OFFSET|2|5,0|9,0|", L"CIRCLE 0,0 r5; CIRCLE 0,0 r7", 2},
            {L"CIRCLE|0,0|5|OFFSET|2|5,0|0,0|", L"CIRCLE 0,0 r5; CIRCLE 0,0 r3", 2},
            // Beyond the end of an arc its circle goes on.
            {L"ARC|5,0|0,5|-5,0|OFFSET|2|0,5|0,-4|", L"ARC 0,0 r5 0..180; ARC 0,0 r3 0..180", 2},
            {L"ARC|5,0|0,5|-5,0|OFFSET|2|0,5|0,-6|", L"ARC 0,0 r5 0..180; ARC 0,0 r7 0..180", 2},
        };
        checkDrawn(cases);
    }

    void offsetsOfPolylines()
    {
        DrawnCase const cases[] = {
            {L"PLINE|0,0|10,0|10,10|0,10|C|OFFSET|1|5,0|12,12|",
             L"PLINE 0,0 10,0 10,10 0,10 closed; PLINE -1,-1 11,-1 11,11 -1,11 closed", 2},
            {L"PLINE|0,0|10,0|10,10|0,10|C|OFFSET|1|5,0|-0.5,-3|",
             L"PLINE 0,0 10,0 10,10 0,10 closed; PLINE -1,-1 11,-1 11,11 -1,11 closed", 2},
            {L"PLINE|0,0|10,0|10,10|0,10|C|OFFSET|1|5,0|3,3|",
             L"PLINE 0,0 10,0 10,10 0,10 closed; PLINE 1,1 9,1 9,9 1,9 closed", 2},
            // A corner that turns back sharply: the point lies to the left of the first segment, but outside.
            {L"PLINE|0,0|10,0|0,1||OFFSET|1|5,0|15,0.6|",
             L"PLINE 0,0 10,0 0,1; PLINE 0,-1 30.0499,-1 0.0995,1.995", 2},
        };
        checkDrawn(cases);
    }

    void offsetsThroughPoints()
    {
        DrawnCase const cases[] = {
            {L"LINE|0,0|10,0||OFFSET|T|5,0|30,4|", L"LINE 0,0 10,0; LINE 0,4 10,4", 2},
            {L"CIRCLE|0,0|5|OFFSET|T|5,0|3,0|", L"CIRCLE 0,0 r5; CIRCLE 0,0 r3", 2},
            {L"PLINE|0,0|10,0|10,10||OFFSET|T|5,0|12,-1|", L"PLINE 0,0 10,0 10,10; PLINE 0,-2 12,-2 12,10", 2},
            {L"LINE|0,0|10,0||OFFSET|T|5,0|M|5,1|5,4||", L"LINE 0,0 10,0; LINE 0,1 10,1; LINE 0,4 10,4", 2},
        };
        checkDrawn(cases);
    }

    void offsetOptions()
    {
        DrawnCase const cases[] = {
            {L"LINE|0,0|10,0||OFFSET|0,0|0,3|5,0|5,1|", L"LINE 0,0 10,0; LINE 0,3 10,3", 2},
            {L"LINE|0,0|10,0||OFFSET|E|Y|2|5,0|5,1|", L"LINE 0,2 10,2", 2},
            {L"LINE|0,0|10,0||OFFSET|E|Y|2|5,0|5,1|U|", L"LINE 0,0 10,0", 2},
            {L"LINE|0,0|10,0||OFFSET|5|5,0|M|5,99|5,99|5,-99|U|5,99||",
             L"LINE 0,0 10,0; LINE 0,5 10,5; LINE 0,10 10,10; LINE 0,15 10,15", 2},
            {L"LINE|0,0|10,0||OFFSET|5|5,0|M|5,9|E", L"LINE 0,0 10,0; LINE 0,5 10,5", 2},
            {L"LINE|0,0|10,0||OFFSET|5|5,0|5,9|5,0|5,-9|U|5,5|5,99|",
             L"LINE 0,0 10,0; LINE 0,5 10,5; LINE 0,10 10,10", 2},
            {L"LINE|0,0|10,0||OFFSET|2|L|5,9|", L"LINE 0,0 10,0; LINE 0,2 10,2", 2},
            // The distance is offered again.
            {L"LINE|0,0|10,0||OFFSET|4|E|OFFSET||5,0|5,1|", L"LINE 0,0 10,0; LINE 0,4 10,4", 2},
        };
        checkDrawn(cases);
    }

    void offsetTakesTheLayerThatWasAskedFor()
    {
        feed(L"LINE|0,0|10,0||-LAYER|M|walls||OFFSET|L|C|5|5,0|5,1||OFFSET|L|S|5|5,0|5,-1|");
        CPPUNIT_ASSERT_EQUAL(std::string("0 WALLS 0"), layersOf());
    }

    void worksInATurnedUserCoordinateSystem()
    {
        DrawnCase const cases[] = {
            // A line of the world goes aside in the plane of the user.
            {L"OFFSET|2|5,0|5,1|", L"LINE 0,0 0,10; LINE 0,0,2 0,10,2"},
            {L"ERASE|ALL||CIRCLE|0,0|5|OFFSET|2|0,5|9,0|", L"CIRCLE 0,0 r5 n1,0; CIRCLE 0,0 r7 n1,0"},
            {L"ERASE|ALL||CIRCLE|0,0|5|BREAK|5,0|0,5", L"ARC 0,0 r5 90..0 n1,0"},
            {L"BREAK|5,0|7,0", L"LINE 0,0 0,5; LINE 0,7 0,10"},
        };
        checkDrawnUpright(cases);
    }

    /// Counterclockwise is what the user sees, whichever way the circle was drawn.
    void circlesSeenFromBehind()
    {
        feed(L"CIRCLE|0,0|5");
        db().setHeaderPoint("UCSXDIR", {-1, 0, 0});
        feed(L"BREAK|5,0|0,5");
        CPPUNIT_ASSERT_EQUAL(std::string("ARC 0,0 r5 180..90"), drawn().toUtf8());
    }

    void breaksLines()
    {
        DrawnCase const cases[] = {
            {L"LINE|0,0|10,0||BREAK|3,0|6,0", L"LINE 0,0 3,0; LINE 6,0 10,0", 2},
            {L"LINE|0,0|10,0||BR|6,0|3,2", L"LINE 0,0 3,0; LINE 6,0 10,0", 2},
            {L"LINE|0,0|10,0||BREAK|3,0|F|2,0|4,0", L"LINE 0,0 2,0; LINE 4,0 10,0", 2},
            {L"LINE|0,0|10,0||BREAK|3,0|@", L"LINE 0,0 3,0; LINE 3,0 10,0", 2},
            {L"LINE|0,0|10,0||BREAK|L|2,0|4,0", L"LINE 0,0 2,0; LINE 4,0 10,0", 2},
            {L"LINE|0,0|10,0||BREAK|3,0|15,0", L"LINE 0,0 3,0", 2},
            {L"LINE|0,0|10,0||BREAK|3,0|-1,0", L"LINE 3,0 10,0", 2},
        };
        checkDrawn(cases);
    }

    /// What lies counterclockwise between the points goes.
    void breaksRoundCurves()
    {
        DrawnCase const cases[] = {
            {L"CIRCLE|0,0|5|BREAK|5,0|0,5", L"ARC 0,0 r5 90..0", 2},
            {L"CIRCLE|0,0|5|BREAK|0,5|5,0", L"ARC 0,0 r5 0..90", 2},
            {L"CIRCLE|0,0|5|BREAK|0,5|0,-9", L"ARC 0,0 r5 270..90", 2},
            {L"ARC|5,0|0,5|-5,0|BREAK|0,5|-9,0", L"ARC 0,0 r5 0..90", 2},
            {L"ARC|5,0|0,5|-5,0|BREAK|3,4|-3,4", L"ARC 0,0 r5 0..53.1301; ARC 0,0 r5 126.8699..180", 2},
        };
        checkDrawn(cases);
    }

    void breaksOtherCurves()
    {
        DrawnCase const cases[] = {
            {L"PLINE|0,0|10,0|10,10||BREAK|5,0|10,5", L"PLINE 0,0 5,0; PLINE 10,5 10,10", 2},
            {L"PLINE|0,0|10,0|10,10|0,10|C|BREAK|5,0|10,5", L"PLINE 10,5 10,10 0,10 0,0 5,0", 2},
            {L"PLINE|0,0|10,0|10,10|0,10|C|BREAK|10,5|@", L"PLINE 10,5 10,10 0,10 0,0 10,0 10,5", 2},
            {L"PLINE|0,0|W|2|0|10,0||BREAK|5,0|@", L"PLINE 0,0[2-1] 5,0[1-1]; PLINE 5,0[1-0] 10,0[0-0]", 2},
            {L"XLINE|0,0|1,0||BREAK|3,0|@",
             L"RAY base point 3,0 direction -1,0 angle in XY plane 180; RAY base point 3,0 direction 1,0 angle in "
             L"XY plane 0",
             2},
            {L"RAY|0,0|1,0||BREAK|3,0|5,0", L"LINE 0,0 3,0; RAY base point 5,0 direction 1,0 angle in XY plane 0",
             2},
            {L"ELLIPSE|0,0|10,0|2|BREAK|5,2|5,-2",
             L"ELLIPSE center 5,0 major axis -5,0 minor axis 0,-2 radius ratio 0.4 start point 5,-2 end point 5,2 "
             L"start parameter 90 end parameter 270 length 11.5066 area 15.708",
             2},
            {L"3DPOLY|0,0,0|10,0,0|10,0,10||BREAK|5,0|@",
             L"POLYLINE type simple closed no length 5 vertex 1: position 0,0 vertex 2: position 5,0; POLYLINE "
             L"type simple closed no length 15 vertex 1: position 5,0 vertex 2: position 10,0 vertex 3: position "
             L"10,0,10",
             2},
        };
        checkDrawn(cases);
    }

    /// Cut at a fit point, where a knot lies already.
    void breaksSplines()
    {
        feed(L"SPLINE|0,0|5,5|10,0||||BREAK|5,5|@");
        OdGePoint3d const ends[][2] = {{{0, 0, 0}, {5, 5, 0}}, {{5, 5, 0}, {10, 0, 0}}};
        auto it = db().getModelSpaceId().open<OdDbBlockTableRecord>()->newIterator();
        for (auto const& [start, end] : ends) {
            CPPUNIT_ASSERT(!it.done());
            auto const piece = it.objectId().open<OdDbSpline>();
            OdGePoint3d first, last;
            CPPUNIT_ASSERT(piece->getStartPoint(first) == eOk && piece->getEndPoint(last) == eOk);
            CPPUNIT_ASSERT(first == start && last == end);
            CPPUNIT_ASSERT_EQUAL(4, piece->numControlPoints());
            it.step();
        }
        CPPUNIT_ASSERT(it.done());
    }

    void brokenCurveKeepsItsIdentity()
    {
        feed(L"LINE|0,0|10,0|");
        OdDbObjectId const line = db().getModelSpaceId().open<OdDbBlockTableRecord>()->newIterator().objectId();
        feed(L"BREAK|3,0|6,0");
        CPPUNIT_ASSERT(!line.isErased());
        CPPUNIT_ASSERT(line.open<OdDbLine>()->endPoint() == OdGePoint3d(3, 0, 0));
    }

    void refusals()
    {
        RefusedCase const cases[] = {
            {L"CIRCLE|0,0|5|OFFSET|6|5,0|0,0", L"Cannot offset that object to this side by this distance."},
            {L"LINE|0,0|10,0||OFFSET|1|5,0|20,0", L"The point does not lie at a side of the object."},
            {L"TEXT|0,0|2|0|abc||OFFSET|1|0,0", L"Cannot offset that object."},
            {L"OFFSET|0", L"Value must be positive and nonzero."},
            {L"OFFSET|1|5,5", L"No object found."},
            {L"CIRCLE|0,0|5|BREAK|5,0|@", L"An arc cannot go all the way round."},
            {L"LINE|0,0|10,0||BREAK|5,0|F|-1,0|11,0", L"Nothing would remain of the object."},
            {L"LINE|0,0|10,0||BREAK|5,0|F|10,0|@", L"The object ends at that point."},
            {L"TEXT|0,0|2|0|abc||BREAK|0,0", L"That object cannot be broken."},
            {L"LINE|0,0|10,0||-LAYER|LO|0||BREAK|5,0", L"The object is on a locked layer."},
            {L"LINE|0,0|10,0||-LAYER|LO|0||OFFSET|E|Y|1|5,0", L"The object is on a locked layer."},
        };
        checkRefused(cases);
    }

    void prompts()
    {
        PromptCase const cases[] = {
            {L"OFFSET", L"Specify offset distance or [Through/Erase/Layer] <1>: "},
            {L"OFFSETDIST|-1|OFFSET", L"Specify offset distance or [Through/Erase/Layer] <Through>: "},
            {L"OFFSET|E", L"Erase source object after offsetting? [Yes/No] <No>: "},
            {L"OFFSET|L", L"Enter layer option for offset objects [Current/Source] <Source>: "},
            {L"OFFSET|1", L"Select object to offset or [Exit/Undo] <Exit>: "},
            {L"LINE|0,0|10,0||OFFSET|1|5,0", L"Specify point on side to offset or [Exit/Multiple/Undo] <Exit>: "},
            {L"LINE|0,0|10,0||OFFSET|T|5,0", L"Specify through point or [Exit/Multiple/Undo] <Exit>: "},
            {L"LINE|0,0|10,0||OFFSET|1|5,0|M", L"Specify point on side to offset or [Exit/Undo] <next object>: "},
            {L"LINE|0,0|10,0||BREAK|5,0", L"Specify second break point or [First point]: "},
            {L"LINE|0,0|10,0||BREAK|5,0|F", L"Specify first break point: "},
        };
        checkPrompts(cases);
    }

private:
    static std::string layersOf()
    {
        std::string names;
        auto const space = db().getModelSpaceId().open<OdDbBlockTableRecord>();
        for (OdDbObjectIterator it = space->newIterator(); !it.done(); it.step()) {
            auto const layer = it.entity()->layerId().open<OdDbSymbolTableRecord>();
            names += (names.empty() ? "" : " ") + layer->getName().upper().toUtf8();
        }
        return names;
    }
};

CPPUNIT_TEST_SUITE_REGISTRATION(TestCurveCommands);

} // namespace
