#include "testapi/ta_rb_utils_lisp.h"

#include "tests/fuzz/lisp_round.h"

#include <cppunit/extensions/HelperMacros.h>

#include <limits>

namespace {

ca::RbListPtr read(wchar_t const* text)
{
    sds_resbuf* list = nullptr;
    CPPUNIT_ASSERT_EQUAL_MESSAGE(OdString(text).toUtf8(), 0, ta::lspexpr2rb(text, &list));
    return ca::RbListPtr(list);
}

/// The text of a list, or the status as a number.
std::string printed(sds_resbuf const* list)
{
    OdString text = L"as before";
    int const status = ta::rb2lspexpr(list, text);
    CPPUNIT_ASSERT(status == 0 || text == L"as before");
    return status == 0 ? text.toUtf8() : std::to_string(status);
}

std::string printed(ca::RbListPtr const& list)
{
    return printed(list.get());
}

std::string printedReal(double value)
{
    return printed(ca::RbListPtr(sds_buildlist(RTREAL, value, 0)));
}

std::string printedLong(std::int64_t value)
{
    return printed(ca::RbListPtr(sds_buildlist(RTLONG, value, 0)));
}

/// A list of two texts.
std::string printedPair(wchar_t const* first, wchar_t const* second)
{
    return printed(ca::RbListPtr(sds_buildlist(RTLB, RTSTR, first, RTSTR, second, RTLE, 0)));
}

class LispPrinterTest : public CppUnit::TestFixture
{
    CPPUNIT_TEST_SUITE(LispPrinterTest);
    CPPUNIT_TEST(texts);
    CPPUNIT_TEST(textsOfShellCommands);
    CPPUNIT_TEST(numbers);
    CPPUNIT_TEST(refusesWhatTextCannotSay);
    CPPUNIT_TEST(readsAgain);
    CPPUNIT_TEST_SUITE_END();

    void texts()
    {
        CPPUNIT_ASSERT_EQUAL(std::string(), printed(nullptr));
        CPPUNIT_ASSERT_EQUAL(std::string("((0 . \"LINE\") (10 1.0 -2.5 3) nil ())"),
                             printed(read(L"( (0 . \"LINE\")(10 1. -2.5 3)NIL() )")));
        CPPUNIT_ASSERT_EQUAL(std::string("(\"QUOTE\" (\"SETQ\" \"A\" \"b\"))"), printed(read(L"'(setq a \"b\")")));
        CPPUNIT_ASSERT_EQUAL(std::string(R"("\\ \" \e\n\r\t\001\177 1")"),
                             printed(ca::RbListPtr(ca::allocRb(L"\\ \" \x1B\n\r\t\x01\x7F 1"))));
    }

    void textsOfShellCommands()
    {
        CPPUNIT_ASSERT_EQUAL(std::string(R"(("line" "a\\b"))"), printedPair(L"line", L"a\\b"));
        CPPUNIT_ASSERT_EQUAL(std::string(R"(("open" "a\b"))"), printedPair(L"open", L"a\\b"));
        CPPUNIT_ASSERT_EQUAL(std::string(R"(("open" "a\"b"))"), printedPair(L"open", L"a\\\"b"));
        CPPUNIT_ASSERT_EQUAL(std::string(R"(("open" C:\DIR\))"), printedPair(L"open", L"C:\\DIR\\"));
        for (wchar_t const* const impossible : {L"c:\\dir\\", L"C:\\MY DIR\\", L"A\"B", L".\\", L"A'\\", L"(\\"})
            CPPUNIT_ASSERT_EQUAL_MESSAGE(OdString(impossible).toUtf8(), std::string("-1"),
                                         printedPair(L"open", impossible));
    }

    void numbers()
    {
        CPPUNIT_ASSERT_EQUAL(std::string("3.0"), printedReal(3));
        CPPUNIT_ASSERT_EQUAL(std::string("-0.0"), printedReal(-0.0));
        CPPUNIT_ASSERT_EQUAL(std::string("0.1"), printedReal(0.1));
        CPPUNIT_ASSERT_EQUAL(std::string("5e-324"), printedReal(5e-324));
        CPPUNIT_ASSERT_EQUAL(std::string("-9223372036854775808"),
                             printedLong(std::numeric_limits<std::int64_t>::min()));
        CPPUNIT_ASSERT_EQUAL(std::string("9007199254740992"), printedLong(9007199254740992));
        CPPUNIT_ASSERT_EQUAL(std::string("-5"), printedLong(9007199254740993));
        CPPUNIT_ASSERT_EQUAL(std::string("-5"), printedLong(std::numeric_limits<std::int64_t>::max()));
        CPPUNIT_ASSERT_EQUAL(std::string("-5"), printedReal(std::numeric_limits<double>::infinity()));
        CPPUNIT_ASSERT_EQUAL(std::string("-5"), printedReal(std::numeric_limits<double>::quiet_NaN()));
    }

    void refusesWhatTextCannotSay()
    {
        double const point[] = {1, 2, 3};
        std::int64_t const name[] = {1, 2};
        sds_resbuf* const lists[] = {
            sds_buildlist(RTSHORT, 1, 0), sds_buildlist(RT3DPOINT, point, 0),  sds_buildlist(RTENAME, name, 0),
            sds_buildlist(40, 1.0, 0),
            ca::allocRb(short(RTSTR)), // without a text
            sds_buildlist(RTLB, 0),       sds_buildlist(RTLB, RTLB, RTLE, 0),  sds_buildlist(RTLB, RTLE, RTLE, 0),
            sds_buildlist(RTLE, RTLE, 0), sds_buildlist(RTLB, RTLE, RTNIL, 0), sds_buildlist(RTNIL, RTNIL, 0),
        };
        for (std::size_t i = 0; i < std::size(lists); ++i) {
            ca::RbListPtr const list(lists[i]);
            CPPUNIT_ASSERT_EQUAL_MESSAGE("list " + std::to_string(i), std::string("-1"), printed(list));
        }
    }

    void readsAgain()
    {
        for (wchar_t const* const text :
             {L"", L".", L")", L"'.", L"\"\"", L"(. . .5)", LR"((open c:\ '"a\b" "c\"))",
              LR"(("open" "\"" ("\101")))", LR"((open "\\" "\\" "open" "\q"))",
              L"(''() 1e-310 -5. 1e22 123456789012345678)", L"(\"\u0436\\001\" \u0436)"})
            lispRound::run(std::wstring(text));
    }
};

CPPUNIT_TEST_SUITE_REGISTRATION(LispPrinterTest);

} // namespace
