#include "host/db/entities/od_db_line.h"
#include "host/db/od_db_database.h"
#include "host/db/records/od_db_block_table_record.h"
#include "host/xml/oa_xml.h"

#include <cppunit/extensions/HelperMacros.h>

namespace {

class FullSubentPathXmlTest : public CppUnit::TestFixture
{
    CPPUNIT_TEST_SUITE(FullSubentPathXmlTest);
    CPPUNIT_TEST(namesAndHandles);
    CPPUNIT_TEST(reasonsOfFailures);
    CPPUNIT_TEST(writesWhatItReads);
    CPPUNIT_TEST_SUITE_END();

    OdDbDatabasePtr m_database;
    OdDbDatabasePtr m_otherDatabase;
    std::map<OdString, OdDbObjectId> m_names;
    pugi::xml_document m_document;

    static OdDbObjectId addLine(OdDbDatabase& database)
    {
        auto const space = database.getModelSpaceId().open<OdDbBlockTableRecord>(OdDb::kForWrite);
        return space->appendOdDbEntity(new OdDbLine);
    }
    OdString handle(wchar_t const* name) const { return m_names.at(name).getHandle().ascii(); }
    pugi::xml_node parsed(OdString const& attributes)
    {
        CPPUNIT_ASSERT(m_document.load_string((L"<fullSubentPath " + attributes + L"/>").c_str()));
        return m_document.first_child();
    }

public:
    void setUp() override
    {
        m_database = new OdDbDatabase;
        m_otherDatabase = new OdDbDatabase;
        m_names = {{L"first", addLine(*m_database)},
                   {L"1F", addLine(*m_database)}, // looks like a handle
                   {L"erased", addLine(*m_database)},
                   {L"stranger", addLine(*m_otherDatabase)}};
        m_names.at(L"erased").safeOpenObject(OdDb::kForWrite)->erase();
    }

    void namesAndHandles()
    {
        OdDbFullSubentPath path;
        OdArray<OdString> texts;
        CPPUNIT_ASSERT(oa::read(parsed(L"entities='first'"), m_database.get(), path, nullptr, &texts, &m_names));
        CPPUNIT_ASSERT(path == OdDbFullSubentPath(m_names.at(L"first")));
        CPPUNIT_ASSERT(texts == OdArray<OdString>{L"first"});

        OdString const list = L"entities='" + handle(L"first").makeLower() + L",1F' type='edge' index=' 4 '";
        CPPUNIT_ASSERT(oa::read(parsed(list), m_database.get(), path, nullptr, &texts, &m_names));
        CPPUNIT_ASSERT(path ==
                       OdDbFullSubentPath({m_names.at(L"first"), m_names.at(L"1F")}, {OdDb::kEdgeSubentType, 4}));
        CPPUNIT_ASSERT_EQUAL(std::size_t(2), texts.size());

        CPPUNIT_ASSERT(oa::read(parsed(L"entities='" + handle(L"1F") + L"' type='none'"), m_database.get(), path));
        CPPUNIT_ASSERT(path == OdDbFullSubentPath(m_names.at(L"1F")));
    }

    void reasonsOfFailures()
    {
        struct Row
        {
            wchar_t const* attributes;
            wchar_t const* reason;
        };
        Row const rows[] = {
            {L"", L"attribute 'entities' is missing or empty"},
            {L"entities=''", L"attribute 'entities' is missing or empty"},
            {L"entities='first,'", L"an empty name among the entities"},
            {L"entities=' first'", L"' first' is neither a name nor a handle of the drawing"},
            {L"entities='First'", L"'First' is neither a name nor a handle of the drawing"},
            {L"entities='0'", L"'0' is neither a name nor a handle of the drawing"},
            {L"entities='ABCDEF'", L"'ABCDEF' is neither a name nor a handle of the drawing"},
            {L"entities='first,erased'", L"'erased' is erased"},
            {L"entities='stranger'", L"'stranger' belongs to another drawing"},
            {L"entities='first' type='Face'", L"type 'Face' is none of none, face, edge, vertex"},
            {L"entities='first' index='-1'", L"index '-1' is not a number from 0"},
            {L"entities='first' index=''", L"index '' is not a number from 0"},
        };
        OdDbFullSubentPath const before(m_names.at(L"1F"));
        for (Row const& row : rows) {
            OdDbFullSubentPath path = before;
            OdString reason;
            OdArray<OdString> texts{L"before"};
            CPPUNIT_ASSERT(!oa::read(parsed(row.attributes), m_database.get(), path, &reason, &texts, &m_names));
            CPPUNIT_ASSERT_EQUAL(OdString(row.reason).toUtf8(), reason.toUtf8());
            CPPUNIT_ASSERT(path == before && texts == OdArray<OdString>{L"before"});
        }
        OdDbFullSubentPath path;
        CPPUNIT_ASSERT(!oa::read(parsed(L"entities='first'"), nullptr, path, nullptr, nullptr, &m_names));
    }

    void writesWhatItReads()
    {
        OdDbFullSubentPath const path({m_names.at(L"first"), m_names.at(L"1F")}, {OdDb::kVertexSubentType, 2});
        pugi::xml_node const node = parsed(L"other='kept' type='face'");
        CPPUNIT_ASSERT(oa::write(node, path));
        OdDbFullSubentPath back;
        CPPUNIT_ASSERT(oa::read(node, m_database.get(), back));
        CPPUNIT_ASSERT(back == path);

        CPPUNIT_ASSERT(oa::write(node, OdDbFullSubentPath(m_names.at(L"first"))));
        CPPUNIT_ASSERT(!node.attribute(L"type") && !node.attribute(L"index") && node.attribute(L"other"));
        CPPUNIT_ASSERT(!oa::write(node, OdDbFullSubentPath()));
    }
};

CPPUNIT_TEST_SUITE_REGISTRATION(FullSubentPathXmlTest);

} // namespace
