#include "host/root/od_error.h"
#include "tests/host/geom/curve_samples.h"

#include <cppunit/extensions/HelperMacros.h>

// What holds for every class of curves, tried on one list of them. Distances are measured by the size of the curve
// and of its coordinates.
namespace {

double eval(double low, double high, int i, int count)
{
    return low + (high - low) * i / count;
}

std::vector<OdGePoint3d> densePoints(OdGeCurve3d const& curve, int count)
{
    // The same number between any two joints, so that these are met.
    std::vector<double> ends = curve.breakParams();
    ends.push_back(curve.getInterval().upper);
    std::vector<OdGePoint3d> points{curve.evalPoint(curve.getInterval().lower)};
    double from = curve.getInterval().lower;
    for (double const to : ends) {
        for (int i = 1; i <= count; ++i)
            points.push_back(curve.evalPoint(eval(from, to, i, count)));
        from = to;
    }
    return points;
}

double rounding(OdGeCurve3d const& curve)
{
    return 1e-14 * (coordinateSize(curve) + curve.length());
}

class CurvePropertiesTest : public CppUnit::TestFixture
{
    CPPUNIT_TEST_SUITE(CurvePropertiesTest);
    CPPUNIT_TEST(derivativesAreDifferenceQuotients);
    CPPUNIT_TEST(lengthIsThatOfAFinePolygon);
    CPPUNIT_TEST(paramAtLengthIsTheInverseOfLength);
    CPPUNIT_TEST(noSampleIsNearerThanTheClosestPoint);
    CPPUNIT_TEST(pointsOfTheCurveAreTheirOwnClosest);
    CPPUNIT_TEST(partsAddUp);
    CPPUNIT_TEST(closedCurvesAreCutOverTheirStart);
    CPPUNIT_TEST(reversing);
    CPPUNIT_TEST(transformationsCommute);
    CPPUNIT_TEST(extentsHoldAndTouch);
    CPPUNIT_TEST(areaIsThatOfAFinePolygon);
    CPPUNIT_TEST(planesHoldTheirCurves);
    CPPUNIT_TEST(samplesKeepTheChordError);
    CPPUNIT_TEST_SUITE_END();

    std::vector<CurveSample> const m_samples = curveSamples();
    RandomNumbers m_random;

    void derivativesAreDifferenceQuotients()
    {
        for (CurveSample const& sample : m_samples) {
            OdGeCurve3d const& curve = *sample.curve;
            OdGeInterval const range = curve.getInterval();
            double const step = range.length() * 1e-5;
            for (int i = 0; i < 20; ++i) {
                double const t = m_random.between(range.lower + step, range.upper - step);
                std::vector<double> const joints = curve.breakParams();
                if (std::any_of(joints.begin(), joints.end(), [&](double j) { return std::abs(j - t) <= step; }))
                    continue;
                OdGeVector3d const first = (curve.evalPoint(t + step) - curve.evalPoint(t - step)) / (2 * step);
                OdGeVector3d const second = (curve.derivative(t + step) - curve.derivative(t - step)) / (2 * step);
                double const size = curve.length() / range.length();
                double const noise = 1e-15 * coordinateSize(curve) / step;
                CPPUNIT_ASSERT_MESSAGE(sample.name, first.isEqualTo(curve.derivative(t), 1e-7 * size + noise));
                CPPUNIT_ASSERT_MESSAGE(
                    sample.name, second.isEqualTo(curve.derivative(t, 2), 1e-6 * (size / range.length() + size)));
            }
        }
    }

    void lengthIsThatOfAFinePolygon()
    {
        for (CurveSample const& sample : m_samples) {
            std::vector<OdGePoint3d> const points = densePoints(*sample.curve, 20000);
            double sum = 0;
            for (std::size_t i = 1; i < points.size(); ++i)
                sum += points[i].distanceTo(points[i - 1]);
            double const noise = 1e-15 * coordinateSize(*sample.curve) * static_cast<double>(points.size());
            CPPUNIT_ASSERT_DOUBLES_EQUAL_MESSAGE(sample.name, sum, sample.curve->length(), 1e-8 * sum + noise);
        }
    }

    void paramAtLengthIsTheInverseOfLength()
    {
        for (CurveSample const& sample : m_samples) {
            OdGeCurve3d const& curve = *sample.curve;
            OdGeInterval const range = curve.getInterval();
            double const whole = curve.length();
            for (int i = 0; i < 10; ++i) {
                double const from = m_random.paramOf(curve);
                double const to = m_random.paramOf(curve);
                double const way = curve.length(from, to);
                double const found = curve.paramAtLength(from, way);
                CPPUNIT_ASSERT_DOUBLES_EQUAL_MESSAGE(sample.name, way, curve.length(from, found), 1e-12 * whole);
                CPPUNIT_ASSERT_DOUBLES_EQUAL_MESSAGE(sample.name, way, -curve.length(to, from), 1e-12 * whole);
            }
            CPPUNIT_ASSERT_EQUAL_MESSAGE(sample.name, range.upper, curve.paramAtLength(range.lower, 2 * whole));
            CPPUNIT_ASSERT_EQUAL_MESSAGE(sample.name, range.lower, curve.paramAtLength(range.upper, -2 * whole));
        }
    }

    void noSampleIsNearerThanTheClosestPoint()
    {
        for (CurveSample const& sample : m_samples) {
            OdGeCurve3d const& curve = *sample.curve;
            std::vector<OdGePoint3d> const points = densePoints(curve, 1000);
            for (int i = 0; i < 40; ++i) {
                OdGePoint3d const place = m_random.pointNear(curve.extents());
                double const param = curve.closestParam(place);
                CPPUNIT_ASSERT_MESSAGE(sample.name, curve.getInterval().contains(param, 0));
                double least = place.distanceTo(points.front());
                for (OdGePoint3d const& point : points)
                    least = std::min(least, place.distanceTo(point));
                double const distance = curve.distanceTo(place);
                CPPUNIT_ASSERT_MESSAGE(sample.name, distance <= least + rounding(curve));
                CPPUNIT_ASSERT_MESSAGE(sample.name, distance >= least - curve.length() / 1000);
            }
        }
    }

    void pointsOfTheCurveAreTheirOwnClosest()
    {
        for (CurveSample const& sample : m_samples) {
            OdGeCurve3d const& curve = *sample.curve;
            OdGeInterval const range = curve.getInterval();
            for (int i = 0; i <= 20; ++i) {
                OdGePoint3d const point = curve.evalPoint(eval(range.lower, range.upper, i, 20));
                CPPUNIT_ASSERT_MESSAGE(sample.name, curve.isOn(point, nullptr, rounding(curve)));
            }
            // The least parameter of the point at which a closed curve starts.
            if (curve.isClosed())
                CPPUNIT_ASSERT_EQUAL_MESSAGE(sample.name, range.lower,
                                             curve.closestParam(curve.evalPoint(range.lower)));
        }
    }

    void partsAddUp()
    {
        for (CurveSample const& sample : m_samples) {
            OdGeCurve3d const& curve = *sample.curve;
            OdGeInterval const range = curve.getInterval();
            for (int i = 0; i < 10; ++i) {
                double const cut = m_random.paramOf(curve);
                auto const first = curve.trimmed(range.lower, cut);
                auto const second = curve.trimmed(cut, range.upper);
                CPPUNIT_ASSERT_MESSAGE(sample.name, first->type() == curve.type());
                CPPUNIT_ASSERT_DOUBLES_EQUAL_MESSAGE(sample.name, curve.length(),
                                                     first->length() + second->length(), 1e-12 * curve.length());
                checkIsPart(sample, *first, range.lower, cut);
                checkIsPart(sample, *second, cut, range.upper);
            }
            CPPUNIT_ASSERT_THROW_MESSAGE(sample.name, curve.trimmed(range.lower, range.lower), OdError);
            CPPUNIT_ASSERT_THROW_MESSAGE(sample.name, curve.trimmed(range.upper, range.lower), OdError);
        }
    }

    void closedCurvesAreCutOverTheirStart()
    {
        for (CurveSample const& sample : closedCurveSamples()) {
            OdGeCurve3d const& curve = *sample.curve;
            OdGeInterval const range = curve.getInterval();
            double const from = range.lower + range.length() * 0.7;
            double const to = range.lower + range.length() * 0.2;
            auto const part = curve.trimmed(from, to + range.length());
            double const expected = curve.length(from, range.upper) + curve.length(range.lower, to);
            CPPUNIT_ASSERT_DOUBLES_EQUAL_MESSAGE(sample.name, expected, part->length(), 1e-12 * curve.length());
            checkIsPart(sample, *part, from, to);
        }
    }

    void checkIsPart(CurveSample const& sample, OdGeCurve3d const& part, double from, double to)
    {
        OdGeCurve3d const& curve = *sample.curve;
        OdGePoint3d start;
        OdGePoint3d end;
        CPPUNIT_ASSERT_MESSAGE(sample.name, part.hasStartPoint(start) && part.hasEndPoint(end));
        CPPUNIT_ASSERT_MESSAGE(sample.name, start.isEqualTo(curve.evalPoint(from), rounding(curve)));
        CPPUNIT_ASSERT_MESSAGE(sample.name, end.isEqualTo(curve.evalPoint(to), rounding(curve)));
        CPPUNIT_ASSERT_MESSAGE(sample.name,
                               curve.isOn(part.evalPoint(m_random.paramOf(part)), nullptr, rounding(curve)));
    }

    void reversing()
    {
        for (CurveSample const& sample : m_samples) {
            OdGeCurve3d const& curve = *sample.curve;
            auto const reversed = curve.copy();
            reversed->reverseParam();
            double const length = curve.length();
            for (double const part : {0.0, 0.1, 0.5, 0.9, 1.0}) {
                double const t = curve.paramAtLength(curve.getInterval().lower, part * length);
                double const back = reversed->paramAtLength(reversed->getInterval().upper, -part * length);
                CPPUNIT_ASSERT_MESSAGE(
                    sample.name, reversed->evalPoint(back).isEqualTo(curve.evalPoint(t), 10 * rounding(curve)));
            }
            reversed->reverseParam();
            for (int i = 0; i < 5; ++i) {
                double const t = m_random.paramOf(curve);
                CPPUNIT_ASSERT_MESSAGE(sample.name,
                                       reversed->evalPoint(t).isEqualTo(curve.evalPoint(t), rounding(curve)));
            }
        }
    }

    void transformationsCommute()
    {
        OdGeMatrix3d const turned = OdGeMatrix3d::rotation(1, {1, 2, -1}, {3, 0, 0}) * OdGeMatrix3d::scaling(2.5);
        OdGeMatrix3d const mirrored = OdGeMatrix3d::mirroringAtPlane({1, 1, 1}, {1, -1, 0.5}) * turned;
        for (CurveSample const& sample : m_samples) {
            for (OdGeMatrix3d const& matrix : {turned, mirrored, OdGeMatrix3d::mirroringAtPlane({}, {0, 0, 1})}) {
                OdGeCurve3d const& curve = *sample.curve;
                auto const image = curve.copy();
                image->transformBy(matrix);
                double const scale = (matrix * OdGeVector3d::kXAxis).length();
                CPPUNIT_ASSERT_DOUBLES_EQUAL_MESSAGE(sample.name, curve.length() * scale, image->length(),
                                                     1e-12 * curve.length() * scale);
                for (int i = 0; i < 5; ++i) {
                    double const t = m_random.paramOf(curve);
                    CPPUNIT_ASSERT_MESSAGE(sample.name, image->evalPoint(t).isEqualTo(matrix * curve.evalPoint(t),
                                                                                      10 * rounding(*image)));
                }
            }
        }
    }

    void extentsHoldAndTouch()
    {
        for (CurveSample const& sample : m_samples) {
            OdGeCurve3d const& curve = *sample.curve;
            OdGeExtents3d const box = curve.extents();
            OdGeExtents3d sampled;
            for (OdGePoint3d const& point : densePoints(curve, 5000))
                sampled.addPoint(point);
            CPPUNIT_ASSERT_MESSAGE(sample.name, box.contains(sampled, rounding(curve)));
            double const gap = rounding(curve) + 1e-6 * curve.length();
            CPPUNIT_ASSERT_MESSAGE(sample.name, sampled.minPoint().isEqualTo(box.minPoint(), gap));
            CPPUNIT_ASSERT_MESSAGE(sample.name, sampled.maxPoint().isEqualTo(box.maxPoint(), gap));
        }
    }

    void areaIsThatOfAFinePolygon()
    {
        OdGeVector3d const normal = OdGeVector3d(1, 2, 5).normal();
        for (CurveSample const& sample : m_samples) {
            std::vector<OdGePoint3d> const points = densePoints(*sample.curve, 10000);
            OdGeVector3d sum;
            for (std::size_t i = 1; i < points.size(); ++i)
                sum += (points[i - 1] - points[0]).crossProduct(points[i] - points[0]) / 2;
            double const length = sample.curve->length();
            double const noise = 1e-15 * coordinateSize(*sample.curve) * length;
            CPPUNIT_ASSERT_DOUBLES_EQUAL_MESSAGE(sample.name, sum.dotProduct(normal),
                                                 sample.curve->signedArea(normal), 1e-7 * length * length + noise);
        }
    }

    void planesHoldTheirCurves()
    {
        int planes = 0;
        for (CurveSample const& sample : m_samples) {
            auto const plane = sample.curve->plane();
            if (!plane)
                continue;
            ++planes;
            for (OdGePoint3d const& point : densePoints(*sample.curve, 50))
                CPPUNIT_ASSERT_MESSAGE(sample.name, plane->isOn(point, 1e-10 + rounding(*sample.curve)));
        }
        CPPUNIT_ASSERT_EQUAL(static_cast<int>(m_samples.size()) - 4, planes); // all but those that leave any plane
    }

    void samplesKeepTheChordError()
    {
        for (CurveSample const& sample : m_samples) {
            OdGeCurve3d const& curve = *sample.curve;
            double const allowed = curve.length() * 1e-4;
            std::vector<OdGePoint3d> const points = curve.samplePoints(allowed);
            CPPUNIT_ASSERT_MESSAGE(sample.name, points.size() >= 2 && points.size() < 1000);
            for (std::size_t i = 1; i < points.size(); ++i) {
                for (double const part : {0.3, 0.5, 0.8}) {
                    OdGePoint3d const onChord = points[i - 1] + (points[i] - points[i - 1]) * part;
                    CPPUNIT_ASSERT_MESSAGE(sample.name, curve.distanceTo(onChord) <= allowed + rounding(curve));
                }
            }
            CPPUNIT_ASSERT_MESSAGE(sample.name, curve.samplePoints(0).size() < 200000);
        }
    }
};

} // namespace

CPPUNIT_TEST_SUITE_REGISTRATION(CurvePropertiesTest);
