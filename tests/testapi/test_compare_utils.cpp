#include "testapi/ta_compare_utils.h"

#include <cppunit/extensions/HelperMacros.h>

#include <cmath>

namespace {

struct Number
{
    double value, mantissa, degree;
};

/// Gives the properties that it holds for every line, and none for points.
class TestModeler : public tdx::Modeler
{
public:
    tdx::MassProperties properties;

    bool canHandle(OdDbEntity const& entity) const override { return !odCast<OdDbPoint>(&entity); }
    OdResult massProperties(OdDbEntity const& entity, tdx::MassProperties& result) const override
    {
        if (!odCast<OdDbLine>(&entity))
            return eNotApplicable;
        result = properties;
        return eOk;
    }
};

template <class Call>
std::string failureOf(Call const& call)
{
    try {
        call();
    } catch (CppUnit::Exception const& failure) {
        CPPUNIT_ASSERT_EQUAL(std::string("testapi/ta_utils"), failure.sourceLine().fileName());
        return failure.what();
    }
    return {};
}

ta::MassProperties cube()
{
    ta::MassProperties properties;
    properties.m_volume = 250;
    properties.m_centroid = {1, 2, 3};
    properties.m_extents = OdGeExtents3d({0, 0, 0}, {2, 4, 6});
    return properties;
}

std::string failedExpression(ta::MassProperties const& changed)
{
    std::string const failure = failureOf([&] { ta::compareMassProps(cube(), changed, 1e-6); });
    std::string const begin = "assertion failed\n- Expression: ";
    CPPUNIT_ASSERT(failure.empty() || failure.starts_with(begin));
    return failure.empty() ? failure : failure.substr(begin.size());
}

} // namespace

class TestCompareUtils : public CppUnit::TestFixture
{
    CPPUNIT_TEST_SUITE(TestCompareUtils);
    CPPUNIT_TEST(testMantissaAndDegree);
    CPPUNIT_TEST(testDoublesAreEqual);
    CPPUNIT_TEST(testComparedMassProperties);
    CPPUNIT_TEST(testModelers);
    CPPUNIT_TEST_SUITE_END();

    void testMantissaAndDegree()
    {
        Number const numbers[] = {
            {250, 0.25, 3},   {100, 1, 2},      {1, 1, 0},      {0.05, 0.5, -1},
            {0.5, 0.5, 0},    {-250, -0.25, 3}, {0.001, 1, -3}, {1000.5, 0.10005, 4},
            {9.99, 0.999, 1}, {0.25, 0.25, 0},
        };
        for (auto const& [value, mantissa, expectedDegree] : numbers) {
            double degree = 99;
            CPPUNIT_ASSERT_DOUBLES_EQUAL(mantissa, ta::getMantissaAndDegree(value, degree), 1e-15);
            CPPUNIT_ASSERT_EQUAL(expectedDegree, degree + 0.0); // no negative zero in messages
        }
        CPPUNIT_ASSERT_EQUAL(2.0, ta::getDegree(250));
        CPPUNIT_ASSERT_EQUAL(-12.0, ta::getDegree(1e-12));
        CPPUNIT_ASSERT_EQUAL(-1.0, ta::getDegree(0.05));
    }

    void testDoublesAreEqual()
    {
        struct
        {
            double a, b, relTol, tolerance;
            bool equal;
        } const cases[] = {
            {0.0, 1e-7, 1e-12, 1e-6, true}, // absolute near zero
            {0.0, 2e-6, 1e-12, 1e-6, false},
            {9e-15, -9e-7, 1e-12, 1e-6, true},
            {1e-13, 0.0, 1e-12, 1e-6, false}, // only the first number decides on the rule
            {250, 250.01, 1e-3, 0, true},     // 0.25 and 0.25001
            {250, 251.1, 1e-3, 0, false},     // 0.25 and 0.2511
            {1000, 1000.5, 1e-3, 0, false},   // 1 and 0.10005
            {1, 10, 1e-12, 0, true},          // mantissas alone
            {250, -250, 1e-3, 0, false},
            {123456, 123456 + 1e-8, 1e-12, 0, true},
            {123456, 123456 + 1e-4, 1e-12, 0, false},
            // For 0.15 of degree -3, 1e-12 would ask for more than 14 digits: 1e-11 takes its place.
            {0.00015, 0.00015 + 5e-15, 1e-12, 0, true},
            {0.00015, 0.00015 + 2e-14, 1e-12, 0, false},
        };
        for (auto const& [a, b, relTol, tolerance, equal] : cases)
            CPPUNIT_ASSERT_EQUAL_MESSAGE(std::to_string(a) + " " + std::to_string(b), equal,
                                         ta::doublesAreEqual(a, b, relTol, tolerance));
    }

    void testComparedMassProperties()
    {
        CPPUNIT_ASSERT_EQUAL(std::string(), failedExpression(cube()));
        ta::MassProperties changed = cube();
        changed.m_momentsOfInertia[0] = changed.m_productsOfInertia[1] = changed.m_principalMoments[2] = 7;
        changed.m_radiiOfGyration[0] = 7;
        changed.m_principalAxes[0] = {1, 0, 0};
        CPPUNIT_ASSERT_EQUAL(std::string(), failedExpression(changed));

        (changed = cube()).m_volume = 250.001;
        CPPUNIT_ASSERT_EQUAL(std::string("doublesAreEqual(mp1.m_volume, mp2.m_volume, relTol, tolerance)\n"),
                             failedExpression(changed));
        (changed = cube()).m_centroid.x += 0.9e-6;
        CPPUNIT_ASSERT_EQUAL(std::string(), failedExpression(changed));
        changed.m_centroid.x += 0.2e-6;
        CPPUNIT_ASSERT_EQUAL(std::string("mp1.m_centroid.isEqualTo(mp2.m_centroid, absTol)\n"),
                             failedExpression(changed));
        (changed = cube()).m_extents = OdGeExtents3d({0, 0, -1.1e-6}, {2, 4, 6});
        CPPUNIT_ASSERT_EQUAL(std::string("mp1.m_extents.minPoint().isEqualTo(mp2.m_extents.minPoint(), absTol)\n"),
                             failedExpression(changed));
        (changed = cube()).m_extents = OdGeExtents3d({0, 0, 0}, {2, 4 + 1.1e-6, 6});
        CPPUNIT_ASSERT_EQUAL(std::string("mp1.m_extents.maxPoint().isEqualTo(mp2.m_extents.maxPoint(), absTol)\n"),
                             failedExpression(changed));
        ta::compareMassProps(ta::MassProperties(), ta::MassProperties(), 1e-6); // without extents
    }

    void testModelers()
    {
        OdDbLinePtr const line(new OdDbLine);
        OdDbPointPtr const point(new OdDbPoint);
        OdDbCirclePtr const circle(new OdDbCircle);
        std::string const noModeler = "assertion failed\n- Expression: pModeler != nullptr\n";
        CPPUNIT_ASSERT_EQUAL(noModeler, failureOf([&] { ta::compareMassProps(line.get(), line.get(), 1e-6); }));

        TestModeler modeler;
        modeler.properties.volume = 8;
        modeler.properties.centroid = {1, 2, 3};
        modeler.properties.momentsOfInertia[2] = 4;
        modeler.properties.principalAxes[1] = {0, 1, 0};
        modeler.properties.radiiOfGyration[0] = 5;
        modeler.properties.extents = OdGeExtents3d({0, 0, 0}, {2, 2, 2});
        tdx::ModelerInstallation const installation(modeler);
        ta::MassProperties found;
        ta::getMassProps(line.get(), found);
        CPPUNIT_ASSERT_EQUAL(8.0, found.m_volume);
        CPPUNIT_ASSERT(found.m_centroid == OdGePoint3d(1, 2, 3));
        CPPUNIT_ASSERT_EQUAL(4.0, found.m_momentsOfInertia[2]);
        CPPUNIT_ASSERT(found.m_principalAxes[1] == OdGeVector3d(0, 1, 0));
        CPPUNIT_ASSERT_EQUAL(5.0, found.m_radiiOfGyration[0]);
        CPPUNIT_ASSERT(found.m_extents.maxPoint() == OdGePoint3d(2, 2, 2));
        ta::compareMassProps(line.get(), line.get(), 1e-6);
        CPPUNIT_ASSERT_EQUAL(noModeler, failureOf([&] { ta::getMassProps(point.get(), found); }));
        CPPUNIT_ASSERT(!failureOf([&] { ta::getMassProps(circle.get(), found); }).empty());
        CPPUNIT_ASSERT_EQUAL(8.0, found.m_volume);
    }
};

CPPUNIT_TEST_SUITE_REGISTRATION(TestCompareUtils);
