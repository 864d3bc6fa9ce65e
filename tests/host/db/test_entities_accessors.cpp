// Accessors work in world coordinates whatever the plane, refuse what an entity cannot be, and refuse it in time.
#include "tests/host/db/test_entities_support.h"

#include "host/db/entities/od_db_arc.h"
#include "host/db/entities/od_db_attribute_definition.h"
#include "host/db/entities/od_db_block_reference.h"
#include "host/db/entities/od_db_circle.h"
#include "host/db/entities/od_db_point.h"
#include "host/db/entities/od_db_polyline.h"
#include "host/db/entities/od_db_text.h"

namespace {

OdGeVector3d const kTilted(0.36, 0.48, 0.8);

template <class Call>
void assertError(OdResult code, Call call)
{
    try {
        call();
    } catch (OdError const& error) {
        CPPUNIT_ASSERT_EQUAL(code, error.code());
        return;
    }
    CPPUNIT_FAIL("no error");
}

void assertBox(OdGePoint3d const& low, OdGePoint3d const& high, OdDbEntity const& entity)
{
    OdGeExtents3d const box = entity.extents();
    CPPUNIT_ASSERT_DOUBLES_EQUAL(0.0, box.minPoint().distanceTo(low), 1e-9);
    CPPUNIT_ASSERT_DOUBLES_EQUAL(0.0, box.maxPoint().distanceTo(high), 1e-9);
}

class EntityAccessorsTest : public CppUnit::TestFixture
{
    CPPUNIT_TEST_SUITE(EntityAccessorsTest);
    CPPUNIT_TEST(positionsInATiltedPlane);
    CPPUNIT_TEST(aNewNormalKeepsThePosition);
    CPPUNIT_TEST(impossibleValues);
    CPPUNIT_TEST(damagedNormalsDoNoHarm);
    CPPUNIT_TEST(arcAnglesAreKept);
    CPPUNIT_TEST(polylineVertices);
    CPPUNIT_TEST(polylineWidths);
    CPPUNIT_TEST(boxes);
    CPPUNIT_TEST(textPositionFollowsItsAlignment);
    CPPUNIT_TEST(textFrames);
    CPPUNIT_TEST(shownCharacters);
    CPPUNIT_TEST_SUITE_END();

    template <class Entity, class Get, class Set>
    static void assertPosition(Get get, Set set)
    {
        OdSmartPtr<Entity> const entity(new Entity);
        entity->setNormal(kTilted);
        ((*entity).*set)({1, 2, 3});
        CPPUNIT_ASSERT_DOUBLES_EQUAL(0.0, ((*entity).*get)().distanceTo({1, 2, 3}), 1e-12);
        entity->setNormal({0, 0, -2});
        CPPUNIT_ASSERT_DOUBLES_EQUAL(0.0, ((*entity).*get)().distanceTo({1, 2, 3}), 1e-12);
        CPPUNIT_ASSERT(entity->normal() == OdGeVector3d(0, 0, -1));
        assertError(eDegenerateGeometry, [&] { entity->setNormal({0, 0, 0}); });
    }

    void positionsInATiltedPlane()
    {
        OdDbCircle circle;
        circle.setNormal(
            {1, 0, 0}); // the X axis of this plane is the world's Y axis, its Y axis the world's Z axis
        circle.setCenter({5, 1, 2});
        circle.setRadius(3);
        std::vector<std::string> const tags = writtenTags(circle);
        CPPUNIT_ASSERT_EQUAL(std::string("10 1.0 20 2.0 30 5.0"), tags[3] + ' ' + tags[4] + ' ' + tags[5]);
        assertBox({5, -2, -1}, {5, 4, 5}, circle);
    }

    void aNewNormalKeepsThePosition()
    {
        assertPosition<OdDbCircle>(&OdDbCircle::center, &OdDbCircle::setCenter);
        assertPosition<OdDbText>(&OdDbText::position, &OdDbText::setPosition);
        assertPosition<OdDbBlockReference>(&OdDbBlockReference::position, &OdDbBlockReference::setPosition);
        assertPosition<OdDbPoint>(&OdDbPoint::position, &OdDbPoint::setPosition);
    }

    void impossibleValues()
    {
        OdDbCircle circle;
        circle.setRadius(2);
        for (double const radius : {0.0, -1.0, std::numeric_limits<double>::quiet_NaN(), HUGE_VAL})
            assertError(eOutOfRange, [&] { circle.setRadius(radius); });
        CPPUNIT_ASSERT_EQUAL(2.0, circle.radius());

        OdDbText text;
        assertError(eOutOfRange, [&] { text.setHeight(0); });
        assertError(eOutOfRange, [&] { text.setWidthFactor(-1); });
        assertError(eOutOfRange, [&] { text.setOblique(OdaPI2); });
        OdDbAttributeDefinition definition;
        assertError(eInvalidName, [&] { definition.setTag(L""); });
        assertError(eInvalidName, [&] { definition.setTag(L"TWO WORDS"); });
        assertError(eOutOfRange, [&] { definition.setFieldLength(-1); });
        OdDbBlockReference reference;
        assertError(eOutOfRange, [&] { reference.setScaleFactors({1, 0, 1}); });
        assertError(eNullObjectId, [&] { reference.setBlockTableRecord({}); });
    }

    void damagedNormalsDoNoHarm()
    {
        OdDbCircle circle;
        readTags(circle,
                 {"100 AcDbCircle", "10 1.0", "20 2.0", "30 0.0", "40 1.0", "210 0.0", "220 0.0", "230 0.0"});
        assertBox({0, 1, 0}, {2, 3, 0}, circle);
        CPPUNIT_ASSERT_EQUAL(eOk, circle.transformBy(OdGeMatrix3d::translation({1, 0, 0})));
        CPPUNIT_ASSERT(circle.center() == OdGePoint3d(2, 2, 0));
    }

    void arcAnglesAreKept()
    {
        OdDbArc arc;
        arc.setStartAngle(-1);
        arc.setEndAngle(7.5);
        CPPUNIT_ASSERT_EQUAL(-1.0, arc.startAngle());
        CPPUNIT_ASSERT_EQUAL(7.5, arc.endAngle());
    }

    void polylineVertices()
    {
        OdDbPolyline polyline;
        polyline.addVertexAt(0, {1, 1});
        polyline.addVertexAt(1, {3, 1}, 0.5);
        polyline.addVertexAt(1, {2, 2});
        CPPUNIT_ASSERT(polyline.getPointAt(1) == OdGePoint2d(2, 2));
        CPPUNIT_ASSERT_EQUAL(0.5, polyline.getBulgeAt(2));
        polyline.removeVertexAt(0);
        CPPUNIT_ASSERT_EQUAL(2u, polyline.numVerts());
        polyline.setPointAt(0, {7, 8});
        CPPUNIT_ASSERT(polyline.getPointAt(0) == OdGePoint2d(7, 8));
        assertError(eInvalidIndex, [&] { polyline.getPointAt(2); });
        assertError(eInvalidIndex, [&] { polyline.addVertexAt(3, {0, 0}); });
        assertError(eInvalidIndex, [&] { polyline.removeVertexAt(2); });
        polyline.setClosed(true);
        polyline.setPlinegen(true);
        polyline.setClosed(false);
        CPPUNIT_ASSERT(!polyline.isClosed() && polyline.hasPlinegen());
    }

    void polylineWidths()
    {
        OdDbPolyline polyline;
        polyline.setConstantWidth(0.5);
        polyline.addVertexAt(0, {0, 0});
        polyline.addVertexAt(1, {1, 0});
        CPPUNIT_ASSERT_EQUAL(0.5, polyline.getConstantWidth());
        CPPUNIT_ASSERT_EQUAL(0.5, polyline.getEndWidthAt(1));
        polyline.setWidthsAt(0, 0.5, 0.5); // nothing new
        CPPUNIT_ASSERT_EQUAL(0.5, polyline.getConstantWidth());
        polyline.setWidthsAt(0, 0.25, 0);
        CPPUNIT_ASSERT_EQUAL(0.0, polyline.getConstantWidth());
        CPPUNIT_ASSERT_EQUAL(0.25, polyline.getStartWidthAt(0));
        CPPUNIT_ASSERT_EQUAL(0.0, polyline.getEndWidthAt(0));
        CPPUNIT_ASSERT_EQUAL(0.5, polyline.getStartWidthAt(1));
        assertError(eOutOfRange, [&] { polyline.setWidthsAt(0, -1, 0); });
        polyline.setConstantWidth(0);
        CPPUNIT_ASSERT(!polyline.hasWidth());
    }

    void boxes()
    {
        OdDbPolyline polyline;
        polyline.addVertexAt(0, {0, 0}, 1); // half a circle below the X axis
        polyline.addVertexAt(1, {4, 0});
        polyline.addVertexAt(2, {4, 3}, -1); // used only once the polyline is closed
        polyline.setElevation(2);
        assertBox({0, -2, 2}, {4, 3, 2}, polyline);
        polyline.setClosed(true);
        CPPUNIT_ASSERT_EQUAL(2, SampledOutline(polyline).arcs);
        // The half circle over the diagonal: center (2, 1.5), radius 2.5, from (4, 3) clockwise to (0, 0).
        assertBox({0, -2, 2}, {4.5, 3, 2}, polyline);

        OdDbArc arc;
        arc.setRadius(2);
        arc.setStartAngle(OdaPI2);
        arc.setEndAngle(0);
        assertBox({-2, -2, 0}, {2, 2, 0}, arc);
        arc.setEndAngle(OdaPI);
        assertBox({-2, 0, 0}, {0, 2, 0}, arc);

        OdDbPolyline single;
        CPPUNIT_ASSERT(!single.extents().isValidExtents());
        single.addVertexAt(0, {3, 4});
        assertBox({3, 4, 0}, {3, 4, 0}, single);
    }

    void textPositionFollowsItsAlignment()
    {
        OdDbText text;
        text.setPosition({1, 2, 0});
        text.setTextString(L"ABCD");
        CPPUNIT_ASSERT(text.position() == OdGePoint3d(1, 2, 0) && text.alignmentPoint() == OdGePoint3d());
        text.setHorizontalMode(OdDbTextHorizontalMode::kRight);
        text.setVerticalMode(OdDbTextVerticalMode::kTop);
        text.setAlignmentPoint({10, 5, 0});
        // Four characters of 0.85 at height 1.
        CPPUNIT_ASSERT(text.position() == OdGePoint3d(10 - 3.4, 4, 0));
        text.setHeight(2);
        CPPUNIT_ASSERT(text.position() == OdGePoint3d(10 - 6.8, 3, 0));
        text.setRotation(OdaPI2);
        CPPUNIT_ASSERT(text.position() == OdGePoint3d(12, 5 - 6.8, 0));
        CPPUNIT_ASSERT(text.alignmentPoint() == OdGePoint3d(10, 5, 0));
    }

    void textFrames()
    {
        OdDbText text;
        text.setTextString(L"AB");
        text.setPosition({1, 1, 0});
        assertBox({1, 1, 0}, {2.7, 2, 0}, text);
        text.setOblique(OdaPI / 4);
        assertBox({1, 1, 0}, {3.7, 2, 0}, text);
        text.setOblique(0);
        text.mirrorInX(true);
        assertBox({-0.7, 1, 0}, {1, 2, 0}, text);
        text.mirrorInX(false);
        text.setAlignmentPoint({5, 5, 0});
        text.setHorizontalMode(OdDbTextHorizontalMode::kMiddle);
        assertBox({4.15, 4.5, 0}, {5.85, 5.5, 0}, text);
        text.setHorizontalMode(OdDbTextHorizontalMode::kFit);
        text.setPosition({1, 5, 0});
        assertBox({1, 5, 0}, {5, 6, 0}, text);
        text.setTextString(L"");
        CPPUNIT_ASSERT_EQUAL(0, SampledOutline(text).polygons);
    }

    void shownCharacters()
    {
        CPPUNIT_ASSERT_EQUAL(std::size_t(5), odDbShownCharacters(L"90%%dxy"));
        CPPUNIT_ASSERT_EQUAL(std::size_t(2), odDbShownCharacters(L"%%uab%%u"));
        CPPUNIT_ASSERT_EQUAL(std::size_t(2), odDbShownCharacters(L"%%1234"));
        CPPUNIT_ASSERT_EQUAL(std::size_t(2), odDbShownCharacters(L"%%"));
    }
};
CPPUNIT_TEST_SUITE_REGISTRATION(EntityAccessorsTest);

} // namespace
