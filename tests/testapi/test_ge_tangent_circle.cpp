#include "testapi/ge_tangent_circle.h"

#include <cppunit/extensions/HelperMacros.h>

#include <limits>
#include <random>
#include <string>

namespace {

constexpr OdGeTol kTol{1e-10};
constexpr double kNan = std::numeric_limits<double>::quiet_NaN();

/// What a construction gives; a failing one must leave the marks.
struct Result
{
    OdGePoint2d center{-77, -77};
    double radius = -77;
    bool isFound = false;
};

template <class Construction, class... Input>
Result construct(Construction const& construction, Input const&... input)
{
    Result result;
    result.isFound = construction(result.center, result.radius, input..., kTol);
    return result;
}

void expectNone(std::string const& what, Result const& result)
{
    CPPUNIT_ASSERT_MESSAGE(what, !result.isFound);
    CPPUNIT_ASSERT_MESSAGE(what, result.center.x == -77 && result.center.y == -77 && result.radius == -77);
}

void expectCircle(std::string const& what, OdGePoint2d const& center, double radius, Result const& result)
{
    CPPUNIT_ASSERT_MESSAGE(what, result.isFound);
    CPPUNIT_ASSERT_DOUBLES_EQUAL_MESSAGE(what, center.x, result.center.x, 1e-12);
    CPPUNIT_ASSERT_DOUBLES_EQUAL_MESSAGE(what, center.y, result.center.y, 1e-12);
    CPPUNIT_ASSERT_DOUBLES_EQUAL_MESSAGE(what, radius, result.radius, 1e-12);
}

void expectThrough(Result const& result, OdGePoint2d const& point)
{
    CPPUNIT_ASSERT_DOUBLES_EQUAL(result.radius, result.center.distanceTo(point), 1e-9);
}

void expectTouchesLine(Result const& result, OdGePoint2d const& base, OdGeVector2d const& direction)
{
    double const distance = direction.crossProduct(result.center - base) / direction.length();
    CPPUNIT_ASSERT_DOUBLES_EQUAL(result.radius, std::abs(distance), 1e-9);
}

void expectTouchesCircle(Result const& result, OdGePoint2d const& center, double radius)
{
    double const distance = result.center.distanceTo(center);
    double const outside = std::abs(distance - (result.radius + radius));
    double const inside = std::abs(distance - std::abs(result.radius - radius));
    CPPUNIT_ASSERT_DOUBLES_EQUAL(0.0, std::min(outside, inside), 1e-9);
}

class GeTangentCircleTest : public CppUnit::TestFixture
{
    CPPUNIT_TEST_SUITE(GeTangentCircleTest);
    CPPUNIT_TEST(touchesWhatItShould);
    CPPUNIT_TEST(linesAndPoints);
    CPPUNIT_TEST(circleAndPoint);
    CPPUNIT_TEST(circleAndLine);
    CPPUNIT_TEST(circleAndCircle);
    CPPUNIT_TEST(degenerate);
    CPPUNIT_TEST(resultsInTheInput);
    CPPUNIT_TEST(toleranceOfTheCaller);
    CPPUNIT_TEST_SUITE_END();

    std::mt19937 m_random{20261123};

    double number(double low, double high) { return std::uniform_real_distribution<double>(low, high)(m_random); }
    OdGePoint2d point() { return {number(-1000, 1000), number(-1000, 1000)}; }

    void touchesWhatItShould()
    {
        for (int i = 0; i < 2000; ++i) {
            OdGePoint2d const p = point(), q = point(), pick = point();
            OdGeVector2d const direction(number(-3, 3), number(-3, 3));
            double const r1 = number(0, 500), r2 = number(0, 500);

            Result const onPoints = construct(ge::circleTangentToPointPoint, p, q);
            expectThrough(onPoints, p);
            expectThrough(onPoints, q);

            Result const onLine = construct(ge::circleTangentToLinePoint, p, direction, q);
            expectThrough(onLine, q);
            expectTouchesLine(onLine, p, direction);

            OdGePoint2d const onFirst = p + direction * number(-100, 100);
            Result const onLines =
                construct(ge::circleTangentToLineLine, p, direction, q, direction * number(-5, -1), onFirst);
            expectThrough(onLines, onFirst);
            expectTouchesLine(onLines, p, direction);
            expectTouchesLine(onLines, q, direction);

            Result const onCircle = construct(ge::circleTangentToCirclePoint, p, r1, q, pick);
            expectThrough(onCircle, q);
            expectTouchesCircle(onCircle, p, r1);

            Result const onCircleLine = construct(ge::circleTangentToCircleLine, p, r1, q, direction, pick);
            expectTouchesCircle(onCircleLine, p, r1);
            expectTouchesLine(onCircleLine, q, direction);

            Result const onCircles = construct(ge::circleTangentToCircleCircle, p, r1, q, r2, pick);
            expectTouchesCircle(onCircles, p, r1);
            expectTouchesCircle(onCircles, q, r2);
            for (Result const& result : {onPoints, onLine, onLines, onCircle, onCircleLine, onCircles})
                CPPUNIT_ASSERT(result.isFound && result.radius > 0);
        }
    }

    void linesAndPoints()
    {
        expectCircle("points", {3, 4}, 5,
                     construct(ge::circleTangentToPointPoint, OdGePoint2d(0, 0), OdGePoint2d(6, 8)));
        expectCircle(
            "a line of any length", {7, 3}, 2,
            construct(ge::circleTangentToLinePoint, OdGePoint2d(-5, 1), OdGeVector2d(-20, 0), OdGePoint2d(7, 5)));
        expectCircle("opposite lines", {10, 3}, 2,
                     construct(ge::circleTangentToLineLine, OdGePoint2d(0, 1), OdGeVector2d(2, 0),
                               OdGePoint2d(4, 5), OdGeVector2d(-1, 0), OdGePoint2d(10, 1)));
    }

    void circleAndPoint()
    {
        // Circle of radius 2 about (1, 1), met by the line to the point in (3, 1) and (-1, 1).
        auto const result = [](OdGePoint2d const& point, OdGePoint2d const& pick) {
            return construct(ge::circleTangentToCirclePoint, OdGePoint2d(1, 1), 2.0, point, pick);
        };
        expectCircle("near side", {5, 1}, 2, result({7, 1}, {2, 9}));
        expectCircle("far side", {3, 1}, 4, result({7, 1}, {0, -9}));
        expectCircle("tie", {5, 1}, 2, result({7, 1}, {1, 40}));
        expectCircle("tie but for rounding", {5, 1}, 2, result({7, 1}, {1 - 1e-12, 40}));
        expectCircle("point inside", {2.5, 1}, 0.5, result({2, 1}, {9, 1}));
        expectCircle("point in the center", {2, 1}, 1, result({1, 1}, {9, 1}));
        expectCircle("point in the center, left", {0, 1}, 1, result({1, 1}, {-9, 1}));
        expectNone("point on the circle", result({3, 1}, {9, 1}));
        expectNone("point on the circle, other side picked", result({3, 1}, {-9, 1}));
    }

    void circleAndLine()
    {
        auto const result = [](OdGePoint2d const& linePoint, OdGePoint2d const& pick) {
            return construct(ge::circleTangentToCircleLine, OdGePoint2d(0, 0), 2.0, linePoint, OdGeVector2d(4, 0),
                             pick);
        };
        expectCircle("near side", {0, -4}, 2, result({50, -6}, {3, -1}));
        expectCircle("far side", {0, -2}, 4, result({50, -6}, {3, 1}));
        expectCircle("tie", {0, -4}, 2, result({50, -6}, {3, 0}));
        expectCircle("crossing, towards the line", {0, 1.5}, 0.5, result({50, 1}, {0, 9}));
        expectCircle("crossing, away from it", {0, -0.5}, 1.5, result({50, 1}, {0, -9}));
        expectCircle("through the center, tie", {0, 1}, 1, result({50, 0}, {9, 0}));
        expectCircle("through the center, below", {0, -1}, 1, result({50, 0}, {9, -1}));
        expectNone("touching", result({50, 2}, {0, 9}));
        expectNone("touching, other side picked", result({50, 2}, {0, -9}));
    }

    void circleAndCircle()
    {
        struct Row
        {
            char const* what;
            double r1;
            OdGePoint2d center2;
            double r2;
            OdGePoint2d pick, center;
            double radius;
        };
        Row const rows[] = {
            {"apart, between", 2, {10, 0}, 3, {5, 1}, {4.5, 0}, 2.5},
            {"apart, left", 2, {10, 0}, 3, {-5, 1}, {2.5, 0}, 4.5},
            {"apart, right", 2, {10, 0}, 3, {15, 1}, {7.5, 0}, 5.5},
            {"crossing, right", 3, {4, 0}, 2, {9, 0}, {4.5, 0}, 1.5},
            {"one inside, gap on the right", 5, {1, 0}, 2, {9, 0}, {4, 0}, 1},
            {"one inside, gap on the left", 5, {1, 0}, 2, {-9, 0}, {-3, 0}, 2},
            {"one center, right", 5, {0, 0}, 2, {9, 0}, {3.5, 0}, 1.5},
            {"one center, tie", 5, {0, 0}, 2, {0, 9}, {1.5, 0}, 3.5},
            {"a point for a circle", 0, {10, 0}, 3, {0, 0}, {3.5, 0}, 3.5},
        };
        for (Row const& row : rows)
            expectCircle(row.what, row.center, row.radius,
                         construct(ge::circleTangentToCircleCircle, OdGePoint2d(0, 0), row.r1, row.center2, row.r2,
                                   row.pick));
        Row const noneRows[] = {
            {"touching, between", 2, {5, 0}, 3, {1, 0}, {}, 0},
            {"touching, would be the first", 2, {5, 0}, 3, {-9, 0}, {}, 0},
            {"touching, would be the second", 2, {5, 0}, 3, {9, 0}, {}, 0},
            {"touching inside", 5, {3, 0}, 2, {9, 0}, {}, 0},
            {"the same circle", 5, {0, 0}, 5, {9, 0}, {}, 0},
            {"the same circle, tie", 5, {0, 0}, 5, {0, 9}, {}, 0},
            {"two points in one", 0, {0, 0}, 0, {1, 0}, {}, 0},
            {"negative first radius", -2, {10, 0}, 3, {5, 0}, {}, 0},
            {"negative second radius", 2, {10, 0}, -3, {5, 0}, {}, 0},
        };
        for (Row const& row : noneRows)
            expectNone(row.what, construct(ge::circleTangentToCircleCircle, OdGePoint2d(0, 0), row.r1, row.center2,
                                           row.r2, row.pick));
    }

    void degenerate()
    {
        OdGePoint2d const p(1, 2), q(9, 3);
        OdGeVector2d const x(1, 0), none(0, 0);
        expectNone("equal points", construct(ge::circleTangentToPointPoint, p, p));
        expectNone("point on the line", construct(ge::circleTangentToLinePoint, p, x, OdGePoint2d(8, 2)));
        expectNone("line without direction", construct(ge::circleTangentToLinePoint, p, none, q));
        expectNone("crossing lines", construct(ge::circleTangentToLineLine, p, x, q, OdGeVector2d(1, 1e-6), p));
        expectNone("one line", construct(ge::circleTangentToLineLine, p, x, OdGePoint2d(5, 2), x, p));
        expectNone("one line, pick apart", construct(ge::circleTangentToLineLine, p, x, OdGePoint2d(5, 2), x, q));
        expectNone("pick on the second line", construct(ge::circleTangentToLineLine, p, x, q, x, q));
        expectNone("no first direction", construct(ge::circleTangentToLineLine, p, none, q, x, p));
        expectNone("no second direction", construct(ge::circleTangentToLineLine, p, x, q, none, p));
        expectNone("negative radius", construct(ge::circleTangentToCirclePoint, p, -1.0, q, q));
        expectNone("no line for a circle", construct(ge::circleTangentToCircleLine, p, 1.0, q, none, q));
        OdGePoint2d const bad(kNan, 0);
        expectNone("bad point", construct(ge::circleTangentToPointPoint, p, bad));
        expectNone("bad line", construct(ge::circleTangentToLinePoint, bad, x, q));
        expectNone("bad direction", construct(ge::circleTangentToLineLine, p, OdGeVector2d(kNan, 0), q, x, p));
        expectNone("bad radius", construct(ge::circleTangentToCirclePoint, p, kNan, q, q));
        expectNone("bad center", construct(ge::circleTangentToCircleCircle, bad, 1.0, q, 1.0, q));
    }

    void resultsInTheInput()
    {
        OdGePoint2d center(0, 0);
        double radius = 2;
        CPPUNIT_ASSERT(
            ge::circleTangentToCirclePoint(center, radius, center, radius, {6, 0}, OdGePoint2d(9, 0), kTol));
        CPPUNIT_ASSERT_EQUAL(4.0, center.x);
        CPPUNIT_ASSERT_EQUAL(2.0, radius);
    }

    void toleranceOfTheCaller()
    {
        OdGePoint2d center;
        double radius = 0;
        OdGePoint2d const p(0, 0), q(0.01, 0);
        CPPUNIT_ASSERT(ge::circleTangentToPointPoint(center, radius, p, q, kTol));
        CPPUNIT_ASSERT(!ge::circleTangentToPointPoint(center, radius, p, q, OdGeTol(0.1)));
        OdGeVector2d const x(1, 0), nearlyX(1, 1e-3);
        CPPUNIT_ASSERT(!ge::circleTangentToLineLine(center, radius, p, x, {0, 5}, nearlyX, p, kTol));
        CPPUNIT_ASSERT(ge::circleTangentToLineLine(center, radius, p, x, {0, 5}, nearlyX, p, OdGeTol(1e-2)));
    }
};

CPPUNIT_TEST_SUITE_REGISTRATION(GeTangentCircleTest);

} // namespace
