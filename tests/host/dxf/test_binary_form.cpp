#include "host/dxf/dxf_binary_sink.h"
#include "host/dxf/dxf_binary_source.h"

#include "host/db/filer/od_db_tag_list.h"
#include "tests/host/dxf/dxf_text.h"

#include <cppunit/extensions/HelperMacros.h>

#include <limits>

namespace {

using dxf::ERelease;
using namespace std::literals;

std::string const kSentinel = "AutoCAD Binary DXF\r\n\x1A\0"s;
std::string const kOne = "\0\0\0\0\0\0\xF0\x3F"s; // 1.0

struct Read
{
    OdDbTagList tags;
    std::vector<std::string> damage; ///< "place reason", and " !" when it breaks the record
};

Read readTags(std::string const& tagBytes)
{
    std::string const bytes = kSentinel + tagBytes;
    // Exactly as large as the bytes, so that a sanitizer sees reading beyond them.
    std::vector<char> const exact(bytes.begin(), bytes.end());
    dxf::TextDecoder decoder("ANSI_1252", dxf::ETextForm::kCodePage);
    dxf::BinarySource source(L"a.dxf", {exact.data(), exact.size()}, decoder);
    Read read;
    source.setDamageListener([&read](dxf::Damage const& damage) {
        read.damage.push_back(std::to_string(damage.place - kSentinel.size()) + " " + damage.reason.toUtf8() +
                              (damage.breaksRecord ? " !" : ""));
    });
    for (OdDbTag tag; source.next(tag);)
        read.tags.put(tag);
    return read;
}

struct Written
{
    std::string bytes; ///< without the sentinel
    dxf::SaveReport report;
};

Written write(std::vector<OdDbTag> const& tags, ERelease release = ERelease::kR2000)
{
    Written written;
    dxf::StringBytes bytes(written.bytes);
    dxf::TextEncoder encoder(release, "ANSI_1252");
    dxf::BinarySink sink(bytes, encoder, release, written.report);
    for (OdDbTag const& tag : tags)
        sink.put(tag);
    sink.flush();
    CPPUNIT_ASSERT_EQUAL(kSentinel, written.bytes.substr(0, kSentinel.size()));
    written.bytes.erase(0, kSentinel.size());
    return written;
}

OdDbTagList listOf(std::vector<OdDbTag> const& tags)
{
    OdDbTagList list;
    for (OdDbTag const& tag : tags)
        list.put(tag);
    return list;
}

class BinaryFormTest : public CppUnit::TestFixture
{
    CPPUNIT_TEST_SUITE(BinaryFormTest);
    CPPUNIT_TEST(shortCodes);
    CPPUNIT_TEST(longCodes);
    CPPUNIT_TEST(widthOfCodes);
    CPPUNIT_TEST(oddValuesRead);
    CPPUNIT_TEST(damage);
    CPPUNIT_TEST(everyCut);
    CPPUNIT_TEST(longValues);
    CPPUNIT_TEST(valuesOfOtherKinds);
    CPPUNIT_TEST(valuesTooLarge);
    CPPUNIT_TEST(valuesThatAreNone);
    CPPUNIT_TEST(drawings);
    CPPUNIT_TEST_SUITE_END();

    void shortCodes()
    {
        std::vector<OdDbTag> const tags = {
            OdDbTag::ofText(0, "LINE"),       OdDbTag::ofHandle(5, OdDbHandle(0x1AFu)),
            OdDbTag::ofText(8, "Ma\xC3\x9F"), OdDbTag::ofReal(10, 1.0),
            OdDbTag::ofInteger(62, -2),       OdDbTag::ofText(1001, "ACAD"),
            OdDbTag::ofInteger(1071, 65537),  OdDbTag::ofBinary(1004, "\x7F\0"sv),
            OdDbTag::ofText(999, "note"),
        };
        std::string const bytes = "\0LINE\0\x05"s
                                  "1AF\0\x08Ma\xDF\0\x0A"s +
                                  kOne +
                                  "\x3E\xFE\xFF\xFF\xE9\x03"s
                                  "ACAD\0\xFF\x2F\x04\x01\0\x01\0\xFF\xEC\x03\x02\x7F\0"s
                                  "\xFF\xE7\x03note\0"s;
        CPPUNIT_ASSERT_EQUAL(bytes, write(tags, ERelease::kR12).bytes);
        Read const read = readTags(bytes);
        CPPUNIT_ASSERT(listOf(tags) == read.tags);
        CPPUNIT_ASSERT(read.damage.empty());
    }

    void longCodes()
    {
        std::vector<OdDbTag> const tags = {
            OdDbTag::ofText(0, "LINE"),
            OdDbTag::ofHandle(330, OdDbHandle(0x1Fu)),
            OdDbTag::ofText(6, ""),
            OdDbTag::ofReal(10, 1.0),
            OdDbTag::ofInteger(62, 256),
            OdDbTag::ofInteger(160, std::numeric_limits<std::int64_t>::min()),
            OdDbTag::ofInteger(420, 0x00FF8040),
            OdDbTag::ofInteger(290, 1),
            OdDbTag::ofBinary(310, "\0\xFF"sv),
            OdDbTag::ofBinary(310, ""),
            OdDbTag::ofText(1001, "ACAD"),
            OdDbTag::ofReal(1040, 1.0),
            OdDbTag::ofText(-4, "<or"),
        };
        std::string const bytes = "\0\0LINE\0\x4A\x01"s
                                  "1F\0\x06\0\0\x0A\0"s +
                                  kOne +
                                  "\x3E\0\0\x01\xA0\0\0\0\0\0\0\0\0\x80\xA4\x01\x40\x80\xFF\0\x22\x01\x01"s
                                  "\x36\x01\x02\0\xFF\x36\x01\0\xE9\x03"s
                                  "ACAD\0\x10\x04"s +
                                  kOne + "\xFC\xFF<or\0"s;
        CPPUNIT_ASSERT_EQUAL(bytes, write(tags).bytes);
        Read const read = readTags(bytes);
        CPPUNIT_ASSERT(listOf(tags) == read.tags);
        CPPUNIT_ASSERT(read.damage.empty());
    }

    void widthOfCodes()
    {
        std::vector<OdDbTag> const record = {OdDbTag::ofText(0, "3DFACE"), OdDbTag::ofInteger(70, 1)};
        std::vector<OdDbTag> const comment = {OdDbTag::ofText(999, "a"), OdDbTag::ofText(0, "EOF")};
        for (ERelease const release : {ERelease::kR12, ERelease::kR13}) {
            for (auto const& tags : {record, comment})
                CPPUNIT_ASSERT(listOf(tags) == readTags(write(tags, release).bytes).tags);
        }
        CPPUNIT_ASSERT(readTags("").tags.empty());
    }

    void oddValuesRead()
    {
        CPPUNIT_ASSERT(listOf({OdDbTag::ofText(0, "A"), OdDbTag::ofText(5, "_Oblique"), OdDbTag::ofHandle(5, {}),
                               OdDbTag::ofInteger(290, 255), OdDbTag::ofText(1, "a\xC3\xA4"),
                               OdDbTag::ofText(104, "x")}) == readTags("\0\0A\0\x05\0_Oblique\0\x05\0"s
                                                                       "0\0\x22\x01\xFF\x01\0"s
                                                                       "a\\U+00E4\0\x68\0x\0"s)
                                                                  .tags);
    }

    void damage()
    {
        struct Row
        {
            std::string bytes;
            std::vector<OdDbTag> tags;
            std::vector<std::string> damage;
        };
        OdDbTag const a = OdDbTag::ofText(0, "ARC"), b = OdDbTag::ofText(0, "BODY");
        std::string const infinite = "\0\0\0\0\0\0\xF0\x7F"s;
        Row const rows[] = {
            {"\0\0ARC\0\x0A\0"s + infinite + "\0\0BODY\0"s,
             {a, b},
             {"6 The value of group 10 is not a finite number"}},
            {"\0\0ARC\0\x30\x04wide\0\0ED\0\0\0BODY\0"s, {a, b}, {"6 1072 is not a group code !"}},
            {"\0\0ARC\0\xFA\xFFwide\0"s, {a}, {"6 -6 is not a group code !"}},
            {"\0\0ARC\0\0\0\0\0\0BODY\0"s, {a, b}, {"6 A record (group 0) has no name !"}},
            {"\0\0ARC\0\0\0A\x01\0\0\0BODY\0"s,
             {a, b},
             {"6 The name of a record (group 0) has control characters !"}},
            {"\0ARC\0\xFF\x30\x04x\0BODY\0"s, {a, b}, {"5 1072 is not a group code !"}},
            {"\0\0ARC\0\x0A\0\0\0\0"s, {a}, {"6 The file ends within the value of group 10; it is cut off !"}},
            {"\0\0ARC\0\x08\0layer"s, {a}, {"6 The file ends within the value of group 8; it is cut off !"}},
            {"\0\0ARC\0\x36\x01\x03"s
             "ab"s,
             {a},
             {"6 The file ends within the value of group 310; it is cut off !"}},
            {"\0\0ARC\0\x36\x01"s, {a}, {"6 The file ends within the value of group 310; it is cut off !"}},
            {"\0\0ARC\0\0\0LI"s, {a}, {"6 The file ends within the value of group 0; it is cut off"}},
            {"\0\0ARC\0\x08"s, {a}, {"6 The file ends within a group code; it is cut off !"}},
        };
        for (Row const& row : rows) {
            Read const read = readTags(row.bytes);
            CPPUNIT_ASSERT_EQUAL(row.damage.size(), read.damage.size());
            CPPUNIT_ASSERT_EQUAL(row.damage.front(), read.damage.front());
            CPPUNIT_ASSERT_MESSAGE(row.damage.front(), listOf(row.tags) == read.tags);
        }
        dxf::TextDecoder decoder({});
        dxf::BinarySource const source(L"a.dxf", kSentinel, decoder);
        CPPUNIT_ASSERT(L": byte 300" == source.placeText(300));
    }

    /// Wherever a file is cut off, its tags up to there are read, and what is missing is told.
    void everyCut()
    {
        for (ERelease const release : {ERelease::kR12, ERelease::kR2000}) {
            std::string const bytes =
                write({OdDbTag::ofText(0, "LINE"), OdDbTag::ofReal(10, 0.5), OdDbTag::ofInteger(1070, 3),
                       OdDbTag::ofBinary(1004, "abc"), OdDbTag::ofText(1005, "x")},
                      release)
                    .bytes;
            std::size_t whole = 0;
            for (std::size_t size = 3; size <= bytes.size(); ++size) {
                Read const read = readTags(bytes.substr(0, size));
                whole += read.damage.empty() ? 1 : 0;
                CPPUNIT_ASSERT(read.damage.size() <= 1);
            }
            CPPUNIT_ASSERT_EQUAL(std::size_t{5}, whole);
        }
    }

    void longValues()
    {
        std::string const text(200'000, 'x'), bytes(300, '\xAB');
        Written const written = write({OdDbTag::ofText(0, "X"), OdDbTag::ofText(1, text),
                                       OdDbTag::ofBinary(310, bytes), OdDbTag::ofText(1, "a\nb\rc\0d"sv)});
        CPPUNIT_ASSERT(
            listOf({OdDbTag::ofText(0, "X"), OdDbTag::ofText(1, text),
                    OdDbTag::ofBinary(310, bytes.substr(0, 127)), OdDbTag::ofBinary(310, bytes.substr(0, 127)),
                    OdDbTag::ofBinary(310, bytes.substr(0, 46)), OdDbTag::ofText(1, "a^Jb^Mc^@d")}) ==
            readTags(written.bytes).tags);
    }

    void valuesOfOtherKinds();
    void valuesTooLarge();
    void valuesThatAreNone();
    void drawings();
};
CPPUNIT_TEST_SUITE_REGISTRATION(BinaryFormTest);

/// They are written as if they had gone through a text file.
void BinaryFormTest::valuesOfOtherKinds()
{
    struct Row
    {
        OdDbTag tag;
        OdDbTag read;
        char const* note;
    };
    Row const rows[] = {
        {OdDbTag::ofText(5, "_Oblique"), OdDbTag::ofText(5, "_Oblique"), ""},
        {OdDbTag::ofText(330, "1F"), OdDbTag::ofHandle(330, OdDbHandle(0x1Fu)), ""},
        {OdDbTag::ofInteger(330, 12), OdDbTag::ofHandle(330, OdDbHandle(0x12u)), ""},
        {OdDbTag::ofHandle(1, OdDbHandle(0x1Fu)), OdDbTag::ofText(1, "1F"), ""},
        {OdDbTag::ofReal(1, 0.1), OdDbTag::ofText(1, "0.1"), ""},
        {OdDbTag::ofBinary(1, "\x01\xAB"), OdDbTag::ofText(1, "01AB"), ""},
        {OdDbTag::ofInteger(40, 3), OdDbTag::ofReal(40, 3.0), ""},
        {OdDbTag::ofText(40, " 1.5"), OdDbTag::ofReal(40, 1.5), ""},
        {OdDbTag::ofReal(70, -3.0), OdDbTag::ofInteger(70, -3), ""},
        {OdDbTag::ofText(70, "7"), OdDbTag::ofInteger(70, 7), ""},
        {OdDbTag::ofReal(70, 2.6), OdDbTag::ofInteger(70, 3),
         "LINE: group 70 holds fractions where binary files need integers; rounded"},
        {OdDbTag::ofText(310, "ABC"), OdDbTag::ofBinary(310, "ABC"),
         "LINE: group 310 holds text where binary files need bytes; written as the bytes of the text"},
    };
    for (Row const& row : rows) {
        OdDbTag const line = OdDbTag::ofText(0, "LINE");
        Written const written = write({line, row.tag});
        CPPUNIT_ASSERT_MESSAGE(std::to_string(row.tag.code),
                               listOf({line, row.read}) == readTags(written.bytes).tags);
        auto const& notes = written.report.notes();
        CPPUNIT_ASSERT_EQUAL(std::string(row.note), notes.empty() ? "" : notes.front().text.toUtf8());
    }
}

void BinaryFormTest::valuesTooLarge()
{
    constexpr std::int64_t kLarge = 0xC3000001;
    Written const written =
        write({OdDbTag::ofText(0, "MESH"), OdDbTag::ofHandle(5, OdDbHandle(0x2Au)), OdDbTag::ofInteger(70, 40000),
               OdDbTag::ofInteger(70, -40000), OdDbTag::ofInteger(290, -1), OdDbTag::ofInteger(290, 256),
               OdDbTag::ofInteger(91, kLarge), OdDbTag::ofInteger(91, kLarge * 2)});
    CPPUNIT_ASSERT(
        listOf({OdDbTag::ofText(0, "MESH"), OdDbTag::ofHandle(5, OdDbHandle(0x2Au)), OdDbTag::ofInteger(70, 32767),
                OdDbTag::ofInteger(70, -32768), OdDbTag::ofInteger(290, 0), OdDbTag::ofInteger(290, 255),
                OdDbTag::ofInteger(91, kLarge - 0x100000000), OdDbTag::ofInteger(91, 0x7FFFFFFF)}) ==
        readTags(written.bytes).tags);
    auto const& notes = written.report.notes();
    CPPUNIT_ASSERT_EQUAL(std::size_t{4}, notes.size());
    CPPUNIT_ASSERT_EQUAL(std::size_t{2}, notes[0].count);
    CPPUNIT_ASSERT(OdDbHandle(0x2Au) == notes[0].first);
    CPPUNIT_ASSERT_EQUAL(
        std::string("MESH: group 70 holds a number that is too large for binary files; written as the "
                    "nearest that is not"),
        notes[0].text.toUtf8());
    CPPUNIT_ASSERT_EQUAL(
        std::string("MESH: group 91 holds a number of 32 bits without sign; written with the same "
                    "bits as a negative number"),
        notes[2].text.toUtf8());
}

void BinaryFormTest::valuesThatAreNone()
{
    Written const written =
        write({OdDbTag::ofText(0, "LINE"), OdDbTag::ofText(40, "wide"), OdDbTag::ofText(70, "wide"),
               OdDbTag::ofReal(70, 1e300), OdDbTag::ofInteger(310, 5), OdDbTag::ofText(1072, "x"),
               OdDbTag::ofText(0, "EOF")});
    CPPUNIT_ASSERT_EQUAL("\0\0LINE\0\0\0EOF\0"s, written.bytes);
    CPPUNIT_ASSERT_EQUAL(std::size_t{4}, written.report.notes().size()); // group 70 twice
    for (double const value :
         {std::numeric_limits<double>::infinity(), std::numeric_limits<double>::quiet_NaN()}) {
        try {
            write({OdDbTag::ofHandle(5, OdDbHandle(0x2Au)), OdDbTag::ofReal(40, value)});
            CPPUNIT_FAIL("not refused");
        } catch (OdError const& error) {
            CPPUNIT_ASSERT_EQUAL(eOutOfRange, error.code());
            CPPUNIT_ASSERT_EQUAL(
                std::string("A value (group 40) of the object with the handle 2A is not a finite number"),
                std::string(error.what()));
        }
    }
}

/// A drawing is the same in both forms.
void BinaryFormTest::drawings()
{
    OdDbDatabasePtr const database = dxfText::read(dxfText::entities(
        "0\nLINE\n5\n2A\n8\n0\n10\n0.1\n20\n2\n30\n3\n11\n4\n21\n5\n31\n6\n1001\nAPP\n1040\n0.3\n"
        "0\nTEXT\n5\n2B\n8\n0\n10\n1\n20\n2\n30\n0\n40\n2.5\n1\nMa\xDF \\U+4E2D\n"
        "0\nUNKNOWN\n5\n2C\n310\n00FF\n290\n1\n160\n5\n420\n255\n999\nnote\n"));
    std::string const text = dxf::writeBytes(*database);
    std::string const binary = dxf::writeBytes(*database, {dxf::kCurrentRelease, true});
    CPPUNIT_ASSERT_EQUAL(kSentinel, binary.substr(0, kSentinel.size()));
    dxf::ReadReport report;
    OdDbDatabasePtr const again = dxf::readBytes(L"a.dxf", binary, &report);
    CPPUNIT_ASSERT(report.isBinary);
    CPPUNIT_ASSERT(report.notes.empty());
    CPPUNIT_ASSERT(text == dxf::writeBytes(*again));
    CPPUNIT_ASSERT(binary == dxf::writeBytes(*again, {dxf::kCurrentRelease, true}));
}

} // namespace
