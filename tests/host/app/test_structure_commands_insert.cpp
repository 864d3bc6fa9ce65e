// -INSERT, fed with text answers.
#include "host/app/sds_cmd.h"
#include "host/app/sys_var.h"
#include "tests/host/app/block_script.h"

#include <cppunit/extensions/HelperMacros.h>

namespace {

class TestInsertCommand : public BlockScriptTest
{
    CPPUNIT_TEST_SUITE(TestInsertCommand);
    CPPUNIT_TEST(insertPlacements);
    CPPUNIT_TEST(insertInTheUserCoordinateSystem);
    CPPUNIT_TEST(insertOffersTheLastName);
    CPPUNIT_TEST(attributesAreAskedFor);
    CPPUNIT_TEST(attributesGoWithThePlacement);
    CPPUNIT_TEST(attributesOfSeveralLines);
    CPPUNIT_TEST(refusals);
    CPPUNIT_TEST(prompts);
    CPPUNIT_TEST_SUITE_END();

public:
    void insertPlacements()
    {
        struct
        {
            wchar_t const* answers;
            char const* reference;
        } const cases[] = {
            {L"5,6|||", "5,6 s1,1,1 r0"},
            {L"5,6,7|2||30", "5,6,7 s2,2,2 r30"},
            {L"5,6|2|3|30", "5,6 s2,3,2 r30"},
            {L"5,6|-2|3|0", "5,6 s-2,3,2 r0"},
            {L"5,6|XYZ|2|3|4|0", "5,6 s2,3,4 r0"},
            {L"5,6|XYZ|2||-4|0", "5,6 s2,2,-4 r0"},
            {L"5,6|XYZ||||", "5,6 s1,1,1 r0"},
            {L"5,6|8,10|0", "5,6 s3,4,3 r0"}, // a corner
            {L"5,6|@-3,4|0", "5,6 s-3,4,3 r0"},
            {L"5,6|C|8,10|0", "5,6 s3,4,3 r0"},
            {L"5,6|XYZ|C|8,10|2|0", "5,6 s3,4,2 r0"},
            {L"5,6|XYZ|8,10||0", "5,6 s3,4,3 r0"},
            {L"5,6|||5,9", "5,6 s1,1,1 r90"}, // a direction
            {L"S|2|5,6|", "5,6 s2,2,2 r0"},
            {L"S|2|R|45|5,6", "5,6 s2,2,2 r45"},
            {L"X|2|5,6|3|", "5,6 s2,3,2 r0"},
            {L"X|2|Y|3|Z|4|R||5,6", "5,6 s2,3,4 r0"},
            {L"Y|3|5,6|2|", "5,6 s2,3,2 r0"},
            {L"Y|3|5,6|8,10|", "5,6 s3,3,3 r0"}, // the corner gives only what is not known yet
            {L"S|2|S|3|5,6|", "5,6 s3,3,3 r0"},
            {L"B|1,0|5,6|||", "4,6 s1,1,1 r0"},
            {L"B|1,0|S|2|R|90|5,6", "5,4 s2,2,2 r90"},
        };
        for (auto const& each : cases) {
            tearDown();
            setUp();
            run(L"LINE|0,0|1,0||-BLOCK|B|0,0|L|");
            run(OdString(L"-INSERT|B|") + each.answers);
            CPPUNIT_ASSERT_EQUAL_MESSAGE(OdString(each.answers).toUtf8(), std::string("B ") + each.reference,
                                         modelSpace());
        }
    }

    void insertInTheUserCoordinateSystem()
    {
        run(L"LINE|0,0|1,0||-BLOCK|B|0,0|L|");
        db().setHeaderPoint("UCSORG", {0, 0, 10});
        db().setHeaderPoint("UCSXDIR", {0, 1, 0});
        db().setHeaderPoint("UCSYDIR", {0, 0, 1}); // the normal is the X axis
        run(L"-INSERT|B|3,4|2||90");
        auto const reference = firstReference();
        CPPUNIT_ASSERT(reference->normal().isEqualTo(OdGeVector3d::kXAxis));
        CPPUNIT_ASSERT(reference->position().isEqualTo({0, 3, 14}));
        CPPUNIT_ASSERT((reference->blockTransform() * OdGePoint3d(1, 0, 0)).isEqualTo({0, 3, 16}));
    }

    void insertOffersTheLastName()
    {
        run(L"LINE|0,0|1,0||-BLOCK|One|0,0|L||-INSERT|oNE|5,0||||-INSERT");
        CPPUNIT_ASSERT_EQUAL(std::string("Enter block name or [?] <One>: "), lastPrompt().toUtf8());
        run(L"|6,0||||");
        CPPUNIT_ASSERT_EQUAL(std::string("One 5,0 s1,1,1 r0; One 6,0 s1,1,1 r0"), modelSpace());
    }

    void attributesAreAskedFor()
    {
        makeTitleBlock();
        run(L"-INSERT|Title|0,0|||");
        CPPUNIT_ASSERT(hasLine(L"Enter attribute values"));
        CPPUNIT_ASSERT_EQUAL(std::string("Name of the part <none>: "), lastPrompt().toUtf8());
        run(L"Bolt M8|");
        CPPUNIT_ASSERT_EQUAL_MESSAGE("without a prompt the tag", std::string("SIZE <A4>: "), promptBefore());
        CPPUNIT_ASSERT(hasLine(L"Verify attribute values"));
        CPPUNIT_ASSERT_EQUAL(std::string("Name of the part <Bolt M8>: "), lastPrompt().toUtf8());
        run(L"Bolt M10");
        CPPUNIT_ASSERT_EQUAL(std::string("Title 0,0 s1,1,1 r0 NAME=Bolt M10@1,0 SIZE=A4@1,2 STATE=draft@1,4"),
                             modelSpace());
        setVariable(L"ATTREQ", 0);
        run(L"ERASE|ALL||-INSERT|Title|0,0||||");
        CPPUNIT_ASSERT_EQUAL(std::string("Title 0,0 s1,1,1 r0 NAME=none@1,0 SIZE=A4@1,2 STATE=draft@1,4"),
                             modelSpace());
        setVariable(L"ATTREQ", 1);
        run(L"ERASE|ALL||-INSERT|Title|0,0||||a|b");
        sds_cmd(nullptr);
        CPPUNIT_ASSERT_EQUAL_MESSAGE("cancelled: nothing is placed", std::string(), modelSpace());
    }

    void attributesGoWithThePlacement()
    {
        makeTitleBlock();
        run(L"-INSERT|Title|10,0|2||90||||");
        CPPUNIT_ASSERT_EQUAL(std::string("Title 10,0 s2,2,2 r90 NAME=none@10,2 h2 r90 SIZE=A4@6,2 h2 r90 "
                                         "STATE=draft@2,2 h2 r90"),
                             modelSpace());
        auto const attribute = firstReference()->attributeIterator().objectId().open<OdDbAttribute>();
        CPPUNIT_ASSERT(attribute->isVerifiable() && !attribute->isPreset());
        CPPUNIT_ASSERT(attribute->ownerId() == firstReference()->objectId());
        run(L"U");
        CPPUNIT_ASSERT_EQUAL(std::string(), modelSpace());
    }

    void attributesOfSeveralLines()
    {
        makeTitleBlock();
        auto const block = db().table(OdDbTableKind::kBlock).getAt(L"Title").open<OdDbBlockTableRecord>();
        OdDbObjectIterator it = block->newIterator();
        while (!odCast<OdDbAttributeDefinition>(it.entity().get()))
            it.step();
        OdDbMTextPtr const lines(new OdDbMText);
        lines->setContents(L"{first}\\Psecond");
        auto const definition = it.objectId().open<OdDbAttributeDefinition>(OdDb::kForWrite);
        definition->setMTextAttribute(lines.get());
        setVariable(L"ATTREQ", 0);
        run(L"-INSERT|Title|10,0|2|2|90");
        auto const attribute = firstReference()->attributeIterator().objectId().open<OdDbAttribute>();
        CPPUNIT_ASSERT(attribute->isMTextAttribute());
        OdDbMTextPtr const shown = attribute->getMTextAttribute();
        CPPUNIT_ASSERT_EQUAL(std::string("{first}\\Psecond"), shown->contents().toUtf8());
        CPPUNIT_ASSERT(shown->direction().isEqualTo(OdGeVector3d::kYAxis));
        CPPUNIT_ASSERT_EQUAL(attribute->height(), shown->textHeight());
    }

    void refusals()
    {
        RefusedCase const cases[] = {
            {L"-INSERT|", L"A block name is required."},
            {L"-INSERT|NoSuch", L"Block \"NoSuch\" does not exist."},
            {L"-INSERT|*Model_Space", L"\"*Model_Space\" is no block that can be inserted."},
            {L"LINE|0,0|1,0||-BLOCK|B|0,0|L||-INSERT|B|0,0|0", L"Value must be nonzero."},
            {L"LINE|0,0|1,0||-BLOCK|B|0,0|L||-INSERT|B|0,0|C|5,0",
             L"The corner must differ from the insertion point in X and in Y."},
        };
        checkRefused(cases);
    }

    void prompts()
    {
        PromptCase const cases[] = {
            {L"-I", L"Enter block name or [?]: "},
            {L"LINE|0,0|1,0||-BLOCK|B|0,0|L||-INSERT|B",
             L"Specify insertion point or [Basepoint/Scale/X/Y/Z/Rotate]: "},
            {L"LINE|0,0|1,0||-BLOCK|B|0,0|L||-INSERT|B|0,0",
             L"Enter X scale factor, specify opposite corner, or [Corner/XYZ] <1>: "},
            {L"LINE|0,0|1,0||-BLOCK|B|0,0|L||-INSERT|B|0,0|", L"Enter Y scale factor <use X scale factor>: "},
            {L"LINE|0,0|1,0||-BLOCK|B|0,0|L||-INSERT|B|0,0||", L"Specify rotation angle <0>: "},
            {L"LINE|0,0|1,0||-BLOCK|B|0,0|L||-INSERT|B|0,0|XYZ", L"Specify X scale factor or [Corner] <1>: "},
        };
        checkPrompts(cases);
    }

private:
    template <class T>
    static void setVariable(wchar_t const* name, T value)
    {
        CPPUNIT_ASSERT(ca::SysVar::find(name)->set(value));
    }

    /// The last prompt that has its answer, without it.
    static std::string promptBefore()
    {
        auto const& lines = ca::app()->commandLine().lines();
        return lines[lines.size() - 2].toUtf8();
    }
};

CPPUNIT_TEST_SUITE_REGISTRATION(TestInsertCommand);

} // namespace
