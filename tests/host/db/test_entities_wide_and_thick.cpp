// What widths and thickness add to what is seen, and what becomes of them when entities are exploded, stretched
// and listed.
#include "tests/host/db/test_entities_support.h"

#include "host/db/entities/od_db_arc.h"
#include "host/db/entities/od_db_circle.h"
#include "host/db/entities/od_db_ellipse.h"
#include "host/db/entities/od_db_line.h"
#include "host/db/entities/od_db_point.h"
#include "host/db/entities/od_db_polyline.h"
#include "host/db/od_db_property_sink.h"

#include <random>

namespace {

OdGeVector3d const kTilted(0.36, 0.48, 0.8);

void assertBox(OdGePoint3d const& low, OdGePoint3d const& high, OdDbEntity const& entity, double tolerance = 1e-9)
{
    OdGeExtents3d const box = entity.extents();
    CPPUNIT_ASSERT_DOUBLES_EQUAL(0.0, box.minPoint().distanceTo(low), tolerance);
    CPPUNIT_ASSERT_DOUBLES_EQUAL(0.0, box.maxPoint().distanceTo(high), tolerance);
}

template <class Entity>
OdSmartPtr<Entity> thick(Entity* entity, double thickness, OdGeVector3d const& normal = {0, 0, 1})
{
    entity->setNormal(normal);
    entity->setThickness(thickness);
    return entity;
}

OdDbPolylinePtr polyline(std::initializer_list<OdGePoint2d> points, double bulge = 0)
{
    OdDbPolylinePtr const made(new OdDbPolyline);
    for (OdGePoint2d const& point : points)
        made->addVertexAt(made->numVerts(), point, bulge);
    return made;
}

/// Properties as "name=value" in order.
class ListedText : public OdDbPropertySink
{
public:
    explicit ListedText(OdDbEntity const& entity) { entity.listProperties(*this); }
    void point(wchar_t const* name, OdGePoint3d const& p) override
    {
        add(name, odFormat(L"%g,%g,%g", p.x, p.y, p.z));
    }
    void vector(wchar_t const* name, OdGeVector3d const& v) override
    {
        add(name, odFormat(L"%g,%g,%g", v.x, v.y, v.z));
    }
    void distance(wchar_t const* name, double value) override { add(name, odFormat(L"%g", value)); }
    void area(wchar_t const* name, double value) override { distance(name, value); }
    void angle(wchar_t const* name, double value) override { distance(name, value); }
    void number(wchar_t const* name, double value) override { distance(name, value); }
    void count(wchar_t const* name, long long value) override { add(name, odFormat(L"%lld", value)); }
    void text(wchar_t const* name, OdString const& value) override { add(name, value); }
    void flag(wchar_t const* name, bool value) override { add(name, value ? L"yes" : L"no"); }
    void reference(wchar_t const* name, OdDbObjectId) override { add(name, L"id"); }
    void part(wchar_t const* name, int number) override { add(name, odFormat(L"%d", number)); }

    std::string text() const { return m_text.toUtf8(); }

private:
    void add(wchar_t const* name, OdString const& value)
    {
        m_text += odFormat(L"%ls%ls=%ls", m_text.isEmpty() ? L"" : L"; ", name, value.c_str());
    }

    OdString m_text;
};

class WideAndThickTest : public CppUnit::TestFixture
{
    CPPUNIT_TEST_SUITE(WideAndThickTest);
    CPPUNIT_TEST(thicknessInBoxes);
    CPPUNIT_TEST(edgesOfThickOnes);
    CPPUNIT_TEST(wideStraightSegments);
    CPPUNIT_TEST(wideArcs);
    CPPUNIT_TEST(taperedArcs);
    CPPUNIT_TEST(similaritiesMoveWidthsAndThickness);
    CPPUNIT_TEST(explodingAPolyline);
    CPPUNIT_TEST(stretchingLinesAndPolylines);
    CPPUNIT_TEST(stretchingArcs);
    CPPUNIT_TEST(goingAlongAsAWhole);
    CPPUNIT_TEST(listing);
    CPPUNIT_TEST_SUITE_END();

    void thicknessInBoxes()
    {
        assertBox({1, 2, 3}, {4, 6, 5}, *thick(new OdDbLine({1, 2, 3}, {4, 6, 3}), 2));
        assertBox({1, 2, 1}, {1, 2, 3}, *thick(new OdDbPoint({1, 2, 3}), -2));
        assertBox({-1, -1, 0}, {1, 1, 2}, *thick(new OdDbCircle, 2));
        assertBox({-2, -1, -1}, {0, 1, 1}, *thick(new OdDbCircle, 2, {-1, 0, 0}));
        assertBox({0, 0, 0}, {1, 1, 2}, *thick(new OdDbArc({0, 0, 0}, 1, 0, OdaPI / 2), 2));
        assertBox({0, 0, 0}, {4, 3, 2}, *thick(polyline({{0, 0}, {4, 0}, {4, 3}}).get(), 2));
        OdDbLine damaged({0, 0, 0}, {1, 0, 0});
        readTags(damaged, {"100 AcDbLine", "39 2.0", "210 0.0", "220 0.0", "230 0.0"});
        assertBox({0, 0, 0}, {1, 0, 2}, damaged);
        CPPUNIT_ASSERT_EQUAL(eOk, damaged.transformBy(OdGeMatrix3d::scaling(2)));
        assertBox({0, 0, 0}, {2, 0, 4}, damaged);
    }

    void edgesOfThickOnes()
    {
        SampledOutline const bent(*thick(polyline({{0, 0}, {4, 0}, {4, 3}}).get(), 2));
        CPPUNIT_ASSERT_EQUAL(7, bent.segments); // two twice, and an upright edge at each vertex
        SampledOutline const circle(*thick(new OdDbCircle, 2));
        CPPUNIT_ASSERT(circle.arcs == 2 && circle.segments == 0);
    }

    void wideStraightSegments()
    {
        OdDbPolylinePtr const wide = polyline({{0, 0}, {4, 0}, {4, 3}});
        wide->setConstantWidth(1);
        assertBox({0, -0.5, 0}, {4.5, 3, 0}, *wide);
        CPPUNIT_ASSERT_EQUAL(2, SampledOutline(*wide).polygons);
        OdDbPolylinePtr const arrow(new OdDbPolyline);
        arrow->addVertexAt(0, {0, 0}, 0, 2, 0);
        arrow->addVertexAt(1, {4, 0});
        CPPUNIT_ASSERT_EQUAL(std::size_t(3), SampledOutline(*arrow).exactPlaces().size());
        assertBox({0, -1, 0}, {4, 1, 0}, *arrow);
        OdDbPolylinePtr const nowhere = polyline({{1, 1}, {1, 1}});
        nowhere->setConstantWidth(1);
        assertBox({1, 1, 0}, {1, 1, 0}, *nowhere);
    }

    void wideArcs()
    {
        OdDbPolylinePtr const ring = polyline({{-2, 0}, {2, 0}}, 1);
        ring->setClosed(true);
        ring->setConstantWidth(1);
        assertBox({-2.5, -2.5, 0}, {2.5, 2.5, 0}, *ring);
        SampledOutline const outline(*ring);
        CPPUNIT_ASSERT(outline.arcs == 6 && outline.segments == 4);
        // Wider than its radius allows: the inner border has passed the center.
        ring->setConstantWidth(5);
        assertBox({-4.5, -4.5, 0}, {4.5, 4.5, 0}, *ring);
    }

    void taperedArcs()
    {
        OdDbPolyline tapered; // half a turn below the X axis, clockwise from right to left
        tapered.addVertexAt(0, {2, 0}, -1, 0, 1);
        tapered.addVertexAt(1, {-2, 0});
        SampledOutline const outline(tapered);
        CPPUNIT_ASSERT_EQUAL(2, outline.splines);
        CPPUNIT_ASSERT_DOUBLES_EQUAL(-2.5, tapered.extents().minPoint().x, 1e-6);
        // Places of both borders have the distance that an even growth gives them.
        for (OdGePoint3d const& place : outline.roughPlaces()) {
            double const turn = std::atan2(-place.y, place.x);
            double const away = std::abs(std::hypot(place.x, place.y) - 2);
            if (place.y < -1e-6 && away > 1e-9)
                CPPUNIT_ASSERT_DOUBLES_EQUAL(0.5 * turn / OdaPI, away, 1e-6);
        }
    }

    void similaritiesMoveWidthsAndThickness()
    {
        std::mt19937_64 random(7);
        std::uniform_real_distribution<double> number(-2, 2);
        for (int i = 0; i < 50; ++i) {
            OdGeVector3d const axis(number(random), number(random), number(random));
            OdGeMatrix3d const matrix = OdGeMatrix3d::rotation(number(random), axis, {1, 2, 3}) *
                                        OdGeMatrix3d::scaling(1 + std::abs(number(random))) *
                                        OdGeMatrix3d::mirroringAtPlane({1, 1, 1}, axis);
            OdDbPolylinePtr const wide = polyline({{0, 0}, {4, 0}, {4, 3}}, number(random));
            wide->setWidthsAt(0, 0.5, 1);
            wide->setWidthsAt(1, 0.25, 0.25);
            for (OdDbEntityPtr const& each :
                 {OdDbEntityPtr(thick(wide.get(), -1, kTilted)), OdDbEntityPtr(thick(new OdDbCircle, 2, kTilted)),
                  OdDbEntityPtr(thick(new OdDbPoint({1, 2, 3}), 2, kTilted)),
                  OdDbEntityPtr(thick(new OdDbArc({0, 0, 0}, 1, 4, 1), 2)),
                  OdDbEntityPtr(thick(new OdDbLine({1, 2, 3}, {4, 5, 7}), 2, kTilted))}) {
                SampledOutline const expected(*each, matrix);
                CPPUNIT_ASSERT_EQUAL(eOk, each->transformBy(matrix));
                CPPUNIT_ASSERT_DOUBLES_EQUAL(0.0, expected.exactDistanceTo(SampledOutline(*each)), 1e-6);
            }
        }
    }

    void explodingAPolyline()
    {
        OdDbPolylinePtr const whole(new OdDbPolyline);
        whole->setNormal(kTilted);
        whole->setElevation(2);
        whole->setThickness(1.5);
        whole->setColor(OdCmColor(5));
        whole->addVertexAt(0, {0, 0}, 1);
        whole->addVertexAt(1, {4, 0}, -0.5);
        whole->addVertexAt(2, {4, 3});
        whole->setClosed(true);
        std::vector<OdDbEntityPtr> pieces;
        CPPUNIT_ASSERT_EQUAL(eOk, whole->explode(pieces));
        CPPUNIT_ASSERT_EQUAL(std::size_t(3), pieces.size());
        CPPUNIT_ASSERT(pieces[0]->isA() == OdDbArc::desc() && pieces[2]->isA() == OdDbLine::desc());
        OdGeExtents3d box;
        for (OdDbEntityPtr const& piece : pieces) {
            CPPUNIT_ASSERT(piece->color() == OdCmColor(5));
            box.addExt(piece->extents());
        }
        assertBox(box.minPoint(), box.maxPoint(), *whole);
        // The bend to the right is an arc that starts at its second vertex.
        auto const& second = *odCast<OdDbArc>(pieces[1].get());
        CPPUNIT_ASSERT_DOUBLES_EQUAL(0.0, second.startPoint().distanceTo(whole->getWorldPointAt(2)), 1e-12);
        CPPUNIT_ASSERT(second.normal() == kTilted && second.thickness() == 1.5);

        pieces.clear();
        CPPUNIT_ASSERT_EQUAL(eDegenerateGeometry, polyline({{1, 1}})->explode(pieces));
        CPPUNIT_ASSERT_EQUAL(eNotApplicable, OdDbCircle().explode(pieces));
        CPPUNIT_ASSERT(pieces.empty());
    }

    static OdResult stretch(OdDbEntity& entity, std::vector<int> const& indices, OdGeVector3d const& offset)
    {
        return entity.moveStretchPointsAt(indices, offset);
    }

    void stretchingLinesAndPolylines()
    {
        OdDbLine line({0, 0, 0}, {2, 0, 0});
        CPPUNIT_ASSERT_EQUAL(eOk, stretch(line, {1}, {0, 1, 5}));
        CPPUNIT_ASSERT(line.startPoint() == OdGePoint3d(0, 0, 0) && line.endPoint() == OdGePoint3d(2, 1, 5));
        CPPUNIT_ASSERT_EQUAL(eInvalidIndex, stretch(line, {0, 2}, {1, 1, 1}));
        CPPUNIT_ASSERT(line.startPoint() == OdGePoint3d(0, 0, 0));

        OdDbPolylinePtr const bent = polyline({{0, 0}, {4, 0}, {4, 3}}, 0.5);
        CPPUNIT_ASSERT_EQUAL(eOk, stretch(*bent, {1, 2}, {1, 0, 7}));
        CPPUNIT_ASSERT(bent->getPointAt(0) == OdGePoint2d(0, 0) && bent->getPointAt(1) == OdGePoint2d(5, 0));
        CPPUNIT_ASSERT(bent->elevation() == 0 && bent->getBulgeAt(0) == 0.5); // it stays in its plane
        CPPUNIT_ASSERT_EQUAL(eOk, stretch(*bent, {0, 1, 2}, {0, 0, 7}));
        CPPUNIT_ASSERT_EQUAL(7.0, bent->elevation());
        CPPUNIT_ASSERT_EQUAL(eInvalidIndex, stretch(*bent, {-1}, {1, 1, 1}));
    }

    void stretchingArcs()
    {
        OdDbArc arc({0, 0, 0}, 1, 0, OdaPI); // height 1 above its chord
        CPPUNIT_ASSERT_EQUAL(eOk, stretch(arc, {0}, {2, 0, 9}));
        CPPUNIT_ASSERT_DOUBLES_EQUAL(0.0, arc.startPoint().distanceTo({3, 0, 0}), 1e-12);
        CPPUNIT_ASSERT_DOUBLES_EQUAL(0.0, arc.endPoint().distanceTo({-1, 0, 0}), 1e-12);
        CPPUNIT_ASSERT_DOUBLES_EQUAL(1.0, arc.extents().maxPoint().y, 1e-12);
        CPPUNIT_ASSERT_EQUAL(eDegenerateGeometry, stretch(arc, {0}, {-4, 0, 0}));
        CPPUNIT_ASSERT_EQUAL(eOk, stretch(arc, {0, 1}, {0, 0, 9}));
        CPPUNIT_ASSERT_DOUBLES_EQUAL(9.0, arc.center().z, 1e-12);
        OdDbArc full({0, 0, 0}, 1, 1, 1);
        CPPUNIT_ASSERT_EQUAL(eOk, stretch(full, {1}, {2, 0, 0}));
        CPPUNIT_ASSERT(full.center() == OdGePoint3d(2, 0, 0) && full.radius() == 1);
    }

    void goingAlongAsAWhole()
    {
        for (OdDbEntityPtr const& each :
             {OdDbEntityPtr(new OdDbCircle({1, 2, 3}, 2)), OdDbEntityPtr(new OdDbPoint({1, 2, 3})),
              OdDbEntityPtr(new OdDbEllipse({1, 2, 3}, {0, 0, 1}, {2, 0, 0}, 0.5))}) {
            std::vector<OdGePoint3d> points;
            each->getStretchPoints(points);
            CPPUNIT_ASSERT(points.size() == 1 && points[0] == OdGePoint3d(1, 2, 3));
            OdGeExtents3d const box = each->extents();
            CPPUNIT_ASSERT_EQUAL(eOk, stretch(*each, {}, {1, 1, 1}));
            CPPUNIT_ASSERT_EQUAL(eInvalidIndex, stretch(*each, {1}, {1, 1, 1}));
            assertBox(box.minPoint(), box.maxPoint(), *each);
            CPPUNIT_ASSERT_EQUAL(eOk, stretch(*each, {0}, {1, 1, 1}));
            assertBox(box.minPoint() + OdGeVector3d(1, 1, 1), box.maxPoint() + OdGeVector3d(1, 1, 1), *each);
        }
    }

    void listing()
    {
        CPPUNIT_ASSERT_EQUAL(
            std::string("start point=1,2,3; end point=4,6,3; length=5; angle in XY plane=0.927295; "
                        "offset=3,4,0; thickness=2"),
            ListedText(*thick(new OdDbLine({1, 2, 3}, {4, 6, 3}), 2)).text());
        CPPUNIT_ASSERT_EQUAL(std::string("center=-1,2,-3; radius=2; circumference=12.5664; area=12.5664; "
                                         "extrusion direction=0,0,-1"),
                             ListedText(OdDbCircle({-1, 2, -3}, 2, {0, 0, -1})).text());
        OdDbPolylinePtr const bent = polyline({{0, 0}, {4, 0}}, 1);
        bent->setWidthsAt(0, 0.5, 1);
        CPPUNIT_ASSERT_EQUAL(std::string("closed=no; vertices=2; length=6.28319; area=6.28319; vertex=1; "
                                         "position=0,0,0; bulge=1; start width=0.5; end width=1; vertex=2; "
                                         "position=4,0,0; bulge=1; start width=0; end width=0"),
                             ListedText(*bent).text());
        OdDbEllipse const half({0, 0, 0}, {0, 0, 1}, {2, 0, 0}, 0.5, 0, OdaPI / 2);
        CPPUNIT_ASSERT_EQUAL(std::string("center=0,0,0; major axis=2,0,0; minor axis=0,1,0; radius ratio=0.5; "
                                         "start point=2,0,0; end point=1.22465e-16,1,0; start parameter=0; "
                                         "end parameter=1.5708; length=2.42211; area=0.570796"),
                             ListedText(half).text());
    }
};
CPPUNIT_TEST_SUITE_REGISTRATION(WideAndThickTest);

} // namespace
