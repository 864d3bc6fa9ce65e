// The properties that each function sets, and what it refuses.
#include "tests/testapi/helper_fixture.h"

#include "tests/support/od_result_of.h"

#include <array>

namespace {

constexpr double kNear = 1e-9;

class TestHelperCreateValuesTest : public HelperFixture
{
    CPPUNIT_TEST_SUITE(TestHelperCreateValuesTest);
    CPPUNIT_TEST(curves);
    CPPUNIT_TEST(ellipses);
    CPPUNIT_TEST(splines);
    CPPUNIT_TEST(quads);
    CPPUNIT_TEST(meshes);
    CPPUNIT_TEST(texts);
    CPPUNIT_TEST(blocks);
    CPPUNIT_TEST(inserts);
    CPPUNIT_TEST(refusedValues);
    CPPUNIT_TEST_SUITE_END();

    static void assertPoint(OdGePoint3d const& expected, OdGePoint3d const& found)
    {
        CPPUNIT_ASSERT_MESSAGE(odFormat(L"(%g %g %g)", found.x, found.y, found.z).toUtf8(),
                               expected.isEqualTo(found, kNear));
    }
    template <class Entity, std::size_t Count>
    static void assertCorners(OdDbObjectId id, OdGePoint3d const (&corners)[Count])
    {
        auto const entity = id.open<Entity>();
        for (int i = 0; i < static_cast<int>(Count); ++i)
            assertPoint(corners[i], entity->getPointAt(i));
    }

    void curves()
    {
        auto const line = m_helper.createLine(m_model, {1, 2, 3}, {4, 5, 6}).open<OdDbLine>();
        assertPoint({1, 2, 3}, line->startPoint());
        assertPoint({4, 5, 6}, line->endPoint());
        // The center is one of the world, although the circle lies in the plane of the coordinate system.
        auto const arc = m_helper.createArc(m_model, {1, 2, 3}, 4, -1, 7).open<OdDbArc>();
        assertPoint({1, 2, 3}, arc->center());
        CPPUNIT_ASSERT_EQUAL(4.0, arc->radius());
        CPPUNIT_ASSERT_EQUAL(-1.0, arc->startAngle());
        CPPUNIT_ASSERT_EQUAL(7.0, arc->endAngle());
        auto const circle = m_helper.createCircle(m_block, {1, 2, 3}, 4).open<OdDbCircle>();
        assertPoint({1, 2, 3}, circle->center());
        CPPUNIT_ASSERT_EQUAL(4.0, circle->radius());
        auto const xline = m_helper.createXline(m_model, {1, 2, 3}, {0, 3, 4}).open<OdDbXline>();
        assertPoint({1, 2, 3}, xline->basePoint());
        CPPUNIT_ASSERT(xline->unitDir() == OdGeVector3d(0, .6, .8));
        auto const ray = m_helper.createRay(m_model, {1, 2, 3}, {0, -3, 4}).open<OdDbRay>();
        assertPoint({1, 2, 3}, ray->basePoint());
        CPPUNIT_ASSERT(ray->unitDir() == OdGeVector3d(0, -.6, .8));
        auto const pline = m_helper.createPline3d(m_model, {{1, 2, 3}, {4, 5, 6}, {7, 8, 0}}, true);
        CPPUNIT_ASSERT(pline.open<OdDb3dPolyline>()->isClosed());
        CPPUNIT_ASSERT_EQUAL(3U, pline.open<OdDb3dPolyline>()->numParts());
        assertPoint({1, 2, 3}, m_helper.createPoint(m_model, {1, 2, 3}).open<OdDbPoint>()->position());
    }

    void ellipses()
    {
        OdGeVector3d const normal(2, 0, 0); // the direction in which new ellipses extend
        auto const id = m_helper.createEllipse(m_model, {1, 2, 3}, {0, 6, 8}, .25, 1, 2, &normal);
        auto const ellipse = id.open<OdDbEllipse>();
        assertPoint({1, 2, 3}, ellipse->center());
        CPPUNIT_ASSERT(ellipse->normal() == OdGeVector3d::kXAxis);
        CPPUNIT_ASSERT(ellipse->majorAxis() == OdGeVector3d(0, 6, 8));
        CPPUNIT_ASSERT_EQUAL(.25, ellipse->radiusRatio());
        double start = 0, end = 0;
        ellipse->getStartParam(start);
        ellipse->getEndParam(end);
        CPPUNIT_ASSERT_EQUAL(1.0, start);
        CPPUNIT_ASSERT_EQUAL(2.0, end);
        auto const whole = m_helper.createEllipse(m_block, {}, {3, 0, 0}, 1).open<OdDbEllipse>();
        CPPUNIT_ASSERT(whole->isClosed());
    }

    void splines()
    {
        OdGeKnotVector const knots({0, 0, 0, 1, 1, 1});
        OdGeDoubleArray const weights = {1, 2, 1};
        OdGePoint3dArray const points = {{1, 0, 0}, {1, 1, 0}, {0, 1, 0}};
        auto const id = m_helper.createSpline(m_model, 2, true, false, points, knots, &weights, 1e-5);
        auto const spline = id.open<OdDbSpline>();
        CPPUNIT_ASSERT_EQUAL(2, spline->degree());
        CPPUNIT_ASSERT(spline->isRational());
        CPPUNIT_ASSERT_EQUAL(2.0, spline->weightAt(1));
        assertPoint({1, 1, 0}, spline->getControlPointAt(1));
    }

    void quads()
    {
        OdGePoint3d const corners[] = {{0, 0, 1}, {4, 0, 2}, {0, 3, 3}, {4, 3, 4}}; // of no common height
        for (OdDbObjectId const owner : {m_model, m_block}) {
            assertCorners<OdDbTrace>(m_helper.createTrace(owner, corners), corners);
            assertCorners<OdDbSolid>(m_helper.createSolid(owner, corners), corners);
        }
    }

    void meshes()
    {
        OdGePoint3d const points[] = {{0, 0, 0}, {1, 0, 0}, {0, 1, 0}, {1, 1, 0}, {0, 2, 5}, {1, 2, 6}};
        for (bool const mClosed : {false, true}) {
            auto const mesh =
                m_helper.createPgMesh(m_model, points, 3, 2, mClosed, !mClosed).open<OdDbPolygonMesh>();
            CPPUNIT_ASSERT_EQUAL(3, mesh->mSize());
            CPPUNIT_ASSERT_EQUAL(2, mesh->nSize());
            CPPUNIT_ASSERT_EQUAL(mClosed, mesh->isMClosed());
            CPPUNIT_ASSERT_EQUAL(!mClosed, mesh->isNClosed());
            CPPUNIT_ASSERT_EQUAL(6U, mesh->numParts());
            OdDbPartIterator it = mesh->partIterator();
            for (OdGePoint3d const& point : points) {
                assertPoint(point, static_cast<OdDbPolygonMeshVertex const&>(it.peek()).position());
                it.step();
            }
        }
    }

    void texts()
    {
        auto const text = m_helper.createText(m_model, {1, 2, 3}, L"Größe").open<OdDbText>();
        assertPoint({1, 2, 3}, text->position());
        CPPUNIT_ASSERT(text->textString() == L"Größe");
        CPPUNIT_ASSERT(text->textStyle() == m_helper.db().getTEXTSTYLE());
        auto const id = m_helper.createAttDef(m_block, {1, 2, 3}, L"none", L"NAME", L"Which name?");
        auto const definition = id.open<OdDbAttributeDefinition>();
        assertPoint({1, 2, 3}, definition->position());
        CPPUNIT_ASSERT(definition->textString() == L"none");
        CPPUNIT_ASSERT(definition->tag() == L"NAME");
        CPPUNIT_ASSERT(definition->prompt() == L"Which name?");
        CPPUNIT_ASSERT(!definition->isInvisible());
    }

    void blocks()
    {
        auto const block = m_block.open<OdDbBlockTableRecord>();
        CPPUNIT_ASSERT(block->getName() == L"Sample");
        assertPoint({1, 2, 3}, block->origin());
        CPPUNIT_ASSERT(!block->isWriteEnabled());
        CPPUNIT_ASSERT(m_helper.db().table(OdDbTableKind::kBlock).getAt(L"sample") == m_block);
        std::size_t const before = m_blocks.open<OdDbSymbolTable>()->records().size();
        auto const refusal = [this](OdDbObjectId owner, OdString const& name) {
            return odResultOf([&] { m_helper.createBTR(owner, name); });
        };
        CPPUNIT_ASSERT_EQUAL(eDuplicateKey, refusal(m_blocks, L"SAMPLE"));
        CPPUNIT_ASSERT_EQUAL(eInvalidName, refusal(m_blocks, L"a|b"));
        CPPUNIT_ASSERT_EQUAL(eInvalidInput, refusal(m_helper.db().getLayerTableId(), L"New"));
        CPPUNIT_ASSERT_EQUAL(eNotThatKindOfClass, refusal(m_model, L"New"));
        CPPUNIT_ASSERT_EQUAL(eNullObjectId, refusal({}, L"New"));
        CPPUNIT_ASSERT_EQUAL(before, m_blocks.open<OdDbSymbolTable>()->records().size());
    }

    void inserts()
    {
        OdGeVector3d const normal(0, 0, -2);
        auto const id = m_helper.createMinsert(m_model, m_block, {1, 2, 3}, .5, &normal, {1, 2, 3}, 4, 5, 6, -7);
        auto const grid = id.open<OdDbMInsertBlock>();
        CPPUNIT_ASSERT(grid->blockTableRecord() == m_block);
        assertPoint({1, 2, 3}, grid->position());
        CPPUNIT_ASSERT_EQUAL(.5, grid->rotation());
        CPPUNIT_ASSERT(grid->scaleFactors().isEqualTo({1, 2, 3}));
        CPPUNIT_ASSERT_EQUAL(4, grid->columns());
        CPPUNIT_ASSERT_EQUAL(5, grid->rows());
        CPPUNIT_ASSERT_EQUAL(6.0, grid->columnSpacing());
        CPPUNIT_ASSERT_EQUAL(-7.0, grid->rowSpacing());
        for (bool const isModelActive : {true, false}) {
            m_helper.db().setTILEMODE(isModelActive);
            auto const shown = m_helper.createInsert(m_block, {1, 2, 3}, .5).open<OdDbBlockReference>();
            CPPUNIT_ASSERT(shown->ownerId() == (isModelActive ? m_model : m_paper));
            CPPUNIT_ASSERT(shown->normal() == OdGeVector3d::kZAxis);
            CPPUNIT_ASSERT_EQUAL(.5, shown->rotation());
            CPPUNIT_ASSERT(shown->scaleFactors().isEqualTo({1, 1, 1}));
        }
        OdDbDatabasePtr const other(new OdDbDatabase);
        auto const refusal = [this](OdDbObjectId owner, OdDbObjectId block, OdGeScale3d const& scale) {
            return odResultOf([&] { m_helper.createInsert(owner, block, {}, 0, nullptr, scale); });
        };
        CPPUNIT_ASSERT_EQUAL(eSelfReference, refusal(m_block, m_block, {}));
        CPPUNIT_ASSERT_EQUAL(eOutOfRange, refusal(m_model, m_block, {1, 0, 1}));
        CPPUNIT_ASSERT_EQUAL(eWrongDatabase, refusal(other->getModelSpaceId(), m_block, {}));
        CPPUNIT_ASSERT_EQUAL(eNullObjectId, refusal(m_model, {}, {}));
        CPPUNIT_ASSERT_EQUAL(eNullObjectId, odResultOf([&] { m_helper.createInsert({}, OdGePoint3d()); }));
        CPPUNIT_ASSERT_EQUAL(std::size_t(0), entitiesIn(m_block));
        CPPUNIT_ASSERT_EQUAL(std::size_t(0), entitiesIn(other->getModelSpaceId()));
    }

    void refusedValues()
    {
        OdGePoint3d const points[4];
        OdGeVector3d const zero;
        OdGeDoubleArray const three = {1, 2, 3};
        // clang-format off
        struct { OdResult expected; OdResult found; } const cases[] = {
            {eOutOfRange,         odResultOf([&] { m_helper.createCircle(m_model, {}, 0); })},
            {eOutOfRange,         odResultOf([&] { m_helper.createArc(m_model, {}, -1, 0, 1); })},
            {eDegenerateGeometry, odResultOf([&] { m_helper.createXline(m_model, {}, zero); })},
            {eDegenerateGeometry, odResultOf([&] { m_helper.createRay(m_model, {}, zero); })},
            {eOutOfRange,         odResultOf([&] { m_helper.createPgMesh(m_model, points, 1, 4); })},
            {eInvalidInput,       odResultOf([&] { m_helper.createPgMesh(m_model, nullptr, 2, 2); })},
            {eInvalidInput,       odResultOf([&] { m_helper.createTrace(m_model, nullptr); })},
            {eOutOfRange,         odResultOf([&] { m_helper.createEllipse(m_model, {}, {1, 0, 0}, 2); })},
            {eDegenerateGeometry, odResultOf([&] { m_helper.createEllipse(m_model, {}, s_ucsNormal * 3, .5); })},
            {eInvalidName,        odResultOf([&] { m_helper.createAttDef(m_model, {}, L"", L"a b", L""); })},
            {eInvalidInput,       odResultOf([&] { m_helper.createPline(m_model, {{1, 2}}, &three); })},
            {eInvalidInput,       odResultOf([&] { m_helper.createPline(m_block, {{1, 2}}, &three, true); })},
            {eInvalidInput,       odResultOf([&] {
                m_helper.createSpline(m_model, 3, false, false, {{0, 0, 0}}, OdGeKnotVector({0, 1})); })},
            {eOutOfRange,         odResultOf([&] {
                m_helper.createMinsert(m_model, m_block, {}, 0, nullptr, {}, 0, 1, 1, 1); })},
        };
        // clang-format on
        for (auto const& each : cases)
            CPPUNIT_ASSERT_EQUAL_MESSAGE("case " + std::to_string(&each - cases), each.expected, each.found);
        CPPUNIT_ASSERT_EQUAL(std::size_t(0), entitiesIn(m_model));
        CPPUNIT_ASSERT_EQUAL(std::size_t(0), entitiesIn(m_block));
    }
};
CPPUNIT_TEST_SUITE_REGISTRATION(TestHelperCreateValuesTest);

} // namespace
