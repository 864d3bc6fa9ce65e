// Entities that were made otherwise: appended ones and transformed copies.
#include "tests/testapi/helper_fixture.h"

#include "tests/support/od_result_of.h"

namespace {

class TestHelperCopiesTest : public HelperFixture
{
    CPPUNIT_TEST_SUITE(TestHelperCopiesTest);
    CPPUNIT_TEST(appending);
    CPPUNIT_TEST(transformedCopies);
    CPPUNIT_TEST(textsWithoutStyle);
    CPPUNIT_TEST(multilineDefinitions);
    CPPUNIT_TEST(failedTransformations);
    CPPUNIT_TEST_SUITE_END();

    void appending()
    {
        OdDbDatabase& db = m_helper.db();
        for (bool const isModelActive : {true, false}) {
            db.setTILEMODE(isModelActive);
            OdDbObjectId const id = m_helper.appendEntity(new OdDbLine({1, 2, 3}, {4, 5, 6}));
            auto const line = id.open<OdDbLine>();
            CPPUNIT_ASSERT(line->ownerId() == (isModelActive ? m_model : m_paper));
            CPPUNIT_ASSERT(line->endPoint() == OdGePoint3d(4, 5, 6));
            CPPUNIT_ASSERT(!line->isWriteEnabled());
            CPPUNIT_ASSERT_EQUAL(eAlreadyInDb, odResultOf([&] { m_helper.appendEntity(line); }));
        }
        CPPUNIT_ASSERT_EQUAL(eInvalidInput, odResultOf([&] { m_helper.appendEntity(nullptr); }));
        CPPUNIT_ASSERT_EQUAL(std::size_t(1), entitiesIn(m_model));
        ta::TestHelperEx unbound;
        OdDbLinePtr const line(new OdDbLine);
        CPPUNIT_ASSERT_EQUAL(eNoDocument, odResultOf([&] { unbound.appendEntity(line); }));
    }

    void transformedCopies()
    {
        OdGeMatrix3d const moved = OdGeMatrix3d::translation({10, 20, 30});
        OdDbEntityPtr copy;
        auto const line = m_helper.createLine(m_model, {1, 2, 3}, {4, 5, 6}).open<OdDbLine>();
        ta::TestHelperEx::getTransformedCopy(line, moved, copy);
        CPPUNIT_ASSERT(!copy->isDBRO());
        CPPUNIT_ASSERT(OdDbLinePtr(copy)->startPoint() == OdGePoint3d(11, 22, 33));
        CPPUNIT_ASSERT(line->startPoint() == OdGePoint3d(1, 2, 3)); // and it was not open for writing

        auto const pline = m_helper.createPline3d(m_model, {{0, 0, 0}, {1, 0, 0}}).open<OdDb3dPolyline>();
        ta::TestHelperEx::getTransformedCopy(pline, moved, copy);
        CPPUNIT_ASSERT(copy->isA() == OdDb3dPolyline::desc());
        CPPUNIT_ASSERT_EQUAL(2U, copy->numParts());
        CPPUNIT_ASSERT(copy->extents().minPoint() == OdGePoint3d(10, 20, 30));
        CPPUNIT_ASSERT(pline->extents().minPoint() == OdGePoint3d(0, 0, 0));
        m_helper.appendEntity(copy); // fit for it
    }

    /// In the drawing they have the standard one.
    void textsWithoutStyle()
    {
        OdDbTextPtr const line(new OdDbText);
        line->setTextString(L"a");
        OdDbMTextPtr const lines(new OdDbMText);
        lines->setContents(L"a");
        for (OdDbEntity* const text :
             {static_cast<OdDbEntity*>(line.get()), static_cast<OdDbEntity*>(lines.get())}) {
            OdDbObjectId const id = m_helper.appendEntity(text);
            OdDbEntityPtr copy;
            ta::TestHelperEx::getTransformedCopy(id.open<OdDbEntity>(), OdGeMatrix3d::kIdentity, copy);
            ta::TestHelperEx::compareEntities(copy, id.open<OdDbEntity>());
        }
    }

    /// The text of one line that such a definition has too follows its multiline text.
    void multilineDefinitions()
    {
        auto const id = m_helper.createAttDef(m_block, {}, L"old", L"NOTE", L"Note?");
        auto const definition = id.open<OdDbAttributeDefinition>(OdDb::kForWrite);
        OdDbMTextPtr const text(new OdDbMText);
        text->setContents(L"new");
        text->setLocation({1, 2, 3});
        definition->setMTextAttribute(text);
        OdDbEntityPtr copy;
        ta::TestHelperEx::getTransformedCopy(definition, OdGeMatrix3d::translation({10, 20, 30}), copy);
        OdDbAttributeDefinitionPtr const moved(copy);
        CPPUNIT_ASSERT(moved->getMTextAttribute()->location() == OdGePoint3d(11, 22, 33));
        CPPUNIT_ASSERT(moved->textString() == L"new");
        CPPUNIT_ASSERT(definition->textString() == L"old");
    }

    void failedTransformations()
    {
        auto const circle = m_helper.createCircle(m_block, {}, 1).open<OdDbCircle>();
        OdDbEntityPtr const before(new OdDbLine);
        OdDbEntityPtr copy = before;
        OdGeMatrix3d flat;
        flat.setCoordSystem({}, {2, 0, 0}, {0, 1, 0}, {0, 0, 1}); // a circle would become an ellipse
        CPPUNIT_ASSERT_EQUAL(std::string("assertion failed|Expression: res == eOk|Entity transformation failed"),
                             failureOf([&] { ta::TestHelperEx::getTransformedCopy(circle, flat, copy); }));
        CPPUNIT_ASSERT(copy.get() == before.get());
        CPPUNIT_ASSERT_EQUAL(eInvalidInput, odResultOf([&] {
                                 ta::TestHelperEx::getTransformedCopy(nullptr, OdGeMatrix3d(), copy);
                             }));
    }
};
CPPUNIT_TEST_SUITE_REGISTRATION(TestHelperCopiesTest);

} // namespace
