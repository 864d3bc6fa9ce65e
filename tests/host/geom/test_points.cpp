#include "host/geom/od_ge_arrays.h"
#include "host/geom/od_ge_extents3d.h"
#include "host/geom/od_ge_matrix3d.h"
#include "host/root/od_error.h"

#include <cppunit/extensions/HelperMacros.h>

#include <cmath>
#include <limits>
#include <type_traits>

namespace {

static_assert(std::is_trivially_copyable_v<OdGePoint3d> && std::is_trivially_copyable_v<OdGeMatrix3d> &&
              std::is_trivially_copyable_v<OdGeExtents3d>);

class PointsTest : public CppUnit::TestFixture
{
    CPPUNIT_TEST_SUITE(PointsTest);
    CPPUNIT_TEST(distanceDecidesEquality);
    CPPUNIT_TEST(anglesFoldIntoOneTurn);
    CPPUNIT_TEST(normalizeLeavesTinyVectors);
    CPPUNIT_TEST(directionsCompareWithoutLength);
    CPPUNIT_TEST(extentsGrowFromEmpty);
    CPPUNIT_TEST(extentsTouchAndContain);
    CPPUNIT_TEST_SUITE_END();

    void distanceDecidesEquality()
    {
        OdGePoint3d const origin;
        CPPUNIT_ASSERT(origin == OdGePoint3d(1e-10, 0, 0));
        // Each coordinate is within the tolerance, the distance is not.
        CPPUNIT_ASSERT(origin != OdGePoint3d(0.8e-10, 0.8e-10, 0));
        CPPUNIT_ASSERT(OdGePoint2d() != OdGePoint2d(0.8e-10, 0.8e-10));
        CPPUNIT_ASSERT(OdGePoint2d(3, 4).isEqualTo({0, 0}, 5));
        CPPUNIT_ASSERT(OdGeVector2d(3, 4) != OdGeVector2d(3, 4.1));
        CPPUNIT_ASSERT(OdGeScale3d() == OdGeScale3d(1, 1, 1) && OdGeScale3d() != OdGeScale3d(1, 1, -1));

        OdGeTol const loosePoints(1, 1e-6);
        CPPUNIT_ASSERT(OdGePoint3d(0, 0, 0.5).isEqualTo(origin, loosePoints));
        CPPUNIT_ASSERT(!OdGeVector3d(0, 0, 0.5).isZeroLength(loosePoints));
        double const nan = std::numeric_limits<double>::quiet_NaN();
        CPPUNIT_ASSERT(OdGePoint3d(nan, 0, 0) != OdGePoint3d(nan, 0, 0));

        CPPUNIT_ASSERT(OdGreater(1 + 2e-10, 1) && !OdGreater(1 + 5e-11, 1) && OdEqual(1 + 5e-11, 1) &&
                       OdLess(-1, 1));
    }

    void anglesFoldIntoOneTurn()
    {
        CPPUNIT_ASSERT_DOUBLES_EQUAL(3 * OdaPI2, OdGeVector2d(0, -2).angle(), 1e-15);
        CPPUNIT_ASSERT_EQUAL(0.0, OdGeVector2d().angle());
        // Rounds to a full turn, which must not be given out.
        CPPUNIT_ASSERT_EQUAL(0.0, OdGeVector2d(1, -1e-300).angle());
        CPPUNIT_ASSERT_EQUAL(0.0, odgeFoldAngle(-1e-20));
        CPPUNIT_ASSERT_DOUBLES_EQUAL(1.0, odgeFoldAngle(1 - 3 * Oda2PI), 1e-14);

        CPPUNIT_ASSERT_DOUBLES_EQUAL(Oda2PI - 2, odgeSweep(3, 1), 1e-15);
        CPPUNIT_ASSERT_EQUAL(Oda2PI, odgeSweep(1, 1));
        CPPUNIT_ASSERT_EQUAL(Oda2PI, odgeSweep(0, Oda2PI));

        OdGeVector3d const x = OdGeVector3d::kXAxis;
        CPPUNIT_ASSERT_DOUBLES_EQUAL(OdaPI2, x.angleTo(-OdGeVector3d::kYAxis), 1e-15);
        CPPUNIT_ASSERT_DOUBLES_EQUAL(3 * OdaPI2, x.angleTo(-OdGeVector3d::kYAxis, OdGeVector3d::kZAxis), 1e-15);
    }

    void normalizeLeavesTinyVectors()
    {
        OdGeVector3d tiny(0, 3e-11, 4e-11);
        tiny.normalize();
        CPPUNIT_ASSERT_EQUAL(3e-11, tiny.y);
        CPPUNIT_ASSERT_DOUBLES_EQUAL(0.6, tiny.normalize(1e-12).y, 1e-15);
        // The squares overflow, the length does not.
        CPPUNIT_ASSERT_DOUBLES_EQUAL(0.6, OdGeVector3d(3e200, 4e200, 0).normal().x, 1e-15);
    }

    void directionsCompareWithoutLength()
    {
        OdGeVector3d const a(1, 2, 3);
        CPPUNIT_ASSERT(a.isParallelTo(a * -1e-5) && a.isParallelTo(a * 1e7));
        CPPUNIT_ASSERT(a.isCodirectionalTo(a * 4) && !a.isCodirectionalTo(-a));
        CPPUNIT_ASSERT(!a.isParallelTo({1, 2, 3.001}) && !a.isParallelTo({}));
        CPPUNIT_ASSERT(a.isPerpendicularTo(OdGeVector3d(3, 0, -1) * 1e-4) && !a.isPerpendicularTo({}));
    }

    void extentsGrowFromEmpty()
    {
        OdGeExtents3d box;
        CPPUNIT_ASSERT(!box.isValidExtents() && box.minPoint().x > box.maxPoint().x);
        box.transformBy(OdGeMatrix3d::scaling(2));
        box.addExt(OdGeExtents3d());
        CPPUNIT_ASSERT(!box.isValidExtents() && !box.convert2d().isValidExtents());

        box.addPoint({-5, -6, -7});
        CPPUNIT_ASSERT(box.isValidExtents() && box.minPoint() == box.maxPoint());
        box.addPoint({1, std::numeric_limits<double>::quiet_NaN(), -9});
        box.addExt({{0, 2, 0}, {-1, -1, -1}});
        CPPUNIT_ASSERT(box.minPoint() == OdGePoint3d(-5, -6, -9));
        CPPUNIT_ASSERT(box.maxPoint() == OdGePoint3d(1, 2, 0));
        CPPUNIT_ASSERT(box.center() == OdGePoint3d(-2, -2, -4.5));

        OdGeExtents3d turned({0, 0, 0}, {4, 2, 1});
        turned.transformBy(OdGeMatrix3d::rotation(OdaPI2, OdGeVector3d::kZAxis, {1, 1, 0}));
        CPPUNIT_ASSERT(turned.minPoint() == OdGePoint3d(0, 0, 0) && turned.maxPoint() == OdGePoint3d(2, 4, 1));
    }

    void extentsTouchAndContain()
    {
        OdGeExtents2d const box({0, 0}, {2, 1});
        CPPUNIT_ASSERT(box.contains({2, 1}) && !box.contains({2.1, 1}) && !box.contains({1, -0.1}));
        CPPUNIT_ASSERT(!box.isDisjoint({{2, 1}, {3, 3}}) && box.isDisjoint({{0, 1.1}, {3, 3}}));
        CPPUNIT_ASSERT(box.contains(OdGeExtents2d({1, 1}, {0, 0})) &&
                       !box.contains(OdGeExtents2d({1, 1}, {3, 0})));
        CPPUNIT_ASSERT(box.contains(OdGeExtents2d()) && box.isDisjoint(OdGeExtents2d()));
        CPPUNIT_ASSERT(!OdGeExtents2d().contains(OdGePoint2d()));
    }
};

CPPUNIT_TEST_SUITE_REGISTRATION(PointsTest);

} // namespace
