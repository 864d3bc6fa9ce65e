#include "host/geom/curves/od_ge_nurb_curve3d.h"
#include "host/root/od_error.h"
#include "tests/host/geom/curve_samples.h"

#include <cppunit/extensions/HelperMacros.h>

// Splines through points: what they must do at the points, at their ends and in between.
namespace {

using Points = std::vector<OdGePoint3d>;

Points randomPoints(RandomNumbers& random, int count)
{
    Points points;
    for (int i = 0; i < count; ++i)
        points.push_back(OdGePoint3d::kOrigin + random.vector(10));
    return points;
}

// Parameters are the lengths of the chords up to a point.
void checkPassesThrough(OdGeNurbCurve3d const& curve, Points const& points)
{
    double param = 0;
    for (std::size_t i = 0; i < points.size(); ++i) {
        if (i > 0)
            param += points[i].distanceTo(points[i - 1]);
        CPPUNIT_ASSERT_DOUBLES_EQUAL(0, curve.evalPoint(param).distanceTo(points[i]), 1e-11);
    }
}

class NurbsInterpolationTest : public CppUnit::TestFixture
{
    CPPUNIT_TEST_SUITE(NurbsInterpolationTest);
    CPPUNIT_TEST(passesThroughItsPoints);
    CPPUNIT_TEST(curvatureIsContinuous);
    CPPUNIT_TEST(endsAreNaturalOrAsGiven);
    CPPUNIT_TEST(closedCurvesAreSmoothAtTheSeam);
    CPPUNIT_TEST(fittedCurvesStayNear);
    CPPUNIT_TEST(repeatedPointsCountOnce);
    CPPUNIT_TEST(controlPointsOfUniformCurves);
    CPPUNIT_TEST_SUITE_END();

    void passesThroughItsPoints()
    {
        RandomNumbers random;
        for (int count = 2; count < 40; ++count) {
            Points points = randomPoints(random, count);
            checkPassesThrough(OdGeNurbCurve3d::interpolate(points), points);
            checkPassesThrough(OdGeNurbCurve3d::interpolate(points, random.vector(5), random.vector(5)), points);
            OdGeNurbCurve3d const closed = OdGeNurbCurve3d::interpolate(points, {}, {}, true);
            checkPassesThrough(closed, points);
            CPPUNIT_ASSERT(closed.isClosed(1e-10) && closed.isPeriodic());
        }
    }

    void curvatureIsContinuous()
    {
        RandomNumbers random;
        Points const points = randomPoints(random, 20);
        OdGeNurbCurve3d const curve = OdGeNurbCurve3d::interpolate(points);
        CPPUNIT_ASSERT_EQUAL(22, curve.numControlPoints());
        CPPUNIT_ASSERT(curve.breakParams().empty());
        double param = 0;
        for (std::size_t i = 1; i + 1 < points.size(); ++i) {
            param += points[i].distanceTo(points[i - 1]);
            OdGeVector3d const before = curve.derivative(std::nextafter(param, 0), 2);
            CPPUNIT_ASSERT(before.isEqualTo(curve.derivative(param, 2), 1e-9));
        }
    }

    void endsAreNaturalOrAsGiven()
    {
        Points const points = {{0, 0, 0}, {3, 1, 0}, {4, 5, 2}, {9, 5, 2}};
        OdGeNurbCurve3d const natural = OdGeNurbCurve3d::interpolate(points);
        OdGeInterval const interval = natural.getInterval();
        CPPUNIT_ASSERT(natural.derivative(interval.lower, 2).isZeroLength(1e-12));
        CPPUNIT_ASSERT(natural.derivative(interval.upper, 2).isZeroLength(1e-12));

        OdGeNurbCurve3d const clamped = OdGeNurbCurve3d::interpolate(points, {0, 7, 0}, {0, 0, -0.1});
        CPPUNIT_ASSERT(clamped.derivative(interval.lower).isEqualTo({0, 1, 0}, 1e-12));
        CPPUNIT_ASSERT(clamped.derivative(interval.upper).isEqualTo({0, 0, -1}, 1e-12));

        OdGeNurbCurve3d const mixed = OdGeNurbCurve3d::interpolate(points, {}, {1, 0, 0});
        CPPUNIT_ASSERT(mixed.derivative(interval.lower, 2).isZeroLength(1e-12));
        CPPUNIT_ASSERT(mixed.derivative(interval.upper).isEqualTo({1, 0, 0}, 1e-12));

        CPPUNIT_ASSERT(OdGeNurbCurve3d::interpolate(Points{{0, 0, 0}, {4, 0, 0}}).isLinear(1e-12));
    }

    void closedCurvesAreSmoothAtTheSeam()
    {
        RandomNumbers random;
        for (int count = 3; count < 12; ++count) {
            OdGeNurbCurve3d const curve = OdGeNurbCurve3d::interpolate(randomPoints(random, count), {}, {}, true);
            OdGeInterval const interval = curve.getInterval();
            for (int const order : {1, 2})
                CPPUNIT_ASSERT(curve.derivative(interval.lower, order)
                                   .isEqualTo(curve.derivative(interval.upper, order), 1e-9));
        }
        // The same points on a circle with the first one given again: closed either way, and close to the circle.
        Points corners;
        for (int i = 0; i <= 16; ++i)
            corners.emplace_back(std::cos(Oda2PI * i / 16), std::sin(Oda2PI * i / 16), 0);
        OdGeNurbCurve3d const round = OdGeNurbCurve3d::interpolate(corners, {}, {}, true);
        CPPUNIT_ASSERT_DOUBLES_EQUAL(OdaPI, round.signedArea({0, 0, 1}), 1e-3);
        CPPUNIT_ASSERT_EQUAL(16 + 3, round.numControlPoints());
    }

    void fittedCurvesStayNear()
    {
        Points points;
        for (int i = 0; i <= 1000; ++i)
            points.emplace_back(i * 0.01, std::sin(i * 0.01), std::cos(i * 0.005));
        for (double const tolerance : {0.1, 1e-3, 1e-6}) {
            OdGeNurbCurve3d const curve = OdGeNurbCurve3d::interpolate(points, {1, 1, 0}, {}, false, tolerance);
            for (OdGePoint3d const& point : points)
                CPPUNIT_ASSERT(curve.distanceTo(point) <= tolerance);
            CPPUNIT_ASSERT(curve.numControlPoints() < 200);
            CPPUNIT_ASSERT(curve.evalPoint(curve.getInterval().lower).isEqualTo(points.front()));
            CPPUNIT_ASSERT(curve.evalPoint(curve.getInterval().upper).isEqualTo(points.back()));
            CPPUNIT_ASSERT(curve.derivative(0).isCodirectionalTo({1, 1, 0}, 1e-9));
        }
    }

    void repeatedPointsCountOnce()
    {
        Points const points = {{0, 0, 0}, {0, 0, 0}, {3, 1, 0}, {3, 1, 0}, {4, 5, 2}};
        CPPUNIT_ASSERT_EQUAL(5, OdGeNurbCurve3d::interpolate(points).numControlPoints());
        CPPUNIT_ASSERT_THROW(OdGeNurbCurve3d::interpolate(Points(3, {1, 1, 1})), OdError);
        CPPUNIT_ASSERT_THROW(OdGeNurbCurve3d::interpolate(Points{}), OdError);
        double const infinite = std::numeric_limits<double>::infinity();
        CPPUNIT_ASSERT_THROW(OdGeNurbCurve3d::interpolate(Points{{0, 0, 0}, {infinite, 0, 0}}), OdError);
    }

    void controlPointsOfUniformCurves()
    {
        Points const points = {{0, 0, 0}, {4, 0, 0}, {4, 4, 0}, {0, 4, 0}};
        OdGeNurbCurve3d const open = OdGeNurbCurve3d::ofControlPoints(3, points);
        CPPUNIT_ASSERT(open.evalPoint(0) == points.front() && open.evalPoint(1) == points.back());
        // A quadratic periodic curve touches the middles of the sides of its control polygon.
        OdGeNurbCurve3d const closed = OdGeNurbCurve3d::ofControlPoints(2, points, true);
        CPPUNIT_ASSERT(closed.isClosed() && closed.isOn({2, 0, 0}) && closed.isOn({4, 2, 0}));
        CPPUNIT_ASSERT(!closed.isOn({4, 4, 0}));
        CPPUNIT_ASSERT_THROW(OdGeNurbCurve3d::ofControlPoints(4, points), OdError);
        CPPUNIT_ASSERT_THROW(OdGeNurbCurve3d::ofControlPoints(0, points), OdError);
    }
};

CPPUNIT_TEST_SUITE_REGISTRATION(NurbsInterpolationTest);

} // namespace
