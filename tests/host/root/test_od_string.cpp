#include "host/root/od_string.h"

#include <cppunit/extensions/HelperMacros.h>

namespace {

std::string formatted(OdString const& text)
{
    return text.toUtf8();
}

class OdStringTest : public CppUnit::TestFixture
{
    CPPUNIT_TEST_SUITE(OdStringTest);
    CPPUNIT_TEST(utf8);
    CPPUNIT_TEST(invalidUtf8);
    CPPUNIT_TEST(invalidWideText);
    CPPUNIT_TEST(formats);
    CPPUNIT_TEST(formatsLongTexts);
    CPPUNIT_TEST(formatsItself);
    CPPUNIT_TEST(formatsTextThatIsNotUtf8);
    CPPUNIT_TEST(letterCase);
    CPPUNIT_TEST(parts);
    CPPUNIT_TEST(replaces);
    CPPUNIT_TEST(order);
    CPPUNIT_TEST_SUITE_END();

    void utf8()
    {
        // The first and last character of each length.
        struct Row
        {
            wchar_t wide;
            char const* narrow;
        };
        Row const rows[] = {
            {L'\x01', "\x01"},
            {L'\x7F', "\x7F"},
            {L'\x80', "\xC2\x80"},
            {L'\x7FF', "\xDF\xBF"},
            {L'\x800', "\xE0\xA0\x80"},
            {L'\xD7FF', "\xED\x9F\xBF"},
            {L'\xE000', "\xEE\x80\x80"},
            {L'\xFFFF', "\xEF\xBF\xBF"},
            {L'\x10000', "\xF0\x90\x80\x80"},
            {L'\x10FFFF', "\xF4\x8F\xBF\xBF"},
        };
        for (Row const& row : rows) {
            CPPUNIT_ASSERT_EQUAL(std::string(row.narrow), OdString(1, row.wide).toUtf8());
            CPPUNIT_ASSERT(OdString::fromUtf8(row.narrow) == OdString(1, row.wide));
        }
        CPPUNIT_ASSERT_EQUAL(std::size_t{3}, OdString::fromUtf8(std::string_view("a\0b", 3)).getLength());
        CPPUNIT_ASSERT(OdString(static_cast<wchar_t const*>(nullptr)).isEmpty());
    }

    /// One U+FFFD for each byte that does not belong to a character.
    void invalidUtf8()
    {
        struct Row
        {
            char const* narrow;
            wchar_t const* wide;
        };
        // clang-format off
        Row const rows[] = {
            {"a\x80z",             L"a\xFFFDz"},                   // continuation alone
            {"a\xC3z",             L"a\xFFFDz"},                   // continuation missing
            {"a\xE2\x82",          L"a\xFFFD\xFFFD"},              // cut off at the end
            {"\xC0\x80",           L"\xFFFD\xFFFD"},               // longer than needed
            {"\xE0\x9F\xBF",       L"\xFFFD\xFFFD\xFFFD"},
            {"\xF0\x8F\xBF\xBF",   L"\xFFFD\xFFFD\xFFFD\xFFFD"},
            {"\xED\xA0\x80",       L"\xFFFD\xFFFD\xFFFD"},         // surrogate
            {"\xF4\x90\x80\x80",   L"\xFFFD\xFFFD\xFFFD\xFFFD"},   // beyond Unicode
            {"\xFF\xFE",           L"\xFFFD\xFFFD"},
            {"\xE2\x82\xC3\xA9",   L"\xFFFD\xFFFD\xE9"},           // what follows is found again
        };
        // clang-format on
        for (Row const& row : rows)
            CPPUNIT_ASSERT_EQUAL(OdString(row.wide).toUtf8(), OdString::fromUtf8(row.narrow).toUtf8());
    }

    void invalidWideText()
    {
        std::string const replacement = "\xEF\xBF\xBD";
        for (unsigned const code : {0xD800U, 0xDFFFU, 0x110000U, 0x7FFFFFFFU, 0xFFFFFFFFU})
            CPPUNIT_ASSERT_EQUAL(replacement, OdString(1, static_cast<wchar_t>(code)).toUtf8());
    }

    void formats()
    {
        struct Row
        {
            OdString text;
            char const* expected;
        };
        // clang-format off
        Row const rows[] = {
            {odFormat(L"plain 100%%"),                        "plain 100%"},
            {odFormat(L"[%ls] [%hs]", L"\x0416", "\xC3\xA9"), "[\xD0\x96] [\xC3\xA9]"},
            {odFormat(L"%d %i %d", 5, -7, 0),                 "5 -7 0"},
            {odFormat(L"%lx %ld", 0x2AUL, -3L),               "2a -3"},
            {odFormat(L"%lld", -9223372036854775807LL - 1),   "-9223372036854775808"},
            {odFormat(L"%f %g", 0.5, 1e-7),                   "0.500000 1e-07"},
            {odFormat(L"%.*g %.*g", 15, 1.0 / 3, 3, 2.0 / 3), "0.333333333333333 0.667"},
            {odFormat(L"%ls", L""),                           ""},
        };
        // clang-format on
        for (Row const& row : rows)
            CPPUNIT_ASSERT_EQUAL(std::string(row.expected), formatted(row.text));
    }

    void formatsLongTexts()
    {
        // Around the sizes at which a buffer could be short by one.
        for (std::size_t const length : {126U, 127U, 128U, 129U, 511U, 512U, 513U, 100000U}) {
            std::wstring const text(length, L'x');
            CPPUNIT_ASSERT(odFormat(L"%ls", text.c_str()) == OdString(text));
            CPPUNIT_ASSERT(odFormat(L"<%ls>", text.c_str()) == OdString(L"<" + text + L">"));
        }
    }

    void formatsItself()
    {
        OdString text = L"inner";
        text.format(L"<%ls>", text.c_str());
        CPPUNIT_ASSERT_EQUAL(std::string("<inner>"), formatted(text));
    }

    /// Bytes of another encoding reach messages by way of %hs; the rest of the message must survive them.
    void formatsTextThatIsNotUtf8()
    {
        std::string const text = formatted(odFormat(L"before %hs after %d", "a\xFFz", 7));
        CPPUNIT_ASSERT_EQUAL(std::string("before a\xEF\xBF\xBDz after 7"), text);
    }

    void letterCase()
    {
        struct Row
        {
            wchar_t const *lower, *upper;
        };
        Row const rows[] = {
            {L"line_0-9", L"LINE_0-9"},
            {L"\xE4\xF6\xFC\xE9", L"\xC4\xD6\xDC\xC9"},                 // Latin
            {L"\x0447\x0435\x0440\x0451", L"\x0427\x0415\x0420\x0401"}, // Cyrillic
            {L"\x03B1\x03C9\x03AC", L"\x0391\x03A9\x0386"},             // Greek
            {L"\x0131", L"I"}, // a letter whose upper case has another lower case
        };
        for (Row const& row : rows) {
            CPPUNIT_ASSERT_EQUAL(OdString(row.upper).toUtf8(), OdString(row.lower).upper().toUtf8());
            CPPUNIT_ASSERT_EQUAL(OdString(row.upper).toUtf8(), OdString(row.upper).upper().toUtf8());
        }
        CPPUNIT_ASSERT_EQUAL(std::string("\xD0\xB6x\xC3\x9F"), OdString(L"\x0416X\xDF").makeLower().toUtf8());
        CPPUNIT_ASSERT(OdString(L"\x0427\x0415\x0420").equalsNoCase(L"\x0447\x0435\x0440"));
        CPPUNIT_ASSERT(!OdString(L"abc").equalsNoCase(L"abcd"));
        CPPUNIT_ASSERT(!OdString(L"abc").equalsNoCase(L"abd"));
    }

    void parts()
    {
        OdString const text = L"layer:0";
        CPPUNIT_ASSERT(text.mid(6) == L"0" && text.mid(7) == L"" && text.mid(99, 5) == L"");
        CPPUNIT_ASSERT(text.mid(2, 99) == L"yer:0" && text.left(99) == text && text.right(99) == text);
        CPPUNIT_ASSERT(text.right(1) == L"0" && text.right(0) == L"" && text.left(0) == L"");
        CPPUNIT_ASSERT(text.spanExcluding(L";:") == L"layer" && text.spanExcluding(L"#") == text);
        CPPUNIT_ASSERT(OdString(text).deleteChars(0, 6) == L"0");
        CPPUNIT_ASSERT(OdString(text).deleteChars(5, 99) == L"layer");
        CPPUNIT_ASSERT(OdString(text).deleteChars(99, 1) == text);
    }

    void replaces()
    {
        OdString text = L"aaa";
        CPPUNIT_ASSERT_EQUAL(std::size_t{1}, text.replace(L"aa", L"a")); // what was put in is not searched again
        CPPUNIT_ASSERT(text == L"aa");
        CPPUNIT_ASSERT_EQUAL(std::size_t{2}, text.replace(L"a", L"aa"));
        CPPUNIT_ASSERT(text == L"aaaa");
        CPPUNIT_ASSERT_EQUAL(std::size_t{0}, text.replace(L"", L"x"));
        CPPUNIT_ASSERT_EQUAL(std::size_t{4}, text.replace(L"a", L""));
        CPPUNIT_ASSERT(text.isEmpty());
    }

    void order()
    {
        CPPUNIT_ASSERT(OdString(L"B") < OdString(L"a"));
        CPPUNIT_ASSERT(OdString(L"a") < OdString(L"aa"));
        CPPUNIT_ASSERT(OdString(L"\xFFFF") < OdString(L"\U00010000"));
        CPPUNIT_ASSERT(std::hash<OdString>()(L"x") == std::hash<OdString>()(OdString(1, L'x')));
    }
};
CPPUNIT_TEST_SUITE_REGISTRATION(OdStringTest);

} // namespace
