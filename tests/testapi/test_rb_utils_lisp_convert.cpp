#include "testapi/ta_rb_utils_lisp.h"

#include "tests/support/shown_list.h"

#include <cppunit/extensions/HelperMacros.h>

#include <array>

namespace {

/// The chain of a token list as shownList() shows it, or the status as a number.
std::string converted(sds_resbuf const* list)
{
    std::string const before = shownList(list);
    sds_resbuf* result = ca::allocRb(RTNIL);
    ca::RbListPtr const replaced(result);
    int const status = ta::lisp2sds(list, &result);
    ca::RbListPtr const chain(result);
    CPPUNIT_ASSERT(status == 0 || !chain);
    CPPUNIT_ASSERT_EQUAL(before, shownList(list));
    return status == 0 ? shownList(chain.get()) : std::to_string(status);
}

ca::RbListPtr read(wchar_t const* text)
{
    sds_resbuf* list = nullptr;
    CPPUNIT_ASSERT_EQUAL_MESSAGE(OdString(text).toUtf8(), 0, ta::lspexpr2rb(text, &list));
    return ca::RbListPtr(list);
}

std::string converted(wchar_t const* text)
{
    return converted(read(text).get());
}

/// The one pair of a group code and a value given as a node.
template <class... Value>
std::string convertedPair(short code, Value... value)
{
    ca::RbListPtr const list(sds_buildlist(RTLB, RTLB, RTSHORT, code, RTDOTE, value..., RTLE, RTLE, 0));
    return converted(list.get());
}

class LispConversionTest : public CppUnit::TestFixture
{
    CPPUNIT_TEST_SUITE(LispConversionTest);
    CPPUNIT_TEST(lists);
    CPPUNIT_TEST(valuesByKind);
    CPPUNIT_TEST(valuesThatNoTextGives);
    CPPUNIT_TEST(extendedData);
    CPPUNIT_TEST(refusals);
    CPPUNIT_TEST(shortMemory);
    CPPUNIT_TEST_SUITE_END();

    struct Row
    {
        wchar_t const* text;
        char const* expected;
    };
    template <std::size_t N>
    void check(std::array<Row, N> const& rows)
    {
        for (Row const& row : rows)
            CPPUNIT_ASSERT_EQUAL_MESSAGE(OdString(row.text).toUtf8(), std::string(row.expected),
                                         converted(row.text));
    }

    // clang-format off
    void lists()
    {
        check(std::to_array<Row>({
            {L"((0 . \"LINE\") (10 1.0 2.0 0.0))", "0=<LINE> 10={1.0 2.0 0.0}"},
            {L"((-4 . \"<OR\") (62 . 5) (-4 . \"OR>\"))", "-4=<<OR> 62=5s -4=<OR>>"},
            {L"",       ""},
            {L"nil",    ""},
            {L"()",     ""},
        }));
        ca::RbListPtr const twoNil(sds_buildlist(RTNIL, RTNIL, 0));
        CPPUNIT_ASSERT_EQUAL(std::string("-1"), converted(twoNil.get()));
        CPPUNIT_ASSERT_EQUAL(-1, ta::lisp2sds(nullptr, nullptr));
    }

    void valuesByKind()
    {
        check(std::to_array<Row>({
            {L"((40 . 2.5) (40 . -3))",             "40=2.5 40=-3.0"},
            {L"((70 . 2.9) (70 . -2.9) (70 . 70000))", "70=2s 70=-2s 70=4464s"},
            {L"((70 . 65537.5))",                   "70=1s"},
            {L"((90 . 2.9) (90 . 5000000000))",     "90=2 90=5000000000"},
            {L"((160 . 7) (160 . -7.5))",           "160=7 160=-7"},
            {L"((1 . \"a\\tb\") (5 . abc))",        "1=<a\tb> 5=<ABC>"},
            {L"((11 1 2.5) (210 0 0 -1))",          "11={1.0 2.5 0.0} 210={0.0 0.0 -1.0}"},
            {L"((310 . \"0A1F\") (310 . \"99\xFF11" L"7\") (1004 . \"\") (310 . \"123\"))",
                                                    "310=[0 16] 310=[153 7] 1004=[] 310=[18]"},
            {L"((40 .5))",                          "40=5.0"},
        }));
        std::wstring const digits(260, L'1');
        std::string bytes = "310=[17";
        for (int i = 1; i < 127; ++i)
            bytes += " 17";
        CPPUNIT_ASSERT_EQUAL(bytes + "]", converted((L"((310 . \"" + digits + L"\"))").c_str()));
    }
    // clang-format on

    void valuesThatNoTextGives()
    {
        std::int64_t const name[] = {7, 8};
        CPPUNIT_ASSERT_EQUAL(std::string("330=#7:8"), convertedPair(330, RTENAME, name));
        CPPUNIT_ASSERT_EQUAL(std::string("-1=#7:8"), convertedPair(-1, RTPICKS, name));
        CPPUNIT_ASSERT_EQUAL(std::string("50=0.5"), convertedPair(50, RTANG, 0.5));
        CPPUNIT_ASSERT_EQUAL(std::string("70=1s"), convertedPair(70, RTORINT, 1.5));
        CPPUNIT_ASSERT_EQUAL(std::string("90=-3"), convertedPair(90, RTSHORT, -3));
        CPPUNIT_ASSERT_EQUAL(std::string("40=-3.0"), convertedPair(40, RTSHORT, -3));
        CPPUNIT_ASSERT_EQUAL(std::string("-1"), convertedPair(70, RTREAL, 1e10));
        CPPUNIT_ASSERT_EQUAL(std::string("-1"), convertedPair(90, RTREAL, 1e19));
        CPPUNIT_ASSERT_EQUAL(std::string("-1"), convertedPair(40, RTINT64, std::int64_t(1)));
        ca::RbListPtr const withoutText(sds_buildlist(RTLB, RTLB, RTSHORT, 1, RTDOTE, RTSTR, L"", RTLE, RTLE, 0));
        sds_resbuf& text = *withoutText->rbnext->rbnext->rbnext->rbnext;
        delete[] std::exchange(text.resval.rstring, nullptr);
        CPPUNIT_ASSERT_EQUAL(std::string("-1"), converted(withoutText.get()));
    }

    // clang-format off
    void extendedData()
    {
        check(std::to_array<Row>({
            {L"((8 . \"0\") (-3 (\"APP\" (1000 . \"x\") (1010 1 2 3)) (\"OTHER\" (1070 . 7))) (62 . 1))",
             "8=<0> 1001=<APP> 1000=<x> 1010={1.0 2.0 3.0} 1001=<OTHER> 1070=7s 62=1s"},
            {L"((-3))",                     ""},
            {L"((-3 (\"APP\")))",           "1001=<APP>"},
            {L"((-3 . \"APP\"))",           "-1"},
            {L"((-3 \"APP\"))",             "-1"},
            {L"((-3 ()))",                  "-1"},
            {L"((-3 (5)))",                 "-1"},
            {L"((-3 (\"APP\" 5)))",         "-1"},
            {L"((-3 (\"APP\" (-3))))",      "-1"},
            {L"((-3 (\"APP\" (1000 . 1))))", "-1"},
        }));
    }

    void refusals()
    {
        for (wchar_t const* const text : {
            L"a", L")", L"(a)", L"(())", L"(5)", L"((a . 1))", L"((1.0 . \"x\"))", L"((2000 . 1))", L"((-5 . 1))",
            L"((1999 . 1))", L"((80 . 1))", L"((-3000000000 . 1))", L"((1))", L"((1 .))", L"((1 \"x\"))",
            L"((1 . \"x\" 2))", L"((1 . 2))", L"((1 . nil))", L"((40 . \"x\"))", L"((40 . (1)))", L"((40 . .5))",
            L"((330 . \"1F\"))", L"((310 . 12))", L"((10))", L"((10 1))", L"((10 1 2 3 4))", L"((10 . 1))",
            L"((10 1 . 2))", L"((10 (1 2 3)))", L"((10 1 2 x))", L"((0 . \"LINE\") 5)"})
            CPPUNIT_ASSERT_EQUAL_MESSAGE(OdString(text).toUtf8(), std::string("-1"), converted(text));
        sds_resbuf* const unbalanced[] = {
            sds_buildlist(RTLB, 0),
            sds_buildlist(RTLB, RTLB, 0),
            sds_buildlist(RTLB, RTLB, RTSHORT, 1, 0),
            sds_buildlist(RTLB, RTLB, RTSHORT, 1, RTDOTE, 0),
            sds_buildlist(RTLB, RTLB, RTSHORT, 1, RTDOTE, RTSTR, L"x", 0),
            sds_buildlist(RTLB, RTLB, RTSHORT, 1, RTDOTE, RTSTR, L"x", RTLE, 0),
            sds_buildlist(RTLB, RTLB, RTSHORT, 10, RTREAL, 1.0, RTREAL, 1.0, 0),
            sds_buildlist(RTLB, RTLB, RTSHORT, -3, RTLB, 0),
            sds_buildlist(RTLB, RTLE, RTLE, 0),
        };
        for (std::size_t i = 0; i < std::size(unbalanced); ++i) {
            ca::RbListPtr const list(unbalanced[i]);
            CPPUNIT_ASSERT_EQUAL_MESSAGE("list " + std::to_string(i), std::string("-1"), converted(list.get()));
        }
    }
    // clang-format on

    void shortMemory()
    {
        ca::RbListPtr const list = read(L"((0 . \"X\") (10 1 2) (310 . \"01\") (-3 (\"A\" (1070 . 7))))");
        // A text takes two, as do bytes; a point of two numbers four for the copy, of which one stays.
        constexpr int allocations = 2 + 4 + 2 + 2 + 1;
        for (int nth = 1; nth <= allocations + 1; ++nth) {
            sds_resbuf* result = nullptr;
            int status = 0;
            {
                ca::RbAllocFailure const failure(nth);
                status = ta::lisp2sds(list.get(), &result);
            }
            ca::RbListPtr const chain(result);
            CPPUNIT_ASSERT_EQUAL(nth <= allocations ? -2 : 0, status);
            CPPUNIT_ASSERT_EQUAL(nth > allocations, chain != nullptr);
        }
    }
};

CPPUNIT_TEST_SUITE_REGISTRATION(LispConversionTest);

} // namespace
