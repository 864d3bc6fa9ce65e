#include "testapi/ge_circular_arc.h"

#include <cppunit/extensions/HelperMacros.h>

#include <limits>
#include <random>
#include <string>

namespace {

constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
double const kQuarterBulge = std::tan(OdaPI / 8);

/// What the constructions in a plane give; a failing one must leave the marks.
struct FlatArc
{
    OdGePoint2d center{-77, -77};
    OdGeVector2d refVec{-77, -77};
    double radius = -77;
    double start = -77;
    double end = -77;
    bool isClockwise = true;
    int status = -77;

    OdGePoint2d pointAt(double angle) const
    {
        OdGeVector2d const y = isClockwise ? -refVec.perpVector() : refVec.perpVector();
        return center + (refVec * std::cos(angle) + y * std::sin(angle)) * radius;
    }
};

FlatArc bulgeArc(OdGePoint2d const& p1, OdGePoint2d const& p2, double bulge, bool toCounterClockwise,
                 bool fromXAxis)
{
    FlatArc arc;
    arc.status =
        ge::circularArcThroughTwoPointsBulge(arc.center, arc.refVec, arc.radius, arc.start, arc.end,
                                             arc.isClockwise, p1, p2, bulge, toCounterClockwise, fromXAxis);
    return arc;
}

FlatArc tangentArc(OdGePoint2d const& from, OdGeVector2d const& direction, OdGePoint2d const& to)
{
    FlatArc arc;
    arc.status =
        ge::circularArcTangentToLineAtPointThroughPoint(arc.center, arc.refVec, arc.radius, arc.start, arc.end,
                                                        arc.isClockwise, from, direction, to, false, false);
    return arc;
}

void expectUntouched(std::string const& what, int status, FlatArc const& arc)
{
    CPPUNIT_ASSERT_EQUAL_MESSAGE(what, status, arc.status);
    CPPUNIT_ASSERT_MESSAGE(what, arc.center.x == -77 && arc.refVec.x == -77 && arc.radius == -77 &&
                                     arc.start == -77 && arc.end == -77 && arc.isClockwise);
}

/// The middle of the arc of a bulge, which lies off the chord to the right by half the bulge.
OdGePoint2d middleOfBulge(OdGePoint2d const& p1, OdGePoint2d const& p2, double bulge)
{
    return odgeMidPoint(p1, p2) - (p2 - p1).perpVector() * (bulge / 2);
}

void expectNear(OdGePoint2d const& expected, OdGePoint2d const& actual, double radius)
{
    CPPUNIT_ASSERT_DOUBLES_EQUAL(0.0, expected.distanceTo(actual), 1e-11 * (1000 + radius));
}

void expectNear(OdGePoint3d const& expected, OdGePoint3d const& actual, double radius)
{
    CPPUNIT_ASSERT_DOUBLES_EQUAL(0.0, expected.distanceTo(actual), 1e-11 * (1000 + radius));
}

class GeCircularArcTest : public CppUnit::TestFixture
{
    CPPUNIT_TEST_SUITE(GeCircularArcTest);
    CPPUNIT_TEST(runsThroughBothPoints);
    CPPUNIT_TEST(anglesAndDirections);
    CPPUNIT_TEST(noBulgeArc);
    CPPUNIT_TEST(atOneHeight);
    CPPUNIT_TEST(tangentInPlane);
    CPPUNIT_TEST(tangentInSpace);
    CPPUNIT_TEST(noTangentArc);
    CPPUNIT_TEST(referenceVectors);
    CPPUNIT_TEST(referenceVectorsAtTheAxis);
    CPPUNIT_TEST(segmentsOfPolylines);
    CPPUNIT_TEST(noSegmentArc);
    CPPUNIT_TEST_SUITE_END();

    std::mt19937 m_random{20261124};

    double number(double low, double high) { return std::uniform_real_distribution<double>(low, high)(m_random); }
    bool flag() { return number(0, 1) < 0.5; }
    OdGePoint2d point() { return {number(-1000, 1000), number(-1000, 1000)}; }
    OdGeVector3d vector() { return {number(-1, 1), number(-1, 1), number(-1, 1)}; }
    double bulge() { return std::exp(number(-6, 3)) * (flag() ? 1 : -1); }

    void runsThroughBothPoints()
    {
        for (int i = 0; i < 2000; ++i) {
            OdGePoint2d const p1 = point(), p2 = point();
            double const bend = bulge();
            bool const toCounterClockwise = flag(), fromXAxis = flag();
            FlatArc const arc = bulgeArc(p1, p2, bend, toCounterClockwise, fromXAxis);
            CPPUNIT_ASSERT_EQUAL(0, arc.status);
            CPPUNIT_ASSERT_EQUAL(bend < 0 && !toCounterClockwise, arc.isClockwise);
            bool const isTurnedRound = bend < 0 && toCounterClockwise;
            expectNear(isTurnedRound ? p2 : p1, arc.pointAt(arc.start), arc.radius);
            expectNear(isTurnedRound ? p1 : p2, arc.pointAt(arc.end), arc.radius);
            expectNear(middleOfBulge(p1, p2, bend), arc.pointAt((arc.start + arc.end) / 2), arc.radius);
            CPPUNIT_ASSERT_DOUBLES_EQUAL(4 * std::atan(std::abs(bend)), arc.end - arc.start, 1e-9);
            CPPUNIT_ASSERT_DOUBLES_EQUAL(1.0, arc.refVec.length(), 1e-12);
            CPPUNIT_ASSERT(fromXAxis ? arc.refVec.x == 1 && arc.refVec.y == 0 : arc.start == 0);
        }
    }

    void anglesAndDirections()
    {
        struct Row
        {
            char const* what;
            OdGePoint2d p1, p2;
            double bulge;
            bool toCounterClockwise, fromXAxis;
            OdGeVector2d refVec;
            double start, end;
            bool isClockwise;
        };
        double const a = OdaPI / 2, b = kQuarterBulge;
        OdGeVector2d const x(1, 0), y(0, 1);
        Row const rows[] = {
            {"counterclockwise", {1, 0}, {0, 1}, b, false, true, x, 0, a, false},
            {"counterclockwise, from its start", {0, 1}, {-1, 0}, b, true, false, y, 0, a, false},
            {"over the X axis", {0, -1}, {0, 1}, 1, false, true, x, 3 * a, 5 * a, false},
            {"clockwise", {0, 1}, {1, 0}, -b, false, true, x, 3 * a, 4 * a, true},
            {"clockwise, from its start", {0, 1}, {1, 0}, -b, false, false, y, 0, a, true},
            {"turned round", {0, 1}, {1, 0}, -b, true, true, x, 0, a, false},
            {"turned round, from its start", {0, 1}, {1, 0}, -b, true, false, x, 0, a, false},
            {"clockwise from the X axis", {1, 0}, {-1, 0}, -1, false, true, x, 4 * a, 6 * a, true},
            {"turned round over the X axis", {0, 1}, {0, -1}, -1, true, true, x, 3 * a, 5 * a, false},
        };
        for (Row const& row : rows) {
            FlatArc const arc = bulgeArc(row.p1, row.p2, row.bulge, row.toCounterClockwise, row.fromXAxis);
            CPPUNIT_ASSERT_EQUAL_MESSAGE(row.what, 0, arc.status);
            CPPUNIT_ASSERT_MESSAGE(row.what, arc.center == OdGePoint2d(0, 0) && arc.refVec == row.refVec);
            CPPUNIT_ASSERT_DOUBLES_EQUAL_MESSAGE(row.what, 1.0, arc.radius, 1e-14);
            CPPUNIT_ASSERT_DOUBLES_EQUAL_MESSAGE(row.what, row.start, arc.start, 1e-14);
            CPPUNIT_ASSERT_DOUBLES_EQUAL_MESSAGE(row.what, row.end, arc.end, 1e-14);
            CPPUNIT_ASSERT_EQUAL_MESSAGE(row.what, row.isClockwise, arc.isClockwise);
        }
    }

    void noBulgeArc()
    {
        OdGePoint2d const p(1, 2), q(5, 2);
        for (double const straight : {0.0, 1e-11, -1e-11, 1e-10, -1e-10})
            expectUntouched("straight", 1, bulgeArc(p, q, straight, true, false));
        CPPUNIT_ASSERT_EQUAL(0, bulgeArc(p, q, 2e-10, true, false).status);
        expectUntouched("straight and of no length", 1, bulgeArc(p, p, 0, true, true));
        expectUntouched("equal points", 2, bulgeArc(p, p, 1, true, true));
        expectUntouched("bad point", 2, bulgeArc({kNan, 0}, p, 1, false, true));
        expectUntouched("bad bulge", 2, bulgeArc(p, q, kNan, false, true));
        expectUntouched("endless bulge", 2, bulgeArc(p, q, std::numeric_limits<double>::infinity(), false, true));
    }

    void atOneHeight()
    {
        OdGePoint3d center;
        double radius = 0, start = 0, end = 0;
        OdGePoint3d const top(0, 1, 7), right(1, 0, 7);
        CPPUNIT_ASSERT_EQUAL(
            0, ge::circularArcThroughTwoPointsBulge(center, radius, start, end, top, right, -kQuarterBulge));
        CPPUNIT_ASSERT(center == OdGePoint3d(0, 0, 7));
        CPPUNIT_ASSERT_DOUBLES_EQUAL(1.0, radius, 1e-14);
        CPPUNIT_ASSERT_DOUBLES_EQUAL(0.0, start, 1e-14);
        CPPUNIT_ASSERT_DOUBLES_EQUAL(OdaPI / 2, end, 1e-14);
        radius = -77;
        OdGePoint3d const lower(1, 0, 6), bad(1, 0, kNan);
        CPPUNIT_ASSERT_EQUAL(2, ge::circularArcThroughTwoPointsBulge(center, radius, start, end, top, lower, 1));
        CPPUNIT_ASSERT_EQUAL(2, ge::circularArcThroughTwoPointsBulge(center, radius, start, end, top, bad, 1));
        CPPUNIT_ASSERT_EQUAL(1, ge::circularArcThroughTwoPointsBulge(center, radius, start, end, top, right, 0));
        CPPUNIT_ASSERT_EQUAL(-77.0, radius);
    }

    void tangentInPlane()
    {
        for (int i = 0; i < 1000; ++i) {
            OdGePoint2d const from = point(), to = point();
            OdGeVector2d const direction(number(-5, 5), number(-5, 5));
            FlatArc const arc = tangentArc(from, direction, to);
            CPPUNIT_ASSERT_EQUAL(0, arc.status);
            expectNear(from, arc.pointAt(0), arc.radius);
            expectNear(to, arc.pointAt(arc.end), arc.radius);
            OdGeVector2d const ahead = arc.isClockwise ? -arc.refVec.perpVector() : arc.refVec.perpVector();
            CPPUNIT_ASSERT_DOUBLES_EQUAL(direction.length(), ahead.dotProduct(direction), 1e-8);
        }
        FlatArc const half = tangentArc({0, 0}, {0, 3}, {4, 0}); // up, over to the right
        CPPUNIT_ASSERT(half.isClockwise && half.center == OdGePoint2d(2, 0) && half.refVec == OdGeVector2d(-1, 0));
        CPPUNIT_ASSERT_DOUBLES_EQUAL(OdaPI, half.end, 1e-14);
    }

    void tangentInSpace()
    {
        for (int i = 0; i < 1000; ++i) {
            OdGePoint3d const from = OdGePoint3d() + vector() * 1000, to = OdGePoint3d() + vector() * 1000;
            OdGeVector3d const direction = vector();
            OdGePoint3d center;
            OdGeVector3d normal, refVec;
            double radius = 0, start = 0, end = 0;
            CPPUNIT_ASSERT_EQUAL(0, ge::circularArcTangentToLineAtPointThroughPoint(
                                        center, normal, refVec, radius, start, end, from, direction, to));
            OdGeCircArc3d const arc(center, normal, refVec, radius, start, end);
            expectNear(from, arc.startPoint(), radius);
            expectNear(to, arc.endPoint(), radius);
            CPPUNIT_ASSERT_DOUBLES_EQUAL(0.0, arc.derivative(start).angleTo(direction), 1e-8);
            CPPUNIT_ASSERT_EQUAL(0.0, start);
        }
    }

    void noTangentArc()
    {
        struct Row
        {
            char const* what;
            int status;
            OdGeVector2d direction;
            OdGePoint2d to;
        };
        Row const rows[] = {
            {"ahead", 1, {2, 0}, {9, 2}},
            {"behind", 2, {2, 0}, {-9, 2}},
            {"no direction", 2, {0, 0}, {9, 9}},
            {"equal points", 2, {2, 0}, {1, 2}},
            {"bad direction", 2, {kNan, 0}, {9, 9}},
            {"bad point", 2, {2, 0}, {9, kNan}},
        };
        for (Row const& row : rows) {
            expectUntouched(row.what, row.status, tangentArc({1, 2}, row.direction, row.to));
            OdGePoint3d center;
            OdGeVector3d normal, refVec;
            double radius = -77, start = 0, end = 0;
            int const status = ge::circularArcTangentToLineAtPointThroughPoint(
                center, normal, refVec, radius, start, end, {0, 1, 2}, {0, row.direction.x, row.direction.y},
                {0, row.to.x, row.to.y});
            CPPUNIT_ASSERT_EQUAL_MESSAGE(row.what, row.status, status);
            CPPUNIT_ASSERT_EQUAL_MESSAGE(row.what, -77.0, radius);
        }
    }

    void referenceVectors()
    {
        for (int i = 0; i < 1000; ++i) {
            double const start = number(-20, 20);
            double const sweep = i % 10 == 0 ? Oda2PI : number(1e-3, 6.28);
            OdGeCircArc3d const arc(OdGePoint3d() + vector() * 100, vector(), vector(), number(1, 50), start,
                                    start + sweep);
            OdGeCircArc3d fromStart = arc;
            ge::adjustArcRefVectorToStartPoint(fromStart);
            CPPUNIT_ASSERT_EQUAL(0.0, fromStart.startAng());
            OdGeCircArc3d fromAxis = arc;
            ge::adjustArcRefVectorToPlaneXAxis(fromAxis);
            CPPUNIT_ASSERT(fromAxis.refVec() == arc.normal().perpVector());
            CPPUNIT_ASSERT(fromAxis.startAng() >= 0 && fromAxis.startAng() < Oda2PI);
            for (OdGeCircArc3d const& adjusted : {fromStart, fromAxis}) {
                CPPUNIT_ASSERT(adjusted.normal() == arc.normal());
                CPPUNIT_ASSERT_EQUAL(arc.isClosed(), adjusted.isClosed());
                for (double const part : {0.0, 0.3, 1.0})
                    expectNear(arc.evalPoint(arc.startAng() + part * sweep),
                               adjusted.evalPoint(adjusted.startAng() + part * sweep), arc.radius());
            }
        }
    }

    void referenceVectorsAtTheAxis()
    {
        // The X axis of a plane that looks up is the world's; arcs that begin on it begin at 0.
        for (double const off : {0.0, -5e-11, 5e-11}) {
            OdGeCircArc3d arc({}, {0, 0, 1}, {0, 1, 0}, 2, 3 * OdaPI / 2 + off, 2 * OdaPI);
            ge::adjustArcRefVectorToPlaneXAxis(arc);
            CPPUNIT_ASSERT_DOUBLES_EQUAL(0.0, arc.startAng(), 1e-10);
            CPPUNIT_ASSERT(arc.startAng() >= 0);
            CPPUNIT_ASSERT_DOUBLES_EQUAL(OdaPI / 2, arc.endAng(), 2e-10);
        }
    }

    void segmentsOfPolylines()
    {
        for (int i = 0; i < 1000; ++i) {
            OdGePoint2d const p1 = point(), p2 = point();
            double const bend = bulge(), elevation = number(-50, 50);
            OdGeVector3d const normal = i % 3 == 0 ? OdGeVector3d::kZAxis : vector();
            OdGeMatrix3d const toWorld = OdGeMatrix3d::planeToWorld(normal);
            auto const inWorld = [&](OdGePoint2d const& p) { return toWorld * OdGePoint3d(p.x, p.y, elevation); };
            for (auto const definition : {ge::kArcAlongSegment, ge::kArcAlongSegmentFromXAxis, ge::kArcAboutNormal,
                                          ge::kArcAboutNormalFromXAxis}) {
                bool const isAlong =
                    definition == ge::kArcAlongSegment || definition == ge::kArcAlongSegmentFromXAxis;
                bool const isFromStart = definition == ge::kArcAlongSegment || definition == ge::kArcAboutNormal;
                OdGeCircArc3d arc;
                CPPUNIT_ASSERT_EQUAL(
                    0, ge::arcFromBulgedPlineSegment(arc, p1, p2, bend, normal, elevation, definition));
                bool const isTurnedRound = bend < 0 && !isAlong;
                expectNear(inWorld(isTurnedRound ? p2 : p1), arc.startPoint(), arc.radius());
                expectNear(inWorld(isTurnedRound ? p1 : p2), arc.endPoint(), arc.radius());
                expectNear(inWorld(middleOfBulge(p1, p2, bend)),
                           arc.evalPoint((arc.startAng() + arc.endAng()) / 2), arc.radius());
                CPPUNIT_ASSERT(arc.normal() == toWorld.column(2) * (bend < 0 && isAlong ? -1.0 : 1.0));
                CPPUNIT_ASSERT(isFromStart ? arc.startAng() == 0 : arc.refVec() == toWorld.column(0));
            }
        }
    }

    void noSegmentArc()
    {
        OdGePoint2d const p(1, 2), q(5, 2);
        OdGeVector3d const z(0, 0, 1);
        OdGeCircArc3d arc({1, 2, 3}, z, 77);
        auto const status = [&](OdGePoint2d const& end, double bend, OdGeVector3d const& normal,
                                double elevation) {
            return ge::arcFromBulgedPlineSegment(arc, p, end, bend, normal, elevation, ge::kArcAboutNormal);
        };
        CPPUNIT_ASSERT_EQUAL(1, status(q, 1e-11, z, 0));
        CPPUNIT_ASSERT_EQUAL(2, status(p, 1, z, 0));
        CPPUNIT_ASSERT_EQUAL(2, status(q, 1, {0, 0, 0}, 0));
        CPPUNIT_ASSERT_EQUAL(2, status(q, 1, {0, kNan, 1}, 0));
        CPPUNIT_ASSERT_EQUAL(2, status(q, 1, z, kNan));
        CPPUNIT_ASSERT_EQUAL(77.0, arc.radius());
        CPPUNIT_ASSERT_EQUAL(0, ge::arcFromBulgedPlineSegment(arc, p, q, 1, ge::kArcAboutNormalFromXAxis));
        CPPUNIT_ASSERT(arc.center() == OdGePoint3d(3, 2, 0));
        CPPUNIT_ASSERT_DOUBLES_EQUAL(2.0, arc.radius(), 1e-14);
    }
};

CPPUNIT_TEST_SUITE_REGISTRATION(GeCircularArcTest);

} // namespace
