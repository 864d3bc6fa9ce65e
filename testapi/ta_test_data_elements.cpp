#include "testapi/ta_test_data_elements.h"

#include "testapi/ta_test_data.h"

#include <algorithm>

namespace ta {

namespace {

struct Layout
{
    ut::CRtClass const* (*desc)();
    wchar_t const* words;
};

constexpr wchar_t s_segment[] = L"start end";
constexpr wchar_t s_line[] = L"base dir";
constexpr wchar_t s_ellipse[] = L"center majorAxis minorAxis majorRadius minorRadius startAng endAng";

constexpr Layout s_layouts[] = {
    {&TestOdGeLineSeg2d::desc, s_segment},
    {&TestOdGeLineSeg3d::desc, s_segment},
    {&TestOdGeRay3d::desc, s_line},
    {&TestOdGeLine3d::desc, s_line},
    {&TestOdGeCircArc2d::desc, L"center radius startAng endAng refVec? clockwise?"},
    {&TestOdGeCircArc3d::desc, L"center normal refVec radius startAng endAng"},
    {&TestOdGeEllipArc2d::desc, s_ellipse},
    {&TestOdGeEllipArc3d::desc, s_ellipse},
    {&TestOdGeNurbCurve3d::desc, L"degree periodic nKnot aKnot nPt aPt nWeight? aWeight?"},
    {&TestOdGeSegmentChain2d::desc, L"closed? | vertex: pt bulge?"},
    {&TestOdGeSegmentChain2dOnPlane::desc, L"closed? normal elev | vertex: pt bulge?"},
    {&TestOdGePolyline3d::desc, L"nPt aPt closed?"},
    {&TestOdGePoint3dArray::desc, L"nPt aPt"},
    {&TestLineSeg2dArray::desc, L"| start end"},
    {&TestPgMesh::desc, L"mSize nSize aPt MClosed? NClosed?"},
    {&TestMTextData::desc, L"pos width text rotAngDeg"},
    {&TestTextData::desc, L"pos widthFactor text rotAngDeg"},
    {&TestHandleArray::desc, L"nHd aHd"},
};

} // namespace

ExpectedElement const* TestDataElements::of(ut::CRtClass const* cls)
{
    if (auto const known = m_known.find(cls); known != m_known.end())
        return &known->second;
    auto const layout = std::ranges::find_if(s_layouts, [&](Layout const& each) { return each.desc() == cls; });
    if (layout == std::end(s_layouts))
        return nullptr;
    std::wstring const name = OdString::fromUtf8(cls->name()).str();
    return &m_known.try_emplace(cls, L"attribute of " + name, layout->words).first->second;
}

} // namespace ta
