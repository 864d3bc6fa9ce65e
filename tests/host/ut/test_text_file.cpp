#include "host/ut/ut_text_file.h"

#include "tests/support/temp_folder.h"

#include <cppunit/extensions/HelperMacros.h>

#include <algorithm>

namespace {

class TextFileTest : public CppUnit::TestFixture
{
    CPPUNIT_TEST_SUITE(TextFileTest);
    CPPUNIT_TEST(encodings);
    CPPUNIT_TEST(lines);
    CPPUNIT_TEST(failedOpenKeepsTheText);
    CPPUNIT_TEST_SUITE_END();

    void encodings()
    {
        using namespace std::string_literals;
        struct Row
        {
            std::string bytes;
            wchar_t const* text;
        };
        Row const rows[] = {
            {"", L""},
            {"Li\xC3\xA9 \xF0\x9F\x98\x80", L"Li\xE9 \U0001F600"},
            {"\xEF\xBB\xBFx\xD0\x96", L"x\x0416"},
            {"\xEF\xBB\xBF", L""},
            {"\xFF\xFEx\0\x16\x04\x3D\xD8\x00\xDE"s, L"x\x0416\U0001F600"},
            {"\xFE\xFF\0x\x04\x16\xD8\x3D\xDE\x00"s, L"x\x0416\U0001F600"},
            {"\xFF\xFE", L""},
            {"\xFE\xFF\xD8\x3D\0x"s, L"\xFFFDx"},           // lead without trail
            {"\xFE\xFF\xDE\x00\xD8\x3D"s, L"\xFFFD\xFFFD"}, // trail first, lead at the end
            {"\xFF\xFEx\0y"s, L"x\xFFFD"},                  // odd length
            {"\xFFx", L"\xFFFDx"},                          // half a mark is none
        };
        TempFolder const folder;
        for (Row const& row : rows) {
            ut::TextFile file;
            CPPUNIT_ASSERT(file.open(folder.write("text", row.bytes)));
            CPPUNIT_ASSERT_EQUAL(OdString(row.text).toUtf8(), file.text().toUtf8());
        }
    }

    void lines()
    {
        struct Row
        {
            char const* content;
            std::vector<std::wstring> lines;
        };
        Row const rows[] = {
            {"", {}},
            {"\n", {L""}},
            {"a", {L"a"}},
            {"a\nb", {L"a", L"b"}},
            {"a\r\nb\r\n", {L"a", L"b"}},
            {"a\n\r\n\nb\n", {L"a", L"", L"", L"b"}},
            {"a\rb\nc\r", {L"a\rb", L"c\r"}}, // CR alone ends nothing
        };
        TempFolder const folder;
        for (Row const& row : rows) {
            ut::TextFile file;
            CPPUNIT_ASSERT(file.open(folder.write("text", row.content)));
            auto const lines = file.lines();
            CPPUNIT_ASSERT_MESSAGE(row.content, std::ranges::equal(row.lines, lines));
        }
    }

    void failedOpenKeepsTheText()
    {
        TempFolder const folder;
        ut::TextFile file;
        CPPUNIT_ASSERT(file.open(folder.write("text", "kept")));
        OdString reason;
        CPPUNIT_ASSERT(!file.open(folder / "missing", &reason));
        CPPUNIT_ASSERT_EQUAL("cannot read " + (folder / "missing").toUtf8() + ": No such file or directory",
                             reason.toUtf8());
        CPPUNIT_ASSERT(file.text() == L"kept");
    }
};
CPPUNIT_TEST_SUITE_REGISTRATION(TextFileTest);

} // namespace
