// Objects that show themselves in a size that follows the scale of the view.
#include "tests/host/db/test_block_fixture.h"

#include "host/db/entities/od_db_attribute_definition.h"
#include "host/db/od_db_annotative_object_pe.h"
#include "host/db/records/od_db_dictionary.h"

namespace {

class AnnotativeTest : public BlockFixture
{
    CPPUNIT_TEST_SUITE(AnnotativeTest);
    CPPUNIT_TEST(classesThatHaveTheFlag);
    CPPUNIT_TEST(readsWhatFilesHold);
    CPPUNIT_TEST(setsAndTakesAway);
    CPPUNIT_TEST(leavesWhatOthersKeep);
    CPPUNIT_TEST(canBeUndone);
    CPPUNIT_TEST(refusesObjectsThatItCannotChange);
    CPPUNIT_TEST_SUITE_END();

    OdDbMTextPtr newText()
    {
        OdDbMTextPtr text(new OdDbMText);
        text->setDatabaseDefaults(*m_db);
        modelSpace()->appendOdDbEntity(text);
        text->upgradeOpen();
        return text;
    }
    static void set(OdDbObject& object, bool isAnnotative)
    {
        OdDbAnnotativeObjectPE::of(&object)->setAnnotative(&object, isAnnotative);
    }
    static OdDbDictionaryPtr scalesOf(OdDbObject const& object)
    {
        auto const extension = object.extensionDictionary().open<OdDbDictionary>();
        auto const manager = extension->getAt(L"AcDbContextDataManager").open<OdDbDictionary>();
        return manager->getAt(L"ACDB_ANNOTATIONSCALES").open<OdDbDictionary>();
    }

    void classesThatHaveTheFlag()
    {
        OdDbAttributeDefinition const definition; // by the class it derives from
        CPPUNIT_ASSERT(OdDbAnnotativeObjectPE::of(&definition) != nullptr);
        CPPUNIT_ASSERT(OdDbAnnotativeObjectPE::of(OdDbMTextPtr(new OdDbMText)) != nullptr);
        OdDbLine const line;
        CPPUNIT_ASSERT(OdDbAnnotativeObjectPE::of(&line) == nullptr);
        CPPUNIT_ASSERT(!OdDbAnnotativeObjectPE::isAnnotative(&line));
        CPPUNIT_ASSERT(!OdDbAnnotativeObjectPE::isAnnotative(nullptr));
    }

    void readsWhatFilesHold()
    {
        OdDbMText text;
        auto const give = [&text](std::int64_t flag) {
            OdDbTagList tags;
            tags.text(1001, "AcadAnnotative");
            tags.text(1000, "AnnotativeData");
            tags.text(1002, "{");
            tags.integer(1070, 1);
            tags.integer(1070, flag);
            tags.text(1002, "}");
            text.setExtendedData(tags);
        };
        CPPUNIT_ASSERT(!OdDbAnnotativeObjectPE::isAnnotative(&text));
        give(1);
        CPPUNIT_ASSERT(OdDbAnnotativeObjectPE::isAnnotative(&text));
        give(0);
        CPPUNIT_ASSERT(!OdDbAnnotativeObjectPE::isAnnotative(&text));
    }

    void setsAndTakesAway()
    {
        OdDbMTextPtr const text = newText();
        set(*text, true);
        CPPUNIT_ASSERT(OdDbAnnotativeObjectPE::isAnnotative(text));
        CPPUNIT_ASSERT(m_db->table(OdDbTableKind::kRegApp).has(L"AcadAnnotative"));
        CPPUNIT_ASSERT(scalesOf(*text)->entries().empty());
        OdDbTagList const data = text->extendedData(L"AcadAnnotative");
        CPPUNIT_ASSERT_EQUAL(std::ptrdiff_t(6), std::distance(data.begin(), data.end()));
        set(*text, false);
        CPPUNIT_ASSERT(!OdDbAnnotativeObjectPE::isAnnotative(text));
        CPPUNIT_ASSERT(text->extendedData(L"AcadAnnotative").empty());
        CPPUNIT_ASSERT(text->extensionDictionary().isNull());
        set(*text, true);
        CPPUNIT_ASSERT(!scalesOf(*text).isNull());
    }

    void leavesWhatOthersKeep()
    {
        OdDbMTextPtr const text = newText();
        OdDbObjectId const held = text->createExtensionDictionary();
        held.open<OdDbDictionary>(OdDb::kForWrite)->setAt(L"NOTES", new OdDbDictionary);
        set(*text, true);
        set(*text, false);
        CPPUNIT_ASSERT(text->extensionDictionary() == held);
        CPPUNIT_ASSERT(held.open<OdDbDictionary>()->has(L"NOTES"));
        CPPUNIT_ASSERT(!held.open<OdDbDictionary>()->has(L"AcDbContextDataManager"));
    }

    void canBeUndone()
    {
        OdDbMTextPtr const text = newText();
        m_db->startUndoRecord();
        set(*text, true);
        m_db->startUndoRecord();
        set(*text, false);
        m_db->undo();
        CPPUNIT_ASSERT(OdDbAnnotativeObjectPE::isAnnotative(text));
        CPPUNIT_ASSERT(!scalesOf(*text).isNull());
        m_db->undo();
        CPPUNIT_ASSERT(!OdDbAnnotativeObjectPE::isAnnotative(text));
        CPPUNIT_ASSERT(text->extensionDictionary().isNull());
    }

    void refusesObjectsThatItCannotChange()
    {
        OdDbMTextPtr const loose(new OdDbMText);
        CPPUNIT_ASSERT_THROW(set(*loose, true), OdError);
        OdDbMTextPtr const text = newText();
        text->downgradeOpen();
        CPPUNIT_ASSERT_THROW(set(*text, true), OdError);
        CPPUNIT_ASSERT(!m_db->table(OdDbTableKind::kRegApp).has(L"AcadAnnotative"));
    }
};
CPPUNIT_TEST_SUITE_REGISTRATION(AnnotativeTest);

} // namespace
