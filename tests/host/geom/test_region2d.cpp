// Pieces of geometry against rectangles, polygons and fences: by hand at the edges, by dense samples at random.
#include "host/geom/od_ge_region2d.h"

#include <cppunit/extensions/HelperMacros.h>

#include <random>

namespace {

using Points = std::vector<OdGePoint2d>;

OdGeRegion2d box(OdGePoint2d const& low, OdGePoint2d const& high)
{
    return OdGeRegion2d::rectangle({low, high});
}

/// An L: the notch is above and to the right of (1, 1).
OdGeRegion2d notched()
{
    return OdGeRegion2d::polygon({{0, 0}, {3, 0}, {3, 1}, {1, 1}, {1, 3}, {0, 3}});
}

class TestRegion2d : public CppUnit::TestFixture
{
    CPPUNIT_TEST_SUITE(TestRegion2d);
    CPPUNIT_TEST(segmentsAndRectangles);
    CPPUNIT_TEST(segmentsAndPolygons);
    CPPUNIT_TEST(segmentsAndFences);
    CPPUNIT_TEST(filledPolygons);
    CPPUNIT_TEST(endlessLines);
    CPPUNIT_TEST(arcs);
    CPPUNIT_TEST(splines);
    CPPUNIT_TEST(nothingHasNoGeometry);
    CPPUNIT_TEST(farFromTheOrigin);
    CPPUNIT_TEST(curvesAgreeWithSampling);
    CPPUNIT_TEST(parallelogramsAgreeWithSampling);
    CPPUNIT_TEST_SUITE_END();

    void segmentsAndRectangles()
    {
        OdGeRegion2d const area = box({0, 0}, {4, 2});
        CPPUNIT_ASSERT(area.crosses({-1, 1}, {5, 1}) && area.crosses({1, 1}, {2, 1}) &&
                       area.crosses({1, 1}, {9, 9}));
        CPPUNIT_ASSERT(area.crosses({-1, 0.5}, {2, -0.5}));  // cuts off a corner
        CPPUNIT_ASSERT(!area.crosses({-1, 0.5}, {0.5, -1})); // passes it, though the boxes overlap
        CPPUNIT_ASSERT(area.crosses({-1, 1}, {1, -1}));      // through the corner itself
        CPPUNIT_ASSERT(area.crosses({1, 2}, {3, 2}) && area.crosses({4, -5}, {4, 5}));
        CPPUNIT_ASSERT(!area.crosses({5, -5}, {5, 5}) && !area.crosses({-3, 1}, {-1, 1}));
        CPPUNIT_ASSERT(area.crosses({4, 2}, {4, 2}) && !area.crosses({4.1, 2}, {4.1, 2}));
        CPPUNIT_ASSERT(area.holds({0, 0}, {4, 2}) && !area.holds({1, 1}, {4.1, 2}));
        CPPUNIT_ASSERT(area.holds({4 + 5e-11, 2}) && !area.holds({4 + 1e-9, 2}));
        // A box without height, as two picked points on one level make it, and one without any size.
        CPPUNIT_ASSERT(box({0, 1}, {4, 1}).crosses({2, 0}, {2, 3}));
        CPPUNIT_ASSERT(box({2, 1}, {2, 1}).crosses({2, 0}, {2, 3}) &&
                       !box({2, 1}, {2, 1}).crosses({1, 0}, {1, 3}));
    }

    void segmentsAndPolygons()
    {
        OdGeRegion2d const area = notched();
        CPPUNIT_ASSERT(area.contains({0.5, 2.5}) && area.contains({1, 2}) && area.contains({3, 1}));
        CPPUNIT_ASSERT(!area.contains({2, 2}) && !area.contains({1 + 1e-9, 2}) && area.contains({1 + 5e-11, 2}));
        CPPUNIT_ASSERT(!area.crosses({2, 1.5}, {1.5, 2})); // within the notch
        CPPUNIT_ASSERT(area.crosses({2, 1.5}, {0.9, 1.5}) && area.crosses({1, 5}, {1, 2}));
        CPPUNIT_ASSERT(area.crosses({1, 1}, {9, 9})); // from the inner corner outwards
        CPPUNIT_ASSERT(area.crosses({2, 0}, {0, 2}) && area.holds({2, 0}, {0, 2})); // through the inner corner
        CPPUNIT_ASSERT(!area.holds({2.5, 0.5}, {0.5, 2.5})); // ends inside, middle in the notch
        CPPUNIT_ASSERT(area.holds({0, 3}, {0, 0}) && area.holds({3, 1}, {0, 1})); // along the border
        CPPUNIT_ASSERT(!area.holds({0, 3}, {0, -1}) && !area.holds({3, 1}, {1, 3}));
        CPPUNIT_ASSERT(area.crosses({-5, 0.5}, {5, 0.5}) && !area.holds({-5, 0.5}, {5, 0.5}));
    }

    void segmentsAndFences()
    {
        OdGeRegion2d const fence = OdGeRegion2d::fence({{0, 0}, {4, 0}, {4, 4}});
        CPPUNIT_ASSERT(fence.crosses({2, -1}, {2, 1}) && fence.crosses({3, 2}, {5, 2}));
        CPPUNIT_ASSERT(!fence.crosses({0, 1}, {3, 4}) && !fence.crosses({2, 1}, {3, 2})); // no side closes it
        CPPUNIT_ASSERT(fence.crosses({1, 0}, {3, 0}) && fence.crosses({4, 4}, {9, 9}) &&
                       fence.crosses({4, 0}, {9, -9}));
        CPPUNIT_ASSERT(!fence.crosses({5, 0}, {6, 0}) && !fence.crosses({2, 1e-9}, {2, 1}));
        CPPUNIT_ASSERT(fence.contains({4, 3}) && !fence.contains({3, 3}));
        CPPUNIT_ASSERT(!fence.holds({1, 0}, {3, 0}) && !fence.holds({4, 3}) && !fence.isFilled());
    }

    void filledPolygons()
    {
        OdGeRegion2d const area = box({0, 0}, {1, 1});
        Points const around = {{-5, -5}, {5, -5}, {5, 5}, {-5, 5}};
        Points const within = {{0, 0}, {1, 0}, {0.5, 1}};
        Points const beside = {{2, 0}, {3, 0}, {3, 1}, {2, 1}};
        // The rectangle lies in the notch of an L, in its box but outside of it.
        Points const aroundNotch = {{-2, -2}, {3, -2}, {3, -1}, {-1, -1}, {-1, 3}, {-2, 3}};
        CPPUNIT_ASSERT(area.crosses(around) && !area.holds(around));
        CPPUNIT_ASSERT(area.crosses(within) && area.holds(within));
        CPPUNIT_ASSERT(!area.crosses(beside) && !area.holds(beside));
        CPPUNIT_ASSERT(!area.crosses(aroundNotch));
        CPPUNIT_ASSERT(!area.crosses(Points()) && !area.holds(Points()));
        // All corners lie in the L, but not what is between them.
        CPPUNIT_ASSERT(!notched().holds(Points{{0.5, 0.5}, {2.5, 0.5}, {0.5, 2.5}}));
        CPPUNIT_ASSERT(notched().crosses(Points{{2, 2}, {9, 2}, {9, 9}, {1, 9}, {0.9, 2.9}}));
        // A fence, and a fence of one point, within a filled polygon.
        CPPUNIT_ASSERT(OdGeRegion2d::fence({{0, 0}, {1, 1}}).crosses(around));
        CPPUNIT_ASSERT(OdGeRegion2d::fence({{0, 0}}).crosses(around) &&
                       !OdGeRegion2d::fence({{9, 0}}).crosses(around));
    }

    void endlessLines()
    {
        OdGeRegion2d const area = notched();
        CPPUNIT_ASSERT(area.crossesEndless({-50, 0.5}, {-1, 0}, false) &&
                       !area.crossesEndless({-50, 0.5}, {-1, 0}, true) &&
                       area.crossesEndless({-50, 0.5}, {1e-3, 0}, true));
        CPPUNIT_ASSERT(area.crossesEndless({0.5, 0.5}, {1, 1}, true));
        CPPUNIT_ASSERT(!area.crossesEndless({2, 2}, {1, 1}, true) && area.crossesEndless({2, 2}, {1, 1}, false));
        CPPUNIT_ASSERT(
            !area.crossesEndless({4.1, 0}, {-1, 1}, false)); // over the notch's outer edge, beside both legs
        CPPUNIT_ASSERT(area.crossesEndless({4, 0}, {-1, 1}, false)); // touches two corners
        OdGeRegion2d const fence = OdGeRegion2d::fence({{0, 0}, {2, 0}});
        CPPUNIT_ASSERT(fence.crossesEndless({1, -7}, {0, 1}, true) &&
                       !fence.crossesEndless({3, -7}, {0, 1}, false));
        CPPUNIT_ASSERT(fence.crossesEndless({9, 0}, {1, 0}, false) && !fence.crossesEndless({9, 0}, {1, 0}, true));
        // Seen from its end, a line is a point.
        CPPUNIT_ASSERT(area.crossesEndless({0.5, 0.5}, {0, 0}, false) &&
                       !area.crossesEndless({2, 2}, {0, 0}, false));
    }

    void arcs()
    {
        auto const circle = [](double x, double y, double radius, double start = 0, double end = Oda2PI) {
            return OdGeEllipticArc::circular({x, y, 0}, {0, 0, 1}, radius, start, end);
        };
        OdGeRegion2d const area = notched();
        CPPUNIT_ASSERT(!area.crosses(circle(2, 2, 0.99)) && area.crosses(circle(2, 2, 1)));
        CPPUNIT_ASSERT(area.holds(circle(0.5, 0.5, 0.5)) && !area.holds(circle(0.5, 0.5, 0.501)));
        CPPUNIT_ASSERT(!area.crosses(circle(1, 1, 9)) && !area.holds(circle(1, 1, 9)));
        // From leg to leg around the inner corner, and through the notch.
        CPPUNIT_ASSERT(area.holds(circle(2, 2, 1.5, OdaPI, 1.5 * OdaPI)));
        CPPUNIT_ASSERT(!area.holds(circle(0.5, 0.5, 1.5, 0, OdaPI2)) &&
                       area.crosses(circle(0.5, 0.5, 1.5, 0, OdaPI2)));
        OdGeRegion2d const fence = OdGeRegion2d::fence({{-3, 1}, {3, 1}, {3, 0}});
        CPPUNIT_ASSERT(fence.crosses(circle(0, 0, 1)) && !fence.crosses(circle(0, 0, 0.999))); // touches
        CPPUNIT_ASSERT(!fence.crosses(circle(0, 0, 1, OdaPI, Oda2PI)) && fence.crosses(circle(0, 0, 2)));
        CPPUNIT_ASSERT(!fence.crosses(circle(0, 0, 3.5)) && fence.crosses(circle(0, 0, 3)));
        // An ellipse seen from the side is a segment: here from -2 to 2 on the fence's own line, and beside it.
        CPPUNIT_ASSERT(fence.crosses(OdGeEllipticArc({5, 1, 0}, {2, 0, 0}, {0, 0, 1})));
        CPPUNIT_ASSERT(!fence.crosses(OdGeEllipticArc({5.1, 1, 0}, {2, 0, 0}, {0, 0, 1})));
    }

    void splines()
    {
        // A parabola through (0, 0), (1, 1), (2, 0).
        Points const flat = {{0, 0}, {1, 2}, {2, 0}};
        OdGeNurbCurve3d const parabola = curve(flat);
        CPPUNIT_ASSERT(!box({0.9, 1.001}, {1.1, 3}).crosses(parabola) &&
                       box({0.9, 1}, {1.1, 3}).crosses(parabola));
        CPPUNIT_ASSERT(!box({0.9, 0}, {1.1, 0.98}).crosses(parabola));
        CPPUNIT_ASSERT(box({0, 0}, {2, 1}).holds(parabola) && !box({0, 0}, {2, 0.9999}).holds(parabola));
        CPPUNIT_ASSERT(OdGeRegion2d::polygon({{0, 0}, {2, 0}, {2, 1}, {1, 1}, {0, 1}}).holds(parabola));
        CPPUNIT_ASSERT(!OdGeRegion2d::polygon({{0, 0}, {2, 0}, {2, 1}, {1, 0.999}, {0, 1}}).holds(parabola));
        CPPUNIT_ASSERT(OdGeRegion2d::fence({{0, 1}, {2, 1}}).crosses(parabola)); // touches
        CPPUNIT_ASSERT(!OdGeRegion2d::fence({{0, 1.000001}, {2, 1.000001}}).crosses(parabola));
        CPPUNIT_ASSERT(OdGeRegion2d::fence({{0, 0.999999}, {2, 0.999999}}).crosses(parabola));
        CPPUNIT_ASSERT(!OdGeRegion2d::fence({{0.5, 0.74}, {1, 0.99}, {1.5, 0.74}}).crosses(parabola)); // below
    }

    void nothingHasNoGeometry()
    {
        OdGeNurbCurve3d const parabola = curve({{0, 0}, {1, 2}, {2, 0}});
        for (OdGeRegion2d const& none :
             {OdGeRegion2d(), OdGeRegion2d::rectangle({}), OdGeRegion2d::polygon({}), OdGeRegion2d::fence({})}) {
            CPPUNIT_ASSERT(!none.contains({0, 0}) && !none.crosses({-1, -1}, {1, 1}) &&
                           !none.holds({0, 0}, {0, 0}));
            CPPUNIT_ASSERT(!none.crosses(parabola) && !none.crossesEndless({0, 0}, {1, 0}, false));
            CPPUNIT_ASSERT(!none.crosses(Points{{-1, -1}, {1, -1}, {0, 1}}));
            CPPUNIT_ASSERT(!none.crosses(OdGeEllipticArc({0, 0, 0}, {1, 0, 0}, {0, 1, 0})));
        }
    }

    void farFromTheOrigin()
    {
        // Corners that agree to the bit touch, however coarse doubles are there.
        double const far = 4e6 + 0.1;
        CPPUNIT_ASSERT(box({far, far}, {far + 1, far + 1}).crosses({far - 1, far + 1}, {far, far}));
        CPPUNIT_ASSERT(
            OdGeRegion2d::fence({{far, far}, {far + 1, far + 2}}).crosses({far + 1, far}, {far, far + 2}));
        CPPUNIT_ASSERT(
            !OdGeRegion2d::fence({{far, far}, {far + 1, far + 2}}).crosses({far + 1, far}, {far + 0.6, far + 1}));
    }

    /// Random arcs and splines against random regions, and the samples of both.
    void curvesAgreeWithSampling()
    {
        std::mt19937 random(7);
        std::uniform_real_distribution<double> number(-3, 3);
        auto const point = [&] { return OdGePoint2d(number(random), number(random)); };
        int crossed = 0, missed = 0, held = 0;
        for (int i = 0; i < 900; ++i) {
            // A star about a point has no self-crossing; a fence needs none.
            Points corners;
            OdGePoint2d const middle = point();
            for (int k = 0; k < 7; ++k) {
                double const angle = k * Oda2PI / 7;
                corners.push_back(middle + OdGeVector2d(std::cos(angle), std::sin(angle)) *
                                               (0.4 + std::abs(number(random))));
            }
            OdGeRegion2d const region = i % 3 == 0   ? OdGeRegion2d::fence(corners)
                                        : i % 3 == 1 ? OdGeRegion2d::polygon(corners)
                                                     : box(corners[0], corners[3]);
            OdGePoint2d const center = point();
            OdGeVector2d const u = (point() - middle) * 0.3;
            OdGeEllipticArc const arc({center.x, center.y, 0}, {u.x, u.y, 0}, {-0.4 * u.y, 0.6 * u.x, 0},
                                      number(random), 4 + number(random) / 3);
            Points control;
            for (int k = 0; k < 6; ++k)
                control.push_back(center + (point() - middle) * 0.3);
            OdGeNurbCurve3d const spline = curve(control);
            bool const isArc = i % 2 == 0;
            constexpr int steps = 4000;
            bool touches = false, leaves = false;
            for (int k = 0; k <= steps; ++k) {
                double const part = static_cast<double>(k) / steps;
                OdGePoint2d const p =
                    (isArc ? arc.evalPoint(arc.start + arc.sweep() * part)
                           : spline.evalPoint(spline.getInterval().lower +
                                              (spline.getInterval().upper - spline.getInterval().lower) * part))
                        .convert2d();
                bool const isIn = region.isFilled() ? region.contains(p) : isNearFence(corners, p, 2e-3);
                touches = touches || isIn;
                leaves = leaves || !isIn;
            }
            bool const crosses = isArc ? region.crosses(arc) : region.crosses(spline);
            bool const holds = isArc ? region.holds(arc) : region.holds(spline);
            std::string const name = "case " + std::to_string(i);
            // With this seed, nothing is so narrow that it escapes the samples.
            CPPUNIT_ASSERT_EQUAL_MESSAGE(name, touches, crosses);
            CPPUNIT_ASSERT_EQUAL_MESSAGE(name, region.isFilled() && !leaves, holds);
            held += holds;
            crossed += crosses;
            missed += !crosses;
        }
        CPPUNIT_ASSERT(crossed > 150 && missed > 500 && held > 20);
    }

    void parallelogramsAgreeWithSampling()
    {
        std::mt19937 random(99);
        std::uniform_real_distribution<double> number(-5, 5);
        constexpr int steps = 60;
        int hits = 0;
        int misses = 0;
        for (int i = 0; i < 600; ++i) {
            OdGeExtents2d const area({number(random), number(random)}, {number(random), number(random)});
            OdGePoint2d const base(number(random), number(random));
            OdGeVector2d const u(number(random), number(random));
            OdGeVector2d const v(number(random), number(random));
            double nearest = 1e9;
            for (int k = 0; k < (steps + 1) * (steps + 1); ++k) {
                int const row = k / (steps + 1);
                int const column = k % (steps + 1);
                OdGePoint2d const p = base + u * row / steps + v * column / steps;
                nearest = std::min({std::max({area.minPoint().x - p.x, p.x - area.maxPoint().x,
                                              area.minPoint().y - p.y, p.y - area.maxPoint().y}),
                                    nearest});
            }
            double const gap = (u.length() + v.length()) / steps;
            bool const isHit =
                OdGeRegion2d::rectangle(area).crosses(Points{base, base + u, base + u + v, base + v});
            std::string const name = "case " + std::to_string(i);
            if (nearest <= 0)
                CPPUNIT_ASSERT_MESSAGE(name, isHit);
            else if (nearest > gap)
                CPPUNIT_ASSERT_MESSAGE(name, !isHit);
            hits += nearest <= 0;
            misses += nearest > gap;
        }
        CPPUNIT_ASSERT(hits > 100 && misses > 100 && hits + misses > 550);
    }

    /// A clamped curve of degree 3, or 2 for three points.
    static OdGeNurbCurve3d curve(Points const& control)
    {
        std::vector<OdGePoint3d> points;
        for (OdGePoint2d const& p : control)
            points.emplace_back(p.x, p.y, 5);
        return OdGeNurbCurve3d::ofControlPoints(control.size() > 3 ? 3 : 2, points);
    }

    static bool isNearFence(Points const& points, OdGePoint2d const& p, double distance)
    {
        for (std::size_t i = 1; i < points.size(); ++i) {
            OdGeVector2d const side = points[i] - points[i - 1];
            double const part = std::clamp((p - points[i - 1]).dotProduct(side) / side.lengthSqrd(), 0.0, 1.0);
            if (p.distanceTo(points[i - 1] + side * part) <= distance)
                return true;
        }
        return false;
    }
};

CPPUNIT_TEST_SUITE_REGISTRATION(TestRegion2d);

} // namespace
