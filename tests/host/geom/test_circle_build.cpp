#include "host/geom/od_ge_bulge.h"
#include "host/geom/od_ge_circle_build.h"

#include <cppunit/extensions/HelperMacros.h>

#include <random>

namespace {

class CircleBuildTest : public CppUnit::TestFixture
{
    CPPUNIT_TEST_SUITE(CircleBuildTest);
    CPPUNIT_TEST(bulgeHandValues);
    CPPUNIT_TEST(bulgeRoundTrips);
    CPPUNIT_TEST(bulgeContinuesATangent);
    CPPUNIT_TEST(circles);
    CPPUNIT_TEST(arcThroughPointsTakesTheRightSide);
    CPPUNIT_TEST(arcFromStartAndCenter);
    CPPUNIT_TEST_SUITE_END();

    static void assertArc(OdGePoint2d const& center, double radius, double start, double end, bool isClockwise,
                          std::optional<OdGeArcData2d> const& arc)
    {
        CPPUNIT_ASSERT(arc);
        CPPUNIT_ASSERT(center.isEqualTo(arc->center, 1e-12));
        CPPUNIT_ASSERT_DOUBLES_EQUAL(radius, arc->radius, 1e-12);
        CPPUNIT_ASSERT_DOUBLES_EQUAL(start, odgeToDegrees(arc->startAngle), 1e-9);
        CPPUNIT_ASSERT_DOUBLES_EQUAL(end, odgeToDegrees(arc->endAngle), 1e-9);
        CPPUNIT_ASSERT_EQUAL(isClockwise, arc->isClockwise);
    }

    void bulgeHandValues()
    {
        double const quarter = std::sqrt(2) - 1;
        assertArc({2, 0}, 2, 180, 0, false, odgeArcFromBulge({0, 0}, {4, 0}, 1));
        assertArc({2, 0}, 2, 180, 0, true, odgeArcFromBulge({0, 0}, {4, 0}, -1));
        assertArc({0, 0}, 1, 0, 90, false, odgeArcFromBulge({1, 0}, {0, 1}, quarter));
        assertArc({1, 1}, 1, 270, 180, true, odgeArcFromBulge({1, 0}, {0, 1}, -quarter));
        // Three quarters of a circle: the center lies on the other side of the chord.
        assertArc({1, 1}, 1, 270, 180, false, odgeArcFromBulge({1, 0}, {0, 1}, 1 / quarter));
        CPPUNIT_ASSERT_DOUBLES_EQUAL(1.5 * OdaPI, odgeArcFromBulge({1, 0}, {0, 1}, 1 / quarter)->sweep(), 1e-12);
        CPPUNIT_ASSERT(!odgeArcFromBulge({1, 1}, {1, 1}, 1) && !odgeArcFromBulge({0, 0}, {4, 0}, 1e-10));
    }

    void bulgeRoundTrips()
    {
        std::mt19937 random(7);
        std::uniform_real_distribution<double> place(-100, 100);
        std::uniform_real_distribution<double> sweep(-6.2, 6.2);
        for (int i = 0; i < 300; ++i) {
            OdGePoint2d const p1(place(random), place(random));
            OdGePoint2d const p2(place(random), place(random));
            double const turn = sweep(random);
            double const bulge = odgeBulgeFromSweep(turn);
            auto const arc = odgeArcFromBulge(p1, p2, bulge);
            CPPUNIT_ASSERT(arc && arc->startPoint().isEqualTo(p1, 1e-7) && arc->endPoint().isEqualTo(p2, 1e-7));
            CPPUNIT_ASSERT_DOUBLES_EQUAL(std::abs(turn), arc->sweep(), 1e-7);
            OdGePoint2d const middle = arc->pointAt(arc->startAngle + turn / 2);
            CPPUNIT_ASSERT_DOUBLES_EQUAL(1, odgeBulgeThroughPoint(p1, middle, p2).value() / bulge, 1e-6);
            OdGeVector2d const tangent = (arc->startPoint() - arc->center).perpVector() * (turn < 0 ? -1 : 1);
            CPPUNIT_ASSERT_DOUBLES_EQUAL(1, odgeBulgeFromTangent(p1, tangent, p2).value() / bulge, 1e-6);
        }
        CPPUNIT_ASSERT(!odgeBulgeThroughPoint({0, 0}, {1, 1}, {2, 2}));
        CPPUNIT_ASSERT(!odgeBulgeThroughPoint({0, 0}, {1, 1}, {0, 0}));
    }

    void bulgeContinuesATangent()
    {
        CPPUNIT_ASSERT_DOUBLES_EQUAL(-1, odgeBulgeFromTangent({0, 0}, {0, 3}, {4, 0}).value(), 1e-12);
        CPPUNIT_ASSERT_DOUBLES_EQUAL(0, odgeBulgeFromTangent({0, 0}, {2, 2}, {5, 5}).value(), 1e-12);
        CPPUNIT_ASSERT(!odgeBulgeFromTangent({0, 0}, {-1, 0}, {4, 0}));
        CPPUNIT_ASSERT(!odgeBulgeFromTangent({0, 0}, {1, 0}, {0, 0}) && !odgeBulgeFromTangent({0, 0}, {}, {4, 0}));
    }

    void circles()
    {
        auto const circle = odgeCircleThrough3Points({6, 2}, {1, 7}, {-3, 5});
        CPPUNIT_ASSERT(circle && circle->center.isEqualTo({1, 2}, 1e-12));
        CPPUNIT_ASSERT_DOUBLES_EQUAL(5, circle->radius, 1e-12);
        // Far from the origin no digits beyond those of the coordinates are lost.
        auto const far = odgeCircleThrough3Points({1e7 + 6, 2e7 + 2}, {1e7 + 1, 2e7 + 7}, {1e7 - 3, 2e7 + 5});
        CPPUNIT_ASSERT(far && far->center.isEqualTo({1e7 + 1, 2e7 + 2}, 1e-8));
        CPPUNIT_ASSERT(!odgeCircleThrough3Points({0, 0}, {1e-3, 1e-3}, {5, 5}));
        CPPUNIT_ASSERT(!odgeCircleThrough3Points({0, 0}, {5, 1}, {0, 0}));

        auto const onDiameter = odgeCircleOnDiameter({1, 1}, {7, 9});
        CPPUNIT_ASSERT(onDiameter && onDiameter->center == OdGePoint2d(4, 5));
        CPPUNIT_ASSERT_DOUBLES_EQUAL(5, onDiameter->radius, 1e-12);
        CPPUNIT_ASSERT(!odgeCircleOnDiameter({1, 1}, {1, 1}));
    }

    void arcThroughPointsTakesTheRightSide()
    {
        assertArc({0, 0}, 1, 0, 180, false, odgeArcThrough3Points({1, 0}, {0, 1}, {-1, 0}));
        assertArc({0, 0}, 1, 0, 180, true, odgeArcThrough3Points({1, 0}, {0, -1}, {-1, 0}));
        assertArc({0, 0}, 5, 90, 0, false, odgeArcThrough3Points({0, 5}, {-3, -4}, {5, 0}));
        CPPUNIT_ASSERT(!odgeArcThrough3Points({0, 0}, {1, 0}, {2, 0}));
    }

    void arcFromStartAndCenter()
    {
        // The end point only gives the direction.
        assertArc({1, 1}, 2, 0, 90, false, odgeArcStartCenterEnd({3, 1}, {1, 1}, {1, 100}));
        assertArc({1, 1}, 2, 0, 270, false, odgeArcStartCenterEnd({3, 1}, {1, 1}, {1, 0.5}));
        OdGeVector2d const arm(std::cos(0.3), std::sin(0.3));
        auto const full = odgeArcStartCenterEnd(OdGePoint2d() + arm, {0, 0}, OdGePoint2d() + arm * 7);
        CPPUNIT_ASSERT(full);
        CPPUNIT_ASSERT_EQUAL(Oda2PI, full->sweep());
        CPPUNIT_ASSERT(!odgeArcStartCenterEnd({3, 1}, {1, 1}, {1, 1}) &&
                       !odgeArcStartCenterEnd({1, 1}, {1, 1}, {2, 1}));

        assertArc({0, 0}, 2, 90, 30, true, odgeArcStartCenterSweep({0, 2}, {0, 0}, odgeToRadians(-60)));
        assertArc({0, 0}, 2, 90, 180, false, odgeArcStartCenterSweep({0, 2}, {0, 0}, odgeToRadians(360 + 90)));
        CPPUNIT_ASSERT(!odgeArcStartCenterSweep({0, 2}, {0, 0}, -Oda2PI));

        assertArc({0, 0}, 2, 0, 60, false, odgeArcStartCenterChord({2, 0}, {0, 0}, 2));
        assertArc({0, 0}, 2, 0, 300, false, odgeArcStartCenterChord({2, 0}, {0, 0}, -2));
        assertArc({0, 0}, 2, 0, 180, false, odgeArcStartCenterChord({2, 0}, {0, 0}, 4));
        CPPUNIT_ASSERT(!odgeArcStartCenterChord({2, 0}, {0, 0}, 4.1) &&
                       !odgeArcStartCenterChord({2, 0}, {0, 0}, 0));
    }
};

CPPUNIT_TEST_SUITE_REGISTRATION(CircleBuildTest);

} // namespace
