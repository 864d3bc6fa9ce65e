// Each property that the comparison of entities looks at, one by one, and what is peculiar about it.
#include "testapi/ta_comparison.h"
#include "testapi/ta_test_helper.h"
#include "tests/testapi/compare_cases.h"

#include <cppunit/extensions/HelperMacros.h>

#include <algorithm>
#include <set>

namespace {

using ta::TestHelperEx;

/// A drawing with the records that the cases refer to.
OdDbDatabasePtr drawingForComparison()
{
    OdDbDatabasePtr drawing(new OdDbDatabase);
    for (wchar_t const* const name : {L"DOOR", L"WINDOW"}) {
        OdSmartPtr<OdDbBlockTableRecord> const block(new OdDbBlockTableRecord);
        block->setName(name);
        drawing->getBlockTableId().open<OdDbSymbolTable>(OdDb::kForWrite)->add(block.get());
    }
    OdSmartPtr<OdDbTextStyleTableRecord> const style(new OdDbTextStyleTableRecord);
    style->setName(L"NOTES");
    drawing->getTextStyleTableId().open<OdDbSymbolTable>(OdDb::kForWrite)->add(style.get());
    OdSmartPtr<OdDbLayerTableRecord> const layer(new OdDbLayerTableRecord);
    layer->setName(L"WALLS");
    drawing->getLayerTableId().open<OdDbSymbolTable>(OdDb::kForWrite)->add(layer.get());
    return drawing;
}

struct Pair
{
    OdDbEntityPtr actual;
    OdDbEntityPtr expected;
};

Pair pairOf(OdDbDatabase& drawing, CompareCase const& one)
{
    auto const space = drawing.getModelSpaceId().open<OdDbBlockTableRecord>(OdDb::kForWrite);
    Pair pair{one.make(drawing), one.make(drawing)};
    space->appendOdDbEntity(pair.actual);
    space->appendOdDbEntity(pair.expected);
    pair.actual->upgradeOpen();
    return pair;
}

class CollectingSink : public ta::DifferenceSink
{
public:
    std::vector<ta::Difference> found;
    void differs(ta::Difference const& difference) override { found.push_back(difference); }
};

ta::Comparison::Options const s_options{
    .skipCommonProps = false, .tolerance = 1e-2, .relTolerance = 1e-3, .eps = 1e-6};

std::vector<ta::Difference> differencesOf(Pair const& pair, ta::Comparison::Options const& options = s_options)
{
    CollectingSink sink;
    ta::Comparison(sink, options).entities(*pair.actual, *pair.expected);
    return sink.found;
}

/// Details of the failure with which the library ends a test, up to where it was called; empty when it does not.
std::string failureOf(OdDbEntity const* pEnt1, OdDbEntity const* pEnt2)
{
    try {
        TestHelperEx::compareEntities(pEnt1, pEnt2, s_options.skipCommonProps, s_options.tolerance,
                                      s_options.relTolerance);
    } catch (CppUnit::Exception const& failure) {
        CPPUNIT_ASSERT_EQUAL(std::string("testapi/ta_test_helper"), failure.sourceLine().fileName());
        std::string const text = failure.what();
        std::size_t const place = text.find("- Compared at ");
        CPPUNIT_ASSERT_MESSAGE(text, text.find("/test_compare_entities.cpp:", place) != std::string::npos);
        return text.substr(0, place);
    }
    return {};
}

std::string caseName(CompareCase const& one)
{
    return one.entityClass->name().toUtf8() + ": " + one.message.toUtf8();
}

std::vector<CompareCase> allCases()
{
    std::vector<CompareCase> cases;
    addCurveCases(cases);
    addVertexCases(cases);
    addTextCases(cases);
    std::size_t const firstCommon = cases.size();
    CompareCasesOf<OdDbLine>{cases}
        .exact("color", [](OdDbLine& e) { e.setColor(OdCmColor(1)); })
        .exact("layerId",
               [](OdDbLine& e) { e.setLayer(e.database()->table(OdDbTableKind::kLayer).getAt(L"WALLS")); })
        .exact(
            "linetypeId",
            [](OdDbLine& e) { e.setLinetype(e.database()->table(OdDbTableKind::kLinetype).getAt(L"Continuous")); })
        .near("linetypeScale", [](OdDbLine& e, double d) { e.setLinetypeScale(1 + d); })
        .exact("lineWeight", [](OdDbLine& e) { e.setLineWeight(50); });
    for (std::size_t i = firstCommon; i < cases.size(); ++i)
        cases[i].isCommon = true;
    return cases;
}

void checkAmong(CompareCase const& one, std::vector<ta::Difference> const& found)
{
    auto const isThis = [&](ta::Difference const& difference) {
        return difference.message == one.message &&
               one.expression == (difference.expression ? difference.expression : "");
    };
    CPPUNIT_ASSERT_MESSAGE(caseName(one), std::ranges::any_of(found, isThis));
}

/// The failure names what differs: the source text of an exact check, or both values.
void checkTold(CompareCase const& one, Pair const& pair)
{
    std::string const name = caseName(one);
    auto const found = differencesOf(pair);
    CPPUNIT_ASSERT_MESSAGE(name, !found.empty());
    if (one.behindOthers)
        return checkAmong(one, found);
    CPPUNIT_ASSERT_EQUAL_MESSAGE(name, one.message.toUtf8(), found[0].message.toUtf8());
    std::string const shown = found[0].expression ? found[0].expression : "";
    CPPUNIT_ASSERT_EQUAL_MESSAGE(name, one.expression, shown);
    if (!one.inCompany && found.size() > 1)
        CPPUNIT_FAIL(name + " also tells: " + found[1].message.toUtf8());

    std::string expected = "assertion failed\n";
    if (!one.expression.empty())
        expected += "- Expression: " + one.expression + "\n- " + one.message.toUtf8() + "\n";
    else
        expected += "- " + one.message.toUtf8() + "\n- Expected: " + found[0].expected.toUtf8() +
                    "\n- Actual  : " + found[0].actual.toUtf8() + "\n- Off by  : ";
    std::string const failure = failureOf(pair.actual.get(), pair.expected.get());
    CPPUNIT_ASSERT_EQUAL_MESSAGE(name, expected, failure.substr(0, expected.size()));
}

void checkExact(OdDbDatabase& drawing, CompareCase const& one)
{
    Pair pair = pairOf(drawing, one);
    CPPUNIT_ASSERT_EQUAL_MESSAGE(caseName(one), std::string(), failureOf(pair.actual.get(), pair.expected.get()));
    one.change(*pair.actual, 0);
    checkTold(one, pair);
    // The other way round, too: neither entity is compared with itself.
    std::swap(pair.actual, pair.expected);
    CPPUNIT_ASSERT_MESSAGE(caseName(one), !differencesOf(pair).empty());
}

/// Agrees just within the tolerance and differs just beyond it, on either side.
void checkTolerance(OdDbDatabase& drawing, CompareCase const& one)
{
    double const tolerance = one.tolerance == CompareCase::kEps ? s_options.eps : s_options.relTolerance;
    for (double const offset : {0.9, -0.9}) {
        Pair const pair = pairOf(drawing, one);
        one.change(*pair.actual, offset * tolerance);
        CPPUNIT_ASSERT_EQUAL_MESSAGE(caseName(one), std::string(),
                                     failureOf(pair.actual.get(), pair.expected.get()));
    }
    for (double const offset : {1.1, -1.1}) {
        Pair const pair = pairOf(drawing, one);
        one.change(*pair.actual, offset * tolerance);
        checkTold(one, pair);
    }
    Pair const pair = pairOf(drawing, one);
    pair.expected->upgradeOpen();
    one.change(*pair.expected, 1.1 * tolerance);
    CPPUNIT_ASSERT_MESSAGE(caseName(one), !differencesOf(pair).empty());
}

template <class T>
Pair pairOfTwo(OdDbDatabase& drawing)
{
    Pair pair{madeForComparison<T>(drawing), madeForComparison<T>(drawing)};
    return pair;
}

} // namespace

class TestCompareEntities : public CppUnit::TestFixture
{
    CPPUNIT_TEST_SUITE(TestCompareEntities);
    CPPUNIT_TEST(testEveryProperty);
    CPPUNIT_TEST(testEveryClassHasCases);
    CPPUNIT_TEST(testWholeFailures);
    CPPUNIT_TEST(testClasses);
    CPPUNIT_TEST(testCommonPropertiesCanBeSkipped);
    CPPUNIT_TEST(testEllipseTurns);
    CPPUNIT_TEST(testTextAngles);
    CPPUNIT_TEST(testWhatIsNotCompared);
    CPPUNIT_TEST(testAttributesArePairedByTag);
    CPPUNIT_TEST(testNumbersThatAreNone);
    CPPUNIT_TEST(testFirstFailureInTheOrderOfTheTable);
    CPPUNIT_TEST(testComparisonsInCommon);
    CPPUNIT_TEST_SUITE_END();

    OdDbDatabasePtr m_drawing = drawingForComparison();

    void testEveryProperty()
    {
        for (CompareCase const& one : allCases())
            if (one.tolerance == CompareCase::kExact)
                checkExact(*m_drawing, one);
            else
                checkTolerance(*m_drawing, one);
    }

    void testEveryClassHasCases()
    {
        std::set<OdRxClass const*> withCases;
        for (CompareCase const& one : allCases())
            withCases.insert(one.entityClass);
        for (OdRxClass const* cls : odrxClassDictionary::all())
            if (ta::Comparison::knows(cls))
                CPPUNIT_ASSERT_MESSAGE(cls->name().toUtf8(), withCases.erase(cls) == 1);
        CPPUNIT_ASSERT(withCases.empty());
    }

    void testWholeFailures()
    {
        Pair const circles = pairOfTwo<OdDbCircle>(*m_drawing);
        static_cast<OdDbCircle&>(*circles.actual).setRadius(5.5);
        CPPUNIT_ASSERT_EQUAL(
            std::string("assertion failed\n- Incorrect radius value\n- Expected: 5\n- Actual  : 5.5\n"
                        "- Off by  : 0.5, allowed 1e-06\n"),
            failureOf(circles.actual.get(), circles.expected.get()));
        m_drawing->getModelSpaceId().open<OdDbBlockTableRecord>(OdDb::kForWrite)->appendOdDbEntity(circles.actual);
        std::string const named = "- Entities: OdDbCircle " + circles.actual->getDbHandle().ascii().toUtf8() +
                                  " and OdDbCircle\n";
        CPPUNIT_ASSERT(failureOf(circles.actual.get(), circles.expected.get()).ends_with(named));
        Pair const polylines = pairOfTwo<OdDb3dPolyline>(*m_drawing);
        partOf<OdDb3dPolylineVertex>(*polylines.actual, 1)->setPosition({5, 2, 1});
        CPPUNIT_ASSERT_EQUAL(std::string("assertion failed\n- Incorrect position value\n- Expected: (5, 0, 1)\n"
                                         "- Actual  : (5, 2, 1)\n- Off by  : 2, allowed 1e-06\n- In vertex 2\n"),
                             failureOf(polylines.actual.get(), polylines.expected.get()));
    }

    void testClasses()
    {
        OdDbLinePtr const line(new OdDbLine);
        OdDbRayPtr const ray(new OdDbRay);
        OdDbTracePtr const trace1(new OdDbTrace), trace2(new OdDbTrace);
        CPPUNIT_ASSERT_EQUAL(std::string("assertion failed\n- Expression: pEnt1->isA() == pEnt2->isA()\n"
                                         "- Wrong entity type\n"),
                             failureOf(line.get(), ray.get()));
        // A trace is like a solid, but not one.
        CPPUNIT_ASSERT_EQUAL(std::string("assertion failed\n- Expression: false\n"
                                         "- Comparison of OdDbTrace entities is not implemented\n"),
                             failureOf(trace1.get(), trace2.get()));
        // Common properties come first.
        trace1->setColor(OdCmColor(3));
        CPPUNIT_ASSERT(failureOf(trace1.get(), trace2.get()).find("Incorrect color value") != std::string::npos);
        CPPUNIT_ASSERT_THROW(TestHelperEx::compareEntities(line.get(), nullptr), CppUnit::Exception);
    }

    void testCommonPropertiesCanBeSkipped()
    {
        for (CompareCase const& one : allCases()) {
            if (!one.isCommon)
                continue;
            Pair const pair = pairOf(*m_drawing, one);
            one.change(*pair.actual, 1);
            CPPUNIT_ASSERT(!failureOf(pair.actual.get(), pair.expected.get()).empty());
            TestHelperEx::compareEntities(pair.actual.get(), pair.expected.get(), true);
        }
        // Vertices have common properties of their own.
        Pair const pair = pairOfTwo<OdDb3dPolyline>(*m_drawing);
        partOf<OdDb3dPolylineVertex>(*pair.actual, 1)->setColor(OdCmColor(3));
        CPPUNIT_ASSERT(!failureOf(pair.actual.get(), pair.expected.get()).empty());
        TestHelperEx::compareEntities(pair.actual.get(), pair.expected.get(), true);
    }

    void testEllipseTurns()
    {
        struct
        {
            double actual, expected;
            bool agree;
        } const cases[] = {
            {0.5 + Oda2PI, 0.5, true},
            {0.5, 0.5 + Oda2PI, true},
            {0.5 - 5 * Oda2PI, 0.5, true},
            {0.5 + Oda2PI - 1e-11, 0.5, true}, // within 1e-10 of a turn
            {0.5 + Oda2PI - 1e-8, 0.5, false}, // almost a turn is none, whatever the tolerance
            {0.5 + Oda2PI + 1e-8, 0.5, true},
            {0.5 + Oda2PI / 2, 0.5, false},
            {0.5 + 0.9e-3 * Oda2PI, 0.5, true}, // the tolerance counts turns
            {0.5 + 1.1e-3 * Oda2PI, 0.5, false},
            {1e300, 0.5, true}, // counted in no time; so far out all is a multiple of a turn
        };
        for (auto const& [actual, expected, agree] : cases) {
            Pair const pair = pairOfTwo<OdDbEllipse>(*m_drawing);
            static_cast<OdDbEllipse&>(*pair.actual).setStartParam(actual);
            static_cast<OdDbEllipse&>(*pair.expected).setStartParam(expected);
            CPPUNIT_ASSERT_EQUAL_MESSAGE(std::to_string(actual), agree, differencesOf(pair).empty());
        }
    }

    void testTextAngles()
    {
        struct
        {
            double rotation1, rotation2;
            bool agree;
        } const cases[] = {
            {0.5, 0.5 + 0.9e-10, true}, {0.5, 0.5 + 2e-10, false},  {0.5, 0.5 + Oda2PI, true},
            {-0.5, Oda2PI - 0.5, true}, {0.5 + 0.9e-10, 0.5, true}, {0, Oda2PI, true},
        };
        for (auto const& [rotation1, rotation2, agree] : cases) {
            Pair const pair = pairOfTwo<OdDbText>(*m_drawing);
            static_cast<OdDbText&>(*pair.actual).setRotation(rotation1);
            static_cast<OdDbText&>(*pair.expected).setRotation(rotation2);
            CPPUNIT_ASSERT_EQUAL_MESSAGE(std::to_string(rotation2), agree, differencesOf(pair).empty());
        }
    }

    void testWhatIsNotCompared()
    {
        Pair const meshes = pairOfTwo<OdDbPolygonMesh>(*m_drawing);
        static_cast<OdDbPolygonMesh&>(*meshes.actual).setNSize(4);
        CPPUNIT_ASSERT_EQUAL(std::string(), failureOf(meshes.actual.get(), meshes.expected.get()));
        Pair const lines = pairOfTwo<OdDbLine>(*m_drawing);
        static_cast<OdDbLine&>(*lines.actual).setThickness(5);
        CPPUNIT_ASSERT_EQUAL(std::string(), failureOf(lines.actual.get(), lines.expected.get()));
        // The height of vertices stands in the polyline.
        Pair const vertices = pairOfTwo<OdDb2dVertex>(*m_drawing);
        static_cast<OdDb2dVertex&>(*vertices.actual).setPosition({1, 2, 7});
        CPPUNIT_ASSERT_EQUAL(std::string(), failureOf(vertices.actual.get(), vertices.expected.get()));
    }

    void testAttributesArePairedByTag()
    {
        auto const make = [this](std::initializer_list<std::pair<wchar_t const*, wchar_t const*>> attributes) {
            OdDbBlockReferencePtr reference(new OdDbBlockReference);
            for (auto const& [tag, value] : attributes) {
                OdDbAttributePtr const attribute = madeForComparison<OdDbAttribute>(*m_drawing);
                attribute->setTag(tag);
                attribute->setTextString(value);
                reference->appendAttribute(attribute.get());
            }
            return reference;
        };
        auto const one = make({{L"A", L"1"}, {L"B", L"2"}, {L"B", L"3"}});
        CPPUNIT_ASSERT_EQUAL(std::string(),
                             failureOf(one.get(), make({{L"B", L"2"}, {L"A", L"1"}, {L"B", L"3"}}).get()));
        // Those of one tag keep their order.
        CPPUNIT_ASSERT(!failureOf(one.get(), make({{L"A", L"1"}, {L"B", L"3"}, {L"B", L"2"}}).get()).empty());
        CPPUNIT_ASSERT(!failureOf(one.get(), make({{L"A", L"1"}, {L"B", L"2"}, {L"C", L"3"}}).get()).empty());
    }

    void testNumbersThatAreNone()
    {
        Pair const pair = pairOfTwo<OdDbPoint>(*m_drawing);
        double const nan = std::numeric_limits<double>::quiet_NaN();
        double const infinite = std::numeric_limits<double>::infinity();
        auto const compare = [&](double actual, double expected) {
            CollectingSink sink;
            return ta::Comparison(sink, s_options).near(actual, expected, 1e-6, {nullptr, L"value", 1});
        };
        CPPUNIT_ASSERT(!compare(nan, 1) && !compare(1, nan) && !compare(nan, nan));
        CPPUNIT_ASSERT(!compare(infinite, 1) && !compare(infinite, -infinite) && compare(infinite, infinite));
    }

    void testFirstFailureInTheOrderOfTheTable()
    {
        Pair const pair = pairOfTwo<OdDbArc>(*m_drawing);
        auto& arc = static_cast<OdDbArc&>(*pair.actual);
        arc.setEndAngle(3);
        arc.setRadius(7);
        arc.setLineWeight(50);
        arc.setColor(OdCmColor(2));
        auto const found = differencesOf(pair);
        wchar_t const* const order[] = {L"color", L"lineWeight", L"radius", L"endAngle"};
        CPPUNIT_ASSERT_EQUAL(std::size(order), found.size());
        for (std::size_t i = 0; i < found.size(); ++i)
            CPPUNIT_ASSERT_EQUAL((L"Incorrect " + OdString(order[i]) + L" value").toUtf8(),
                                 found[i].message.toUtf8());
        CPPUNIT_ASSERT(failureOf(pair.actual.get(), pair.expected.get()).find("color") != std::string::npos);
    }

    void testComparisonsInCommon()
    {
        auto const text1 = madeForComparison<OdDbText>(*m_drawing);
        auto const attribute = madeForComparison<OdDbAttribute>(*m_drawing);
        ta::compareTextFields(text1.get(), attribute.get()); // the text part of both
        attribute->setTextString(L"x");
        CPPUNIT_ASSERT_THROW(ta::compareTextFields(text1.get(), attribute.get()), CppUnit::Exception);

        auto const mtext1 = madeForComparison<OdDbMText>(*m_drawing),
                   mtext2 = madeForComparison<OdDbMText>(*m_drawing);
        ta::compareMTextEnts(mtext1.get(), mtext2.get());
        mtext2->setContents(L"first\\P{second}");
        CPPUNIT_ASSERT_THROW(ta::compareMTextEnts(mtext1.get(), mtext2.get()), CppUnit::Exception);
        CPPUNIT_ASSERT_THROW(ta::compareMTextEnts(mtext1.get(), text1.get()), OdError_NotThatKindOfClass);

        auto const insert = madeForComparison<OdDbBlockReference>(*m_drawing);
        auto const grid = madeForComparison<OdDbMInsertBlock>(*m_drawing);
        ta::compareAsBlockRef(insert.get(), grid.get()); // neither attributes nor rows and columns
        grid->setRotation(0.5);
        CPPUNIT_ASSERT_THROW(ta::compareAsBlockRef(insert.get(), grid.get()), CppUnit::Exception);
    }
};

CPPUNIT_TEST_SUITE_REGISTRATION(TestCompareEntities);
