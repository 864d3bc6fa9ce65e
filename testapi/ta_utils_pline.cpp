#include "testapi/ta_utils_pline.h"

#include "testapi/ta_assert.h"
#include "testapi/ta_draw_utils.h"

namespace ta {

namespace {

/// The lines are part of the messages that users of these assertions know. They do not move with the source.
constexpr Place at(int line)
{
    return {"testapi/ta_utils", line};
}

bool checkPoints(OdGePoint3dArray const& expected, tdx::PolylineIterator<OdDb3dPolyline>& it, int& segment,
                 EPlineErrorCode& code)
{
    segment = 0;
    code = EPlineErrorCode::kNone;
    std::size_t count = 0;
    for (; count < expected.size() && !it.done(); it.next(), ++count) {
        if ((it.vertexPoint() - expected[count]).isZeroLength())
            continue;
        segment = static_cast<int>(count) + 1;
        code = EPlineErrorCode::kPosition;
        return false;
    }
    if (!expected.empty() && count == expected.size() && it.done())
        return true;
    code = EPlineErrorCode::kVertexCount;
    return false;
}

} // namespace

bool check3dPlineData(OdGePoint3dArray const& points, OdDb3dPolyline const* pline, int& segment,
                      EPlineErrorCode& code)
{
    bool const isSimple = pline && pline->polyType() == OdDb::k3dSimplePoly;
    tdx::PolylineIterator<OdDb3dPolyline> it(pline, isSimple);
    return checkPoints(points, it, segment, code);
}

bool check3dPlineData(CPlineData const& expected, tdx::PolylineIterator<OdDb3dPolyline>& it, int& segment,
                      EPlineErrorCode& code)
{
    return checkPoints(expected.points, it, segment, code);
}

void assertSegWidth(bool bExp, int segment)
{
    check(bExp, "bExp", at(1300), L"Incorrect width, segment #%d", segment);
}

void assertSegBulge(bool bExp, int segment)
{
    check(bExp, "bExp", at(1310), L"Incorrect bulge, segment #%d", segment);
}

void assertSegPosition(bool bExp, int segment)
{
    check(bExp, "bExp", at(1320), L"Incorrect vertex, segment #%d", segment);
}

void assertSegData(bool, int segment, EPlineErrorCode code)
{
    check(code != EPlineErrorCode::kVertexCount, "false", at(1327), L"Incorrect number of vertices");
    assertSegWidth(code != EPlineErrorCode::kStartWidth && code != EPlineErrorCode::kEndWidth, segment);
    assertSegBulge(code != EPlineErrorCode::kBulge, segment);
    assertSegPosition(code != EPlineErrorCode::kPosition, segment);
}

void assertClosed(bool bClosed)
{
    check(bClosed, "bClosed", at(1333), L"Polyline must be closed");
}

void assertOpen(bool bOpen)
{
    check(bOpen, "bOpen", at(1334), L"Polyline must be open");
}

void assertSimplePoly(bool bSimplePoly)
{
    check(bSimplePoly, "bSimplePoly", at(1336), L"Polyline must not contain curve/spline fit vertices");
}

void assertNoBulges(bool bNoBulges)
{
    check(bNoBulges, "bNoBulges", at(1338), L"Polyline must not contain bulges");
}

void assertPolyType(bool bCorrectType)
{
    check(bCorrectType, "bCorrectType", at(1340), L"Polyline has incorrect type");
}

void assertFitVertices(bool bHasFitVertices)
{
    check(bHasFitVertices, "bHasFitVertices", at(1342), L"Polyline must not contain curve-fit vertices");
}

void assertSplineFitVertices(bool bHasSplineFitVerts)
{
    check(bHasSplineFitVerts, "bHasSplineFitVerts", at(1344), L"Polyline must contain spline-fit vertices");
}

void assertSplineCtlVertices(bool bHasSplineCtlVerts)
{
    check(bHasSplineCtlVerts, "bHasSplineCtlVerts", at(1346), L"Polyline must contain spline control vertices");
}

void assertWidth(bool bHasWidth, double width)
{
    check(bHasWidth, "bHasWidth", at(1353), L"Polyline must have equal width = %f for all segments", width);
}

bool assertValidDouble(double value)
{
    check(isValidDouble(value), "isValidDouble(value)", at(546), L"Double value is invalid");
    return true;
}

void assertCorrectWindowSelectionArgs(OdGePoint3d& pt1Uc, OdGePoint3d& pt2Uc)
{
    check(correctWindowSelectionArgs(pt1Uc, pt2Uc), "correctWindowSelectionArgs(pt1Uc, pt2Uc)", at(1023),
          L"Invalid selection arguments");
}

} // namespace ta
