// What audits find, what fixing makes of it, and that undo brings it all back.
#include "host/db/audit/od_db_audit.h"
#include "host/db/entities/od_db_block_reference.h"
#include "host/db/entities/od_db_line.h"
#include "host/db/filer/od_db_class_registry.h"
#include "host/db/filer/od_db_record_reader.h"
#include "host/db/od_db_raw_object.h"
#include "host/db/records/od_db_block_table_record.h"
#include "host/db/records/od_db_dictionary.h"
#include "host/db/records/od_db_layer_table_record.h"
#include "tests/host/db/record_lines.h"

#include <cppunit/extensions/HelperMacros.h>

namespace {

class AuditTest : public CppUnit::TestFixture
{
    CPPUNIT_TEST_SUITE(AuditTest);
    CPPUNIT_TEST(newDrawingsAreFine);
    CPPUNIT_TEST(judgesEntities);
    CPPUNIT_TEST(missingLayerAndLinetype);
    CPPUNIT_TEST(references);
    CPPUNIT_TEST(namesInTables);
    CPPUNIT_TEST(entriesOfNothing);
    CPPUNIT_TEST(owners);
    CPPUNIT_TEST(recordsThatEveryDrawingHas);
    CPPUNIT_TEST(blocksWithinThemselves);
    CPPUNIT_TEST(exponentialNesting);
    CPPUNIT_TEST(deepNesting);
    CPPUNIT_TEST_SUITE_END();

    OdDbDatabasePtr m_database;

public:
    void setUp() override { m_database = new OdDbDatabase; }

private:
    struct Row
    {
        std::string_view className;
        char const* lines;
        char const* finding; ///< as shown before fixing, without "(can be fixed)"
        char const* remedy;  ///< null: cannot be fixed
    };

    void newDrawingsAreFine() { assertFindings(""); }

    void judgesEntities()
    {
        addBlock(L"Door");
        constexpr Row rows[] = {
            {"CIRCLE", "40 0", "CIRCLE: its radius is 0", "erased"},
            {"ARC", "40 -2.5", "ARC: its radius -2.5 is negative", "made positive"},
            {"CIRCLE", "10 nan", "CIRCLE: the value of group 10 is not finite", "default taken"},
            {"ARC", "50 inf", "ARC: the value of group 50 is not finite", "default taken"},
            {"LINE", "210 0\n220 0\n230 0", "LINE: its normal has no direction", "Z axis taken"},
            {"LINE", "210 nan\n230 0", "LINE: the value of group 210 is not finite", "default taken"},
            {"ELLIPSE", "40 -0.5", "ELLIPSE: its radius ratio -0.5 is not above 0 and at most 1",
             "axes made to fit"},
            {"ELLIPSE", "11 0\n21 0\n31 0", "ELLIPSE: its major axis has no length", "erased"},
            {"ELLIPSE", "11 0\n21 0\n31 2", "ELLIPSE: its major axis runs along its normal", "erased"},
            {"ELLIPSE", "11 1\n21 0\n31 1", "ELLIPSE: its normal does not stand on its major axis",
             "normal turned"},
            {"RAY", "11 0\n21 0\n31 0", "RAY: it has no direction", "erased"},
            {"LWPOLYLINE", "10 1\n20 1\n40 -1\n41 -2", "LWPOLYLINE: 2 of its widths are negative", "0 taken"},
            {"LWPOLYLINE", "43 -1\n10 1\n20 1", "LWPOLYLINE: its constant width -1 is negative", "0 taken"},
            {"TEXT", "40 0", "TEXT: its height 0 is not positive", "the usual height taken"},
            {"ATTDEF", "40 -1", "ATTDEF: its height -1 is not positive", "made positive"},
            {"TEXT", "41 0", "TEXT: its width factor 0 is not positive", "1 taken"},
            {"LWPOLYLINE", "70 1", "LWPOLYLINE: it has no vertices", "erased"},
            {"LWPOLYLINE", "10 1\n20 1\n10 inf\n20 2\n42 nan", "LWPOLYLINE: 1 of its vertices are not finite",
             "0 taken"},
            {"INSERT", "10 1", "INSERT: its block is missing", "erased"},
            {"INSERT", "2 Door\n42 0", "INSERT: one of its scale factors is 0", "1 taken"},
            {"INSERT", "2 Door\n70 2000\n71 2000",
             "INSERT: it repeats its block 4000000 times (2000 columns, 2000 rows)", nullptr},
        };
        for (Row const& row : rows) {
            OdDbObjectId const id = append(*space(), row.className, row.lines);
            assertFixable(row.finding, row.remedy);
            id.safeOpenObject(OdDb::kForWrite)->erase();
        }
    }

    void missingLayerAndLinetype()
    {
        OdDbObjectId const layer = addRecord<OdDbLayerTableRecord>(OdDbTableKind::kLayer, L"Walls");
        OdDbObjectId const line = append(*space(), "LINE", "8 Walls");
        assertFindings("");
        layer.safeOpenObject(OdDb::kForWrite)->erase();
        assertFixable("LINE: its LAYER is missing", "\"0\" taken");
        fix();
        CPPUNIT_ASSERT(line.open<OdDbLine>()->layerId() == m_database->getLayerZeroId());
    }

    void references()
    {
        OdDbObjectId const layer = addRecord<OdDbLayerTableRecord>(OdDbTableKind::kLayer, L"Walls", "390 ABCDE");
        assertFixable("LAYER \"Walls\": group 390 refers to ABCDE, which does not exist", "reference cleared");
        layer.safeOpenObject(OdDb::kForWrite)->erase();
        OdDbObjectId const line = append(*space(), "LINE", "11 1");
        line.safeOpenObject()->editExtras().extensionDictionary =
            m_database->getOdDbObjectId(OdDbHandle(0xABCDFu), true);
        assertFixable("LINE: its extension dictionary ABCDF does not exist", "reference cleared");
    }

    void namesInTables()
    {
        for (wchar_t const* const name : {L"", L"a?b", L"Walls", L"WALLS", L"walls", L"Walls_1"})
            addRecord<OdDbLayerTableRecord>(OdDbTableKind::kLayer, name);
        addRecord<OdDbLayerTableRecord>(OdDbTableKind::kLayer, L"plan|Walls", "70 16");
        assertFindings("LAYER \"\": it has no name (can be fixed)\n"
                       "LAYER \"a?b\": its name holds characters that names cannot have (can be fixed)\n"
                       "LAYER \"WALLS\": another record has the same name (can be fixed)\n"
                       "LAYER \"walls\": another record has the same name (can be fixed)\n");
        fix();
        assertFindings("");
        for (wchar_t const* const name : {L"Unnamed", L"a_b", L"Walls", L"WALLS_2", L"walls_3", L"Walls_1"})
            CPPUNIT_ASSERT_MESSAGE(OdString(name).toUtf8(), m_database->table(OdDbTableKind::kLayer).has(name));
        m_database->undo();
        CPPUNIT_ASSERT_EQUAL(std::size_t(4), found());
    }

    void entriesOfNothing()
    {
        auto const dictionary = m_database->getNamedObjectsDictionaryId().open<OdDbDictionary>(OdDb::kForWrite);
        std::size_t const before = dictionary->entries().size();
        dictionary->setAt(L"first", m_database->getOdDbObjectId(OdDbHandle(0xABCDEu), true));
        OdDbObjectId const real = dictionary->setAt(L"real", new OdDbRawObject("XRECORD"));
        dictionary->setAt(L"last", m_database->getOdDbObjectId(OdDbHandle(0xFFFFFu), true));
        assertFixable("DICTIONARY: its entry \"first\" and 1 more refer to nothing", "removed");
        CPPUNIT_ASSERT_EQUAL_MESSAGE("undone", before + 3, dictionary->entries().size());
        fix();
        CPPUNIT_ASSERT_EQUAL(before + 1, dictionary->entries().size());
        CPPUNIT_ASSERT(dictionary->getAt(L"real") == real && !dictionary->has(L"first"));
    }

    void owners()
    {
        auto const dictionary = m_database->getNamedObjectsDictionaryId().open<OdDbDictionary>(OdDb::kForWrite);
        OdDbObjectId const object = dictionary->setAt(L"mine", new OdDbRawObject("XRECORD"));
        OdDbObjectId const other = dictionary->getAt(L"ACAD_GROUP");
        object.safeOpenObject(OdDb::kForWrite)->setOwner(other);
        assertFixable("XRECORD: its owner " + text(other) + " does not list it",
                      "owned by " + text(dictionary->objectId()) + " now");
        CPPUNIT_ASSERT_MESSAGE("undone", object.safeOpenObject()->ownerId() == other);
        fix();
        CPPUNIT_ASSERT(object.safeOpenObject()->ownerId() == dictionary->objectId());

        OdDbObjectId const line = append(*space(), "LINE", "11 1");
        line.safeOpenObject(OdDb::kForWrite)->setOwner(other);
        assertFixable("LINE: its owner is " + text(other) + ", but it stands in " + text(space()->objectId()),
                      "owner set");
    }

    void recordsThatEveryDrawingHas()
    {
        OdDbObjectId const layer = addRecord<OdDbLayerTableRecord>(OdDbTableKind::kLayer, L"Walls");
        m_database->setCurrent(OdDbTableKind::kLayer, layer);
        layer.safeOpenObject(OdDb::kForWrite)->erase();
        assertFixable("table LAYER: the current record is missing", "\"0\" is current now");
        fix();
        m_database->table(OdDbTableKind::kLinetype).getAt(L"ByBlock").safeOpenObject(OdDb::kForWrite)->erase();
        assertFixable("table LTYPE: the record \"ByBlock\", which every drawing has, is missing", "added");
    }

    void blocksWithinThemselves()
    {
        OdDbBlockTableRecord& a = addBlock(L"A");
        OdDbBlockTableRecord& b = addBlock(L"B");
        OdDbBlockTableRecord& c = addBlock(L"C");
        append(*space(), "INSERT", "2 A");
        append(a, "INSERT", "2 B");
        append(b, "INSERT", "2 C");
        append(a, "INSERT", "2 C"); // twice below A, but not within itself
        assertFindings("");
        OdDbObjectId const closing = append(c, "INSERT", "2 A");
        assertFixable("INSERT: it makes a block contain itself: A > B > C > A", "erased");
        closing.safeOpenObject(OdDb::kForWrite)->erase();
        append(b, "INSERT", "2 B");
        assertFixable("INSERT: it makes a block contain itself: B > B", "erased");
    }

    void exponentialNesting()
    {
        append(addBlock(L"L0"), "LINE", "11 1");
        for (int i = 1; i <= 200; ++i) {
            OdDbBlockTableRecord& block = addBlock(odFormat(L"L%d", i));
            for (int k = 0; k < 4; ++k)
                append(block, "INSERT", "2 L" + std::to_string(i - 1));
        }
        // 4 entities a level, each of them 4 times on the next: level 13 is the first with more than 100 million.
        assertFindings("BLOCK_RECORD \"L13\": its references multiply to more than 100000000 entities\n");
    }

    void deepNesting()
    {
        constexpr int kDepth = 20000;
        std::vector<OdDbBlockTableRecord*> blocks;
        for (int i = 0; i < kDepth; ++i)
            blocks.push_back(&addBlock(odFormat(L"D%d", i)));
        for (int i = 0; i + 1 < kDepth; ++i)
            refer(*blocks[static_cast<std::size_t>(i)], *blocks[static_cast<std::size_t>(i) + 1]);
        assertFindings("");
        refer(*blocks.back(), *blocks.front());
        assertFindings("INSERT: it makes a block contain itself: D0 > D1 > D2 > D3 > D4 > D5 > D6 > D7 > "
                       "19992 more > D0 (can be fixed)\n");
    }

    /// One finding; after fixing none, unless it cannot be fixed; after undoing the same again.
    void assertFixable(std::string const& finding, std::optional<std::string> const& remedy)
    {
        std::string const before = finding + (remedy ? " (can be fixed)\n" : "\n");
        std::uint64_t const changes = m_database->changeCount();
        assertFindings(before);
        CPPUNIT_ASSERT_EQUAL_MESSAGE("looking changes nothing", changes, m_database->changeCount());
        OdDbAuditInfo const info = fix();
        CPPUNIT_ASSERT_EQUAL(remedy ? finding + "; " + *remedy + "\n" : before, shown(info));
        CPPUNIT_ASSERT_EQUAL(std::size_t(remedy ? 1 : 0), info.errorsFixed());
        assertFindings(remedy ? "" : before);
        if (remedy)
            m_database->undo();
        assertFindings(before);
    }
    void assertFixable(char const* finding, char const* remedy)
    {
        assertFixable(finding, remedy ? std::optional<std::string>(remedy) : std::nullopt);
    }

    OdDbAuditInfo fix()
    {
        m_database->startUndoRecord(L"AUDIT");
        OdDbAuditInfo info(true);
        odDbAudit(*m_database, info);
        m_database->undoLog().end();
        return info;
    }
    void assertFindings(std::string const& expected)
    {
        OdDbAuditInfo info;
        odDbAudit(*m_database, info);
        CPPUNIT_ASSERT_EQUAL(expected, shown(info));
    }
    std::size_t found()
    {
        OdDbAuditInfo info;
        odDbAudit(*m_database, info);
        return info.errorsFound();
    }
    static std::string shown(OdDbAuditInfo const& info)
    {
        std::string all;
        for (OdDbAuditInfo::Finding const& finding : info.findings())
            all += finding.shown().toUtf8() + "\n";
        return all;
    }
    static std::string text(OdDbObjectId id) { return id.getHandle().ascii().toUtf8(); }

    OdDbBlockTableRecordPtr space() { return m_database->getModelSpaceId().open<OdDbBlockTableRecord>(); }
    OdDbBlockTableRecord& addBlock(OdString const& name)
    {
        OdDbObjectId const id = addRecord<OdDbBlockTableRecord>(OdDbTableKind::kBlock, name);
        return *id.open<OdDbBlockTableRecord>();
    }
    /// As files are read: no checks.
    template <class Record>
    OdDbObjectId addRecord(OdDbTableKind kind, OdString const& name, std::string const& lines = "")
    {
        OdSmartPtr<Record> const record(new Record);
        read(*record, "2 " + name.toUtf8() + "\n" + lines);
        OdDbSymbolTable& table = m_database->table(kind);
        OdDbObjectId const id = m_database->addOdDbObject(record, table.objectId());
        table.adopt(*record);
        return id;
    }
    OdDbObjectId append(OdDbBlockTableRecord& block, std::string_view className, std::string const& lines)
    {
        OdDbEntityPtr const entity = OdRxObjectPtr(odDbClassRegistry::choose(className, tagsOf(lines))->create());
        if (!lines.starts_with("8 "))
            entity->setLayer(m_database->getLayerZeroId());
        read(*entity, lines);
        return adopt(block, *entity);
    }
    void refer(OdDbBlockTableRecord& block, OdDbBlockTableRecord& target)
    {
        OdDbBlockReferencePtr const reference(new OdDbBlockReference);
        reference->setLayer(m_database->getLayerZeroId());
        reference->setBlockTableRecord(target.objectId());
        adopt(block, *reference);
    }
    OdDbObjectId adopt(OdDbBlockTableRecord& block, OdDbEntity& entity)
    {
        OdDbObjectId const id = m_database->addOdDbObject(&entity, block.objectId());
        block.adopt(entity);
        return id;
    }
    void read(OdDbObject& object, std::string const& lines)
    {
        DatabaseResolver resolver(*m_database);
        OdDbRecordReader reader(object, resolver);
        for (OdDbTag const tag : tagsOf(lines))
            reader.put(tag);
    }
};

CPPUNIT_TEST_SUITE_REGISTRATION(AuditTest);

} // namespace
