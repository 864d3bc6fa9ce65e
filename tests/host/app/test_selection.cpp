// Object selection: what each way to answer "Select objects" finds.
#include "host/app/ca_doc.h"
#include "host/app/command_line.h"
#include "host/app/command_processor.h"
#include "host/app/sds_cmd.h"
#include "host/db/entities/od_db_line.h"
#include "host/db/od_db_database.h"
#include "host/db/records/od_db_block_table_record.h"
#include "host/sds/sds_names.h"
#include "tests/host/app/selection_script.h"

#include <cppunit/extensions/HelperMacros.h>

namespace {

class TestSelection : public SelectionScriptTest
{
    CPPUNIT_TEST_SUITE(TestSelection);
    CPPUNIT_TEST(windowsWantEverythingInside);
    CPPUNIT_TEST(crossingsWantTrueGeometry);
    CPPUNIT_TEST(blocksAreLookedThrough);
    CPPUNIT_TEST(picks);
    CPPUNIT_TEST(pickBoxFollowsTheView);
    CPPUNIT_TEST(pointThatHitsNothingStartsARectangle);
    CPPUNIT_TEST(options);
    CPPUNIT_TEST(singleEndsWithTheFirstHit);
    CPPUNIT_TEST(messages);
    CPPUNIT_TEST(layersThatHide);
    CPPUNIT_TEST(namedSets);
    CPPUNIT_TEST(whatIsNotInTheSpaceIsLeftOut);
    CPPUNIT_TEST(rectanglesLieInTheUserCoordinateSystem);
    CPPUNIT_TEST(refusals);
    CPPUNIT_TEST_SUITE_END();

public:
    void setUp() override
    {
        DrawScriptTest::setUp();
        feed(L"LINE|0,0|10,0||"                 // a
             L"CIRCLE|50,50|10|"                // b
             L"ARC|C|100,0|110,0|100,10|"       // c: the quarter above and to the right of 100,0
             L"PLINE|0,100|A|S|10,110|20,100||" // d: half a circle about 10,100, upwards
             L"TEXT|200,0|5|0|HELLO||"          // e
             L"POINT|300,300");                 // f
        CPPUNIT_ASSERT_EQUAL(std::size_t(6), entities().size());
    }

    void windowsWantEverythingInside()
    {
        check({
            {L"W|-1,-1|11,1", "a"},
            {L"W|-1,-1|9.9,1", ""},
            {L"W|0,0|10,0", "a"},
            {L"W|39,39|61,61", "b"},
            {L"W|61,61|39,39", "b"},
            {L"W|41,39|61,61", ""},
            {L"W|99,-1|111,11", "c"},
            {L"W|-1,99|21,105", ""}, // both ends, but not the arc between them
            {L"W|-1,99|21,111", "d"},
            {L"W|199,-1|203,6", ""},
            {L"W|299,299|301,301", "f"},
            {L"W|-1,-1|120,60", "abc"},
        });
    }

    void crossingsWantTrueGeometry()
    {
        check({
            {L"C|5,-1|6,1", "a"},
            {L"C|6,1|5,-1", "a"},
            {L"C|41,41|42.5,42.5", ""}, // the corner of the circle's box
            {L"C|41,41|44,44", "b"},
            {L"C|48,48|52,52", ""},  // within the circle
            {L"C|39,49|40,51", "b"}, // touching
            {L"C|100,0|105,5", ""},  // between the arc and its center
            {L"C|89,-1|91,1", ""},   // where the arc does not go
            {L"C|106.5,6.5|107.5,7.5", "c"},
            {L"C|9,99|11,101", ""}, // the chord below the bulge
            {L"C|9.5,109.5|10.5,110.5", "d"},
            {L"C|201,1|201.5,1.5", "e"}, // within the frame of a text
            {L"C|-1,-1|120,120", "abcd"},
        });
    }

    void blocksAreLookedThrough()
    {
        // The circle becomes an ellipse about 500,0, 20 wide and 10 high to each side.
        feed(L"-BLOCK|RING|50,50|50,60||-INSERT|RING|500,0|2|1|0");
        check({
            {L"C|519,-1|521,1", "g"},
            {L"C|483,-9|484,-8", ""}, // in its box, outside of it
            {L"C|495,-2|505,2", ""},  // within it
            {L"C|499,9|501,11", "g"},
            {L"W|479,-11|521,11", "g"},
            {L"W|481,-11|521,11", ""},
            {L"520,0", "g"},
        });
    }

    void picks()
    {
        check({
            {L"5,0", "a"},
            {L"60,50", "b"},
            {L"57.0710678,57.0710678", "b"},
            {L"10,110", "d"},
            {L"201,2", "e"},
            {L"300,300", "f"},
            {L"5,0|60,50|5,0", "ab"},
        });
        feed(L"LINE|0,0|10,0|");
        check({{L"5,0", "g"}}); // of two, the one drawn last
    }

    void pickBoxFollowsTheView()
    {
        // A point beside the line, as far as a tenth of a view 100 units high.
        feed(L"PICKBOX|50");
        check({{L"5,-0.01", "a"}});
        feed(L"PICKBOX|0");
        check({{L"5,-0.01|6,-1", ""}, {L"5,0", "a"}});
        feed(L"PICKBOX|3");
    }

    void pointThatHitsNothingStartsARectangle()
    {
        check({
            {L"35,35|65,65", "b"},
            {L"35,65|65,35", "b"},
            {L"35,35|55,65", ""},  // to the right: a window
            {L"65,65|55,35", "b"}, // to the left: crossing
            {L"BOX|55,35|35,65", "b"},
            {L"BOX|35,35|55,65", ""},
        });
    }

    void options()
    {
        check({
            {L"ALL", "abcdef"},
            {L"all|R|60,50|W|99,-1|111,11", "adef"},
            {L"ALL|R|ALL|A|5,0", "a"},
            {L"L", "f"},
            {L"5,0|L|U", "a"},
            {L"5,0|60,50|U|U|U|10,110", "d"},
            {L"ALL|R|5,0|U", "bcdefa"},
            {L"M|5,0|AU|60,50", "ab"},
        });
        feed(L"MOVE|60,50|5,0||0,0|0,0");
        check({{L"P", "ba"}});
        feed(L"ERASE|60,50|");
        check({{L"ALL", "acdef"}});
        feed(L"ERASE|P|");
        check({{L"ALL", ""}});
        feed(L"U|ERASE|L|");
        check({{L"ALL", "acde"}});
    }

    void singleEndsWithTheFirstHit()
    {
        feed(L"ERASE|SI|1000,1000|1001,1001|5,0");
        CPPUNIT_ASSERT(ca::CommandProcessor::get().isIdle());
        check({{L"ALL", "bcdef"}});
    }

    void messages()
    {
        feed(L"ERASE|P");
        CPPUNIT_ASSERT_EQUAL(std::string("No previous selection set."), messageBefore());
        feed(L"5,0");
        CPPUNIT_ASSERT_EQUAL(std::string("1 found"), messageBefore());
        feed(L"ALL");
        CPPUNIT_ASSERT_EQUAL(std::string("6 found (1 duplicate), 6 total"), messageBefore());
        feed(L"R|5,0");
        CPPUNIT_ASSERT_EQUAL(std::string("1 found, 1 removed, 5 total"), messageBefore());
        CPPUNIT_ASSERT_EQUAL(std::string("Remove objects: "), lastPrompt().toUtf8());
        feed(L"W|90,90|91,91");
        CPPUNIT_ASSERT_EQUAL(std::string("0 found, 0 removed, 5 total"), messageBefore());
        feed(L"A|U");
        CPPUNIT_ASSERT_EQUAL(std::string("5 total"), messageBefore());
        CPPUNIT_ASSERT_EQUAL(std::string("Select objects: "), lastPrompt().toUtf8());
    }

    void layersThatHide()
    {
        auto const onNewLayer = [](wchar_t const* layer, wchar_t const* y) {
            feed(odFormat(L"-LAYER|M|%ls||LINE|400,%ls|410,%ls|", layer, y, y));
        };
        onNewLayer(L"OFF", L"0");    // g
        onNewLayer(L"FROZEN", L"5"); // h
        onNewLayer(L"LOCKED", L"9"); // i
        feed(L"-LAYER|S|0|OFF|OFF|F|FROZEN|LO|LOCKED|");
        check({
            {L"C|405,-1|406,10", "i"},
            {L"W|399,-1|411,10", "i"},
            {L"405,9", "i"},
            {L"405,0|404,-1", ""},
            {L"ALL", "abcdefgi"}, // off, but not frozen
        });
        feed(L"ERASE|C|405,-1|406,10||");
        CPPUNIT_ASSERT_EQUAL(std::string("1 was on a locked layer."), lastPrompt().toUtf8());
        feed(L"ERASE|ALL|");
        check({{L"ALL", "i"}});
        CPPUNIT_ASSERT_EQUAL(std::size_t(2), entities().size());
    }

    void namedSets()
    {
        SdsName set;
        CPPUNIT_ASSERT_EQUAL(int(RTNORM), sds_ssadd(name(1).words, nullptr, set.words));
        CPPUNIT_ASSERT_EQUAL(int(RTNORM), sds_ssadd(name(0).words, set.words, set.words));
        CPPUNIT_ASSERT_EQUAL(int(RTNORM), sds_command(RTSTR, L"COPY", RTPICKS, set.words, 0));
        CPPUNIT_ASSERT_EQUAL_MESSAGE("a set does not end the selection", std::string("Select objects: "),
                                     lastPrompt().toUtf8());
        sds_command(RTENAME, name(5).words, RTSTR, L"R", RTENAME, name(0).words, RTSTR, L"", 0);
        CPPUNIT_ASSERT_EQUAL(std::string("bf"), letters());
        sds_cmd(nullptr);
        feed(L"ERASE|60,50|");
        sds_command(RTSTR, L"COPY", RTPICKS, set.words, RTSTR, L"", 0);
        CPPUNIT_ASSERT_EQUAL_MESSAGE("erased members are skipped", std::string("a"), letters());
        CPPUNIT_ASSERT_EQUAL(int(RTNORM), sds_ssfree(set.words));
        sds_cmd(nullptr);
        CPPUNIT_ASSERT_EQUAL(int(RTERROR), sds_command(RTSTR, L"COPY", RTPICKS, set.words, 0));
    }

    void whatIsNotInTheSpaceIsLeftOut()
    {
        feed(L"-BLOCK|RING|50,50|50,60||");
        auto const block = db().table(OdDbTableKind::kBlock).getAt(L"RING").open<OdDbBlockTableRecord>();
        SdsName const inBlock = ca::nameOf(block->newIterator().objectId());
        SdsName const layer = ca::nameOf(db().getLayerZeroId());
        sds_command(RTSTR, L"ERASE", RTENAME, inBlock.words, 0);
        CPPUNIT_ASSERT_EQUAL(std::string("1 was not in the current space."), messageBefore());
        CPPUNIT_ASSERT_EQUAL(int(RTNORM), sds_command(RTENAME, layer.words, RTSTR, L"", 0));
        CPPUNIT_ASSERT(!block->newIterator().done());
        CPPUNIT_ASSERT(!db().getLayerZeroId().isErased());
    }

    void rectanglesLieInTheUserCoordinateSystem()
    {
        // Turned by 45 degrees: a narrow rectangle along the diagonal.
        db().setHeaderPoint("UCSXDIR", {1, 1, 0});
        db().setHeaderPoint("UCSYDIR", {-1, 1, 0});
        feed(L"LINE|*20,20|*30,30|"); // g
        check({
            {L"W|28,-0.1|43,0.1", "g"},
            {L"W|28,-0.1|42,0.1", ""},
            {L"BOX|43,0.1|30,-0.1", "g"},
            {L"BOX|30,-0.1|43,0.1", ""},
        });
    }

    void refusals()
    {
        RefusedCase const cases[] = {
            {L"ERASE|nothing", L"Invalid selection."},
            {L"ERASE|W|ALL", L"Invalid point."},
            {L"ERASE|1000,1000|", L"Invalid point."},
        };
        checkRefused(cases);
    }

private:
    static SdsName name(std::size_t index) { return ca::nameOf(entities()[index]); }
};

CPPUNIT_TEST_SUITE_REGISTRATION(TestSelection);

} // namespace
