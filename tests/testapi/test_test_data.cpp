#include "testapi/ta_test_data.h"

#include <cppunit/extensions/HelperMacros.h>

#include <sstream>

namespace {

/// An element and the document that holds it.
class Element
{
public:
    explicit Element(char const* text)
    {
        CPPUNIT_ASSERT_MESSAGE(text, m_document.load_string(OdString::fromUtf8(text).c_str()));
    }
    pugi::xml_node node() const { return m_document.first_child(); }

private:
    pugi::xml_document m_document;
};

bool reads(ut::TestGeData& datum, char const* element)
{
    return datum.readFromXml(Element(element).node());
}

std::unique_ptr<ut::TestGeData> made(char const* element)
{
    return ut::TestGeData::readObject(Element(element).node());
}

/// What is written for a datum; empty when it cannot be.
std::string written(ut::TestGeData const& datum)
{
    pugi::xml_document document;
    if (!datum.write(document))
        return {};
    std::wostringstream out;
    document.print(out, L"", pugi::format_raw | pugi::format_no_declaration);
    return OdString(out.str()).toUtf8();
}

struct Predicate
{
    char const* name;
    bool (*function)(ut::TestGeData const*);
};
constexpr Predicate s_predicates[] = {
    {"isPoint3d", ta::isPoint3d},
    {"isLine2d", ta::isLine2d},
    {"isLine3d", ta::isLine3d},
    {"isRay3d", ta::isRay3d},
    {"isXline3d", ta::isXline3d},
    {"isArc2d", ta::isArc2d},
    {"isCircle2d", ta::isCircle2d},
    {"isArc3d", ta::isArc3d},
    {"isCircle3d", ta::isCircle3d},
    {"isEllipArc2d", ta::isEllipArc2d},
    {"isEllipse2d", ta::isEllipse2d},
    {"isEllipArc3d", ta::isEllipArc3d},
    {"isEllipse3d", ta::isEllipse3d},
    {"isPolyline2d", ta::isPolyline2d},
    {"isPolyline2dBulges", ta::isPolyline2dBulges},
    {"isPolyline2dOnPlane", ta::isPolyline2dOnPlane},
    {"isPolyline3d", ta::isPolyline3d},
    {"isSpline3d", ta::isSpline3d},
    {"validatePoint3dArray4", ta::validatePoint3dArray4},
    {"validateLineSeg2dArray2", ta::validateLineSeg2dArray2},
};

/// The names of the predicates that hold.
std::string kinds(ut::TestGeData const& datum)
{
    std::string names;
    for (Predicate const& predicate : s_predicates)
        if (predicate.function(&datum))
            names += (names.empty() ? "" : " ") + std::string(predicate.name);
    return names;
}

class TestDataTest : public CppUnit::TestFixture
{
    CPPUNIT_TEST_SUITE(TestDataTest);
    CPPUNIT_TEST(everyClassReadsItsElement);
    CPPUNIT_TEST(geometryIsReadOnce);
    CPPUNIT_TEST(planes);
    CPPUNIT_TEST(flags);
    CPPUNIT_TEST(segmentArrays);
    CPPUNIT_TEST(texts);
    CPPUNIT_TEST(handleArrays);
    CPPUNIT_TEST(kindsOfData);
    CPPUNIT_TEST(polylineVariants);
    CPPUNIT_TEST_SUITE_END();

    // The examples of docs/formats.md, which are written as they are read.
    void everyClassReadsItsElement()
    {
        for (char const* const element : {
                 R"(<TestOdGeLineSeg2d start="0,0" end="10,5"/>)",
                 R"(<TestOdGeLineSeg3d start="0,0,0" end="10,5,-2.5"/>)",
                 R"(<TestOdGeRay3d base="1,2,3" dir="0.6,0.8,0"/>)",
                 R"(<TestOdGeLine3d base="1,2,3" dir="0,0,1"/>)",
                 R"(<TestOdGeCircArc2d center="10,5" radius="2.5" startAng="0" endAng="1.5" refVec="0,1" )"
                 R"(clockwise="true"/>)",
                 R"(<TestOdGeCircArc3d center="0,0,4" normal="0,0,1" refVec="1,0,0" radius="3" startAng="0" )"
                 R"(endAng="3.5"/>)",
                 R"(<TestOdGeEllipArc2d center="0,0" majorAxis="6,0" minorAxis="0,4" majorRadius="6" )"
                 R"(minorRadius="4" startAng="0" endAng="3"/>)",
                 R"(<TestOdGeEllipArc3d center="0,0,1" majorAxis="0,6,0" minorAxis="0,0,4" majorRadius="6" )"
                 R"(minorRadius="4" startAng="0" endAng="3"/>)",
                 R"(<TestOdGeNurbCurve3d degree="2" periodic="false" nKnot="6" aKnot="0 0 0 1 1 1" nPt="3" )"
                 R"(aPt="0,0,0 5,5,0 10,0,0" nWeight="3" aWeight="1 0.5 1"/>)",
                 R"(<TestOdGeSegmentChain2d closed="true"><vertex pt="0,0"/><vertex pt="10,0" bulge="0.5"/>)"
                 R"(<vertex pt="10,10"/></TestOdGeSegmentChain2d>)",
                 R"(<TestOdGeSegmentChain2dOnPlane normal="0,1,0" elev="2"><vertex pt="0,0"/><vertex pt="10,0"/>)"
                 R"(</TestOdGeSegmentChain2dOnPlane>)",
                 R"(<TestOdGePolyline3d nPt="3" aPt="0,0,0 10,0,0 10,10,5" closed="true"/>)",
                 R"(<TestOdGePoint3dArray nPt="2" aPt="1,2,3 4,5,6"/>)",
                 R"(<TestLineSeg2dArray><item0 start="0,0" end="1,1"/><item1 start="1,0" end="0,1"/>)"
                 R"(</TestLineSeg2dArray>)",
                 R"(<TestPgMesh mSize="2" nSize="3" aPt="0,0,0 1,0,0 2,0,1 0,1,0 1,1,0 2,1,1" NClosed="true"/>)",
                 R"(<TestMTextData pos="1,2,0" width="50" text="Two&#10;lines" rotAngDeg="30"/>)",
                 R"(<TestTextData pos="1,2,0" widthFactor="0.8" text="A &amp; B" rotAngDeg="90"/>)",
             }) {
            auto const datum = made(element);
            CPPUNIT_ASSERT_MESSAGE(element, datum);
            std::string const expected(element);
            CPPUNIT_ASSERT_EQUAL(expected.substr(1, expected.find_first_of(" >") - 1),
                                 std::string(datum->isA()->name()));
            CPPUNIT_ASSERT_EQUAL(expected, written(*datum));
        }
        CPPUNIT_ASSERT(!made(R"(<TestOdGePoint3d pos="1,2,3"/>)"));
        CPPUNIT_ASSERT(!made(R"(<TestOdGeCircArc2d center="0,0" radius="-1" startAng="0" endAng="1"/>)"));
    }

    void geometryIsReadOnce()
    {
        ta::TestOdGeLineSeg2d datum;
        CPPUNIT_ASSERT(!reads(datum, R"(<e start="1,2"/>)"));
        CPPUNIT_ASSERT(!datum.geometry());
        CPPUNIT_ASSERT_EQUAL(std::string(), written(datum));
        CPPUNIT_ASSERT(reads(datum, R"(<e start="1,2" end="3,4"/>)"));
        CPPUNIT_ASSERT(!reads(datum, R"(<e start="5,6" end="7,8"/>)"));
        CPPUNIT_ASSERT_EQUAL(std::string(R"(<TestOdGeLineSeg2d start="1,2" end="3,4"/>)"), written(datum));
    }

    void planes()
    {
        ta::TestOdGeSegmentChain2dOnPlane datum;
        CPPUNIT_ASSERT(datum.normal == OdGeVector3d::kZAxis && datum.elev == 0);
        for (char const* const element :
             {R"(<e normal="0,1,0"><vertex pt="0,0"/></e>)", R"(<e elev="2"><vertex pt="0,0"/></e>)",
              R"(<e normal="0,1" elev="2"><vertex pt="0,0"/></e>)",
              R"(<e normal="0,1,0" elev="2"><vertex/></e>)"}) {
            CPPUNIT_ASSERT_MESSAGE(element, !reads(datum, element));
            CPPUNIT_ASSERT_MESSAGE(element, !datum.geometry() && datum.normal == OdGeVector3d::kZAxis);
        }
        CPPUNIT_ASSERT(reads(datum, R"(<e normal="0,1,0" elev="2"><vertex pt="0,0"/></e>)"));
        CPPUNIT_ASSERT(datum.normal == OdGeVector3d::kYAxis && datum.elev == 2);
    }

    void flags()
    {
        ta::TestOdGePolyline3d polyline;
        CPPUNIT_ASSERT(reads(polyline, R"(<e nPt="1" aPt="1,2,3" closed="1"/>)") && polyline.closed);
        CPPUNIT_ASSERT(reads(polyline, R"(<e nPt="2" aPt="1,2,3 4,5,6"/>)") && !polyline.closed);
        CPPUNIT_ASSERT(!reads(polyline, R"(<e nPt="1" aPt="1,2,3" closed="maybe"/>)"));
        CPPUNIT_ASSERT(polyline.points.isEmpty());

        ta::TestPgMesh mesh;
        CPPUNIT_ASSERT(reads(mesh, R"(<e mSize="1" nSize="2" aPt="1,2,3 4,5,6" MClosed="true"/>)"));
        CPPUNIT_ASSERT(!reads(mesh, R"(<e mSize="1" nSize="1" aPt="1,2,3" MClosed="true" NClosed=""/>)"));
        CPPUNIT_ASSERT(mesh.nSize == 2 && mesh.points.size() == 2 && mesh.mClosed && !mesh.nClosed);
        CPPUNIT_ASSERT(reads(mesh, R"(<e mSize="1" nSize="1" aPt="1,2,3" NClosed="true"/>)"));
        CPPUNIT_ASSERT(!mesh.mClosed && mesh.nClosed);
    }

    void segmentArrays()
    {
        ta::TestLineSeg2dArray array;
        CPPUNIT_ASSERT(reads(array, R"(<e><a start="0,0" end="1,1"/><!-- --><b start="2,2" end="3,3"/></e>)"));
        CPPUNIT_ASSERT(array.segments.size() == 2 && array.segments[1]->startPoint().isEqualTo({2, 2}));
        CPPUNIT_ASSERT(
            !reads(array, R"(<e><a start="0,0" end="1,1"/><b start="2,2" end="3,3"/><c start="4"/></e>)"));
        CPPUNIT_ASSERT(array.segments.isEmpty());
        CPPUNIT_ASSERT(reads(array, "<e/>"));
        CPPUNIT_ASSERT_EQUAL(std::string("<TestLineSeg2dArray/>"), written(array));
    }

    void texts()
    {
        ta::TestMTextData datum;
        CPPUNIT_ASSERT(reads(datum, R"(<e pos="1,2" width="-1" text="" rotAngDeg="400"/>)"));
        for (char const* const element :
             {R"(<e width="1" text="" rotAngDeg="4"/>)", R"(<e pos="1,2,3" text="" rotAngDeg="4"/>)",
              R"(<e pos="1,2,3" width="1" rotAngDeg="4"/>)", R"(<e pos="1,2,3" width="1" text=""/>)",
              R"(<e pos="1,2,3" widthFactor="1" text="" rotAngDeg="4"/>)"})
            CPPUNIT_ASSERT_MESSAGE(element, !reads(datum, element));
        CPPUNIT_ASSERT(datum.position == OdGePoint3d(1, 2, 0));
    }

    void handleArrays()
    {
        struct Row
        {
            char const* element;
            char const* handles; ///< null: refused
        };
        for (Row const& row : {
                 Row{R"(<e nHd="2" aHd="2a FFFFFFFFFFFFFFFF"/>)", "2A FFFFFFFFFFFFFFFF "},
                 Row{R"(<e nHd="2" aHd="  2A   1 "/>)", "2A 1 "},
                 Row{R"(<e nHd="2" aHd="2A x"/>)", "2A 0 "}, // what is no handle is the null handle
                 Row{R"(<e nHd="1" aHd="2A&#9;1"/>)", "0 "}, // only spaces separate
                 Row{R"(<e nHd="0" aHd=""/>)", ""},
                 Row{R"(<e nHd="0" aHd=" "/>)", ""},
                 Row{R"(<e nHd="1" aHd=""/>)", nullptr},
                 Row{R"(<e nHd="1" aHd=" "/>)", nullptr},
                 Row{R"(<e nHd="0" aHd="1"/>)", nullptr},
                 Row{R"(<e nHd="2" aHd="1"/>)", nullptr},
                 Row{R"(<e nHd="2" aHd="1 2 3"/>)", nullptr},
                 Row{R"(<e nHd="2147483647" aHd="1"/>)", nullptr},
                 Row{R"(<e nHd="-1" aHd=""/>)", nullptr},
                 Row{R"(<e nHd="1.0" aHd="1"/>)", nullptr},
                 Row{R"(<e aHd="1"/>)", nullptr},
                 Row{R"(<e nHd="0"/>)", nullptr},
             }) {
            ta::TestHandleArray array;
            array.handles.append(OdDbHandle(7));
            CPPUNIT_ASSERT_EQUAL_MESSAGE(row.element, row.handles != nullptr, reads(array, row.element));
            std::string handles;
            for (OdDbHandle const handle : array.handles)
                handles += handle.ascii().toUtf8() + " ";
            CPPUNIT_ASSERT_EQUAL_MESSAGE(row.element, std::string(row.handles ? row.handles : ""), handles);
            CPPUNIT_ASSERT_EQUAL(std::string(), written(array));
        }
    }

    void kindsOfData()
    {
        OdGeCircArc2d const circle({0, 0}, 1);
        OdGeCircArc2d const arc({0, 0}, 1, 0, 6);
        OdGeEllipArc2d const ellipse({0, 0}, {2, 0}, {0, 1});
        OdGeEllipArc2d const part({0, 0}, {2, 0}, {0, 1}, 0, 6);
        OdGeSegmentChain2d const bulged({{0, 0}, {1, 0}}, {-0.5});
        ta::TestOdGePoint3dArray points;
        ta::TestLineSeg2dArray segments;
        points.points.resize(4);
        for (int i = 0; i < 2; ++i)
            segments.segments.append(std::make_unique<OdGeLineSeg2d>());

        auto const check = [](char const* expected, ut::TestGeData const& datum) {
            CPPUNIT_ASSERT_EQUAL(std::string(expected), kinds(datum));
        };
        check("isPoint3d", ta::TestOdGePoint3d());
        check("isLine2d", ta::TestOdGeLineSeg2d());
        check("isLine3d", ta::TestOdGeLineSeg3d());
        check("isRay3d", ta::TestOdGeRay3d());
        check("isXline3d", ta::TestOdGeLine3d());
        check("isArc2d", ta::TestOdGeCircArc2d(arc));
        check("isCircle2d", ta::TestOdGeCircArc2d(circle));
        check("isArc3d", ta::TestOdGeCircArc3d(arc.curve3d()));
        check("isCircle3d", ta::TestOdGeCircArc3d(circle.curve3d()));
        check("isEllipArc2d", ta::TestOdGeEllipArc2d(part));
        check("isEllipse2d", ta::TestOdGeEllipArc2d(ellipse));
        check("isEllipArc3d", ta::TestOdGeEllipArc3d(part.curve3d()));
        check("isEllipse3d", ta::TestOdGeEllipArc3d(ellipse.curve3d()));
        check("isPolyline2d", ta::TestOdGeSegmentChain2d(OdGeSegmentChain2d({{0, 0}, {1, 0}}, {1e-11})));
        check("isPolyline2d isPolyline2dBulges", ta::TestOdGeSegmentChain2d(bulged));
        check("isPolyline2d isPolyline2dBulges isPolyline2dOnPlane", ta::TestOdGeSegmentChain2dOnPlane(bulged));
        check("isPolyline3d", ta::TestOdGePolyline3d());
        check("isSpline3d", ta::TestOdGeNurbCurve3d());
        check("validatePoint3dArray4", points);
        check("", ta::TestOdGePoint3dArray());
        check("validateLineSeg2dArray2", segments);
        check("", ta::TestLineSeg2dArray());
        check("", ta::TestOdGeCircArc2d());
        check("", ta::TestHandleArray());
    }

    static std::string variants(OdGeSegmentChain2d const& chain)
    {
        ta::TestGeDataArray data;
        data.append(std::make_unique<ta::TestOdGeLineSeg2d>());
        data.append(std::make_unique<ta::TestOdGeSegmentChain2dOnPlane>(chain));
        ta::generate2dPlineData(data);
        std::string bulges;
        for (std::size_t i = 2; i < data.size(); ++i) {
            CPPUNIT_ASSERT(data[i]->isA() == ta::TestOdGeSegmentChain2d::desc());
            auto const& variant = *static_cast<ta::TestOdGeSegmentChain2d const&>(*data[i]).geometry();
            CPPUNIT_ASSERT(variant.vertices() == chain.vertices());
            CPPUNIT_ASSERT_EQUAL(chain.isClosedChain(), variant.isClosedChain());
            for (double const bulge : variant.bulges())
                bulges += odFormat(L"%g ", bulge).toUtf8();
            bulges += "| ";
        }
        return bulges;
    }

    void polylineVariants()
    {
        std::vector<OdGePoint2d> const points = {{0, 0}, {1, 0}, {1, 1}, {0, 1}};
        CPPUNIT_ASSERT_EQUAL(std::string("0.25 0.25 0.25 0.25 | "), variants(OdGeSegmentChain2d(points)));
        CPPUNIT_ASSERT_EQUAL(std::string("0 0 0 0 | "),
                             variants(OdGeSegmentChain2d(points, {1, 2, 3, 2e-10}, true)));
        CPPUNIT_ASSERT_EQUAL(std::string("0 0 0 0 | 0.25 0.5 0.25 0.25 | "),
                             variants(OdGeSegmentChain2d(points, {-1, 0.5}, true)));
        CPPUNIT_ASSERT_EQUAL(std::string("0.25 0.25 0.25 0.25 | "),
                             variants(OdGeSegmentChain2d(points, {1e-10, -1e-10, 0, 0})));
        ta::TestGeDataArray unread;
        unread.append(std::make_unique<ta::TestOdGeSegmentChain2d>());
        ta::generate2dPlineData(unread);
        CPPUNIT_ASSERT_EQUAL(std::size_t{1}, unread.size());
    }
};

CPPUNIT_TEST_SUITE_REGISTRATION(TestDataTest);

} // namespace
