// -BLOCK and -INSERT, fed with text answers.
#include "host/app/ca_doc.h"
#include "host/app/command_line.h"
#include "host/app/sds_cmd.h"
#include "host/app/sys_var.h"
#include "host/db/entities/od_db_attribute_definition.h"
#include "host/db/entities/od_db_block_reference.h"
#include "host/db/entities/od_db_line.h"
#include "host/db/od_db_database.h"
#include "host/db/od_db_raw_object.h"
#include "host/db/records/od_db_block_table_record.h"
#include "host/sds/sds_names.h"
#include "tests/host/app/draw_script.h"

#include <cppunit/extensions/HelperMacros.h>

#include <algorithm>

namespace {

OdString number(double value)
{
    return odFormat(L"%.9g", std::round(value * 1e4) / 1e4 + 0.0);
}

OdString point(OdGePoint3d const& p)
{
    return number(p.x) + L"," + number(p.y) + (std::abs(p.z) < 1e-5 ? OdString() : L"," + number(p.z));
}

/// "TAG=text@position", with height and rotation in degrees where they are not 1 and 0.
OdString describe(OdDbAttribute const& attribute)
{
    OdString text = attribute.tag() + L"=" + attribute.textString() + L"@" + point(attribute.position());
    if (attribute.height() != 1)
        text += L" h" + number(attribute.height());
    if (attribute.rotation() != 0)
        text += L" r" + number(odgeToDegrees(attribute.rotation()));
    return text;
}

OdString describe(OdDbBlockReference const& reference)
{
    OdGeScale3d const scale = reference.scaleFactors();
    OdString text = reference.blockTableRecord().open<OdDbBlockTableRecord>()->getName() + L" " +
                    point(reference.position()) + L" s" + point({scale.sx, scale.sy, scale.sz}) + L" r" +
                    number(odgeToDegrees(reference.rotation()));
    for (OdDbObjectIterator it = reference.attributeIterator(); !it.done(); it.step())
        text += L" " + describe(*it.objectId().open<OdDbAttribute>());
    return text;
}

OdString describe(OdDbEntity const& entity)
{
    if (auto const* reference = odCast<OdDbBlockReference>(&entity))
        return describe(*reference);
    if (auto const* line = odCast<OdDbLine>(&entity))
        return L"LINE " + point(line->startPoint()) + L" " + point(line->endPoint());
    if (auto const* definition = odCast<OdDbAttributeDefinition>(&entity))
        return L"ATTDEF " + definition->tag() + L" " + point(definition->position());
    return entity.isA()->name();
}

class TestBlockCommands : public DrawScriptTest
{
    CPPUNIT_TEST_SUITE(TestBlockCommands);
    CPPUNIT_TEST(blockTakesTheEntitiesOutOfTheSpace);
    CPPUNIT_TEST(blockIsMadeInTheUserCoordinateSystem);
    CPPUNIT_TEST(redefinitionReachesAllReferences);
    CPPUNIT_TEST(blockCannotContainItself);
    CPPUNIT_TEST(unknownEntitiesStayWhereTheyAre);
    CPPUNIT_TEST(nothingSelectedDefinesNothing);
    CPPUNIT_TEST(undoOfBlock);
    CPPUNIT_TEST(insertPlacements);
    CPPUNIT_TEST(insertInTheUserCoordinateSystem);
    CPPUNIT_TEST(insertOffersTheLastName);
    CPPUNIT_TEST(attributesAreAskedFor);
    CPPUNIT_TEST(attributesGoWithThePlacement);
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
            {L"-B", L"Enter block name or [?]: "},
            {L"-I", L"Enter block name or [?]: "},
            {L"-BLOCK|B", L"Specify insertion base point: "},
            {L"LINE|0,0|1,0||-BLOCK|B|0,0|L||-BLOCK|b",
             L"Block \"B\" already exists. Redefine it? [Yes/No] <No>: "},
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
    static void run(OdString const& script)
    {
        int const result = feed(script);
        CPPUNIT_ASSERT_EQUAL_MESSAGE(script.toUtf8() + ": " + lastPrompt().toUtf8(), int(RTNORM), result);
    }
    template <class T>
    static void setVariable(wchar_t const* name, T value)
    {
        CPPUNIT_ASSERT(ca::SysVar::find(name)->set(value));
    }

    static OdDbSymbolTable& blocks() { return db().table(OdDbTableKind::kBlock); }
    static OdDbBlockTableRecordPtr space()
    {
        return db().getModelSpaceId().open<OdDbBlockTableRecord>(OdDb::kForWrite);
    }
    static std::string contents(OdDbBlockTableRecord const& block)
    {
        OdString all;
        for (OdDbObjectIterator it = block.newIterator(); !it.done(); it.step())
            all += (all.isEmpty() ? OdString() : OdString(L"; ")) + describe(*it.entity());
        return all.toUtf8();
    }
    static std::string modelSpace() { return contents(*space()); }
    static std::string block(OdString const& name)
    {
        return contents(*blocks().getAt(name).open<OdDbBlockTableRecord>());
    }
    static OdDbBlockReferencePtr firstReference() { return space()->newIterator().entity(); }

    static bool hasLine(OdString const& text)
    {
        auto const& lines = ca::app()->commandLine().lines();
        return std::find(lines.begin(), lines.end(), text) != lines.end();
    }
    /// The last prompt that has its answer, without it.
    static std::string promptBefore()
    {
        auto const& lines = ca::app()->commandLine().lines();
        return lines[lines.size() - 2].toUtf8();
    }

    /// Turned by 90 degrees about 100,0.
    static void turnUcs()
    {
        db().setHeaderPoint("UCSORG", {100, 0, 0});
        db().setHeaderPoint("UCSXDIR", {0, 1, 0});
        db().setHeaderPoint("UCSYDIR", {-1, 0, 0});
    }

    static OdDbAttributeDefinitionPtr addDefinition(OdDbBlockTableRecord& block, OdString const& tag,
                                                    OdString const& text, OdGePoint3d const& position)
    {
        OdDbAttributeDefinitionPtr const definition(new OdDbAttributeDefinition);
        definition->setTag(tag);
        definition->setTextString(text);
        definition->setPosition(position);
        block.appendOdDbEntity(definition);
        definition->upgradeOpen();
        return definition;
    }

    /// A block with attributes of all kinds: asked twice, asked once without prompt, preset, constant.
    static void makeTitleBlock()
    {
        OdDbBlockTableRecordPtr const title(new OdDbBlockTableRecord);
        title->setName(L"Title");
        db().getBlockTableId().open<OdDbSymbolTable>(OdDb::kForWrite)->add(title);
        title->upgradeOpen();
        auto const name = addDefinition(*title, L"NAME", L"none", {1, 0, 0});
        name->setPrompt(L"Name of the part");
        name->setVerifiable(true);
        addDefinition(*title, L"SIZE", L"A4", {1, 2, 0});
        addDefinition(*title, L"STATE", L"draft", {1, 4, 0})->setPreset(true);
        addDefinition(*title, L"FIRM", L"ours", {1, 6, 0})->setConstant(true);
    }
};

CPPUNIT_TEST_SUITE_REGISTRATION(TestBlockCommands);

} // namespace
