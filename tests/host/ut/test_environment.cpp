#include "host/ut/ut_environment.h"

#include "tests/support/scoped_environment.h"

#include <cppunit/extensions/HelperMacros.h>

namespace {

class EnvironmentTest : public CppUnit::TestFixture
{
    CPPUNIT_TEST_SUITE(EnvironmentTest);
    CPPUNIT_TEST(expands);
    CPPUNIT_TEST(manySignsTakeLinearTime);
    CPPUNIT_TEST(buffers);
    CPPUNIT_TEST(readsVariables);
    CPPUNIT_TEST_SUITE_END();

    ScopedEnvironment m_a{"VORN_A", "alpha"};
    ScopedEnvironment m_b{"VORN_B", "b\xC3\xA9$VORN_A"};
    ScopedEnvironment m_empty{"VORN_EMPTY", ""};
    ScopedEnvironment m_unset{"VORN_UNSET", nullptr};
    ScopedEnvironment m_spaced{"VORN (x86)", "spaced"};
    ScopedEnvironment m_equals{"VORN_C", "D=e"};

    void expands()
    {
        struct Row
        {
            wchar_t const *text, *expected;
        };
        // clang-format off
        Row const rows[] = {
            {L"",                             L""},
            {L"no reference",                 L"no reference"},
            {L"$VORN_A",                      L"alpha"},
            {L"${VORN_A}",                    L"alpha"},
            {L"%VORN_A%",                     L"alpha"},
            {L"x$VORN_A/y${VORN_A}z%VORN_A%", L"xalpha/yalphazalpha"},
            {L"$VORN_AB",                     L"$VORN_AB"},
            {L"${VORN_A}B",                   L"alphaB"},
            {L"$VORN_A.dwg",                  L"alpha.dwg"},
            {L"$VORN_UNSET/a",                L"$VORN_UNSET/a"},
            {L"${VORN_UNSET}/a",              L"${VORN_UNSET}/a"},
            {L"%VORN_UNSET%/a",               L"%VORN_UNSET%/a"},
            {L"$VORN_EMPTY/a",                L"/a"},
            {L"%VORN (x86)%",                 L"spaced"},
            {L"$VORN_B",                      L"b\xE9$VORN_A"},      // a value is not expanded again
            {L"50% of %VORN_A%",              L"50% of alpha"},
            {L"%VORN_UNSET%VORN_A%",          L"%VORN_UNSETalpha"},
            {L"%$VORN_A%",                    L"%alpha%"},
            {L"${VORN_A",                     L"${VORN_A"},
            {L"${}$$ $1 %% ${ $",             L"${}$$ $1 %% ${ $"},
            {L"$$VORN_A",                     L"$alpha"},
            {L"${${VORN_A}}",                 L"${alpha}"},
            {L"%",                            L"%"},
            {L"%VORN_C=D%",                   L"%VORN_C=D%"},
            {L"$vorn_a",                      L"$vorn_a"},
        };
        // clang-format on
        for (Row const& row : rows)
            CPPUNIT_ASSERT_EQUAL(OdString(row.expected).toUtf8(), ut::expandEnvironmentStrings(row.text).toUtf8());
    }

    /// Quadratic work on these would take minutes.
    void manySignsTakeLinearTime()
    {
        OdString const dollars(1000000, L'$');
        CPPUNIT_ASSERT(ut::expandEnvironmentStrings(dollars) == dollars);
        std::wstring braces;
        for (int i = 0; i < 300000; ++i)
            braces += L"${a";
        CPPUNIT_ASSERT(ut::expandEnvironmentStrings(OdString(braces)) == OdString(braces));
    }

    void buffers()
    {
        wchar_t buffer[8] = L"before";
        CPPUNIT_ASSERT_EQUAL(std::size_t{8}, ut::expandEnvironmentStrings(L"${VORN_A}12", buffer, 8));
        CPPUNIT_ASSERT(std::wstring(L"alpha12") == buffer);
        // One too long is not written at all.
        CPPUNIT_ASSERT_EQUAL(std::size_t{9}, ut::expandEnvironmentStrings(L"${VORN_A}123", buffer, 8));
        CPPUNIT_ASSERT(std::wstring(L"alpha12") == buffer);
        CPPUNIT_ASSERT_EQUAL(std::size_t{6}, ut::expandEnvironmentStrings(L"$VORN_A", nullptr, 0));
        CPPUNIT_ASSERT_EQUAL(std::size_t{0}, ut::expandEnvironmentStrings(L"$VORN_A", nullptr, 8));
        CPPUNIT_ASSERT_EQUAL(std::size_t{0}, ut::expandEnvironmentStrings(nullptr, buffer, 8));
        CPPUNIT_ASSERT_EQUAL(std::size_t{1}, ut::expandEnvironmentStrings(L"", buffer, 8));
        CPPUNIT_ASSERT(buffer[0] == L'\0');
    }

    void readsVariables()
    {
        OdString value = L"kept";
        CPPUNIT_ASSERT(!ut::getEnvironment(L"VORN_UNSET", &value));
        CPPUNIT_ASSERT(!ut::getEnvironment(L"VORN_EMPTY", &value));
        CPPUNIT_ASSERT(!ut::getEnvironment(L"", &value));
        CPPUNIT_ASSERT(value == L"kept");
        CPPUNIT_ASSERT(ut::getEnvironment(L"VORN_B", &value));
        CPPUNIT_ASSERT(value == L"b\xE9$VORN_A");
        CPPUNIT_ASSERT(ut::getEnvironment(L"VORN_A", nullptr));
    }
};
CPPUNIT_TEST_SUITE_REGISTRATION(EnvironmentTest);

} // namespace
