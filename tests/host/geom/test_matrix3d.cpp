#include "host/geom/od_ge_matrix3d.h"
#include "host/root/od_error.h"

#include <cppunit/extensions/HelperMacros.h>

#include <limits>
#include <random>
#include <sstream>

namespace {

void assertPoint(OdGePoint3d const& expected, OdGePoint3d const& actual, double tol = 1e-12)
{
    std::ostringstream text;
    text << "expected (" << expected.x << ' ' << expected.y << ' ' << expected.z << "), got (" << actual.x << ' '
         << actual.y << ' ' << actual.z << ')';
    CPPUNIT_ASSERT_MESSAGE(text.str(), expected.isEqualTo(actual, tol));
}

void assertVector(OdGeVector3d const& expected, OdGeVector3d const& actual, double tol = 1e-12)
{
    assertPoint(OdGePoint3d::kOrigin + expected, OdGePoint3d::kOrigin + actual, tol);
}

class Matrix3dTest : public CppUnit::TestFixture
{
    CPPUNIT_TEST_SUITE(Matrix3dTest);
    CPPUNIT_TEST(planeAxesFollowTheFileRule);
    CPPUNIT_TEST(planeAxesChangeNearZ);
    CPPUNIT_TEST(coordinateSystemsAreColumns);
    CPPUNIT_TEST(productsApplyRightToLeft);
    CPPUNIT_TEST(movementsHandValues);
    CPPUNIT_TEST(inverseOfRandomMatrices);
    CPPUNIT_TEST(singularMatricesAreRefused);
    CPPUNIT_TEST(uniformScaleIsRecognised);
    CPPUNIT_TEST_SUITE_END();

    void planeAxesFollowTheFileRule()
    {
        struct Case
        {
            OdGeVector3d normal, x, y;
        };
        Case const cases[] = {
            {{0, 0, 1}, {1, 0, 0}, {0, 1, 0}},  {{0, 0, -1}, {-1, 0, 0}, {0, 1, 0}},
            {{2, 0, 0}, {0, 1, 0}, {0, 0, 1}},  {{0, 1, 0}, {-1, 0, 0}, {0, 0, 1}},
            {{0, -3, 0}, {1, 0, 0}, {0, 0, 1}}, {{0.6, 0, 0.8}, {0, 1, 0}, {-0.8, 0, 0.6}},
        };
        for (Case const& c : cases) {
            OdGeMatrix3d const plane = OdGeMatrix3d::planeToWorld(c.normal);
            assertVector(c.x, plane.column(0));
            assertVector(c.y, plane.column(1));
            assertVector(c.normal.normal(), plane.column(2));
            CPPUNIT_ASSERT(OdGeMatrix3d::worldToPlane(c.normal) == plane.inverse());
        }
        // No rounding may creep into the plane that nearly all entities lie in.
        CPPUNIT_ASSERT(OdGeMatrix3d::planeToWorld(OdGeVector3d::kZAxis).isEqualTo(OdGeMatrix3d::kIdentity, 0));
        CPPUNIT_ASSERT_THROW(OdGeMatrix3d::planeToWorld({}), OdError);
    }

    void planeAxesChangeNearZ()
    {
        // Just inside 1/64 = 0.015625 the X axis comes from the world's Y axis and stays near the world's X axis;
        // just outside it comes from Z and is perpendicular to both.
        OdGeVector3d const inside = OdGeVector3d(0.0156, 0.0156, 1).normal();
        OdGeVector3d const x = inside.perpVector();
        CPPUNIT_ASSERT_DOUBLES_EQUAL(0.0, x.y, 1e-15);
        CPPUNIT_ASSERT(x.x > 0.99);

        for (OdGeVector3d const& outside : {OdGeVector3d(0.01563, 0, 1), OdGeVector3d(0, 0.01563, 1)}) {
            OdGeVector3d const axis = outside.perpVector();
            CPPUNIT_ASSERT_EQUAL(0.0, axis.z);
            CPPUNIT_ASSERT_DOUBLES_EQUAL(0.0, axis.dotProduct(outside), 1e-15);
            CPPUNIT_ASSERT(OdGeVector3d::kZAxis.crossProduct(outside).isCodirectionalTo(axis));
        }
    }

    void coordinateSystemsAreColumns()
    {
        OdGeMatrix3d m;
        m.setCoordSystem({10, 20, 30}, {0, 1, 0}, {-1, 0, 0}, {0, 0, 2});
        assertPoint({8, 21, 36}, m * OdGePoint3d(1, 2, 3));
        assertVector({-2, 1, 6}, m * OdGeVector3d(1, 2, 3));
        CPPUNIT_ASSERT_EQUAL(-1.0, m.entry[0][1]);
        CPPUNIT_ASSERT_EQUAL(30.0, m.entry[2][3]);

        OdGePoint3d origin;
        OdGeVector3d x, y, z;
        m.getCoordSystem(origin, x, y, z);
        CPPUNIT_ASSERT(OdGeMatrix3d().setCoordSystem(origin, x, y, z).isEqualTo(m, 0));
        CPPUNIT_ASSERT(origin == OdGePoint3d(10, 20, 30) && y == OdGeVector3d(-1, 0, 0));
    }

    void productsApplyRightToLeft()
    {
        OdGeMatrix3d const move = OdGeMatrix3d::translation({1, 0, 0});
        OdGeMatrix3d const grow = OdGeMatrix3d::scaling(2);
        assertPoint({4, 0, 0}, grow * move * OdGePoint3d(1, 0, 0));
        assertPoint({3, 0, 0}, move * grow * OdGePoint3d(1, 0, 0));
        OdGeMatrix3d both = move;
        both.preMultBy(grow);
        CPPUNIT_ASSERT(both == grow * move && both != (OdGeMatrix3d(move) *= grow).inverse());
    }

    void movementsHandValues()
    {
        assertPoint({2, 3, 7}, OdGeMatrix3d::rotation(OdaPI2, {0, 0, 5}, {1, 2, 0}) * OdGePoint3d(2, 1, 7));
        assertPoint({2, 3, 1}, OdGeMatrix3d::rotation(Oda2PI / 3, {1, 1, 1}) * OdGePoint3d(3, 1, 2));
        assertPoint({3, -2, 5}, OdGeMatrix3d::scaling(OdGeScale3d(2, -1, 1), {1, 1, 1}) * OdGePoint3d(2, 4, 5));
        assertPoint({-1, 0, 3}, OdGeMatrix3d::mirroringAtPoint({1, 1, 1}) * OdGePoint3d(3, 2, -1));
        assertPoint({3, 0, 3}, OdGeMatrix3d::mirroringAtLine({0, 1, 1}, {-2, 0, 0}) * OdGePoint3d(3, 2, -1));
        assertPoint({2, 3, 9}, OdGeMatrix3d::mirroringAtPlane({0, 0, 5}, {0, 0, 3}) * OdGePoint3d(2, 3, 1));
        assertPoint({4, 3, 1}, OdGeMatrix3d::mirroringAtPlane({1, 0, 0}, {1, -1, 0}) * OdGePoint3d(4, 3, 1));
        CPPUNIT_ASSERT_DOUBLES_EQUAL(-1.0, OdGeMatrix3d::mirroringAtPlane({1, 2, 3}, {1, 2, 2}).det(), 1e-12);
        CPPUNIT_ASSERT_THROW(OdGeMatrix3d::rotation(1, {}), OdError);
    }

    void inverseOfRandomMatrices()
    {
        std::mt19937 random(20240611);
        std::uniform_real_distribution<double> number(-1, 1);
        auto const vector = [&](double size) {
            return OdGeVector3d(number(random), number(random), number(random)) * size;
        };
        int tried = 0;
        for (int i = 0; i < 500; ++i) {
            double const size = std::pow(10, 6 * number(random));
            OdGeMatrix3d m;
            m.setCoordSystem(OdGePoint3d::kOrigin + vector(size), vector(size), vector(size), vector(size));
            if (std::abs(m.det()) < 0.01 * size * size * size)
                continue; // badly conditioned ones lose digits by nature
            ++tried;
            std::string const name = "matrix " + std::to_string(i);
            CPPUNIT_ASSERT_MESSAGE(name, (m.inverse() * m).isEqualTo(OdGeMatrix3d::kIdentity, 1e-9));
            OdGePoint3d const p = OdGePoint3d::kOrigin + vector(size);
            CPPUNIT_ASSERT_MESSAGE(name, (m * (m.inverse() * p)).isEqualTo(p, 1e-9 * size));
        }
        CPPUNIT_ASSERT(tried > 300);
    }

    void singularMatricesAreRefused()
    {
        OdGeMatrix3d flat;
        flat.setCoordSystem({}, {1, 2, 3}, {2, 4, 6}, {0, 0, 1});
        OdGeMatrix3d notANumber;
        notANumber.entry[1][1] = std::numeric_limits<double>::quiet_NaN();
        for (OdGeMatrix3d const& m : {flat, OdGeMatrix3d::scaling(0), notANumber}) {
            try {
                m.inverse();
                CPPUNIT_FAIL("no exception");
            } catch (OdError const& error) {
                CPPUNIT_ASSERT_EQUAL(eSingularMatrix, error.code());
            }
        }
        // A small scale is no reason to refuse.
        assertPoint({1, 2, 3}, OdGeMatrix3d::scaling(1e-20).inverse() * OdGePoint3d(1e-20, 2e-20, 3e-20));
    }

    void uniformScaleIsRecognised()
    {
        OdGeMatrix3d const turned = OdGeMatrix3d::rotation(0.7, {1, 2, 3}, {4, 5, 6});
        CPPUNIT_ASSERT((OdGeMatrix3d::scaling(1e-6) * turned).isUniScaledOrtho());
        CPPUNIT_ASSERT((OdGeMatrix3d::mirroringAtPlane({}, {1, 1, 0}) * turned).isUniScaledOrtho());
        CPPUNIT_ASSERT_DOUBLES_EQUAL(2.5, (turned * OdGeMatrix3d::scaling(-2.5)).scale(), 1e-12);
        CPPUNIT_ASSERT(!(turned * OdGeMatrix3d::scaling(OdGeScale3d(1, 1, 1.001))).isUniScaledOrtho());
        OdGeMatrix3d shear;
        shear.setCoordSystem({}, {1, 0, 0}, {0.6, 0.8, 0}, {0, 0, 1});
        CPPUNIT_ASSERT(!shear.isUniScaledOrtho() && !OdGeMatrix3d::scaling(0).isUniScaledOrtho());
    }
};

CPPUNIT_TEST_SUITE_REGISTRATION(Matrix3dTest);

} // namespace
