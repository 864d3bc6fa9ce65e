#include "host/ut/ut_number.h"

#include <cppunit/extensions/HelperMacros.h>

#include <bit>
#include <cerrno>
#include <clocale>
#include <cmath>
#include <cstdlib>
#include <limits>
#include <random>
#include <regex>
#include <string>

namespace {

std::regex const s_numberSyntax("[+-]?([0-9]+[.]?[0-9]*|[.][0-9]+)(e[+-]?[0-9]+)?");
constexpr double s_infinity = std::numeric_limits<double>::infinity();

class NumberTest : public CppUnit::TestFixture
{
    CPPUNIT_TEST_SUITE(NumberTest);
    CPPUNIT_TEST(numbers);
    CPPUNIT_TEST(notNumbers);
    CPPUNIT_TEST(outOfRange);
    CPPUNIT_TEST(parsesReals);
    CPPUNIT_TEST(randomReals);
    CPPUNIT_TEST(parsesIntegers);
    CPPUNIT_TEST(formats);
    CPPUNIT_TEST(localeDoesNotMatter);
    CPPUNIT_TEST_SUITE_END();

    void numbers()
    {
        struct Row
        {
            wchar_t const* text;
            double value;
        };
        Row const rows[] = {
            {L"0", 0},
            {L"1", 1},
            {L"+5", 5},
            {L"-5", -5},
            {L"1.", 1},
            {L".5", .5},
            {L"-.5", -.5},
            {L"+.5e1", 5},
            {L"1e3", 1000},
            {L"1E3", 1000},
            {L"1e+3", 1000},
            {L"25e-2", .25},
            {L"1.e2", 100},
            {L"007.50", 7.5},
            {L"12345678901234567890", 12345678901234567890.0},
            {L"4.9406564584124654e-324", 4.9406564584124654e-324},
            {L"0.1", 0.1},
        };
        for (Row const& row : rows) {
            double value = -1;
            std::string const text = OdString(row.text).toUtf8();
            errno = 0;
            CPPUNIT_ASSERT_MESSAGE(text, ut::isNumber(row.text, &value));
            CPPUNIT_ASSERT_EQUAL_MESSAGE(text, row.value, value);
            CPPUNIT_ASSERT_EQUAL_MESSAGE(text, 0, errno);
        }
        OdString const longOne = OdString(500, L'0') + L"1." + OdString(500, L'0') + L"5";
        double value = 0;
        CPPUNIT_ASSERT(ut::isNumber(longOne.c_str(), &value));
        CPPUNIT_ASSERT_EQUAL(1.0, value);
        CPPUNIT_ASSERT(ut::isNumber(L"1", nullptr));
    }

    void notNumbers()
    {
        for (wchar_t const* const text :
             {L"",     L"+",     L"-",   L".",   L"e",   L"e5",   L".e5",    L"1e",   L"1e+",
              L"1e5.", L"1.2.3", L"1-",  L"--1", L"+-1", L"0x1F", L"inf",    L"nan",  L"infinity",
              L" 1",   L"1 ",    L"1 2", L"1,5", L"1d5", L"1f",   L"\x0661", L"1\xD7"}) {
            double value = 42;
            CPPUNIT_ASSERT_MESSAGE(OdString(text).toUtf8(), !ut::isNumber(text, &value));
            CPPUNIT_ASSERT_EQUAL(42.0, value);
        }
        CPPUNIT_ASSERT(!ut::isNumber(nullptr, nullptr));
    }

    void outOfRange()
    {
        struct Row
        {
            OdString text;
            double value;
            int error;
        };
        OdString const zeros(400, L'0');
        Row const rows[] = {
            {L"1e999", s_infinity, ERANGE},
            {L"-1e999", -s_infinity, ERANGE},
            {L"1e99999999999999999999999", s_infinity, ERANGE},
            {L"1" + zeros, s_infinity, ERANGE},
            {L"0." + zeros + L"1e999", s_infinity, ERANGE},
            {L"1e-999", 0, 0},
            {L"-1e-99999999999999999999999", 0, 0},
            {L"0." + zeros + L"1", 0, 0},
            {L"1" + zeros + L"e-999", 0, 0},
            {L"0e99999999999999999999999", 0, 0},
            {L"1" + zeros + L"e-400", 1, 0},
            {L"0." + zeros + L"1e401", 1, 0},
        };
        for (Row const& row : rows) {
            double value = -1;
            errno = 0;
            CPPUNIT_ASSERT(ut::isNumber(row.text.c_str(), &value));
            CPPUNIT_ASSERT_EQUAL_MESSAGE(row.text.toUtf8(), row.value, value);
            CPPUNIT_ASSERT_EQUAL_MESSAGE(row.text.toUtf8(), row.error, errno);
        }
    }

    void parsesReals()
    {
        double value = 0;
        CPPUNIT_ASSERT(ut::parseReal(L" \t+1.5e1\r\n", value));
        CPPUNIT_ASSERT_EQUAL(15.0, value);
        CPPUNIT_ASSERT(ut::parseReal(" -2", value));
        CPPUNIT_ASSERT_EQUAL(-2.0, value);
        for (wchar_t const* const text : {L"", L"  ", L"1 2", L"1e999", L"inf", L"nan", L"1,5"})
            CPPUNIT_ASSERT_MESSAGE(OdString(text).toUtf8(), !ut::parseReal(text, value));
        CPPUNIT_ASSERT_EQUAL(-2.0, value);
    }

    /// Short numbers are read another way than long ones.
    void randomReals()
    {
        std::mt19937 random(7);
        std::string const characters = "0123456789012345678901234567890123456789.-+e";
        for (int i = 0; i < 200000; ++i) {
            std::string text(1 + random() % 22, ' ');
            for (char& ch : text)
                ch = characters[random() % characters.size()];
            OdString const wide = OdString::fromUtf8(text);
            double fromWide = -1;
            double fromNarrow = -1;
            double number = -1;
            bool const isNumber = ut::isNumber(wide.c_str(), &number);
            CPPUNIT_ASSERT_EQUAL_MESSAGE(text, isNumber, std::regex_match(text, s_numberSyntax));
            if (!isNumber || std::isinf(number))
                continue;
            CPPUNIT_ASSERT_MESSAGE(text, ut::parseReal(wide.str(), fromWide) && ut::parseReal(text, fromNarrow));
            double const expected = std::strtod(text.c_str(), nullptr);
            for (double const value : {number, fromWide, fromNarrow})
                CPPUNIT_ASSERT_EQUAL_MESSAGE(text, std::bit_cast<std::uint64_t>(expected),
                                             std::bit_cast<std::uint64_t>(value));
        }
    }

    void parsesIntegers()
    {
        int value = 0;
        CPPUNIT_ASSERT(ut::parseInt(L" 12 ", value));
        CPPUNIT_ASSERT_EQUAL(12, value);
        CPPUNIT_ASSERT(ut::parseInt(L"+2147483647", value));
        CPPUNIT_ASSERT_EQUAL(2147483647, value);
        CPPUNIT_ASSERT(ut::parseInt(L"-2147483648", value));
        CPPUNIT_ASSERT_EQUAL(std::numeric_limits<int>::min(), value);
        for (wchar_t const* const text : {L"", L"-", L"+", L"+-1", L"1e3", L"1.0", L"0x10", L"1 2", L"2147483648"})
            CPPUNIT_ASSERT_MESSAGE(OdString(text).toUtf8(), !ut::parseInt(text, value));
        CPPUNIT_ASSERT_EQUAL(std::numeric_limits<int>::min(), value);

        unsigned natural = 7;
        CPPUNIT_ASSERT(!ut::parseInt(L"-1", natural));
        CPPUNIT_ASSERT(ut::parseInt(L"4294967295", natural));
        CPPUNIT_ASSERT_EQUAL(4294967295U, natural);
        long long large = 0;
        CPPUNIT_ASSERT(ut::parseInt(L"-9223372036854775808", large));
        CPPUNIT_ASSERT_EQUAL(std::numeric_limits<long long>::min(), large);
    }

    void formats()
    {
        struct Row
        {
            double value;
            char const *fifteen, *shortest;
        };
        // clang-format off
        Row const rows[] = {
            {0,                   "0",                  "0"},
            {-1.5,                "-1.5",               "-1.5"},
            {0.1,                 "0.1",                "0.1"},
            {1.0 / 3,             "0.333333333333333",  "0.3333333333333333"},
            {0.1 + 0.2,           "0.3",                "0.30000000000000004"},
            {1e15,                "1e+15",              "1e+15"},
            {123456789012345,     "123456789012345",    "123456789012345"},
            {1e-5,                "1e-05",              "1e-05"},
            {-1.7976931348623157e308, "-1.79769313486232e+308", "-1.7976931348623157e+308"},
        };
        // clang-format on
        for (Row const& row : rows) {
            CPPUNIT_ASSERT_EQUAL(std::string(row.fifteen), ut::formatReal(row.value).toUtf8());
            CPPUNIT_ASSERT_EQUAL(std::string(row.shortest), ut::formatRealShortest(row.value).toUtf8());
        }
        CPPUNIT_ASSERT_EQUAL(std::string("3.1"), ut::formatReal(3.14159, 2).toUtf8());
        CPPUNIT_ASSERT_EQUAL(std::string("0.10000000000000001"), ut::formatReal(0.1, 17).toUtf8());
    }

    void localeDoesNotMatter()
    {
        std::string const previous = std::setlocale(LC_ALL, nullptr);
        // Where none of these is installed the test shows nothing, and there is nothing to show.
        for (char const* const name : {"de_DE.UTF-8", "fr_FR.UTF-8", "ru_RU.UTF-8"})
            if (std::setlocale(LC_ALL, name))
                break;
        double value = 0;
        bool const isRead = ut::parseReal(L"1.5", value);
        std::string const written = ut::formatReal(1234.5).toUtf8();
        std::setlocale(LC_ALL, previous.c_str());
        CPPUNIT_ASSERT(isRead);
        CPPUNIT_ASSERT_EQUAL(1.5, value);
        CPPUNIT_ASSERT_EQUAL(std::string("1234.5"), written);
    }
};
CPPUNIT_TEST_SUITE_REGISTRATION(NumberTest);

} // namespace
