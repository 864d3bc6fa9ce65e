#include "host/geom/od_ge_elliptic_arc.h"
#include "host/geom/od_ge_region2d.h"

#include <cppunit/extensions/HelperMacros.h>

#include <random>

// The exact functions are compared with what thousands of points on the same arc say. Cases that sampling cannot
// decide are left out and counted, so that a test does not pass by deciding nothing.
namespace {

constexpr int kSamples = 4000;

class RandomShapes
{
public:
    double number(double low, double high) { return std::uniform_real_distribution<double>(low, high)(m_random); }
    OdGePoint2d point(double size) { return {number(-size, size), number(-size, size)}; }
    OdGeVector3d vector(double size) { return {number(-size, size), number(-size, size), number(-size, size)}; }
    OdGeEllipticArc arc()
    {
        double const start = number(-10, 10);
        double const sweep = number(0, 1) < 0.2 ? Oda2PI : number(0.01, Oda2PI);
        return {OdGePoint3d::kOrigin + vector(4), vector(5), vector(5), start, start + sweep};
    }
    OdGeExtents2d rectangle() { return {point(6), point(6)}; }

private:
    std::mt19937 m_random{4711};
};

OdGePoint3d sample(OdGeEllipticArc const& arc, int i)
{
    return arc.evalPoint(arc.start + arc.sweep() * i / kSamples);
}

// 0 and less inside; outside the greater of the distances along the axes.
double distanceOutside(OdGeExtents2d const& rectangle, OdGePoint2d const& p)
{
    OdGePoint2d const& low = rectangle.minPoint();
    OdGePoint2d const& high = rectangle.maxPoint();
    return std::max({low.x - p.x, p.x - high.x, low.y - p.y, p.y - high.y});
}

class EllipticArcTest : public CppUnit::TestFixture
{
    CPPUNIT_TEST_SUITE(EllipticArcTest);
    CPPUNIT_TEST(circularArcInAPlane);
    CPPUNIT_TEST(parametersCountWholeTurns);
    CPPUNIT_TEST(transformationKeepsThePoints);
    CPPUNIT_TEST(extentsHandValues);
    CPPUNIT_TEST(extentsAgreeWithSampling);
    CPPUNIT_TEST(arcsAgainstRectangles);
    CPPUNIT_TEST(arcTouchingARectangle);
    CPPUNIT_TEST_SUITE_END();

    void circularArcInAPlane()
    {
        // Seen from below the plane's X axis points to the left.
        auto const below = OdGeEllipticArc::circular({1, 2, 3}, {0, 0, -1}, 2, 0, OdaPI2);
        CPPUNIT_ASSERT(below.startPoint() == OdGePoint3d(-1, 2, 3) && below.endPoint() == OdGePoint3d(1, 4, 3));
        CPPUNIT_ASSERT(OdGeEllipticArc::circular({}, {0, 0, 1}, 1, 2, 2).isClosed());
        CPPUNIT_ASSERT(OdGeEllipticArc::circular({}, {0, 0, 1}, 1).isClosed());
        CPPUNIT_ASSERT_DOUBLES_EQUAL(
            OdaPI, OdGeEllipticArc::circular({}, {0, 0, 1}, 1, 1.5 * OdaPI, OdaPI2).sweep(), 1e-14);

        OdGeArcData2d const clockwise{{1, 0}, 2, OdaPI2, 0, true};
        auto const arc = OdGeEllipticArc::inPlane(clockwise, 5);
        CPPUNIT_ASSERT(arc.startPoint() == OdGePoint3d(1, 2, 5) && arc.endPoint() == OdGePoint3d(3, 0, 5));
        CPPUNIT_ASSERT(arc.evalPoint(arc.start + OdaPI / 4).x > 2);
    }

    void parametersCountWholeTurns()
    {
        OdGeEllipticArc const arc({}, {1, 0, 0}, {0, 1, 0}, 6, 7);
        CPPUNIT_ASSERT(arc.hasParam(6.5) && arc.hasParam(6.5 - 2 * Oda2PI) && arc.hasParam(6) && arc.hasParam(7));
        CPPUNIT_ASSERT(!arc.hasParam(5.9) && !arc.hasParam(7.1) && !arc.hasParam(7.1 + Oda2PI));
        CPPUNIT_ASSERT(arc.hasParam(5.9, 0.2));
    }

    void transformationKeepsThePoints()
    {
        RandomShapes random;
        for (int i = 0; i < 50; ++i) {
            OdGeEllipticArc const arc = random.arc();
            OdGeMatrix3d skew;
            skew.setCoordSystem({1, 2, 3}, random.vector(2), random.vector(2), random.vector(2));
            OdGeEllipticArc image = arc;
            image.transformBy(skew);
            double const t = random.number(arc.start, arc.end);
            CPPUNIT_ASSERT(image.evalPoint(t).isEqualTo(skew * arc.evalPoint(t), 1e-12));
        }
    }

    void extentsHandValues()
    {
        OdGeExtents3d const circle = OdGeEllipticArc::circular({1, 2, 3}, {0, 0, 1}, 5).extents();
        CPPUNIT_ASSERT(circle.minPoint() == OdGePoint3d(-4, -3, 3) && circle.maxPoint() == OdGePoint3d(6, 7, 3));
        OdGeExtents3d const upper =
            OdGeEllipticArc::circular({}, {0, 0, 1}, 1, OdaPI / 4, 3 * OdaPI / 4).extents();
        double const s = std::sqrt(0.5);
        CPPUNIT_ASSERT(upper.minPoint() == OdGePoint3d(-s, s, 0) && upper.maxPoint() == OdGePoint3d(s, 1, 0));
        OdGeExtents3d const tilted = OdGeEllipticArc::circular({}, {0.6, 0, 0.8}, 5).extents();
        CPPUNIT_ASSERT(tilted.maxPoint() == OdGePoint3d(4, 5, 3) && tilted.minPoint() == OdGePoint3d(-4, -5, -3));
    }

    void extentsAgreeWithSampling()
    {
        RandomShapes random;
        for (int i = 0; i < 200; ++i) {
            OdGeEllipticArc const arc = random.arc();
            OdGeExtents3d sampled;
            for (int k = 0; k <= kSamples; ++k)
                sampled.addPoint(sample(arc, k));
            OdGeExtents3d const exact = arc.extents();
            CPPUNIT_ASSERT(exact.contains(sampled, 1e-12));
            // Between two samples an extreme rises by at most the square of half their distance.
            CPPUNIT_ASSERT(exact.minPoint().isEqualTo(sampled.minPoint(), 1e-5));
            CPPUNIT_ASSERT(exact.maxPoint().isEqualTo(sampled.maxPoint(), 1e-5));
        }
    }

    void arcsAgainstRectangles()
    {
        RandomShapes random;
        int counts[3] = {};
        for (int i = 0; i < 1500; ++i) {
            OdGeEllipticArc const arc = random.arc();
            OdGeExtents2d const rectangle = random.rectangle();
            double nearest = 1e9;
            double farthest = -1e9;
            for (int k = 0; k <= kSamples; ++k) {
                double const distance = distanceOutside(rectangle, sample(arc, k).convert2d());
                nearest = std::min(nearest, distance);
                farthest = std::max(farthest, distance);
            }
            double const step = (arc.u.length() + arc.v.length()) * arc.sweep() / kSamples;
            OdGeRegion2d const region = OdGeRegion2d::rectangle(rectangle);
            bool const crosses = region.crosses(arc);
            bool const inside = region.holds(arc);
            std::string const name = "case " + std::to_string(i);
            if (nearest <= 0)
                CPPUNIT_ASSERT_MESSAGE(name, crosses);
            else if (nearest > step)
                CPPUNIT_ASSERT_MESSAGE(name, !crosses);
            if (farthest < -step)
                CPPUNIT_ASSERT_MESSAGE(name, inside);
            else if (farthest > 0)
                CPPUNIT_ASSERT_MESSAGE(name, !inside);
            counts[0] += nearest <= 0;
            counts[1] += nearest > step;
            counts[2] += farthest < -step;
        }
        CPPUNIT_ASSERT(counts[0] > 400 && counts[1] > 400 && counts[2] > 20);
        CPPUNIT_ASSERT(counts[0] + counts[1] > 1480);
    }

    void arcTouchingARectangle()
    {
        auto const crosses = [](OdGeExtents2d const& box, OdGeEllipticArc const& arc) {
            return OdGeRegion2d::rectangle(box).crosses(arc);
        };
        auto const inside = [](OdGeExtents2d const& box, OdGeEllipticArc const& arc) {
            return OdGeRegion2d::rectangle(box).holds(arc);
        };
        auto const circle = OdGeEllipticArc::circular({0.1, 0.2, 9}, {0, 0, 1}, 0.7);
        CPPUNIT_ASSERT(crosses({{0.8, -1}, {2, 1}}, circle)); // touches from outside
        CPPUNIT_ASSERT(!crosses({{0.8001, -1}, {2, 1}}, circle));
        CPPUNIT_ASSERT(crosses({{0.8, 0.2}, {2, 1}}, circle));      // with a corner
        CPPUNIT_ASSERT(!crosses({{-0.2, 0}, {0.4, 0.5}}, circle));  // lies wholly in the hollow of the circle
        CPPUNIT_ASSERT(inside({{-0.6, -0.5}, {0.8, 0.9}}, circle)); // touches all four sides from inside
        CPPUNIT_ASSERT(!inside({{-0.6, -0.5}, {0.8, 0.8999}}, circle));
        CPPUNIT_ASSERT(!crosses({}, circle) && !inside({}, circle));

        // Both ends of the arc lie outside and its top reaches in.
        auto const arch = OdGeEllipticArc::circular({0, 0, 0}, {0, 0, 1}, 10, 0.5, 2.5);
        CPPUNIT_ASSERT(crosses({{-1, 9.9}, {1, 12}}, arch));
        CPPUNIT_ASSERT(!crosses({{-1, 10.1}, {1, 12}}, arch));
        CPPUNIT_ASSERT(!crosses({{-1, -12}, {1, -9}}, arch)); // where the rest of the circle would be

        // On edge a circle is seen as a segment.
        auto const onEdge = OdGeEllipticArc::circular({0, 0, 0}, {0, 1, 0}, 3);
        CPPUNIT_ASSERT(crosses({{2.9, -1}, {5, 1}}, onEdge) && inside({{-3, 0}, {3, 0}}, onEdge));
        CPPUNIT_ASSERT(crosses({{-1, -1}, {1, 1}}, onEdge) && !crosses({{-1, 0.1}, {1, 1}}, onEdge));
    }
};

CPPUNIT_TEST_SUITE_REGISTRATION(EllipticArcTest);

} // namespace
