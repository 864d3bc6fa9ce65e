// Ids, handles, opening, erasing, life of objects.
#include "host/db/entities/od_db_line.h"
#include "host/db/od_db_database.h"
#include "host/db/od_db_raw_object.h"
#include "host/db/records/od_db_block_table_record.h"

#include <cppunit/extensions/HelperMacros.h>

namespace {

OdResult codeOf(auto const& action)
{
    try {
        action();
    } catch (OdError const& error) {
        return error.code();
    }
    return eOk;
}

class ObjectTest : public CppUnit::TestFixture
{
    CPPUNIT_TEST_SUITE(ObjectTest);
    CPPUNIT_TEST(readsAndWritesHandles);
    CPPUNIT_TEST(findsObjectsByHandle);
    CPPUNIT_TEST(opensAndCloses);
    CPPUNIT_TEST(refusesWrongUse);
    CPPUNIT_TEST(keepsIdsOfDrawingsApart);
    CPPUNIT_TEST(outlivesItsDrawing);
    CPPUNIT_TEST(clonesWithoutReactors);
    CPPUNIT_TEST(iteratesBothWaysOverWhatIsNotErased);
    CPPUNIT_TEST_SUITE_END();

    OdDbDatabasePtr m_database{new OdDbDatabase};
    OdDbBlockTableRecordPtr m_space{m_database->getModelSpaceId().open<OdDbBlockTableRecord>(OdDb::kForWrite)};

public:
    void readsAndWritesHandles()
    {
        struct Row
        {
            wchar_t const* text;
            std::uint64_t value;
        };
        constexpr Row rows[] = {{L"1F", 0x1F},
                                {L"1f", 0x1F},
                                {L"0001F", 0x1F},
                                {L"FFFFFFFFFFFFFFFF", ~0ull},
                                {L"", 0},
                                {L"0x1F", 0},
                                {L" 1F", 0},
                                {L"1F ", 0},
                                {L"G", 0},
                                {L"-1", 0},
                                {L"11112222333344445", 0}};
        for (Row const& row : rows)
            CPPUNIT_ASSERT_EQUAL_MESSAGE(OdString(row.text).toUtf8(), row.value,
                                         OdDbHandle(OdString(row.text)).value());
        CPPUNIT_ASSERT(OdDbHandle(0x1F2Eu).ascii() == L"1F2E");
    }

    void findsObjectsByHandle()
    {
        OdDbObjectId const line = m_space->appendOdDbEntity(new OdDbLine);
        CPPUNIT_ASSERT(line == m_database->getOdDbObjectId(line.getHandle()));
        line.safeOpenObject(OdDb::kForWrite)->erase();
        CPPUNIT_ASSERT(line == m_database->getOdDbObjectId(line.getHandle()));
        CPPUNIT_ASSERT(m_database->getOdDbObjectId(OdDbHandle()).isNull());
        CPPUNIT_ASSERT(m_database->getOdDbObjectId(OdDbHandle(0xABCDEF)).isNull());

        OdDbObjectId const promised = m_database->getOdDbObjectId(OdDbHandle(0xABCDEF), true);
        CPPUNIT_ASSERT(!promised.isNull() && !promised.isValid());
        CPPUNIT_ASSERT(promised == m_database->addOdDbObject(new OdDbRawObject("X"), {}, OdDbHandle(0xABCDEF)));
        CPPUNIT_ASSERT(promised.isValid());
        CPPUNIT_ASSERT(m_database->handseed() > OdDbHandle(0xABCDEF));
    }

    void opensAndCloses()
    {
        OdDbObjectId const id = m_space->appendOdDbEntity(new OdDbLine);
        {
            auto const line = id.open<OdDbLine>(OdDb::kForWrite);
            line->setEndPoint({1, 0, 0});
        }
        auto const line = id.open<OdDbLine>();
        CPPUNIT_ASSERT_EQUAL(eNotOpenForWrite, codeOf([&] { line->setEndPoint({2, 0, 0}); }));
        CPPUNIT_ASSERT(line->endPoint() == OdGePoint3d(1, 0, 0));
        line->upgradeOpen();
        line->setEndPoint({2, 0, 0});
        line->downgradeOpen();
        CPPUNIT_ASSERT_EQUAL(eNotOpenForWrite, codeOf([&] { line->erase(); }));
    }

    void refusesWrongUse()
    {
        OdDbObjectId const id = m_space->appendOdDbEntity(new OdDbLine);
        CPPUNIT_ASSERT_EQUAL(eNullObjectId, codeOf([] { OdDbObjectId().safeOpenObject(); }));
        CPPUNIT_ASSERT_EQUAL(eNotThatKindOfClass, codeOf([&] { id.open<OdDbBlockTableRecord>(); }));
        OdDbEntityPtr const line = id.open<OdDbEntity>(OdDb::kForWrite);
        CPPUNIT_ASSERT_EQUAL(eAlreadyInDb, codeOf([&] { m_space->appendOdDbEntity(line); }));
        line->erase();
        CPPUNIT_ASSERT_EQUAL(eWasErased, codeOf([&] { id.safeOpenObject(); }));
        CPPUNIT_ASSERT(id.openObject().isNull() && !id.openObject(OdDb::kForRead, true).isNull());
        CPPUNIT_ASSERT_EQUAL(
            eDuplicateKey, codeOf([&] { m_database->addOdDbObject(new OdDbRawObject("X"), {}, id.getHandle()); }));
        CPPUNIT_ASSERT_EQUAL(eDegenerateGeometry, codeOf([] { OdDbLinePtr(new OdDbLine)->setNormal({0, 0, 0}); }));
    }

    void keepsIdsOfDrawingsApart()
    {
        OdDbDatabasePtr const other(new OdDbDatabase);
        CPPUNIT_ASSERT(m_database->getModelSpaceId().getHandle() == other->getModelSpaceId().getHandle());
        CPPUNIT_ASSERT(!(m_database->getModelSpaceId() == other->getModelSpaceId()));
        CPPUNIT_ASSERT_EQUAL(eWrongDatabase, codeOf([&] {
                                 m_database->setCurrent(OdDbTableKind::kLayer, other->getLayerZeroId());
                             }));
    }

    void outlivesItsDrawing()
    {
        OdDbLinePtr line(new OdDbLine({0, 0, 0}, {5, 0, 0}));
        m_space->appendOdDbEntity(line);
        m_space = nullptr;
        m_database = nullptr;
        CPPUNIT_ASSERT(!line->isDBRO() && line->objectId().isNull());
        line->setEndPoint({6, 0, 0});
        CPPUNIT_ASSERT(line->endPoint() == OdGePoint3d(6, 0, 0));
    }

    void clonesWithoutReactors()
    {
        auto const line = m_space->appendOdDbEntity(new OdDbLine).open<OdDbLine>(OdDb::kForWrite);
        OdDbTagList data;
        data.text(1001, std::string_view("ACAD"));
        data.integer(1070, 5);
        line->setExtendedData(data);
        line->editExtras().reactors.push_back(m_database->getModelSpaceId());
        line->createExtensionDictionary();
        OdDbObjectPtr const copy = line->clone();
        CPPUNIT_ASSERT(!copy->isDBRO());
        CPPUNIT_ASSERT(copy->extendedData(L"ACAD") == data);
        CPPUNIT_ASSERT(copy->extras()->reactors.empty() && copy->extensionDictionary().isNull());
    }

    void iteratesBothWaysOverWhatIsNotErased()
    {
        std::vector<OdDbObjectId> ids;
        ids.reserve(5);
        for (int i = 0; i < 5; ++i)
            ids.push_back(m_space->appendOdDbEntity(new OdDbLine));
        for (std::size_t const i : {0u, 2u, 4u})
            ids[i].safeOpenObject(OdDb::kForWrite)->erase();
        std::vector<OdDbObjectId> seen;
        for (auto it = m_space->newIterator(); !it.done(); it.step())
            seen.push_back(it.objectId());
        CPPUNIT_ASSERT((seen == std::vector{ids[1], ids[3]}));
        seen.clear();
        for (auto it = m_space->newIterator(false); !it.done(); it.step(false))
            seen.push_back(it.objectId());
        CPPUNIT_ASSERT((seen == std::vector{ids[3], ids[1]}));
        seen.clear();
        for (auto it = m_space->newIterator(false, false); !it.done(); it.step(false, false))
            seen.push_back(it.objectId());
        CPPUNIT_ASSERT_EQUAL(std::size_t(5), seen.size());
    }
};
CPPUNIT_TEST_SUITE_REGISTRATION(ObjectTest);

} // namespace
