#include "host/db/od_db_database.h"
#include "host/db/records/od_db_dictionary.h"
#include "host/db/records/od_db_place_holder.h"
#include "tests/support/od_result_of.h"

#include <cppunit/extensions/HelperMacros.h>

namespace {

class DictionaryTest : public CppUnit::TestFixture
{
    CPPUNIT_TEST_SUITE(DictionaryTest);
    CPPUNIT_TEST(namesAreFoundInAnyCase);
    CPPUNIT_TEST(newObjectTakesThePlaceOfAnOwnedOne);
    CPPUNIT_TEST(erasedObjectsCountAsAbsent);
    CPPUNIT_TEST(entriesAreUndoneAndRedone);
    CPPUNIT_TEST(indexFollowsUndo);
    CPPUNIT_TEST(refusalsChangeNothing);
    CPPUNIT_TEST(longChainsOfOwnersAreErasedAndBroughtBack);
    CPPUNIT_TEST_SUITE_END();

public:
    void setUp() override
    {
        m_database = new OdDbDatabase;
        auto const root = m_database->getNamedObjectsDictionaryId().open<OdDbDictionary>(OdDb::kForWrite);
        OdDbObjectId const id = root->setAt(L"OURS", new OdDbDictionary);
        m_dictionary = id.open<OdDbDictionary>(OdDb::kForWrite);
        m_database->startUndoRecord();
    }

    void tearDown() override
    {
        m_dictionary.release();
        m_database.release();
    }

private:
    OdDbDatabasePtr m_database;
    OdDbDictionaryPtr m_dictionary;

    OdDbObjectId add(wchar_t const* name) { return m_dictionary->setAt(name, new OdDbPlaceHolder); }

    /// Names of the live entries, each with a blank behind it.
    std::wstring listing() const
    {
        std::wstring text;
        for (OdDbDictionary::Entry const& entry : m_dictionary->entries())
            if (!entry.id.isErased())
                text += entry.name.str() + L" ";
        return text;
    }

    void longChainsOfOwnersAreErasedAndBroughtBack()
    {
        constexpr int kLength = 100'000;
        OdDbObjectId last = m_dictionary->objectId();
        for (int i = 0; i < kLength; ++i)
            last = last.open<OdDbDictionary>(OdDb::kForWrite)->setAt(L"NEXT", new OdDbDictionary);
        m_database->startUndoRecord();
        m_dictionary->erase();
        CPPUNIT_ASSERT(last.isErased());
        m_database->undo();
        CPPUNIT_ASSERT(!last.isErased());
    }

    void namesAreFoundInAnyCase()
    {
        // More than the few entries that are searched one by one.
        for (int i = 0; i < 40; ++i)
            add(odFormat(L"Name%d", i).c_str());
        OdDbObjectId const id = m_dictionary->entries()[33].id;
        CPPUNIT_ASSERT(m_dictionary->getAt(L"nAME33") == id);
        CPPUNIT_ASSERT(!m_dictionary->has(L"Name40"));

        m_dictionary->remove(L"NAME5");
        CPPUNIT_ASSERT(!m_dictionary->has(L"Name5") && m_dictionary->getAt(L"name33") == id);
        CPPUNIT_ASSERT_EQUAL(std::size_t(39), m_dictionary->entries().size());
        m_dictionary->remove(L"NAME5");
        CPPUNIT_ASSERT_EQUAL(std::size_t(39), m_dictionary->entries().size());
    }

    void newObjectTakesThePlaceOfAnOwnedOne()
    {
        OdDbObjectId const first = add(L"A");
        OdDbObjectId const second = add(L"a");
        CPPUNIT_ASSERT(first.isErased() && m_dictionary->getAt(L"A") == second);
        CPPUNIT_ASSERT_EQUAL(std::size_t(1), m_dictionary->entries().size());
        CPPUNIT_ASSERT(m_dictionary->entries()[0].name == L"A");
        CPPUNIT_ASSERT(second.open<OdDbPlaceHolder>()->ownerId() == m_dictionary->objectId());

        // What belongs to somebody else stays.
        OdDbObjectId const layer = m_database->getLayerZeroId();
        m_dictionary->setAt(L"L", layer);
        add(L"L");
        CPPUNIT_ASSERT(!layer.isErased());

        m_database->undo();
        CPPUNIT_ASSERT(m_dictionary->entries().empty());
    }

    void erasedObjectsCountAsAbsent()
    {
        OdDbObjectId const id = add(L"A");
        id.open<OdDbPlaceHolder>(OdDb::kForWrite)->erase();
        CPPUNIT_ASSERT(!m_dictionary->has(L"A"));
        CPPUNIT_ASSERT_EQUAL(std::size_t(1), m_dictionary->entries().size());
        OdDbObjectPtr const opened = id.safeOpenObject(OdDb::kForWrite, true);
        opened->erase(false);
        CPPUNIT_ASSERT(m_dictionary->getAt(L"A") == id);
    }

    void entriesAreUndoneAndRedone()
    {
        add(L"A");
        OdDbObjectId const b = add(L"B");
        add(L"C");
        m_database->startUndoRecord();
        m_dictionary->remove(L"A");
        OdDbObjectId const other = add(L"B");
        add(L"D");
        CPPUNIT_ASSERT(listing() == L"B C D ");

        m_database->undo();
        CPPUNIT_ASSERT(listing() == L"A B C ");
        CPPUNIT_ASSERT(m_dictionary->getAt(L"B") == b && other.isErased());
        m_database->redo();
        CPPUNIT_ASSERT(listing() == L"B C D ");
        CPPUNIT_ASSERT(m_dictionary->getAt(L"B") == other && b.isErased());
        m_database->undo();
        m_database->undo();
        CPPUNIT_ASSERT(m_dictionary->entries().empty());
    }

    void indexFollowsUndo()
    {
        for (int i = 0; i < 30; ++i)
            add(odFormat(L"%d", i).c_str());
        OdDbObjectId const last = m_dictionary->getAt(L"29");
        m_database->startUndoRecord();
        m_dictionary->remove(L"3");
        // A before-image of the dictionary's own fields must not bring back an index of other entries.
        m_dictionary->setTreatElementsAsHard(true);
        add(L"new");
        CPPUNIT_ASSERT(m_dictionary->getAt(L"29") == last);
        m_database->undo();
        CPPUNIT_ASSERT(m_dictionary->getAt(L"29") == last && m_dictionary->has(L"3") &&
                       !m_dictionary->has(L"new"));
        CPPUNIT_ASSERT(!m_dictionary->isTreatElementsAsHard());
    }

    void refusalsChangeNothing()
    {
        OdDbObjectId const id = add(L"A");
        OdDbHandle const seed = m_database->handseed();
        OdDbDatabasePtr const other(new OdDbDatabase);
        CPPUNIT_ASSERT_EQUAL(eInvalidName, odResultOf([&] { add(L""); }));
        CPPUNIT_ASSERT_EQUAL(eNullObjectId, odResultOf([&] { m_dictionary->setAt(L"A", OdDbObjectId()); }));
        CPPUNIT_ASSERT_EQUAL(eWrongDatabase,
                             odResultOf([&] { m_dictionary->setAt(L"A", other->getLayerZeroId()); }));
        CPPUNIT_ASSERT_EQUAL(eAlreadyInDb,
                             odResultOf([&] { m_dictionary->setAt(L"B", id.safeOpenObject().get()); }));
        m_dictionary->downgradeOpen();
        CPPUNIT_ASSERT_EQUAL(eNotOpenForWrite, odResultOf([&] { add(L"B"); }));
        CPPUNIT_ASSERT_EQUAL(eNotOpenForWrite, odResultOf([&] { m_dictionary->remove(L"A"); }));
        CPPUNIT_ASSERT_EQUAL(eNotInDatabase,
                             odResultOf([&] { OdDbDictionaryPtr(new OdDbDictionary)->setAt(L"A", id); }));
        CPPUNIT_ASSERT(m_dictionary->getAt(L"A") == id);
        CPPUNIT_ASSERT_EQUAL(std::size_t(1), m_dictionary->entries().size());
        CPPUNIT_ASSERT(m_database->handseed() == seed);
    }
};

CPPUNIT_TEST_SUITE_REGISTRATION(DictionaryTest);

} // namespace
