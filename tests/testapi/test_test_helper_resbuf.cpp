#include "testapi/ta_test_helper.h"

#include <cppunit/extensions/HelperMacros.h>

#include <limits>

namespace {

constexpr double kTol = 1e-6;
constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNan = std::numeric_limits<double>::quiet_NaN();

OdResBufPtr real(double value, int code = 40)
{
    return OdResBuf::newRb(code, value);
}

OdResBufPtr point(double x, double y, double z)
{
    return OdResBuf::newRb(10, OdGePoint3d(x, y, z));
}

OdResBufPtr text(OdString const& value)
{
    return OdResBuf::newRb(1, value);
}

/// The nodes linked to a chain; its first one.
OdResBufPtr chain(std::initializer_list<OdResBufPtr> nodes)
{
    for (auto it = nodes.begin(); it != nodes.end() && it + 1 != nodes.end(); ++it)
        (*it)->setNext(*(it + 1));
    return nodes.size() == 0 ? OdResBufPtr() : *nodes.begin();
}

OdResBufPtr nested(OdResBufPtr const& first)
{
    OdResBufPtr const node = OdResBuf::newRb(5023);
    node->setResBuf(first);
    return node;
}

OdResBufPtr aAnd(double value)
{
    return chain({text(L"a"), real(value)});
}

class TestHelperResbufTest : public CppUnit::TestFixture
{
    CPPUNIT_TEST_SUITE(TestHelperResbufTest);
    CPPUNIT_TEST(singleValues);
    CPPUNIT_TEST(nestedChains);
    CPPUNIT_TEST(deeplyNestedChains);
    CPPUNIT_TEST_SUITE_END();

    struct Case
    {
        char const* name;
        bool expected;
        OdResBufPtr a;
        OdResBufPtr b;
    };

    static void assertAll(std::initializer_list<Case> cases, double tol = kTol)
    {
        for (Case const& each : cases) {
            CPPUNIT_ASSERT_EQUAL_MESSAGE(each.name, each.expected,
                                         ta::TestHelperEx::resbufsEqual(*each.a, *each.b, tol));
            CPPUNIT_ASSERT_EQUAL_MESSAGE(each.name, each.expected,
                                         ta::TestHelperEx::resbufsEqual(*each.b, *each.a, tol));
        }
    }

    void singleValues()
    {
        // clang-format off
        assertAll({
            {"reals within the tolerance",     true,  real(1.0), real(1.0000005)},
            {"reals beyond the tolerance",     false, real(1.0), real(1.000002)},
            {"angles",                         true,  real(1.0, 50), real(1.0000005, 50)},
            {"reals of extended data",         true,  real(1.0, 1040), real(1.0000005, 1040)},
            {"different codes",                false, real(1.0, 40), real(1.0, 41)},
            {"a real and a point",             false, real(1.0), point(1, 1, 1)},
            {"infinite and itself",            true,  real(kInfinity), real(kInfinity)},
            {"infinite and finite",            false, real(kInfinity), real(1.0)},
            {"no number and the same",         true,  real(kNan), real(kNan)},
            {"no number and a number",         false, real(kNan), real(1.0)},
            {"points within the tolerance",    true,  point(1, 2, 3), point(1, 2.0000005, 3)},
            // each coordinate is near, the distance is not
            {"points beyond the tolerance",    false, point(1, 2, 3), point(1.0000008, 2.0000008, 3)},
            {"texts",                          true,  text(L"a"), text(L"a")},
            {"texts of another case",          false, text(L"a"), text(L"A")},
            {"a type that is no group code",   false, real(1.0, 5001), real(1.0000005, 5001)},
            {"the same value of such a type",  true,  real(1.0, 5001), real(1.0, 5001)},
            {"what follows does not count",    true,  chain({real(1.0), text(L"a")}), real(1.0)},
        });
        assertAll({
            {"zero and negative zero",         true,  real(0.0), real(-0.0)},
            {"the least difference",           false, real(1.0), real(1.0 + 1e-15)},
        }, 0);
        // clang-format on
    }

    void nestedChains()
    {
        // clang-format off
        assertAll({
            {"nothing in either",              true,  nested(nullptr), nested(nullptr)},
            {"nothing and something",          false, nested(nullptr), nested(real(1.0))},
            {"near reals",                     true,  nested(real(1.0)), nested(real(1.0000005))},
            {"far reals",                      false, nested(real(1.0)), nested(real(1.1))},
            {"all nodes count",                false, nested(aAnd(1.0)), nested(aAnd(1.1))},
            {"near to the end",                true,  nested(aAnd(1.0)), nested(aAnd(1.0000005))},
            {"a longer chain",                 false, nested(aAnd(1.0)), nested(text(L"a"))},
            {"another order",                  false, nested(aAnd(1.0)), nested(chain({real(1.0), text(L"a")}))},
            {"nested once more",               true,  nested(nested(real(1.0))), nested(nested(real(1.0000005)))},
            {"nested less deep",               false, nested(nested(real(1.0))), nested(real(1.0))},
        });
        // clang-format on
    }

    /// Comparing exactly at each depth first would take a hundred million steps.
    void deeplyNestedChains()
    {
        OdResBufPtr a = real(1.0);
        OdResBufPtr b = real(1.0000005);
        for (int depth = 0; depth < 10000; ++depth) {
            a = nested(a);
            b = nested(b);
        }
        CPPUNIT_ASSERT(ta::TestHelperEx::resbufsEqual(*a, *b, kTol));
        CPPUNIT_ASSERT(!ta::TestHelperEx::resbufsEqual(*a, *b, 1e-7));
    }
};
CPPUNIT_TEST_SUITE_REGISTRATION(TestHelperResbufTest);

} // namespace
