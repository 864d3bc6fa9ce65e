// Undo takes back everything since the start of a record, and redo brings it again.
#include "host/db/entities/od_db_line.h"
#include "host/db/od_db_database.h"
#include "host/db/records/od_db_block_table_record.h"
#include "host/db/records/od_db_layer_table_record.h"

#include <cppunit/extensions/HelperMacros.h>

namespace {

class UndoTest : public CppUnit::TestFixture
{
    CPPUNIT_TEST_SUITE(UndoTest);
    CPPUNIT_TEST(takesBackFieldsOnce);
    CPPUNIT_TEST(takesBackCreationAndGivesTheHandleOutAgain);
    CPPUNIT_TEST(takesBackErasingInPlace);
    CPPUNIT_TEST(takesBackTablesHeaderAndCurrentRecords);
    CPPUNIT_TEST(revertsAcrossSeveralRecordsAndRedoes);
    CPPUNIT_TEST(doesNothingWithoutARecord);
    CPPUNIT_TEST(undoesWhileRecordingIsOff);
    CPPUNIT_TEST(recordsNothingAfterTheEnd);
    CPPUNIT_TEST(imagesWhatWasCreatedWhileRecordingWasOff);
    CPPUNIT_TEST(isSafeWhenAnImageWasTakenInARevertedRecord);
    CPPUNIT_TEST_SUITE_END();

    OdDbDatabasePtr m_database{new OdDbDatabase};

    OdDbObjectId addLine(double length)
    {
        auto const space = m_database->getModelSpaceId().open<OdDbBlockTableRecord>(OdDb::kForWrite);
        return space->appendOdDbEntity(new OdDbLine({0, 0, 0}, {length, 0, 0}));
    }
    static double lengthOf(OdDbObjectId id) { return id.open<OdDbLine>(OdDb::kForRead, true)->endPoint().x; }
    static void setLength(OdDbObjectId id, double length)
    {
        id.open<OdDbLine>(OdDb::kForWrite)->setEndPoint({length, 0, 0});
    }
    std::vector<double> lengths() const
    {
        std::vector<double> all;
        auto const space = m_database->getModelSpaceId().open<OdDbBlockTableRecord>();
        for (auto it = space->newIterator(); !it.done(); it.step())
            all.push_back(lengthOf(it.objectId()));
        return all;
    }

public:
    void takesBackFieldsOnce()
    {
        OdDbObjectId const line = addLine(1);
        m_database->startUndoRecord();
        for (int i = 2; i < 50; ++i)
            setLength(line, i);
        m_database->undo();
        CPPUNIT_ASSERT_EQUAL(1.0, lengthOf(line));
        m_database->redo();
        CPPUNIT_ASSERT_EQUAL(49.0, lengthOf(line));
    }

    void takesBackCreationAndGivesTheHandleOutAgain()
    {
        OdDbHandle const seed = m_database->handseed();
        m_database->startUndoRecord();
        OdDbObjectId const first = addLine(1);
        m_database->undo();
        CPPUNIT_ASSERT(seed == m_database->handseed());
        CPPUNIT_ASSERT(first.isValid() && first.isErased());
        CPPUNIT_ASSERT(lengths().empty());

        OdDbObjectId const second = addLine(2);
        CPPUNIT_ASSERT(first.getHandle() == second.getHandle());
        CPPUNIT_ASSERT(!(first == second) && first.isErased() && !second.isErased());
        CPPUNIT_ASSERT(second == m_database->getOdDbObjectId(second.getHandle()));
    }

    void takesBackErasingInPlace()
    {
        OdDbObjectId const ids[] = {addLine(1), addLine(2), addLine(3)};
        m_database->startUndoRecord();
        ids[1].safeOpenObject(OdDb::kForWrite)->erase();
        CPPUNIT_ASSERT((lengths() == std::vector<double>{1, 3}));
        m_database->undo();
        CPPUNIT_ASSERT((lengths() == std::vector<double>{1, 2, 3}));
    }

    void takesBackTablesHeaderAndCurrentRecords()
    {
        OdDbObjectId const layerBefore = m_database->getCLAYER();
        double const scaleBefore = m_database->header().real("LTSCALE");
        m_database->startUndoRecord();
        OdDbLayerTableRecordPtr const layer(new OdDbLayerTableRecord);
        layer->setName(L"Walls");
        auto const table = m_database->getLayerTableId().open<OdDbSymbolTable>(OdDb::kForWrite);
        OdDbObjectId const id = table->add(layer);
        m_database->setCurrent(OdDbTableKind::kLayer, id);
        m_database->setHeaderReal("LTSCALE", 40, 7.5);
        m_database->setHeaderReal("NEWVARIABLE", 40, 1.0);
        layer->setName(L"Doors");
        CPPUNIT_ASSERT(table->has(L"DOORS") && !table->has(L"Walls"));

        m_database->undo();
        CPPUNIT_ASSERT(!table->has(L"Doors") && !table->has(L"Walls"));
        CPPUNIT_ASSERT(layerBefore == m_database->getCLAYER());
        CPPUNIT_ASSERT_EQUAL(scaleBefore, m_database->header().real("LTSCALE"));
        CPPUNIT_ASSERT(!m_database->header().find("NEWVARIABLE"));
        m_database->redo();
        CPPUNIT_ASSERT(table->getAt(L"doors") == m_database->getCLAYER());
        CPPUNIT_ASSERT_EQUAL(7.5, m_database->header().real("LTSCALE"));
    }

    void revertsAcrossSeveralRecordsAndRedoes()
    {
        OdDbObjectId const line = addLine(1);
        for (int i = 2; i <= 4; ++i) {
            m_database->startUndoRecord();
            setLength(line, i);
        }
        m_database->undo();
        m_database->undo();
        CPPUNIT_ASSERT_EQUAL(2.0, lengthOf(line));
        m_database->redo();
        CPPUNIT_ASSERT_EQUAL(3.0, lengthOf(line));
        m_database->undo();
        m_database->startUndoRecord();
        setLength(line, 9);
        m_database->redo(); // what was undone cannot be redone after a new change
        CPPUNIT_ASSERT_EQUAL(9.0, lengthOf(line));
        m_database->undo();
        m_database->undo();
        CPPUNIT_ASSERT_EQUAL(1.0, lengthOf(line));
    }

    void doesNothingWithoutARecord()
    {
        OdDbObjectId const line = addLine(1);
        setLength(line, 2);
        m_database->undo();
        m_database->startUndoRecord();
        m_database->undo();
        m_database->undo();
        CPPUNIT_ASSERT_EQUAL(2.0, lengthOf(line));

        m_database->startUndoRecord();
        setLength(line, 3);
        m_database->startUndoRecord();
        m_database->undo(); // the running record holds nothing; those before it stay
        CPPUNIT_ASSERT_EQUAL(3.0, lengthOf(line));
        m_database->undo();
        CPPUNIT_ASSERT_EQUAL(2.0, lengthOf(line));
        m_database->undoLog().forgetUndone();
        m_database->redo();
        CPPUNIT_ASSERT_EQUAL(2.0, lengthOf(line));
    }

    void undoesWhileRecordingIsOff()
    {
        OdDbObjectId const line = addLine(1);
        m_database->startUndoRecord();
        setLength(line, 2);
        m_database->disableUndoRecording(true);
        m_database->disableUndoRecording(true);
        m_database->undo();
        CPPUNIT_ASSERT_EQUAL(1.0, lengthOf(line));
        m_database->disableUndoRecording(false); // a plain flag: one call is enough
        m_database->startUndoRecord();
        setLength(line, 3);
        m_database->undo();
        CPPUNIT_ASSERT_EQUAL(1.0, lengthOf(line));
    }

    void recordsNothingAfterTheEnd()
    {
        OdDbObjectId const line = addLine(1);
        m_database->startUndoRecord();
        setLength(line, 2);
        m_database->undoLog().end();
        setLength(line, 3);
        m_database->undo();
        CPPUNIT_ASSERT_EQUAL(1.0, lengthOf(line));
        CPPUNIT_ASSERT(!m_database->undoLog().hasUndo());
    }

    void imagesWhatWasCreatedWhileRecordingWasOff()
    {
        m_database->startUndoRecord();
        m_database->disableUndoRecording(true);
        OdDbObjectId const line = addLine(1);
        m_database->disableUndoRecording(false);
        setLength(line, 2);
        m_database->undo();
        CPPUNIT_ASSERT(!line.isErased());
        CPPUNIT_ASSERT_EQUAL(1.0, lengthOf(line));
    }

    void isSafeWhenAnImageWasTakenInARevertedRecord()
    {
        OdDbObjectId const line = addLine(1);
        m_database->startUndoRecord();
        setLength(line, 2);
        m_database->undo();
        m_database->startUndoRecord();
        setLength(line, 3);
        m_database->undo();
        CPPUNIT_ASSERT_EQUAL(1.0, lengthOf(line));
    }
};
CPPUNIT_TEST_SUITE_REGISTRATION(UndoTest);

} // namespace
