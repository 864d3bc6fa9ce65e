#include "testapi/ge_angle.h"

#include <cppunit/extensions/HelperMacros.h>

#include <string>

namespace {

constexpr double kPi = 3.14159265358979323846;
constexpr double kTurn = 6.283185307179586;
constexpr double kNoise = 1e-14;

class GeAngleTest : public CppUnit::TestFixture
{
    CPPUNIT_TEST_SUITE(GeAngleTest);
    CPPUNIT_TEST(equalAngles);
    CPPUNIT_TEST(oneAngle);
    CPPUNIT_TEST(fullTurnsAreExact);
    CPPUNIT_TEST(startAndEnd);
    CPPUNIT_TEST(degrees);
    CPPUNIT_TEST_SUITE_END();

    void equalAngles()
    {
        struct Row
        {
            double a, b, tol;
            bool isEqual;
        };
        Row const rows[] = {
            {1, 1 + 5e-11, 1e-10, true},      {1, 1 + 2e-10, 1e-10, false},
            {1 + 2e-10, 1, 1e-10, false},     {0, kTurn, 1e-10, true},
            {7 * kTurn, 0, 1e-10, true},      {1, 1 + 3 * kTurn, 1e-10, true},
            {6.28, 0.001, 1e-10, false},      {6.28, 0.001, 0.01, false}, // 0.004 apart over the turn
            {0, kTurn - 1e-12, 1e-10, false}, {-kPi / 2, 3 * kPi / 2, 1e-10, false},
            {0.5, 0.75, 0.25, true},          {1, 1, -1e-10, false},
        };
        for (Row const& row : rows)
            CPPUNIT_ASSERT_EQUAL_MESSAGE(std::to_string(row.a) + " and " + std::to_string(row.b), row.isEqual,
                                         ge::isEqualAngle(row.a, row.b, row.tol));
    }

    void oneAngle()
    {
        struct Row
        {
            double angle;
            bool positive;
            double expected;
        };
        Row const rows[] = {
            {0, true, 0},
            {1, true, 1},
            {-kPi / 2, true, 3 * kPi / 2},
            {-kPi / 2, false, -kPi / 2},
            {-5e-11, true, -5e-11}, // as good as 0
            {-2e-10, true, kTurn - 2e-10},
            {kTurn - 2e-10, true, kTurn - 2e-10},
            {kTurn + 2e-10, true, 2e-10},
            {-kTurn - 2e-10, false, -2e-10},
            {-kTurn, true, 0},
            {2 * kTurn, true, 0},
            {-2 * kTurn, false, 0},
            {-3 * kPi, true, kPi},
            {-3 * kPi, false, -kPi},
            {100, true, 100 - 15 * kTurn},
        };
        for (Row const& row : rows) {
            double angle = row.angle;
            ge::normalizeAngle(angle, row.positive);
            CPPUNIT_ASSERT_DOUBLES_EQUAL_MESSAGE(std::to_string(row.angle), row.expected, angle, kNoise);
        }
    }

    void fullTurnsAreExact()
    {
        for (double const off : {-9e-11, -5e-11, 0.0, 5e-11, 9e-11}) {
            for (bool const positive : {true, false}) {
                double angle = kTurn + off;
                ge::normalizeAngle(angle, positive);
                CPPUNIT_ASSERT_EQUAL(kTurn, angle);
            }
            double angle = -kTurn + off;
            ge::normalizeAngle(angle, false);
            CPPUNIT_ASSERT_EQUAL(-kTurn, angle);
        }
    }

    void startAndEnd()
    {
        struct Row
        {
            double start, end, expectedStart, expectedEnd;
        };
        Row const rows[] = {
            {1, 2, 1, 2},
            {2, 1, 2, 1 + kTurn},
            {-1, 1, kTurn - 1, kTurn + 1},
            {1 + 5e-11, 1, 1 + 5e-11, 1}, // equal: no turn added
            {1 + 2e-10, 1, 1 + 2e-10, 1 + kTurn},
            {0, kTurn, 0, kTurn},
            {kTurn, 1, kTurn, 1 + kTurn},
            {3 * kTurn + 1, -1, 1, kTurn - 1},
        };
        for (Row const& row : rows) {
            double start = row.start;
            double end = row.end;
            ge::normalizeAngles(start, end);
            std::string const what = std::to_string(row.start) + " to " + std::to_string(row.end);
            CPPUNIT_ASSERT_DOUBLES_EQUAL_MESSAGE(what, row.expectedStart, start, kNoise);
            CPPUNIT_ASSERT_DOUBLES_EQUAL_MESSAGE(what, row.expectedEnd, end, kNoise);
        }
    }

    void degrees()
    {
        struct Row
        {
            double angle, expected;
        };
        Row const rows[] = {{-30, 330}, {720, 0},    {360, 360},       {360.00000000005, 360.00000000005},
                            {-360, 0},  {-390, 330}, {-5e-11, -5e-11}, {450, 90}};
        for (Row const& row : rows) {
            double angle = row.angle;
            ge::normalizeAngleInDegrees(angle);
            CPPUNIT_ASSERT_EQUAL_MESSAGE(std::to_string(row.angle), row.expected, angle);
        }
    }
};

CPPUNIT_TEST_SUITE_REGISTRATION(GeAngleTest);

} // namespace
