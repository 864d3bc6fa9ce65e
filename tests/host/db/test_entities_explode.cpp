// Block references taken apart: the pieces show what the reference showed, under any scale factors.
#include "tests/host/db/test_block_fixture.h"
#include "tests/host/db/test_entities_support.h"

#include "host/db/entities/od_db_arc.h"
#include "host/db/entities/od_db_attribute_definition.h"
#include "host/db/entities/od_db_ellipse.h"
#include "host/db/entities/od_db_minsert_block.h"
#include "host/db/entities/od_db_polyline.h"
#include "host/db/entities/od_db_spline.h"
#include "host/db/entities/od_db_text.h"
#include "host/db/od_db_raw_object.h"
#include "host/db/records/od_db_layer_table_record.h"

namespace {

using Pieces = std::vector<OdDbEntityPtr>;

/// The outline of several entities.
class SampledPieces : public SampledOutline
{
public:
    explicit SampledPieces(Pieces const& pieces) : SampledOutline(OdDbSpline())
    {
        for (OdDbEntityPtr const& piece : pieces)
            piece->outline(*this);
    }
};

OdDbPolylinePtr polylineWithArc()
{
    OdDbPolylinePtr polyline(new OdDbPolyline);
    polyline->addVertexAt(0, {0, 0}, 0.5);
    polyline->addVertexAt(1, {2, 0});
    polyline->addVertexAt(2, {2, 1.5});
    return polyline;
}

class ExplodeReferenceTest : public BlockFixture
{
    CPPUNIT_TEST_SUITE(ExplodeReferenceTest);
    CPPUNIT_TEST(piecesShowTheSame);
    CPPUNIT_TEST(circlesUnderUnequalFactors);
    CPPUNIT_TEST(inheritedProperties);
    CPPUNIT_TEST(attributesAndDefinitions);
    CPPUNIT_TEST(referencesWithin);
    CPPUNIT_TEST(refusals);
    CPPUNIT_TEST(nothingIsLostSilently);
    CPPUNIT_TEST(stretching);
    CPPUNIT_TEST_SUITE_END();

    static Pieces piecesOf(OdDbBlockReference const& reference)
    {
        Pieces pieces;
        CPPUNIT_ASSERT_EQUAL(eOk, reference.explode(pieces));
        return pieces;
    }

    OdDbBlockTableRecordPtr richBlock()
    {
        auto const block = sampleBlock();
        OdSmartPtr<OdDbArc> const arc(new OdDbArc);
        arc->setCenter({5, 1, 2});
        arc->setNormal({0.6, 0, 0.8});
        arc->setStartAngle(0.5);
        arc->setEndAngle(4);
        block->appendOdDbEntity(arc);
        block->appendOdDbEntity(polylineWithArc());
        std::vector<OdGePoint3d> const points{{0, 0, 0}, {1, 3, 1}, {2, 0, 0}, {3, 1, 4}};
        block->appendOdDbEntity(new OdDbSpline(OdGeNurbCurve3d::ofControlPoints(3, points)));
        OdDbTextPtr const text(new OdDbText);
        text->setTextString(L"AB");
        text->setPosition({3, 3, 0});
        block->appendOdDbEntity(text);
        return block;
    }

    void piecesShowTheSame()
    {
        auto const block = richBlock();
        for (OdGeScale3d const& factors :
             {OdGeScale3d(1), OdGeScale3d(-2), OdGeScale3d(2, -2, 2), OdGeScale3d(2, 0.5, 1),
              OdGeScale3d(-1, 3, 0.5), OdGeScale3d(1, 1, -4)}) {
            auto const reference = insert(*modelSpace(), *block, {4, 5, 6});
            reference->setNormal({0.36, 0.48, 0.8});
            reference->setRotation(0.3);
            reference->setScaleFactors(factors);
            SampledPieces const actual(piecesOf(*reference));
            SampledOutline const expected(*reference);
            CPPUNIT_ASSERT_DOUBLES_EQUAL(0, expected.exactDistanceTo(actual), 1e-9);
            CPPUNIT_ASSERT_DOUBLES_EQUAL(0, expected.roughDistanceTo(actual), 0.3);
            CPPUNIT_ASSERT_EQUAL(1, actual.splines);
            CPPUNIT_ASSERT_EQUAL(1, actual.polygons);
        }
        CPPUNIT_ASSERT_EQUAL(std::size_t(6), block->entities().size()); // the block itself stays
    }

    void circlesUnderUnequalFactors()
    {
        auto const reference = insert(*modelSpace(), *sampleBlock(), {10, 0, 0});
        reference->setScaleFactors({3, 1, 1});
        Pieces const pieces = piecesOf(*reference);
        CPPUNIT_ASSERT_EQUAL(std::size_t(2), pieces.size());
        OdDbEllipsePtr const ellipse(pieces[1]);
        CPPUNIT_ASSERT(ellipse->center() == OdGePoint3d(13, 2, 0));
        CPPUNIT_ASSERT_DOUBLES_EQUAL(3, ellipse->majorAxis().length(), 1e-12);
        CPPUNIT_ASSERT_DOUBLES_EQUAL(1.0 / 3, ellipse->radiusRatio(), 1e-12);
        CPPUNIT_ASSERT(ellipse->isClosed());
        CPPUNIT_ASSERT(ellipse->layerId() == reference->layerId());
    }

    void inheritedProperties()
    {
        auto const layers = m_db->getLayerTableId().open<OdDbSymbolTable>(OdDb::kForWrite);
        auto const newLayer = [&](wchar_t const* name) {
            OdSmartPtr<OdDbLayerTableRecord> const layer(new OdDbLayerTableRecord);
            layer->setName(name);
            return layers->add(layer);
        };
        OdDbObjectId const walls = newLayer(L"Walls");
        OdDbObjectId const doors = newLayer(L"Doors");
        OdDbObjectId const byBlock = m_db->table(OdDbTableKind::kLinetype).getAt(L"ByBlock");
        OdDbObjectId const continuous = m_db->table(OdDbTableKind::kLinetype).getAt(L"Continuous");

        auto const block = newBlock(L"Properties");
        OdDbLinePtr const taking(new OdDbLine({0, 0, 0}, {1, 0, 0}));
        taking->setLayer(m_db->getLayerZeroId());
        taking->setColor(OdCmColor(OdCmColor::kByBlock));
        taking->setLinetype(byBlock);
        taking->setLineWeight(-2);
        OdDbLinePtr const keeping(new OdDbLine({0, 1, 0}, {1, 1, 0}));
        keeping->setLayer(doors);
        keeping->setColor(OdCmColor(3));
        block->appendOdDbEntity(taking);
        block->appendOdDbEntity(keeping);

        auto const reference = insert(*modelSpace(), *block, {0, 0, 0});
        reference->setLayer(walls);
        reference->setColor(OdCmColor(5));
        reference->setLinetype(continuous);
        reference->setLineWeight(50);
        Pieces const pieces = piecesOf(*reference);
        CPPUNIT_ASSERT(pieces[0]->layerId() == walls && pieces[1]->layerId() == doors);
        CPPUNIT_ASSERT(pieces[0]->color() == OdCmColor(5) && pieces[1]->color() == OdCmColor(3));
        CPPUNIT_ASSERT(pieces[0]->linetypeId() == continuous);
        CPPUNIT_ASSERT_EQUAL(50, pieces[0]->lineWeight());
        CPPUNIT_ASSERT(taking->layerId() == m_db->getLayerZeroId());
        CPPUNIT_ASSERT(!pieces[0]->isDBRO());
    }

    void attributesAndDefinitions()
    {
        auto const block = newBlock(L"Tagged");
        OdDbAttributeDefinitionPtr const definition(new OdDbAttributeDefinition);
        definition->setTag(L"NAME");
        definition->setTextString(L"usual");
        block->appendOdDbEntity(definition);
        auto const reference = insert(*modelSpace(), *block, {1, 1, 0});
        OdDbAttributePtr const attribute(new OdDbAttribute);
        attribute->setTag(L"NAME");
        attribute->setTextString(L"given");
        reference->appendAttribute(attribute);
        Pieces const pieces = piecesOf(*reference);
        CPPUNIT_ASSERT_EQUAL(std::size_t(1), pieces.size());
        CPPUNIT_ASSERT(OdDbAttributeDefinitionPtr(pieces[0])->textString() == L"usual");
        CPPUNIT_ASSERT(OdDbAttributeDefinitionPtr(pieces[0])->position() == OdGePoint3d(1, 1, 0));
    }

    void referencesWithin()
    {
        auto const inner = sampleBlock();
        auto const outer = newBlock(L"Outer");
        auto const straight = insert(*outer, *inner, {0, 0, 0});
        OdDbAttributePtr const attribute(new OdDbAttribute);
        attribute->setTag(L"A");
        attribute->setTextString(L"x");
        straight->appendAttribute(attribute);
        insert(*outer, *inner, {5, 0, 0})->setRotation(0.7);

        auto const equal = insert(*modelSpace(), *outer, {1, 2, 3});
        equal->setScaleFactors(OdGeScale3d(2));
        Pieces const whole = piecesOf(*equal);
        CPPUNIT_ASSERT_EQUAL(std::size_t(2), whole.size());
        CPPUNIT_ASSERT_EQUAL(1u, whole[0]->numParts());
        CPPUNIT_ASSERT(OdDbBlockReferencePtr(whole[1])->scaleFactors() == OdGeScale3d(2));

        // The turned one would be sheared: its pieces come in its place.
        auto const unequal = insert(*modelSpace(), *outer, {1, 2, 3});
        unequal->setScaleFactors({2, 1, 1});
        Pieces const apart = piecesOf(*unequal);
        CPPUNIT_ASSERT_EQUAL(std::size_t(3), apart.size());
        CPPUNIT_ASSERT(apart[0]->isA() == OdDbBlockReference::desc());
        CPPUNIT_ASSERT(apart[2]->isA() == OdDbEllipse::desc());
        CPPUNIT_ASSERT_DOUBLES_EQUAL(0, SampledOutline(*unequal).exactDistanceTo(SampledPieces(apart)), 1e-9);
    }

    void assertRefused(OdResult expected, OdDbBlockReference const& reference)
    {
        Pieces pieces;
        CPPUNIT_ASSERT_EQUAL(expected, reference.explode(pieces));
        CPPUNIT_ASSERT(pieces.empty());
    }

    void refusals()
    {
        auto const block = sampleBlock();
        assertRefused(eNotApplicable, *insert<OdDbMInsertBlock>(*modelSpace(), *block, {}));
        assertRefused(eNotApplicable, OdDbBlockReference());
        auto const reference = insert(*modelSpace(), *block, {});
        block->setExplodable(false);
        assertRefused(eNotApplicable, *reference);
        block->setExplodable(true);
        CPPUNIT_ASSERT_EQUAL(std::size_t(2), piecesOf(*reference).size());
    }

    void nothingIsLostSilently()
    {
        auto const block = sampleBlock();
        auto const reference = insert(*modelSpace(), *block, {});
        OdDbEntityPtr const unknown(new OdDbRawEntity("GADGET"));
        block->appendOdDbEntity(unknown);
        assertRefused(eNotApplicable, *reference);
        unknown->erase();
        CPPUNIT_ASSERT_EQUAL(std::size_t(2), piecesOf(*reference).size());

        reference->setScaleFactors({1, 2, 1});
        OdDbCirclePtr const cylinder(new OdDbCircle); // an ellipse has no thickness
        cylinder->setThickness(3);
        block->appendOdDbEntity(cylinder);
        assertRefused(eDegenerateGeometry, *reference);
        cylinder->erase();

        // A file can hold a block within itself; sheared, it would be taken apart for ever.
        OdDbBlockReferencePtr const loop(new OdDbBlockReference);
        readTags(*loop, {"100 AcDbEntity", "8 0", "100 AcDbBlockReference", "2 Sample", "10 5.0", "50 20.0"},
                 block->objectId());
        loop->setLayer(m_db->getLayerZeroId());
        m_db->addOdDbObject(loop, block->objectId());
        block->adopt(*loop);
        assertRefused(eSelfReference, *reference);
    }

    void stretching()
    {
        auto const reference = insert(*modelSpace(), *sampleBlock(), {1, 2, 3});
        std::vector<OdGePoint3d> points;
        reference->getStretchPoints(points);
        CPPUNIT_ASSERT(points.size() == 1 && points[0] == OdGePoint3d(1, 2, 3));
        int const first[] = {0};
        CPPUNIT_ASSERT_EQUAL(eOk, reference->moveStretchPointsAt(first, {1, 0, 0}));
        CPPUNIT_ASSERT(reference->position() == OdGePoint3d(2, 2, 3));
        int const second[] = {1};
        CPPUNIT_ASSERT_EQUAL(eInvalidIndex, reference->moveStretchPointsAt(second, {1, 0, 0}));

        OdDbText text;
        text.setTextString(L"A");
        text.setHorizontalMode(OdDbTextHorizontalMode::kRight);
        text.setAlignmentPoint({7, 8, 0});
        points.clear();
        text.getStretchPoints(points);
        CPPUNIT_ASSERT(points.size() == 1 && points[0] == OdGePoint3d(7, 8, 0));
        CPPUNIT_ASSERT_EQUAL(eOk, text.moveStretchPointsAt(first, {0, 1, 0}));
        CPPUNIT_ASSERT(text.alignmentPoint() == OdGePoint3d(7, 9, 0));
    }
};
CPPUNIT_TEST_SUITE_REGISTRATION(ExplodeReferenceTest);

} // namespace
