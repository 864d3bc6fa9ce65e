#include "host/dxf/dxf_real_text.h"

#include <cppunit/extensions/HelperMacros.h>

#include <bit>
#include <charconv>
#include <random>
#include <string>

namespace {

std::string textOf(double value)
{
    char text[dxf::kLongestReal];
    return {text, dxf::putReal(text, value)};
}

/// The shortest fixed digits, as the standard library finds them.
std::string shortest(double value)
{
    char text[dxf::kLongestReal];
    std::string digits(text, std::to_chars(text, text + sizeof text, value, std::chars_format::fixed).ptr);
    return digits.find('.') == std::string::npos ? digits + ".0" : digits;
}

double read(std::string const& text)
{
    double value = 0;
    std::from_chars(text.data(), text.data() + text.size(), value);
    return value;
}

class RealTextTest : public CppUnit::TestFixture
{
    CPPUNIT_TEST_SUITE(RealTextTest);
    CPPUNIT_TEST(texts);
    CPPUNIT_TEST(roundedDecimalsAreTheShortest);
    CPPUNIT_TEST(everyBitComesBack);
    CPPUNIT_TEST_SUITE_END();

    void texts()
    {
        struct Row
        {
            double value;
            char const* text;
        };
        Row const rows[] = {
            {0.0, "0.0"},
            {-0.0, "-0.0"},
            {1.0, "1.0"},
            {-2.5, "-2.5"},
            {0.1 + 0.2, "0.30000000000000004"},
            {0.00001, "0.00001"},
            {0.000001, "1.0e-06"},
            {999999999.999999, "999999999.999999"},
            {1000000000.5, "1000000000.5"},
            {123456789012345.0, "123456789012345.0"},
            {1e15, "1.0e+15"},
            {-1.5e300, "-1.5e+300"},
            {5e-324, "5.0e-324"},
        };
        for (Row const& row : rows)
            CPPUNIT_ASSERT_EQUAL(std::string(row.text), textOf(row.value));
    }

    void roundedDecimalsAreTheShortest()
    {
        std::mt19937_64 random(7);
        std::uniform_int_distribution<long long> digits(-999'999'999'999'999, 999'999'999'999'999);
        double const scales[] = {1e-1, 1e1, 1e2, 1e3, 1e5, 1e6, 1e7, 1e8};
        for (int i = 0; i < 100'000; ++i) {
            double const value = static_cast<double>(digits(random) >> (i % 50)) / scales[i % 8];
            if (value != 0 && std::abs(value) >= 1e-5 && std::abs(value) < 1e15)
                CPPUNIT_ASSERT_EQUAL(shortest(value), textOf(value));
        }
    }

    void everyBitComesBack()
    {
        std::mt19937_64 random(8);
        for (int i = 0; i < 100'000; ++i) {
            auto const value = std::bit_cast<double>(static_cast<std::uint64_t>(random()));
            if (std::isfinite(value))
                CPPUNIT_ASSERT(std::bit_cast<std::uint64_t>(read(textOf(value))) ==
                               std::bit_cast<std::uint64_t>(value));
        }
    }
};
CPPUNIT_TEST_SUITE_REGISTRATION(RealTextTest);

} // namespace
