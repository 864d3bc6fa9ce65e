// Comparison of splines: of what they were drawn through where both know it, else of the curve itself.
#include "testapi/ta_comparison_rows.h"

namespace ta {

namespace {

// clang-format off
constexpr Row<OdDbSpline> s_splineRows[] = {EXACT(hasFitData), EXACT(isRational), EXACT(degree)};

constexpr Row<OdDbSpline> s_fitRows[] = {NEAR2(fitTolerance), EXACT(numFitPoints)};
// clang-format on

struct NurbsData
{
    explicit NurbsData(OdDbSpline const& spline)
    {
        int degree = 0;
        bool rational = false;
        double controlTolerance = 0;
        spline.getNurbsData(degree, rational, isClosed, isPeriodic, controlPoints, knots, weights,
                            controlTolerance);
    }
    bool isClosed = false, isPeriodic = false;
    OdGePoint3dArray controlPoints;
    OdGeKnotVector knots;
    OdGeDoubleArray weights;
};

void compareFitData(OdDbSpline const* pp1, OdDbSpline const* pp2, Comparison& comparison)
{
    double const eps = comparison.options().eps;
    checkRows(s_fitRows, pp1, pp2, comparison);
    for (int i = 0, count = std::min(pp1->numFitPoints(), pp2->numFitPoints()); i < count; ++i) {
        Comparison::Part const part(comparison, L"fit point", i + 1);
        OdGePoint3d point1, point2;
        pp1->getFitPointAt(i, point1);
        pp2->getFitPointAt(i, point2);
        comparison.near(point1, point2, eps, {nullptr, L"Incorrect fitPoint value", __LINE__});
    }
    OdGeVector3d start1, start2, end1, end2;
    pp1->getFitTangents(start1, end1);
    pp2->getFitTangents(start2, end2);
    comparison.near(start1, start2, eps, {nullptr, L"Incorrect startTangent value", __LINE__});
    comparison.near(end1, end2, eps, {nullptr, L"Incorrect endTangent value", __LINE__});
}

/// As far as both go.
template <class Values>
void compareLists(Values const& actual, Values const& expected, std::size_t count, wchar_t const* kind,
                  Check const& check, Comparison& comparison)
{
    for (std::size_t i = 0; i < count; ++i) {
        Comparison::Part const part(comparison, kind, static_cast<int>(i) + 1);
        comparison.near(actual[i], expected[i], comparison.options().eps, check);
    }
}

void compareNurbsData(OdDbSpline const* pp1, OdDbSpline const* pp2, Comparison& comparison)
{
    NurbsData const data1(*pp1), data2(*pp2);
    bool const bClosed[] = {data1.isClosed, data2.isClosed};
    comparison.exact(bClosed[0], bClosed[1], TA_CODE_CHECK(L"Incorrect isClosed value", bClosed[0] == bClosed[1]));
    bool const bPeriodic[] = {data1.isPeriodic, data2.isPeriodic};
    comparison.exact(bPeriodic[0], bPeriodic[1],
                     TA_CODE_CHECK(L"Incorrect isPeriodic value", bPeriodic[0] == bPeriodic[1]));
    auto const &points1 = data1.controlPoints, &points2 = data2.controlPoints;
    comparison.exact(points1.size(), points2.size(),
                     TA_CODE_CHECK(L"Incorrect numControlPoints value", points1.size() == points2.size()));
    auto const &knots1 = data1.knots, &knots2 = data2.knots;
    comparison.exact(knots1.length(), knots2.length(),
                     TA_CODE_CHECK(L"Incorrect numKnots value", knots1.length() == knots2.length()));
    auto const &weights1 = data1.weights, &weights2 = data2.weights;
    comparison.exact(weights1.size(), weights2.size(),
                     TA_CODE_CHECK(L"Incorrect numWeights value", weights1.size() == weights2.size()));
    compareLists(points1, points2, std::min(points1.size(), points2.size()), L"control point",
                 {nullptr, L"Incorrect controlPoint value", __LINE__}, comparison);
    compareLists(knots1, knots2, std::min(knots1.length(), knots2.length()), L"knot",
                 {nullptr, L"Incorrect knot value", __LINE__}, comparison);
    compareLists(weights1, weights2, std::min(weights1.size(), weights2.size()), L"weight",
                 {nullptr, L"Incorrect weight value", __LINE__}, comparison);
}

} // namespace

void compareProperties(OdDbSpline const* pp1, OdDbSpline const* pp2, Comparison& comparison)
{
    checkRows(s_splineRows, pp1, pp2, comparison);
    if (pp1->hasFitData() != pp2->hasFitData())
        return;
    if (pp1->hasFitData())
        compareFitData(pp1, pp2, comparison);
    else
        compareNurbsData(pp1, pp2, comparison);
}

} // namespace ta
