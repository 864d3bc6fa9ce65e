// Where polylines come to lie that are drawn in the skewed coordinate system: origin (7, 8, 9), turned by 10
// degrees about X, 20 about Y and 30 about Z. The expected values were computed by hand from the turned axes
//   X (0.813797681, 0.543838142, -0.204874129), Y (-0.469846310, 0.823172945, 0.318795778)
// and those of the plane of its Z axis (0.342020143, -0.163175911, 0.925416578) that files count in.
#include "tests/testapi/helper_fixture.h"

#include "tests/support/od_result_of.h"

namespace {

constexpr double kNear = 1e-9;

class TestHelperCreatePlinesTest : public HelperFixture
{
    CPPUNIT_TEST_SUITE(TestHelperCreatePlinesTest);
    CPPUNIT_TEST(inLayoutsTheyLieInTheUcs);
    CPPUNIT_TEST(normalsThatAreNotOfTheUcs);
    CPPUNIT_TEST(inBlocksTheyLieInTheirPlane);
    CPPUNIT_TEST(theWorldChangesNothing);
    CPPUNIT_TEST(segments);
    CPPUNIT_TEST(withoutDrawing);
    CPPUNIT_TEST_SUITE_END();

    using Points = OdArray<OdGePoint2d>;
    static inline Points const s_rectangle = {{0, 0}, {10, 0}, {10, 5}, {0, 5}};

    OdDbObjectId create(OdDbObjectId owner, bool is2d, double elevation = 0, OdGeVector3d const* normal = nullptr,
                        Points const& points = s_rectangle)
    {
        return m_helper.createPline(owner, points, nullptr, is2d, true, normal, elevation);
    }

    /// Plane, height and points of both kinds of polyline.
    static void assertLies(OdDbObjectId id, OdGeVector3d const& normal, double elevation, Points const& points,
                           double tol = kNear)
    {
        Points found;
        double foundElevation = 0;
        OdGeVector3d foundNormal;
        if (auto const pline = odCast<OdDb2dPolyline>(id.safeOpenObject().get())) {
            foundNormal = pline->normal();
            foundElevation = pline->elevation();
            for (OdDbPartIterator it = pline->vertexIterator(); !it.done(); it.step()) {
                OdGePoint3d const position = static_cast<OdDb2dVertex const&>(it.peek()).position();
                CPPUNIT_ASSERT_DOUBLES_EQUAL(elevation, position.z, tol);
                found.append(position.convert2d());
            }
        } else {
            auto const light = id.open<OdDbPolyline>();
            foundNormal = light->normal();
            foundElevation = light->elevation();
            for (unsigned i = 0; i < light->numVerts(); ++i)
                found.append(light->getPointAt(i));
        }
        CPPUNIT_ASSERT(foundNormal == normal);
        CPPUNIT_ASSERT_DOUBLES_EQUAL(elevation, foundElevation, tol);
        CPPUNIT_ASSERT_EQUAL(points.size(), found.size());
        for (std::size_t i = 0; i < points.size(); ++i) {
            CPPUNIT_ASSERT_DOUBLES_EQUAL(points[i].x, found[i].x, tol);
            CPPUNIT_ASSERT_DOUBLES_EQUAL(points[i].y, found[i].y, tol);
        }
    }

    void inLayoutsTheyLieInTheUcs()
    {
        Points const inPlane = {{10.234538310558, 0.751825132618},
                                {18.647115372378, -4.654518102780},
                                {21.350286990077, -0.448229571870},
                                {12.937709928257, 4.958113663528}};
        for (OdDbObjectId const owner : {m_model, m_paper})
            for (bool const is2d : {false, true}) {
                assertLies(create(owner, is2d), s_ucsNormal, 9.417482919532, inPlane);
                assertLies(create(owner, is2d, 5), s_ucsNormal, 14.417482919532, inPlane);
            }
        auto const light = create(m_model, false, 5).open<OdDbPolyline>();
        OdGePoint3d const corner(16.848077530122, 12.622501868991, 11.578341604963);
        CPPUNIT_ASSERT(light->getWorldPointAt(1).isEqualTo(corner, kNear));
        OdGeVector3d const opposite = s_ucsNormal * -3; // the same plane from below
        auto const below = create(m_model, false, 5, &opposite).open<OdDbPolyline>();
        CPPUNIT_ASSERT_DOUBLES_EQUAL(-14.417482919532, below->elevation(), kNear);
        CPPUNIT_ASSERT(below->getWorldPointAt(1).isEqualTo(corner, kNear));
    }

    /// No plane of that normal holds all points: they are projected onto the one through the first.
    void normalsThatAreNotOfTheUcs()
    {
        OdGeVector3d const normal(0, 3, 4);
        Points const inPlane = {{-8.710100716628, 2.428953379861},
                                {-16.848077530122, -3.150996532215},
                                {-14.498845978157, -5.487300978005},
                                {-6.360869164664, 0.092648934071}};
        for (bool const is2d : {false, true})
            assertLies(create(m_model, is2d, 5, &normal), {0, .6, .8}, 15.212138580094, inPlane);
    }

    void inBlocksTheyLieInTheirPlane()
    {
        OdGeVector3d const normal(0, 3, 4);
        for (bool const is2d : {false, true}) {
            assertLies(create(m_block, is2d, 5), OdGeVector3d::kZAxis, 5, s_rectangle, 0);
            assertLies(create(m_block, is2d, 5, &normal), {0, .6, .8}, 5, s_rectangle, 0);
        }
    }

    void theWorldChangesNothing()
    {
        m_helper.setDefaultUCS({0, 0, 0}, 0, 0, 0);
        Points const thirds = {{1.0 / 3, 2e9 / 3}, {-1.0 / 7, 0}};
        for (bool const is2d : {false, true})
            assertLies(create(m_model, is2d, 1.0 / 3, nullptr, thirds), OdGeVector3d::kZAxis, 1.0 / 3, thirds, 0);
    }

    void segments()
    {
        OdGeDoubleArray const bulges = {.5};
        OdGeDoubleArray const startWidths = {1, 2};
        OdGeDoubleArray const endWidths = {3, 4};
        auto const make = [&](bool is2d) {
            return m_helper.createPline(m_model, {{0, 0}, {1, 0}}, &bulges, is2d, false, nullptr, 0, &startWidths,
                                        &endWidths);
        };
        auto const light = make(false).open<OdDbPolyline>();
        CPPUNIT_ASSERT(!light->isClosed());
        CPPUNIT_ASSERT_EQUAL(.5, light->getBulgeAt(0));
        CPPUNIT_ASSERT_EQUAL(2.0, light->getStartWidthAt(1));
        CPPUNIT_ASSERT_EQUAL(4.0, light->getEndWidthAt(1));
        auto const heavy = make(true).open<OdDb2dPolyline>();
        CPPUNIT_ASSERT(!heavy->isClosed());
        OdDbPartIterator const it = heavy->vertexIterator();
        auto const& vertex = static_cast<OdDb2dVertex const&>(it.peek());
        CPPUNIT_ASSERT_EQUAL(.5, vertex.bulge());
        CPPUNIT_ASSERT_EQUAL(1.0, vertex.startWidth());
        CPPUNIT_ASSERT_EQUAL(3.0, vertex.endWidth());
        CPPUNIT_ASSERT(heavy->getDbHandle() < vertex.getDbHandle()); // the vertices follow the polyline
    }

    /// Without a drawing there is no coordinate system to count from; a block needs none.
    void withoutDrawing()
    {
        ta::TestHelperEx unbound;
        CPPUNIT_ASSERT_EQUAL(eNoDocument, odResultOf([&] { unbound.createPline(m_model, s_rectangle); }));
        CPPUNIT_ASSERT(!unbound.createPline(m_block, s_rectangle).isNull());
        CPPUNIT_ASSERT_EQUAL(std::size_t(0), entitiesIn(m_model));
    }
};
CPPUNIT_TEST_SUITE_REGISTRATION(TestHelperCreatePlinesTest);

} // namespace
