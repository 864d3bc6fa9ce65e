#include "host/geom/curves/od_ge_circ_arc2d.h"
#include "host/geom/curves/od_ge_containment.h"
#include "host/geom/curves/od_ge_ellip_arc2d.h"
#include "host/geom/curves/od_ge_linear2d.h"
#include "host/geom/curves/od_ge_nurb_curve2d.h"
#include "host/geom/curves/od_ge_segment_chain2d.h"
#include "host/root/od_error.h"
#include "tests/host/geom/curve_samples.h"

#include <cppunit/extensions/HelperMacros.h>

// Curves of the plane, and what closed ones enclose.
namespace {

/// By the crossings of a ray to the right with a polygon; none for points too near to its border.
std::optional<bool> isInside(std::vector<OdGePoint2d> const& polygon, OdGePoint2d const& point, double border)
{
    bool inside = false;
    for (std::size_t i = 1; i < polygon.size(); ++i) {
        OdGePoint2d const& a = polygon[i - 1];
        OdGePoint2d const& b = polygon[i];
        if (OdGeLineSeg2d(a, b).distanceTo(point) < border)
            return std::nullopt;
        if ((a.y > point.y) != (b.y > point.y) && point.x < a.x + (point.y - a.y) / (b.y - a.y) * (b.x - a.x))
            inside = !inside;
    }
    return inside;
}

class PlaneCurvesTest : public CppUnit::TestFixture
{
    CPPUNIT_TEST_SUITE(PlaneCurvesTest);
    CPPUNIT_TEST(defaults);
    CPPUNIT_TEST(arcsOfBothDirections);
    CPPUNIT_TEST(arcsOfArcData);
    CPPUNIT_TEST(mirroredCurves);
    CPPUNIT_TEST(splineDefinition);
    CPPUNIT_TEST(chains);
    CPPUNIT_TEST(curvesOfSpace);
    CPPUNIT_TEST(containmentAgreesWithAPolygon);
    CPPUNIT_TEST(containmentNearTheBorder);
    CPPUNIT_TEST(containmentOfPointsOutOfThePlane);
    CPPUNIT_TEST(whatHasNoInside);
    CPPUNIT_TEST_SUITE_END();

    void defaults()
    {
        OdGeLineSeg2d const segment;
        CPPUNIT_ASSERT(segment.startPoint() == OdGePoint2d(0, 0) && segment.endPoint() == OdGePoint2d(1, 0));
        CPPUNIT_ASSERT(OdGeLine2d().isParallelTo(OdGeRay2d({5, 5}, {-2, 0})));
        CPPUNIT_ASSERT(segment.isOn({0.5, 0}) && !segment.isOn({2, 0}) && OdGeLine2d().isOn({2, 0}));
        CPPUNIT_ASSERT(OdGeCircArc2d().isClosed() && OdGeEllipArc2d().isClosed());
        CPPUNIT_ASSERT(!OdGeSegmentChain2d().hasBulges() && OdGeNurbCurve2d().degree() == 1);
        OdGePoint2d point(7, 7);
        CPPUNIT_ASSERT(!OdGeLine2d().hasStartPoint(point) && point == OdGePoint2d(7, 7));
        CPPUNIT_ASSERT(OdGeRay2d().hasStartPoint(point) && point == OdGePoint2d(0, 0));
    }

    void arcsOfBothDirections()
    {
        OdGeCircArc2d arc({1, 1}, 2, 0, OdaPI2);
        CPPUNIT_ASSERT(!arc.isClockWise() && arc.endPoint() == OdGePoint2d(1, 3));
        arc.setClockWise(true);
        CPPUNIT_ASSERT(arc.isClockWise() && arc.endPoint() == OdGePoint2d(1, -1));
        arc.setRefVec({0, 3}).setRadius(1).setCenter({0, 0}).setAngles(0, 3 * OdaPI2);
        CPPUNIT_ASSERT(arc.startPoint() == OdGePoint2d(0, 1) && arc.endPoint() == OdGePoint2d(-1, 0));
        CPPUNIT_ASSERT(arc.signedArea() < 0 && arc.extents().maxPoint() == OdGePoint2d(1, 1));
        arc.reverseParam();
        CPPUNIT_ASSERT(!arc.isClockWise() && arc.startPoint() == OdGePoint2d(-1, 0));
        CPPUNIT_ASSERT(OdGeEllipArc2d({}, {2, 0}, {0, -1}).isClockWise());
    }

    void arcsOfArcData()
    {
        for (bool const isClockwise : {false, true}) {
            OdGeArcData2d const data{{1, 2}, 3, 5, 1, isClockwise};
            OdGeCircArc2d const arc(data);
            CPPUNIT_ASSERT_EQUAL(isClockwise, arc.isClockWise());
            CPPUNIT_ASSERT(arc.startPoint() == data.startPoint() && arc.endPoint() == data.endPoint());
            CPPUNIT_ASSERT_DOUBLES_EQUAL(3 * data.sweep(), arc.length(), 1e-13);
        }
    }

    void mirroredCurves()
    {
        OdGeMatrix3d const mirror = OdGeMatrix3d::mirroringAtPlane({}, {1, 0, 0});
        OdGeCircArc2d arc({1, 1}, 2, 0, OdaPI2);
        arc.transformBy(mirror);
        CPPUNIT_ASSERT(arc.isClockWise() && arc.endPoint() == OdGePoint2d(-1, 3));
        OdGeSegmentChain2d chain({{0, 0}, {1, 0}}, {0.5});
        chain.transformBy(mirror);
        CPPUNIT_ASSERT_EQUAL(-0.5, chain.bulgeAt(0));
        CPPUNIT_ASSERT_THROW(chain.transformBy(OdGeMatrix3d::rotation(1, {1, 0, 0})), OdError);
        CPPUNIT_ASSERT_THROW(chain.transformBy(OdGeMatrix3d::translation({0, 0, 1})), OdError);
        // Turned over by half a turn in space, seen along Z it is mirrored.
        chain.transformBy(OdGeMatrix3d::rotation(OdaPI, {1, 0, 0}));
        CPPUNIT_ASSERT_EQUAL(0.5, chain.bulgeAt(0));
    }

    void splineDefinition()
    {
        std::vector<OdGePoint2d> const points{{0, 0}, {1, 2}, {3, 1}};
        OdGeNurbCurve2d const curve(2, OdGeKnotVector({0, 0, 0, 1, 1, 1}), points, {1, 2, 1});
        int degree = 0;
        bool isRational = false;
        bool isPeriodic = true;
        OdGeKnotVector knots;
        OdGePoint2dArray controlPoints;
        OdGeDoubleArray weights;
        curve.getDefinitionData(degree, isRational, isPeriodic, knots, controlPoints, weights);
        CPPUNIT_ASSERT(degree == 2 && isRational && !isPeriodic && knots.length() == 6);
        CPPUNIT_ASSERT(controlPoints[1] == OdGePoint2d(1, 2) && weights[1] == 2);
        CPPUNIT_ASSERT(curve.trimmed(0, 0.5)->type() == OdGeCurve2d::EType::kNurb);
    }

    void chains()
    {
        OdGeSegmentChain2d const chain({{0, 0}, {2, 0}, {2, 2}}, {-1}, true);
        CPPUNIT_ASSERT(chain.bulges() == std::vector<double>({-1, 0, 0}) &&
                       chain.vertices()[2] == chain.vertexAt(2));
        auto const arc = chain.segmentAt(0);
        CPPUNIT_ASSERT(static_cast<OdGeCircArc2d const&>(*arc).isClockWise());
        CPPUNIT_ASSERT(arc->evalPoint(OdaPI2) == OdGePoint2d(1, 1));
        CPPUNIT_ASSERT(chain.segmentAt(1)->type() == OdGeCurve2d::EType::kLineSeg);
        CPPUNIT_ASSERT(!OdGeSegmentChain2d({{0, 0}, {2, 0}}, {1e-10}).hasBulges());
    }

    void curvesOfSpace()
    {
        OdGeSegmentChain3d const below({{0, 0}, {2, 0}}, {1}, false, {0, 0, -1});
        auto const flat = OdGeCurve2d::of(below);
        CPPUNIT_ASSERT(flat->evalPoint(0.5) == below.evalPoint(0.5).convert2d());
        CPPUNIT_ASSERT_EQUAL(-1.0, static_cast<OdGeSegmentChain2d const&>(*flat).bulgeAt(0));
        CPPUNIT_ASSERT(OdGeCurve2d::of(OdGeLine3d())->type() == OdGeCurve2d::EType::kLine);
        CPPUNIT_ASSERT_THROW(OdGeCurve2d::of(OdGeLine3d({0, 0, 0}, {0, 0, 1})), OdError);
        CPPUNIT_ASSERT_THROW(OdGeCurve2d::of(OdGeCircArc3d({0, 0, 0}, {0, 1, 0}, 1)), OdError);
        CPPUNIT_ASSERT_THROW(OdGeCurve2d::of(OdGeCircArc3d({0, 0, 1}, {0, 0, 1}, 1)), OdError);
    }

    void containmentAgreesWithAPolygon()
    {
        RandomNumbers random;
        int inside = 0;
        int outside = 0;
        for (CurveSample const& sample : closedCurveSamples()) {
            OdGeCurve3d const& curve = *sample.curve;
            OdGePlane const plane = curve.plane().value();
            double const border = curve.length() * 1e-3;
            OdGeExtents2d box;
            std::vector<OdGePoint2d> polygon;
            for (OdGePoint3d const& point : curve.samplePoints(border / 2)) {
                polygon.push_back(plane.paramOf(point));
                box.addPoint(polygon.back());
            }
            for (int i = 0; i < 100; ++i) {
                OdGePoint2d const place(random.between(box.minPoint().x, box.maxPoint().x),
                                        random.between(box.minPoint().y, box.maxPoint().y));
                std::optional<bool> const expected = isInside(polygon, place, border);
                if (!expected)
                    continue;
                ++(*expected ? inside : outside);
                CPPUNIT_ASSERT_MESSAGE(sample.name,
                                       odgeContains(curve, plane.evalPoint(place)) ==
                                           (*expected ? OdGeContainment::kInside : OdGeContainment::kOutside));
            }
            OdGePoint3d const onCurve = curve.evalPoint(random.paramOf(curve));
            CPPUNIT_ASSERT_MESSAGE(sample.name, odgeContains(curve, onCurve, 1e-7) == OdGeContainment::kOn);
        }
        CPPUNIT_ASSERT(inside > 500 && outside > 200);
    }

    void containmentNearTheBorder()
    {
        OdGeCircArc2d const circle({1e3, 1e3}, 5);
        OdGeEllipArc2d const flat({}, {100, 0}, {0, 1e-4});
        OdGeSegmentChain2d const slice({{0, 0}, {10, 0}}, {1e-6, 1}, true);
        struct Case
        {
            OdGeCurve2d const& curve;
            OdGePoint2d point;
            OdGeContainment expected;
        };
        using enum OdGeContainment;
        for (Case const& each : {
                 Case{circle, {1005 - 1e-9, 1000}, kInside},
                 Case{circle, {1005 + 1e-9, 1000}, kOutside},
                 Case{circle, {1005, 1000}, kOn},
                 Case{flat, {50, 0}, kInside},
                 Case{flat, {50, 8.6e-5}, kInside},
                 Case{flat, {50, 8.7e-5}, kOutside},
                 Case{slice, {5, -4e-6}, kInside},
                 Case{slice, {5, -6e-6}, kOutside},
                 Case{slice, {5, 4.9}, kInside},
             })
            CPPUNIT_ASSERT(odgeContains(each.curve, each.point) == each.expected);
    }

    void containmentOfPointsOutOfThePlane()
    {
        OdGeCircArc3d const circle({0, 0, 2}, {0, 0, 1}, 5);
        CPPUNIT_ASSERT(odgeContains(circle, {1, 1, 2}) == OdGeContainment::kInside);
        CPPUNIT_ASSERT(odgeContains(circle, {1, 1, 2.01}) == OdGeContainment::kOutside);
        CPPUNIT_ASSERT(odgeIsCounterClockwise(circle, {0, 1, 1}) && !odgeIsCounterClockwise(circle, {0, 0, -1}));
        CPPUNIT_ASSERT(odgeIsCounterClockwise(OdGeEllipArc2d()));
        // A loop within the loop is run around twice.
        OdGeSegmentChain2d const twice({{0, 0}, {9, 0}, {9, 9}, {1, 9}, {1, 1}, {8, 1}, {8, 8}, {0, 8}}, {}, true);
        CPPUNIT_ASSERT(odgeContains(twice, {4, 4}) == OdGeContainment::kOutside);
        CPPUNIT_ASSERT(odgeContains(twice, {0.5, 4}) == OdGeContainment::kInside);
    }

    void whatHasNoInside()
    {
        CPPUNIT_ASSERT_THROW(odgeContains(OdGeLine2d(), {0, 0}), OdError);
        CPPUNIT_ASSERT_THROW(odgeContains(OdGeCircArc2d({0, 0}, 1, 0, 3), {0, 0}), OdError);
        CPPUNIT_ASSERT_THROW(odgeContains(OdGeSegmentChain2d({{0, 0}, {1, 0}}, {}, true), {0, 0}), OdError);
        OdGeSegmentChain3d const bent({{0, 0, 0}, {1, 0, 0}, {1, 1, 0}, {0, 0, 1}}, true);
        CPPUNIT_ASSERT_THROW(odgeContains(bent, {0, 0, 0}), OdError);
    }
};

} // namespace

CPPUNIT_TEST_SUITE_REGISTRATION(PlaneCurvesTest);
