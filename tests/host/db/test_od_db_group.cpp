#include "host/db/audit/od_db_audit.h"
#include "host/db/entities/od_db_line.h"
#include "host/db/filer/od_db_record_reader.h"
#include "host/db/filer/od_db_record_writer.h"
#include "host/db/records/od_db_block_table_record.h"
#include "host/db/records/od_db_dictionary.h"
#include "host/db/records/od_db_group.h"
#include "tests/host/db/record_lines.h"
#include "tests/support/od_result_of.h"

#include <cppunit/extensions/HelperMacros.h>

namespace {

class TestOdDbGroup : public CppUnit::TestFixture
{
    CPPUNIT_TEST_SUITE(TestOdDbGroup);
    CPPUNIT_TEST(membersKeepTheirOrder);
    CPPUNIT_TEST(changesAreUndone);
    CPPUNIT_TEST(standsInFiles);
    CPPUNIT_TEST(auditsRemoveWhatDoesNotExist);
    CPPUNIT_TEST_SUITE_END();

    OdDbDatabasePtr m_database;
    OdDbGroupPtr m_group;

public:
    void setUp() override
    {
        m_database = new OdDbDatabase;
        auto const named = m_database->getNamedObjectsDictionaryId().open<OdDbDictionary>();
        auto const groups = named->getAt(L"ACAD_GROUP").open<OdDbDictionary>(OdDb::kForWrite);
        m_group = groups->setAt(L"G", new OdDbGroup).open<OdDbGroup>(OdDb::kForWrite);
        m_database->startUndoRecord();
    }
    void tearDown() override
    {
        m_group.release();
        m_database.release();
    }

private:
    OdDbObjectId line()
    {
        auto const space = m_database->getModelSpaceId().open<OdDbBlockTableRecord>(OdDb::kForWrite);
        return space->appendOdDbEntity(new OdDbLine({0, 0, 0}, {1, 0, 0}));
    }
    std::string lines() const
    {
        OdDbTagList tags;
        odDbWriteRecord(*m_group, tags);
        std::string const text = linesOf(tags);
        return text.substr(text.find("100 AcDbGroup"));
    }

    void membersKeepTheirOrder()
    {
        OdDbObjectId const a = line(), b = line(), c = line();
        for (OdDbObjectId const id : {b, a, b, c})
            m_group->append(id);
        CPPUNIT_ASSERT(m_group->allEntityIds() == (std::vector<OdDbObjectId>{b, a, c}));
        CPPUNIT_ASSERT(m_group->remove(a) && !m_group->remove(a) && !m_group->has(a));
        b.safeOpenObject(OdDb::kForWrite)->erase();
        CPPUNIT_ASSERT(m_group->allEntityIds() == std::vector<OdDbObjectId>{c});
        OdDbDatabasePtr const other(new OdDbDatabase);
        CPPUNIT_ASSERT_EQUAL(eNullObjectId, odResultOf([&] { m_group->append({}); }));
        CPPUNIT_ASSERT_EQUAL(eWrongDatabase, odResultOf([&] { m_group->append(other->getModelSpaceId()); }));
        m_group->downgradeOpen();
        CPPUNIT_ASSERT_EQUAL(eNotOpenForWrite, odResultOf([&] { m_group->append(a); }));
        CPPUNIT_ASSERT_EQUAL(eNotOpenForWrite, odResultOf([&] { m_group->setDescription(L"x"); }));
    }

    void changesAreUndone()
    {
        OdDbObjectId const a = line();
        m_group->append(a);
        m_database->startUndoRecord();
        m_group = m_group->objectId().open<OdDbGroup>(OdDb::kForWrite);
        m_group->append(line());
        m_group->setSelectable(false);
        m_group->setDescription(L"two");
        m_database->undo();
        CPPUNIT_ASSERT(m_group->allEntityIds() == std::vector<OdDbObjectId>{a});
        CPPUNIT_ASSERT(m_group->isSelectable() && m_group->description().isEmpty());
        m_database->redo();
        CPPUNIT_ASSERT_EQUAL(std::size_t(2), m_group->allEntityIds().size());
        CPPUNIT_ASSERT(!m_group->isSelectable());
    }

    void standsInFiles()
    {
        OdDbObjectId const a = line(), b = line();
        std::string const handles = "340 " + a.getHandle().ascii().toUtf8() + "\n340 ";
        m_group->append(a);
        m_group->append(b);
        m_group->setDescription(L"Walls");
        m_group->setAnonymous(true);
        std::string const head = "100 AcDbGroup\n300 Walls\n70 1\n71 1\n";
        CPPUNIT_ASSERT_EQUAL(head + handles + b.getHandle().ascii().toUtf8() + "\n", lines());
        b.safeOpenObject(OdDb::kForWrite)->erase();
        CPPUNIT_ASSERT_EQUAL(head + "340 " + a.getHandle().ascii().toUtf8() + "\n", lines());
    }

    void auditsRemoveWhatDoesNotExist()
    {
        OdDbObjectId const a = line();
        m_group->append(m_database->getOdDbObjectId(OdDbHandle(0xABC), true));
        m_group->append(a);
        OdDbAuditInfo found;
        m_group->audit(found);
        CPPUNIT_ASSERT_EQUAL(std::size_t(1), found.errorsFound());
        CPPUNIT_ASSERT(found.findings()[0].text.find(L"1 member does not exist") != OdString::npos);
        CPPUNIT_ASSERT(lines().find("340 ABC\n") != std::string::npos); // nothing is lost until then
        OdDbAuditInfo fixed(true);
        m_group->audit(fixed);
        CPPUNIT_ASSERT_EQUAL(std::size_t(1), fixed.errorsFixed());
        CPPUNIT_ASSERT(lines().find("340 ABC\n") == std::string::npos && m_group->has(a));
    }
};

CPPUNIT_TEST_SUITE_REGISTRATION(TestOdDbGroup);

} // namespace
