#include "host/geom/od_ge_rectangle_test.h"

#include <cppunit/extensions/HelperMacros.h>

#include <random>
#include <vector>

namespace {

using odgeRectangleTest::crosses;
using odgeRectangleTest::inside;

class RectangleTest : public CppUnit::TestFixture
{
    CPPUNIT_TEST_SUITE(RectangleTest);
    CPPUNIT_TEST(segments);
    CPPUNIT_TEST(polygons);
    CPPUNIT_TEST(parallelogramsAgreeWithSampling);
    CPPUNIT_TEST_SUITE_END();

    void segments()
    {
        OdGeExtents2d const area({0, 0}, {4, 2});
        CPPUNIT_ASSERT(crosses(area, {-1, 1}, {5, 1}) && crosses(area, {1, 1}, {2, 1}) &&
                       crosses(area, {1, 1}, {9, 9}));
        CPPUNIT_ASSERT(crosses(area, {-1, 0.5}, {2, -0.5}));  // cuts off a corner
        CPPUNIT_ASSERT(!crosses(area, {-1, 0.5}, {0.5, -1})); // passes it, though the boxes overlap
        CPPUNIT_ASSERT(crosses(area, {-1, 1}, {1, -1}));      // through the corner itself
        CPPUNIT_ASSERT(crosses(area, {1, 2}, {3, 2}) && crosses(area, {4, -5}, {4, 5}));
        CPPUNIT_ASSERT(!crosses(area, {5, -5}, {5, 5}) && !crosses(area, {-3, 1}, {-1, 1}));
        CPPUNIT_ASSERT(crosses(area, {4, 2}, {4, 2}) && !crosses(area, {4.1, 2}, {4.1, 2}));
        CPPUNIT_ASSERT(inside(area, {0, 0}, {4, 2}) && !inside(area, {1, 1}, {4.1, 2}));
        CPPUNIT_ASSERT(inside(area, {4 + 5e-11, 2}) && !inside(area, {4 + 1e-9, 2}));
        CPPUNIT_ASSERT(!crosses({}, {-1, -1}, {1, 1}) && !inside({}, OdGePoint2d()));
        // A box without height, as two picked points on one level make it.
        CPPUNIT_ASSERT(crosses({{0, 1}, {4, 1}}, {2, 0}, {2, 3}));
    }

    void polygons()
    {
        OdGeExtents2d const area({0, 0}, {1, 1});
        std::vector<OdGePoint2d> const around = {{-5, -5}, {5, -5}, {5, 5}, {-5, 5}};
        std::vector<OdGePoint2d> const within = {{0, 0}, {1, 0}, {0.5, 1}};
        std::vector<OdGePoint2d> const beside = {{2, 0}, {3, 0}, {3, 1}, {2, 1}};
        // The rectangle lies in the notch of an L, in its box but outside of it.
        std::vector<OdGePoint2d> const notched = {{-2, -2}, {3, -2}, {3, -1}, {-1, -1}, {-1, 3}, {-2, 3}};
        CPPUNIT_ASSERT(crosses(area, around) && !inside(area, around));
        CPPUNIT_ASSERT(crosses(area, within) && inside(area, within));
        CPPUNIT_ASSERT(!crosses(area, beside) && !inside(area, beside));
        CPPUNIT_ASSERT(!crosses(area, notched));
        CPPUNIT_ASSERT(!crosses(area, std::vector<OdGePoint2d>()) && !inside(area, std::vector<OdGePoint2d>()));
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
            bool const isHit = crosses(area, std::vector<OdGePoint2d>{base, base + u, base + u + v, base + v});
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
};

CPPUNIT_TEST_SUITE_REGISTRATION(RectangleTest);

} // namespace
