#include "testapi/ta_draw_utils.h"
#include "testapi/ta_pline_data.h"
#include "tests/support/od_result_of.h"

#include <cppunit/extensions/HelperMacros.h>

#include <random>

using ta::CPlineData;

namespace {

CPlineData dataOf(std::initializer_list<std::array<double, 5>> vertices)
{
    CPlineData data;
    for (auto const& [x, y, bulge, startWidth, endWidth] : vertices)
        data.add({x, y, 0}, bulge, startWidth, endWidth);
    return data;
}

CPlineData dataOf(OdDbPolyline const& polyline)
{
    CPlineData data;
    for (unsigned i = 0; i < polyline.numVerts(); ++i) {
        OdGePoint2d const point = polyline.getPointAt(i);
        data.add({point.x, point.y, polyline.elevation()}, polyline.getBulgeAt(i), polyline.getStartWidthAt(i),
                 polyline.getEndWidthAt(i));
    }
    return data;
}

CPlineData dataOf(OdDb2dPolyline const& polyline)
{
    CPlineData data;
    for (OdDbPartIterator it = polyline.vertexIterator(); !it.done(); it.step()) {
        auto const& vertex = static_cast<OdDb2dVertex const&>(it.peek());
        data.add(vertex.position(), vertex.bulge(), vertex.startWidth(), vertex.endWidth());
    }
    return data;
}

template <class Create = decltype(ta::createOdDbPolyline)>
auto polylineOf(CPlineData const& data, bool isClosed, Create& create = ta::createOdDbPolyline)
{
    OdGePoint2dArray points;
    OdGeDoubleArray starts;
    OdGeDoubleArray ends;
    for (std::size_t i = 0; i < data.points.size(); ++i) {
        points.append(data.points[i].convert2d());
        starts.append(data.widths[2 * i]);
        ends.append(data.widths[2 * i + 1]);
    }
    return create(points, &data.bulges, isClosed, nullptr, 0, &starts, &ends);
}

/// The parts of a curve that was split can be single vertices, which have no length.
double lengthOf(CPlineData const& data, bool isClosed = false)
{
    double length = 0;
    if (data.points.size() > 1)
        CPPUNIT_ASSERT_EQUAL(eOk, polylineOf(data, isClosed)->getLength(length));
    return length;
}

void assertNear(CPlineData const& expected, CPlineData const& found)
{
    CPPUNIT_ASSERT_EQUAL(expected.points.size(), found.points.size());
    CPPUNIT_ASSERT_EQUAL(expected.bulges.size(), found.bulges.size());
    CPPUNIT_ASSERT_EQUAL(expected.widths.size(), found.widths.size());
    for (std::size_t i = 0; i < expected.points.size(); ++i)
        CPPUNIT_ASSERT_DOUBLES_EQUAL(0, expected.points[i].distanceTo(found.points[i]), 1e-9);
    for (std::size_t i = 0; i < expected.bulges.size(); ++i)
        CPPUNIT_ASSERT_DOUBLES_EQUAL(expected.bulges[i], found.bulges[i], 1e-9);
    for (std::size_t i = 0; i < expected.widths.size(); ++i)
        CPPUNIT_ASSERT_DOUBLES_EQUAL(expected.widths[i], found.widths[i], 1e-9);
}

class PlineDataTest : public CppUnit::TestFixture
{
    CPPUNIT_TEST_SUITE(PlineDataTest);
    CPPUNIT_TEST(arraysOfVertices);
    CPPUNIT_TEST(cutting);
    CPPUNIT_TEST(reversing);
    CPPUNIT_TEST(joining);
    CPPUNIT_TEST(splittingByHand);
    CPPUNIT_TEST(splittingRefused);
    CPPUNIT_TEST(reversingAgreesWithTheHost);
    CPPUNIT_TEST(splittingAgreesWithTheHost);
    CPPUNIT_TEST(splittingAndAppendingRestore);
    CPPUNIT_TEST_SUITE_END();

    std::mt19937 m_random{20261};

    double number(double low, double high) { return std::uniform_real_distribution(low, high)(m_random); }

    CPlineData randomData()
    {
        CPlineData data;
        int const count = std::uniform_int_distribution(2, 7)(m_random);
        for (int i = 0; i < count; ++i) {
            double const bulge = i % 3 == 0 ? 0 : i % 3 == 1 ? number(-3, 3) : number(-1e-7, 1e-7);
            data.add({number(-50, 50), number(-50, 50), 0}, bulge, number(0, 2), number(0, 2));
        }
        return data;
    }

    void arraysOfVertices()
    {
        CPlineData data = dataOf({{0, 0, 1, 2, 3}, {4, 0, 5, 6, 7}, {8, 0, 9, 10, 11}, {12, 0, 13, 14, 15}});
        CPPUNIT_ASSERT((data.bulges == OdGeDoubleArray{1, 5, 9, 13}));
        CPPUNIT_ASSERT((data.widths == OdGeDoubleArray{2, 3, 6, 7, 10, 11, 14, 15}));

        CPlineData part = data;
        data.copy(1, 2, part); // what was in there goes
        CPPUNIT_ASSERT(part == dataOf({{4, 0, 5, 6, 7}, {8, 0, 9, 10, 11}}));
        part.copy(1, 1, part);
        CPPUNIT_ASSERT(part == dataOf({{8, 0, 9, 10, 11}}));
        for (auto const& [from, to] : {std::pair{-1, 1}, {2, 1}, {0, 4}})
            CPPUNIT_ASSERT_EQUAL(eInvalidIndex, odResultOf([&] { data.copy(from, to, part); }));
        CPPUNIT_ASSERT(part == dataOf({{8, 0, 9, 10, 11}}));
    }

    void cutting()
    {
        CPlineData data = dataOf({{0, 0, 1, 2, 3}, {4, 0, 5, 6, 7}, {8, 0, 9, 10, 11}});
        data.cutFirst();
        CPPUNIT_ASSERT(data == dataOf({{4, 0, 5, 6, 7}, {8, 0, 9, 10, 11}}));
        data.cutLast();
        CPPUNIT_ASSERT(data == dataOf({{4, 0, 5, 6, 7}}));
        data.widths.removeLast(); // what is there of it
        CPlineData same = data;
        data.cutFirst();
        same.cutLast();
        for (CPlineData* const each : {&data, &same}) {
            CPPUNIT_ASSERT(*each == CPlineData());
            each->cutFirst();
            each->cutLast();
            CPPUNIT_ASSERT(*each == CPlineData());
        }
    }

    void reversing()
    {
        CPlineData data = dataOf({{0, 0, .1, 1, 2}, {1, 0, .2, 3, 4}, {2, 5, .3, 5, 6}});
        data.reverse();
        CPPUNIT_ASSERT(data == dataOf({{2, 5, -.2, 4, 3}, {1, 0, -.1, 2, 1}, {0, 0, -.3, 6, 5}}));

        CPlineData single = dataOf({{7, 8, .5, 1, 2}});
        single.reverse();
        CPPUNIT_ASSERT(single == dataOf({{7, 8, .5, 1, 2}}));

        for (int i = 0; i < 100; ++i) {
            CPlineData const whole = randomData();
            CPlineData turned = whole;
            turned.reverse();
            CPPUNIT_ASSERT(turned.points.first() == whole.points.last());
            CPPUNIT_ASSERT_DOUBLES_EQUAL(lengthOf(whole, true), lengthOf(turned, true), 1e-9);
            turned.reverse();
            CPPUNIT_ASSERT(turned == whole);
        }
    }

    void joining()
    {
        CPlineData data = dataOf({{0, 0, 1, 2, 3}, {1, 0, 9, 9, 9}});
        data.append(dataOf({{1, 5e-11, 4, 5, 6}, {2, 0, 7, 8, 9}}));
        CPPUNIT_ASSERT(data == dataOf({{0, 0, 1, 2, 3}, {1, 0, 4, 5, 6}, {2, 0, 7, 8, 9}}));
        data.append(dataOf({{2, 1e-9, 0, 0, 0}})); // another place
        CPPUNIT_ASSERT_EQUAL(std::size_t(4), data.points.size());

        CPlineData doubled = dataOf({{0, 0, 1, 2, 3}, {0, 1, 4, 5, 6}});
        doubled.append(doubled);
        CPPUNIT_ASSERT(doubled == dataOf({{0, 0, 1, 2, 3}, {0, 1, 4, 5, 6}, {0, 0, 1, 2, 3}, {0, 1, 4, 5, 6}}));

        CPlineData bare; // vertices without values get zeros as soon as others have some
        bare.points = {{-1, 0, 0}, {0, 0, 0}};
        CPlineData mixed = bare;
        mixed.append(bare);
        CPPUNIT_ASSERT(mixed.bulges.empty() && mixed.widths.empty());
        mixed.append(dataOf({{0, 0, 1, 2, 3}, {5, 5, 4, 5, 6}}));
        CPPUNIT_ASSERT((mixed.bulges == OdGeDoubleArray{0, 0, 0, 1, 4}));
        mixed.append(bare);
        CPPUNIT_ASSERT((mixed.widths == OdGeDoubleArray{0, 0, 0, 0, 0, 0, 2, 3, 5, 6, 0, 0, 0, 0}));
    }

    void splittingByHand()
    {
        double const eighth = std::tan(OdaPI / 8); // bulge of a quarter of a circle
        CPlineData const halfCircle = dataOf({{-1, 0, -1, 0, 2}, {1, 0, 0, 4, 4}});
        CPlineData first;
        CPlineData second;
        halfCircle.splitAtPrm(.5, 1, first, &second); // clockwise: over the top
        assertNear(dataOf({{-1, 0, -eighth, 0, 1}, {0, 1, 0, 1, 1}}), first);
        assertNear(dataOf({{0, 1, -eighth, 1, 2}, {1, 0, 0, 4, 4}}), second);

        CPlineData const square = dataOf({{0, 0, 0, 0, 0}, {4, 0, 0, 1, 1}, {4, 4, 0, 0, 0}, {0, 4, 0, 2, 6}});
        square.splitAtPrm(3.25, 4, first, &second); // in the closing segment
        assertNear(dataOf({{0, 0, 0, 0, 0}, {4, 0, 0, 1, 1}, {4, 4, 0, 0, 0}, {0, 4, 0, 2, 3}, {0, 3, 0, 3, 3}}),
                   first);
        assertNear(dataOf({{0, 3, 0, 3, 6}, {0, 0, 0, 6, 6}}), second);
        square.splitAtPrm(2 + 5e-11, 3, first, &second);
        CPPUNIT_ASSERT(first == dataOf({{0, 0, 0, 0, 0}, {4, 0, 0, 1, 1}, {4, 4, 0, 1, 1}}));
        CPPUNIT_ASSERT(second == dataOf({{4, 4, 0, 0, 0}, {0, 4, 0, 2, 6}}));
        square.splitAtPrm(0, 3, first, &second);
        CPPUNIT_ASSERT(first == dataOf({{0, 0, 0, 0, 0}}) && second == square);
        square.splitAtPrm(4, 4, first, &second);
        CPPUNIT_ASSERT(second == dataOf({{0, 0, 0, 6, 6}}));

        CPlineData bare;
        bare.points = {{0, 0, 0}, {10, 0, 20}};
        CPlineData part = bare;
        part.splitAtPrm(.75, 1, part, nullptr); // into itself
        bare.points[1] = {7.5, 0, 15};
        CPPUNIT_ASSERT(part == bare);
    }

    void splittingRefused()
    {
        CPlineData const data = dataOf({{0, 0, 0, 0, 0}, {4, 0, 0, 1, 1}, {4, 4, 0, 0, 0}});
        CPlineData first = data;
        auto const refused = [&](CPlineData const& whole, double prm, int numSegments) {
            return odResultOf([&] { whole.splitAtPrm(prm, numSegments, first, nullptr); });
        };
        double const nan = std::numeric_limits<double>::quiet_NaN();
        for (double const prm : {-.1, 2.1, 1e300, nan})
            CPPUNIT_ASSERT_EQUAL(eOutOfRange, refused(data, prm, 2));
        CPPUNIT_ASSERT_EQUAL(eInvalidInput, refused(data, 1, 1));
        CPPUNIT_ASSERT_EQUAL(eInvalidInput, refused(data, 1, 4));
        CPPUNIT_ASSERT_EQUAL(eInvalidInput, refused(CPlineData(), 0, 0));
        CPPUNIT_ASSERT_EQUAL(eInvalidInput, refused(dataOf({{0, 0, 0, 0, 0}}), 0, 1));
        CPPUNIT_ASSERT(first == data);
    }

    void reversingAgreesWithTheHost()
    {
        for (int i = 0; i < 100; ++i) {
            CPlineData data = randomData();
            auto const light = polylineOf(data, i % 2 == 0);
            auto const heavy = polylineOf(data, i % 2 == 0, ta::createOdDb2dPolyline);
            CPPUNIT_ASSERT_EQUAL(eOk, light->reverseCurve());
            CPPUNIT_ASSERT_EQUAL(eOk, heavy->reverseCurve());
            data.reverse();
            assertNear(data, dataOf(*light));
            assertNear(data, dataOf(*heavy));
        }
    }

    void splittingAgreesWithTheHost()
    {
        for (int i = 0; i < 200; ++i) {
            CPlineData const data = randomData();
            int const numSegments = static_cast<int>(data.points.size()) - 1;
            double const prm = i % 4 != 0 || numSegments < 2 ? number(.001, numSegments - .001) : numSegments - 1;
            std::vector<OdDbEntityPtr> pieces;
            CPPUNIT_ASSERT_EQUAL(eOk, polylineOf(data, false)->getSplitCurves(std::array{prm}, pieces));
            CPPUNIT_ASSERT_EQUAL(std::size_t(2), pieces.size());
            CPlineData first;
            CPlineData second;
            data.splitAtPrm(prm, numSegments, first, &second);
            assertNear(dataOf(*odCast<OdDbPolyline>(pieces[0].get())), first);
            // A host has no use for the values of the last vertex of an open polyline; here they stay.
            second.bulges.last() = 0;
            double const lastWidth = second.widths[second.widths.size() - 3];
            second.widths.last() = second.widths[second.widths.size() - 2] = lastWidth;
            assertNear(dataOf(*odCast<OdDbPolyline>(pieces[1].get())), second);
        }
    }

    void splittingAndAppendingRestore()
    {
        for (int i = 0; i < 200; ++i) {
            CPlineData const data = randomData();
            bool const isClosed = i % 2 == 0;
            int const numSegments = static_cast<int>(data.points.size()) - (isClosed ? 0 : 1);
            bool const isAtVertex = i % 3 == 0;
            double const prm =
                isAtVertex ? std::uniform_int_distribution(0, numSegments)(m_random) : number(0, numSegments);
            CPlineData joined;
            CPlineData second;
            data.splitAtPrm(prm, numSegments, joined, &second);
            CPPUNIT_ASSERT_DOUBLES_EQUAL(lengthOf(data, isClosed), lengthOf(joined) + lengthOf(second), 1e-9);
            joined.append(second);
            CPPUNIT_ASSERT_DOUBLES_EQUAL(lengthOf(data, isClosed), lengthOf(joined), 1e-9);
            if (isClosed)
                joined.cutLast(); // the first vertex again
            if (isAtVertex)
                CPPUNIT_ASSERT(joined == data);
            else
                CPPUNIT_ASSERT_EQUAL(data.points.size() + 1, joined.points.size());
        }
    }
};

CPPUNIT_TEST_SUITE_REGISTRATION(PlineDataTest);

} // namespace
