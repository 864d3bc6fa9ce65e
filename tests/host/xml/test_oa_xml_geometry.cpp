#include "host/xml/oa_xml_geometry.h"

#include <cppunit/extensions/HelperMacros.h>

#include <limits>
#include <sstream>

namespace {

template <class Curve>
bool readCurve(pugi::xml_node node, Curve& curve)
{
    return oa::readAttr(node, curve);
}
bool readCurve(pugi::xml_node node, OdGeSegmentChain2d& chain)
{
    return oa::read(node, chain);
}
template <class Curve>
bool writeCurve(pugi::xml_node node, Curve const& curve)
{
    return oa::writeAttr(node, curve);
}
bool writeCurve(pugi::xml_node node, OdGeSegmentChain2d const& chain)
{
    return oa::write(node, chain);
}

std::string text(pugi::xml_node node)
{
    std::wostringstream out;
    node.print(out, L"", pugi::format_raw);
    return OdString(out.str()).toUtf8();
}

/// What is written for a geometry; empty when it cannot be, and then the element has nothing of it.
template <class Curve>
std::string written(Curve const& curve)
{
    pugi::xml_document document;
    pugi::xml_node const node = document.append_child(L"e");
    bool const isWritten = writeCurve(node, curve);
    CPPUNIT_ASSERT_EQUAL(isWritten, text(node) != "<e/>");
    return isWritten ? text(node) : std::string();
}

/// Reads an element; false leaves the geometry as it was.
template <class Curve>
bool readText(char const* element, Curve& curve)
{
    pugi::xml_document document;
    CPPUNIT_ASSERT_MESSAGE(element, document.load_string(OdString::fromUtf8(element).c_str()));
    std::string const before = written(curve);
    bool const isRead = readCurve(document.document_element(), curve);
    if (!isRead)
        CPPUNIT_ASSERT_EQUAL_MESSAGE(element, before, written(curve));
    return isRead;
}

/// The element is written as it was read.
template <class Curve>
void checkKept(Curve curve, std::initializer_list<char const*> elements)
{
    for (char const* const element : elements) {
        CPPUNIT_ASSERT_MESSAGE(element, readText(element, curve));
        CPPUNIT_ASSERT_EQUAL(std::string(element), written(curve));
    }
}

template <class Curve>
void checkRefused(Curve curve, std::initializer_list<char const*> elements)
{
    for (char const* const element : elements)
        CPPUNIT_ASSERT_MESSAGE(element, !readText(element, curve));
}

class OaXmlGeometryTest : public CppUnit::TestFixture
{
    CPPUNIT_TEST_SUITE(OaXmlGeometryTest);
    CPPUNIT_TEST(straightOnes);
    CPPUNIT_TEST(circularArcs);
    CPPUNIT_TEST(directionOfArcs);
    CPPUNIT_TEST(ellipticArcs);
    CPPUNIT_TEST(splines);
    CPPUNIT_TEST(chains);
    CPPUNIT_TEST(grids);
    CPPUNIT_TEST(writingRefuses);
    CPPUNIT_TEST_SUITE_END();

    void straightOnes()
    {
        checkKept(OdGeLineSeg2d(), {R"(<e start="1,2" end="3,-4.5"/>)", R"(<e start="1,2" end="1,2"/>)"});
        checkKept(OdGeLineSeg3d(), {R"(<e start="1,2,3" end="4,5,1e+20"/>)"});
        checkKept(OdGeRay3d(), {R"(<e base="1,2,3" dir="0,0.6,-0.8"/>)"});
        checkKept(OdGeLine3d(), {R"(<e base="1,2,3" dir="0,0,1"/>)"});
        OdGeRay3d ray;
        CPPUNIT_ASSERT(readText(R"(<e dir="0,30,40" more="" base="1,2"/>)", ray)); // any order, any length
        CPPUNIT_ASSERT_EQUAL(std::string(R"(<e base="1,2,0" dir="0,0.6,0.8"/>)"), written(ray));

        checkRefused(OdGeLineSeg2d(), {R"(<e start="1,2"/>)", R"(<e start="1,2" end="3"/>)",
                                       R"(<e start="1,2,3" end="3,4"/>)", R"(<e start="1,nan" end="3,4"/>)"});
        checkRefused(OdGeRay3d(), {R"(<e base="1,2,3" dir="0,0,0"/>)", R"(<e base="1,2,3" dir="0,1"/>)"});
        checkRefused(OdGeLine3d(), {R"(<e dir="0,0,1"/>)", R"(<e base="0,0,0" dir="0,0,1e-300"/>)"});
    }

    void circularArcs()
    {
        checkKept(OdGeCircArc2d(),
                  {R"(<e center="1,2" radius="3" startAng="0" endAng="1.5"/>)",
                   R"(<e center="1,2" radius="3" startAng="-2" endAng="-1" refVec="0,1" clockwise="true"/>)"});
        checkKept(OdGeCircArc3d(), {R"(<e center="1,2,3" normal="0,0,-1" refVec="0.6,0.8,0" radius="0.25" )"
                                    R"(startAng="0.5" endAng="6.5"/>)"});
        checkRefused(OdGeCircArc2d(), {R"(<e center="1,2" radius="0" startAng="0" endAng="1"/>)",
                                       R"(<e center="1,2" radius="-1" startAng="0" endAng="1"/>)",
                                       R"(<e center="1,2" radius="1" startAng="0"/>)",
                                       R"(<e center="1,2" radius="1" startAng="0" endAng="inf"/>)",
                                       R"(<e center="1,2" radius="1" startAng="1e300" endAng="1e300"/>)",
                                       R"(<e center="1,2" radius="1" startAng="0" endAng="1" refVec=""/>)",
                                       R"(<e center="1,2" radius="1" startAng="0" endAng="1" refVec="0,0"/>)",
                                       R"(<e center="1,2" radius="1" startAng="0" endAng="1" clockwise="no"/>)"});
        checkRefused(OdGeCircArc3d(),
                     {R"(<e center="0,0,0" normal="0,0,0" refVec="1,0,0" radius="1" startAng="0" endAng="1"/>)",
                      R"(<e center="0,0,0" normal="1,0,0" refVec="2,0,0" radius="1" startAng="0" endAng="1"/>)",
                      R"(<e center="0,0,0" normal="0,0,1" radius="1" startAng="0" endAng="1"/>)"});
    }

    void directionOfArcs()
    {
        // From the top, clockwise by a quarter: to the right.
        OdGeCircArc2d arc;
        CPPUNIT_ASSERT(readText(R"(<e center="1,1" radius="2" startAng="0" endAng="1.5707963267949" )"
                                R"(refVec="0,5" clockwise="1"/>)",
                                arc));
        CPPUNIT_ASSERT(arc.startPoint().isEqualTo({1, 3}));
        CPPUNIT_ASSERT(arc.endPoint().isEqualTo({3, 1}));
        // An end before the start is behind it by whole turns; a turn written with 15 digits is a full one.
        CPPUNIT_ASSERT(readText(R"(<e center="0,0" radius="1" startAng="1" endAng="0"/>)", arc));
        CPPUNIT_ASSERT_DOUBLES_EQUAL(Oda2PI, arc.endAng(), 1e-14);
        CPPUNIT_ASSERT(!arc.isClosed());
        CPPUNIT_ASSERT(readText(R"(<e center="0,0" radius="1" startAng="0" endAng="6.28318530717959"/>)", arc));
        CPPUNIT_ASSERT(arc.isClosed());
    }

    void ellipticArcs()
    {
        checkKept(OdGeEllipArc2d(), {R"(<e center="1,2" majorAxis="0,4" minorAxis="2,0" majorRadius="4" )"
                                     R"(minorRadius="2" startAng="0" endAng="3"/>)"});
        checkKept(OdGeEllipArc3d(), {R"(<e center="1,2,3" majorAxis="0,0,2" minorAxis="3,4,0" )"
                                     R"(majorRadius="2" minorRadius="5" startAng="1" endAng="2"/>)"});
        // Of the axes only the directions count, of the minor one what is across the major one.
        OdGeEllipArc2d arc;
        CPPUNIT_ASSERT(readText(R"(<e center="0,0" majorAxis="7,0" minorAxis="5,0.5" majorRadius="4" )"
                                R"(minorRadius="2" startAng="0" endAng="3"/>)",
                                arc));
        CPPUNIT_ASSERT(arc.majorAxis().isEqualTo({4, 0}));
        CPPUNIT_ASSERT(arc.minorAxis().isEqualTo({0, 2}));
        checkRefused(OdGeEllipArc2d(), {R"(<e center="0,0" majorAxis="1,0" minorAxis="-1,0" majorRadius="4" )"
                                        R"(minorRadius="2" startAng="0" endAng="3"/>)",
                                        R"(<e center="0,0" majorAxis="1,0" minorAxis="0,1" majorRadius="4" )"
                                        R"(minorRadius="0" startAng="0" endAng="3"/>)",
                                        R"(<e center="0,0" majorAxis="1,0" minorAxis="0,1" majorRadius="4" )"
                                        R"(minorRadius="2" startAng="0" endAngDeg="3"/>)"});
        // Parallel but for rounding, which long axes make large.
        checkRefused(OdGeEllipArc3d(),
                     {R"(<e center="0,0" majorAxis="3,1,2" minorAxis="3e9,1e9,2e9" majorRadius="4" )"
                      R"(minorRadius="2" startAng="0" endAng="3"/>)",
                      R"(<e center="0,0" majorAxis="0.1,0.7,0.3" minorAxis="1e10,7e10,3e10" majorRadius="4" )"
                      R"(minorRadius="2" startAng="0" endAng="3"/>)"});
    }

    void splines()
    {
        checkKept(
            OdGeNurbCurve3d(),
            {R"(<e degree="2" periodic="false" nKnot="6" aKnot="0 0 0 1 1 1" nPt="3" aPt="0,0,0 1,1,0 2,0,0.5"/>)",
             R"(<e degree="1" periodic="false" nKnot="4" aKnot="0 0 1 1" nPt="2" aPt="0,0,0 1,1,0" )"
             R"(nWeight="2" aWeight="1 0.5"/>)",
             R"(<e degree="1" periodic="true" nKnot="6" aKnot="-1 0 1 2 3 4" nPt="4" )"
             R"(aPt="0,0,0 1,1,0 2,0,0 0,0,0"/>)"});
        checkRefused(
            OdGeNurbCurve3d(),
            {R"(<e degree="1" periodic="false" nKnot="4" aKnot="0 0 1 1" nPt="3" aPt="0,0,0 1,1,0 2,0,0"/>)",
             R"(<e degree="1" periodic="false" nKnot="4" aKnot="0 1 0 1" nPt="2" aPt="0,0,0 1,1,0"/>)",
             R"(<e degree="1" periodic="false" nKnot="3" aKnot="0 0 1 1" nPt="2" aPt="0,0,0 1,1,0"/>)",
             R"(<e degree="1" periodic="false" nKnot="4" aKnot="0 0 1 x" nPt="2" aPt="0,0,0 1,1,0"/>)",
             R"(<e degree="1" nKnot="4" aKnot="0 0 1 1" nPt="2" aPt="0,0,0 1,1,0"/>)",
             R"(<e degree="0" periodic="false" nKnot="2" aKnot="0 1" nPt="1" aPt="0,0,0"/>)",
             R"(<e degree="1" periodic="false" nKnot="4" aKnot="0 0 1 1" nPt="2" aPt="0,0,0 1,1,0" aWeight="1 1"/>)",
             R"(<e degree="1" periodic="false" nKnot="4" aKnot="0 0 1 1" nPt="2" aPt="0,0,0 1,1,0" )"
             R"(nWeight="2" aWeight="1 -1"/>)",
             R"(<e degree="1" periodic="true" nKnot="5" aKnot="-1 0 1 2 3" nPt="3" aPt="0,0,0 1,1,0 2,0,0"/>)"});
    }

    void chains()
    {
        checkKept(OdGeSegmentChain2d(),
                  {R"(<e><vertex pt="1,2"/></e>)", R"(<e><vertex pt="1,2"/><vertex pt="3,4"/></e>)",
                   R"(<e closed="true"><vertex pt="1,2" bulge="-0.5"/><vertex pt="3,4"/>)"
                   R"(<vertex pt="3,5" bulge="1"/></e>)"});
        checkRefused(OdGeSegmentChain2d(),
                     {R"(<e closed="true"/>)", R"(<e closed=""><vertex pt="1,2"/></e>)",
                      R"(<e><vertex pt="1,2"/><vertex/></e>)", R"(<e><vertex pt="1,2" bulge="x"/></e>)",
                      R"(<e><vertex pt="1,2"/><vertx pt="3,4"/></e>)"});
    }

    void grids()
    {
        struct Row
        {
            char const* element;
            bool isRead;
        };
        for (Row const& row :
             {Row{R"(<e m="2" n="1" aPt="1,2,3 4,5,6"/>)", true}, Row{R"(<e m="0" n="7" aPt=""/>)", true},
              Row{R"(<e m="2" n="2" aPt="1,2,3 4,5,6"/>)", false},
              Row{R"(<e m="-2" n="-1" aPt="1,2,3 4,5,6"/>)", false},
              Row{R"(<e m="65536" n="65536" aPt=""/>)", false}, Row{R"(<e m="1" aPt="1,2,3"/>)", false},
              Row{R"(<e m="0" n="0"/>)", false}}) {
            pugi::xml_document document;
            document.load_string(OdString::fromUtf8(row.element).c_str());
            OdGePoint3dArray points(9);
            unsigned m = 99;
            unsigned n = 99;
            CPPUNIT_ASSERT_EQUAL_MESSAGE(row.element, row.isRead,
                                         oa::readAttr(document.first_child(), points, m, n, L"m", L"n"));
            CPPUNIT_ASSERT_EQUAL_MESSAGE(row.element, !row.isRead, m == 99 && n == 99 && points.size() == 9);
            if (!row.isRead)
                continue;
            pugi::xml_node const target = document.append_child(L"e");
            CPPUNIT_ASSERT(oa::writeAttr(target, points, m, n, L"m", L"n"));
            CPPUNIT_ASSERT_EQUAL(std::string(row.element), text(target));
            CPPUNIT_ASSERT(!oa::writeAttr(target, points, m + 1, n + 1, L"m", L"n"));
        }
    }

    // Nothing is written that could not be read, and of what fails nothing is left.
    void writingRefuses()
    {
        double const infinite = std::numeric_limits<double>::infinity();
        CPPUNIT_ASSERT_EQUAL(std::string(), written(OdGeLineSeg2d({0, 0}, {0, infinite})));
        CPPUNIT_ASSERT_EQUAL(std::string(), written(OdGeCircArc2d({0, 0}, 0)));
        CPPUNIT_ASSERT_EQUAL(std::string(), written(OdGeCircArc2d({0, 0}, 1, 1000, 1000 + 1e-12)));
        CPPUNIT_ASSERT_EQUAL(std::string(), written(OdGeSegmentChain2d()));
        CPPUNIT_ASSERT_EQUAL(std::string(), written(OdGeSegmentChain2d({{0, 0}, {0, infinite}})));
        CPPUNIT_ASSERT(!oa::writeAttr(pugi::xml_node(), OdGeLineSeg2d()));

        // What an element says already is replaced, also by nothing.
        pugi::xml_document document;
        pugi::xml_node const node = document.append_child(L"e");
        CPPUNIT_ASSERT(oa::writeAttr(node, OdGeCircArc2d({0, 0}, 1, 0, 1, {0, 1}, true)));
        CPPUNIT_ASSERT(oa::writeAttr(node, OdGeCircArc2d({1.0 / 3, 0}, 2, 0, 1), 3));
        CPPUNIT_ASSERT_EQUAL(std::string(R"(<e center="0.333,0" radius="2" startAng="0" endAng="1"/>)"),
                             text(node));
    }
};

CPPUNIT_TEST_SUITE_REGISTRATION(OaXmlGeometryTest);

} // namespace
