// What a datum is: the class records and the predicates.
#include "testapi/ta_test_data.h"

#include <algorithm>
#include <vector>

namespace ta {

UT_DEFINE_TEST_DATA(TestOdGePoint3d, ut::TestGeData)
UT_DEFINE_TEST_DATA(TestOdGeLineSeg2d, ut::TestGeData)
UT_DEFINE_TEST_DATA(TestOdGeLineSeg3d, ut::TestGeData)
UT_DEFINE_TEST_DATA(TestOdGeRay3d, ut::TestGeData)
UT_DEFINE_TEST_DATA(TestOdGeLine3d, ut::TestGeData)
UT_DEFINE_TEST_DATA(TestOdGeCircArc2d, ut::TestGeData)
UT_DEFINE_TEST_DATA(TestOdGeCircArc3d, ut::TestGeData)
UT_DEFINE_TEST_DATA(TestOdGeEllipArc2d, ut::TestGeData)
UT_DEFINE_TEST_DATA(TestOdGeEllipArc3d, ut::TestGeData)
UT_DEFINE_TEST_DATA(TestOdGeSegmentChain2d, ut::TestGeData)
UT_DEFINE_TEST_DATA(TestOdGeSegmentChain2dOnPlane, TestOdGeSegmentChain2d)
UT_DEFINE_TEST_DATA(TestOdGePolyline3d, ut::TestGeData)
UT_DEFINE_TEST_DATA(TestOdGeNurbCurve3d, ut::TestGeData)
UT_DEFINE_TEST_DATA(TestOdGePoint3dArray, ut::TestGeData)
UT_DEFINE_TEST_DATA(TestLineSeg2dArray, ut::TestGeData)
UT_DEFINE_TEST_DATA(TestPgMesh, ut::TestGeData)
UT_DEFINE_TEST_DATA(TestMTextData, ut::TestGeData)
UT_DEFINE_TEST_DATA(TestTextData, ut::TestGeData)
UT_DEFINE_TEST_DATA(TestHandleArray, ut::TestGeData)

namespace {

/// Null when the datum is of another class.
template <class Data>
Data const* as(ut::TestGeData const* data)
{
    return data->isKindOf(Data::desc()) ? static_cast<Data const*>(data) : nullptr;
}

/// The datum is of this class, its geometry there and closed or not as asked for.
template <class Data>
bool isCurve(ut::TestGeData const* data, bool isClosed)
{
    Data const* const curve = as<Data>(data);
    return curve && curve->geometry() && curve->geometry()->isClosed(OdGeContext::gTol) == isClosed;
}

/// The chain of a polyline; null for anything else.
OdGeSegmentChain2d const* chainOf(ut::TestGeData const* data)
{
    auto const* const polyline = as<TestOdGeSegmentChain2d>(data);
    return polyline ? polyline->geometry() : nullptr;
}

// Bulges up to this value do not count as arcs in variants.
constexpr double kLeastBulge = 1e-10;

} // namespace

bool isPoint3d(ut::TestGeData const* data)
{
    return as<TestOdGePoint3d>(data);
}

bool isLine2d(ut::TestGeData const* data)
{
    return as<TestOdGeLineSeg2d>(data);
}

bool isLine3d(ut::TestGeData const* data)
{
    return as<TestOdGeLineSeg3d>(data);
}

bool isRay3d(ut::TestGeData const* data)
{
    return as<TestOdGeRay3d>(data);
}

bool isXline3d(ut::TestGeData const* data)
{
    return as<TestOdGeLine3d>(data);
}

bool isArc2d(ut::TestGeData const* data)
{
    return isCurve<TestOdGeCircArc2d>(data, false);
}

bool isCircle2d(ut::TestGeData const* data)
{
    return isCurve<TestOdGeCircArc2d>(data, true);
}

bool isArc3d(ut::TestGeData const* data)
{
    return isCurve<TestOdGeCircArc3d>(data, false);
}

bool isCircle3d(ut::TestGeData const* data)
{
    return isCurve<TestOdGeCircArc3d>(data, true);
}

bool isEllipArc2d(ut::TestGeData const* data)
{
    return isCurve<TestOdGeEllipArc2d>(data, false);
}

bool isEllipse2d(ut::TestGeData const* data)
{
    return isCurve<TestOdGeEllipArc2d>(data, true);
}

bool isEllipArc3d(ut::TestGeData const* data)
{
    return isCurve<TestOdGeEllipArc3d>(data, false);
}

bool isEllipse3d(ut::TestGeData const* data)
{
    return isCurve<TestOdGeEllipArc3d>(data, true);
}

bool isPolyline2d(ut::TestGeData const* data)
{
    return as<TestOdGeSegmentChain2d>(data);
}

bool isPolyline2dBulges(ut::TestGeData const* data)
{
    OdGeSegmentChain2d const* const chain = chainOf(data);
    return chain && chain->hasBulges();
}

bool isPolyline2dOnPlane(ut::TestGeData const* data)
{
    return as<TestOdGeSegmentChain2dOnPlane>(data);
}

bool isPolyline3d(ut::TestGeData const* data)
{
    return as<TestOdGePolyline3d>(data);
}

bool isSpline3d(ut::TestGeData const* data)
{
    return as<TestOdGeNurbCurve3d>(data);
}

bool validatePoint3dArray4(ut::TestGeData const* data)
{
    auto const* const array = as<TestOdGePoint3dArray>(data);
    return array && array->points.size() == 4;
}

bool validateLineSeg2dArray2(ut::TestGeData const* data)
{
    auto const* const array = as<TestLineSeg2dArray>(data);
    return array && array->segments.size() == 2;
}

void generate2dPlineData(TestGeDataArray& data)
{
    auto const append = [&data](OdGeSegmentChain2d const& chain, std::vector<double> bulges) {
        data.append(std::make_unique<TestOdGeSegmentChain2d>(
            OdGeSegmentChain2d(chain.vertices(), std::move(bulges), chain.isClosedChain())));
    };
    std::size_t const count = data.size();
    for (std::size_t i = 0; i < count; ++i) {
        OdGeSegmentChain2d const* const chain = chainOf(data[i].get());
        if (!chain)
            continue;
        std::vector<double> bulges = chain->bulges();
        bulges.resize(static_cast<std::size_t>(chain->numVertices()), 0.0);
        if (chain->hasBulges())
            append(*chain, std::vector<double>(bulges.size(), 0.0));
        auto const isStraight = [](double bulge) { return !(bulge > kLeastBulge); };
        if (std::ranges::any_of(bulges, isStraight)) {
            std::ranges::replace_if(bulges, isStraight, 1.0 / static_cast<double>(bulges.size()));
            append(*chain, std::move(bulges));
        }
    }
}

} // namespace ta
