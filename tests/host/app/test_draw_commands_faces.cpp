// SOLID, TRACE, 3DPOLY, 3DFACE, 3DMESH and PFACE, fed with text answers.
#include "host/app/commands/polyface_faces.h"
#include "host/app/sds_cmd.h"
#include "host/db/entities/od_db_solid.h"
#include "host/db/od_db_database.h"
#include "host/db/records/od_db_block_table_record.h"
#include "host/db/records/od_db_layer_table_record.h"
#include "host/sds/sds.h"
#include "host/ut/ut_text.h"
#include "tests/host/app/draw_script.h"

#include <cppunit/extensions/HelperMacros.h>

namespace {

class TestDrawFaces : public DrawScriptTest
{
    CPPUNIT_TEST_SUITE(TestDrawFaces);
    CPPUNIT_TEST(solids);
    CPPUNIT_TEST(traces);
    CPPUNIT_TEST(polylinesInSpace);
    CPPUNIT_TEST(facesInSpace);
    CPPUNIT_TEST(polygonMeshes);
    CPPUNIT_TEST(polyfaceMeshes);
    CPPUNIT_TEST(polyfacePropertiesByFace);
    CPPUNIT_TEST(facesOfManyCorners);
    CPPUNIT_TEST(cancelledCommandsLeaveWhatWasDrawn);
    CPPUNIT_TEST(refusals);
    CPPUNIT_TEST(prompts);
    CPPUNIT_TEST_SUITE_END();

public:
    void solids()
    {
        DrawnCase const cases[] = {
            {L"SOLID|0,0|4,0|0,3|4,3||", L"SOLID corner 0,0 corner 4,0 corner 0,3 corner 4,3"},
            {L"SO|0,0,1|4,0,2|0,3,3|4,3,4||", L"SOLID corner 0,0,1 corner 4,0,1 corner 0,3,1 corner 4,3,1"},
            {L"SOLID|0,0|4,0|2,3|||", L"SOLID corner 0,0 corner 4,0 corner 2,3 corner 2,3"},
            {L"SOLID|0,0|4,0|0,3|4,3|0,6|4,6||", L"SOLID corner 0,0 corner 4,0 corner 0,3 corner 4,3; "
                                                 L"SOLID corner 0,3 corner 4,3 corner 0,6 corner 4,6"},
        };
        checkDrawn(cases);
        db().setHeaderReal("THICKNESS", 40, 2);
        feed(L"SOLID|0,0|4,0|2,3|||");
        auto const space = db().getModelSpaceId().open<OdDbBlockTableRecord>();
        CPPUNIT_ASSERT_DOUBLES_EQUAL(2, space->newIterator(false).objectId().open<OdDbSolid>()->thickness(), 0);
    }

    void traces()
    {
        DrawnCase const cases[] = {
            {L"TRACE|2|0,0|9,0|", L"TRACE corner 0,1 corner 0,-1 corner 9,1 corner 9,-1"},
            {L"TRACE||0,0,1|9,0|", L"TRACE corner 0,0.5,1 corner 0,-0.5,1 corner 9,0.5,1 corner 9,-0.5,1"},
            // Mitered at the corner.
            {L"TRACE|2|0,0|9,0|9,9|", L"TRACE corner 0,1 corner 0,-1 corner 8,1 corner 10,-1; "
                                      L"TRACE corner 8,1 corner 10,-1 corner 8,9 corner 10,9"},
            {L"TRACE|2|0,0|9,0|4,0|", L"TRACE corner 0,1 corner 0,-1 corner 9,1 corner 9,-1; "
                                      L"TRACE corner 9,-1 corner 9,1 corner 4,-1 corner 4,1"},
            {L"TRACE|2|0,0|9,0||TRACE||0,0|0,9|", L"TRACE *; TRACE corner -1,0 corner 1,0 corner -1,9 corner 1,9",
             2},
        };
        checkDrawn(cases);
    }

    void polylinesInSpace()
    {
        DrawnCase const cases[] = {
            {L"3DPOLY|0,0|3,4,0|3,4,12|", L"POLYLINE type simple closed no length 17 vertex 1: position 0,0 "
                                          L"vertex 2: position 3,4 vertex 3: position 3,4,12"},
            {L"3P|0,0|3,0|3,4|C", L"POLYLINE type simple closed yes length 12 *"},
            {L"3DPOLY|0,0|3,0|9,9|U|3,4|", L"POLYLINE * vertex 2: position 3,0 vertex 3: position 3,4"},
            {L"3DPOLY|0,0|9,9|U|U|3,0|", L"POLYLINE * length 3 vertex 1: position 0,0 vertex 2: position 3,0"},
        };
        feed(L"3DPOLY|0,0|9,9|U|");
        CPPUNIT_ASSERT_EQUAL(std::string(), drawn().toUtf8());
        checkDrawn(cases);
    }

    void facesInSpace()
    {
        DrawnCase const cases[] = {
            {L"3DFACE|0,0|4,0|4,3,1|0,3,1||",
             L"3DFACE corner 1: position 0,0 edge visible yes corner 2: position 4,0 edge visible yes "
             L"corner 3: position 4,3,1 edge visible yes corner 4: position 0,3,1 edge visible yes"},
            {L"3F|0,0|I|4,0|4,3|I|0,3||", L"3DFACE *position 0,0 edge visible yes *position 4,0 edge visible no "
                                          L"*position 4,3 edge visible yes *position 0,3 edge visible no"},
            {L"3DFACE|0,0|4,0|I|4,3|||", L"3DFACE *position 4,0 edge visible yes *position 4,3 edge visible no "
                                         L"*position 4,3 edge visible no"},
            {L"3DFACE|0,0|4,0|4,3|I|||", L"3DFACE *position 4,3 edge visible yes *position 4,3 edge visible no"},
            // The next face goes on from the last edge, which stays hidden.
            {L"3DFACE|0,0|4,0|I|4,3|0,3|0,6|4,6||",
             L"3DFACE *position 4,3 edge visible no *position 0,3 edge visible yes; "
             L"3DFACE corner 1: position 4,3 edge visible no corner 2: position 0,3 edge visible yes "
             L"corner 3: position 0,6 edge visible yes corner 4: position 4,6 edge visible yes"},
        };
        checkDrawn(cases);
    }

    void polygonMeshes()
    {
        DrawnCase const cases[] = {
            {L"3DMESH|2|3|0,0|1,0|2,0|0,1|1,1,5|2,1",
             L"POLYLINE type simple M size 2 N size 3 closed in M direction no closed in N direction no "
             L"vertex 1: position 0,0 vertex 2: position 1,0 vertex 3: position 2,0 vertex 4: position 0,1 "
             L"vertex 5: position 1,1,5 vertex 6: position 2,1"},
        };
        checkDrawn(cases);
    }

    void polyfaceMeshes()
    {
        DrawnCase const cases[] = {
            {L"PFACE|0,0|4,0|4,3|0,3|2,2,2||1|2|3|4||1|2|-5|||",
             L"POLYLINE vertices 5 faces 2 vertex 1: position 0,0 vertex 2: position 4,0 vertex 3: position 4,3 "
             L"vertex 4: position 0,3 vertex 5: position 2,2,2 "
             L"face 1: first vertex 1 second vertex 2 third vertex 3 fourth vertex 4 "
             L"face 2: first vertex 1 second vertex 2 third vertex 5 its edge is visible no"},
        };
        checkDrawn(cases);
    }

    void polyfacePropertiesByFace()
    {
        feed(L"-LAYER|N|walls|");
        feed(L"PFACE|0,0|4,0|4,3||C|red|1|2|3||L|walls|1|C||3||C|bylayer|2|3|||");
        auto const space = db().getModelSpaceId().open<OdDbBlockTableRecord>();
        OdString found;
        for (auto it = space->newIterator().entity()->partIterator(); !it.done(); it.step())
            if (auto const* face = odCast<OdDbFaceRecord>(&it.peek()))
                found += odFormat(L"%d %ls; ", face->color().colorIndex(),
                                  face->layerId().open<OdDbLayerTableRecord>()->getName().c_str());
        CPPUNIT_ASSERT_EQUAL(std::string("1 0; 1 walls; 256 walls; "), found.toUtf8());
    }

    /// Pieces share hidden edges.
    void facesOfManyCorners()
    {
        struct
        {
            std::vector<int> corners;
            char const* records;
        } const cases[] = {
            {{1}, "1 "},
            {{1, -2, 3, 4}, "1,-2,3,4 "},
            {{1, 2, 3, 4, 5}, "1,2,3,-4 -1,4,5 "},
            {{1, 2, 3, -4, -5, 6}, "1,2,3,-4 -1,-4,-5,6 "},
            {{-1, 2, 3, 4, 5, 6, -7}, "-1,2,3,-4 -1,4,5,-6 -1,6,-7 "},
        };
        for (auto const& each : cases) {
            std::string text;
            for (OdDbFaceRecordPtr const& record : ca::polyfaceRecords(each.corners)) {
                for (int i = 0; i < 4 && record->getVertexAt(i) != 0; ++i)
                    text += (i > 0 ? "," : "") +
                            std::to_string(record->getVertexAt(i) * (record->isEdgeVisibleAt(i) ? 1 : -1));
                text += " ";
            }
            CPPUNIT_ASSERT_EQUAL(std::string(each.records), text);
        }
    }

    void cancelledCommandsLeaveWhatWasDrawn()
    {
        // A trace waits for the direction of the next piece; meshes and faces are drawn whole.
        for (wchar_t const* script :
             {L"SOLID|0,0|4,0|0,3|4,3|9,9", L"TRACE|2|0,0|9,0|9,9", L"3DPOLY|0,0|3,0",
              L"3DFACE|0,0|4,0|4,3|0,3|9,9", L"3DMESH|2|2|0,0|1,0", L"PFACE|0,0|4,0|4,3||1|2|3"}) {
            feed(script);
            sds_cmd(nullptr);
        }
        CPPUNIT_ASSERT(ut::matchesWildcard(drawn().str(), L"SOLID *; TRACE *; POLYLINE type simple *; 3DFACE *"));
        CPPUNIT_ASSERT(drawn().find(L"POLYLINE") == drawn().str().rfind(L"POLYLINE"));
    }

    void refusals()
    {
        RefusedCase const cases[] = {
            {L"SOLID|0,0|", L"Invalid point."},
            {L"TRACE|0", L"Value must be positive and nonzero."},
            {L"TRACE|1|0,0|0,0,5", L"The two points are the same."},
            {L"3DPOLY|0,0|1,0|C", L"Point or option keyword required."},
            {L"3DFACE|0,0|", L"Point or option keyword required."},
            {L"3DMESH|1", L"Value must be at least 2."},
            {L"3DMESH|2|257", L"Value must be at most 256."},
            {L"PFACE|", L"Invalid point."},
            {L"PFACE|0,0|1,0|1,1||", L"Requires an integer value or an option keyword."},
            {L"PFACE|0,0|1,0|1,1||4", L"Requires the number of a vertex, 1 to 3, or its negative."},
            {L"PFACE|0,0|1,0|1,1||0", L"Requires the number of a vertex, 1 to 3, or its negative."},
            {L"PFACE|0,0|1,0|1,1||C|257", L"Requires a color: BYLAYER, BYBLOCK, a number between 1 and 255 or the "
                                          L"name of one of the first seven."},
            {L"PFACE|0,0|1,0|1,1||L|none", L"Layer \"none\" does not exist."},
        };
        checkRefused(cases);
        CPPUNIT_ASSERT_EQUAL(std::string(), drawn().toUtf8());
    }

    void prompts()
    {
        PromptCase const cases[] = {
            {L"SOLID", L"Specify first point: "},
            {L"SOLID|0,0", L"Specify second point: "},
            {L"SOLID|0,0|1,0", L"Specify third point: "},
            {L"SOLID|0,0|1,0|0,1", L"Specify fourth point or <exit>: "},
            {L"TRACE", L"Specify trace width <1>: "},
            {L"TRACE|2", L"Specify start point: "},
            {L"TRACE|2|0,0", L"Specify next point: "},
            {L"3DPOLY", L"Specify start point of polyline: "},
            {L"3DPOLY|0,0", L"Specify endpoint of line or [Undo]: "},
            {L"3DPOLY|0,0|1,0|1,1", L"Specify endpoint of line or [Close/Undo]: "},
            {L"3DFACE", L"Specify first point or [Invisible]: "},
            {L"3DFACE|0,0|1,0", L"Specify third point or [Invisible] <exit>: "},
            {L"3DFACE|0,0|1,0|1,1", L"Specify fourth point or [Invisible] <create three-sided face>: "},
            {L"3DMESH", L"Enter size of mesh in M direction: "},
            {L"3DMESH|2|2|0,0", L"Specify location for vertex (0, 1): "},
            {L"PFACE", L"Specify location for vertex 1: "},
            {L"PFACE|0,0", L"Specify location for vertex 2 or <define faces>: "},
            {L"PFACE|0,0|1,0|", L"Face 1, vertex 1: Enter a vertex number or [Color/Layer]: "},
            {L"PFACE|0,0|1,0||1", L"Face 1, vertex 2: Enter a vertex number or [Color/Layer] <next face>: "},
            {L"PFACE|0,0|1,0||C", L"Enter a color number or standard color name <ByLayer>: "},
            {L"PFACE|0,0|1,0||L", L"Enter a layer name <0>: "},
        };
        checkPrompts(cases);
    }
};
CPPUNIT_TEST_SUITE_REGISTRATION(TestDrawFaces);

} // namespace
