// Block references: attributes, what is seen through them, and what transformations do to both.
#include "tests/host/db/test_block_fixture.h"
#include "tests/host/db/test_entities_support.h"

#include "host/db/entities/od_db_attribute_definition.h"
#include "host/db/entities/od_db_minsert_block.h"
#include "host/db/entities/od_db_point.h"
#include "host/db/entities/od_db_polyline.h"

namespace {

OdGeVector3d const kTilted(0.36, 0.48, 0.8);

class BlockReferenceTest : public BlockFixture
{
    CPPUNIT_TEST_SUITE(BlockReferenceTest);
    CPPUNIT_TEST(outlineIsThatOfTheBlock);
    CPPUNIT_TEST(transformationsMoveTheOutline);
    CPPUNIT_TEST(transformationsThatAreRefused);
    CPPUNIT_TEST(mirroringTurnsLittle);
    CPPUNIT_TEST(grid);
    CPPUNIT_TEST(hugeGrid);
    CPPUNIT_TEST(blockWithinItself);
    CPPUNIT_TEST(blocksThatMultiply);
    CPPUNIT_TEST(attributesBelongToTheReference);
    CPPUNIT_TEST(attributesGivenBeforehand);
    CPPUNIT_TEST(attributesGoAlong);
    CPPUNIT_TEST(attributeDefinitionsDoNotShow);
    CPPUNIT_TEST(selfReferenceIsRefused);
    CPPUNIT_TEST_SUITE_END();

    static OdDbAttributePtr newAttribute(OdGePoint3d const& position)
    {
        OdDbAttributePtr attribute(new OdDbAttribute);
        attribute->setTag(L"NAME");
        attribute->setTextString(L"AB");
        attribute->setPosition(position);
        return attribute;
    }

    static void assertBox(OdGePoint3d const& low, OdGePoint3d const& high, OdDbEntity const& entity)
    {
        OdGeExtents3d const box = entity.extents();
        CPPUNIT_ASSERT_DOUBLES_EQUAL(0.0, box.minPoint().distanceTo(low), 1e-9);
        CPPUNIT_ASSERT_DOUBLES_EQUAL(0.0, box.maxPoint().distanceTo(high), 1e-9);
    }

    void outlineIsThatOfTheBlock()
    {
        auto const block = sampleBlock();
        auto const reference = insert(*modelSpace(), *block, {10, 20, 0});
        assertBox({10, 20, 0}, {12, 23, 0}, *reference);
        reference->setScaleFactors({2, -1, 1});
        assertBox({10, 17, 0}, {14, 20, 0}, *reference);
        reference->setScaleFactors({1, 1, 1});
        reference->setRotation(OdaPI2);
        assertBox({7, 20, 0}, {10, 22, 0}, *reference);
        reference->setNormal({0, 0, -1}); // turned over about the Y axis of the world
        assertBox({10, 20, 0}, {13, 22, 0}, *reference);

        auto const outer = newBlock(L"Outer");
        insert(*outer, *block, {0, 0, 5})->setScaleFactors(OdGeScale3d(2));
        assertBox({1, 1, 6}, {5, 7, 6}, *insert(*modelSpace(), *outer, {1, 1, 1}));
        SampledOutline const pieces(*insert(*modelSpace(), *outer, {}));
        CPPUNIT_ASSERT_EQUAL(1, pieces.arcs);
        CPPUNIT_ASSERT_EQUAL(1, pieces.segments);
    }

    void transformationsMoveTheOutline()
    {
        OdGeMatrix3d const turn = OdGeMatrix3d::rotation(0.7, {1, 2, -1}, {3, 1, 2});
        OdGeMatrix3d const mirror = OdGeMatrix3d::mirroringAtPlane({1, 2, 0}, {1, 3, 0});
        OdGeMatrix3d const matrices[] = {OdGeMatrix3d::translation({1, 2, 3}), turn, mirror, turn * mirror,
                                         OdGeMatrix3d::scaling(-2.5, {1, 0, 0})};
        auto const block = sampleBlock();
        for (OdGeMatrix3d const& matrix : matrices) {
            auto const reference = insert<OdDbMInsertBlock>(*modelSpace(), *block, {4, 5, 6});
            reference->setNormal(kTilted);
            reference->setRotation(0.3);
            reference->setScaleFactors({2, 0.5, -1});
            reference->setColumns(2);
            reference->setRows(2);
            reference->setColumnSpacing(7);
            reference->setRowSpacing(-5);
            SampledOutline const expected(*reference, matrix);
            CPPUNIT_ASSERT_EQUAL(eOk, reference->transformBy(matrix));
            SampledOutline const actual(*reference);
            CPPUNIT_ASSERT_DOUBLES_EQUAL(0.0, expected.exactDistanceTo(actual), 1e-9);
            CPPUNIT_ASSERT_DOUBLES_EQUAL(0.0, expected.roughDistanceTo(actual), 0.2);
        }
    }

    void transformationsThatAreRefused()
    {
        auto const reference = insert(*modelSpace(), *sampleBlock(), {1, 1, 0});
        reference->setRotation(0.5);
        OdGeMatrix3d const stretch = OdGeMatrix3d::scaling(OdGeScale3d(2, 1, 1));
        CPPUNIT_ASSERT_EQUAL(eDegenerateGeometry, reference->transformBy(stretch));
        CPPUNIT_ASSERT(reference->position() == OdGePoint3d(1, 1, 0));
        reference->setRotation(0);
        CPPUNIT_ASSERT_EQUAL(eOk, reference->transformBy(stretch));
        CPPUNIT_ASSERT(reference->scaleFactors() == OdGeScale3d(2, 1, 1));
        CPPUNIT_ASSERT_EQUAL(eDegenerateGeometry,
                             reference->transformBy(OdGeMatrix3d::scaling(OdGeScale3d(1, 1, 0))));
    }

    void mirroringTurnsLittle()
    {
        auto const reference = insert(*modelSpace(), *sampleBlock(), {1, 1, 0});
        reference->transformBy(OdGeMatrix3d::mirroringAtPlane({}, {1, 0, 0}));
        CPPUNIT_ASSERT(reference->scaleFactors() == OdGeScale3d(-1, 1, 1));
        CPPUNIT_ASSERT_EQUAL(0.0, reference->rotation());
        reference->transformBy(OdGeMatrix3d::mirroringAtPlane({}, {0, 1, 0}));
        CPPUNIT_ASSERT(reference->scaleFactors() == OdGeScale3d(-1, -1, 1));
        CPPUNIT_ASSERT(reference->normal() == OdGeVector3d(0, 0, 1));
    }

    void grid()
    {
        auto const reference = insert<OdDbMInsertBlock>(*modelSpace(), *sampleBlock(false), {0, 0, 0});
        reference->setColumns(3);
        reference->setRows(2);
        reference->setColumnSpacing(10);
        reference->setRowSpacing(4);
        reference->setScaleFactors(OdGeScale3d(2)); // the spacings stay
        CPPUNIT_ASSERT_EQUAL(6, SampledOutline(*reference).segments);
        assertBox({0, 0, 0}, {24, 6, 0}, *reference);
        reference->setRotation(OdaPI2);
        assertBox({-6, 0, 0}, {0, 24, 0}, *reference);
    }

    void hugeGrid()
    {
        auto const reference = insert<OdDbMInsertBlock>(*modelSpace(), *sampleBlock(false), {0, 0, 0});
        reference->setColumns(30000);
        reference->setRows(30000);
        reference->setColumnSpacing(1);
        reference->setRowSpacing(1);
        assertBox({0, 0, 0}, {30001, 30000, 0}, *reference); // far more cells than can be walked through
    }

    void blockWithinItself()
    {
        // Files can hold what the interfaces refuse.
        auto const block = sampleBlock(false);
        OdDbBlockReferencePtr const loop(new OdDbBlockReference);
        readTags(*loop,
                 {"100 AcDbEntity", "8 0", "100 AcDbBlockReference", "2 Sample", "10 5.0", "20 0.0", "30 0.0"},
                 block->objectId());
        m_db->addOdDbObject(loop, block->objectId());
        block->adopt(*loop);
        CPPUNIT_ASSERT_EQUAL(1, SampledOutline(*insert(*modelSpace(), *block, {})).segments);
    }

    void blocksThatMultiply()
    {
        // Two of the block before in each: the last holds 2 to the 50th power segments.
        OdDbBlockTableRecordPtr block = sampleBlock(false);
        for (int level = 0; level < 50; ++level) {
            OdDbBlockTableRecordPtr const next = newBlock(odFormat(L"Level%d", level).c_str());
            insert(*next, *block, {});
            insert(*next, *block, {1, 0, 0});
            block = next;
        }
        CPPUNIT_ASSERT(insert(*modelSpace(), *block, {})->extents().isValidExtents());
    }

    void attributesBelongToTheReference()
    {
        auto const reference = insert(*modelSpace(), *sampleBlock(), {0, 0, 0});
        CPPUNIT_ASSERT(reference->sequenceEnd().isNull());
        CPPUNIT_ASSERT(joined(writtenTags(*reference)).find("66 1") == std::string::npos);

        m_db->startUndoRecord();
        OdDbObjectId const first = reference->appendAttribute(newAttribute({0, 0, 0}));
        OdDbObjectId const second = reference->appendAttribute(newAttribute({0, 2, 0}));
        CPPUNIT_ASSERT(first.open<OdDbAttribute>()->ownerId() == reference->objectId());
        CPPUNIT_ASSERT(first.open<OdDbAttribute>()->layerId() == reference->layerId());
        CPPUNIT_ASSERT(joined(writtenTags(*reference)).find("66 1\n2 Sample") != std::string::npos);
        OdDbPartIterator it = reference->attributeIterator();
        CPPUNIT_ASSERT(it.objectId() == first);
        it.step();
        CPPUNIT_ASSERT(it.objectId() == second);
        CPPUNIT_ASSERT(reference->sequenceEnd().safeOpenObject()->ownerId() == reference->objectId());

        second.safeOpenObject(OdDb::kForWrite)->erase();
        it = reference->attributeIterator();
        it.step();
        CPPUNIT_ASSERT(it.done());
        m_db->undo();
        CPPUNIT_ASSERT(reference->attributeIterator().done());
        CPPUNIT_ASSERT(reference->sequenceEnd().isNull());
        CPPUNIT_ASSERT_EQUAL(std::size_t(2), reference->subentities().size()); // erased, but in place
        m_db->redo();
        CPPUNIT_ASSERT(reference->attributeIterator().objectId() == first);
        CPPUNIT_ASSERT(!reference->sequenceEnd().isNull());

        CPPUNIT_ASSERT_THROW(reference->appendAttribute(first.open<OdDbAttribute>()), OdError);
        OdDbBlockReferencePtr const copy(reference->clone());
        CPPUNIT_ASSERT_EQUAL(1u, copy->numParts()); // not the erased one
        CPPUNIT_ASSERT(copy->attributeIterator().objectId().isNull());
    }

    void attributesGivenBeforehand()
    {
        auto const block = sampleBlock();
        OdDbBlockReferencePtr const reference(new OdDbBlockReference);
        reference->setBlockTableRecord(block->objectId());
        CPPUNIT_ASSERT(reference->appendAttribute(newAttribute({1, 1, 0})).isNull());
        CPPUNIT_ASSERT_EQUAL(1u, reference->numParts());
        modelSpace()->appendOdDbEntity(reference);
        CPPUNIT_ASSERT_EQUAL(1u, reference->numParts());
        OdDbObjectId const id = reference->attributeIterator().objectId();
        CPPUNIT_ASSERT(id.open<OdDbAttribute>()->layerId() == reference->layerId());
        CPPUNIT_ASSERT(!reference->sequenceEnd().isNull());
    }

    void attributesGoAlong()
    {
        auto const reference = insert(*modelSpace(), *sampleBlock(), {0, 0, 0});
        OdDbAttributePtr const attribute = newAttribute({5, 5, 0});
        reference->appendAttribute(attribute);
        OdDbAttributePtr const hidden = newAttribute({50, 50, 0});
        hidden->setInvisible(true);
        reference->appendAttribute(hidden);
        assertBox({0, 0, 0}, {6.7, 6, 0}, *reference);

        m_db->startUndoRecord();
        reference->transformBy(OdGeMatrix3d::rotation(OdaPI2, {0, 0, 1}));
        CPPUNIT_ASSERT(attribute->position() == OdGePoint3d(-5, 5, 0));
        CPPUNIT_ASSERT(hidden->position() == OdGePoint3d(-50, 50, 0));
        m_db->undo();
        CPPUNIT_ASSERT(attribute->position() == OdGePoint3d(5, 5, 0));
        assertBox({0, 0, 0}, {6.7, 6, 0}, *reference);
    }

    void attributeDefinitionsDoNotShow()
    {
        auto const block = sampleBlock(false);
        addDefinitions(*block);
        auto const reference = insert(*modelSpace(), *block, {0, 0, 0});
        CPPUNIT_ASSERT_EQUAL(1, SampledOutline(*reference).polygons);
        assertBox({-1, 0, 0}, {2, 11, 0}, *reference); // the constant one shows its value, not its tag
    }
    /// One that asks for a value, and a constant one at (0, 10) with the value "AB".
    static void addDefinitions(OdDbBlockTableRecord& block)
    {
        for (bool const isConstant : {false, true}) {
            OdDbAttributeDefinitionPtr const definition(new OdDbAttributeDefinition);
            definition->setTag(L"LONGER_TAG");
            definition->setTextString(L"AB");
            definition->setConstant(isConstant);
            definition->setPosition({0, isConstant ? 10.0 : 100.0, 0});
            block.appendOdDbEntity(definition);
        }
    }

    void selfReferenceIsRefused()
    {
        auto const block = sampleBlock();
        auto const outer = newBlock(L"Outer");
        auto const inOuter = insert(*outer, *block, {});
        try {
            inOuter->setBlockTableRecord(outer->objectId());
            CPPUNIT_FAIL("no error");
        } catch (OdError const& error) {
            CPPUNIT_ASSERT_EQUAL(eSelfReference, error.code());
        }
        CPPUNIT_ASSERT(inOuter->blockTableRecord() == block->objectId());
    }
};
CPPUNIT_TEST_SUITE_REGISTRATION(BlockReferenceTest);

} // namespace
