#include "host/db/entities/od_db_line.h"
#include "host/db/entities/od_db_text.h"
#include "host/db/records/od_db_block_table_record.h"
#include "host/db/records/od_db_dictionary.h"
#include "host/db/records/od_db_layer_table_record.h"
#include "tests/host/dxf/dxf_text.h"
#include "tests/support/od_result_of.h"

#include <cppunit/extensions/HelperMacros.h>

#include <limits>

namespace {

class SavingTest : public CppUnit::TestFixture
{
    CPPUNIT_TEST_SUITE(SavingTest);
    CPPUNIT_TEST(erasedObjectsAreLeftOut);
    CPPUNIT_TEST(breaksInTextDoNotBreakTheFile);
    CPPUNIT_TEST(longValuesAreWrittenWhole);
    CPPUNIT_TEST(valuesThatNobodyCouldRead);
    CPPUNIT_TEST(currentRecordsAndSeed);
    CPPUNIT_TEST(formatCodes);
    CPPUNIT_TEST_SUITE_END();

    static OdDbBlockTableRecordPtr modelSpace(OdDbDatabase& database)
    {
        return database.getModelSpaceId().open<OdDbBlockTableRecord>(OdDb::kForWrite);
    }

    void erasedObjectsAreLeftOut()
    {
        OdDbDatabasePtr const database = new OdDbDatabase;
        OdDbLinePtr const line = new OdDbLine({0, 0, 0}, {1, 0, 0});
        modelSpace(*database)->appendOdDbEntity(line);
        OdSmartPtr<OdDbLayerTableRecord> const layer = new OdDbLayerTableRecord;
        layer->setName(L"Spare");
        database->getLayerTableId().open<OdDbSymbolTable>(OdDb::kForWrite)->add(layer);
        auto const root = database->getNamedObjectsDictionaryId().open<OdDbDictionary>(OdDb::kForWrite);
        OdDbObjectId const dictionary = root->setAt(L"SPARE_DICTIONARY", new OdDbDictionary);
        std::string const before = dxfText::written(*database);
        for (OdDbObjectId const id : {line->objectId(), layer->objectId(), dictionary})
            id.open<OdDbObject>(OdDb::kForWrite)->erase();
        std::string const after = dxfText::written(*database);
        for (char const* const part : {"\nLINE\n", "\nSpare\n", "\nSPARE_DICTIONARY\n"}) {
            CPPUNIT_ASSERT_MESSAGE(part, before.find(part) != std::string::npos);
            CPPUNIT_ASSERT_MESSAGE(part, after.find(part) == std::string::npos);
        }
        CPPUNIT_ASSERT(before.find("LAYER\n  5\n3\n") == after.find("LAYER\n  5\n3\n"));
    }

    void breaksInTextDoNotBreakTheFile()
    {
        OdDbDatabasePtr const database = new OdDbDatabase;
        OdDbTextPtr const text = new OdDbText;
        text->setTextString(L"one\ntwo\r\tthree");
        modelSpace(*database)->appendOdDbEntity(text);
        OdDbDatabasePtr const again = dxfText::read(dxfText::written(*database));
        OdDbObjectId const id = again->getOdDbObjectId(text->getDbHandle());
        CPPUNIT_ASSERT(id.open<OdDbText>()->textString() == L"one^Jtwo^M\tthree");
    }

    void longValuesAreWrittenWhole()
    {
        OdDbDatabasePtr const database = new OdDbDatabase;
        OdDbTextPtr const text = new OdDbText;
        for (std::size_t const length : {65'000u, 65'535u, 65'536u, 200'000u}) {
            OdString const value = OdString(length, L'x') + L"end";
            text->setTextString(value);
            if (!text->isDBRO())
                modelSpace(*database)->appendOdDbEntity(text);
            OdDbDatabasePtr const again = dxfText::read(dxfText::written(*database));
            CPPUNIT_ASSERT(again->getOdDbObjectId(text->getDbHandle()).open<OdDbText>()->textString() == value);
        }
    }

    void valuesThatNobodyCouldRead()
    {
        OdDbDatabasePtr const database = new OdDbDatabase;
        TempFolder const folder;
        OdString const path = folder.write("a.dxf", "old");
        OdDbLinePtr const line = new OdDbLine({0, std::numeric_limits<double>::quiet_NaN(), 0}, {1, 0, 0});
        modelSpace(*database)->appendOdDbEntity(line);
        try {
            dxf::writeFile(*database, path);
            CPPUNIT_FAIL("was written");
        } catch (OdError const& error) {
            CPPUNIT_ASSERT_EQUAL("A value (group 20) of the object with the handle " +
                                     line->getDbHandle().ascii().toUtf8() + " is not a finite number",
                                 std::string(error.what()));
        }
        CPPUNIT_ASSERT_EQUAL(std::string("old"), folder.read("a.dxf"));
        CPPUNIT_ASSERT_EQUAL(std::size_t{1}, folder.names().size());
    }

    void currentRecordsAndSeed()
    {
        OdDbDatabasePtr const database = new OdDbDatabase;
        OdSmartPtr<OdDbLayerTableRecord> const layer = new OdDbLayerTableRecord;
        layer->setName(L"Walls");
        OdDbObjectId const id = database->getLayerTableId().open<OdDbSymbolTable>(OdDb::kForWrite)->add(layer);
        database->setCurrent(OdDbTableKind::kLayer, id);
        std::string const saved = dxfText::written(*database);
        CPPUNIT_ASSERT(saved.find("$CLAYER\n  8\nWalls\n") != std::string::npos);
        OdDbDatabasePtr const again = dxfText::read(saved);
        CPPUNIT_ASSERT(again->getCLAYER() == again->table(OdDbTableKind::kLayer).getAt(L"Walls"));
        CPPUNIT_ASSERT(again->handseed() == database->handseed());
    }

    void formatCodes()
    {
        struct Row
        {
            int code;
            dxf::ERelease release;
            bool isBinary;
        };
        Row const rows[] = {{60, dxf::ERelease::kR2018, false},
                            {61, dxf::ERelease::kR2013, false},
                            {68, dxf::ERelease::kR12, false},
                            {80, dxf::ERelease::kR2018, true},
                            {88, dxf::ERelease::kR12, true}};
        for (Row const& row : rows) {
            dxf::FileFormat const format = dxf::formatOfCode(row.code);
            CPPUNIT_ASSERT_MESSAGE(std::to_string(row.code), format.release == row.release);
            CPPUNIT_ASSERT_EQUAL_MESSAGE(std::to_string(row.code), row.isBinary, format.isBinary);
        }
        for (int const code : {0, 59, 69, 79, 89})
            CPPUNIT_ASSERT_EQUAL_MESSAGE(std::to_string(code), eUnsupportedFormat,
                                         odResultOf([code] { dxf::formatOfCode(code); }));
    }
};
CPPUNIT_TEST_SUITE_REGISTRATION(SavingTest);

} // namespace
