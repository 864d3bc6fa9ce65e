#include "host/db/od_db_database.h"
#include "host/db/records/od_db_block_table_record.h"
#include "host/db/records/od_db_dictionary.h"
#include "host/db/records/od_db_dim_style_table_record.h"
#include "host/db/records/od_db_layer_table_record.h"
#include "host/db/records/od_db_layout.h"
#include "host/db/records/od_db_table_kinds.h"

#include <cppunit/extensions/HelperMacros.h>

namespace {

class TemplateTest : public CppUnit::TestFixture
{
    CPPUNIT_TEST_SUITE(TemplateTest);
    CPPUNIT_TEST(newDrawingHasItsRecords);
    CPPUNIT_TEST(spacesAndLayoutsKnowEachOther);
    CPPUNIT_TEST(dictionariesOwnTheirObjects);
    CPPUNIT_TEST(dimensionHeaderAgreesWithTheStyle);
    CPPUNIT_TEST(newDrawingIsUnchanged);
    CPPUNIT_TEST(drawingsDoNotShareHeaders);
    CPPUNIT_TEST(completingAgainAddsNothing);
    CPPUNIT_TEST(whatAFileHadStays);
    CPPUNIT_TEST_SUITE_END();

    static OdDbLayoutPtr layout(OdDbDatabase const& database, wchar_t const* name)
    {
        auto const root = database.getNamedObjectsDictionaryId().open<OdDbDictionary>();
        return root->getAt(L"ACAD_LAYOUT").open<OdDbDictionary>()->getAt(name).open<OdDbLayout>();
    }

    void newDrawingHasItsRecords()
    {
        static constexpr std::pair<OdDbTableKind, wchar_t const*> kRecords[] = {
            {OdDbTableKind::kLayer, L"0"},
            {OdDbTableKind::kLinetype, L"ByBlock"},
            {OdDbTableKind::kLinetype, L"ByLayer"},
            {OdDbTableKind::kLinetype, L"Continuous"},
            {OdDbTableKind::kTextStyle, L"Standard"},
            {OdDbTableKind::kDimStyle, L"Standard"},
            {OdDbTableKind::kRegApp, L"ACAD"},
            {OdDbTableKind::kViewport, L"*Active"},
            {OdDbTableKind::kBlock, L"*Model_Space"},
            {OdDbTableKind::kBlock, L"*Paper_Space"},
        };
        OdDbDatabasePtr const database(new OdDbDatabase);
        std::size_t count = 0;
        for (OdDbTableKindInfo const& info : odDbTableKinds()) {
            OdDbSymbolTable const& table = database->table(info.kind);
            CPPUNIT_ASSERT(odDbFindTableKind(info.fileName) == &odDbTableKind(info.kind));
            for (OdDbStub* const stub : table.records())
                CPPUNIT_ASSERT(stub->object->isA() == info.recordClass() &&
                               stub->object->ownerId() == table.objectId());
            count += table.records().size();
        }
        CPPUNIT_ASSERT_EQUAL(std::size(kRecords), count);
        for (auto const& [kind, name] : kRecords)
            CPPUNIT_ASSERT(database->table(kind).has(name));

        CPPUNIT_ASSERT(database->getCLAYER() == database->getLayerZeroId() && !database->getCLAYER().isNull());
        CPPUNIT_ASSERT(database->getCELTYPE() == database->getLinetypeByLayerId());
        CPPUNIT_ASSERT(database->getTEXTSTYLE().isValid() && database->getDIMSTYLE().isValid());
        CPPUNIT_ASSERT(database->getTILEMODE());
    }

    void spacesAndLayoutsKnowEachOther()
    {
        OdDbDatabasePtr const database(new OdDbDatabase);
        std::pair<wchar_t const*, OdDbObjectId> const spaces[] = {{L"Model", database->getModelSpaceId()},
                                                                  {L"Layout1", database->getPaperSpaceId()}};
        int order = 0;
        for (auto const& [name, id] : spaces) {
            auto const block = id.open<OdDbBlockTableRecord>();
            OdDbLayoutPtr const sheet = layout(*database, name);
            CPPUNIT_ASSERT(block->getLayoutId() == sheet->objectId() && sheet->getBlockTableRecordId() == id);
            CPPUNIT_ASSERT(sheet->getLayoutName() == name && sheet->modelType() == (order == 0));
            CPPUNIT_ASSERT_EQUAL(order++, sheet->getTabOrder());
            CPPUNIT_ASSERT(block->beginId().isValid() && block->endId().isValid() && block->entities().empty());
        }
    }

    void dictionariesOwnTheirObjects()
    {
        OdDbDatabasePtr const database(new OdDbDatabase);
        std::size_t entries = 0;
        for (OdDbStub* const stub : database->fileObjects()) {
            auto const* dictionary = odCast<OdDbDictionary>(stub->object);
            if (!dictionary)
                continue;
            for (OdDbDictionary::Entry const& entry : dictionary->entries())
                CPPUNIT_ASSERT(entry.id.open<OdDbObject>()->ownerId() == dictionary->objectId());
            entries += dictionary->entries().size();
        }
        // Everything but the named objects dictionary is an entry of some dictionary.
        CPPUNIT_ASSERT_EQUAL(database->fileObjects().size(), entries + 1);
    }

    void dimensionHeaderAgreesWithTheStyle()
    {
        OdDbDatabasePtr const database(new OdDbDatabase);
        auto const style = database->getDIMSTYLE().open<OdDbDimStyleTableRecord>();
        CPPUNIT_ASSERT_EQUAL(2.5, style->real("DIMTXT"));
        for (OdDbDimVariable const& variable : odDbDimVariables()) {
            CPPUNIT_ASSERT_MESSAGE(std::string(variable.name), database->header().find(variable.name));
            if (variable.kind == OdDbDimVariable::kInteger)
                CPPUNIT_ASSERT_EQUAL(std::int64_t(style->integer(variable.name)),
                                     database->header().integer(variable.name, -99));
            else if (variable.isNumber())
                CPPUNIT_ASSERT_EQUAL(style->real(variable.name), database->header().real(variable.name, -99));
        }
    }

    void newDrawingIsUnchanged()
    {
        OdDbDatabasePtr const database(new OdDbDatabase);
        OdDbHandle const seed = database->handseed();
        CPPUNIT_ASSERT_EQUAL(std::uint64_t(0), database->changeCount());
        CPPUNIT_ASSERT(!database->undoLog().hasUndo());
        database->undo();
        CPPUNIT_ASSERT(database->handseed() == seed && !database->getModelSpaceId().isErased());
        CPPUNIT_ASSERT(database->getOdDbObjectId(seed).isNull());
    }

    void drawingsDoNotShareHeaders()
    {
        OdDbDatabasePtr const first(new OdDbDatabase);
        OdDbDatabasePtr const second(new OdDbDatabase);
        first->startUndoRecord();
        first->setHeaderReal("LTSCALE", 40, 25);
        first->setHeaderInteger("OURS", 70, 1);
        CPPUNIT_ASSERT_EQUAL(25.0, first->header().real("LTSCALE"));
        CPPUNIT_ASSERT_EQUAL(1.0, second->header().real("LTSCALE"));
        CPPUNIT_ASSERT(!second->header().find("OURS"));
        CPPUNIT_ASSERT_EQUAL(1.0, OdDbDatabasePtr(new OdDbDatabase)->header().real("LTSCALE"));
        first->undo();
        CPPUNIT_ASSERT_EQUAL(1.0, first->header().real("LTSCALE"));
        CPPUNIT_ASSERT(!first->header().find("OURS"));
    }

    void completingAgainAddsNothing()
    {
        OdDbDatabasePtr const database(new OdDbDatabase);
        OdDbHandle const seed = database->handseed();
        OdDbObjectId const layout1 = layout(*database, L"Layout1")->objectId();
        database->completeFromTemplate();
        CPPUNIT_ASSERT(database->handseed() == seed);
        CPPUNIT_ASSERT(layout(*database, L"Layout1")->objectId() == layout1);
    }

    void whatAFileHadStays()
    {
        OdDbDatabasePtr const database(new OdDbDatabase(false));
        database->setBeingRead(true);
        OdDbObjectPtr const layers(new OdDbSymbolTable);
        database->setTableId(OdDbTableKind::kLayer, database->addOdDbObject(layers, {}, OdDbHandle(0x50)));
        OdDbObjectPtr const blocks(new OdDbSymbolTable);
        database->setTableId(OdDbTableKind::kBlock, database->addOdDbObject(blocks, {}, OdDbHandle(0x52)));
        OdDbLayerTableRecordPtr const zero(new OdDbLayerTableRecord);
        zero->setName(L"0");
        zero->setColor(OdCmColor(3));
        database->addOdDbObject(zero, layers->objectId(), OdDbHandle(0x51));
        static_cast<OdDbSymbolTable&>(*layers).adopt(*zero);
        OdDbBlockTableRecordPtr const sheet(new OdDbBlockTableRecord);
        sheet->setName(L"*Paper_Space0");
        database->addOdDbObject(sheet, blocks->objectId(), OdDbHandle(0x53));
        static_cast<OdDbSymbolTable&>(*blocks).adopt(*sheet);
        database->setHeaderReal("LTSCALE", 40, 25);

        database->completeFromTemplate();
        CPPUNIT_ASSERT_EQUAL(std::uint64_t(0x51), database->getLayerZeroId().getHandle().value());
        CPPUNIT_ASSERT(zero->color() == OdCmColor(3));
        CPPUNIT_ASSERT(zero->linetypeObjectId() == database->table(OdDbTableKind::kLinetype).getAt(L"Continuous"));
        CPPUNIT_ASSERT(database->getModelSpaceId().getHandle() > OdDbHandle(0x53));
        CPPUNIT_ASSERT_EQUAL(std::size_t(1), database->header().variables().size());

        // Sheets without layouts get one each, and a head and an end.
        OdDbObjectId const first = layout(*database, L"Layout1")->getBlockTableRecordId();
        OdDbObjectId const second = layout(*database, L"Layout2")->getBlockTableRecordId();
        CPPUNIT_ASSERT(first == sheet->objectId() && second == database->getPaperSpaceId());
        CPPUNIT_ASSERT(sheet->beginId().isValid() && sheet->endId().isValid());
    }
};

CPPUNIT_TEST_SUITE_REGISTRATION(TemplateTest);

} // namespace
