#include "host/db/od_db_database.h"
#include "host/db/records/od_db_dim_style_table_record.h"
#include "host/db/records/od_db_layer_table_record.h"
#include "host/db/records/od_db_linetype_table_record.h"
#include "host/db/records/od_db_text_style_table_record.h"
#include "host/db/records/od_db_ucs_table_record.h"
#include "host/db/records/od_db_viewport_table_record.h"
#include "tests/support/od_result_of.h"

#include <cppunit/extensions/HelperMacros.h>

namespace {

class RecordsTest : public CppUnit::TestFixture
{
    CPPUNIT_TEST_SUITE(RecordsTest);
    CPPUNIT_TEST(namesAreCheckedAndUnique);
    CPPUNIT_TEST(lookupFollowsRenamesErasingAndUndo);
    CPPUNIT_TEST(shapeFilesHaveNoName);
    CPPUNIT_TEST(viewportsMayShareAName);
    CPPUNIT_TEST(changeMakesAnImpliedRecordReal);
    CPPUNIT_TEST(layerKeepsItsColorWhileOff);
    CPPUNIT_TEST(layerDescriptionIsExtendedData);
    CPPUNIT_TEST(layerGetsALinetype);
    CPPUNIT_TEST(dimStyleHoldsVariables);
    CPPUNIT_TEST(linetypePatternLengthFollowsDashes);
    CPPUNIT_TEST(settersCheckTheirValues);
    CPPUNIT_TEST_SUITE_END();

public:
    void setUp() override
    {
        m_database = new OdDbDatabase;
        m_database->startUndoRecord();
    }

    void tearDown() override { m_database.release(); }

private:
    OdDbDatabasePtr m_database;

    OdSmartPtr<OdDbSymbolTable> table(OdDbTableKind kind)
    {
        return m_database->getTableId(kind).open<OdDbSymbolTable>(OdDb::kForWrite);
    }

    template <class Record>
    OdSmartPtr<Record> add(OdDbTableKind kind, wchar_t const* name)
    {
        OdSmartPtr<Record> record(new Record);
        record->setName(name);
        table(kind)->add(record);
        return record;
    }

    OdDbLayerTableRecordPtr addLayer(wchar_t const* name)
    {
        return add<OdDbLayerTableRecord>(OdDbTableKind::kLayer, name);
    }

    void namesAreCheckedAndUnique()
    {
        auto const layer = addLayer(L"Walls");
        addLayer(L"Doors");
        for (wchar_t const* name : {L"", L"a|b", L"a*", L"a/b", L"\"", L"*"})
            CPPUNIT_ASSERT_EQUAL(eInvalidName, odResultOf([&] { layer->setName(name); }));
        CPPUNIT_ASSERT_EQUAL(eDuplicateKey, odResultOf([&] { layer->setName(L"DOORS"); }));
        CPPUNIT_ASSERT_EQUAL(eDuplicateKey, odResultOf([&] { addLayer(L"walls"); }));
        CPPUNIT_ASSERT_EQUAL(eInvalidName,
                             odResultOf([&] { table(OdDbTableKind::kLayer)->add(new OdDbLayerTableRecord); }));
        CPPUNIT_ASSERT(layer->getName() == L"Walls");
        layer->setName(L"WALLS"); // its own name in other letters
        CPPUNIT_ASSERT(layer->getName() == L"WALLS");
        CPPUNIT_ASSERT_EQUAL(std::size_t(3), table(OdDbTableKind::kLayer)->records().size());
    }

    void lookupFollowsRenamesErasingAndUndo()
    {
        auto const layers = table(OdDbTableKind::kLayer);
        auto const layer = addLayer(L"Walls");
        CPPUNIT_ASSERT(layers->getAt(L"wALLS") == layer->objectId());
        m_database->startUndoRecord();
        layer->setName(L"Floors");
        CPPUNIT_ASSERT(!layers->has(L"Walls") && layers->has(L"Floors"));
        m_database->undo();
        CPPUNIT_ASSERT(layers->has(L"Walls") && !layers->has(L"Floors"));
        m_database->redo();
        CPPUNIT_ASSERT(!layers->has(L"Walls") && layers->has(L"Floors"));

        m_database->startUndoRecord();
        layer->erase();
        CPPUNIT_ASSERT(!layers->has(L"Floors"));
        auto const second = addLayer(L"Floors");
        CPPUNIT_ASSERT(layers->getAt(L"Floors") == second->objectId());
        m_database->undo();
        CPPUNIT_ASSERT(layers->getAt(L"Floors") == layer->objectId() && second->isErased());
    }

    void shapeFilesHaveNoName()
    {
        auto const styles = table(OdDbTableKind::kTextStyle);
        for (wchar_t const* file : {L"ltypeshp.shx", L"other.shx"}) {
            OdDbTextStyleTableRecordPtr const shapes(new OdDbTextStyleTableRecord);
            shapes->setIsShapeFile(true);
            shapes->setFileName(file);
            styles->add(shapes);
        }
        CPPUNIT_ASSERT_EQUAL(std::size_t(3), styles->records().size());
        CPPUNIT_ASSERT(!styles->has(L""));
        CPPUNIT_ASSERT_EQUAL(eInvalidName, odResultOf([&] { styles->add(new OdDbTextStyleTableRecord); }));
    }

    void viewportsMayShareAName()
    {
        auto const viewports = table(OdDbTableKind::kViewport);
        OdDbObjectId const first = viewports->getAt(L"*active");
        OdDbViewportTableRecordPtr const second(new OdDbViewportTableRecord);
        second->setName(L"*Active");
        m_database->addOdDbObject(second, viewports->objectId());
        viewports->adopt(*second);
        CPPUNIT_ASSERT(viewports->getAt(L"*Active") == first);
        first.open<OdDbViewportTableRecord>(OdDb::kForWrite)->erase();
        CPPUNIT_ASSERT(viewports->getAt(L"*Active") == second->objectId());
    }

    void changeMakesAnImpliedRecordReal()
    {
        auto const layer = addLayer(L"Mentioned");
        layer->setImplied(true);
        CPPUNIT_ASSERT_EQUAL(eOutOfRange, odResultOf([&] { layer->setLineWeight(212); }));
        CPPUNIT_ASSERT(layer->isImplied());
        m_database->startUndoRecord();
        layer->setIsLocked(true);
        CPPUNIT_ASSERT(!layer->isImplied());
        m_database->undo();
        CPPUNIT_ASSERT(layer->isImplied() && !layer->isLocked());
    }

    void layerKeepsItsColorWhileOff()
    {
        auto const layer = addLayer(L"L");
        layer->setColor(OdCmColor(3));
        layer->setIsOff(true);
        layer->setIsOff(true);
        CPPUNIT_ASSERT(layer->isOff() && layer->color() == OdCmColor(3));
        layer->setColor(OdCmColor::trueColor(0x12, 0x34, 0xFE, 5));
        CPPUNIT_ASSERT(layer->isOff() && layer->color() == OdCmColor::trueColor(0x12, 0x34, 0xFE, 5));
        layer->setIsOff(false);
        layer->setColor(OdCmColor(6));
        CPPUNIT_ASSERT(!layer->isOff() && layer->color() == OdCmColor(6));
        for (std::int16_t const index : {OdCmColor::kByBlock, OdCmColor::kByLayer})
            CPPUNIT_ASSERT_EQUAL(eOutOfRange, odResultOf([&] { layer->setColor(OdCmColor(index)); }));

        layer->setIsFrozen(true);
        layer->setIsLocked(true);
        layer->setIsFrozen(false);
        CPPUNIT_ASSERT(layer->isLocked() && !layer->isFrozen());
    }

    void layerDescriptionIsExtendedData()
    {
        auto const layer = addLayer(L"L");
        CPPUNIT_ASSERT(layer->description().isEmpty());
        layer->setDescription(L"outer walls");
        CPPUNIT_ASSERT(layer->description() == L"outer walls");
        CPPUNIT_ASSERT(table(OdDbTableKind::kRegApp)->has(L"AcAecLayerStandard"));
        layer->setDescription(L"");
        CPPUNIT_ASSERT(layer->description().isEmpty());
        CPPUNIT_ASSERT(layer->extendedData(L"AcAecLayerStandard").empty());
    }

    void layerGetsALinetype()
    {
        OdDbObjectId const continuous = table(OdDbTableKind::kLinetype)->getAt(L"CONTINUOUS");
        auto const layer = addLayer(L"L");
        CPPUNIT_ASSERT(!continuous.isNull() && layer->linetypeObjectId() == continuous);
        OdDbDatabasePtr const other(new OdDbDatabase);
        CPPUNIT_ASSERT_EQUAL(eWrongDatabase,
                             odResultOf([&] { layer->setLinetypeObjectId(other->getLinetypeByLayerId()); }));
    }

    void dimStyleHoldsVariables()
    {
        OdDbDimStyleTableRecordPtr const style(new OdDbDimStyleTableRecord);
        // What a style does not mention has the default of drawing files.
        CPPUNIT_ASSERT_EQUAL(0.18, style->real("DIMASZ"));
        CPPUNIT_ASSERT_EQUAL(4, style->integer("DIMDEC"));
        CPPUNIT_ASSERT_DOUBLES_EQUAL(OdaPI / 4, style->real("DIMJOGANG"), 1e-15);
        style->setReal("DIMASZ", 3.5);
        style->setReal("DIMJOGANG", OdaPI / 2);
        style->setText("DIMPOST", L"<> mm");
        style->setInteger("DIMDEC", 1);
        CPPUNIT_ASSERT_EQUAL(3.5, style->real("DIMASZ"));
        CPPUNIT_ASSERT_DOUBLES_EQUAL(OdaPI / 2, style->real("DIMJOGANG"), 1e-15);
        CPPUNIT_ASSERT(style->text("DIMPOST") == L"<> mm");

        CPPUNIT_ASSERT_EQUAL(eKeyNotFound, odResultOf([&] { style->setReal("DIMNONE", 1); }));
        CPPUNIT_ASSERT_EQUAL(eInvalidInput, odResultOf([&] { style->setReal("DIMDEC", 1); }));
        CPPUNIT_ASSERT_EQUAL(eInvalidInput, odResultOf([&] { style->reference("DIMPOST"); }));

        style->setName(L"Mine");
        table(OdDbTableKind::kDimStyle)->add(style);
        CPPUNIT_ASSERT(style->reference("DIMTXSTY") == m_database->getTEXTSTYLE());
        m_database->startUndoRecord();
        style->setInteger("DIMDEC", 7);
        style->setInteger("DIMTAD", 1);
        m_database->undo();
        CPPUNIT_ASSERT_EQUAL(1, style->integer("DIMDEC"));
        CPPUNIT_ASSERT_EQUAL(0, style->integer("DIMTAD"));
    }

    void linetypePatternLengthFollowsDashes()
    {
        OdDbLinetypeTableRecordPtr const linetype(new OdDbLinetypeTableRecord);
        OdDbLinetypeTableRecord::Dash dash, gap, dot;
        dash.length = 12;
        gap.length = -3;
        linetype->setDashes({dash, gap, dot, gap});
        CPPUNIT_ASSERT_EQUAL(18.0, linetype->patternLength());
    }

    void settersCheckTheirValues()
    {
        OdDbTextStyleTableRecordPtr const style(new OdDbTextStyleTableRecord);
        OdDbUCSTableRecordPtr const ucs(new OdDbUCSTableRecord);
        OdDbViewportTableRecordPtr const viewport(new OdDbViewportTableRecord);
        double const nan = std::numeric_limits<double>::quiet_NaN();
        std::pair<OdResult, std::function<void()>> const refused[] = {
            {eOutOfRange, [&] { style->setTextSize(-1); }},
            {eOutOfRange, [&] { style->setTextSize(nan); }},
            {eOutOfRange, [&] { style->setXScale(0); }},
            {eOutOfRange, [&] { style->setObliquingAngle(1.5); }},
            {eDegenerateGeometry,
             [&] {
                 ucs->setAxes({1, 0, 0}, {1, 1, 0});
             }},
            {eDegenerateGeometry,
             [&] {
                 ucs->setAxes({1, 0, 0}, {0, 0, 0});
             }},
            {eOutOfRange,
             [&] {
                 viewport->setSnapIncrements({0, 1});
             }},
            {eOutOfRange,
             [&] {
                 viewport->setGridIncrements({1, -1});
             }},
            {eOutOfRange, [&] { viewport->setSnapPair(3); }},
            {eOutOfRange, [&] { viewport->setSize(10, 0); }},
            {eDegenerateGeometry,
             [&] {
                 viewport->setViewDirection({0, 0, 0});
             }},
        };
        for (auto const& [code, call] : refused)
            CPPUNIT_ASSERT_EQUAL(code, odResultOf(call));

        ucs->setAxes({0, 3, 0}, {-2, 0, 0});
        CPPUNIT_ASSERT(ucs->xAxis() == OdGeVector3d(0, 1, 0) && ucs->yAxis() == OdGeVector3d(-1, 0, 0));
        style->setIsBackwards(true);
        style->setIsUpsideDown(true);
        style->setIsBackwards(false);
        CPPUNIT_ASSERT(style->isUpsideDown() && !style->isBackwards());
    }
};

CPPUNIT_TEST_SUITE_REGISTRATION(RecordsTest);

} // namespace
