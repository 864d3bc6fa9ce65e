// -BLOCK, fed with text answers.
#include "host/app/sds_cmd.h"
#include "host/db/od_db_raw_object.h"
#include "host/sds/sds_names.h"
#include "tests/host/app/block_script.h"

#include <cppunit/extensions/HelperMacros.h>

namespace {

class TestBlockCommand : public BlockScriptTest
{
    CPPUNIT_TEST_SUITE(TestBlockCommand);
    CPPUNIT_TEST(blockTakesTheEntitiesOutOfTheSpace);
    CPPUNIT_TEST(blockIsMadeInTheUserCoordinateSystem);
    CPPUNIT_TEST(redefinitionReachesAllReferences);
    CPPUNIT_TEST(blockCannotContainItself);
    CPPUNIT_TEST(unknownEntitiesStayWhereTheyAre);
    CPPUNIT_TEST(nothingSelectedDefinesNothing);
    CPPUNIT_TEST(undoOfBlock);
    CPPUNIT_TEST(attributesKeepTheirOrderThroughBlock);
    CPPUNIT_TEST(lists);
    CPPUNIT_TEST(refusals);
    CPPUNIT_TEST(prompts);
    CPPUNIT_TEST_SUITE_END();

public:
    void blockTakesTheEntitiesOutOfTheSpace()
    {
        run(L"LINE|100,50|120,50||LINE|100,50|100,80||LINE|0,0|1,0||-BLOCK|Bracket|100,50|110,50|100,70|");
        CPPUNIT_ASSERT_EQUAL(std::string("LINE 0,0 1,0"), modelSpace());
        CPPUNIT_ASSERT_EQUAL(std::string("LINE 0,0 20,0; LINE 0,0 0,30"), block(L"BRACKET"));
        CPPUNIT_ASSERT_EQUAL(std::string("Block \"Bracket\" defined."), lastPrompt().toUtf8());
        run(L"-BLOCK|Outer|1,0|ALL||-INSERT|Outer|0,0||||-INSERT|Bracket|5,5||||-BLOCK|Both|0,0|ALL|");
        CPPUNIT_ASSERT_EQUAL(std::string("Outer 0,0 s1,1,1 r0; Bracket 5,5 s1,1,1 r0"), block(L"Both"));
    }

    void blockIsMadeInTheUserCoordinateSystem()
    {
        turnUcs();
        run(L"LINE|2,1|5,1||-BLOCK|B|2,1|L|");
        CPPUNIT_ASSERT_EQUAL(std::string("LINE 0,0 3,0"), block(L"B"));
        run(L"-INSERT|B|2,1||||");
        CPPUNIT_ASSERT_EQUAL(std::string("B 99,2 s1,1,1 r90"), modelSpace());
        OdGeExtents3d const extents = firstReference()->extents();
        CPPUNIT_ASSERT(extents.minPoint().isEqualTo({99, 2, 0}) && extents.maxPoint().isEqualTo({99, 5, 0}));
    }

    void redefinitionReachesAllReferences()
    {
        run(L"LINE|0,0|1,0||-BLOCK|B|0,0|L||-INSERT|B|10,0||||-INSERT|B|20,0|2|||LINE|0,5|0,7|");
        run(L"-BLOCK|b|");
        CPPUNIT_ASSERT_EQUAL_MESSAGE("No is the default", std::string("LINE 0,0 1,0"), block(L"B"));
        run(L"-BLOCK|b|Y|0,5|0,6||");
        CPPUNIT_ASSERT_EQUAL(std::string("LINE 0,0 0,2"), block(L"B"));
        CPPUNIT_ASSERT_EQUAL(std::string("Block \"B\" redefined."), lastPrompt().toUtf8());
        CPPUNIT_ASSERT_EQUAL(std::string("B 10,0 s1,1,1 r0; B 20,0 s2,2,2 r0"), modelSpace());
        CPPUNIT_ASSERT(firstReference()->extents().maxPoint().isEqualTo({10, 2, 0}));
        run(L"U");
        CPPUNIT_ASSERT_EQUAL(std::string("LINE 0,0 1,0"), block(L"B"));
        CPPUNIT_ASSERT(firstReference()->extents().maxPoint().isEqualTo({11, 0, 0}));
    }

    void blockCannotContainItself()
    {
        run(L"LINE|0,0|1,0||-BLOCK|A|0,0|L||-INSERT|A|0,0||||-BLOCK|B|0,0|L||-INSERT|B|5,5|||");
        std::string const before = modelSpace();
        for (wchar_t const* const name : {L"A", L"B"}) {
            CPPUNIT_ASSERT_EQUAL(int(RTERROR), feed(odFormat(L"-BLOCK|%ls|Y|0,0|ALL|", name)));
            CPPUNIT_ASSERT_EQUAL(OdError(eSelfReference).description().toUtf8(), lastPrompt().toUtf8());
            CPPUNIT_ASSERT_EQUAL(before, modelSpace());
        }
        CPPUNIT_ASSERT_EQUAL(std::string("LINE 0,0 1,0"), block(L"A"));
        CPPUNIT_ASSERT_EQUAL(std::string("A 0,0 s1,1,1 r0"), block(L"B"));
    }

    void unknownEntitiesStayWhereTheyAre()
    {
        OdDbEntityPtr const unknown(new OdDbRawEntity("FOREIGN"));
        space()->appendOdDbEntity(unknown);
        run(L"-BLOCK|B|0,0|ALL|");
        CPPUNIT_ASSERT_MESSAGE("nothing else selected: no block", !blocks().has(L"B"));
        run(L"LINE|0,0|1,0||-BLOCK|B|0,0|ALL|");
        CPPUNIT_ASSERT_EQUAL(std::string("LINE 0,0 1,0"), block(L"B"));
        CPPUNIT_ASSERT_EQUAL(std::string("OdDbRawEntity"), modelSpace());
        CPPUNIT_ASSERT(hasLine(L"1 object cannot be put into a block and stays where it is."));
    }

    void nothingSelectedDefinesNothing()
    {
        run(L"-BLOCK|B|0,0|");
        CPPUNIT_ASSERT(!blocks().has(L"B"));
        CPPUNIT_ASSERT_EQUAL(std::string("No objects, so no block is defined."), lastPrompt().toUtf8());
    }

    void undoOfBlock()
    {
        run(L"LINE|0,0|1,0||-BLOCK|B|0,0|ALL||-INSERT|B|5,0||||U|U");
        CPPUNIT_ASSERT_EQUAL(std::string("LINE 0,0 1,0"), modelSpace());
        CPPUNIT_ASSERT(!blocks().has(L"B"));
        run(L"-BLOCK|B|0,0|ALL|");
        CPPUNIT_ASSERT_EQUAL(std::string("LINE 0,0 1,0"), block(L"B"));
    }

    void attributesKeepTheirOrderThroughBlock()
    {
        addDefinition(*space(), L"SECOND", {}, {0, 0, 0});
        addDefinition(*space(), L"FIRST", {}, {50, 0, 0});
        std::vector<OdDbStub*> const definitions = space()->entities();
        SdsName const first = ca::nameOf(OdDbObjectId(definitions[1]));
        CPPUNIT_ASSERT_EQUAL(int(RTNORM), sds_command(RTSTR, L"-BLOCK", RTSTR, L"B", RTSTR, L"0,0", RTENAME,
                                                      first.words, RTSTR, L"ALL", RTSTR, L"", 0));
        CPPUNIT_ASSERT_EQUAL(std::string("ATTDEF FIRST 50,0; ATTDEF SECOND 0,0"), block(L"B"));
    }

    void lists()
    {
        run(L"LINE|0,0|1,0||-BLOCK|Alpha|0,0|L||LINE|0,0|1,0||-BLOCK|Beta|0,0|L|");
        makeTitleBlock();
        run(L"-BLOCK|?|*a|");
        CPPUNIT_ASSERT(hasLine(L"\"Alpha\"  1 objects") && hasLine(L"\"Beta\"  1 objects"));
        CPPUNIT_ASSERT(!hasLine(L"\"Title\"  4 objects, with attributes"));
        CPPUNIT_ASSERT_EQUAL(std::string("User blocks: 2"), lastPrompt().toUtf8());
        run(L"-INSERT|?|");
        CPPUNIT_ASSERT(hasLine(L"\"Title\"  4 objects, with attributes"));
        CPPUNIT_ASSERT_EQUAL(std::string("User blocks: 3"), lastPrompt().toUtf8());
    }

    void refusals()
    {
        RefusedCase const cases[] = {
            {L"-BLOCK|", L"\"\" is not a valid block name."},
            {L"-BLOCK|a/b", L"\"a/b\" is not a valid block name."},
            {L"-BLOCK|*U1", L"\"*U1\" is not a valid block name."},
        };
        checkRefused(cases);
    }

    void prompts()
    {
        PromptCase const cases[] = {
            {L"-B", L"Enter block name or [?]: "},
            {L"-BLOCK|B", L"Specify insertion base point: "},
            {L"LINE|0,0|1,0||-BLOCK|B|0,0|L||-BLOCK|b",
             L"Block \"B\" already exists. Redefine it? [Yes/No] <No>: "},
        };
        checkPrompts(cases);
    }

private:
    /// Turned by 90 degrees about 100,0.
    static void turnUcs()
    {
        db().setHeaderPoint("UCSORG", {100, 0, 0});
        db().setHeaderPoint("UCSXDIR", {0, 1, 0});
        db().setHeaderPoint("UCSYDIR", {-1, 0, 0});
    }
};

CPPUNIT_TEST_SUITE_REGISTRATION(TestBlockCommand);

} // namespace
