#include "host/ut/ut_text.h"

#include <cppunit/extensions/HelperMacros.h>

namespace {

class TextTest : public CppUnit::TestFixture
{
    CPPUNIT_TEST_SUITE(TextTest);
    CPPUNIT_TEST(slashes);
    CPPUNIT_TEST(endingQuotes);
    CPPUNIT_TEST(namesWithoutCase);
    CPPUNIT_TEST(wildcards);
    CPPUNIT_TEST_SUITE_END();

    void slashes()
    {
        wchar_t buffer[] = L"a\\b/c\\";
        ut::correctSlashes(buffer);
        CPPUNIT_ASSERT(std::wstring(L"a/b/c/") == buffer);
        std::wstring wide = L"\\\\x";
        CPPUNIT_ASSERT(ut::correctSlashes(wide) == L"//x");
        OdString text = L"d:\\e";
        CPPUNIT_ASSERT(ut::correctSlashes(text) == L"d:/e");
        CPPUNIT_ASSERT(!ut::correctSlashes(static_cast<wchar_t*>(nullptr)));
    }

    void endingQuotes()
    {
        struct Row
        {
            wchar_t const* text;
            int position; // -1: none
        };
        Row const rows[] = {
            {L"\"abc\" d", 4},  {L"\"\"", 1},   {L"\"a\\\"b\"", 5}, {L"\"a\\\\\"b", 4}, {L"\"abc", -1},
            {L"\"abc\\\"", -1}, {L"\"a\\", -1}, {L"\"", -1},        {L"abc\"", -1},     {L"", -1},
        };
        for (Row const& row : rows) {
            wchar_t const* const found = ut::findEndingQuote(row.text);
            CPPUNIT_ASSERT_EQUAL_MESSAGE(OdString(row.text).toUtf8(), row.position,
                                         found ? static_cast<int>(found - row.text) : -1);
        }
        CPPUNIT_ASSERT(!ut::findEndingQuote(nullptr));
    }

    void namesWithoutCase()
    {
        CPPUNIT_ASSERT(ut::compareNamesLowercase(L"SetCursorPos", L"setcursorpos"));
        CPPUNIT_ASSERT(ut::compareNamesLowercase(L"\x0416\x03A9", L"\x0436\x03C9"));
        CPPUNIT_ASSERT(!ut::compareNamesLowercase(L"a", L"ab"));
        CPPUNIT_ASSERT(!ut::compareNamesLowercase(L"ab", L"ac"));
        CPPUNIT_ASSERT(ut::compareNamesLowercase(L"", L""));
    }

    void wildcards()
    {
        struct Row
        {
            wchar_t const *text, *pattern;
            bool fits;
        };
        // clang-format off
        Row const rows[] = {
            {L"line.xml",  L"*.xml",     true},
            {L"line.xml",  L"line.xml",  true},
            {L"line.xml",  L"l?ne.*",    true},
            {L"line.xml",  L"*.XML",     false},
            {L"line.xml",  L"line.xm",   false},
            {L"line.xml",  L"ine.xml",   false},
            {L"",          L"",          true},
            {L"",          L"*",         true},
            {L"",          L"?",         false},
            {L"a",         L"",          false},
            {L"a",         L"a**",       true},
            {L"aab",       L"*ab",       true},
            {L"abcabd",    L"*ab?",      true},
            {L"abcabd",    L"a*b*d",     true},
            {L"abcabd",    L"a*c*c*",    false},
            {L"a.b",       L"a?b",       true},
            {L"*",         L"?",         true},
        };
        // clang-format on
        for (Row const& row : rows)
            CPPUNIT_ASSERT_EQUAL_MESSAGE(OdString(row.text).toUtf8() + " " + OdString(row.pattern).toUtf8(),
                                         row.fits, ut::matchesWildcard(row.text, row.pattern));
        CPPUNIT_ASSERT(ut::matchesWildcard(L"LINE.Xml", L"line.*ML", ut::ECase::kInsensitive));
        std::wstring const text(3000, L'a');
        CPPUNIT_ASSERT(!ut::matchesWildcard(text, L"*a*a*a*a*a*a*a*a*a*a*b"));
    }
};
CPPUNIT_TEST_SUITE_REGISTRATION(TextTest);

} // namespace
