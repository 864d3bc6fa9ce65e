#include "tests/testapi/cmd_test_run.h"

#include <cppunit/extensions/HelperMacros.h>

namespace {

OdDbObjectId addLine(OdDbDatabase& database)
{
    auto const space = database.getModelSpaceId().open<OdDbBlockTableRecord>(OdDb::kForWrite);
    return space->appendOdDbEntity(new OdDbLine);
}

class CmdNamesTest : public CppUnit::TestFixture
{
    CPPUNIT_TEST_SUITE(CmdNamesTest);
    CPPUNIT_TEST(namesOfLists);
    CPPUNIT_TEST(namesGoToTheLastEntities);
    CPPUNIT_TEST(namesAndHandles);
    CPPUNIT_TEST(namesOutliveTheirDrawing);
    CPPUNIT_TEST(referenceHandles);
    CPPUNIT_TEST(withoutDrawing);
    CPPUNIT_TEST_SUITE_END();

    ta::TestCmdArg m_test{L"names", L"unused.xml"};
    std::vector<OdDbObjectId> m_lines;

    std::string textOf(OdString const& name) const
    {
        OdDbObjectId const id = m_test.getObjectId(name);
        for (std::size_t i = 0; i < m_lines.size(); ++i)
            if (m_lines[i] == id)
                return std::to_string(i);
        return "?";
    }

public:
    void setUp() override
    {
        CPPUNIT_ASSERT(ca::app()->openFile());
        for (int i = 0; i < 4; ++i)
            m_lines.push_back(addLine(*ca::curDb()));
        m_lines[2].safeOpenObject(OdDb::kForWrite)->erase();
    }
    void tearDown() override { m_test.tearDown(); }

    void namesOfLists()
    {
        struct Row
        {
            wchar_t const* list;
            char const* result; // names with "+" between them, or the failure
        };
        Row const rows[] = {
            {L"a,b", "a+b"},
            {L"a,", "a"},
            {L"a", "a"},
            {L" a,a, b ", " a+a+ b "},
            {L"a,A", "a+A"},
            {L"", "assertion failed|Expression: !names.empty()|Entity list cannot be empty"},
            {L",", "assertion failed|Expression: !token.isEmpty()|Entity name cannot be empty"},
            {L",a", "assertion failed|Expression: !token.isEmpty()|Entity name cannot be empty"},
            {L"a,,b", "assertion failed|Expression: !token.isEmpty()|Entity name cannot be empty"},
            {L"a,b,,", "assertion failed|Expression: !token.isEmpty()|Entity name cannot be empty"},
            {L"a,b,a", "assertion failed|Expression: !names.contains(token)|Entity name cannot be duplicated"},
        };
        for (Row const& row : rows) {
            std::string result;
            std::string const failure = failureOf([&] {
                for (OdString const& name : ta::TestCmdArg::tokenizeNamesString(row.list))
                    result += (result.empty() ? "" : "+") + name.toUtf8();
            });
            CPPUNIT_ASSERT_EQUAL(std::string(row.result), failure.empty() ? result : failure);
        }
    }

    void namesGoToTheLastEntities()
    {
        m_test.nameAddedEntities(L"a,b"); // the third line is erased
        CPPUNIT_ASSERT_EQUAL(std::string("1"), textOf(L"a"));
        CPPUNIT_ASSERT_EQUAL(std::string("3"), textOf(L"b"));
        m_test.nameAddedEntities(OdArray<OdString>{L"c", L"a", L"d"});
        CPPUNIT_ASSERT_EQUAL(std::string("0"), textOf(L"c"));
        CPPUNIT_ASSERT_EQUAL(std::string("1"), textOf(L"a"));
        m_test.nameAddedEntities(L"a");
        CPPUNIT_ASSERT_EQUAL(std::string("3"), textOf(L"a"));

        CPPUNIT_ASSERT_EQUAL(
            std::string("assertion failed|Expression: !pIt->done()|Entities in DWG do not match with "
                        "entity list provided"),
            failureOf([&] { m_test.nameAddedEntities(L"w,x,y,z"); }));
        // Those that were bound before the failure stay.
        CPPUNIT_ASSERT_EQUAL(std::string("0"), textOf(L"x"));
        CPPUNIT_ASSERT(!m_test.namedObjectIds().contains(L"w"));
        m_test.tearDown();
        CPPUNIT_ASSERT(m_test.namedObjectIds().empty());
    }

    void namesAndHandles()
    {
        OdString const first = m_lines[0].getHandle().ascii();
        CPPUNIT_ASSERT_EQUAL(std::string("0"), textOf(first));
        CPPUNIT_ASSERT_EQUAL(std::string("2"), textOf(m_lines[2].getHandle().ascii())); // erased
        m_test.nameAddedEntities(first);
        CPPUNIT_ASSERT_EQUAL(std::string("3"), textOf(first)); // a name, although it looks like a handle

        std::string const begin = "assertion failed|Expression: id.isValid()|Invalid handle: ";
        for (wchar_t const* const unknown : {L"FFFFFF", L"a name", L"0", L""})
            CPPUNIT_ASSERT_EQUAL(begin + odWideToUtf8(unknown), failureOf([&] { m_test.getObjectId(unknown); }));

        pugi::xml_document document;
        pugi::xml_node node = document.append_child(L"op");
        CPPUNIT_ASSERT_EQUAL(std::string("assertion failed|Expression: oa::readAttr(node, handleAttr, handle)"),
                             failureOf([&] { m_test.getObjectId(node, L"h"); }));
        node.append_attribute(L"h") = m_lines[1].getHandle().ascii().c_str();
        CPPUNIT_ASSERT(m_test.getObjectId(node, L"h") == m_lines[1]);
    }

    void namesOutliveTheirDrawing()
    {
        m_test.nameAddedEntities(L"a");
        ca::curDoc()->close();
        OdDbObjectId const id = m_test.getObjectId(L"a");
        CPPUNIT_ASSERT(id.isValid() && !id.isErased());
    }

    void referenceHandles()
    {
        OdDbDatabasePtr const reference = new OdDbDatabase;
        OdDbObjectId const line = addLine(*reference);
        OdString const handle = line.getHandle().ascii();
        pugi::xml_document document;
        pugi::xml_node node = document.append_child(L"op");
        ta::TestCmdArg::ReferenceContext const context(node, reference.get());
        CPPUNIT_ASSERT(context.node() == node && context.referenceDb() == reference.get());
        CPPUNIT_ASSERT(context.getObjectId(handle) == line);
        CPPUNIT_ASSERT(context.getObjectId(L"REF_" + handle) == line);
        node.append_attribute(L"h") = handle.c_str();
        CPPUNIT_ASSERT(context.getObjectId(node, L"h") == line);

        m_test.nameAddedEntities(L"a_name");
        struct Row
        {
            wchar_t const* handle;
            char const* shown;
        };
        for (Row const& row : {Row{L"a_name", "a_name"}, Row{L"REF_FFFFFF", "FFFFFF"}, Row{L"ref_1F", "ref_1F"}})
            CPPUNIT_ASSERT_EQUAL(std::string("assertion failed|Expression: id.isValid()|Invalid handle: ") +
                                     row.shown,
                                 failureOf([&] { context.getObjectId(row.handle); }));
        CPPUNIT_ASSERT_EQUAL(std::string("assertion failed|Expression: oa::readAttr(node, handleAttr, handle)"),
                             failureOf([&] { context.getObjectId(node, L"other"); }));
        ta::TestCmdArg::ReferenceContext const none(node, nullptr);
        CPPUNIT_ASSERT_EQUAL(std::string("assertion failed|Expression: m_referenceDb"),
                             failureOf([&] { none.getObjectId(handle); }));
    }

    void withoutDrawing()
    {
        ca::curDoc()->close();
        CPPUNIT_ASSERT_EQUAL(std::string("OdError|No current document"),
                             failureOf([&] { m_test.getObjectId(L"1F"); }));
        CPPUNIT_ASSERT_EQUAL(std::string("OdError|No current document"),
                             failureOf([&] { m_test.nameAddedEntities(L"a"); }));
    }
};

CPPUNIT_TEST_SUITE_REGISTRATION(CmdNamesTest);

} // namespace
