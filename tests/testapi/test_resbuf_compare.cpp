#include "testapi/ta_resbuf.h"

#include <cppunit/extensions/HelperMacros.h>

namespace {

using Setter = std::function<void(sds_resbuf::Value&)>;

Setter shortOf(short value)
{
    return [value](sds_resbuf::Value& target) { target.rint = value; };
}
Setter longOf(std::int64_t value)
{
    return [value](sds_resbuf::Value& target) { target.rlong = value; };
}
Setter realOf(double value)
{
    return [value](sds_resbuf::Value& target) { target.rreal = value; };
}
Setter pointOf(double x, double y, double z)
{
    return [=](sds_resbuf::Value& target) { std::ranges::copy(std::array{x, y, z}, target.rpoint); };
}
Setter nameOf(std::int64_t first, std::int64_t second)
{
    return [=](sds_resbuf::Value& target) { std::ranges::copy(std::array{first, second}, target.rlname); };
}

class ResBufCompareTest : public CppUnit::TestFixture
{
    CPPUNIT_TEST_SUITE(ResBufCompareTest);
    CPPUNIT_TEST(values);
    CPPUNIT_TEST(texts);
    CPPUNIT_TEST_SUITE_END();

    /// Empty: equal, and the message was left alone.
    static std::string difference(sds_resbuf const& a, sds_resbuf const& b, bool ignoreCase = true)
    {
        OdString message = L"before";
        bool const isEqual = ta::areEqual(a, b, ignoreCase, message);
        CPPUNIT_ASSERT_EQUAL(isEqual, message == L"before");
        return isEqual ? "" : message.toUtf8();
    }

    void values()
    {
        struct Row
        {
            short type;
            Setter a, b;
            char const* difference;
        };
        std::int64_t const big = 1099511627776;
        Row const rows[] = {
            {5001, realOf(1.0), realOf(1.0 + 1e-11), ""},
            {5001, realOf(1.0), realOf(1.0 + 2e-10), "resbufs are not equal (group # 5001), input: 1, output: 1"},
            {5001, realOf(0.5), realOf(-2e9), "resbufs are not equal (group # 5001), input: 0.5, output: -2e+09"},
            {40, realOf(1), realOf(2), "resbufs are not equal (group # 40), input: 1, output: 2"},
            {5004, realOf(1), realOf(2), "resbufs are not equal (group # 5004), input: 1, output: 2"},
            {5003, shortOf(7), shortOf(7), ""},
            {5003, shortOf(7), shortOf(-8), "resbufs are not equal (group # 5003), input: 7, output: -8"},
            {70, shortOf(7), shortOf(8), "resbufs are not equal (group # 70), input: 7, output: 8"},
            {5010, longOf(big), longOf(big), ""},
            {5010, longOf(big), longOf(1),
             "resbufs are not equal (group # 5010), input: 1099511627776, output: 1"},
            {5031, longOf(big), longOf(-1),
             "resbufs are not equal (group # 5031), input: 1099511627776, output: -1"},
            {160, longOf(1), longOf(2), "resbufs are not equal (group # 160), input: 1, output: 2"},
            {5006, nameOf(255, 0), nameOf(255, 0), ""},
            {5006, nameOf(255, 0), nameOf(255, 1),
             "resbufs are not equal (group # 5006), input: (ff, 0), output: (ff, 1)"},
            {5007, nameOf(1, 1), nameOf(2, 1),
             "resbufs are not equal (group # 5007), input: (1, 1), output: (2, 1)"},
            {5009, pointOf(1, 2, 3), pointOf(1, 2, 3 + 1e-11), ""},
            {5009, pointOf(1, 2, 3), pointOf(1, 2, 3.5),
             "resbufs are not equal (group # 5009), input: (1, 2, 3), output: (1, 2, 3.5)"},
            {10, pointOf(1, 2, 3), pointOf(0, 2, 3),
             "resbufs are not equal (group # 10), input: (1, 2, 3), output: (0, 2, 3)"},
            // Other kinds are not looked at.
            {5014, longOf(1), longOf(2), ""},
            {5016, longOf(1), longOf(2), ""},
            {-3, longOf(1), longOf(2), ""},
        };
        for (Row const& row : rows) {
            ca::RbListPtr const a(ca::allocRb(row.type));
            ca::RbListPtr const b(ca::allocRb(short(5003))); // only the type of the first counts
            row.a(a->resval);
            row.b(b->resval);
            CPPUNIT_ASSERT_EQUAL(std::string(row.difference), difference(*a, *b));
        }
    }

    void texts()
    {
        ca::RbListPtr const abc(ca::allocRb(L"abc"));
        ca::RbListPtr const upper(ca::allocRb(L"ABC"));
        ca::RbListPtr const xyz(ca::allocRb(L"xyz"));
        ca::RbListPtr const longer(ca::allocRb(L"abcd"));
        ca::RbListPtr const none(ca::allocRb(RTNIL));
        std::string const prefix = "resbufs are not equal (group # 5005), ";

        CPPUNIT_ASSERT_EQUAL(std::string(), difference(*abc, *upper, true));
        CPPUNIT_ASSERT_EQUAL(prefix + "input: \"abc\", output: \"xyz\"", difference(*abc, *xyz, true));
        CPPUNIT_ASSERT_EQUAL(std::string(), difference(*abc, *xyz, false));
        CPPUNIT_ASSERT_EQUAL(prefix + "input: \"abc\", output: \"abcd\"", difference(*abc, *longer, false));
        for (bool const ignoreCase : {true, false})
            CPPUNIT_ASSERT_EQUAL(std::string("empty resbuf string (group # 5005), "),
                                 difference(*abc, *none, ignoreCase));
        ca::RbListPtr const group(ca::allocRb(short(1)));
        CPPUNIT_ASSERT(ca::setRbString(*group, L"a"));
        CPPUNIT_ASSERT_EQUAL(std::string("resbufs are not equal (group # 1), input: \"a\", output: \"abc\""),
                             difference(*group, *abc));
    }
};

CPPUNIT_TEST_SUITE_REGISTRATION(ResBufCompareTest);

} // namespace
