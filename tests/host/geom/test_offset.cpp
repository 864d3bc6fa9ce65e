#include "host/geom/curves/od_ge_circ_arc3d.h"
#include "host/geom/curves/od_ge_ellip_arc3d.h"
#include "host/geom/curves/od_ge_linear3d.h"
#include "host/geom/curves/od_ge_nurb_curve3d.h"
#include "host/geom/curves/od_ge_offset.h"
#include "host/geom/curves/od_ge_segment_chain3d.h"
#include "host/root/od_error.h"
#include "tests/host/geom/curve_samples.h"

#include <cppunit/extensions/HelperMacros.h>

// Offsets whose lengths and areas are known, and what holds for all: no point is nearer to the original than the
// distance, and none is farther, except at corners.
namespace {

using Curves = std::vector<std::unique_ptr<OdGeCurve3d>>;

OdGeVector3d const kUp{0, 0, 1};

OdGeSegmentChain3d chain(std::vector<OdGePoint2d> points, bool isClosed = true, std::vector<double> bulges = {})
{
    return {std::move(points), std::move(bulges), isClosed};
}

// Counterclockwise.
OdGeSegmentChain3d rectangle()
{
    return chain({{0, 0}, {10, 0}, {10, 4}, {0, 4}});
}
OdGeSegmentChain3d slot()
{
    return chain({{0, 0}, {10, 0}, {10, 4}, {0, 4}}, true, {0, 1, 0, 1});
}
OdGeSegmentChain3d ell()
{
    return chain({{0, 0}, {10, 0}, {10, 3}, {3, 3}, {3, 8}, {0, 8}});
}

double sumOfLengths(Curves const& curves)
{
    double sum = 0;
    for (auto const& curve : curves)
        sum += curve->length();
    return sum;
}

double sumOfAreas(Curves const& curves)
{
    double sum = 0;
    for (auto const& curve : curves)
        sum += curve->signedArea(kUp);
    return sum;
}

class OffsetTest : public CppUnit::TestFixture
{
    CPPUNIT_TEST_SUITE(OffsetTest);
    CPPUNIT_TEST(closedChains);
    CPPUNIT_TEST(openChains);
    CPPUNIT_TEST(cornersAreKept);
    CPPUNIT_TEST(simpleCurves);
    CPPUNIT_TEST(fittedCurves);
    CPPUNIT_TEST(noPointIsTooNear);
    CPPUNIT_TEST(manySegments);
    CPPUNIT_TEST(wrongInput);
    CPPUNIT_TEST_SUITE_END();

    void closedChains()
    {
        struct Case
        {
            std::string name;
            OdGeSegmentChain3d chain;
            double distance;
            std::size_t count;
            double length;
            double area;
        };
        OdGeSegmentChain3d clockwise = rectangle();
        clockwise.reverseParam();
        OdGeSegmentChain3d const dumbbell = chain({{0, 0},
                                                   {4, 0},
                                                   {4, 1.5},
                                                   {8, 1.5},
                                                   {8, 0},
                                                   {12, 0},
                                                   {12, 4},
                                                   {8, 4},
                                                   {8, 2.5},
                                                   {4, 2.5},
                                                   {4, 4},
                                                   {0, 4}});
        OdGeSegmentChain3d const rounded = chain(
            {{2, 0}, {8, 0}, {10, 2}, {10, 8}, {8, 10}, {2, 10}, {0, 8}, {0, 2}}, true,
            {0, std::tan(OdaPI / 8), 0, std::tan(OdaPI / 8), 0, std::tan(OdaPI / 8), 0, std::tan(OdaPI / 8)});
        // Where the neck was, the arcs about its two corners meet.
        double const neckAngle = std::asin(0.5 / 0.6);
        Case const cases[] = {
            {"rectangle outwards", rectangle(), 1, 1, 36, 72},
            {"rectangle inwards", rectangle(), -1, 1, 20, 16},
            {"clockwise rectangle inwards", clockwise, 1, 1, 20, -16},
            {"rectangle, nothing left", rectangle(), -2.5, 0, 0, 0},
            {"rectangle, sides meet", rectangle(), -2, 0, 0, 0},
            {"slot outwards", slot(), 1, 1, 20 + 6 * OdaPI, 60 + 9 * OdaPI},
            {"slot inwards", slot(), -1, 1, 20 + 2 * OdaPI, 20 + OdaPI},
            {"slot, sides meet", slot(), -2, 0, 0, 0},
            {"slot, nothing left", slot(), -3, 0, 0, 0},
            {"L inwards", ell(), -1, 1, 28, 8 + 5},
            {"L outwards", ell(), 1, 1, 44, 120 - 35},
            {"L far outwards, over its inner corner", ell(), 4, 1, 68, 18 * 16 - 7 * 5},
            {"L, nothing left", ell(), -2, 0, 0, 0},
            {"dumbbell falls apart", dumbbell, -0.6, 2, 2 * (10.2 + 1.2 * neckAngle),
             2 * (2.8 * 2.8 + 0.6 - 0.5 * std::sqrt(0.11) - 0.36 * neckAngle)},
            {"rounded square, arcs vanish", rounded, -3, 1, 16, 16},
            {"rounded square, arcs at the end", rounded, -2, 1, 24, 36},
            {"rounded square outwards", rounded, 1, 1, 24 + 6 * OdaPI, 36 + 4 * 6 * 3 + 9 * OdaPI},
        };
        for (Case const& c : cases) {
            Curves const found = odgeOffset(c.chain, kUp, c.distance);
            CPPUNIT_ASSERT_EQUAL_MESSAGE(c.name, c.count, found.size());
            CPPUNIT_ASSERT_DOUBLES_EQUAL_MESSAGE(c.name, c.length, sumOfLengths(found), 1e-9);
            CPPUNIT_ASSERT_DOUBLES_EQUAL_MESSAGE(c.name, c.area, sumOfAreas(found), 1e-9);
            for (auto const& curve : found) {
                CPPUNIT_ASSERT_MESSAGE(c.name, curve->isClosed());
                CPPUNIT_ASSERT_MESSAGE(c.name, curve->type() == OdGeCurve3d::EType::kSegmentChain);
            }
        }
    }

    void openChains()
    {
        // A step: the outer corner is extended, the inner one cut back.
        Curves const right = odgeOffset(chain({{0, 0}, {5, 0}, {5, 5}, {10, 5}}, false), kUp, 1);
        CPPUNIT_ASSERT_EQUAL(std::size_t{1}, right.size());
        auto const& step = dynamic_cast<OdGeSegmentChain3d const&>(*right.front());
        CPPUNIT_ASSERT_EQUAL(4, step.numVertices());
        CPPUNIT_ASSERT(step.vertexAt(0).isEqualTo({0, -1, 0}, 1e-12) &&
                       step.vertexAt(1).isEqualTo({6, -1, 0}, 1e-12));
        CPPUNIT_ASSERT(step.vertexAt(2).isEqualTo({6, 4, 0}, 1e-12) &&
                       step.vertexAt(3).isEqualTo({10, 4, 0}, 1e-12));

        // A hook whose free end comes near to its own beginning: what is right up to there remains.
        Curves const hook = odgeOffset(chain({{0, 0}, {10, 0}, {10, 5}, {9, 5}, {9, 1}}, false), kUp, -1.5);
        OdGeExtents3d reach;
        for (auto const& curve : hook)
            reach.addExt(curve->extents());
        CPPUNIT_ASSERT_DOUBLES_EQUAL(0, reach.minPoint().x, 1e-12);
        CPPUNIT_ASSERT(std::ranges::any_of(hook, [](auto const& curve) {
            return curve->isOn({7.5, 1.5, 0}, nullptr, 1e-9);
        }));

        // Saw teeth of 0.1 vanish at a distance of 1: what remains runs over their tips.
        std::vector<OdGePoint2d> teeth;
        for (int i = 0; i <= 200; ++i)
            teeth.emplace_back(i * 0.1, i % 2 ? 0.1 : 0);
        OdGeSegmentChain3d const saw = chain(teeth, false);
        Curves const over = odgeOffset(saw, kUp, -1);
        CPPUNIT_ASSERT_EQUAL(std::size_t{1}, over.size());
        CPPUNIT_ASSERT(over.front()->length() > 19 && over.front()->length() < 25);
        OdGePoint3d start;
        OdGePoint3d end;
        CPPUNIT_ASSERT(over.front()->hasStartPoint(start) && over.front()->hasEndPoint(end));
        CPPUNIT_ASSERT(start.x < 0 && end.x > 20 && start.y > 0.7 && end.y > 0.7);

        // A hairpin with a way back along itself has a round end.
        Curves const hairpin = odgeOffset(chain({{0, 0}, {5, 0}, {1, 0}}, false), kUp, 1);
        CPPUNIT_ASSERT_EQUAL(std::size_t{1}, hairpin.size());
        CPPUNIT_ASSERT_DOUBLES_EQUAL(9 + OdaPI, hairpin.front()->length(), 1e-9);
    }

    void cornersAreKept()
    {
        // Line and arc meet at a corner that opens up: both are extended until they meet.
        OdGeSegmentChain3d const dee = chain({{0, 0}, {4, 0}}, true, {0, 1});
        Curves const around = odgeOffset(dee, kUp, 1);
        CPPUNIT_ASSERT_EQUAL(std::size_t{1}, around.size());
        auto const& outer = dynamic_cast<OdGeSegmentChain3d const&>(*around.front());
        CPPUNIT_ASSERT_EQUAL(2, outer.numVertices());
        double const half = std::sqrt(8.0); // radius 3, one below the center
        CPPUNIT_ASSERT_DOUBLES_EQUAL(2 * half, outer.vertexAt(0).distanceTo(outer.vertexAt(1)), 1e-9);
        CPPUNIT_ASSERT_DOUBLES_EQUAL(-1, outer.vertexAt(0).y, 1e-12);
        Curves const within = odgeOffset(dee, kUp, -0.5);
        CPPUNIT_ASSERT_EQUAL(std::size_t{1}, within.size());
        CPPUNIT_ASSERT_DOUBLES_EQUAL(0.5, within.front()->extents().minPoint().y, 1e-12);
        CPPUNIT_ASSERT_DOUBLES_EQUAL(1.5, within.front()->extents().maxPoint().y, 1e-12);

        // Seen against the other normal, right is left.
        CPPUNIT_ASSERT_DOUBLES_EQUAL(20, odgeOffset(rectangle(), -kUp, 1).front()->length(), 1e-12);
    }

    void simpleCurves()
    {
        OdGeCircArc3d const circle({1, 2, 3}, {0, 0, 1}, 5);
        auto const grown = odgeOffset(circle, kUp, 2);
        CPPUNIT_ASSERT_DOUBLES_EQUAL(14 * OdaPI, grown.front()->length(), 1e-12);
        CPPUNIT_ASSERT_DOUBLES_EQUAL(6 * OdaPI, odgeOffset(circle, -kUp, 2).front()->length(), 1e-12);
        CPPUNIT_ASSERT(odgeOffset(circle, kUp, -5).empty() && odgeOffset(circle, kUp, -6).empty());
        auto const line = odgeOffset(OdGeLine3d({0, 0, 0}, {0, 1, 0}), kUp, 3);
        CPPUNIT_ASSERT(line.front()->isOn({3, 77, 0}));
        auto const ray = odgeOffset(OdGeRay3d({0, 0, 0}, {1, 0, 0}), {0, 1, 0}, 3);
        CPPUNIT_ASSERT(ray.front()->evalPoint(0).isEqualTo({0, 0, 3}));
        auto const same = odgeOffset(rectangle(), kUp, 0);
        CPPUNIT_ASSERT_DOUBLES_EQUAL(28, same.front()->length(), 1e-12);
    }

    void fittedCurves()
    {
        OdGeEllipArc3d const ellipse({0, 0, 0}, {6, 0, 0}, {0, 3, 0});
        // Parallel curves of a convex curve: the length grows by 2 pi d, the area by L d + pi d^2.
        double const length = ellipse.length();
        for (double const distance : {0.5, 5.0, -1.0, -1.45}) {
            Curves const found = odgeOffset(ellipse, kUp, distance);
            CPPUNIT_ASSERT_EQUAL(std::size_t{1}, found.size());
            CPPUNIT_ASSERT(found.front()->isClosed(1e-9));
            CPPUNIT_ASSERT_DOUBLES_EQUAL(length + Oda2PI * distance, sumOfLengths(found), 1e-5);
            CPPUNIT_ASSERT_DOUBLES_EQUAL(18 * OdaPI + length * distance + OdaPI * distance * distance,
                                         sumOfAreas(found), 1e-4);
        }
        // Beyond the least radius of 1.5 two corners arise on the long axis; nothing remains at the short half
        // axis.
        Curves const cornered = odgeOffset(ellipse, kUp, -2);
        CPPUNIT_ASSERT_EQUAL(std::size_t{1}, cornered.size());
        CPPUNIT_ASSERT(cornered.front()->isClosed(1e-9));
        CPPUNIT_ASSERT_DOUBLES_EQUAL(1, cornered.front()->extents().maxPoint().y, 1e-5);
        CPPUNIT_ASSERT(odgeOffset(ellipse, kUp, -3.5).empty());

        // A spline with a corner gets an arc about it on the outer side, none on the inner one.
        OdGeNurbCurve3d const bent = OdGeNurbCurve3d::of(chain({{0, 0}, {4, 0}, {4, 4}}, false));
        CPPUNIT_ASSERT_DOUBLES_EQUAL(8 + OdaPI / 2, odgeOffset(bent, kUp, 1).front()->length(), 1e-5);
        CPPUNIT_ASSERT_DOUBLES_EQUAL(6, odgeOffset(bent, kUp, -1).front()->length(), 1e-5);
    }

    void noPointIsTooNear()
    {
        RandomNumbers random;
        std::size_t count = 0;
        for (CurveSample const& sample : curveSamples()) {
            auto const plane = sample.curve->plane(1e-9);
            if (!plane || coordinateSize(*sample.curve) > 1e4 || sample.curve->length() < 0.1)
                continue;
            double const distance = random.between(-0.3, 0.3) * sample.curve->length() / OdaPI;
            Curves const found = odgeOffset(*sample.curve, plane->normal(), distance);
            bool const isFitted = sample.curve->type() == OdGeCurve3d::EType::kEllipArc ||
                                  sample.curve->type() == OdGeCurve3d::EType::kNurb;
            double const tol = (isFitted ? 2e-6 : 1e-7) * (sample.curve->length() + std::abs(distance));
            for (auto const& curve : found)
                for (int i = 0; i <= 100; ++i) {
                    OdGeInterval const interval = curve->getInterval();
                    OdGePoint3d const point = curve->evalPoint(interval.lower + interval.length() * i / 100);
                    CPPUNIT_ASSERT_MESSAGE(sample.name + " by " + std::to_string(distance),
                                           sample.curve->distanceTo(point) >= std::abs(distance) - tol);
                    ++count;
                }
        }
        CPPUNIT_ASSERT(count > 1000);
    }

    void manySegments()
    {
        std::vector<OdGePoint2d> points;
        for (int i = 0; i < 1000; ++i) {
            double const angle = Oda2PI * i / 1000;
            double const radius = 100 + 5 * std::sin(20 * angle);
            points.emplace_back(radius * std::cos(angle), radius * std::sin(angle));
        }
        OdGeSegmentChain3d const star = chain(points);
        for (double const distance : {3.0, -3.0, 30.0, -30.0}) {
            Curves const found = odgeOffset(star, kUp, distance);
            CPPUNIT_ASSERT_EQUAL(std::size_t{1}, found.size());
            double const area = sumOfAreas(found) / (OdaPI * (100 + distance) * (100 + distance));
            CPPUNIT_ASSERT(area > 0.8 && area < 1.2);
        }
    }

    void wrongInput()
    {
        CPPUNIT_ASSERT_THROW(odgeOffset(rectangle(), {1, 0, 1}, 1), OdError);
        CPPUNIT_ASSERT_THROW(odgeOffset(rectangle(), {0, 0, 0}, 1), OdError);
        CPPUNIT_ASSERT_THROW(odgeOffset(rectangle(), kUp, std::numeric_limits<double>::quiet_NaN()), OdError);
        CPPUNIT_ASSERT_THROW(odgeOffset(OdGeLine3d({0, 0, 0}, {0, 1, 1}), kUp, 1), OdError);
        CPPUNIT_ASSERT(odgeOffset(OdGeSegmentChain3d(), kUp, 1).empty());
    }
};

CPPUNIT_TEST_SUITE_REGISTRATION(OffsetTest);

} // namespace
