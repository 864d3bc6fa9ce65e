#include "testapi/ta_test_data.h"

#include "testapi/ta_xml_restore_point.h"

#include <utility>

namespace ta {

namespace {

wchar_t const s_normal[] = L"normal";
wchar_t const s_elev[] = L"elev";
wchar_t const s_closed[] = L"closed";
wchar_t const s_mSize[] = L"mSize";
wchar_t const s_nSize[] = L"nSize";
wchar_t const s_mClosed[] = L"MClosed";
wchar_t const s_nClosed[] = L"NClosed";

template <class Geometry>
bool readGeometry(pugi::xml_node node, Geometry& geometry)
{
    return oa::readAttr(node, geometry);
}

bool readGeometry(pugi::xml_node node, OdGeSegmentChain2d& chain)
{
    return oa::read(node, chain);
}

template <class Geometry>
bool writeGeometry(pugi::xml_node node, Geometry const& geometry)
{
    return oa::writeAttr(node, geometry);
}

bool writeGeometry(pugi::xml_node node, OdGeSegmentChain2d const& chain)
{
    return oa::write(node, chain);
}

/// A flag that is false when its attribute is absent.
bool readFlag(pugi::xml_node node, wchar_t const* name, bool& flag)
{
    flag = false;
    return !node.attribute(name) || oa::readAttr(node, name, flag);
}

bool writeFlag(pugi::xml_node node, wchar_t const* name, bool flag)
{
    if (flag)
        return oa::writeAttr(node, name, flag);
    node.remove_attribute(name);
    return true;
}

} // namespace

template <class Geometry>
bool TestGeometry<Geometry>::readFromXml(pugi::xml_node const& node)
{
    if (m_geometry)
        return false;
    bool const isRead = readGeometry(node, m_geometry.emplace());
    if (!isRead)
        m_geometry.reset();
    return isRead;
}

template <class Geometry>
bool TestGeometry<Geometry>::writeToXml(pugi::xml_node& node) const
{
    return m_geometry && writeGeometry(node, *m_geometry);
}

template class TestGeometry<OdGeLineSeg2d>;
template class TestGeometry<OdGeLineSeg3d>;
template class TestGeometry<OdGeRay3d>;
template class TestGeometry<OdGeLine3d>;
template class TestGeometry<OdGeCircArc2d>;
template class TestGeometry<OdGeCircArc3d>;
template class TestGeometry<OdGeEllipArc2d>;
template class TestGeometry<OdGeEllipArc3d>;
template class TestGeometry<OdGeNurbCurve3d>;
template class TestGeometry<OdGeSegmentChain2d>;

bool TestOdGePoint3d::readFromXml(pugi::xml_node const&)
{
    return false;
}

bool TestOdGePoint3d::writeToXml(pugi::xml_node const&) const
{
    return false;
}

bool TestOdGeSegmentChain2dOnPlane::readFromXml(pugi::xml_node const& node)
{
    OdGeVector3d readNormal;
    double readElev = 0;
    if (!oa::readAttr(node, s_normal, readNormal) || readNormal.isZeroLength() ||
        !oa::readAttr(node, s_elev, readElev) || !TestOdGeSegmentChain2d::readFromXml(node))
        return false;
    normal = readNormal;
    elev = readElev;
    return true;
}

bool TestOdGeSegmentChain2dOnPlane::writeToXml(pugi::xml_node& node) const
{
    XmlRestorePoint before(node);
    return before.keepIf(!normal.isZeroLength() && TestOdGeSegmentChain2d::writeToXml(node) &&
                         oa::writeAttr(node, s_normal, normal) && oa::writeAttr(node, s_elev, elev));
}

bool TestOdGePolyline3d::readFromXml(pugi::xml_node const& node)
{
    points.clear();
    OdGePoint3dArray read;
    if (!oa::readAttr(node, read) || !readFlag(node, s_closed, closed))
        return false;
    points = std::move(read);
    return true;
}

bool TestOdGePolyline3d::writeToXml(pugi::xml_node& node) const
{
    return oa::writeAttr(node, points, oa::kXmlPrecision) && writeFlag(node, s_closed, closed);
}

bool TestOdGePoint3dArray::readFromXml(pugi::xml_node const& node)
{
    points.clear();
    return oa::readAttr(node, points);
}

bool TestOdGePoint3dArray::writeToXml(pugi::xml_node& node) const
{
    return oa::writeAttr(node, points, oa::kXmlPrecision);
}

bool TestLineSeg2dArray::readFromXml(pugi::xml_node const& node)
{
    segments.clear();
    OdArray<std::unique_ptr<OdGeLineSeg2d>> read;
    for (pugi::xml_node const child : node.children()) {
        if (child.type() != pugi::node_element)
            continue;
        auto segment = std::make_unique<OdGeLineSeg2d>();
        if (!oa::readAttr(child, *segment))
            return false;
        read.append(std::move(segment));
    }
    segments = std::move(read);
    return true;
}

bool TestLineSeg2dArray::writeToXml(pugi::xml_node& node) const
{
    XmlRestorePoint before(node);
    bool isWritten = true;
    for (std::size_t i = 0; isWritten && i < segments.size(); ++i) {
        OdString const name = odFormat(L"item%d", static_cast<int>(i));
        isWritten = oa::writeAttr(node.append_child(name.c_str()), *segments[i]);
    }
    return before.keepIf(isWritten);
}

bool TestPgMesh::readFromXml(pugi::xml_node const& node)
{
    OdGePoint3dArray readPoints;
    unsigned m = 0;
    unsigned n = 0;
    bool isMClosed = false;
    bool isNClosed = false;
    if (!oa::readAttr(node, readPoints, m, n, s_mSize, s_nSize) || !readFlag(node, s_mClosed, isMClosed) ||
        !readFlag(node, s_nClosed, isNClosed))
        return false;
    points = std::move(readPoints);
    mSize = m;
    nSize = n;
    mClosed = isMClosed;
    nClosed = isNClosed;
    return true;
}

bool TestPgMesh::writeToXml(pugi::xml_node& node) const
{
    return oa::writeAttr(node, points, mSize, nSize, s_mSize, s_nSize, oa::kXmlPrecision) &&
           writeFlag(node, s_mClosed, mClosed) && writeFlag(node, s_nClosed, nClosed);
}

} // namespace ta
