#include "host/db/records/od_db_symbol_table.h"
#include "host/dxf/dxf_file.h"
#include "host/dxf/dxf_text_decoder.h"
#include "host/dxf/dxf_text_encoder.h"
#include "host/dxf/dxf_utf8.h"

#include <cppunit/extensions/HelperMacros.h>

namespace {

using dxf::ERelease;
using dxf::ETextForm;
using namespace std::string_literals;

std::string decoded(std::string const& bytes, std::string const& codePage, ETextForm form = ETextForm::kCodePage)
{
    return std::string(dxf::TextDecoder(codePage, form).decode(bytes));
}

std::string encoded(std::string const& utf8, std::string const& codePage, ERelease release = ERelease::kR2000)
{
    return std::string(dxf::TextEncoder(release, codePage).encode(utf8));
}

constexpr char const* kCodePages[] = {
    "ANSI_874",  "ANSI_932",  "ANSI_936",  "ANSI_949",  "ANSI_950",  "ANSI_1250", "ANSI_1251", "ANSI_1252",
    "ANSI_1253", "ANSI_1254", "ANSI_1255", "ANSI_1256", "ANSI_1257", "ANSI_1258", "ANSI_1361", "ANSI_1200",
    "ASCII",     "ISO8859-1", "ISO8859-2", "ISO8859-3", "ISO8859-4", "ISO8859-5", "ISO8859-6", "ISO8859-7",
    "ISO8859-8", "ISO8859-9", "DOS437",    "DOS737",    "DOS775",    "DOS850",    "DOS852",    "DOS855",
    "DOS857",    "DOS860",    "DOS861",    "DOS863",    "DOS864",    "DOS865",    "DOS866",    "DOS869",
    "DOS932",    "MAC-ROMAN", "BIG5",      "KSC5601",   "JOHAB",     "GB2312",    "UTF-8",     "",
};

class CodePagesTest : public CppUnit::TestFixture
{
    CPPUNIT_TEST_SUITE(CodePagesTest);
    CPPUNIT_TEST(bothWays);
    CPPUNIT_TEST(names);
    CPPUNIT_TEST(bytesWithoutMeaning);
    CPPUNIT_TEST(everyCharacterComesBack);
    CPPUNIT_TEST(escapesRead);
    CPPUNIT_TEST(escapesWritten);
    CPPUNIT_TEST(formOfFile);
    CPPUNIT_TEST(namesOutlastLookingAhead);
    CPPUNIT_TEST_SUITE_END();

    void bothWays()
    {
        struct Row
        {
            char const* codePage;
            char const* bytes;
            char const* utf8;
        };
        Row const rows[] = {
            {"ANSI_1252", "Ma\xDF 80 \x80", "Maß 80 €"},
            {"ANSI_1251", "\xD7\xE5\xF0\xF2\xB8\xE6", "Чертёж"},
            {"ANSI_1253", "\xD3\xF7\xDD\xE4\xE9\xEF", "Σχέδιο"},
            {"ANSI_874", "\xE1\xBB\xC5\xB9", "แปลน"},
            {"ANSI_1258", "\xD0\xFD", "Đư"},
            {"DOS850", "Ma\xE1 \x84", "Maß ä"},
            {"DOS866", "\x97\xA5\xE0\xE2\xF1\xA6", "Чертёж"},
            {"DOS864", "5%", "5%"}, // ASCII all the same
            {"MACINTOSH", "Ma\xA7 \x8A", "Maß ä"},
            {"ANSI_932", "\x90\x7D\x96\xCA \x83\x5C \xB1", "図面 ソ ｱ"}, // 5C is a backslash elsewhere
            {"ANSI_932", "\x87\x40 \x81\x60", "① ～"},
            {"ANSI_932", "\x81\xE6", "∵"}, // one of two codes for it
            {"ANSI_936", "\xCD\xBC\xD6\xBD \x80", "图纸 €"},
            {"ANSI_950", "\xB9\xCF\xAF\xC8 \xA5\x5C", "圖紙 功"},
            {"ANSI_949", "\xB5\xB5\xB8\xE9 \x8C\x63", "도면 똠"},
            {"ANSI_1361", "\x95\xA1\xA1\x65\\", "도면\\"},
        };
        for (Row const& row : rows) {
            CPPUNIT_ASSERT_EQUAL_MESSAGE(row.codePage, std::string(row.utf8), decoded(row.bytes, row.codePage));
            CPPUNIT_ASSERT_EQUAL_MESSAGE(row.codePage, std::string(row.bytes), encoded(row.utf8, row.codePage));
        }
    }

    void names()
    {
        struct Row
        {
            char const* name;
            char const* utf8; ///< of the bytes F8 and 41
        };
        Row const rows[] = {
            {"ANSI_1251", "шA"},  {"ansi_1251", "шA"}, {"Windows-1251", "шA"}, {"cp1251", "шA"},
            {"dos850", "°A"},     {"DOS-850", "°A"},   {"ibm437", "°A"},       {"ISO_8859-7", "ψA"},
            {"iso8859-7", "ψA"},  {"mac-roman", "¯A"}, {"ANSI_1252", "øA"},    {"ASCII", "øA"},
            {"", "øA"},           {"ANSI_9999", "øA"}, {"ANSI_", "øA"},        {"UTF-8", "øA"},
            {"DOS932", "\uE5E1"}, // for own characters
        };
        for (Row const& row : rows)
            CPPUNIT_ASSERT_EQUAL_MESSAGE(row.name, std::string(row.utf8),
                                         decoded("\xF8"
                                                 "A",
                                                 row.name));
        CPPUNIT_ASSERT_EQUAL(std::string("ä"), decoded("ä", "ANSI_1200"));
        CPPUNIT_ASSERT_EQUAL(std::string("a\\U+00E4"), encoded("aä", "UTF-8"));
        CPPUNIT_ASSERT_EQUAL(std::string("a\\U+00E4"), encoded("aä", "ASCII"));
    }

    /// What follows such bytes is there still.
    void bytesWithoutMeaning()
    {
        CPPUNIT_ASSERT_EQUAL(std::string("a\uFFFDb"), decoded("a\x81"
                                                              "b",
                                                              "ANSI_1252"));
        for (char const* const codePage : {"ANSI_932", "ANSI_936", "ANSI_949", "ANSI_950", "ANSI_1361"}) {
            CPPUNIT_ASSERT_EQUAL_MESSAGE(codePage, std::string("\uFFFD,\uFFFD"), decoded("\x98,\x98", codePage));
            CPPUNIT_ASSERT_EQUAL_MESSAGE(codePage, std::string("\uFFFDz"), decoded("\xFFz", codePage));
        }
        CPPUNIT_ASSERT_EQUAL(std::string("\uFFFD図"), decoded("\x81\xFF\x90\x7D", "ANSI_932").substr(3));
    }

    void everyCharacterComesBack()
    {
        std::string all;
        for (char32_t character = 1; character <= 0x10020; ++character)
            if (character < 0xD800 || character > 0xDFFF)
                dxf::appendUtf8(character, all);
        for (char const* const codePage : kCodePages)
            CPPUNIT_ASSERT_MESSAGE(codePage, all == decoded(encoded(all, codePage), codePage));
    }

    void escapesRead()
    {
        struct Row
        {
            char const* text;
            char const* utf8;
        };
        Row const rows[] = {
            {"\\U+00e4\\U+20AC", "ä€"},
            {"\\U+D83D\\U+DE00", "😀"},
            {"\\M+1907D\\M+2B9CF\\M+3B5B5\\M+495A1\\M+5CDBC", "図圖도도图"},
            {"\\M+1835C\\U+0041", "ソA"},
            {"\\M+6CDBC \\M+0CDBC \\M+5CDB \\M+5CDBG \\M+51234 \\m+5CDBC", // none of these is an escape
             "\\M+6CDBC \\M+0CDBC \\M+5CDB \\M+5CDBG \\M+51234 \\m+5CDBC"},
            {"\\M+\\U+\\M+1\\U+00E4", "\\M+\\U+\\M+1ä"},
            {"\\\\U+00E4", "\\ä"},
        };
        for (Row const& row : rows)
            CPPUNIT_ASSERT_EQUAL(std::string(row.utf8), decoded(row.text, "ANSI_1252"));
        // The second byte of a pair is no backslash.
        CPPUNIT_ASSERT_EQUAL(std::string("ソU+00E4"), decoded("\x83\\U+00E4", "ANSI_932"));
    }

    void escapesWritten()
    {
        struct Row
        {
            char const* utf8;
            char const* codePage;
            char const* bytes;
        };
        Row const rows[] = {
            {"Łódź", "ANSI_1252",
             "\\U+0141\xF3"
             "d\\U+017A"},
            {"a😀", "ANSI_1252", "a\\U+D83D\\U+DE00"},
            {"〜", "ANSI_932", "\\U+301C"}, // its look-alike has the code
            {"¥‾", "ANSI_932", "\\U+00A5\\U+203E"},
            {"₩", "ANSI_1361", "\\U+20A9"},
            {"Ã¤", "ANSI_1252", "\\U+00C3\\U+00A4"}, // the bytes would be UTF-8 for another character
            {"\xC3(", "ANSI_1252", "\\U+FFFD("},     // no UTF-8
        };
        for (Row const& row : rows)
            CPPUNIT_ASSERT_EQUAL(std::string(row.bytes), encoded(row.utf8, row.codePage));
        CPPUNIT_ASSERT_EQUAL(std::string("Łódź"), encoded("Łódź", "ANSI_1252", ERelease::kR2007));
    }

    void formOfFile()
    {
        struct Row
        {
            char const* text;
            char const* codePage;
            ETextForm form;
        };
        Row const rows[] = {
            {"1\nabc\n", "ANSI_1252", ETextForm::kCodePage},
            {"1\nMa\xDF\n", "ANSI_1252", ETextForm::kCodePage},
            {"1\nMaß\n1\nä", "ANSI_1252", ETextForm::kUtf8},
            {"1\nMaß\n1\nMa\xDF", "ANSI_1252", ETextForm::kCodePage}, // one text in the code page is enough
            {"1\n図面\n", "ANSI_932", ETextForm::kUtf8},
            {"1\n中文\n", "ANSI_936", ETextForm::kUtf8}, // would mean something in the code page too
            {"1\n\xCD\xBC\xD6\xBD\n", "ANSI_936", ETextForm::kCodePage},
            {"1\n\xC4\xA3\xB0\xE5\n", "ANSI_936", ETextForm::kCodePage},
            {"1\n\xC4\xA3\xC4\xA3\n", "ANSI_936", ETextForm::kCodePage}, // both; the declared one counts
            {"1\nä ä\n", "ANSI_932", ETextForm::kCodePage},              // half-width katakana
            {"1\nä(\n1\nдь", "ANSI_932", ETextForm::kUtf8},
            {"AutoCAD Binary DXF\r\n\x1A", "ANSI_1252", ETextForm::kCodePage},
        };
        for (Row const& row : rows)
            CPPUNIT_ASSERT_MESSAGE(row.text,
                                   row.form == dxf::textFormOf(row.text, row.codePage, ERelease::kR2000));
        CPPUNIT_ASSERT(ETextForm::kUtf8 == dxf::textFormOf("1\nMa\xDF\n", "ANSI_1252", ERelease::kR2007));
        CPPUNIT_ASSERT_EQUAL(std::string("ßä"), decoded("\xDF", "ANSI_1252", ETextForm::kUtf8) +
                                                    decoded("ä", "ANSI_1252", ETextForm::kUtf8));
    }

    /// A name that is used but not defined makes the reader look through the rest of the file for free handles.
    void namesOutlastLookingAhead()
    {
        std::string const file = "0\nSECTION\n2\nENTITIES\n0\nPOINT\n8\nW\xE4nde\n0\nTEXT\n8\n0\n1\n" +
                                 std::string(200, '\xDF') + "\n0\nENDSEC\n0\nEOF\n";
        OdDbDatabasePtr const drawing = dxf::readBytes(L"a.dxf", file);
        CPPUNIT_ASSERT(drawing->table(OdDbTableKind::kLayer).has(L"W\u00E4nde"));
    }
};
CPPUNIT_TEST_SUITE_REGISTRATION(CodePagesTest);

} // namespace
