// Records as drawing files hold them: each class reads a record that has all that files give it, and writes the
// same record again.
#include "host/db/filer/od_db_class_registry.h"
#include "host/db/filer/od_db_record_reader.h"
#include "host/db/filer/od_db_record_writer.h"
#include "host/db/records/od_db_dim_style_table_record.h"
#include "host/db/records/od_db_layer_table_record.h"
#include "host/db/records/od_db_linetype_table_record.h"
#include "tests/host/db/record_lines.h"

#include <cppunit/extensions/HelperMacros.h>

namespace {

/// The bars of the records below stand for ends of lines.
std::string linesOfRecord(std::string record)
{
    std::replace(record.begin(), record.end(), '|', '\n');
    return record + '\n';
}

// clang-format off
char const* const kRecords[] = {
    "0 LAYER|5 A01|330 A00|100 AcDbSymbolTableRecord|100 AcDbLayerTableRecord|2 Walls|70 5|62 -3|420 1193046|"
        "6 Continuous|290 0|370 25|390 A02|347 A03|348 0|1001 AcAecLayerStandard|1000 |1000 outer walls",
    "0 LTYPE|5 A01|330 A00|100 AcDbSymbolTableRecord|100 AcDbLinetypeTableRecord|2 GAS|70 0|3 Gas ----GAS----|"
        "72 65|73 4|40 24.13|49 12.7|74 0|49 -5.08|74 2|75 0|340 A02|46 2.54|50 30|44 -2.54|45 -1.27|9 GAS|"
        "49 0|74 4|75 134|340 A03|46 2|50 180|44 2.5|45 0|49 -6.35|74 0",
    "0 STYLE|5 A01|330 A00|100 AcDbSymbolTableRecord|100 AcDbTextStyleTableRecord|2 |70 1|40 0|41 1|50 0|71 0|"
        "42 2.5|3 ltypeshp.shx|4 ",
    "0 STYLE|5 A01|330 A00|100 AcDbSymbolTableRecord|100 AcDbTextStyleTableRecord|2 Notes|70 4|40 3.5|41 0.8|50 15|"
        "71 6|42 3.5|3 arial.ttf|4 big|1001 ACAD|1000 Arial|1071 34",
    "0 DIMSTYLE|105 A01|330 A00|100 AcDbSymbolTableRecord|100 AcDbDimStyleTableRecord|2 Mine|70 64|3 <> mm|41 2.5|"
        "50 60|140 3.5|69 2|70 5|71 1|77 1|178 256|271 3|278 44|340 A02|342 A03|345 A04|371 -1",
    "0 APPID|5 A01|330 A00|100 AcDbSymbolTableRecord|100 AcDbRegAppTableRecord|2 OURS|70 0",
    "0 UCS|5 A01|330 A00|100 AcDbSymbolTableRecord|100 AcDbUCSTableRecord|2 Roof|70 0|10 1|20 2|30 3|11 0|21 1|31 0|"
        "12 -1|22 0|32 0|79 0|146 0.5|346 A02|71 1|13 4|23 5|33 6|71 2|13 7|23 8|33 9",
    "0 VIEW|5 A01|330 A00|100 AcDbSymbolTableRecord|100 AcDbViewTableRecord|2 Front|70 1|40 100|10 5|20 6|41 150|"
        "11 0|21 -1|31 0|12 1|22 2|32 3|42 35|43 10|44 -10|50 45|71 1|281 0|72 1|110 1|120 0|130 0|111 0|121 1|131 0|"
        "112 0|122 0|132 1|79 0|146 0|345 A02|348 A03",
    "0 VPORT|5 A01|330 A00|100 AcDbSymbolTableRecord|100 AcDbViewportTableRecord|2 *Active|70 0|10 0|20 0|11 0.5|21 1|"
        "12 30.5|22 9|13 1|23 2|14 10|24 20|15 5|25 6|16 0|26 0|36 367|17 45|27 40|37 0|40 54|41 2.25|42 50|43 0|44 0|"
        "50 30|51 15|71 16|72 1000|73 1|74 3|75 1|76 1|77 1|78 2|281 0|65 1|110 1|120 2|130 3|111 0|121 1|131 0|112 -1|"
        "122 0|132 0|345 A02|79 0|146 0.5|348 A03|60 3|61 5|292 1|282 1|141 0|142 0|63 250|421 3355443",
    "0 DICTIONARY|5 A01|330 A00|100 AcDbDictionary|280 1|281 1|3 One|360 A02|3 Two|350 A03",
    "0 ACDBDICTIONARYWDFLT|5 A01|102 {ACAD_REACTORS|330 A00|102 }|330 A00|100 AcDbDictionary|281 1|3 Normal|350 A02|"
        "100 AcDbDictionaryWithDefault|340 A02",
    "0 ACDBPLACEHOLDER|5 A01|330 A00",
    "0 LAYOUT|5 A01|330 A00|100 AcDbPlotSettings|1 setup|2 none_device|4 Letter|6 view|40 6.5|41 19|42 6.25|43 18|44 215|"
        "45 279|46 1|47 2|48 3|49 4|140 5|141 6|142 1|143 2.5|70 11952|72 0|73 1|74 0|7 monochrome.ctb|75 0|76 1|77 3|"
        "78 150|147 0.5|148 1|149 2|333 A02|100 AcDbLayout|1 Sheet|70 1|71 2|10 -0.25|20 -0.5|11 12|21 9|12 1|22 2|32 3|"
        "14 1.5|24 0.5|34 0|15 9.5|25 7|35 0|146 4|13 1|23 2|33 3|16 0|26 1|36 0|17 -1|27 0|37 0|76 1|330 A02|331 A03|"
        "345 A04|346 A05|1001 ACAD_PSEXT|1000 None|1070 0",
};
// clang-format on

class RecordFilesTest : public CppUnit::TestFixture
{
    CPPUNIT_TEST_SUITE(RecordFilesTest);
    CPPUNIT_TEST(recordsAreWrittenAsTheyWereRead);
    CPPUNIT_TEST(fieldsReachTheAccessors);
    CPPUNIT_TEST(newRecordsWriteWhatFilesMustHave);
    CPPUNIT_TEST(strayDashAndEntryTagsAreKept);
    CPPUNIT_TEST(erasedObjectsAreLeftOut);
    CPPUNIT_TEST_SUITE_END();

public:
    void setUp() override { m_database = new OdDbDatabase; }
    void tearDown() override { m_database.release(); }

private:
    OdDbDatabasePtr m_database;

    /// The record as an object of the drawing, without an entry in its table.
    OdDbObjectPtr read(std::string const& text)
    {
        OdDbTagList const tags = tagsOf(linesOfRecord(text));
        OdRxClass* const cls = odDbClassRegistry::find((*tags.begin()).text);
        CPPUNIT_ASSERT_MESSAGE(text, cls);
        OdDbObjectPtr object = OdRxObjectPtr(cls->create());
        DatabaseResolver resolver(*m_database);
        OdDbRecordReader reader(*object, resolver);
        for (auto it = ++tags.begin(); it != tags.end(); ++it)
            reader.put(*it);
        OdDbObjectId const owner = m_database->getOdDbObjectId(reader.owner(), true);
        m_database->setBeingRead(true);
        m_database->addOdDbObject(object, owner, reader.handle());
        m_database->setBeingRead(false);
        return object;
    }

    static std::string written(OdDbObject const& object)
    {
        OdDbTagList tags;
        odDbWriteRecord(object, tags);
        std::string text = linesOf(tags);
        std::replace(text.begin(), text.end(), '\n', '|');
        text.pop_back();
        return text;
    }

    void recordsAreWrittenAsTheyWereRead()
    {
        for (char const* const record : kRecords) {
            setUp();
            CPPUNIT_ASSERT_EQUAL(std::string(record), written(*read(record)));
        }
    }

    void fieldsReachTheAccessors()
    {
        OdDbLayerTableRecordPtr const layer = read(kRecords[0]);
        CPPUNIT_ASSERT(layer->isOff() && layer->isFrozen() && layer->isLocked() && !layer->isPlottable());
        CPPUNIT_ASSERT(layer->color() == OdCmColor::trueColor(0x12, 0x34, 0x56, 3));
        CPPUNIT_ASSERT_EQUAL(25, layer->lineWeight());
        CPPUNIT_ASSERT(layer->description() == L"outer walls");

        setUp();
        OdDbLinetypeTableRecordPtr const linetype = read(kRecords[1]);
        CPPUNIT_ASSERT_EQUAL(std::size_t(4), linetype->dashes().size());
        CPPUNIT_ASSERT(linetype->dashes()[1].text == L"GAS" && linetype->dashes()[2].shapeNumber == 134);
        CPPUNIT_ASSERT_DOUBLES_EQUAL(OdaPI / 6, linetype->dashes()[1].rotation.radians(), 1e-15);

        setUp();
        OdDbDimStyleTableRecordPtr const style = read(kRecords[4]);
        CPPUNIT_ASSERT_EQUAL(5, style->integer("DIMTFILLCLR"));
        CPPUNIT_ASSERT_EQUAL(2.5, style->real("DIMASZ"));
        CPPUNIT_ASSERT_EQUAL(std::uint64_t(0xA03), style->reference("DIMBLK").getHandle().value());
    }

    void newRecordsWriteWhatFilesMustHave()
    {
        OdDbLayerTableRecordPtr const layer(new OdDbLayerTableRecord);
        layer->setName(L"New");
        auto const layers = m_database->getLayerTableId().open<OdDbSymbolTable>(OdDb::kForWrite);
        layers->add(layer);
        std::string const text = written(*layer);
        CPPUNIT_ASSERT_EQUAL(std::string("2 New|70 0|62 7|6 Continuous|370 -3"), text.substr(text.find("2 New")));

        // The head of the table of dimension styles lists the records that are there.
        auto const styles = m_database->getDimStyleTableId().open<OdDbSymbolTable>(OdDb::kForWrite);
        OdDbDimStyleTableRecordPtr const style(new OdDbDimStyleTableRecord);
        style->setName(L"Mine");
        styles->add(style);
        OdString const handle = style->getDbHandle().ascii();
        std::string const head = written(*styles);
        CPPUNIT_ASSERT(head.find("|71 2|340 ") != std::string::npos && head.ends_with("|340 " + handle.toUtf8()));
        style->erase();
        CPPUNIT_ASSERT(written(*styles).find("|71 1|340 ") != std::string::npos);
    }

    void strayDashAndEntryTagsAreKept()
    {
        // Tags that nothing stands before which they could belong to.
        std::string const linetype = written(
            *read("0 LTYPE|5 A01|330 A00|100 AcDbSymbolTableRecord|100 AcDbLinetypeTableRecord|2 L|70 0|3 |72 65|"
                  "74 2|340 A02|73 0|40 0"));
        CPPUNIT_ASSERT(linetype.ends_with("|73 0|40 0|74 2|340 A02"));
        setUp();
        std::string const dictionary =
            written(*read("0 DICTIONARY|5 A01|330 A00|100 AcDbDictionary|350 A02|281 1|3 One|350 A03|350 A04"));
        CPPUNIT_ASSERT(dictionary.ends_with("|281 1|3 One|350 A03|350 A02|350 A04"));
    }

    void erasedObjectsAreLeftOut()
    {
        OdDbObjectPtr const dictionary = read("0 DICTIONARY|5 A01|330 A00|100 AcDbDictionary|281 1|3 One|360 A02");
        OdDbObjectPtr const entry = read("0 ACDBPLACEHOLDER|5 A02|330 A01");
        entry->upgradeOpen();
        entry->erase();
        CPPUNIT_ASSERT_EQUAL(std::string("0 DICTIONARY|5 A01|330 A00|100 AcDbDictionary|281 1"),
                             written(*dictionary));
    }
};

CPPUNIT_TEST_SUITE_REGISTRATION(RecordFilesTest);

} // namespace
