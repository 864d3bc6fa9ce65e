#include "testapi/ta_draw_utils.h"
#include "testapi/ta_utils_pline.h"

#include <cppunit/Exception.h>
#include <cppunit/extensions/HelperMacros.h>

#include <functional>

using ta::EPlineErrorCode;

namespace {

OdGePoint3dArray const s_points = {{0, 0, 0}, {1, 2, 3}, {4, 5, 6}, {1e6, 0, 0}};

/// "expression, message, line" of the failure; empty when there is none.
std::string failureOf(std::function<void()> const& action)
{
    try {
        action();
    } catch (CppUnit::Exception const& failure) {
        CPPUNIT_ASSERT_EQUAL(std::string("testapi/ta_utils"), failure.sourceLine().fileName());
        CPPUNIT_ASSERT_EQUAL(std::string("assertion failed"), failure.message().shortDescription());
        CPPUNIT_ASSERT_EQUAL(2, failure.message().detailCount());
        return failure.message().detailAt(0) + ", " + failure.message().detailAt(1) + ", " +
               std::to_string(failure.sourceLine().lineNumber());
    }
    return {};
}

class PlineChecksTest : public CppUnit::TestFixture
{
    CPPUNIT_TEST_SUITE(PlineChecksTest);
    CPPUNIT_TEST(verticesOf3dPolylines);
    CPPUNIT_TEST(numberOfVertices);
    CPPUNIT_TEST(splineFit);
    CPPUNIT_TEST(iteratorOfTheCaller);
    CPPUNIT_TEST(failures);
    CPPUNIT_TEST(failuresOfSegments);
    CPPUNIT_TEST(failuresOfArguments);
    CPPUNIT_TEST_SUITE_END();

    int m_segment = -1;
    EPlineErrorCode m_code = EPlineErrorCode::kBulge;

    bool check(OdGePoint3dArray const& expected, OdDb3dPolyline const* polyline)
    {
        m_segment = -1;
        m_code = EPlineErrorCode::kBulge;
        return ta::check3dPlineData(expected, polyline, m_segment, m_code);
    }
    void assertFound(EPlineErrorCode code, int segment)
    {
        CPPUNIT_ASSERT_EQUAL(static_cast<int>(code), static_cast<int>(m_code));
        CPPUNIT_ASSERT_EQUAL(segment, m_segment);
    }

    void verticesOf3dPolylines()
    {
        OdDb3dPolylinePtr const polyline = ta::createOdDb3dPolyline(s_points);
        CPPUNIT_ASSERT(check(s_points, polyline.get()));
        assertFound(EPlineErrorCode::kNone, 0);

        OdGePoint3dArray moved = s_points;
        moved[2].z += 5e-11;
        CPPUNIT_ASSERT(check(moved, polyline.get()));
        moved[2].z += 1e-9;
        bool const isGood = check(moved, polyline.get());
        CPPUNIT_ASSERT(!isGood);
        assertFound(EPlineErrorCode::kPosition, 3);
        CPPUNIT_ASSERT_EQUAL(std::string("Expression: bExp, Incorrect vertex, segment #3, 1320"),
                             failureOf([&] { ta::assertSegData(isGood, m_segment, m_code); }));
        moved[0].x = std::numeric_limits<double>::quiet_NaN();
        CPPUNIT_ASSERT(!check(moved, polyline.get()));
        assertFound(EPlineErrorCode::kPosition, 1);
    }

    void numberOfVertices()
    {
        OdDb3dPolylinePtr const polyline = ta::createOdDb3dPolyline(s_points, true);
        OdDb3dPolylinePtr const empty = ta::createOdDb3dPolyline({});
        OdGePoint3dArray less = s_points;
        less.removeLast();
        OdGePoint3dArray more = s_points;
        more.append({7, 7, 7});
        struct Case
        {
            OdGePoint3dArray expected;
            OdDb3dPolyline const* polyline;
        };
        for (Case const& each : {Case{less, polyline.get()}, Case{more, polyline.get()}, Case{{}, polyline.get()},
                                 Case{{}, empty.get()}, Case{s_points, empty.get()}, Case{s_points, nullptr}}) {
            CPPUNIT_ASSERT(!check(each.expected, each.polyline));
            assertFound(EPlineErrorCode::kVertexCount, 0);
        }
        more[1].x += 1; // the vertex comes before the number
        CPPUNIT_ASSERT(!check(more, polyline.get()));
        assertFound(EPlineErrorCode::kPosition, 2);
    }

    void splineFit()
    {
        OdDb3dPolylinePtr const polyline = ta::createOdDb3dPolyline(s_points);
        CPPUNIT_ASSERT_EQUAL(eOk, polyline->splineFit(OdDb::k3dQuadSplinePoly, 2));
        OdGePoint3dArray seen;
        for (OdDbPartIterator it = polyline->vertexIterator(); !it.done(); it.step())
            if (auto const* vertex = odCast<OdDb3dPolylineVertex>(&it.peek()); !vertex->isControlVertex())
                seen.append(vertex->position());
        CPPUNIT_ASSERT(seen.size() > s_points.size());
        CPPUNIT_ASSERT(check(seen, polyline.get()));
        CPPUNIT_ASSERT(!check(s_points, polyline.get())); // the frame
    }

    void iteratorOfTheCaller()
    {
        OdDb3dPolylinePtr const polyline = ta::createOdDb3dPolyline(s_points);
        ta::CPlineData expected;
        for (OdGePoint3d const& point : {s_points[1], s_points[2], s_points[3]})
            expected.add(point, .5, 1, 1); // bulges and widths do not count
        tdx::PolylineIterator<OdDb3dPolyline> it(polyline.get(), true);
        it.next();
        CPPUNIT_ASSERT(ta::check3dPlineData(expected, it, m_segment, m_code));
        assertFound(EPlineErrorCode::kNone, 0);
        CPPUNIT_ASSERT(!ta::check3dPlineData(expected, it, m_segment, m_code)); // at its end
        assertFound(EPlineErrorCode::kVertexCount, 0);
    }

    void failures()
    {
        struct Case
        {
            void (*assertion)(bool);
            char const* expression;
            char const* message;
            int line;
        };
        // clang-format off
        Case const cases[] = {
            {ta::assertClosed,            "bClosed",            "Polyline must be closed",                             1333},
            {ta::assertOpen,              "bOpen",              "Polyline must be open",                               1334},
            {ta::assertSimplePoly,        "bSimplePoly",        "Polyline must not contain curve/spline fit vertices", 1336},
            {ta::assertNoBulges,          "bNoBulges",          "Polyline must not contain bulges",                    1338},
            {ta::assertPolyType,          "bCorrectType",       "Polyline has incorrect type",                         1340},
            {ta::assertFitVertices,       "bHasFitVertices",    "Polyline must not contain curve-fit vertices",        1342},
            {ta::assertSplineFitVertices, "bHasSplineFitVerts", "Polyline must contain spline-fit vertices",           1344},
            {ta::assertSplineCtlVertices, "bHasSplineCtlVerts", "Polyline must contain spline control vertices",       1346},
        };
        // clang-format on
        for (Case const& each : cases) {
            each.assertion(true);
            CPPUNIT_ASSERT_EQUAL(std::string("Expression: ") + each.expression + ", " + each.message + ", " +
                                     std::to_string(each.line),
                                 failureOf([&] { each.assertion(false); }));
        }
        ta::assertWidth(true, 2.5);
        CPPUNIT_ASSERT_EQUAL(
            std::string("Expression: bHasWidth, Polyline must have equal width = 2.500000 for all "
                        "segments, 1353"),
            failureOf([] { ta::assertWidth(false, 2.5); }));
    }

    void failuresOfSegments()
    {
        ta::assertSegWidth(true, 1);
        ta::assertSegBulge(true, 1);
        ta::assertSegPosition(true, 1);
        std::string const width = "Expression: bExp, Incorrect width, segment #7, 1300";
        std::string const bulge = "Expression: bExp, Incorrect bulge, segment #7, 1310";
        std::string const vertex = "Expression: bExp, Incorrect vertex, segment #7, 1320";
        CPPUNIT_ASSERT_EQUAL(width, failureOf([] { ta::assertSegWidth(false, 7); }));
        CPPUNIT_ASSERT_EQUAL(bulge, failureOf([] { ta::assertSegBulge(false, 7); }));
        CPPUNIT_ASSERT_EQUAL(vertex, failureOf([] { ta::assertSegPosition(false, 7); }));

        std::string const byCode[] = {"",    vertex, bulge,
                                      width, width,  "Expression: false, Incorrect number of vertices, 1327"};
        for (int code = 0; code < 6; ++code)
            for (bool const isGood : {false, true}) // only the code counts
                CPPUNIT_ASSERT_EQUAL(byCode[code], failureOf([&] {
                                         ta::assertSegData(isGood, 7, static_cast<EPlineErrorCode>(code));
                                     }));
    }

    void failuresOfArguments()
    {
        CPPUNIT_ASSERT(ta::assertValidDouble(-1e19));
        CPPUNIT_ASSERT_EQUAL(std::string("Expression: isValidDouble(value), Double value is invalid, 546"),
                             failureOf([] { ta::assertValidDouble(1e20); }));
        OdGePoint3d first(5, 0, 0);
        OdGePoint3d second(0, 1, 0);
        ta::assertCorrectWindowSelectionArgs(first, second);
        CPPUNIT_ASSERT(first == OdGePoint3d(0, 1, 0));
        CPPUNIT_ASSERT_EQUAL(std::string("Expression: correctWindowSelectionArgs(pt1Uc, pt2Uc), Invalid selection "
                                         "arguments, 1023"),
                             failureOf([&] { ta::assertCorrectWindowSelectionArgs(first, first); }));
    }
};

CPPUNIT_TEST_SUITE_REGISTRATION(PlineChecksTest);

} // namespace
