// Transforming an entity moves its outline exactly as transforming the outline does, or is refused and changes
// nothing.
#include "tests/host/db/test_entities_support.h"

#include "host/db/entities/od_db_arc.h"
#include "host/db/entities/od_db_attribute_definition.h"
#include "host/db/entities/od_db_circle.h"
#include "host/db/entities/od_db_line.h"
#include "host/db/entities/od_db_point.h"
#include "host/db/entities/od_db_polyline.h"
#include "host/db/entities/od_db_text.h"

namespace {

OdGeVector3d const kTilted(0.36, 0.48, 0.8);
OdGeVector3d const kZ(0, 0, 1);

OdDbEntityPtr circle(OdGeVector3d const& normal)
{
    OdDbCirclePtr const entity(new OdDbCircle);
    entity->setNormal(normal);
    entity->setCenter({1, 2, 3});
    entity->setRadius(1.5);
    return entity;
}

OdDbEntityPtr arc(OdGeVector3d const& normal)
{
    OdDbArcPtr const entity(new OdDbArc);
    entity->setNormal(normal);
    entity->setCenter({1, -2, 0.5});
    entity->setStartAngle(5.5);
    entity->setEndAngle(1.25);
    return entity;
}

OdDbEntityPtr polyline(OdGeVector3d const& normal, double bulge)
{
    OdDbPolylinePtr const entity(new OdDbPolyline);
    entity->setNormal(normal);
    entity->setElevation(2);
    entity->addVertexAt(0, {0, 0}, bulge);
    entity->addVertexAt(1, {2, 0});
    entity->addVertexAt(2, {2, 1.5}, -2 * bulge);
    entity->setClosed(true);
    return entity;
}

OdDbEntityPtr text(OdGeVector3d const& normal, OdDbTextHorizontalMode mode, double oblique)
{
    OdDbTextPtr const entity(new OdDbText);
    entity->setNormal(normal);
    entity->setTextString(L"Slab");
    entity->setHeight(0.5);
    entity->setRotation(0.4);
    entity->setOblique(oblique);
    entity->setWidthFactor(0.8);
    entity->mirrorInY(mode == OdDbTextHorizontalMode::kRight);
    entity->setPosition({1, 2, 3});
    entity->setHorizontalMode(mode);
    if (mode != OdDbTextHorizontalMode::kLeft)
        entity->setAlignmentPoint({4, 3, 2});
    return entity;
}

OdDbEntityPtr pointAt(OdGeVector3d const& normal)
{
    OdSmartPtr<OdDbPoint> const entity(new OdDbPoint({1, 2, 3}));
    entity->setNormal(normal);
    return entity;
}

struct Case
{
    char const* name;
    OdDbEntityPtr entity;
};

std::vector<Case> entities()
{
    using enum OdDbTextHorizontalMode;
    return {{"circle", circle(kZ)},
            {"tilted circle", circle(kTilted)},
            {"arc", arc(kZ)},
            {"tilted arc", arc(kTilted)},
            {"arc seen from below", arc(-kZ)},
            {"straight polyline", polyline(kZ, 0)},
            {"polyline with arcs", polyline(kZ, 0.5)},
            {"tilted polyline with arcs", polyline(kTilted, 1.5)},
            {"text", text(kZ, kLeft, 0.3)},
            {"tilted right text", text(kTilted, kRight, -0.2)},
            {"middle text", text(kZ, kMiddle, 0)},
            {"tilted fitted text", text(kTilted, kFit, 0)},
            {"aligned text", text(kZ, kAligned, 0)},
            {"point", pointAt(kTilted)},
            {"line", OdDbEntityPtr(new OdDbLine({1, 2, 3}, {4, 6, 8}))}};
}

struct NamedMatrix
{
    char const* name;
    OdGeMatrix3d matrix;
};

std::vector<NamedMatrix> similarities()
{
    OdGeMatrix3d const turn = OdGeMatrix3d::rotation(0.7, {1, 2, -1}, {3, 1, 2});
    return {{"move", OdGeMatrix3d::translation({5, -3, 2})},
            {"turn about Z", OdGeMatrix3d::rotation(2.5, kZ, {1, 1, 0})},
            {"turn in space", turn},
            {"turn over", OdGeMatrix3d::rotation(OdaPI, {1, 0, 0})},
            {"scale", OdGeMatrix3d::scaling(2.5, {1, 1, 1})},
            {"mirror left and right", OdGeMatrix3d::mirroringAtPlane({2, 0, 0}, {1, 0, 0})},
            {"mirror up and down", OdGeMatrix3d::mirroringAtPlane({0, 2, 0}, {0, 1, 0})},
            {"mirror below", OdGeMatrix3d::mirroringAtPlane({0, 0, 1}, kZ)},
            {"mirror at a slanting plane", OdGeMatrix3d::mirroringAtPlane({1, 0, 1}, {1, 2, 2})},
            {"mirror at a point", OdGeMatrix3d::mirroringAtPoint({1, 2, 3})},
            {"turn, scale, mirror",
             turn * OdGeMatrix3d::scaling(0.3) * OdGeMatrix3d::mirroringAtPlane({}, {1, 1, 0})}};
}

void assertMoved(std::string const& what, OdDbEntity& entity, OdGeMatrix3d const& matrix)
{
    OdDbEntityPtr const before(entity.clone());
    CPPUNIT_ASSERT_EQUAL_MESSAGE(what, eOk, entity.transformBy(matrix));
    SampledOutline const expected(*before, matrix);
    SampledOutline const actual(entity);
    CPPUNIT_ASSERT_DOUBLES_EQUAL_MESSAGE(what, 0.0, expected.exactDistanceTo(actual), 1e-9);
    // Half of the distance between the places on the greatest circle.
    CPPUNIT_ASSERT_DOUBLES_EQUAL_MESSAGE(what, 0.0, expected.roughDistanceTo(actual), 0.2);
}

void assertRefused(std::string const& what, OdDbEntity& entity, OdGeMatrix3d const& matrix)
{
    std::string const before = joined(writtenTags(entity));
    CPPUNIT_ASSERT_EQUAL_MESSAGE(what, eDegenerateGeometry, entity.transformBy(matrix));
    CPPUNIT_ASSERT_EQUAL_MESSAGE(what, before, joined(writtenTags(entity)));
}

class EntityTransformTest : public CppUnit::TestFixture
{
    CPPUNIT_TEST_SUITE(EntityTransformTest);
    CPPUNIT_TEST(similaritiesMoveTheOutline);
    CPPUNIT_TEST(stretching);
    CPPUNIT_TEST(collapsing);
    CPPUNIT_TEST(movingChangesPositionsOnly);
    CPPUNIT_TEST(mirroringKeepsPlanesAndReadability);
    CPPUNIT_TEST(fullTurnStaysFull);
    CPPUNIT_TEST(thicknessAndWidthsGrow);
    CPPUNIT_TEST_SUITE_END();

    void similaritiesMoveTheOutline()
    {
        for (NamedMatrix const& each : similarities())
            for (Case const& one : entities())
                assertMoved(std::string(one.name) + ": " + each.name, *one.entity, each.matrix);
    }

    void stretching()
    {
        OdGeMatrix3d const stretch = OdGeMatrix3d::scaling(OdGeScale3d(2, 0.5, 1));
        OdGeMatrix3d const mirrored = OdGeMatrix3d::scaling(OdGeScale3d(-3, 1, 2));
        for (OdGeMatrix3d const& matrix : {stretch, mirrored}) {
            assertMoved("polyline", *polyline(kTilted, 0), matrix);
            assertMoved("text", *text(kTilted, OdDbTextHorizontalMode::kLeft, 0.3), matrix);
            assertMoved("point", *pointAt(kTilted), matrix);
            assertRefused("circle", *circle(kZ), matrix);
            assertRefused("arc", *arc(kTilted), matrix);
            assertRefused("polyline with arcs", *polyline(kZ, 0.5), matrix);
        }
        OdSmartPtr<OdDbPolyline> const wide(polyline(kZ, 0));
        wide->setConstantWidth(0.5);
        assertRefused("wide polyline", *wide, stretch);
        // What happens across the plane does not touch the shape within it.
        assertMoved("circle", *circle(kZ), OdGeMatrix3d::scaling(OdGeScale3d(2, 2, 5)));
    }

    void collapsing()
    {
        OdGeMatrix3d const flat = OdGeMatrix3d::scaling(OdGeScale3d(1, 0, 1));
        for (OdDbEntityPtr const& each :
             {circle(kZ), arc(kZ), polyline(kZ, 0), polyline(kZ, 1), text(kZ, OdDbTextHorizontalMode::kLeft, 0)})
            assertRefused("flat", *each, flat);
        OdGeMatrix3d noNumber;
        noNumber.entry[0][0] = std::numeric_limits<double>::quiet_NaN();
        assertRefused("no number", *circle(kZ), noNumber);
    }

    void movingChangesPositionsOnly()
    {
        OdDbText moved;
        readTags(moved, {"100 AcDbText", "10 1.0", "20 2.0", "30 0.0", "40 0.2", "1 A", "50 33.3", "51 0.1",
                         "210 0.1", "220 0.7", "230 0.7"});
        std::vector<std::string> const before = writtenTags(moved);
        CPPUNIT_ASSERT_EQUAL(eOk, moved.transformBy(OdGeMatrix3d::translation({1, 2, 3})));
        std::vector<std::string> const after = writtenTags(moved);
        CPPUNIT_ASSERT_EQUAL(before.size(), after.size());
        for (std::size_t i = 0; i < before.size(); ++i) {
            bool const isPosition =
                before[i].starts_with("10 ") || before[i].starts_with("20 ") || before[i].starts_with("30 ");
            CPPUNIT_ASSERT_EQUAL(before[i], isPosition ? before[i] : after[i]);
        }
        CPPUNIT_ASSERT(before[3] != after[3]);
    }

    void mirroringKeepsPlanesAndReadability()
    {
        OdSmartPtr<OdDbArc> const mirrored(arc(kZ));
        mirrored->setStartAngle(0);
        mirrored->setEndAngle(OdaPI / 3);
        mirrored->transformBy(OdGeMatrix3d::mirroringAtPlane({}, {1, 0, 0}));
        CPPUNIT_ASSERT(mirrored->normal() == kZ);
        CPPUNIT_ASSERT_DOUBLES_EQUAL(OdaPI * 2 / 3, mirrored->startAngle(), 1e-12);
        CPPUNIT_ASSERT_DOUBLES_EQUAL(OdaPI, mirrored->endAngle(), 1e-12);

        OdDbText leftAndRight;
        leftAndRight.setTextString(L"A");
        leftAndRight.transformBy(OdGeMatrix3d::mirroringAtPlane({}, {1, 0, 0}));
        CPPUNIT_ASSERT(leftAndRight.isMirroredInX() && !leftAndRight.isMirroredInY());
        CPPUNIT_ASSERT_EQUAL(0.0, leftAndRight.rotation());
        leftAndRight.transformBy(OdGeMatrix3d::mirroringAtPlane({}, {0, 1, 0}));
        CPPUNIT_ASSERT(leftAndRight.isMirroredInX() && leftAndRight.isMirroredInY());
    }

    void fullTurnStaysFull()
    {
        OdSmartPtr<OdDbArc> const full(arc(kZ));
        full->setStartAngle(0);
        full->setEndAngle(Oda2PI);
        for (int i = 0; i < 50; ++i)
            full->transformBy(OdGeMatrix3d::rotation(0.1 * i, kZ));
        CPPUNIT_ASSERT(full->curve().isClosed());
    }

    void thicknessAndWidthsGrow()
    {
        OdSmartPtr<OdDbPolyline> const wide(polyline(kTilted, 0.5));
        wide->setThickness(-2);
        wide->setWidthsAt(1, 0.5, 0.25);
        wide->transformBy(OdGeMatrix3d::scaling(3));
        CPPUNIT_ASSERT_DOUBLES_EQUAL(-6, wide->thickness(), 1e-12);
        CPPUNIT_ASSERT_DOUBLES_EQUAL(0.75, wide->getEndWidthAt(1), 1e-12);
        // A thickness that would lean is refused.
        OdGeMatrix3d lean;
        lean.entry[0][2] = 1;
        assertRefused(
            "leaning",
            *[] {
                OdSmartPtr<OdDbPolyline> thick(polyline(kZ, 0));
                thick->setThickness(1);
                return thick;
            }(),
            lean);
    }
};
CPPUNIT_TEST_SUITE_REGISTRATION(EntityTransformTest);

} // namespace
