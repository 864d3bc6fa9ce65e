#include "host/dxf/dxf_text_source.h"

#include "host/db/filer/od_db_tag_list.h"

#include <cppunit/extensions/HelperMacros.h>

#include <limits>

namespace {

class TextSourceTest : public CppUnit::TestFixture
{
    CPPUNIT_TEST_SUITE(TextSourceTest);
    CPPUNIT_TEST(values);
    CPPUNIT_TEST(texts);
    CPPUNIT_TEST(endsOfLines);
    CPPUNIT_TEST(damage);
    CPPUNIT_TEST_SUITE_END();

    static OdDbTagList tagsOf(std::string const& bytes, std::string_view codePage = {})
    {
        dxf::TextDecoder decoder(codePage);
        dxf::TextSource source(L"a.dxf", bytes, decoder);
        OdDbTagList tags;
        for (OdDbTag tag; source.next(tag);)
            tags.put(tag);
        return tags;
    }

    static OdDbTag onlyTag(OdDbTagList const& tags)
    {
        CPPUNIT_ASSERT(!tags.empty() && ++tags.begin() == tags.end());
        return *tags.begin();
    }

    void values()
    {
        struct Row
        {
            char const* bytes;
            OdDbTag tag;
        };
        Row const rows[] = {
            {"  0\nLINE\n", OdDbTag::ofText(0, "LINE")},
            {"10\n1.5\n", OdDbTag::ofReal(10, 1.5)},
            {" 10 \n  -.5E-3 \n", OdDbTag::ofReal(10, -0.0005)},
            {"40\n+7\n", OdDbTag::ofReal(40, 7.0)},
            {"40\n-0.0\n", OdDbTag::ofReal(40, -0.0)},
            {"40\n1e-400\n", OdDbTag::ofReal(40, 0.0)},
            {"40\n0.1000000000000000055511151231257827\n", OdDbTag::ofReal(40, 0.1)},
            {"70\n     7\n", OdDbTag::ofInteger(70, 7)},
            {"70\n-3 \n", OdDbTag::ofInteger(70, -3)},
            {"90\n+12\n", OdDbTag::ofInteger(90, 12)},
            {"70\n1.0\n", OdDbTag::ofInteger(70, 1)},
            {"160\n-9223372036854775808\n", OdDbTag::ofInteger(160, std::numeric_limits<std::int64_t>::min())},
            {"290\n1\n", OdDbTag::ofInteger(290, 1)},
            {"5\n1aF\n", OdDbTag::ofHandle(5, OdDbHandle(std::uint64_t{0x1AF}))},
            {"1005\nFFFFFFFFFFFFFFFF\n", OdDbTag::ofHandle(1005, OdDbHandle(~std::uint64_t{0}))},
            {"5\n_Oblique\n", OdDbTag::ofText(5, "_Oblique")}, // a name where a handle is due
            {"5\n\n", OdDbTag::ofText(5, "")},
            {"310\n00fF7e\n", OdDbTag::ofBinary(310, std::string_view("\0\xFF~", 3))},
            {"310\nABC\n", OdDbTag::ofText(310, "ABC")}, // half a byte
            {"1\n  text with blanks  \n", OdDbTag::ofText(1, "  text with blanks  ")},
            {"9999\nx\n", OdDbTag::ofText(9999, "x")},
            {"-4\n<or\n", OdDbTag::ofText(-4, "<or")},
        };
        for (Row const& row : rows) {
            OdDbTagList expected;
            expected.put(row.tag);
            CPPUNIT_ASSERT_MESSAGE(row.bytes, expected == tagsOf(row.bytes));
        }
    }

    void texts()
    {
        struct Row
        {
            char const* text;
            char const* codePage;
            char const* utf8;
        };
        Row const rows[] = {
            {"\xC3\xA4\xE2\x82\xAC\xF0\x9F\x98\x80", "ANSI_1252", "\xC3\xA4\xE2\x82\xAC\xF0\x9F\x98\x80"},
            {"\xE4\x80", "ANSI_1252", "\xC3\xA4\xE2\x82\xAC"},
            {"\xC4", "ANSI_1251", "\xD0\x94"},
            {"\x83\x65\x83\x58\x83\x67", "ANSI_932", "\xE3\x83\x86\xE3\x82\xB9\xE3\x83\x88"},
            {"\xC3\x28", "", "\xC3\x83("},         // no UTF-8: taken for western text
            {"\x81", "ANSI_1252", "\xEF\xBF\xBD"}, // means nothing there
            {"a\\U+00e4b\\U+20AC", "",
             "a\xC3\xA4"
             "b\xE2\x82\xAC"},
            {"\\U+D83D\\U+DE00", "", "\xF0\x9F\x98\x80"},
            {"\\U+D83Dx\\U+DE00", "", "\\U+D83Dx\\U+DE00"}, // halves of a pair are no characters
            {"\\U+000A", "", "\\U+000A"},                   // would break the line
            {"\\U+12 \\U+12G4 \\u+1234 \\U", "", "\\U+12 \\U+12G4 \\u+1234 \\U"},
            {"line^Jline", "", "line^Jline"},
            {"\\P{\\fArial;x}", "", "\\P{\\fArial;x}"},
        };
        for (Row const& row : rows)
            CPPUNIT_ASSERT_EQUAL(
                std::string(row.utf8),
                std::string(onlyTag(tagsOf("1\n" + std::string(row.text) + "\n", row.codePage)).text));
    }

    void endsOfLines()
    {
        OdDbTagList const expected = tagsOf("0\nA\n10\n1.0\n70\n2\n5\nF\n1\nx\n");
        for (std::string const bytes :
             {"0\r\nA\r\n10\r\n1.0\r\n70\r\n2\r\n5\r\nF\r\n1\r\nx\r\n", "0\r\nA\n10\n1.0\r\n70\n2\r\n5\r\nF\n1\nx",
              "\xEF\xBB\xBF  0\nA\n 10\n1.0\n 70\n2\n  5\nF\n  1\nx\n\r\n  \n",
              "0\rA\r10\r1.0\r70\r2\r5\rF\r1\rx\r", "0\r\r\nA\r\r\n10\n1.0\r70\n2\n5\r\r\nF\n1\nx"})
            CPPUNIT_ASSERT_MESSAGE(bytes, expected == tagsOf(bytes));
    }

    /// What a listener hears, one line for each damage; "!" for damage that breaks a record.
    static std::string damageOf(std::string const& bytes, OdDbTagList& tags)
    {
        dxf::TextDecoder decoder({});
        dxf::TextSource source(L"a.dxf", bytes, decoder);
        std::string damages;
        source.setDamageListener([&](dxf::Damage const& damage) {
            damages += (source.placeText(damage.place) + L": " + damage.reason).toUtf8();
            damages += damage.breaksRecord ? "!\n" : "\n";
        });
        for (OdDbTag tag; source.next(tag);)
            tags.put(tag);
        return damages;
    }

    void damage()
    {
        struct Row
        {
            char const* bytes;
            char const* damage;
            char const* restOfTags; ///< which tags are left, written soundly
        };
        Row const rows[] = {
            {"0\nA\nx\n", ":3: \"x\" is not a group code; the rest of the file is left out!\n", "0\nA\n"},
            {"0\nA\n1.5\nA\n0\nPOINT\n5\nA\n",
             ":3: \"1.5\" is not a group code; what stands up to line 4 is left out!\n", "0\nA\n0\nPOINT\n5\nA\n"},
            {"0\nA\n12345\n0\n0\nb\n 0 \nEND_1\n",
             ":3: \"12345\" is not a group code; what stands up to line 6 is left out!\n", "0\nA\n0\nEND_1\n"},
            {"0\nA\n\nA\n", ":3: \"\" is not a group code; the rest of the file is left out!\n", "0\nA\n"},
            {"0\nA\n10\n", ":3: The file ends behind the group code 10; it is cut off!\n", "0\nA\n"},
            {"0\nA\n10\nwide\n20\n2.0\n", ":4: \"wide\" is not a number, which group 10 needs; it is left out\n",
             "0\nA\n20\n2.0\n"},
            {"10\n1,5\n", ":2: \"1,5\" is not a number, which group 10 needs; it is left out\n", ""},
            {"10\nnan\n", ":2: \"nan\" is not a number, which group 10 needs; it is left out\n", ""},
            {"10\n1e999\n", ":2: \"1e999\" is not a number, which group 10 needs; it is left out\n", ""},
            {"10\n\n", ":2: \"\" is not a number, which group 10 needs; it is left out\n", ""},
            {"70\n1.5\n", ":2: \"1.5\" is not an integer, which group 70 needs; it is left out\n", ""},
            {"70\n99999999999999999999\n",
             ":2: \"99999999999999999999\" is not an integer, which group 70 needs; it is left out\n", ""},
        };
        for (Row const& row : rows) {
            OdDbTagList tags;
            CPPUNIT_ASSERT_EQUAL(std::string(row.damage), damageOf(row.bytes, tags));
            CPPUNIT_ASSERT_MESSAGE(row.bytes, tags == tagsOf(row.restOfTags));
        }
    }
};
CPPUNIT_TEST_SUITE_REGISTRATION(TextSourceTest);

} // namespace
