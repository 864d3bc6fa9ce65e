#include "host/geom/curves/od_ge_circ_arc3d.h"
#include "host/geom/curves/od_ge_ellip_arc3d.h"
#include "host/geom/curves/od_ge_linear3d.h"
#include "host/root/od_error.h"
#include "tests/host/geom/curve_samples.h"

#include <cppunit/extensions/HelperMacros.h>

#include <functional>

// Lines, rays, circular and elliptic arcs: values by hand and at the edges.
namespace {

double const kNoNumber = std::numeric_limits<double>::quiet_NaN();

void assertThrows(OdResult code, std::function<void()> const& act)
{
    try {
        act();
    } catch (OdError const& error) {
        CPPUNIT_ASSERT_EQUAL(code, error.code());
        return;
    }
    CPPUNIT_FAIL("no error");
}

class ArcCurvesTest : public CppUnit::TestFixture
{
    CPPUNIT_TEST_SUITE(ArcCurvesTest);
    CPPUNIT_TEST(linesAndRays);
    CPPUNIT_TEST(linesInOneDirection);
    CPPUNIT_TEST(segmentsOfNoLength);
    CPPUNIT_TEST(partsOfEndlessCurves);
    CPPUNIT_TEST(anglesOfAnArc);
    CPPUNIT_TEST(fullCirclesMeetThemselves);
    CPPUNIT_TEST(closestOnArcs);
    CPPUNIT_TEST(circlesUnderTransformations);
    CPPUNIT_TEST(ellipseAxes);
    CPPUNIT_TEST(ellipseAngles);
    CPPUNIT_TEST(lengthOfEllipses);
    CPPUNIT_TEST(closestOnEllipseByHand);
    CPPUNIT_TEST(closestOnEllipsesOfAnyShape);
    CPPUNIT_TEST(ellipsesUnderAffineMaps);
    CPPUNIT_TEST(areas);
    CPPUNIT_TEST(badInput);
    CPPUNIT_TEST_SUITE_END();

    void linesAndRays()
    {
        OdGeLine3d line({1, 1, 0}, {0, 5, 0});
        OdGeRay3d const ray({1, 1, 0}, {0, 5, 0});
        CPPUNIT_ASSERT(line.evalPoint(-3) == OdGePoint3d(1, -2, 0));
        CPPUNIT_ASSERT_DOUBLES_EQUAL(-3, line.closestParam({8, -2, 7}), 1e-15);
        CPPUNIT_ASSERT_EQUAL(0.0, ray.closestParam({8, -2, 7}));
        CPPUNIT_ASSERT(std::isinf(line.length()) && std::isinf(ray.length()));
        CPPUNIT_ASSERT_EQUAL(2.5, line.paramAtLength(4, -1.5));
        CPPUNIT_ASSERT_EQUAL(0.0, ray.paramAtLength(4, -9));
        OdGePoint3d point;
        CPPUNIT_ASSERT(!line.hasStartPoint(point) && !line.hasEndPoint(point) && ray.hasStartPoint(point));
        CPPUNIT_ASSERT(point == OdGePoint3d(1, 1, 0) && !ray.hasEndPoint(point));
        CPPUNIT_ASSERT(!line.extents().isValidExtents() && line.samplePoints(1).empty());
        CPPUNIT_ASSERT_EQUAL(0.0, line.signedArea({0, 0, 1}));

        // The parameter goes on to be the distance.
        line.transformBy(OdGeMatrix3d::scaling(3));
        CPPUNIT_ASSERT(line.evalPoint(1) == OdGePoint3d(3, 4, 0));
        line.transformBy(OdGeMatrix3d::scaling(1e-12));
        CPPUNIT_ASSERT_DOUBLES_EQUAL(1, line.direction().length(), 1e-15);
        assertThrows(eDegenerateGeometry, [&] { line.transformBy(OdGeMatrix3d::scaling({1, 0, 1})); });
        assertThrows(eNotApplicable, [&] { OdGeRay3d(ray).reverseParam(); });
    }

    void linesInOneDirection()
    {
        OdGeLine3d const line({0, 0, 0}, {1, 0, 0});
        CPPUNIT_ASSERT(line.isColinearTo(OdGeLineSeg3d({9, 0, 0}, {7, 0, 0})));
        CPPUNIT_ASSERT(line.isParallelTo(OdGeRay3d({9, 1, 0}, {-1, 0, 0})));
        CPPUNIT_ASSERT(!line.isColinearTo(OdGeRay3d({9, 1, 0}, {-1, 0, 0})));
        CPPUNIT_ASSERT(!line.isParallelTo(OdGeLineSeg3d({9, 0, 0}, {9, 0, 0})));
    }

    void segmentsOfNoLength()
    {
        OdGeLineSeg3d const point({1, 2, 3}, {1, 2, 3});
        CPPUNIT_ASSERT_EQUAL(0.0, point.length());
        CPPUNIT_ASSERT_EQUAL(0.0, point.closestParam({9, 9, 9}));
        CPPUNIT_ASSERT_EQUAL(1.0, point.paramAtLength(0, 5));
        CPPUNIT_ASSERT(!point.isClosed() && point.isOn({1, 2, 3}) && !point.isOn({1, 2, 3.1}));
        CPPUNIT_ASSERT_EQUAL(std::size_t(2), point.samplePoints(0.1).size());
        CPPUNIT_ASSERT_EQUAL(0.0, OdGeCircArc3d({1, 2, 3}, {0, 0, 1}, 0).closestParam({9, 9, 9}));
        CPPUNIT_ASSERT(!OdGeCircArc3d({1, 2, 3}, {0, 0, 1}, 0).isClosed());
    }

    void partsOfEndlessCurves()
    {
        double const far = std::numeric_limits<double>::infinity();
        OdGeLine3d const line({1, 0, 0}, {1, 0, 0});
        auto const segment = line.trimmed(-1, 2);
        CPPUNIT_ASSERT(segment->type() == OdGeCurve3d::EType::kLineSeg && segment->isOn({3, 0, 0}));
        auto const back = line.trimmed(-far, 2);
        CPPUNIT_ASSERT(back->type() == OdGeCurve3d::EType::kRay);
        CPPUNIT_ASSERT(back->isOn({3, 0, 0}) && back->isOn({-99, 0, 0}) && !back->isOn({4, 0, 0}));
        CPPUNIT_ASSERT(OdGeRay3d().trimmed(2, far)->closestPointTo({0, 1, 0}) == OdGePoint3d(2, 0, 0));
    }

    void anglesOfAnArc()
    {
        OdGeCircArc3d arc({0, 0, 0}, {0, 0, 9}, {0, 3, 4}, 2, 6, 1);
        CPPUNIT_ASSERT(arc.refVec() == OdGeVector3d(0, 1, 0) && arc.normal() == OdGeVector3d(0, 0, 1));
        CPPUNIT_ASSERT_DOUBLES_EQUAL(1 + Oda2PI, arc.endAng(), 1e-15);
        arc.setAngles(1, 100);
        CPPUNIT_ASSERT_DOUBLES_EQUAL(1 + Oda2PI, arc.endAng(), 1e-15);
        arc.setAngles(1, 0.5 - 2 * Oda2PI).setRadius(3).setCenter({1, 0, 0});
        CPPUNIT_ASSERT_DOUBLES_EQUAL(0.5 + Oda2PI, arc.endAng(), 1e-14);
        CPPUNIT_ASSERT(OdGeCircArc3d({1, 0, 0}, {0, 0, -1}, 1).evalPoint(0) == OdGePoint3d(0, 0, 0));
    }

    void fullCirclesMeetThemselves()
    {
        OdGeCircArc3d const huge({1e8, 1e8, 0}, {0, 0, 1}, 1e8);
        CPPUNIT_ASSERT(huge.startPoint().isEqualTo(huge.endPoint(), 0));
        CPPUNIT_ASSERT(huge.isClosed());
        CPPUNIT_ASSERT(OdGeCircArc3d({}, {0, 0, 1}, {1, 0, 0}, 1000, 0, Oda2PI - 5e-11).isClosed());
        CPPUNIT_ASSERT(!OdGeCircArc3d({}, {0, 0, 1}, {1, 0, 0}, 1e-6, 0, Oda2PI - 1e-5).isClosed());
        CPPUNIT_ASSERT(OdGeEllipArc3d().isClosed() && !OdGeEllipArc3d({}, {2, 0, 0}, {0, 1, 0}, 0, 6).isClosed());
    }

    void closestOnArcs()
    {
        OdGeCircArc3d const arc({0, 0, 0}, {0, 0, 1}, {1, 0, 0}, 1, -1, 1);
        CPPUNIT_ASSERT_DOUBLES_EQUAL(0.5, arc.closestParam({5 * std::cos(0.5), 5 * std::sin(0.5), 9}), 1e-15);
        CPPUNIT_ASSERT_EQUAL(-1.0, arc.closestParam({0, 0, 3}));  // from the axis all are equally far
        CPPUNIT_ASSERT_EQUAL(-1.0, arc.closestParam({-3, 0, 0})); // and here both ends
        CPPUNIT_ASSERT_EQUAL(1.0, arc.closestParam({-3, 0.1, 0}));
        CPPUNIT_ASSERT_EQUAL(-1.0, arc.closestParam({0.1, -3, 0}));
        OdGeCircArc3d const turned({0, 0, 0}, {0, 0, 1}, {1, 0, 0}, 1, 5, 5 + Oda2PI);
        CPPUNIT_ASSERT_DOUBLES_EQUAL(Oda2PI + 1, turned.closestParam({std::cos(1), std::sin(1), 0}), 1e-14);
    }

    void circlesUnderTransformations()
    {
        OdGeCircArc3d const circle({1, 0, 0}, {0, 0, 1}, {1, 0, 0}, 2, 0, 1);
        OdGeCircArc3d image = circle;
        // What happens out of the plane does not count.
        image.transformBy(OdGeMatrix3d::scaling({3, 3, 100}));
        CPPUNIT_ASSERT_DOUBLES_EQUAL(6, image.radius(), 1e-14);
        image.transformBy(OdGeMatrix3d::mirroringAtPlane({}, {1, 0, 0}));
        CPPUNIT_ASSERT(image.normal() == OdGeVector3d(0, 0, -1));
        CPPUNIT_ASSERT(image.startPoint() == OdGePoint3d(-9, 0, 0));
        image.transformBy(OdGeMatrix3d::scaling(1e-12));
        CPPUNIT_ASSERT_DOUBLES_EQUAL(6e-12, image.radius(), 1e-26);

        OdGeCircArc3d kept = circle;
        assertThrows(eDegenerateGeometry, [&] { kept.transformBy(OdGeMatrix3d::scaling({1, 1.001, 1})); });
        assertThrows(eDegenerateGeometry, [&] { kept.transformBy(OdGeMatrix3d::scaling(0)); });
        CPPUNIT_ASSERT(kept.center() == circle.center() && kept.radius() == 2);
    }

    void ellipseAxes()
    {
        OdGeEllipArc3d ellipse({1, 0, 0}, {2, 0, 0}, {3, 5, 0}, 0.25, 2);
        CPPUNIT_ASSERT(ellipse.minorAxis() == OdGeVector3d(0, 5, 0));
        CPPUNIT_ASSERT(ellipse.normal() == OdGeVector3d(0, 0, 1));
        OdGePoint3d const start = ellipse.evalPoint(ellipse.startParam());
        ellipse.orderAxes();
        CPPUNIT_ASSERT(ellipse.majorAxis() == OdGeVector3d(0, 5, 0) && ellipse.normal().z == 1);
        CPPUNIT_ASSERT(ellipse.evalPoint(ellipse.startParam()) == start);
        CPPUNIT_ASSERT(OdGeEllipArc3d({}, {1e-7, 0, 0}, {0, 1e-8, 0}).normal() == OdGeVector3d(0, 0, 1));
    }

    void ellipseAngles()
    {
        OdGeEllipArc3d const ellipse({}, {2, 0, 0}, {0, 1, 0});
        // The point of 45 degrees' direction has equal coordinates: 2 cos t = sin t.
        CPPUNIT_ASSERT_DOUBLES_EQUAL(std::atan(2), ellipse.paramOfAngle(OdaPI / 4), 1e-15);
        CPPUNIT_ASSERT_DOUBLES_EQUAL(OdaPI / 4, ellipse.angleOfParam(std::atan(2)), 1e-15);
        for (int i = -20; i <= 20; ++i) {
            double const t = i * OdaPI / 8;
            CPPUNIT_ASSERT_DOUBLES_EQUAL(t, ellipse.angleOfParam(ellipse.paramOfAngle(t)), 1e-14);
            CPPUNIT_ASSERT(std::abs(ellipse.paramOfAngle(t) - t) < OdaPI2); // whole turns are kept
        }
    }

    void lengthOfEllipses()
    {
        // The elliptic integral counts from the end of the minor axis.
        for (double const b : {1.0, 0.9, 0.1, 1e-3, 1e-6, 1e-9}) {
            OdGeEllipArc3d const ellipse({1e6, 0, 0}, {2, 0, 0}, {0, 2 * b, 0});
            double const k = std::sqrt((1 - b) * (1 + b));
            CPPUNIT_ASSERT_DOUBLES_EQUAL(8 * std::comp_ellint_2(k), ellipse.length(), 1e-12);
            for (double const t : {0.1, 1.0, 1.5, 2.0, 6.0}) {
                double const expected = 2 * (std::ellint_2(k, t - OdaPI2) - std::ellint_2(k, -OdaPI2));
                CPPUNIT_ASSERT_DOUBLES_EQUAL(expected, ellipse.length(0, t), 1e-12);
            }
        }
        // Short pieces keep their digits: next to the end of the minor axis they are nearly straight.
        OdGeEllipArc3d const flat({}, {2, 0, 0}, {0, 1e-3, 0});
        double const next = OdaPI2 + 1e-6;
        CPPUNIT_ASSERT_DOUBLES_EQUAL(2 * (next - OdaPI2), flat.length(OdaPI2, next), 1e-18);
    }

    void closestOnEllipseByHand()
    {
        OdGeEllipArc3d const ellipse({}, {5, 0, 0}, {0, 3, 0});
        auto const closest = [&](double x, double y) { return ellipse.closestParam({x, y, 0}); };
        CPPUNIT_ASSERT_DOUBLES_EQUAL(OdaPI2, closest(0, 0), 1e-15); // the least of two
        CPPUNIT_ASSERT_EQUAL(0.0, closest(9, 0));
        CPPUNIT_ASSERT_DOUBLES_EQUAL(OdaPI, closest(-9, 0), 1e-15);
        CPPUNIT_ASSERT_DOUBLES_EQUAL(OdaPI2, closest(0, 1), 1e-15);
        CPPUNIT_ASSERT_DOUBLES_EQUAL(1.5 * OdaPI, closest(0, -1), 1e-15);
        // On the major axis within the evolute, which ends at 16/5: cos t = 5x/16, twice.
        CPPUNIT_ASSERT_DOUBLES_EQUAL(std::acos(10.0 / 16), closest(2, 0), 1e-14);
        CPPUNIT_ASSERT_DOUBLES_EQUAL(std::acos(-10.0 / 16), closest(-2, 0), 1e-14);
        CPPUNIT_ASSERT_DOUBLES_EQUAL(0, closest(3.2, 0), 1e-7);
        CPPUNIT_ASSERT_EQUAL(0.0, closest(4, 0));
        // Only the lower half: the second nearest place is taken.
        OdGeEllipArc3d const lower({}, {5, 0, 0}, {0, 3, 0}, OdaPI, Oda2PI);
        CPPUNIT_ASSERT_DOUBLES_EQUAL(1.5 * OdaPI, lower.closestParam({0, 0.5, 0}), 1e-15);
        CPPUNIT_ASSERT_EQUAL(OdaPI, lower.closestParam({0, 8, 0}));
        OdGeEllipArc3d const circle({1, 1, 0}, {2, 0, 0}, {0, 2, 0}, 1, 4);
        CPPUNIT_ASSERT_EQUAL(1.0, circle.closestParam({1, 1, 0}));
    }

    void closestOnEllipsesOfAnyShape()
    {
        RandomNumbers random;
        for (double const ratio : {1e3, 3.0, 1.0 + 1e-9, 1.0, 0.5, 1e-3, 1e-7}) {
            OdGeEllipArc3d const ellipse({}, {1, 0, 0}, {0, ratio, 0});
            for (int i = 0; i < 200; ++i) {
                // Sometimes on an axis, sometimes near the middle.
                double const reach = i % 2 ? 2.0 : 0.1;
                OdGePoint3d const point(i % 5 ? random.between(-reach, reach) : 0,
                                        i % 7 ? random.between(-reach, reach) * ratio : 0, 0);
                double const t = ellipse.closestParam(point);
                OdGePoint3d const found = ellipse.evalPoint(t);
                // The way to the point stands across the curve there, and no sample is nearer.
                double const across = (point - found).dotProduct(ellipse.derivative(t));
                CPPUNIT_ASSERT_DOUBLES_EQUAL(0, across, 1e-13 * (1 + ratio * ratio));
                for (int k = 0; k < 500; ++k) {
                    double const other = ellipse.evalPoint(k * Oda2PI / 500).distanceTo(point);
                    CPPUNIT_ASSERT(found.distanceTo(point) <= other + 1e-14 * (1 + ratio));
                }
            }
        }
    }

    void ellipsesUnderAffineMaps()
    {
        RandomNumbers random;
        for (int i = 0; i < 100; ++i) {
            OdGeMatrix3d map;
            map.setCoordSystem({1, 2, 3}, random.vector(2), random.vector(2), random.vector(2));
            OdGeEllipArc3d const arc({1, 1, 1}, random.vector(2), random.vector(2), 1, 1 + random.between(0.1, 6));
            OdGeEllipArc3d image = arc;
            image.transformBy(map);
            double const size = image.majorRadius() + image.minorRadius();
            double const inner = image.majorAxis().dotProduct(image.minorAxis());
            CPPUNIT_ASSERT_DOUBLES_EQUAL(0, inner, 1e-14 * size * size);
            double const turn = image.startParam() - arc.startParam();
            for (double const part : {0.0, 0.3, 1.0}) {
                double const t = arc.startParam() + part * (arc.endParam() - arc.startParam());
                CPPUNIT_ASSERT((map * arc.evalPoint(t)).isEqualTo(image.evalPoint(t + turn), 1e-13 * (size + 10)));
            }
        }
        OdGeEllipArc3d kept;
        assertThrows(eDegenerateGeometry, [&] { kept.transformBy(OdGeMatrix3d::scaling({1, 0, 1})); });
        CPPUNIT_ASSERT(kept.minorAxis() == OdGeVector3d(0, 1, 0));
    }

    void areas()
    {
        CPPUNIT_ASSERT_DOUBLES_EQUAL(4 * OdaPI, OdGeCircArc3d({7, 8, 9}, {0, 0, 1}, 2).signedArea({0, 0, 1}),
                                     1e-13);
        CPPUNIT_ASSERT_DOUBLES_EQUAL(-4 * OdaPI, OdGeCircArc3d({7, 8, 9}, {0, 0, -1}, 2).signedArea({0, 0, 1}),
                                     1e-13);
        CPPUNIT_ASSERT_DOUBLES_EQUAL(6 * OdaPI,
                                     OdGeEllipArc3d({7, 8, 9}, {2, 0, 0}, {0, 3, 0}).signedArea({0, 0, 1}), 1e-13);
        // A half disc, closed by its diameter.
        OdGeCircArc3d const half({5, 5, 0}, {0, 0, 1}, {1, 0, 0}, 2, 0, OdaPI);
        CPPUNIT_ASSERT_DOUBLES_EQUAL(2 * OdaPI, half.signedArea({0, 0, 1}), 1e-14);
    }

    void badInput()
    {
        assertThrows(eDegenerateGeometry, [] { OdGeLine3d({}, {0, 0, 0}); });
        assertThrows(eDegenerateGeometry, [] { OdGeRay3d({}, {kNoNumber, 0, 0}); });
        assertThrows(eDegenerateGeometry, [] { OdGeCircArc3d({}, {0, 0, 0}, 1); });
        assertThrows(eDegenerateGeometry, [] { OdGeCircArc3d({}, {0, 0, 1}, {0, 0, 2}, 1); });
        assertThrows(eOutOfRange, [] { OdGeCircArc3d({}, {0, 0, 1}, -1); });
        assertThrows(eOutOfRange, [] { OdGeCircArc3d({}, {0, 0, 1}, {1, 0, 0}, 1, kNoNumber, 1); });
        assertThrows(eOutOfRange, [] { OdGeCircArc3d({}, {0, 0, 1}, {1, 0, 0}, 1, 1e300, 1); });
        assertThrows(eDegenerateGeometry, [] { OdGeEllipArc3d({}, {0, 0, 0}, {0, 1, 0}); });
        assertThrows(eDegenerateGeometry, [] { OdGeEllipArc3d({}, {1, 2, 0}, {3, 6, 0}); });
        assertThrows(eOutOfRange, [] { OdGeEllipArc3d({}, {1, 0, 0}, {0, 1, 0}, 0, kNoNumber); });
        assertThrows(eDegenerateGeometry, [] { OdGePlane({}, {1, 2, 0}, {-1, -2, 0}); });
        assertThrows(eInvalidInput, [] { OdGeCircArc3d().derivative(0, 3); });
        CPPUNIT_ASSERT(OdGeCircArc3d().samplePoints(kNoNumber).size() < 200000);
        OdGeCircArc3d kept;
        assertThrows(eDegenerateGeometry, [&] { kept.setAxes({0, 1, 0}, {0, 3, 0}); });
        CPPUNIT_ASSERT(kept.normal() == OdGeVector3d(0, 0, 1) && kept.refVec() == OdGeVector3d(1, 0, 0));
    }
};

} // namespace

CPPUNIT_TEST_SUITE_REGISTRATION(ArcCurvesTest);
