// Comparison of points, curves and solids, which have no parts.
#include "testapi/ta_comparison_rows.h"

#include <cmath>

namespace ta {

namespace {

// clang-format off
constexpr Row<OdDbPoint> s_pointRows[] = {NEAR(normal), NEAR(position)};

constexpr Row<OdDbLine> s_lineRows[] = {NEAR(normal), NEAR(startPoint), NEAR(endPoint)};

constexpr Row<OdDbArc> s_arcRows[] = {
    NEAR(normal), NEAR(center), NEAR(radius), NEAR(startAngle), NEAR(endAngle),
};

constexpr Row<OdDbCircle> s_circleRows[] = {NEAR(normal), NEAR(center), NEAR(radius)};

constexpr Row<OdDbSolid> s_solidRows[] = {NEAR(normal)};

constexpr Row<OdDbRay> s_rayRows[] = {NEAR(basePoint), NEAR(unitDir)};

constexpr Row<OdDbXline> s_xlineRows[] = {NEAR(basePoint), NEAR(unitDir)};

constexpr Row<OdDbEllipse> s_ellipseRows[] = {
    ANNOTATIVE, NEAR(normal), NEAR(center), NEAR(majorAxis), NEAR(radiusRatio),
};

constexpr Row<OdDbPolyline> s_polylineRows[] = {
    NEAR(normal), EXACT(isClosed), EXACT(hasPlinegen), EXACT(numVerts),
    NEAR2(thickness), NEAR2(elevation), NEAR2(getConstantWidth),
};
// clang-format on

void comparePolylineVertices(OdDbPolyline const* pp1, OdDbPolyline const* pp2, Comparison& comparison)
{
    double const relTolerance = comparison.options().relTolerance;
    double const eps = comparison.options().eps;
    unsigned const count = std::min(pp1->numVerts(), pp2->numVerts());
    for (unsigned i = 0; i < count; ++i) {
        Comparison::Part const part(comparison, L"vertex", static_cast<int>(i) + 1);
        comparison.near(pp1->getPointAt(i), pp2->getPointAt(i), relTolerance,
                        {nullptr, L"Incorrect point value", __LINE__});
        comparison.near(pp1->getBulgeAt(i), pp2->getBulgeAt(i), relTolerance,
                        {nullptr, L"Incorrect bulge value", __LINE__});
        comparison.near(pp1->getStartWidthAt(i), pp2->getStartWidthAt(i), eps,
                        {nullptr, L"Incorrect startWidth value", __LINE__});
        comparison.near(pp1->getEndWidthAt(i), pp2->getEndWidthAt(i), eps,
                        {nullptr, L"Incorrect endWidth value", __LINE__});
    }
}

/// How many whole turns the first angle is ahead of the second. Less than a turn by no more than 1e-10 is one.
double wholeTurns(double p1, double p2)
{
    double const d = p1 - p2;
    double const turns = std::floor((std::abs(d) + 1e-10) / Oda2PI);
    return d < 0 ? -turns : turns;
}

bool coincide(double p1, double p2, double relTolerance)
{
    return std::abs((p1 - p2) / Oda2PI - wholeTurns(p1, p2)) <= relTolerance;
}

void compareEllipseParameters(OdDbEllipse const* pp1, OdDbEllipse const* pp2, Comparison& comparison)
{
    double const relTolerance = comparison.options().relTolerance;
    double p1 = 0, p2 = 0;
    OdResult res1 = pp1->getStartParam(p1);
    OdResult res2 = pp2->getStartParam(p2);
    bool const bStartsCoincide = coincide(p1, p2, relTolerance);
    comparison.holds(
        (res1 == eOk) && (res2 == eOk) && bStartsCoincide, p1, p2,
        TA_CODE_CHECK(L"Incorrect startParam value", (res1 == eOk) && (res2 == eOk) && bStartsCoincide));
    res1 = pp1->getEndParam(p1);
    res2 = pp2->getEndParam(p2);
    bool const bEndsCoincide = coincide(p1, p2, relTolerance);
    comparison.holds((res1 == eOk) && (res2 == eOk) && bEndsCoincide, p1, p2,
                     TA_CODE_CHECK(L"Incorrect endParam value", (res1 == eOk) && (res2 == eOk) && bEndsCoincide));
}

} // namespace

void compareProperties(OdDbPoint const* pp1, OdDbPoint const* pp2, Comparison& comparison)
{
    checkRows(s_pointRows, pp1, pp2, comparison);
}

void compareProperties(OdDbLine const* pp1, OdDbLine const* pp2, Comparison& comparison)
{
    checkRows(s_lineRows, pp1, pp2, comparison);
}

void compareProperties(OdDbArc const* pp1, OdDbArc const* pp2, Comparison& comparison)
{
    checkRows(s_arcRows, pp1, pp2, comparison);
}

void compareProperties(OdDbCircle const* pp1, OdDbCircle const* pp2, Comparison& comparison)
{
    checkRows(s_circleRows, pp1, pp2, comparison);
}

void compareProperties(OdDbSolid const* pp1, OdDbSolid const* pp2, Comparison& comparison)
{
    checkRows(s_solidRows, pp1, pp2, comparison);
    for (int i = 0; i < 4; ++i) {
        Comparison::Part const part(comparison, L"corner", i + 1);
        comparison.near(pp1->getPointAt(i), pp2->getPointAt(i), comparison.options().eps,
                        {nullptr, L"Incorrect point value", __LINE__});
    }
}

void compareProperties(OdDbRay const* pp1, OdDbRay const* pp2, Comparison& comparison)
{
    checkRows(s_rayRows, pp1, pp2, comparison);
}

void compareProperties(OdDbXline const* pp1, OdDbXline const* pp2, Comparison& comparison)
{
    checkRows(s_xlineRows, pp1, pp2, comparison);
}

void compareProperties(OdDbEllipse const* pp1, OdDbEllipse const* pp2, Comparison& comparison)
{
    checkRows(s_ellipseRows, pp1, pp2, comparison);
    compareEllipseParameters(pp1, pp2, comparison);
}

void compareProperties(OdDbPolyline const* pp1, OdDbPolyline const* pp2, Comparison& comparison)
{
    checkRows(s_polylineRows, pp1, pp2, comparison);
    comparePolylineVertices(pp1, pp2, comparison);
}

} // namespace ta
