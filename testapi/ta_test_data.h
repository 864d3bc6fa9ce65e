#pragma once

// For authors of tests that take their geometry from data files: the classes of data, one for each kind of
// element, predicates that pick data of a kind, and variants of polylines. How the elements look is in
// docs/formats.md. Classes of your own derive from ut::TestGeData in the same way.

#include "testapi/ta_host.h"

#include <cstdint>
#include <memory>
#include <optional>

namespace ta {

using TestGeDataArray = OdArray<std::unique_ptr<ut::TestGeData>>;

/// A datum that is one geometry. It is read once: reading again fails and keeps what there is.
template <class Geometry>
class TestGeometry : public ut::TestGeData
{
public:
    TestGeometry() = default;
    explicit TestGeometry(Geometry geometry) : m_geometry(std::move(geometry)) {}

    /// Null until read; the datum's own.
    Geometry const* geometry() const { return m_geometry ? &*m_geometry : nullptr; }

    bool readFromXml(pugi::xml_node const& node) override;
    bool writeToXml(pugi::xml_node& node) const override;

private:
    std::optional<Geometry> m_geometry; // not on the heap by itself: data files hold hundreds of thousands
};

/// Holds no point and can be neither read nor written: data files have no single points.
class TestOdGePoint3d : public ut::TestGeData
{
    UT_DECLARE_TEST_DATA(TestOdGePoint3d)

    /// Always null.
    OdGePoint3d const* geometry() const { return m_point.get(); }
    bool readFromXml(pugi::xml_node const& node) override;
    using ut::TestGeData::writeToXml;
    /// Another function than the one of the base, which is false as well.
    bool writeToXml(pugi::xml_node const& node) const;

private:
    std::unique_ptr<OdGePoint3d> m_point;
};

class TestOdGeLineSeg2d : public TestGeometry<OdGeLineSeg2d>
{
    UT_DECLARE_TEST_DATA(TestOdGeLineSeg2d)
    using TestGeometry::TestGeometry;
};

class TestOdGeLineSeg3d : public TestGeometry<OdGeLineSeg3d>
{
    UT_DECLARE_TEST_DATA(TestOdGeLineSeg3d)
    using TestGeometry::TestGeometry;
};

class TestOdGeRay3d : public TestGeometry<OdGeRay3d>
{
    UT_DECLARE_TEST_DATA(TestOdGeRay3d)
    using TestGeometry::TestGeometry;
};

class TestOdGeLine3d : public TestGeometry<OdGeLine3d>
{
    UT_DECLARE_TEST_DATA(TestOdGeLine3d)
    using TestGeometry::TestGeometry;
};

/// An arc or a full circle.
class TestOdGeCircArc2d : public TestGeometry<OdGeCircArc2d>
{
    UT_DECLARE_TEST_DATA(TestOdGeCircArc2d)
    using TestGeometry::TestGeometry;
};

class TestOdGeCircArc3d : public TestGeometry<OdGeCircArc3d>
{
    UT_DECLARE_TEST_DATA(TestOdGeCircArc3d)
    using TestGeometry::TestGeometry;
};

/// A part of an ellipse or a full one.
class TestOdGeEllipArc2d : public TestGeometry<OdGeEllipArc2d>
{
    UT_DECLARE_TEST_DATA(TestOdGeEllipArc2d)
    using TestGeometry::TestGeometry;
};

class TestOdGeEllipArc3d : public TestGeometry<OdGeEllipArc3d>
{
    UT_DECLARE_TEST_DATA(TestOdGeEllipArc3d)
    using TestGeometry::TestGeometry;
};

class TestOdGeNurbCurve3d : public TestGeometry<OdGeNurbCurve3d>
{
    UT_DECLARE_TEST_DATA(TestOdGeNurbCurve3d)
    using TestGeometry::TestGeometry;
};

/// A 2D polyline.
class TestOdGeSegmentChain2d : public TestGeometry<OdGeSegmentChain2d>
{
    UT_DECLARE_TEST_DATA(TestOdGeSegmentChain2d)
    using TestGeometry::TestGeometry;
};

/// A 2D polyline in a plane of space.
class TestOdGeSegmentChain2dOnPlane : public TestOdGeSegmentChain2d
{
    UT_DECLARE_TEST_DATA(TestOdGeSegmentChain2dOnPlane)
    using TestOdGeSegmentChain2d::TestOdGeSegmentChain2d;

    bool readFromXml(pugi::xml_node const& node) override;
    bool writeToXml(pugi::xml_node& node) const override;

    OdGeVector3d normal = OdGeVector3d::kZAxis;
    double elev = 0; ///< drawing units along the normal
};

class TestOdGePolyline3d : public ut::TestGeData
{
    UT_DECLARE_TEST_DATA(TestOdGePolyline3d)

    bool readFromXml(pugi::xml_node const& node) override;
    bool writeToXml(pugi::xml_node& node) const override;

    OdGePoint3dArray points;
    bool closed = false;
};

class TestOdGePoint3dArray : public ut::TestGeData
{
    UT_DECLARE_TEST_DATA(TestOdGePoint3dArray)

    bool readFromXml(pugi::xml_node const& node) override;
    bool writeToXml(pugi::xml_node& node) const override;

    OdGePoint3dArray points;
};

class TestLineSeg2dArray : public ut::TestGeData
{
    UT_DECLARE_TEST_DATA(TestLineSeg2dArray)

    /// Takes every child element, whatever its name. What was held before is gone; empty after a failure.
    bool readFromXml(pugi::xml_node const& node) override;
    bool writeToXml(pugi::xml_node& node) const override;

    OdArray<std::unique_ptr<OdGeLineSeg2d>> segments; ///< none is null
};

/// A mesh of M by N vertices.
class TestPgMesh : public ut::TestGeData
{
    UT_DECLARE_TEST_DATA(TestPgMesh)

    bool readFromXml(pugi::xml_node const& node) override;
    bool writeToXml(pugi::xml_node& node) const override;

    OdGePoint3dArray points; ///< mSize * nSize of them, the N direction running faster
    std::uint32_t mSize = 0;
    std::uint32_t nSize = 0;
    bool mClosed = false;
    bool nClosed = false;
};

class TestMTextData : public ut::TestGeData
{
    UT_DECLARE_TEST_DATA(TestMTextData)

    bool readFromXml(pugi::xml_node const& node) override;
    bool writeToXml(pugi::xml_node& node) const override;

    OdGePoint3d position;
    double width = 0; ///< of the frame
    OdString text;
    double rotAngDeg = 0;
};

class TestTextData : public ut::TestGeData
{
    UT_DECLARE_TEST_DATA(TestTextData)

    bool readFromXml(pugi::xml_node const& node) override;
    bool writeToXml(pugi::xml_node& node) const override;

    OdGePoint3d position;
    double widthFactor = 0;
    OdString text;
    double rotAngDeg = 0;
};

/// Is read, but cannot be written.
class TestHandleArray : public ut::TestGeData
{
    UT_DECLARE_TEST_DATA(TestHandleArray)

    /// What was held before is gone; empty after a failure. A text that is no handle becomes the null handle.
    bool readFromXml(pugi::xml_node const& node) override;

    OdArray<OdDbHandle> handles;
};

// Predicates. The datum must not be null. Those that look at the geometry are false for a datum not yet read.

bool isPoint3d(ut::TestGeData const* data);
bool isLine2d(ut::TestGeData const* data);
bool isLine3d(ut::TestGeData const* data);
bool isRay3d(ut::TestGeData const* data);
bool isXline3d(ut::TestGeData const* data);
/// Arcs and circles, parts of ellipses and full ones are one class each: what is closed under the global tolerance
/// is a circle or an ellipse, else it is an arc.
bool isArc2d(ut::TestGeData const* data);
bool isCircle2d(ut::TestGeData const* data);
bool isArc3d(ut::TestGeData const* data);
bool isCircle3d(ut::TestGeData const* data);
bool isEllipArc2d(ut::TestGeData const* data);
bool isEllipse2d(ut::TestGeData const* data);
bool isEllipArc3d(ut::TestGeData const* data);
bool isEllipse3d(ut::TestGeData const* data);
/// Also one on a plane.
bool isPolyline2d(ut::TestGeData const* data);
bool isPolyline2dBulges(ut::TestGeData const* data);
bool isPolyline2dOnPlane(ut::TestGeData const* data);
bool isPolyline3d(ut::TestGeData const* data);
bool isSpline3d(ut::TestGeData const* data);
/// Exactly four points.
bool validatePoint3dArray4(ut::TestGeData const* data);
/// Exactly two segments.
bool validateLineSeg2dArray2(ut::TestGeData const* data);

/// Appends variants of the 2D polylines that the array holds at the call: for one with bulges a straight one;
/// unless all N bulges are greater than 1e-10, one of arcs only, where the other bulges are 1/N.
void generate2dPlineData(TestGeDataArray& data);

} // namespace ta
