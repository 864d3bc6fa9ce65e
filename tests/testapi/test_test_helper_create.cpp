// What all functions that create entities have in common: owner, class, current properties, normal, errors.
#include "tests/testapi/helper_fixture.h"

#include "host/db/records/od_db_layer_table_record.h"
#include "testapi/ta_test_helper_create.h"
#include "tests/support/od_result_of.h"

namespace {

using Helper = ta::TestHelperEx;
using Id = OdDbObjectId;
using Normal = OdGeVector3d const*;

OdGePoint3d const kCorners[] = {{0, 0, 0}, {1, 0, 0}, {0, 1, 0}, {1, 1, 0}};

/// What an entity has for a normal where none was given.
enum class EDefault
{
    kNoNormal,
    kZAxis,
    kOfUcsInLayouts
};

/// One call of a function with arguments that it takes.
struct Function
{
    char const* name;
    OdRxClass::DescFunction desc;
    EDefault normal;
    Id (*create)(Helper&, Id owner, Normal);
    OdGeVector3d (*normalOf)(OdDbEntity const&);
};

template <class Entity>
OdGeVector3d normalOf(OdDbEntity const& entity)
{
    if constexpr (requires(Entity const& known) { known.normal(); })
        return static_cast<Entity const&>(entity).normal();
    else
        return {};
}

template <class Entity>
Function of(char const* name, EDefault normal, Id (*create)(Helper&, Id owner, Normal))
{
    return {name, &Entity::desc, normal, create, &normalOf<Entity>};
}

Id sample(Helper& h)
{
    return h.db().table(OdDbTableKind::kBlock).getAt(L"Inserted");
}

// clang-format off
using enum EDefault;
Function const kFunctions[] = {
    of<OdDbLine>("line", kZAxis,
     [](Helper& h, Id o, Normal n) { return h.createLine(o, {1, 2, 3}, {4, 5, 6}, n); }),
    of<OdDbMInsertBlock>("minsert", kZAxis,
     [](Helper& h, Id o, Normal n) { return h.createMinsert(o, sample(h), {}, 0, n, {}, 2, 3, 4, 5); }),
    of<OdDbBlockReference>("insert", kZAxis,
     [](Helper& h, Id o, Normal n) { return h.createInsert(o, sample(h), {}, 0, n, {}); }),
    of<OdDbPolyline>("lightweight polyline", kOfUcsInLayouts,
     [](Helper& h, Id o, Normal n) { return h.createPline(o, {{1, 2}, {3, 4}}, nullptr, false, false, n); }),
    of<OdDb2dPolyline>("2D polyline", kOfUcsInLayouts,
     [](Helper& h, Id o, Normal n) { return h.createPline(o, {{1, 2}, {3, 4}}, nullptr, true, false, n); }),
    of<OdDb3dPolyline>("3D polyline", kNoNormal,
     [](Helper& h, Id o, Normal) { return h.createPline3d(o, {{1, 2, 3}, {3, 4, 5}}); }),
    of<OdDbArc>("arc", kOfUcsInLayouts,
     [](Helper& h, Id o, Normal n) { return h.createArc(o, {1, 2, 3}, 4, 1, 2, n); }),
    of<OdDbCircle>("circle", kOfUcsInLayouts,
     [](Helper& h, Id o, Normal n) { return h.createCircle(o, {1, 2, 3}, 4, n); }),
    of<OdDbXline>("xline", kNoNormal,
     [](Helper& h, Id o, Normal) { return h.createXline(o, {1, 2, 3}, {0, 2, 0}); }),
    of<OdDbRay>("ray", kNoNormal,
     [](Helper& h, Id o, Normal) { return h.createRay(o, {1, 2, 3}, {0, 2, 0}); }),
    of<OdDbPolygonMesh>("mesh", kNoNormal,
     [](Helper& h, Id o, Normal) { return h.createPgMesh(o, kCorners, 2, 2); }),
    of<OdDbTrace>("trace", kOfUcsInLayouts,
     [](Helper& h, Id o, Normal n) { return h.createTrace(o, kCorners, n); }),
    of<OdDbSolid>("solid", kOfUcsInLayouts,
     [](Helper& h, Id o, Normal n) { return h.createSolid(o, kCorners, n); }),
    of<OdDbPoint>("point", kOfUcsInLayouts,
     [](Helper& h, Id o, Normal n) { return h.createPoint(o, {1, 2, 3}, n); }),
    of<OdDbEllipse>("ellipse", kOfUcsInLayouts,
     [](Helper& h, Id o, Normal n) { return h.createEllipse(o, {1, 2, 3}, {2, 1, 0}, .5, 0, 1, n); }),
    of<OdDbSpline>("spline", kNoNormal,
     [](Helper& h, Id o, Normal) {
         return h.createSpline(o, 1, false, false, {{0, 0, 0}, {3, 4, 0}}, OdGeKnotVector({0, 0, 1, 1}));
     }),
    of<OdDbText>("text", kOfUcsInLayouts,
     [](Helper& h, Id o, Normal n) { return h.createText(o, {1, 2, 3}, L"text", n); }),
    of<OdDbAttributeDefinition>("attribute definition", kOfUcsInLayouts,
     [](Helper& h, Id o, Normal n) { return h.createAttDef(o, {1, 2, 3}, L"none", L"TAG", L"Tag?", n); }),
};
// clang-format on

class TestHelperCreateTest : public HelperFixture
{
    CPPUNIT_TEST_SUITE(TestHelperCreateTest);
    CPPUNIT_TEST(ownersAndNormals);
    CPPUNIT_TEST(currentProperties);
    CPPUNIT_TEST(refusedOwnersAndNormals);
    CPPUNIT_TEST(classesThatCannotBeCreated);
    CPPUNIT_TEST_SUITE_END();

public:
    void setUp() override
    {
        HelperFixture::setUp();
        m_helper.createBTR(m_blocks, L"Inserted");
    }

private:
    void ownersAndNormals()
    {
        OdGeVector3d const given(0, 3, 4);
        for (Function const& function : kFunctions)
            for (OdDbObjectId const owner : {m_model, m_paper, m_block})
                for (OdGeVector3d const* const normal : {static_cast<OdGeVector3d const*>(nullptr), &given})
                    assertCreated(function, owner, normal);
    }

    void assertCreated(Function const& function, OdDbObjectId owner, OdGeVector3d const* normal)
    {
        std::size_t const before = entitiesIn(owner);
        OdDbObjectId const id = function.create(m_helper, owner, normal);
        CPPUNIT_ASSERT_EQUAL_MESSAGE(function.name, before + 1, entitiesIn(owner));
        OdDbEntityPtr const entity = id.open<OdDbEntity>();
        CPPUNIT_ASSERT_MESSAGE(function.name, entity->isA() == function.desc());
        CPPUNIT_ASSERT_MESSAGE(function.name, entity->ownerId() == owner);
        CPPUNIT_ASSERT_MESSAGE(function.name, !entity->isWriteEnabled());
        CPPUNIT_ASSERT_MESSAGE(function.name, !owner.openObject()->isWriteEnabled());
        if (function.normal == kNoNormal)
            return;
        bool const followsUcs = function.normal == kOfUcsInLayouts && owner != m_block;
        OdGeVector3d const byDefault = followsUcs ? s_ucsNormal : OdGeVector3d::kZAxis;
        CPPUNIT_ASSERT_MESSAGE(function.name,
                               function.normalOf(*entity) == (normal ? OdGeVector3d(0, .6, .8) : byDefault));
    }

    void currentProperties()
    {
        OdDbDatabase& db = m_helper.db();
        OdSmartPtr<OdDbLayerTableRecord> const layer(new OdDbLayerTableRecord);
        layer->setName(L"Current");
        OdDbObjectId const layerId = db.getLayerTableId().open<OdDbSymbolTable>(OdDb::kForWrite)->add(layer);
        db.setCurrent(OdDbTableKind::kLayer, layerId);
        db.setCECOLOR(OdCmColor(3));
        db.setHeaderReal("CELTSCALE", 40, 2.5);
        db.setHeaderInteger("CELWEIGHT", 370, 50);
        for (Function const& function : kFunctions) {
            auto const entity = function.create(m_helper, m_model, nullptr).open<OdDbEntity>();
            assertCurrent(function.name, *entity, layerId);
            for (OdDbPartIterator it = entity->partIterator(); !it.done(); it.step())
                assertCurrent(function.name, it.peek(), layerId);
        }
    }

    static void assertCurrent(char const* name, OdDbEntity const& entity, OdDbObjectId layer)
    {
        CPPUNIT_ASSERT_MESSAGE(name, entity.layerId() == layer);
        CPPUNIT_ASSERT_MESSAGE(name, entity.color() == OdCmColor(3));
        CPPUNIT_ASSERT_EQUAL_MESSAGE(name, 2.5, entity.linetypeScale());
        CPPUNIT_ASSERT_EQUAL_MESSAGE(name, 50, entity.lineWeight());
    }

    void refusedOwnersAndNormals()
    {
        OdDbObjectId const layer = m_helper.db().getLayerZeroId();
        OdDbObjectId const erased = m_helper.createBTR(m_blocks, L"Erased");
        erased.safeOpenObject(OdDb::kForWrite)->erase();
        OdGeVector3d const zero;
        OdGeVector3d const endless(0, 0, std::numeric_limits<double>::infinity());
        for (Function const& function : kFunctions) {
            try {
                function.create(m_helper, layer, nullptr);
                CPPUNIT_FAIL(std::string(function.name) + ": a layer owns no entities");
            } catch (OdError_NotThatKindOfClass const& error) {
                CPPUNIT_ASSERT(error.fromClass() == OdDbLayerTableRecord::desc());
                CPPUNIT_ASSERT(error.toClass() == OdDbBlockTableRecord::desc());
            }
            assertRefused(eNullObjectId, function, {}, nullptr);
            assertRefused(eWasErased, function, erased, nullptr);
            if (function.normal == kNoNormal)
                continue;
            std::size_t const before = entitiesIn(m_model);
            OdDbHandle const nextHandle = m_helper.db().handseed();
            assertRefused(eDegenerateGeometry, function, m_model, &zero);
            assertRefused(eDegenerateGeometry, function, m_block, &endless);
            CPPUNIT_ASSERT_EQUAL_MESSAGE(function.name, before, entitiesIn(m_model));
            CPPUNIT_ASSERT_MESSAGE(function.name, m_helper.db().handseed() == nextHandle);
        }
        CPPUNIT_ASSERT_EQUAL(std::size_t(0), entitiesIn(m_block));
        CPPUNIT_ASSERT(!layer.openObject()->isWriteEnabled());
    }

    void assertRefused(OdResult expected, Function const& function, OdDbObjectId owner, OdGeVector3d const* normal)
    {
        OdResult const result = odResultOf([&] { function.create(m_helper, owner, normal); });
        CPPUNIT_ASSERT_EQUAL_MESSAGE(function.name, expected, result);
    }

    void classesThatCannotBeCreated()
    {
        auto const nothing = [](OdDbEntity&) {};
        CPPUNIT_ASSERT_EQUAL(eCreationFailed, odResultOf([&] { ta::createEntity<OdDbCurve>(m_model, nothing); }));
        CPPUNIT_ASSERT_EQUAL(255, static_cast<int>(eCreationFailed));
    }
};
CPPUNIT_TEST_SUITE_REGISTRATION(TestHelperCreateTest);

} // namespace
