#include "host/geom/curves/od_ge_circ_arc3d.h"
#include "host/geom/curves/od_ge_ellip_arc3d.h"
#include "host/geom/curves/od_ge_intersect.h"
#include "host/geom/curves/od_ge_linear3d.h"
#include "host/geom/curves/od_ge_nurb_curve3d.h"
#include "host/geom/curves/od_ge_segment_chain3d.h"
#include "tests/host/geom/curve_samples.h"

#include <cppunit/extensions/HelperMacros.h>

// Curves moved so that they meet where a test wants them to, for all pairs of classes, and cases with known
// counts.
namespace {

using Points = std::vector<OdGePoint3d>;

std::string describe(std::vector<OdGeIntersection> const& found)
{
    std::string text = std::to_string(found.size()) + " found:";
    for (OdGeIntersection const& hit : found)
        text += " (" + std::to_string(hit.paramA) + ", " + std::to_string(hit.paramB) +
                (hit.isOverlap ? ", overlap)" : ")");
    return text;
}

// Each point lies on both curves, and parameters ascend.
std::vector<OdGeIntersection> checkedIntersect(OdGeCurve3d const& a, OdGeCurve3d const& b, std::string const& name,
                                               double tol = 1e-10)
{
    std::vector<OdGeIntersection> const found = odgeIntersect(a, b, tol);
    double last = -std::numeric_limits<double>::infinity();
    for (OdGeIntersection const& hit : found) {
        double const most = 8 * tol + 1e-13 * (hit.point.asVector().length() +
                                               (a.getInterval().isBounded() ? coordinateSize(a) : 0));
        CPPUNIT_ASSERT_MESSAGE(name + ": " + describe(found),
                               a.evalPoint(hit.paramA).distanceTo(hit.point) <= most);
        CPPUNIT_ASSERT_MESSAGE(name + ": " + describe(found),
                               b.evalPoint(hit.paramB).distanceTo(hit.point) <= most);
        CPPUNIT_ASSERT_MESSAGE(name + ": " + describe(found), hit.paramA >= last);
        last = hit.paramA;
    }
    return found;
}

OdGeSegmentChain3d chain(Points const& points, bool isClosed = false)
{
    return {points, isClosed};
}

OdGeNurbCurve3d spline(int degree, Points const& points)
{
    return OdGeNurbCurve3d::ofControlPoints(degree, points);
}

class IntersectTest : public CppUnit::TestFixture
{
    CPPUNIT_TEST_SUITE(IntersectTest);
    CPPUNIT_TEST(knownCounts);
    CPPUNIT_TEST(knownStretches);
    CPPUNIT_TEST(everyPairMeetsWhereItIsMadeTo);
    CPPUNIT_TEST(everyCurveCoversItselfAndItsParts);
    CPPUNIT_TEST(endlessLines);
    CPPUNIT_TEST(farFromTheOrigin);
    CPPUNIT_TEST(longChains);
    CPPUNIT_TEST_SUITE_END();

    void knownCounts()
    {
        OdGeVector3d const z{0, 0, 1};
        OdGeCircArc3d const unit;
        OdGeCircArc3d const upright({2, 0, 0}, {0, 1, 0}, 1);
        OdGeEllipArc3d const flat({0, 0, 0}, {4, 0, 0}, {0, 1, 0});
        OdGeNurbCurve3d const wave =
            spline(3, {{-3, 0, 0}, {-2, 4, 0}, {0, -6, 0}, {2, 6, 0}, {3, -3, 0}, {4, 0, 0}});
        struct Case
        {
            std::string name;
            std::shared_ptr<OdGeCurve3d> a;
            std::shared_ptr<OdGeCurve3d> b;
            std::size_t count;
        };
        auto const of = [](auto const& curve) { return std::shared_ptr<OdGeCurve3d>(curve.copy()); };
        auto const segment = [&](OdGePoint3d const& p, OdGePoint3d const& q) { return of(OdGeLineSeg3d(p, q)); };
        auto const circle = [&](OdGePoint3d const& center, double radius) {
            return of(OdGeCircArc3d(center, z, radius));
        };
        Case const cases[] = {
            {"crossing segments", segment({0, 0, 0}, {2, 2, 0}), segment({0, 2, 0}, {2, 0, 0}), 1},
            {"skew segments", segment({0, 0, 0}, {2, 2, 0}), segment({0, 2, 1}, {2, 0, 1}), 0},
            {"segments that would meet", segment({0, 0, 0}, {1, 1, 0}), segment({3, 0, 0}, {2, 1, 0}), 0},
            {"end on segment", segment({0, 0, 0}, {2, 0, 0}), segment({1, 0, 0}, {1, 5, 0}), 1},
            {"common end", segment({0, 0, 0}, {2, 0, 0}), segment({2, 0, 0}, {1, 5, 0}), 1},
            {"colinear, end to end", segment({0, 0, 0}, {2, 0, 0}), segment({2, 0, 0}, {5, 0, 0}), 1},
            {"colinear, apart", segment({0, 0, 0}, {2, 0, 0}), segment({3, 0, 0}, {5, 0, 0}), 0},
            {"point on segment", segment({0, 0, 0}, {2, 0, 0}), segment({1, 0, 0}, {1, 0, 0}), 1},
            {"two points", segment({1, 0, 0}, {1, 0, 0}), segment({1, 0, 0}, {1, 0, 0}), 1},
            {"secant", segment({-2, 0.5, 0}, {2, 0.5, 0}), of(unit), 2},
            {"tangent line", segment({-2, 1, 0}, {2, 1, 0}), of(unit), 1},
            {"line beside circle", segment({-2, 1.000001, 0}, {2, 1.000001, 0}), of(unit), 0},
            {"line through circle's plane", segment({0, 1, -1}, {0, 1, 1}), of(unit), 1},
            {"line through circle's inside", segment({0, 0, -1}, {0, 0, 1}), of(unit), 0},
            {"half circle", segment({-2, -0.5, 0}, {2, -0.5, 0}), of(OdGeCircArc3d({}, z, {1, 0, 0}, 1, 0, OdaPI)),
             0},
            {"circle of no size on line", segment({-2, 0, 0}, {2, 0, 0}), circle({1, 0, 0}, 0), 1},
            {"crossing circles", of(unit), circle({1, 0, 0}, 1), 2},
            {"touching circles", of(unit), circle({3, 0, 0}, 2), 1},
            {"touching from within", of(unit), circle({0.5, 0, 0}, 0.5), 1},
            {"touching around", circle({0.5, 0, 0}, 0.5), of(unit), 1},
            {"concentric circles", of(unit), circle({0, 0, 0}, 2), 0},
            {"circles apart", of(unit), circle({5, 0, 0}, 2), 0},
            {"circles in parallel planes", of(unit), circle({0, 0, 1}, 1), 0},
            {"circles in crossing planes", of(unit), of(upright), 1},
            {"linked circles", of(unit), of(OdGeCircArc3d({1.5, 0, 0}, {0, 1, 0}, 1)), 0},
            {"crossing ellipses", of(flat), of(OdGeEllipArc3d({0, 0, 0}, {1, 0, 0}, {0, 4, 0})), 4},
            {"ellipse touches circle twice", of(flat), of(unit), 2},
            {"ellipse touches ellipse from within", of(OdGeEllipArc3d({3, 0, 0}, {1, 0, 0}, {0, 0.1, 0})),
             of(flat), 1},
            {"ellipse and circle osculate", of(flat), circle({3.75, 0, 0}, 0.25), 1},
            {"line touches ellipse", segment({-5, 1, 0}, {5, 1, 0}), of(flat), 1},
            {"line through wave", of(wave), segment({-5, 0, 0}, {5, 0, 0}), 5},
            {"spline touches circle", circle({0, -1, 0}, 1), of(spline(2, {{-1, 1, 0}, {0, -1, 0}, {1, 1, 0}})),
             1},
            {"spline crosses itself at the circle", of(spline(3, {{0, 0, 0}, {4, 4, 0}, {-3, 4, 0}, {1, 0, 0}})),
             circle({0.5, 0.3, 0}, 0.5), 4},
            {"box and diagonal", of(chain({{0, 0, 0}, {2, 0, 0}, {2, 2, 0}, {0, 2, 0}}, true)),
             segment({-1, -1, 0}, {3, 3, 0}), 2},
            {"box and circle inside", of(chain({{-1, -1, 0}, {1, -1, 0}, {1, 1, 0}, {-1, 1, 0}}, true)), of(unit),
             4},
            {"crossing chains", of(chain({{0, 0, 0}, {2, 2, 0}, {4, 0, 0}})),
             of(chain({{0, 1, 0}, {4, 1, 0}, {4, -1, 0}})), 3},
        };
        for (Case const& c : cases) {
            CPPUNIT_ASSERT_EQUAL_MESSAGE(c.name + ": " + describe(odgeIntersect(*c.a, *c.b)), c.count,
                                         checkedIntersect(*c.a, *c.b, c.name).size());
            CPPUNIT_ASSERT_EQUAL_MESSAGE(c.name + ", reversed: " + describe(odgeIntersect(*c.b, *c.a)), c.count,
                                         checkedIntersect(*c.b, *c.a, c.name).size());
        }
    }

    void knownStretches()
    {
        struct Case
        {
            std::string name;
            std::shared_ptr<OdGeCurve3d> a;
            std::shared_ptr<OdGeCurve3d> b;
            std::vector<double> params; ///< on the first curve
        };
        OdGeVector3d const z{0, 0, 1};
        auto const of = [](auto const& curve) { return std::shared_ptr<OdGeCurve3d>(curve.copy()); };
        auto const arc = [&](double from, double to) {
            return of(OdGeCircArc3d({1, 1, 0}, z, {1, 0, 0}, 2, from, to));
        };
        auto const mirrored = of(OdGeCircArc3d({1, 1, 0}, -z, {1, 0, 0}, 2, -2, -1));
        Case const cases[] = {
            {"segments",
             of(OdGeLineSeg3d({0, 0, 0}, {4, 0, 0})),
             of(OdGeLineSeg3d({6, 0, 0}, {1, 0, 0})),
             {0.25, 1}},
            {"segment within segment",
             of(OdGeLineSeg3d({0, 0, 0}, {4, 0, 0})),
             of(OdGeLineSeg3d({1, 0, 0}, {2, 0, 0})),
             {0.25, 0.5}},
            {"arcs", arc(0, 2), arc(1, 3), {1, 2}},
            {"arcs in opposite directions", arc(0, 3), mirrored, {1, 2}},
            {"arcs that share both ends", arc(0, 4), arc(3, 7), {0, 7 - Oda2PI, 3, 4}},
            {"arcs end to end", arc(0, 2), arc(2, 3), {2}},
            {"whole circles", arc(0, Oda2PI), arc(1, 1 + Oda2PI), {0, Oda2PI}},
            {"circle and arc over its start", arc(0, Oda2PI), arc(5, 7), {0, 7 - Oda2PI, 5, Oda2PI}},
            {"chains",
             of(chain({{0, 0, 0}, {2, 0, 0}, {2, 2, 0}})),
             of(chain({{1, 0, 0}, {2, 0, 0}, {2, 1, 0}, {3, 1, 0}})),
             {0.5, 1.5}},
            {"chain and segment, shared twice",
             of(chain({{0, 0, 0}, {1, 0, 0}, {1, 1, 0}, {3, 1, 0}, {3, 0, 0}, {4, 0, 0}})),
             of(OdGeLineSeg3d({0, 0, 0}, {4, 0, 0})),
             {0, 1, 4, 5}},
        };
        for (Case const& c : cases) {
            auto const found = checkedIntersect(*c.a, *c.b, c.name);
            CPPUNIT_ASSERT_EQUAL_MESSAGE(c.name + ": " + describe(found), c.params.size(), found.size());
            for (std::size_t i = 0; i < found.size(); ++i) {
                CPPUNIT_ASSERT_DOUBLES_EQUAL_MESSAGE(c.name + ": " + describe(found), c.params[i], found[i].paramA,
                                                     1e-9);
                CPPUNIT_ASSERT_EQUAL_MESSAGE(c.name, c.params.size() > 1, found[i].isOverlap);
            }
        }
    }

    void everyPairMeetsWhereItIsMadeTo()
    {
        RandomNumbers random;
        std::vector<CurveSample> const samples = curveSamples();
        for (CurveSample const& a : samples)
            for (CurveSample const& b : samples) {
                if (a.curve->length() == 0 || b.curve->length() == 0)
                    continue;
                double const s = random.paramOf(*a.curve);
                double const t = random.paramOf(*b.curve);
                auto const moved = b.curve->copy();
                moved->transformBy(OdGeMatrix3d::translation(a.curve->evalPoint(s) - moved->evalPoint(t)));
                double const size = std::max(coordinateSize(*a.curve), coordinateSize(*b.curve));
                double const tol = 1e-10 + 1e-14 * size;
                auto const found = checkedIntersect(*a.curve, *moved, a.name + " and " + b.name, tol);
                bool const isHit = std::ranges::any_of(found, [&](OdGeIntersection const& hit) {
                    return hit.point.distanceTo(a.curve->evalPoint(s)) <= 1e4 * tol;
                });
                bool const isCovered =
                    std::ranges::any_of(found, [](OdGeIntersection const& hit) { return hit.isOverlap; });
                CPPUNIT_ASSERT_MESSAGE(a.name + " and " + b.name + ": " + describe(found) + " instead of " +
                                           std::to_string(s) + ", " + std::to_string(t),
                                       isHit || isCovered);
            }
    }

    void everyCurveCoversItselfAndItsParts()
    {
        for (CurveSample const& sample : curveSamples()) {
            OdGeCurve3d const& curve = *sample.curve;
            OdGeInterval const interval = curve.getInterval();
            if (curve.length() < 1e-8)
                continue;
            auto const whole = checkedIntersect(curve, curve, sample.name);
            CPPUNIT_ASSERT_MESSAGE(sample.name + ": " + describe(whole),
                                   whole.size() >= 2 && whole.front().isOverlap && whole.back().isOverlap);
            CPPUNIT_ASSERT_DOUBLES_EQUAL_MESSAGE(sample.name + ": " + describe(whole), interval.lower,
                                                 whole.front().paramA, 1e-6 * interval.length());
            CPPUNIT_ASSERT_DOUBLES_EQUAL_MESSAGE(sample.name + ": " + describe(whole), interval.upper,
                                                 whole.back().paramA, 1e-6 * interval.length());
            double const from = interval.lower + 0.3 * interval.length();
            double const to = interval.lower + 0.8 * interval.length();
            auto const part = curve.trimmed(from, to);
            part->reverseParam();
            double const tol = 1e-10 + 1e-15 * coordinateSize(curve);
            auto const found = checkedIntersect(curve, *part, sample.name, tol);
            auto const isAt = [&](double param) {
                return std::ranges::any_of(found, [&](OdGeIntersection const& hit) {
                    return hit.isOverlap && hit.point.distanceTo(curve.evalPoint(param)) <= 100 * tol;
                });
            };
            CPPUNIT_ASSERT_MESSAGE(sample.name + ", its part: " + describe(found), isAt(from) && isAt(to));
        }
    }

    void endlessLines()
    {
        OdGeLine3d const xAxis;
        OdGeRay3d const right({3, 0, 0}, {1, 0, 0});
        OdGeRay3d const left({5, 0, 0}, {-1, 0, 0});
        OdGeRay3d const up({1, -2, 0}, {0, 1, 0});
        CPPUNIT_ASSERT_EQUAL(std::size_t{0}, odgeIntersect(xAxis, xAxis).size());
        CPPUNIT_ASSERT_EQUAL(std::size_t{1}, checkedIntersect(xAxis, up, "line and ray").size());
        CPPUNIT_ASSERT_EQUAL(std::size_t{0}, odgeIntersect(right, up).size());
        CPPUNIT_ASSERT_EQUAL(std::size_t{1}, checkedIntersect(xAxis, right, "ray on line").size());
        CPPUNIT_ASSERT(odgeIntersect(xAxis, right).front().isOverlap);
        auto const between = checkedIntersect(right, left, "facing rays");
        CPPUNIT_ASSERT(between.size() == 2 && between[0].paramA == 0 && between[1].paramA == 2);
        CPPUNIT_ASSERT_EQUAL(std::size_t{2}, checkedIntersect(xAxis, OdGeCircArc3d(), "line and circle").size());
        CPPUNIT_ASSERT_EQUAL(
            std::size_t{1},
            checkedIntersect(up, OdGeEllipArc3d({1, 0, 0}, {2, 0, 0}, {0, -2.5, 0}), "ray and ellipse").size());
        CPPUNIT_ASSERT_EQUAL(
            std::size_t{2},
            checkedIntersect(xAxis, spline(2, {{-1, 1, 0}, {0, -3, 0}, {1, 1, 0}}), "line and spline").size());
        CPPUNIT_ASSERT_EQUAL(
            std::size_t{3},
            checkedIntersect(chain({{0, 1, 0}, {1, -1, 0}, {2, 1, 0}, {3, -1, 0}}), xAxis, "chain and line")
                .size());
    }

    void farFromTheOrigin()
    {
        // The constructions of a thousandth of a unit, ten thousand kilometres away.
        OdGeVector3d const far{1e7, -3e7, 2e6};
        auto const move = [&](OdGeCurve3d& curve) {
            curve.transformBy(OdGeMatrix3d::translation(far) * OdGeMatrix3d::scaling(1e-3));
        };
        OdGeCircArc3d circle;
        OdGeCircArc3d other({1, 0, 0}, {0, 0, 1}, 1);
        OdGeCircArc3d touching({3, 0, 0}, {0, 0, 1}, 2);
        OdGeLineSeg3d secant({-2, 0.5, 0}, {2, 0.5, 0});
        OdGeEllipArc3d ellipse({0, 0, 0}, {2, 0, 0}, {0, 0.5, 0});
        for (OdGeCurve3d* curve :
             std::initializer_list<OdGeCurve3d*>{&circle, &other, &touching, &secant, &ellipse})
            move(*curve);
        CPPUNIT_ASSERT_EQUAL(std::size_t{2}, checkedIntersect(circle, other, "circles").size());
        CPPUNIT_ASSERT_EQUAL(std::size_t{1}, checkedIntersect(circle, touching, "touching circles").size());
        CPPUNIT_ASSERT_EQUAL(std::size_t{2}, checkedIntersect(circle, secant, "circle and segment").size());
        CPPUNIT_ASSERT_EQUAL(std::size_t{4}, checkedIntersect(circle, ellipse, "circle and ellipse").size());
    }

    void longChains()
    {
        Points zigzag;
        Points staircase;
        for (int i = 0; i <= 10'000; ++i) {
            zigzag.emplace_back(i, i % 2, 0);
            staircase.emplace_back(i + 0.25, 0.5, 0);
        }
        auto const a = chain(zigzag);
        CPPUNIT_ASSERT_EQUAL(std::size_t{10'000}, odgeIntersect(a, chain(staircase)).size());
        CPPUNIT_ASSERT_EQUAL(std::size_t{2}, odgeIntersect(a, a).size());
    }
};

CPPUNIT_TEST_SUITE_REGISTRATION(IntersectTest);

} // namespace
