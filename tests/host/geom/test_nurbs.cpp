#include "host/geom/curves/od_ge_circ_arc3d.h"
#include "host/geom/curves/od_ge_ellip_arc3d.h"
#include "host/geom/curves/od_ge_nurb_curve3d.h"
#include "host/geom/curves/od_ge_segment_chain3d.h"
#include "host/root/od_error.h"
#include "tests/host/geom/curve_samples.h"

#include <cppunit/extensions/HelperMacros.h>

#include <Extrema_ExtPC.hxx>
#include <GeomAdaptor_Curve.hxx>
#include <Geom_BSplineCurve.hxx>

// Splines of all kinds, random ones among them, against an implementation of others and against closed formulas.
namespace {

using Definition = OdGeNurbCurve3d::Definition;

Handle(Geom_BSplineCurve) judgeOf(OdGeNurbCurve3d const& curve)
{
    Definition const& definition = curve.definition();
    auto const count = static_cast<int>(definition.controlPoints.size());
    std::vector<double> knots;
    std::vector<int> counts;
    for (double const knot : definition.knots.asVector()) {
        if (knots.empty() || knots.back() != knot) {
            knots.push_back(knot);
            counts.push_back(0);
        }
        ++counts.back();
    }
    TColgp_Array1OfPnt poles(1, count);
    TColStd_Array1OfReal weights(1, count);
    for (int i = 0; i < count; ++i) {
        OdGePoint3d const& p = definition.controlPoints[static_cast<std::size_t>(i)];
        poles(i + 1).SetCoord(p.x, p.y, p.z);
        weights(i + 1) = definition.isRational() ? definition.weights[static_cast<std::size_t>(i)] : 1;
    }
    auto const size = static_cast<int>(knots.size());
    return new Geom_BSplineCurve(poles, weights, TColStd_Array1OfReal(knots.front(), 1, size),
                                 TColStd_Array1OfInteger(counts.front(), 1, size), definition.degree);
}

OdGePoint3d pointOf(gp_Pnt const& p)
{
    return {p.X(), p.Y(), p.Z()};
}

OdGeVector3d vectorOf(gp_Vec const& v)
{
    return {v.X(), v.Y(), v.Z()};
}

class RandomSplines : public RandomNumbers
{
public:
    int index(int low, int high) { return static_cast<int>(between(low, high + 1)); }

    /// Clamped or not, rational or not, with some inner knots given several times.
    OdGeNurbCurve3d next(double size = 10, OdGeVector3d const& offset = {})
    {
        Definition definition;
        definition.degree = index(1, 6);
        int const points = definition.degree + index(1, 12);
        for (int i = 0; i < points; ++i)
            definition.controlPoints.push_back(OdGePoint3d::kOrigin + offset + vector(size));
        if (between(0, 1) < 0.5)
            for (int i = 0; i < points; ++i)
                definition.weights.push_back(between(0.2, 3));
        bool const isClamped = between(0, 1) < 0.7;
        std::vector<double> knots = {between(-5, 5)};
        while (knots.size() < static_cast<std::size_t>(points + definition.degree + 1)) {
            bool const isEnd = knots.size() <= static_cast<std::size_t>(definition.degree) ||
                               knots.size() > static_cast<std::size_t>(points);
            bool const isInner = knots.size() > static_cast<std::size_t>(definition.degree) + 1 &&
                                 knots.size() < static_cast<std::size_t>(points);
            bool const isDouble = isInner && knots.back() > *(knots.end() - 2) && between(0, 1) < 0.2;
            bool const repeats = isEnd ? isClamped : isDouble && definition.degree > 2;
            knots.push_back(knots.back() + (repeats ? 0 : between(0.1, 2)));
        }
        definition.knots = OdGeKnotVector(knots);
        return OdGeNurbCurve3d(definition);
    }
};

void checkEqual(OdGePoint3d const& expected, OdGePoint3d const& actual, double tol)
{
    CPPUNIT_ASSERT_DOUBLES_EQUAL(0, expected.distanceTo(actual), tol);
}

void checkSameCurve(OdGeCurve3d const& a, OdGeCurve3d const& b, double tol)
{
    for (int i = 0; i <= 40; ++i) {
        double const share = i / 40.0;
        OdGeInterval const ia = a.getInterval();
        OdGeInterval const ib = b.getInterval();
        checkEqual(a.evalPoint(ia.lower + ia.length() * share), b.evalPoint(ib.lower + ib.length() * share), tol);
    }
}

class NurbsTest : public CppUnit::TestFixture
{
    CPPUNIT_TEST_SUITE(NurbsTest);
    CPPUNIT_TEST(pointsAndDerivativesAgreeWithTheJudge);
    CPPUNIT_TEST(closestPointsAgreeWithTheJudge);
    CPPUNIT_TEST(otherFormsAreTheSameCurve);
    CPPUNIT_TEST(exactFormsOfOtherCurves);
    CPPUNIT_TEST(closestPointsInDegenerateCases);
    CPPUNIT_TEST(closestPointFarFromTheOrigin);
    CPPUNIT_TEST(partsOverTheSeam);
    CPPUNIT_TEST(shapesAndBreaks);
    CPPUNIT_TEST(problemsAreNamed);
    CPPUNIT_TEST(manyControlPoints);
    CPPUNIT_TEST_SUITE_END();

    void pointsAndDerivativesAgreeWithTheJudge()
    {
        RandomSplines random;
        for (int round = 0; round < 200; ++round) {
            OdGeNurbCurve3d const curve = random.next();
            Handle(Geom_BSplineCurve) const judge = judgeOf(curve);
            OdGeInterval const interval = curve.getInterval();
            for (double const param : {interval.lower, random.paramOf(curve), interval.upper}) {
                gp_Pnt point;
                gp_Vec first;
                gp_Vec second;
                judge->D2(param, point, first, second);
                checkEqual(pointOf(point), curve.evalPoint(param), 1e-11);
                double const size = 1 + second.Magnitude();
                CPPUNIT_ASSERT(vectorOf(first).isEqualTo(curve.derivative(param), 1e-10 * size));
                CPPUNIT_ASSERT(vectorOf(second).isEqualTo(curve.derivative(param, 2), 1e-9 * size));
            }
        }
    }

    void closestPointsAgreeWithTheJudge()
    {
        RandomSplines random;
        for (int round = 0; round < 100; ++round) {
            OdGeNurbCurve3d const curve = random.next();
            Handle(Geom_BSplineCurve) const judge = judgeOf(curve);
            OdGePoint3d const point = OdGePoint3d::kOrigin + random.vector(15);
            OdGeInterval const interval = curve.getInterval();
            GeomAdaptor_Curve const adaptor(judge);
            Extrema_ExtPC const projection(gp_Pnt(point.x, point.y, point.z), adaptor, interval.lower,
                                           interval.upper);
            double expected = std::min(curve.evalPoint(interval.lower).distanceTo(point),
                                       curve.evalPoint(interval.upper).distanceTo(point));
            for (int i = 1; projection.IsDone() && i <= projection.NbExt(); ++i)
                expected = std::min(expected, std::sqrt(projection.SquareDistance(i)));
            double const actual = curve.distanceTo(point);
            // The judge misses some feet: nearer is right, farther is wrong.
            CPPUNIT_ASSERT(actual <= expected + 1e-9);
            double sampled = expected;
            for (int i = 0; i <= 2000; ++i)
                sampled = std::min(
                    sampled, curve.evalPoint(interval.lower + interval.length() * i / 2000).distanceTo(point));
            CPPUNIT_ASSERT(actual <= sampled + 1e-12);
            CPPUNIT_ASSERT(actual >= sampled - 0.05);
        }
    }

    void otherFormsAreTheSameCurve()
    {
        RandomSplines random;
        for (int round = 0; round < 100; ++round) {
            OdGeNurbCurve3d const curve = random.next();
            OdGeInterval const interval = curve.getInterval();
            checkSameCurve(curve, curve.elevated(curve.degree() + 2), 1e-10);
            CPPUNIT_ASSERT_EQUAL(curve.degree() + 2, curve.elevated(curve.degree() + 2).degree());
            double const param = random.between(interval.lower + 1e-6, interval.upper - 1e-6);
            OdGeNurbCurve3d const refined = curve.withKnot(param);
            checkSameCurve(curve, refined, 1e-10);
            CPPUNIT_ASSERT_EQUAL(curve.numControlPoints() + 1, refined.numControlPoints());
            auto const first = curve.trimmed(interval.lower, param);
            auto const second = curve.trimmed(param, interval.upper);
            CPPUNIT_ASSERT_DOUBLES_EQUAL(curve.length(), first->length() + second->length(),
                                         1e-9 * curve.length());
            checkEqual(curve.evalPoint(param), first->evalPoint(param), 1e-10);
            checkEqual(curve.evalPoint((param + interval.upper) / 2),
                       second->evalPoint((param + interval.upper) / 2), 1e-10);
        }
    }

    void exactFormsOfOtherCurves()
    {
        for (CurveSample const& sample : curveSamples()) {
            double const tol = 1e-14 * coordinateSize(*sample.curve);
            OdGeNurbCurve3d const form = OdGeNurbCurve3d::of(*sample.curve);
            OdGeInterval const interval = form.getInterval();
            CPPUNIT_ASSERT_DOUBLES_EQUAL(sample.curve->getInterval().lower, interval.lower, 1e-12);
            CPPUNIT_ASSERT_DOUBLES_EQUAL(sample.curve->getInterval().upper, interval.upper, 1e-12);
            for (int i = 0; i <= 64; ++i) {
                OdGePoint3d const point = form.evalPoint(interval.lower + interval.length() * i / 64);
                CPPUNIT_ASSERT_MESSAGE(sample.name, sample.curve->distanceTo(point) <= 10 * tol + 1e-13);
            }
            CPPUNIT_ASSERT_DOUBLES_EQUAL_MESSAGE(sample.name, sample.curve->length(), form.length(),
                                                 1e-10 * form.length() + tol);
        }
    }

    void closestPointsInDegenerateCases()
    {
        // All points of a circle are equally far from its center: the first one counts.
        OdGeNurbCurve3d const circle = OdGeNurbCurve3d::of(OdGeCircArc3d({1, 2, 3}, {0, 0, 1}, 5));
        CPPUNIT_ASSERT_DOUBLES_EQUAL(0, circle.closestParam({1, 2, 3}), 1e-12);
        CPPUNIT_ASSERT_DOUBLES_EQUAL(0, circle.closestParam({1, 2, 9}), 1e-12);
        OdGePoint3d const down{1, -8, 3};
        checkEqual({1, -3, 3}, circle.closestPointTo(down), 1e-12);

        // A cusp at the parameter 0.5, and four control points in one place.
        OdGeNurbCurve3d const cusp = OdGeNurbCurve3d::ofControlPoints(
            3, std::vector<OdGePoint3d>{{0, 0, 0}, {1, 1, 0}, {0, 1, 0}, {1, 0, 0}});
        CPPUNIT_ASSERT_DOUBLES_EQUAL(0.5, cusp.closestParam({0.5, 3, 0}), 1e-9);
        OdGeNurbCurve3d const point = OdGeNurbCurve3d::ofControlPoints(3, std::vector<OdGePoint3d>(4, {2, 2, 2}));
        CPPUNIT_ASSERT_DOUBLES_EQUAL(0, point.closestParam({7, 8, 9}), 0);
        CPPUNIT_ASSERT_DOUBLES_EQUAL(0, point.length(), 0);

        // Two feet of one distance: the first parameter; an end is hit exactly.
        OdGeNurbCurve3d const arch =
            OdGeNurbCurve3d::ofControlPoints(2, std::vector<OdGePoint3d>{{-2, 0, 0}, {0, 8, 0}, {2, 0, 0}});
        CPPUNIT_ASSERT(arch.closestParam({0, -1, 0}) == 0);
        CPPUNIT_ASSERT(arch.closestParam({0, 2, 0}) < 0.5);
        CPPUNIT_ASSERT(arch.closestParam({9, -9, 0}) == 1);
    }

    void closestPointFarFromTheOrigin()
    {
        RandomSplines random;
        for (int round = 0; round < 50; ++round) {
            OdGeNurbCurve3d const curve = random.next(1e-3, {1e7, -2e7, 3e6});
            double const param = random.paramOf(curve);
            OdGePoint3d const point = curve.evalPoint(param);
            CPPUNIT_ASSERT(curve.distanceTo(point) <= 2e-8);
        }
    }

    void partsOverTheSeam()
    {
        std::vector<OdGePoint3d> const corners = {{0, 0, 0}, {4, 0, 1}, {5, 3, 0}, {2, 6, 1}, {-1, 3, 0}};
        OdGeNurbCurve3d const periodic = OdGeNurbCurve3d::ofControlPoints(3, corners, true);
        OdGeNurbCurve3d const clamped = OdGeNurbCurve3d::of(OdGeCircArc3d({0, 0, 0}, {0, 0, 1}, 2));
        for (OdGeNurbCurve3d const& curve : {periodic, clamped}) {
            OdGeInterval const interval = curve.getInterval();
            double const turn = interval.length();
            CPPUNIT_ASSERT(curve.isClosed());
            auto const part = curve.trimmed(interval.lower + 0.7 * turn, interval.lower + 1.2 * turn);
            checkEqual(curve.evalPoint(interval.lower + 0.8 * turn), part->evalPoint(interval.lower + 0.8 * turn),
                       1e-12);
            checkEqual(curve.evalPoint(interval.lower + 0.1 * turn), part->evalPoint(interval.lower + 1.1 * turn),
                       1e-12);
            double const expected = curve.length(interval.lower + 0.7 * turn, interval.upper) +
                                    curve.length(interval.lower, interval.lower + 0.2 * turn);
            CPPUNIT_ASSERT_DOUBLES_EQUAL(expected, part->length(), 1e-11);
            CPPUNIT_ASSERT_THROW(curve.trimmed(interval.upper, interval.lower), OdError);
        }
        // Smooth at the seam.
        OdGeInterval const interval = periodic.getInterval();
        CPPUNIT_ASSERT(periodic.derivative(interval.lower).isEqualTo(periodic.derivative(interval.upper), 1e-12));
        CPPUNIT_ASSERT(
            periodic.derivative(interval.lower, 2).isEqualTo(periodic.derivative(interval.upper, 2), 1e-12));
    }

    void shapesAndBreaks()
    {
        OdGeNurbCurve3d const circle = OdGeNurbCurve3d::of(OdGeCircArc3d({1, 2, 3}, {0, 0, -1}, 5));
        auto const plane = circle.plane(1e-10);
        CPPUNIT_ASSERT(plane && plane->normal().isEqualTo({0, 0, -1}, 1e-12));
        CPPUNIT_ASSERT_DOUBLES_EQUAL(25 * OdaPI, circle.signedArea({0, 0, -1}), 1e-11);
        CPPUNIT_ASSERT_DOUBLES_EQUAL(10 * OdaPI, circle.length(), 1e-11);
        CPPUNIT_ASSERT(circle.extents().minPoint().isEqualTo({-4, -3, 3}, 1e-12));
        CPPUNIT_ASSERT(circle.extents().maxPoint().isEqualTo({6, 7, 3}, 1e-12));
        CPPUNIT_ASSERT(circle.breakParams().size() == 3); // double knots of degree 2 may be corners
        OdGeNurbCurve3d const line = OdGeNurbCurve3d::ofControlPoints(
            3, std::vector<OdGePoint3d>{{0, 0, 0}, {1, 1, 1}, {3, 3, 3}, {2, 2, 2}});
        CPPUNIT_ASSERT(line.isLinear(1e-9) && !line.plane(1e-9) && !circle.isLinear(1e-9));
        OdGeNurbCurve3d const twisted = OdGeNurbCurve3d::ofControlPoints(
            3, std::vector<OdGePoint3d>{{0, 0, 0}, {1, 0, 0}, {1, 1, 0}, {1, 1, 1}});
        CPPUNIT_ASSERT(!twisted.plane(1e-9) && twisted.breakParams().empty());
    }

    void problemsAreNamed()
    {
        struct Case
        {
            wchar_t const* problem;
            Definition definition;
        };
        std::vector<OdGePoint3d> const four(4);
        double const nan = std::numeric_limits<double>::quiet_NaN();
        Case const cases[] = {
            {L"the degree 0 is not between 1 and 25", {0, false, OdGeKnotVector({0, 1}), four, {}}},
            {L"the degree 26 is not between 1 and 25", {26, false, OdGeKnotVector({0, 1}), four, {}}},
            {L"there are 5 knots for 4 control points of degree 3; 8 are needed",
             {3, false, OdGeKnotVector({0, 0, 0, 0, 1}), four, {}}},
            {L"the knots are not ascending numbers",
             {3, false, OdGeKnotVector({0, 0, 0, 0, 1, 1, 1, 0.5}), four, {}}},
            {L"the knots are not ascending numbers",
             {3, false, OdGeKnotVector({nan, 0, 0, 0, 1, 1, 1, 1}), four, {}}},
            {L"the knots leave no interval for the parameter",
             {3, false, OdGeKnotVector(std::vector<double>(8, 2.0)), four, {}}},
            {L"the knot 0 is given 4 times; at most 3 are allowed",
             {2, false, OdGeKnotVector({0, 0, 0, 0, 1, 1, 1}), four, {}}},
            {L"a weight is not positive",
             {3, false, OdGeKnotVector({0, 0, 0, 0, 1, 1, 1, 1}), four, {1, 0, 1, 1}}},
            {L"there are 3 weights for 4 control points",
             {3, false, OdGeKnotVector({0, 0, 0, 0, 1, 1, 1, 1}), four, {1, 1, 1}}},
            {L"a control point has a coordinate that is no number",
             {1, false, OdGeKnotVector({0, 0, 1, 1}), {{}, {nan, 0, 0}}, {}}},
            {L"the first 1 control points of a periodic curve do not repeat as its last ones",
             {1, true, OdGeKnotVector({-1, 0, 1, 2, 3}), {{0, 0, 0}, {1, 0, 0}, {2, 0, 0}}, {}}},
        };
        for (Case const& c : cases) {
            CPPUNIT_ASSERT_EQUAL(OdString(c.problem).toUtf8(), c.definition.problem().toUtf8());
            CPPUNIT_ASSERT_THROW(OdGeNurbCurve3d{c.definition}, OdError);
        }
    }

    void manyControlPoints()
    {
        std::vector<OdGePoint3d> points;
        for (int i = 0; i < 100'000; ++i)
            points.emplace_back(i, std::sin(i * 0.1), 0);
        OdGeNurbCurve3d const curve = OdGeNurbCurve3d::interpolate(points);
        CPPUNIT_ASSERT(curve.distanceTo({54'321, 1e3, 0}) < 1e3);
        CPPUNIT_ASSERT(curve.length(40'000, 42'000) > 1999);
        CPPUNIT_ASSERT_DOUBLES_EQUAL(1, curve.extents().maxPoint().y, 1e-4);
        auto const part = curve.trimmed(1000, 90'000);
        CPPUNIT_ASSERT(part->evalPoint(77'777) == curve.evalPoint(77'777));
    }
};

CPPUNIT_TEST_SUITE_REGISTRATION(NurbsTest);

} // namespace
