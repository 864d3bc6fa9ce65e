// MINSERT, fed with text answers.
#include "host/app/sds_cmd.h"
#include "host/db/entities/od_db_minsert_block.h"
#include "tests/host/app/block_script.h"

#include <cppunit/extensions/HelperMacros.h>

namespace {

class TestMInsertCommand : public BlockScriptTest
{
    CPPUNIT_TEST_SUITE(TestMInsertCommand);
    CPPUNIT_TEST(grids);
    CPPUNIT_TEST(gridInTheUserCoordinateSystem);
    CPPUNIT_TEST(attributesAreAskedFor);
    CPPUNIT_TEST(refusals);
    CPPUNIT_TEST(prompts);
    CPPUNIT_TEST_SUITE_END();

public:
    void grids()
    {
        struct
        {
            wchar_t const* answers;
            char const* reference;
            char const* grid;
        } const cases[] = {
            {L"5,6||||2|3|10|20", "5,6 s1,1,1 r0", "2x3 10 20"},
            {L"5,6|2||30|2|1|-10", "5,6 s2,2,2 r30", "2x1 -10 0"},
            {L"5,6||||1|3|20", "5,6 s1,1,1 r0", "1x3 0 20"},
            {L"5,6||||||", "5,6 s1,1,1 r0", "1x1 0 0"},
            {L"5,6||||2|3|1,1|4,-5", "5,6 s1,1,1 r0", "2x3 -6 3"}, // a unit cell
            {L"S|2|R|45|B|1,0|5,6|2|2|10|20", "3.5858,4.5858 s2,2,2 r45", "2x2 10 20"},
            {L"X|2|Y|3|Z|4|R||5,6||", "5,6 s2,3,4 r0", "1x1 0 0"},
        };
        for (auto const& each : cases) {
            tearDown();
            setUp();
            run(L"LINE|0,0|1,0||-BLOCK|B|0,0|L|");
            std::string const before = bytes();
            run(OdString(L"MINSERT|B|") + each.answers);
            std::string const name = OdString(each.answers).toUtf8();
            CPPUNIT_ASSERT_EQUAL_MESSAGE(name, std::string("B ") + each.reference, modelSpace());
            CPPUNIT_ASSERT_EQUAL_MESSAGE(name, std::string(each.grid), grid());
            std::string const after = bytes();
            run(L"U");
            CPPUNIT_ASSERT_MESSAGE(name, bytes() == before);
            run(L"REDO");
            CPPUNIT_ASSERT_MESSAGE(name, bytes() == after);
        }
    }

    void gridInTheUserCoordinateSystem()
    {
        run(L"LINE|0,0|1,0||-BLOCK|B|0,0|L|");
        db().setHeaderPoint("UCSORG", {0, 0, 10});
        db().setHeaderPoint("UCSXDIR", {0, 1, 0});
        db().setHeaderPoint("UCSYDIR", {0, 0, 1}); // the normal is the X axis
        run(L"MINSERT|B|3,4||||2|2|0,0|5,6");
        auto const reference = firstReference();
        CPPUNIT_ASSERT_EQUAL(std::string("2x2 6 5"), grid());
        CPPUNIT_ASSERT(reference->position().isEqualTo({0, 3, 14}));
        OdGeExtents3d const box = reference->extents();
        CPPUNIT_ASSERT(box.minPoint().isEqualTo({0, 3, 14}));
        CPPUNIT_ASSERT(box.maxPoint().isEqualTo({0, 9, 20}));
    }

    void attributesAreAskedFor()
    {
        makeTitleBlock();
        run(L"MINSERT|Title|0,0||||2|1|9");
        CPPUNIT_ASSERT_EQUAL(std::string("Name of the part <none>: "), lastPrompt().toUtf8());
        run(L"Bolt|||");
        CPPUNIT_ASSERT_EQUAL(std::string("Title 0,0 s1,1,1 r0 NAME=Bolt@1,0 SIZE=A4@1,2 STATE=draft@1,4"),
                             modelSpace());
        CPPUNIT_ASSERT_EQUAL(std::string("2x1 9 0"), grid());
    }

    void refusals()
    {
        RefusedCase const cases[] = {
            {L"MINSERT|none", L"Block \"none\" does not exist."},
            {L"LINE|0,0|1,0||-BLOCK|B|0,0|L||MINSERT|B|0,0||||0", L"Value must be at least 1."},
            {L"LINE|0,0|1,0||-BLOCK|B|0,0|L||MINSERT|B|0,0||||1|32768", L"Value must be at most 32767."},
        };
        checkRefused(cases);
    }

    void prompts()
    {
        OdString const block = L"LINE|0,0|1,0||-BLOCK|B|0,0|L||MINSERT";
        struct
        {
            wchar_t const* answers;
            wchar_t const* prompt;
        } const cases[] = {
            {L"", L"Enter block name or [?]: "},
            {L"|B", L"Specify insertion point or [Basepoint/Scale/X/Y/Z/Rotate]: "},
            {L"|B|0,0|||", L"Enter number of rows (---) <1>: "},
            {L"|B|0,0||||2", L"Enter number of columns (|||) <1>: "},
            {L"|B|0,0||||2|3", L"Enter distance between rows or specify unit cell (---): "},
            {L"|B|0,0||||2|3|5,5", L"Specify opposite corner: "},
            {L"|B|0,0||||2|3|5", L"Specify distance between columns (|||): "},
        };
        for (auto const& each : cases) {
            OdString const script = block + each.answers;
            PromptCase const prompt[] = {{script.c_str(), each.prompt}};
            checkPrompts(prompt);
        }
    }

private:
    /// "rows x columns, row spacing, column spacing" of the only entity.
    static std::string grid()
    {
        OdDbMInsertBlockPtr const reference = firstReference()->objectId().open<OdDbMInsertBlock>();
        return odFormat(L"%dx%d %g %g", reference->rows(), reference->columns(), reference->rowSpacing(),
                        reference->columnSpacing())
            .toUtf8();
    }
};
CPPUNIT_TEST_SUITE_REGISTRATION(TestMInsertCommand);

} // namespace
