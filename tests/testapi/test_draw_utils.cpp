#include "testapi/ta_draw_utils.h"
#include "tests/support/od_result_of.h"

#include <cppunit/extensions/HelperMacros.h>

#include <limits>

namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNan = std::numeric_limits<double>::quiet_NaN();

class DrawUtilsTest : public CppUnit::TestFixture
{
    CPPUNIT_TEST_SUITE(DrawUtilsTest);
    CPPUNIT_TEST(validNumbers);
    CPPUNIT_TEST(cornersOfWindows);
    CPPUNIT_TEST(polylinesInAPlane);
    CPPUNIT_TEST(badLists);
    CPPUNIT_TEST(splines);
    CPPUNIT_TEST_SUITE_END();

    void validNumbers()
    {
        for (double const good : {0.0, -1e19, 5e-324})
            CPPUNIT_ASSERT(ta::isValidDouble(good));
        for (double const bad : {1e20, -1e20, 1e300, kInfinity, -kInfinity, kNan})
            CPPUNIT_ASSERT(!ta::isValidDouble(bad));
    }

    void cornersOfWindows()
    {
        OdGePoint3d const lowerLeft(-1, -2, 3);
        OdGePoint3d const upperRight(4, 5, 6);
        OdGePoint3d first = upperRight;
        OdGePoint3d second = lowerLeft;
        for (int i = 0; i < 2; ++i) { // the second time there is nothing to do
            CPPUNIT_ASSERT(ta::correctWindowSelectionArgs(first, second));
            CPPUNIT_ASSERT(first == lowerLeft && second == upperRight);
        }
        first = {-1, 5, 0}; // from above is as good
        second = {4, -2, 0};
        CPPUNIT_ASSERT(ta::correctWindowSelectionArgs(first, second));
        CPPUNIT_ASSERT(first == OdGePoint3d(-1, 5, 0));

        for (OdGePoint3d const& bad : {OdGePoint3d(4 + 5e-11, 0, 0), OdGePoint3d(9, 5, 0), OdGePoint3d(kNan, 0, 0),
                                       OdGePoint3d(9, kInfinity, 0), OdGePoint3d(9, 0, 1e20)}) {
            first = bad;
            second = upperRight;
            CPPUNIT_ASSERT(!ta::correctWindowSelectionArgs(first, second));
            CPPUNIT_ASSERT(!ta::correctWindowSelectionArgs(second, first));
            CPPUNIT_ASSERT(second == upperRight);
        }
    }

    void polylinesInAPlane()
    {
        OdGePoint2dArray const points = {{1, 2}, {3, 4}, {5, 7}};
        OdGeDoubleArray const bulges = {.5, -1};
        OdGeDoubleArray const startWidths = {1, 2, 3};
        OdGeDoubleArray const endWidths = {4};
        OdGeVector3d const normal(0, 3, 0);
        auto const light = ta::createOdDbPolyline(points, &bulges, true, &normal, 8, &startWidths, &endWidths);
        auto const heavy = ta::createOdDb2dPolyline(points, &bulges, true, &normal, 8, &startWidths, &endWidths);
        CPPUNIT_ASSERT(light->isClosed() && heavy->isClosed());
        CPPUNIT_ASSERT_EQUAL(8.0, light->elevation());
        CPPUNIT_ASSERT_EQUAL(8.0, heavy->elevation());
        for (OdGeVector3d const& stored : {light->normal(), heavy->normal()})
            CPPUNIT_ASSERT(stored == OdGeVector3d::kYAxis);
        struct Row
        {
            double bulge, startWidth, endWidth;
        };
        Row const rows[] = {{.5, 1, 4}, {-1, 2, 0}, {0, 3, 0}};
        CPPUNIT_ASSERT_EQUAL(3U, light->numVerts());
        OdDbPartIterator it = heavy->vertexIterator();
        for (unsigned i = 0; i < 3; ++i, it.step()) {
            auto const& vertex = static_cast<OdDb2dVertex const&>(it.peek());
            CPPUNIT_ASSERT(light->getPointAt(i) == points[i]);
            CPPUNIT_ASSERT(vertex.position() == OdGePoint3d(points[i].x, points[i].y, 8));
            for (auto const& found :
                 {Row{light->getBulgeAt(i), light->getStartWidthAt(i), light->getEndWidthAt(i)},
                  Row{vertex.bulge(), vertex.startWidth(), vertex.endWidth()}}) {
                CPPUNIT_ASSERT_EQUAL(rows[i].bulge, found.bulge);
                CPPUNIT_ASSERT_EQUAL(rows[i].startWidth, found.startWidth);
                CPPUNIT_ASSERT_EQUAL(rows[i].endWidth, found.endWidth);
            }
        }
        CPPUNIT_ASSERT(it.done());
        auto const plain = ta::createOdDbPolyline(points);
        CPPUNIT_ASSERT(!plain->isClosed() && !plain->hasBulges() && !plain->hasWidth());
    }

    void badLists()
    {
        OdGePoint2dArray const points = {{1, 2}, {3, 4}};
        OdGeDoubleArray const tooMany = {0, 0, 0};
        OdGeDoubleArray const negative = {1, -1};
        OdGeVector3d const zero;
        auto const refusals = [&](auto const& create) {
            CPPUNIT_ASSERT_EQUAL(eInvalidInput, odResultOf([&] { create(points, &tooMany); }));
            CPPUNIT_ASSERT_EQUAL(
                eInvalidInput, odResultOf([&] { create(points, nullptr, false, nullptr, 0, nullptr, &tooMany); }));
            CPPUNIT_ASSERT_EQUAL(eOutOfRange,
                                 odResultOf([&] { create(points, nullptr, false, nullptr, 0, &negative); }));
            CPPUNIT_ASSERT_EQUAL(eDegenerateGeometry, odResultOf([&] { create(points, nullptr, false, &zero); }));
        };
        refusals([](auto... arguments) { ta::createOdDbPolyline(arguments...); });
        refusals([](auto... arguments) { ta::createOdDb2dPolyline(arguments...); });
    }

    void splines()
    {
        OdGePoint3dArray const quarter = {{1, 0, 0}, {1, 1, 0}, {0, 1, 0}};
        OdGeKnotVector const knots({0, 0, 0, 1, 1, 1});
        OdGeDoubleArray const weights = {1, std::sqrt(.5), 1};
        auto const middleOf = [](OdDbSplinePtr const& spline) {
            OdGePoint3d middle;
            CPPUNIT_ASSERT_EQUAL(eOk, spline->getPointAtParam(.5, middle));
            return middle;
        };
        auto const circular = ta::createOdDbSpline(2, true, false, quarter, knots, &weights);
        CPPUNIT_ASSERT(circular->isRational() && !circular->isPeriodic());
        CPPUNIT_ASSERT(middleOf(circular) == OdGePoint3d(std::sqrt(.5), std::sqrt(.5), 0));
        auto const parabolic = ta::createOdDbSpline(2, false, true, quarter, knots, &weights);
        CPPUNIT_ASSERT(!parabolic->isRational());
        CPPUNIT_ASSERT(middleOf(parabolic) == OdGePoint3d(.75, .75, 0));
        CPPUNIT_ASSERT(middleOf(ta::createOdDbSpline(2, true, false, quarter, knots)) == middleOf(parabolic));

        CPPUNIT_ASSERT_EQUAL(eInvalidInput,
                             odResultOf([&] { ta::createOdDbSpline(3, false, false, quarter, knots); }));
    }
};

CPPUNIT_TEST_SUITE_REGISTRATION(DrawUtilsTest);

} // namespace
