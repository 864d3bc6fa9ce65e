// ROTATE, SCALE and MIRROR.
#include "host/app/ca_doc.h"
#include "host/db/entities/od_db_block_reference.h"
#include "host/db/entities/od_db_point.h"
#include "host/db/od_db_database.h"
#include "host/db/records/od_db_block_table_record.h"
#include "tests/host/app/draw_script.h"

#include <cppunit/extensions/HelperMacros.h>

namespace {

class TestTransformingCommands : public DrawScriptTest
{
    CPPUNIT_TEST_SUITE(TestTransformingCommands);
    CPPUNIT_TEST(rotates);
    CPPUNIT_TEST(scales);
    CPPUNIT_TEST(mirrors);
    CPPUNIT_TEST(mirrorsTextsReadably);
    CPPUNIT_TEST(mirrorsMultilineTextsReadably);
    CPPUNIT_TEST(attributesOfAMirroredReferenceStayReadable);
    CPPUNIT_TEST(worksInATurnedUserCoordinateSystem);
    CPPUNIT_TEST(leavesLockedLayersAlone);
    CPPUNIT_TEST(refusals);
    CPPUNIT_TEST(prompts);
    CPPUNIT_TEST_SUITE_END();

public:
    void rotates()
    {
        DrawnCase const cases[] = {
            {L"LINE|0,0|10,0||ROTATE|ALL||0,0|90", L"LINE 0,0 0,10", 2},
            {L"LINE|0,0|10,0||RO|ALL||10,0|10,5", L"LINE 10,-10 10,0", 2},
            {L"LINE|0,0|10,0||ROTATE|ALL||0,0|C|90", L"LINE 0,0 10,0; LINE 0,0 0,10", 2},
            {L"LINE|0,0|10,10||ROTATE|ALL||0,0|R|45|90", L"LINE 0,0 0,14.1421", 2},
            {L"LINE|0,0|10,10||ROTATE|ALL||0,0|R|1,1|3,3|-5,0", L"LINE 0,0 -14.1421,0", 2},
            {L"LINE|0,0|10,10||ROTATE|ALL||0,0|C|R|45|P|7,7|7,9", L"LINE 0,0 10,10; LINE 0,0 0,14.1421", 2},
            // The last angles are offered again.
            {L"LINE|0,0|10,0||ROTATE|ALL||0,0|90|ROTATE|ALL||0,0|", L"LINE 0,0 -10,0", 3},
            {L"LINE|0,0|9,0||ROTATE|ALL||0,0|R|30|30|ROTATE|ALL||0,0|R||120", L"LINE 0,0 0,9", 3},
        };
        checkDrawn(cases);
    }

    void scales()
    {
        DrawnCase const cases[] = {
            {L"CIRCLE|4,0|2|SCALE|ALL||0,0|2", L"CIRCLE 8,0 r4", 2},
            {L"CIRCLE|4,0|2|SC|ALL||2,0|2,3", L"CIRCLE 8,0 r6", 2},
            {L"CIRCLE|4,0|2|SCALE|ALL||0,0|C|0.5", L"CIRCLE 4,0 r2; CIRCLE 2,0 r1", 2},
            {L"CIRCLE|4,0|2|SCALE|ALL||0,0|R|2|5", L"CIRCLE 10,0 r5", 2},
            {L"CIRCLE|4,0|2|SCALE|ALL||0,0|R|1,1|1,3|P|7,0|7,6", L"CIRCLE 12,0 r6", 2},
            {L"CIRCLE|4,0|2|SCALE|ALL||0,0|R|2|", L"CIRCLE 2,0 r1", 2},
        };
        checkDrawn(cases);
    }

    void mirrors()
    {
        DrawnCase const cases[] = {
            {L"LINE|1,0|3,1||MIRROR|ALL||0,0|0,1|", L"LINE 1,0 3,1; LINE -1,0 -3,1", 2},
            {L"LINE|1,0|3,1||MI|ALL||0,0|5,5|Y", L"LINE 0,1 1,3", 2},
            {L"ARC|1,0|2,1|1,2|MIRROR|ALL||0,0|0,1|Y", L"ARC -1,1 r1 90..270", 2},
        };
        checkDrawn(cases);
    }

    void mirrorsTextsReadably()
    {
        DrawnCase const cases[] = {
            {L"TEXT|5,1|2|0|abc||MIRROR|ALL||0,0|0,1|Y", L"TEXT abc -5,1 h2 r0 j2/0", 2},
            {L"TEXT|5,1|2|0|abc||MIRROR|ALL||0,0|1,0|Y", L"TEXT abc 5,-3 h2 r0", 2},
            {L"TEXT|5,1|2|0|abc||MIRROR|ALL||0,0|0,1|Y|MIRROR|ALL||0,0|0,1|Y", L"TEXT abc 5,1 h2 r0", 3},
            {L"TEXT|J|TR|5,1|2|0|abc||MIRROR|ALL||0,0|0,1|Y", L"TEXT abc -5,1 h2 r0 j0/3", 2},
            {L"TEXT|J|TC|5,1|2|0|abc||MIRROR|ALL||0,0|1,0|Y", L"TEXT abc 5,-1 h2 r0 j1/1", 2},
            {L"TEXT|J|Middle|5,1|2|0|abc||MIRROR|ALL||0,0|0,1|Y", L"TEXT abc -5,1 h2 r0 j4/0", 2},
            {L"TEXT|J|Fit|1,0|7,0|2|abc||MIRROR|ALL||0,0|0,1|Y", L"TEXT abc -7,0 to -1,0 h2 r0 j5/0 x1.1765", 2},
            {L"TEXT|J|Fit|1,0|7,0|2|abc||MIRROR|ALL||0,0|1,0|Y", L"TEXT abc 1,-2 to 7,-2 h2 r0 j5/0 x1.1765", 2},
            {L"TEXT|5,1|2|30|abc||MIRROR|ALL||0,0|0,1|Y", L"TEXT abc -5,1 h2 r330 j2/0", 2},
        };
        checkDrawn(cases);
        tearDown();
        setUp();
        feed(L"MIRRTEXT|1|TEXT|5,1|2|0|abc||MIRROR|ALL||0,0|0,1|Y");
        CPPUNIT_ASSERT_EQUAL(std::string("TEXT abc -5,1 h2 r0 mirrored in x"), drawn().toUtf8());
    }

    void mirrorsMultilineTextsReadably()
    {
        OdDbMTextPtr const text = new OdDbMText;
        text->setContents(L"abc");
        text->setLocation({5, 1, 0});
        openModelSpace()->appendOdDbEntity(text);
        text->upgradeOpen();
        feed(L"MIRROR|ALL||0,0|0,1|Y");
        CPPUNIT_ASSERT(text->location() == OdGePoint3d(-5, 1, 0));
        CPPUNIT_ASSERT(text->attachment() == OdDbMTextAttachment::kTopRight);
        CPPUNIT_ASSERT(text->normal() == OdGeVector3d::kZAxis && text->direction() == OdGeVector3d::kXAxis);
        feed(L"MIRROR|ALL||0,0|1,0|Y");
        CPPUNIT_ASSERT(text->attachment() == OdDbMTextAttachment::kBottomRight);
        feed(L"MIRRTEXT|1|MIRROR|ALL||0,0|0,1|Y");
        CPPUNIT_ASSERT(text->normal() == -OdGeVector3d::kZAxis);
    }

    void attributesOfAMirroredReferenceStayReadable()
    {
        OdDbObjectId const block = makeBlock();
        OdDbBlockReferencePtr const reference = new OdDbBlockReference;
        reference->setBlockTableRecord(block);
        OdDbAttributePtr const attribute = new OdDbAttribute;
        attribute->setTextString(L"A");
        attribute->setPosition({5, 1, 0});
        reference->appendAttribute(attribute);
        openModelSpace()->appendOdDbEntity(reference);
        feed(L"MIRROR|ALL||0,0|0,1|");

        auto it = openModelSpace()->newIterator();
        it.step();
        auto const copy = it.objectId().open<OdDbBlockReference>();
        CPPUNIT_ASSERT_EQUAL(-1.0, copy->scaleFactors().sx);
        auto const mirrored = copy->attributeIterator().objectId().open<OdDbAttribute>();
        CPPUNIT_ASSERT(!mirrored->isMirroredInX() && !mirrored->isMirroredInY());
        CPPUNIT_ASSERT(mirrored->horizontalMode() == OdDbTextHorizontalMode::kRight);
        CPPUNIT_ASSERT(mirrored->alignmentPoint() == OdGePoint3d(-5, 1, 0));
    }

    void worksInATurnedUserCoordinateSystem()
    {
        // X of the user runs along Y of the world, Y along Z.
        DrawnCase const cases[] = {
            {L"ROTATE|ALL||0,0|90", L"LINE 0,0 0,0,10 n0,-1"},
            {L"ROTATE|ALL||0,0|0,5", L"LINE 0,0 0,0,10 n0,-1"},
            {L"ROTATE|ALL||0,0|R|0,0|3,3|0", L"LINE 0,0 0,7.0711,-7.0711 n0,0.7071,0.7071"},
            {L"SCALE|ALL||5,0|5,2", L"LINE 0,-5 0,15"},
            {L"MIRROR|ALL||0,0|5,5|Y", L"LINE 0,0 0,0,10 n0,1"},
        };
        checkDrawnUpright(cases);
    }

    void leavesLockedLayersAlone()
    {
        feed(L"POINT|1,0|-LAYER|M|fixed||POINT|2,0|-LAYER|LO|fixed||");
        feed(L"ROTATE|ALL||0,0|90|SCALE|ALL||0,0|3|MIRROR|ALL||0,0|1,0|Y");
        CPPUNIT_ASSERT_EQUAL(std::string("POINT 0,-3; POINT 2,0"), drawn().toUtf8());
    }

    void refusals()
    {
        RefusedCase const cases[] = {
            {L"CIRCLE|4,0|2|SCALE|ALL||0,0|0", L"Value must be positive and nonzero."},
            {L"CIRCLE|4,0|2|SCALE|ALL||0,0|R|0", L"Value must be positive and nonzero."},
            {L"CIRCLE|4,0|2|SCALE|ALL||0,0|R|1,1|1,1", L"Value must be positive and nonzero."},
            {L"CIRCLE|4,0|2|ROTATE|ALL||0,0|R|1,1|1,1", L"The two points are the same."},
            {L"CIRCLE|4,0|2|ROTATE|ALL||0,0|half",
             L"Requires valid numeric angle, second point, or option keyword."},
            {L"CIRCLE|4,0|2|MIRROR|ALL||1,1|1,1", L"The mirror line has no direction in the XY plane."},
            {L"CIRCLE|4,0|2|MIRROR|ALL||1,1,0|1,1,5", L"The mirror line has no direction in the XY plane."},
        };
        checkRefused(cases);
    }

    void prompts()
    {
        PromptCase const cases[] = {
            {L"POINT|0,0|ROTATE|ALL||0,0", L"Specify rotation angle or [Copy/Reference] <0>: "},
            {L"POINT|0,0|ROTATE|ALL||0,0|C", L"Specify rotation angle or [Reference] <0>: "},
            {L"POINT|0,0|ROTATE|ALL||0,0|R", L"Specify the reference angle <0>: "},
            {L"POINT|0,0|ROTATE|ALL||0,0|R|1,1", L"Specify second point: "},
            {L"POINT|0,0|ROTATE|ALL||0,0|R|10", L"Specify the new angle or [Points] <0>: "},
            {L"POINT|0,0|SCALE|ALL||0,0", L"Specify scale factor or [Copy/Reference]: "},
            {L"POINT|0,0|SCALE|ALL||0,0|R", L"Specify reference length <1>: "},
            {L"POINT|0,0|SCALE|ALL||0,0|R|2", L"Specify new length or [Points] <1>: "},
            {L"POINT|0,0|MIRROR|ALL||0,0|1,1", L"Erase source objects? [Yes/No] <No>: "},
        };
        checkPrompts(cases);
    }

private:
    static OdSmartPtr<OdDbBlockTableRecord> openModelSpace()
    {
        return db().getModelSpaceId().open<OdDbBlockTableRecord>(OdDb::kForWrite);
    }

    /// A block with a point.
    static OdDbObjectId makeBlock()
    {
        OdSmartPtr<OdDbBlockTableRecord> const block = new OdDbBlockTableRecord;
        block->setName(L"B");
        OdDbObjectId const id = db().getBlockTableId().open<OdDbSymbolTable>(OdDb::kForWrite)->add(block);
        id.open<OdDbBlockTableRecord>(OdDb::kForWrite)->appendOdDbEntity(new OdDbPoint);
        return id;
    }
};

CPPUNIT_TEST_SUITE_REGISTRATION(TestTransformingCommands);

} // namespace
