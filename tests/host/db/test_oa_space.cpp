#include "host/db/oa_space.h"
#include "host/db/od_db_database.h"
#include "tests/support/od_result_of.h"

#include <cppunit/extensions/HelperMacros.h>

namespace {

using Points = OdArray<OdGePoint2d>;

class TestOaSpace : public CppUnit::TestFixture
{
    CPPUNIT_TEST_SUITE(TestOaSpace);
    CPPUNIT_TEST(sameSystemChangesNothing);
    CPPUNIT_TEST(pointsGoToThePlaneOfTheNormal);
    CPPUNIT_TEST(planeThatIsNotParallel);
    CPPUNIT_TEST(zeroNormal);
    CPPUNIT_TEST_SUITE_END();

    OdDbDatabasePtr m_database = new OdDbDatabase;

    void setUcs(OdGePoint3d const& origin, OdGePoint3d const& xAxis, OdGePoint3d const& yAxis)
    {
        m_database->setHeaderPoint("UCSORG", origin);
        m_database->setHeaderPoint("UCSXDIR", xAxis);
        m_database->setHeaderPoint("UCSYDIR", yAxis);
    }
    static void check(Points const& expected, Points const& actual)
    {
        CPPUNIT_ASSERT_EQUAL(expected.size(), actual.size());
        for (std::size_t i = 0; i < expected.size(); ++i)
            CPPUNIT_ASSERT(actual[i].isEqualTo(expected[i], OdGeTol(1e-12)));
    }

    void sameSystemChangesNothing()
    {
        Points points = {{0.1, 1e15}, {-3, 1.0 / 3}};
        CPPUNIT_ASSERT_EQUAL(5.0, oa::ucsToEcs(m_database, {0, 0, 2}, points, 5));
        CPPUNIT_ASSERT(points[0].x == 0.1 && points[0].y == 1e15 && points[1].y == 1.0 / 3);
    }

    /// A coordinate system upright at X = 7: the plane of its normal (1, 0, 0) has the same axes, since for such
    /// normals drawing files take the Y axis of the world as X axis; its origin is that of the world.
    void pointsGoToThePlaneOfTheNormal()
    {
        setUcs({7, 20, 300}, {0, 1, 0}, {0, 0, 1});
        Points upright = {{0, 0}, {1, 2}};
        CPPUNIT_ASSERT_DOUBLES_EQUAL(11, oa::ucsToEcs(m_database, {1, 0, 0}, upright, 4), 1e-12);
        check({{20, 300}, {21, 302}}, upright);

        // From behind, X counts along -Y, and heights along -X.
        Points behind = {{0, 0}, {1, 2}};
        CPPUNIT_ASSERT_DOUBLES_EQUAL(-11, oa::ucsToEcs(m_database, {-1, 0, 0}, behind, 4), 1e-12);
        check({{-20, 300}, {-21, 302}}, behind);
        Points none;
        CPPUNIT_ASSERT_DOUBLES_EQUAL(11, oa::ucsToEcs(m_database, {1, 0, 0}, none, 4), 1e-12);
    }

    void planeThatIsNotParallel()
    {
        setUcs({0, 0, 0}, {0, 1, 0}, {0, 0, 1});
        Points points = {{1, 2}, {10, 20}};
        CPPUNIT_ASSERT_DOUBLES_EQUAL(2, oa::ucsToEcs(m_database, {0, 0, 1}, points, 4), 1e-12);
        check({{4, 1}, {4, 10}}, points);
    }

    void zeroNormal()
    {
        setUcs({7, 0, 0}, {1, 0, 0}, {0, 1, 0});
        Points points = {{1, 2}};
        CPPUNIT_ASSERT_EQUAL(eDegenerateGeometry, odResultOf([&] {
                                 oa::ucsToEcs(m_database, {0, 0, 0}, points, 0);
                             }));
        CPPUNIT_ASSERT(points[0].x == 1 && points[0].y == 2);
    }
};
CPPUNIT_TEST_SUITE_REGISTRATION(TestOaSpace);

} // namespace
