// Random data of every class that is both written and read come back equal to 15 digits.
#include "testapi/ta_test_data.h"

#include <cppunit/extensions/HelperMacros.h>

#include <random>
#include <sstream>

namespace {

/// The numbers of a datum, in groups that are compared by their magnitude as a whole: a coordinate of a unit
/// vector that is nearly zero has no 15 digits of its own, nor has the end of a full turn, which follows from its
/// start.
using Numbers = std::vector<std::vector<double>>;

std::vector<double> numbers(OdGePoint2d const& p)
{
    return {p.x, p.y};
}
std::vector<double> numbers(OdGeVector2d const& v)
{
    return {v.x, v.y};
}
std::vector<double> numbers(OdGePoint3d const& p)
{
    return {p.x, p.y, p.z};
}
std::vector<double> numbers(OdGeVector3d const& v)
{
    return {v.x, v.y, v.z};
}

template <class Points>
void append(Numbers& all, Points const& points)
{
    for (auto const& point : points)
        all.push_back(numbers(point));
}

Numbers numbersOf(OdGeLineSeg2d const& segment)
{
    return {numbers(segment.startPoint()), numbers(segment.endPoint())};
}
Numbers numbersOf(OdGeLineSeg3d const& segment)
{
    return {numbers(segment.startPoint()), numbers(segment.endPoint())};
}
Numbers numbersOf(OdGeLinearEnt3d const& line)
{
    return {numbers(line.pointOnLine()), numbers(line.direction())};
}
Numbers numbersOf(OdGeCircArc2d const& arc)
{
    return {numbers(arc.center()),
            {arc.radius()},
            {arc.startAng(), arc.endAng()},
            numbers(arc.refVec()),
            {arc.isClockWise() ? 1.0 : 0.0}};
}
Numbers numbersOf(OdGeCircArc3d const& arc)
{
    return {numbers(arc.center()),
            numbers(arc.normal()),
            numbers(arc.refVec()),
            {arc.radius()},
            {arc.startAng(), arc.endAng()}};
}
template <class Arc>
Numbers numbersOfEllipse(Arc const& arc)
{
    return {numbers(arc.center()), numbers(arc.majorAxis()), numbers(arc.minorAxis()),
            {arc.majorRadius()},   {arc.minorRadius()},      {arc.startParam(), arc.endParam()}};
}
Numbers numbersOf(OdGeEllipArc2d const& arc)
{
    return numbersOfEllipse(arc);
}
Numbers numbersOf(OdGeEllipArc3d const& arc)
{
    return numbersOfEllipse(arc);
}
Numbers numbersOf(OdGeNurbCurve3d const& curve)
{
    OdGeNurbCurve3d::Definition const& from = curve.definition();
    Numbers all = {{static_cast<double>(from.degree)}, {from.isPeriodic ? 1.0 : 0.0}};
    for (double const knot : from.knots.asVector())
        all.push_back({knot});
    append(all, from.controlPoints);
    for (double const weight : from.weights)
        all.push_back({weight});
    return all;
}
Numbers numbersOf(OdGeSegmentChain2d const& chain)
{
    Numbers all = {{chain.isClosedChain() ? 1.0 : 0.0}};
    append(all, chain.vertices());
    for (int i = 0; i < chain.numVertices(); ++i)
        all.push_back({chain.bulgeAt(i)});
    return all;
}

template <class Data>
Numbers numbersOf(Data const& datum) requires requires
{
    numbersOf(*datum.geometry());
}
{
    return numbersOf(*datum.geometry());
}
Numbers numbersOf(ta::TestOdGeSegmentChain2dOnPlane const& datum)
{
    Numbers all = numbersOf(*datum.geometry());
    all.push_back(numbers(datum.normal));
    all.push_back({datum.elev});
    return all;
}
Numbers numbersOf(ta::TestOdGePolyline3d const& datum)
{
    Numbers all = {{datum.closed ? 1.0 : 0.0}};
    append(all, datum.points);
    return all;
}
Numbers numbersOf(ta::TestOdGePoint3dArray const& datum)
{
    Numbers all;
    append(all, datum.points);
    return all;
}
Numbers numbersOf(ta::TestLineSeg2dArray const& datum)
{
    Numbers all;
    for (auto const& segment : datum.segments)
        for (auto const& group : numbersOf(*segment))
            all.push_back(group);
    return all;
}
Numbers numbersOf(ta::TestPgMesh const& datum)
{
    Numbers all = {{double(datum.mSize)}, {double(datum.nSize)}, {double(datum.mClosed)}, {double(datum.nClosed)}};
    append(all, datum.points);
    return all;
}
Numbers numbersOf(OdString const& text)
{
    Numbers all;
    for (wchar_t const ch : std::wstring(text.c_str()))
        all.push_back({static_cast<double>(ch)});
    return all;
}
template <class Text>
Numbers numbersOfText(Text const& datum, double width)
{
    Numbers all = numbersOf(datum.text);
    all.push_back(numbers(datum.position));
    all.push_back({width});
    all.push_back({datum.rotAngDeg});
    return all;
}
Numbers numbersOf(ta::TestMTextData const& datum)
{
    return numbersOfText(datum, datum.width);
}
Numbers numbersOf(ta::TestTextData const& datum)
{
    return numbersOfText(datum, datum.widthFactor);
}

double magnitude(std::vector<double> const& group)
{
    double sum = 0;
    for (double const number : group)
        sum = std::hypot(sum, number);
    return sum;
}

class TestDataRoundTripTest : public CppUnit::TestFixture
{
    CPPUNIT_TEST_SUITE(TestDataRoundTripTest);
    CPPUNIT_TEST(geometry);
    CPPUNIT_TEST(polylines);
    CPPUNIT_TEST(others);
    CPPUNIT_TEST(whatRoundingSpoilsIsNotWritten);
    CPPUNIT_TEST(circlesOfManyTurns);
    CPPUNIT_TEST(failedWritingChangesNothing);
    CPPUNIT_TEST_SUITE_END();

    static constexpr int s_rounds = 500;
    std::mt19937_64 m_random{20250};

    double between(double low, double high) { return std::uniform_real_distribution(low, high)(m_random); }
    int upTo(int most) { return std::uniform_int_distribution(0, most)(m_random); }
    bool isHeads() { return upTo(1) == 1; }
    /// Of any magnitude that drawings have, sometimes zero or a whole number.
    double number()
    {
        switch (upTo(9)) {
        case 0: return 0;
        case 1: return upTo(1000) - 500;
        default: return std::copysign(std::pow(10.0, between(-8, 9)), between(-1, 1));
        }
    }
    double positive() { return std::pow(10.0, between(-8, 9)); }
    OdGePoint2d point2d() { return {number(), number()}; }
    OdGePoint3d point3d() { return {number(), number(), number()}; }
    OdGeVector2d direction2d()
    {
        double const angle = between(0, 7);
        return {std::cos(angle), std::sin(angle)};
    }
    OdGeVector3d direction3d()
    {
        return OdGeVector3d(between(-1, 1), between(-1, 1), between(0.1, 1)).normalize();
    }
    /// Often a full turn.
    std::pair<double, double> angles()
    {
        double const start = between(-10, 10);
        return {start, start + (upTo(3) == 0 ? Oda2PI : between(1e-6, Oda2PI))};
    }
    template <class Item, class Make>
    std::vector<Item> several(int least, Make const& make)
    {
        std::vector<Item> items(static_cast<std::size_t>(least + upTo(20)));
        for (Item& item : items)
            item = make();
        return items;
    }
    std::vector<OdGePoint3d> points3d(int least)
    {
        return several<OdGePoint3d>(least, [this] { return point3d(); });
    }
    OdGePoint3dArray pointArray(int least)
    {
        std::vector<OdGePoint3d> const points = points3d(least);
        return {points.begin(), points.end()};
    }

    OdGeCircArc2d circArc2d()
    {
        auto const [start, end] = angles();
        return {point2d(), positive(), start, end, isHeads() ? direction2d() : OdGeVector2d(1, 0), isHeads()};
    }
    OdGeCircArc3d circArc3d()
    {
        auto const [start, end] = angles();
        OdGeVector3d const normal = direction3d();
        return {point3d(), normal, normal.perpVector(), positive(), start, end};
    }
    OdGeEllipArc2d ellipArc2d()
    {
        auto const [start, end] = angles();
        OdGeVector2d const axis = direction2d();
        return {point2d(), axis * positive(), axis.perpVector() * (isHeads() ? -positive() : positive()), start,
                end};
    }
    OdGeEllipArc3d ellipArc3d()
    {
        auto const [start, end] = angles();
        OdGeVector3d const axis = direction3d();
        return {point3d(), axis * positive(), axis.perpVector() * positive(), start, end};
    }
    OdGeNurbCurve3d spline()
    {
        int const degree = 1 + upTo(4);
        if (isHeads())
            return OdGeNurbCurve3d::ofControlPoints(degree, points3d(degree + 2), isHeads());
        OdGeNurbCurve3d::Definition definition;
        definition.degree = degree;
        definition.controlPoints = points3d(degree + 1);
        std::size_t const count = definition.controlPoints.size();
        double knot = between(-100, 100);
        for (std::size_t i = 0; i < count + static_cast<std::size_t>(degree) + 1; ++i)
            definition.knots.append(knot += between(1e-3, 10));
        for (std::size_t i = 0; i < count; ++i)
            definition.weights.push_back(positive());
        return OdGeNurbCurve3d(definition);
    }
    OdGeSegmentChain2d chain()
    {
        return OdGeSegmentChain2d(several<OdGePoint2d>(1, [this] { return point2d(); }),
                                  several<double>(0, [this] { return isHeads() ? 0 : number(); }), isHeads());
    }
    OdString text()
    {
        std::wstring const letters = L"aZ <>&\"'\n\t\u00e9\u0436\U0001f600%";
        std::wstring result;
        for (int i = upTo(30); i > 0; --i)
            result += letters[static_cast<std::size_t>(upTo(static_cast<int>(letters.size()) - 1))];
        return OdString(result);
    }

    /// Without what follows from other numbers: the ends of full turns, the radii of ellipses.
    static std::string writtenAgain(ut::TestGeData const& datum)
    {
        pugi::xml_document document;
        CPPUNIT_ASSERT(datum.write(document));
        for (wchar_t const* const name : {L"endAng", L"majorRadius", L"minorRadius"})
            document.first_child().remove_attribute(name);
        std::ostringstream text;
        document.save(text);
        return text.str();
    }

    template <class Data>
    static void check(Data const& datum)
    {
        pugi::xml_document document;
        CPPUNIT_ASSERT(datum.write(document));
        std::ostringstream file;
        document.save(file);
        pugi::xml_document read;
        CPPUNIT_ASSERT(read.load_buffer(file.str().data(), file.str().size()));
        auto const back = ut::TestGeData::readObject(read.first_child());
        CPPUNIT_ASSERT_MESSAGE(file.str(), back && back->isA() == datum.isA());
        CPPUNIT_ASSERT_EQUAL(writtenAgain(datum), writtenAgain(*back));

        Numbers const expected = numbersOf(datum);
        Numbers const actual = numbersOf(static_cast<Data const&>(*back));
        CPPUNIT_ASSERT_EQUAL_MESSAGE(file.str(), expected.size(), actual.size());
        for (std::size_t i = 0; i < expected.size(); ++i) {
            CPPUNIT_ASSERT_EQUAL(expected[i].size(), actual[i].size());
            std::vector<double> off = expected[i];
            for (std::size_t k = 0; k < off.size(); ++k)
                off[k] -= actual[i][k];
            CPPUNIT_ASSERT_MESSAGE(file.str(), magnitude(off) <= 1e-14 * magnitude(expected[i]));
        }
    }

    void geometry()
    {
        for (int i = 0; i < s_rounds; ++i) {
            check(ta::TestOdGeLineSeg2d({point2d(), point2d()}));
            check(ta::TestOdGeLineSeg3d({point3d(), point3d()}));
            check(ta::TestOdGeRay3d({point3d(), direction3d()}));
            check(ta::TestOdGeLine3d({point3d(), direction3d()}));
            check(ta::TestOdGeCircArc2d(circArc2d()));
            check(ta::TestOdGeCircArc3d(circArc3d()));
            check(ta::TestOdGeEllipArc2d(ellipArc2d()));
            check(ta::TestOdGeEllipArc3d(ellipArc3d()));
            check(ta::TestOdGeNurbCurve3d(spline()));
        }
    }

    void polylines()
    {
        for (int i = 0; i < s_rounds; ++i) {
            check(ta::TestOdGeSegmentChain2d(chain()));
            ta::TestOdGeSegmentChain2dOnPlane onPlane(chain());
            onPlane.normal = direction3d();
            onPlane.elev = number();
            check(onPlane);
            ta::TestOdGePolyline3d polyline;
            polyline.points = pointArray(0);
            polyline.closed = isHeads();
            check(polyline);
        }
    }

    void others()
    {
        for (int i = 0; i < s_rounds; ++i) {
            ta::TestOdGePoint3dArray points;
            points.points = pointArray(0);
            check(points);
            ta::TestLineSeg2dArray segments;
            for (int k = upTo(12); k > 0; --k)
                segments.segments.append(std::make_unique<OdGeLineSeg2d>(point2d(), point2d()));
            check(segments);
            ta::TestPgMesh mesh;
            mesh.points = pointArray(1);
            mesh.mSize = isHeads() ? 1 : static_cast<unsigned>(mesh.points.size());
            mesh.nSize = static_cast<unsigned>(mesh.points.size()) / mesh.mSize;
            mesh.mClosed = isHeads();
            mesh.nClosed = isHeads();
            check(mesh);
            ta::TestMTextData mtext;
            mtext.position = point3d();
            mtext.width = number();
            mtext.text = text();
            mtext.rotAngDeg = number();
            check(mtext);
            ta::TestTextData line;
            line.position = point3d();
            line.widthFactor = number();
            line.text = text();
            line.rotAngDeg = number();
            check(line);
        }
    }

    void whatRoundingSpoilsIsNotWritten()
    {
        pugi::xml_document document;
        OdGeNurbCurve3d::Definition definition;
        definition.degree = 1;
        double const next = std::nextafter(0.5, 1.0);
        definition.knots = OdGeKnotVector({0, 0, 0.5, next, 1, 1});
        definition.controlPoints = {{0, 0, 0}, {1, 0, 0}, {2, 1, 0}, {3, 0, 0}};
        CPPUNIT_ASSERT(!ta::TestOdGeNurbCurve3d(OdGeNurbCurve3d(definition)).write(document));
        double const most = std::numeric_limits<double>::max(); // would be rounded up
        CPPUNIT_ASSERT(!ta::TestOdGeLineSeg2d({{0, 0}, {most, 0}}).write(document));
        ta::TestTextData text;
        text.text = OdString(std::wstring(L"a\0b", 3));
        CPPUNIT_ASSERT(!text.write(document));
        CPPUNIT_ASSERT(!document.first_child());
    }

    void circlesOfManyTurns()
    {
        for (int i = 0; i < s_rounds; ++i) {
            double const start = between(-1e6, 1e6);
            pugi::xml_document document;
            CPPUNIT_ASSERT(ta::TestOdGeCircArc2d(OdGeCircArc2d({0, 0}, 1, start, start + Oda2PI)).write(document));
            CPPUNIT_ASSERT(ta::isCircle2d(ut::TestGeData::readObject(document.first_child()).get()));
        }
    }

    void failedWritingChangesNothing()
    {
        ta::TestOdGeSegmentChain2dOnPlane onPlane(chain());
        onPlane.elev = std::numeric_limits<double>::quiet_NaN();
        ta::TestOdGeSegmentChain2dOnPlane noPlane(chain());
        noPlane.normal = {0, 0, 0};
        ta::TestLineSeg2dArray segments;
        segments.segments.append(std::make_unique<OdGeLineSeg2d>(OdGePoint2d(0, 0), OdGePoint2d(1, 1)));
        segments.segments.append(std::make_unique<OdGeLineSeg2d>(OdGePoint2d(HUGE_VAL, 0), OdGePoint2d(1, 1)));
        ta::TestMTextData text;
        text.rotAngDeg = HUGE_VAL;
        for (ut::TestGeData const* const datum :
             std::initializer_list<ut::TestGeData const*>{&onPlane, &noPlane, &segments, &text}) {
            pugi::xml_document document;
            CPPUNIT_ASSERT(document.load_string(L"<e pos='old' other='1'><vertex pt='0,0'/>text</e>"));
            std::ostringstream before, after;
            document.save(before);
            pugi::xml_node element = document.first_child();
            CPPUNIT_ASSERT(!datum->writeToXml(element));
            document.save(after);
            CPPUNIT_ASSERT_EQUAL(before.str(), after.str());
        }
    }
};

CPPUNIT_TEST_SUITE_REGISTRATION(TestDataRoundTripTest);

} // namespace
