// PURGE: what nothing refers to goes, everything else stays.
#include "tests/host/app/draw_script.h"

#include "host/app/ca_doc.h"
#include "host/app/sds_cmd.h"
#include "host/db/entities/od_db_text.h"
#include "host/db/od_db_database.h"
#include "host/db/records/od_db_block_table_record.h"
#include "host/db/records/od_db_dim_style_table_record.h"
#include "host/db/records/od_db_reg_app_table_record.h"
#include "host/db/records/od_db_text_style_table_record.h"
#include "host/sds/sds.h"

#include <cppunit/extensions/HelperMacros.h>

namespace {

class PurgeCommandTest : public DrawScriptTest
{
    CPPUNIT_TEST_SUITE(PurgeCommandTest);
    CPPUNIT_TEST(blocksAndWhatWasInThem);
    CPPUNIT_TEST(layersAndLinetypes);
    CPPUNIT_TEST(stylesAndApplications);
    CPPUNIT_TEST(asksForEach);
    CPPUNIT_TEST(zeroLengthAndEmptyTexts);
    CPPUNIT_TEST(aNewDrawingKeepsWhatItNeeds);
    CPPUNIT_TEST(prompts);
    CPPUNIT_TEST_SUITE_END();

    static void run(OdString const& script)
    {
        CPPUNIT_ASSERT_EQUAL_MESSAGE(script.toUtf8() + ": " + lastPrompt().toUtf8(), int(RTNORM), feed(script));
    }
    /// Runs it, takes it back and does it again.
    static void purge(OdString const& script)
    {
        std::string const before = bytes();
        run(script);
        std::string const after = bytes();
        run(L"U");
        CPPUNIT_ASSERT_MESSAGE(script.toUtf8(), before == bytes());
        run(L"REDO");
        CPPUNIT_ASSERT_MESSAGE(script.toUtf8(), after == bytes());
    }
    /// Names of the records that are left, beside those that new drawings have.
    static std::string left(OdDbTableKind kind)
    {
        OdDbDatabasePtr const fresh(new OdDbDatabase);
        std::string names;
        for (OdDbStub const* const stub : db().table(kind).records()) {
            OdString const name = static_cast<OdDbSymbolTableRecord const*>(stub->object)->getName();
            if (!stub->erased && !fresh->table(kind).has(name))
                names += name.toUtf8() + " ";
        }
        return names;
    }
    template <class Record>
    static OdDbObjectId add(OdDbTableKind kind, wchar_t const* name)
    {
        OdSmartPtr<Record> const record(new Record);
        record->setName(name);
        return db().getTableId(kind).open<OdDbSymbolTable>(OdDb::kForWrite)->add(record);
    }

public:
    void blocksAndWhatWasInThem()
    {
        run(L"POINT|1,1|-BLOCK|Inner|0,0|L||-INSERT|Inner|0,0|1|1|0|-BLOCK|Outer|0,0|L||");
        run(L"POINT|2,2|-BLOCK|Used|0,0|L||-INSERT|Used|5,5|1|1|0");
        CPPUNIT_ASSERT_EQUAL(std::string("Inner Outer Used "), left(OdDbTableKind::kBlock));
        run(L"-PURGE|B|Inner|N");
        CPPUNIT_ASSERT_EQUAL(std::string("No unreferenced blocks found."), lastPrompt().toUtf8().substr(0, 29));
        CPPUNIT_ASSERT_EQUAL(std::string("Inner Outer Used "), left(OdDbTableKind::kBlock));
        purge(L"PURGE|Blocks||N");
        CPPUNIT_ASSERT_EQUAL(std::string("Used "), left(OdDbTableKind::kBlock));
        run(L"ERASE|L||PU|A|*|N");
        CPPUNIT_ASSERT_EQUAL(std::string(), left(OdDbTableKind::kBlock));
    }

    void layersAndLinetypes()
    {
        run(L"-LINETYPE|L|DASHED,DOT,HIDDEN,CENTER|||-LAYER|N|Walls,Doors,Gone|L|HIDDEN|Gone|L|DOT|Doors||");
        run(L"-LAYER|S|Doors||POINT|1,1|-LAYER|S|Walls||CELTYPE|CENTER");
        purge(L"-PURGE|LA|*|No");
        CPPUNIT_ASSERT_EQUAL_MESSAGE("one has a point, one is current", std::string("Walls Doors "),
                                     left(OdDbTableKind::kLayer));
        purge(L"-PURGE|LT||N");
        CPPUNIT_ASSERT_EQUAL(std::string("CENTER DOT "), left(OdDbTableKind::kLinetype));
        run(L"CELTYPE|ByLayer|-LAYER|S|0||ERASE|ALL|");
        purge(L"-PURGE|All||N");
        CPPUNIT_ASSERT_EQUAL(std::string(), left(OdDbTableKind::kLayer) + left(OdDbTableKind::kLinetype));
    }

    void stylesAndApplications()
    {
        add<OdDbTextStyleTableRecord>(OdDbTableKind::kTextStyle, L"Lonely");
        add<OdDbTextStyleTableRecord>(OdDbTableKind::kTextStyle, L"Written");
        add<OdDbDimStyleTableRecord>(OdDbTableKind::kDimStyle, L"Measure");
        add<OdDbRegAppTableRecord>(OdDbTableKind::kRegApp, L"IDLE_APP");
        add<OdDbRegAppTableRecord>(OdDbTableKind::kRegApp, L"BUSY_APP");
        run(L"TEXTSTYLE|Written|TEXT|0,0|1|0|a||TEXTSTYLE|Standard");
        OdDbTagList data;
        data.text(1001, "Busy_App");
        data.integer(1070, 1);
        auto const space = db().getModelSpaceId().open<OdDbBlockTableRecord>();
        OdDbObjectId(space->entities().back()).open<OdDbEntity>(OdDb::kForWrite)->setExtendedData(data);
        purge(L"-PURGE|ST|*|N");
        purge(L"-PURGE|D|*|N");
        purge(L"-PURGE|R|*|N");
        CPPUNIT_ASSERT_EQUAL(std::string("Written "), left(OdDbTableKind::kTextStyle));
        CPPUNIT_ASSERT_EQUAL(std::string(), left(OdDbTableKind::kDimStyle));
        CPPUNIT_ASSERT_EQUAL(std::string("BUSY_APP "), left(OdDbTableKind::kRegApp));
    }

    void asksForEach()
    {
        run(L"-LAYER|N|One,Two,Three||-PURGE|LA|T*,One|");
        CPPUNIT_ASSERT_EQUAL(std::string("Purge layer \"One\"? [Yes/No] <N>: "), lastPrompt().toUtf8());
        run(L"Y|N|Y");
        CPPUNIT_ASSERT_EQUAL(std::string("2 layers deleted."), lastPrompt().toUtf8());
        CPPUNIT_ASSERT_EQUAL(std::string("Two "), left(OdDbTableKind::kLayer));
        run(L"-PURGE|LA||");
        sds_cmd(nullptr);
        CPPUNIT_ASSERT_EQUAL(std::string("Two "), left(OdDbTableKind::kLayer));
    }

    void zeroLengthAndEmptyTexts()
    {
        run(L"LINE|0,0|1,0||LINE|2,2|2,2||POINT|3,3|PLINE|4,4|4,4||TEXT|0,0|1|0|full|");
        run(L"-LAYER|M|Locked|LO|Locked||LINE|5,5|5,5|");
        purge(L"-PURGE|Z");
        CPPUNIT_ASSERT_EQUAL(std::string("LINE 0,0 1,0; POINT 3,3; TEXT full 0,0 h1 r0; LINE 5,5 5,5"),
                             drawn().toUtf8());
        auto const space = db().getModelSpaceId().open<OdDbBlockTableRecord>();
        OdDbTextPtr const text = OdDbObjectId(space->entities()[4]).open<OdDbText>(OdDb::kForWrite);
        text->setTextString(L"  ");
        purge(L"-PURGE|Empty");
        CPPUNIT_ASSERT_EQUAL(std::string("LINE 0,0 1,0; POINT 3,3; LINE 5,5 5,5"), drawn().toUtf8());
        run(L"-PURGE|E");
        CPPUNIT_ASSERT_EQUAL(std::string("No empty text objects found."), lastPrompt().toUtf8());
    }

    void aNewDrawingKeepsWhatItNeeds()
    {
        run(L"-PURGE|A|*|N");
        for (auto const& [kind, name] :
             {std::pair(OdDbTableKind::kLayer, L"0"), std::pair(OdDbTableKind::kLinetype, L"Continuous"),
              std::pair(OdDbTableKind::kTextStyle, L"Standard"), std::pair(OdDbTableKind::kDimStyle, L"Standard"),
              std::pair(OdDbTableKind::kRegApp, L"ACAD"), std::pair(OdDbTableKind::kBlock, L"*Model_Space"),
              std::pair(OdDbTableKind::kBlock, L"*Paper_Space")})
            CPPUNIT_ASSERT_MESSAGE(OdString(name).toUtf8(), db().table(kind).has(name));
    }

    void prompts()
    {
        PromptCase const cases[] = {
            {L"-PURGE", L"Enter type of unused objects to purge "
                        L"[Blocks/Dimstyles/LAyers/LTypes/textSTyles/Regapps/Zero-length/Empty-text/All]: "},
            {L"PU|A", L"Enter name(s) to purge <*>: "},
            {L"PU|A|x*", L"Verify each name to be purged? [Yes/No] <Y>: "},
        };
        checkPrompts(cases);
    }
};
CPPUNIT_TEST_SUITE_REGISTRATION(PurgeCommandTest);

} // namespace
