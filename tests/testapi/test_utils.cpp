#include "testapi/ta_test_cmd.h"
#include "testapi/ta_utils.h"
#include "tests/support/temp_folder.h"

#include <cppunit/extensions/HelperMacros.h>

namespace {

/// UTF-16 of ASCII text, with a byte-order mark.
std::string utf16(std::string const& ascii, bool isLittleEndian)
{
    std::string out = isLittleEndian ? "\xFF\xFE" : "\xFE\xFF";
    for (char const ch : ascii)
        out += isLittleEndian ? std::string{ch, '\0'} : std::string{'\0', ch};
    return out;
}

class UtilsTest : public CppUnit::TestFixture
{
    CPPUNIT_TEST_SUITE(UtilsTest);
    CPPUNIT_TEST(slashes);
    CPPUNIT_TEST(holderFreesEachOnce);
    CPPUNIT_TEST(linesOfOffsets);
    CPPUNIT_TEST(linesOfNodes);
    CPPUNIT_TEST(offsetsOfNodes);
    CPPUNIT_TEST_SUITE_END();

    TempFolder m_folder;

    void slashes()
    {
        wchar_t text[] = L"a\\b/c\\";
        ta::correctSlashes(text, false);
        CPPUNIT_ASSERT(std::wstring(L"a/b/c/") == text);
        ta::correctSlashes(text, true);
        CPPUNIT_ASSERT(std::wstring(L"a\\b\\c\\") == text);
        ta::correctSlashes(nullptr, true);
    }

    void holderFreesEachOnce()
    {
        OdDbSelectionSetPtr const first = OdDbSelectionSet::create();
        OdDbSelectionSetPtr const second = OdDbSelectionSet::create();
        SdsName const given = ca::nameOf(first.get());
        SdsName stored;
        {
            ta::ScopedSdsSSetsHolder holder;
            CPPUNIT_ASSERT(holder.append(given.words) == given);
            stored = holder.append(second.get());
            holder.append(second.get()); // a set may be stored twice; it has one name
            CPPUNIT_ASSERT(ca::selectionSetOf(stored.words).get() == second.get());
        }
        for (SdsName const& name : {given, stored})
            CPPUNIT_ASSERT_EQUAL(-5001, sds_ssfree(name.words));
        CPPUNIT_ASSERT_EQUAL(1, first->numRefs());
        CPPUNIT_ASSERT_EQUAL(1, second->numRefs());
    }

    void linesOfOffsets()
    {
        std::wstring const file = (m_folder / "lines.txt").str();
        m_folder.write("lines.txt", "ab\r\n\ncd\nno end");
        struct Row
        {
            long offset, line;
        };
        Row const rows[] = {{-1, 0}, {0, 1}, {3, 1}, {4, 2}, {5, 3}, {7, 3}, {8, 4}, {13, 4}, {14, 0}, {1000, 0}};
        for (Row const& row : rows)
            CPPUNIT_ASSERT_EQUAL(row.line, ta::lineNumber(file, row.offset));
        CPPUNIT_ASSERT_EQUAL(0L, ta::lineNumber(file + L"missing", 0));
        m_folder.write("lines.txt", "");
        CPPUNIT_ASSERT_EQUAL(0L, ta::lineNumber(file, 0));
    }

    void linesOfNodes()
    {
        std::string commented = "<t>\n";
        for (int i = 0; i < 20; ++i) // characters of three bytes
            commented += "<!-- \xE6\xBC\xA2\xE5\xAD\x97\xE6\xBC\xA2\xE5\xAD\x97 -->\n";
        struct Row
        {
            char const* what;
            std::string text;
            long line;
        };
        Row const rows[] = {
            {"plain", "<t>\n<op/>\n</t>\n", 2},
            {"CRLF", "<t>\r\n\r\n  <op/>\r\n</t>\r\n", 3},
            {"byte-order mark", "\xEF\xBB\xBF\n<t>\n\n<op/></t>", 4},
            {"mark, CRLF and Cyrillic", "\xEF\xBB\xBF<t>\r\n<!-- \xD0\x96\xD0\x96\xD0\x96 -->\r\n<op/></t>", 3},
            {"wide characters", commented + "<op/>\n</t>\n", 22},
            {"four bytes", "<t a='\xF0\x9F\x98\x80'>\n<!--\xF0\x9F\x98\x80-->\n<op/>\n</t>", 3},
            {"unterminated last line", "<t>\n\n<op/></t>", 3},
            {"Latin-1", "<?xml version='1.0' encoding='iso-8859-1'?>\n<t a='\xE9\xE9\xE9'>\n<op/></t>", 3},
            {"UTF-16 LE", utf16("<t>\n\n<op/>\n</t>", true), 3},
            {"UTF-16 BE", utf16("<t>\n\n<op/>\n</t>", false), 3},
        };
        std::wstring const file = (m_folder / "nodes.xml").str();
        for (Row const& row : rows) {
            m_folder.write("nodes.xml", row.text);
            pugi::xml_document document;
            CPPUNIT_ASSERT_MESSAGE(row.what, document.load_file(file.c_str()));
            pugi::xml_node const node = document.first_child().child(L"op");
            CPPUNIT_ASSERT_EQUAL_MESSAGE(row.what, row.line, ta::lineNumber(file, ta::byteOffset(file, node)));
        }
    }

    void offsetsOfNodes()
    {
        std::wstring const file = (m_folder / "nodes.xml").str();
        m_folder.write("nodes.xml", "\xEF\xBB\xBF<t>\xD0\x96<op/></t>");
        pugi::xml_document document;
        CPPUNIT_ASSERT(document.load_file(file.c_str()));
        pugi::xml_node root = document.first_child();
        CPPUNIT_ASSERT_EQUAL(4L, ta::byteOffset(file, root));
        CPPUNIT_ASSERT_EQUAL(9L, ta::byteOffset(file, root.child(L"op")));
        CPPUNIT_ASSERT_EQUAL(-1L, ta::byteOffset(file, root.append_child(L"new")));
        CPPUNIT_ASSERT_EQUAL(-1L, ta::byteOffset(file, pugi::xml_node()));
        CPPUNIT_ASSERT_EQUAL(-1L, ta::byteOffset(file + L"missing", root));
    }
};

CPPUNIT_TEST_SUITE_REGISTRATION(UtilsTest);

} // namespace
