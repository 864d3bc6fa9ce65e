#include "host/dxf/older/dxf_lower_spline.h"
#include "tests/host/dxf/lowered_text.h"

#include <cmath>

namespace {

using dxf::ERelease;
using loweredText::entity;
using loweredText::Lowered;
using loweredText::loweredEntities;

class LoweringReplacementsTest : public CppUnit::TestFixture
{
    CPPUNIT_TEST_SUITE(LoweringReplacementsTest);
    CPPUNIT_TEST(lightPolylines);
    CPPUNIT_TEST(ellipses);
    CPPUNIT_TEST(splines);
    CPPUNIT_TEST(splinesThatAreNone);
    CPPUNIT_TEST(helices);
    CPPUNIT_TEST(paragraphs);
    CPPUNIT_TEST(endlessLines);
    CPPUNIT_TEST_SUITE_END();

    static constexpr char const* kPolyline = "62\n3\n100\nAcDbPolyline\n90\n2\n70\n129\n38\n4\n39\n1\n10\n0\n20\n0"
                                             "\n40\n0.5\n41\n0.25\n42\n1\n10\n5\n20\n6\n"
                                             "1001\nACAD\n1070\n7\n";

    void lightPolylines()
    {
        Lowered const r12 = loweredEntities(entity("LWPOLYLINE", "A0", kPolyline), ERelease::kR12);
        std::string const first = r12.between("POLYLINE\n  5\nA0", "VERTEX");
        CPPUNIT_ASSERT_EQUAL(
            std::string("POLYLINE 5 A0 8 0 62 3 66 1 10 0.0 20 0.0 30 4.0 39 1.0 70 129 1001 ACAD 1070 7 0 "),
            first);
        std::string const rest = r12.between("VERTEX\n", "ENDSEC");
        CPPUNIT_ASSERT_MESSAGE(
            rest, rest.find(" 8 0 62 3 10 0.0 20 0.0 30 4.0 40 0.5 41 0.25 42 1.0 70 0 0 VERTEX 5 ") !=
                      std::string::npos);
        CPPUNIT_ASSERT_MESSAGE(rest,
                               rest.find(" 8 0 62 3 10 5.0 20 6.0 30 4.0 70 0 0 SEQEND 5 ") != std::string::npos);
        r12.told(L"LWPOLYLINE: R12 has no such entities; drawn as POLYLINE");
        // The seed lies above the new records: opening the file again must not move them.
        std::string const seed =
            r12.between("$HANDSEED\n  5\n", "\n  0").substr(std::string("$HANDSEED 5 ").size());
        std::string const end = rest.substr(rest.find("SEQEND 5 ") + 9);
        CPPUNIT_ASSERT_EQUAL(OdDbHandle(std::string_view(end).substr(0, end.find(' '))).value() + 1,
                             OdDbHandle(std::string_view(seed).substr(0, seed.find(' '))).value());

        Lowered const r13 = loweredEntities(entity("LWPOLYLINE", "A0", kPolyline), ERelease::kR13);
        CPPUNIT_ASSERT(r13.has("100\nAcDb2dPolyline\n 66\n1\n") &&
                       r13.has("100\nAcDbVertex\n100\nAcDb2dVertex\n"));
        CPPUNIT_ASSERT(
            loweredEntities(entity("LWPOLYLINE", "A0", kPolyline), ERelease::kR14).has("\nLWPOLYLINE\n"));
    }

    static std::vector<OdGePoint3d> verticesOf(std::string const& text)
    {
        std::vector<OdGePoint3d> points;
        for (std::size_t at = text.find("VERTEX\n"); at != std::string::npos; at = text.find("VERTEX\n", at + 1)) {
            OdGePoint3d point;
            for (auto const& [code, place] :
                 {std::pair("\n 10\n", &point.x), {"\n 20\n", &point.y}, {"\n 30\n", &point.z}})
                *place = std::stod(text.substr(text.find(code, at) + 5, 40));
            points.push_back(point);
        }
        return points;
    }

    void ellipses()
    {
        std::string const shape = "100\nAcDbEllipse\n10\n1\n20\n2\n30\n3\n11\n0\n21\n10\n31\n0\n40\n0.5\n";
        Lowered const whole =
            loweredEntities(entity("ELLIPSE", "A0", shape + "41\n0\n42\n6.283185307179586\n"), ERelease::kR12);
        CPPUNIT_ASSERT(whole.between("POLYLINE\n  5\nA0", "VERTEX").find(" 70 1 ") != std::string::npos);
        std::vector<OdGePoint3d> const points = verticesOf(whole.text);
        CPPUNIT_ASSERT_EQUAL(std::size_t{128}, points.size());
        for (OdGePoint3d const& point : points) {
            CPPUNIT_ASSERT_DOUBLES_EQUAL(1, std::hypot((point.x - 1) / 5, (point.y - 2) / 10), 1e-12);
            CPPUNIT_ASSERT_DOUBLES_EQUAL(3, point.z, 0);
        }
        Lowered const quarter =
            loweredEntities(entity("ELLIPSE", "A0", shape + "41\n0\n42\n1.5707963267948966\n"), ERelease::kR12);
        std::vector<OdGePoint3d> const part = verticesOf(quarter.text);
        CPPUNIT_ASSERT(quarter.between("POLYLINE\n  5\nA0", "VERTEX").find(" 70 0 ") != std::string::npos);
        CPPUNIT_ASSERT(part.front().isEqualTo({1, 12, 3}) && part.back().isEqualTo({-4, 2, 3}));
    }

    void splines()
    {
        // A quarter of the unit circle as a rational curve.
        dxf::FileSpline const arc{
            2, {0, 0, 0, 1, 1, 1}, {{1, 0, 0}, {1, 1, 0}, {0, 1, 0}}, {1, std::sqrt(0.5), 1}};
        std::vector<OdGePoint3d> const points = dxf::splinePoints(arc);
        CPPUNIT_ASSERT_EQUAL(std::size_t{9}, points.size());
        for (OdGePoint3d const& point : points)
            CPPUNIT_ASSERT_DOUBLES_EQUAL(1, point.asVector().length(), 1e-12);
        CPPUNIT_ASSERT(points.front().isEqualTo({1, 0, 0}) && points.back().isEqualTo({0, 1, 0}));

        Lowered const inSpace = loweredEntities(
            entity("SPLINE", "A0",
                   "100\nAcDbSpline\n70\n8\n71\n1\n72\n5\n73\n3\n40\n0\n40\n0\n40\n1\n40\n2\n40\n2\n"
                   "10\n0\n20\n0\n30\n0\n10\n1\n20\n0\n30\n5\n10\n2\n20\n7\n30\n0\n"),
            ERelease::kR12);
        CPPUNIT_ASSERT(inSpace.between("POLYLINE\n  5\nA0", "VERTEX").find(" 70 8 ") != std::string::npos);
        std::vector<OdGePoint3d> const vertices = verticesOf(inSpace.text);
        CPPUNIT_ASSERT_EQUAL(std::size_t{3}, vertices.size());
        CPPUNIT_ASSERT(vertices[1].isEqualTo({1, 0, 5}));
    }

    void splinesThatAreNone()
    {
        std::vector<OdGePoint3d> const controls{{0, 0, 0}, {1, 0, 0}, {2, 0, 0}};
        CPPUNIT_ASSERT(dxf::splinePoints({2, {0, 0, 0, 1, 1}, controls, {}}).empty());    // a knot is missing
        CPPUNIT_ASSERT(dxf::splinePoints({2, {0, 0, 0, 0, 0, 0}, controls, {}}).empty()); // no span
        CPPUNIT_ASSERT(dxf::splinePoints({2, {0, 0, 1, 0, 1, 1}, controls, {}}).empty()); // not sorted
        CPPUNIT_ASSERT(dxf::splinePoints({2, {0, 0, 0, 1, 1, 1}, controls, {0, 0, 0}}).empty()); // nowhere
        CPPUNIT_ASSERT(dxf::splinePoints({0, {0, 1}, controls, {}}).empty());
        Lowered const file =
            loweredEntities(entity("SPLINE", "A0", "100\nAcDbSpline\n70\n8\n71\n3\n"), ERelease::kR12);
        CPPUNIT_ASSERT_EQUAL(std::string("A0 x1"), file.told(L"SPLINE: R12 has no such entities; left out"));
    }

    void helices()
    {
        std::string const helix =
            entity("HELIX", "A0",
                   "100\nAcDbSpline\n70\n8\n71\n1\n72\n4\n73\n2\n40\n0\n40\n0\n40\n1\n40\n1\n"
                   "10\n0\n20\n0\n30\n0\n10\n1\n20\n0\n30\n5\n100\nAcDbHelix\n90\n29\n");
        Lowered const r2004 = loweredEntities(helix, ERelease::kR2004);
        CPPUNIT_ASSERT(r2004.has("SPLINE\n  5\nA0\n") && !r2004.has("AcDbHelix"));
        CPPUNIT_ASSERT_EQUAL(std::string("A0 x1"),
                             r2004.told(L"HELIX: R2004 has no such entities; drawn as SPLINE"));
        CPPUNIT_ASSERT(loweredEntities(helix, ERelease::kR12).has("POLYLINE\n  5\nA0\n"));
        CPPUNIT_ASSERT(loweredEntities(helix, ERelease::kR2007).has("HELIX\n"));
    }

    void paragraphs()
    {
        Lowered const file = loweredEntities(entity("MTEXT", "A0",
                                                    "100\nAcDbMText\n10\n10\n20\n20\n30\n0\n40\n3\n41\n0\n71\n1\n1"
                                                    "\n{\\fArial|b1;One}\\P\\PThree\n7\nStandard\n44\n1\n"),
                                             ERelease::kR12);
        std::string const texts = file.between("TEXT\n  5\nA0", "ENDSEC");
        CPPUNIT_ASSERT_EQUAL(std::string("TEXT 5 A0 8 0 10 10.0 20 17.0 30 0.0 40 3.0 1 One 7 STANDARD 72 0 11 "
                                         "10.0 21 20.0 31 0.0 73 3 0 TEXT "),
                             texts.substr(0, texts.find("TEXT", 5) + 5));
        CPPUNIT_ASSERT(texts.find(" 1 Three 7 STANDARD 72 0 11 10.0 21 10.0 31 0.0 73 3 ") != std::string::npos);
        CPPUNIT_ASSERT(!file.has("\nMTEXT\n"));
    }

    void endlessLines()
    {
        Lowered const file = loweredEntities(
            entity("XLINE", "A0", "100\nAcDbXline\n10\n1\n20\n1\n30\n0\n11\n1\n21\n0\n31\n0\n"), ERelease::kR12);
        std::string const line = file.between("LINE\n  5\nA0", "ENDSEC");
        CPPUNIT_ASSERT_MESSAGE(line, line.starts_with("LINE 5 A0 8 0 10 -"));
        CPPUNIT_ASSERT_MESSAGE(line, line.find(" 20 1.0 ") != std::string::npos &&
                                         line.find(" 21 1.0 ") != std::string::npos);
        file.told(L"XLINE: R12 has no such entities; drawn as LINE");
    }
};
CPPUNIT_TEST_SUITE_REGISTRATION(LoweringReplacementsTest);

} // namespace
