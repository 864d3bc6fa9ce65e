// What every drawing has, as tables of names, and the code that adds what a drawing lacks. Records and objects
// that are there keep their handles and their contents.
#include "host/db/od_db_database.h"
#include "host/db/od_db_raw_object.h"
#include "host/db/records/od_db_block_table_record.h"
#include "host/db/records/od_db_dictionary_with_default.h"
#include "host/db/records/od_db_dim_style_table_record.h"
#include "host/db/records/od_db_layer_table_record.h"
#include "host/db/records/od_db_layout.h"
#include "host/db/records/od_db_linetype_table_record.h"
#include "host/db/records/od_db_material.h"
#include "host/db/records/od_db_place_holder.h"
#include "host/db/records/od_db_reg_app_table_record.h"
#include "host/db/records/od_db_table_kinds.h"
#include "host/db/records/od_db_text_style_table_record.h"
#include "host/db/records/od_db_viewport_table_record.h"
#include "host/db/template/od_db_template_dim_style.h"
#include "host/db/template/od_db_template_header.h"

namespace {

/// A dictionary of the named objects dictionary.
struct DictionaryRow
{
    wchar_t const* name;
    OdRxClass::DescFunction dictionaryClass;
};

/// An object of a class that the host keeps raw.
struct RawObjectRow
{
    wchar_t const* dictionary;
    wchar_t const* name;
    std::string_view dxfName;
    std::string_view marker;
    void (*write)(RawObjectRow const& row, OdDbTagSink& sink);
};

struct LinetypeRow
{
    wchar_t const* name;
    wchar_t const* comments;
};

struct CurrentRow
{
    OdDbTableKind kind;
    wchar_t const* name;
};

/// Two lines, half a unit to either side.
void writeMlineStyle(RawObjectRow const& row, OdDbTagSink& sink)
{
    sink.text(2, OdString(row.name));
    sink.integer(70, 0);
    sink.text(3, std::string_view());
    sink.integer(62, 256);
    sink.real(51, 90);
    sink.real(52, 90);
    sink.integer(71, 2);
    for (double const offset : {0.5, -0.5}) {
        sink.real(49, offset);
        sink.integer(62, 256);
        sink.text(6, std::string_view("BYLAYER"));
    }
}

constexpr wchar_t kLayouts[] = L"ACAD_LAYOUT";
constexpr wchar_t kMaterials[] = L"ACAD_MATERIAL";
constexpr wchar_t kMlineStyles[] = L"ACAD_MLINESTYLE";
constexpr wchar_t kPlotStyles[] = L"ACAD_PLOTSTYLENAME";

// clang-format off
constexpr DictionaryRow kDictionaries[] = {
    {L"ACAD_GROUP",        &OdDbDictionary::desc},
    {kLayouts,             &OdDbDictionary::desc},
    {kMaterials,           &OdDbDictionary::desc},
    {kMlineStyles,         &OdDbDictionary::desc},
    {L"ACAD_PLOTSETTINGS", &OdDbDictionary::desc},
    {kPlotStyles,          &OdDbDictionaryWithDefault::desc},
};

constexpr RawObjectRow kRawObjects[] = {
    {kMlineStyles, L"Standard", "MLINESTYLE", "AcDbMlineStyle", &writeMlineStyle},
};

constexpr wchar_t const* kMaterialNames[] = {L"ByBlock", L"ByLayer", L"Global"};

constexpr LinetypeRow kLinetypes[] = {
    {L"ByBlock",    L""},
    {L"ByLayer",    L""},
    {L"Continuous", L"Solid line"},
};

constexpr CurrentRow kCurrent[] = {
    {OdDbTableKind::kLayer,     L"0"},
    {OdDbTableKind::kLinetype,  L"ByLayer"},
    {OdDbTableKind::kTextStyle, L"Standard"},
    {OdDbTableKind::kDimStyle,  L"Standard"},
};
// clang-format on

class TemplateFill
{
public:
    explicit TemplateFill(OdDbDatabase& database) : m_database(database) {}
    void run();

private:
    OdSmartPtr<OdDbSymbolTable> table(OdDbTableKind kind) const
    {
        return m_database.getTableId(kind).open<OdDbSymbolTable>(OdDb::kForWrite);
    }
    /// A new record of the name for the caller to fill and add; null when the table has one.
    template <class Record>
    static OdSmartPtr<Record> lackingRecord(OdDbSymbolTable const& table, wchar_t const* name);
    /// A dictionary of the named objects dictionary; added when there is none.
    OdDbDictionaryPtr dictionary(wchar_t const* name, OdRxClass::DescFunction cls = &OdDbDictionary::desc) const;

    void addTables();
    void addDictionaries();
    void addMaterials();
    void addRawObjects();
    void addPlotStyle();
    void addLinetypes();
    void addLayerZero();
    void addStyles();
    void addViewport();
    void addSpaces();
    void completeBlock(OdDbBlockTableRecord& block);
    OdDbObjectId layoutOf(OdDbBlockTableRecord const& block) const;
    OdDbObjectId addLayout(OdDbBlockTableRecord const& block);
    void completeLayers();
    void setCurrentRecords();

    OdDbDatabase& m_database;
};

void TemplateFill::run()
{
    addTables();
    addDictionaries();
    addMaterials();
    addRawObjects();
    addPlotStyle();
    addLinetypes();
    addLayerZero();
    addStyles();
    addViewport();
    addSpaces();
    completeLayers();
    if (m_database.header().variables().empty())
        m_database.editHeader() = odDbTemplateHeader();
    setCurrentRecords();
}

template <class Record>
OdSmartPtr<Record> TemplateFill::lackingRecord(OdDbSymbolTable const& table, wchar_t const* name)
{
    if (table.has(name))
        return nullptr;
    OdSmartPtr<Record> record(new Record);
    record->setName(name);
    return record;
}

OdDbDictionaryPtr TemplateFill::dictionary(wchar_t const* name, OdRxClass::DescFunction cls) const
{
    auto const root = m_database.getNamedObjectsDictionaryId().open<OdDbDictionary>(OdDb::kForWrite);
    OdDbObjectPtr const present = root->getAt(name).openObject(OdDb::kForWrite);
    if (auto* const dictionary = odCast<OdDbDictionary>(present.get()))
        return dictionary;
    OdDbDictionaryPtr added = OdRxObjectPtr(cls()->create());
    root->setAt(name, added.get());
    return added;
}

void TemplateFill::addTables()
{
    for (OdDbTableKindInfo const& info : odDbTableKinds()) {
        if (m_database.getTableId(info.kind).isValid())
            continue;
        OdSmartPtr<OdDbSymbolTable> const added = OdRxObjectPtr(info.tableClass()->create());
        m_database.setTableId(info.kind, m_database.addOdDbObject(added.get(), {}));
    }
}

void TemplateFill::addDictionaries()
{
    if (!m_database.getNamedObjectsDictionaryId().isValid())
        m_database.setNamedObjectsDictionaryId(m_database.addOdDbObject(new OdDbDictionary, {}));
    for (DictionaryRow const& row : kDictionaries)
        dictionary(row.name, row.dictionaryClass);
}

void TemplateFill::addMaterials()
{
    constexpr std::int32_t kFirstSixChannels = 63;
    OdDbDictionaryPtr const materials = dictionary(kMaterials);
    for (wchar_t const* const name : kMaterialNames) {
        if (materials->has(name))
            continue;
        OdDbMaterialPtr const material(new OdDbMaterial);
        material->setName(name);
        material->setChannelFlags(kFirstSixChannels);
        materials->setAt(name, material.get());
    }
}

void TemplateFill::addRawObjects()
{
    for (RawObjectRow const& row : kRawObjects) {
        OdDbDictionaryPtr const owner = dictionary(row.dictionary);
        if (owner->has(row.name))
            continue;
        OdSmartPtr<OdDbRawObject> const object(new OdDbRawObject(row.dxfName));
        auto& sections = object->editExtras().sections;
        sections.push_back({-1, std::string(row.marker), {}});
        row.write(row, sections.back().tags);
        owner->setAt(row.name, object.get());
    }
}

void TemplateFill::addPlotStyle()
{
    OdDbDictionaryPtr const styles = dictionary(kPlotStyles);
    OdDbObjectId normal = styles->getAt(L"Normal");
    if (normal.isNull())
        normal = styles->setAt(L"Normal", new OdDbPlaceHolder);
    auto* const withDefault = odCast<OdDbDictionaryWithDefault>(styles.get());
    if (withDefault && withDefault->defaultId().isNull())
        withDefault->setDefaultId(normal);
}

void TemplateFill::addLinetypes()
{
    auto const linetypes = table(OdDbTableKind::kLinetype);
    for (LinetypeRow const& row : kLinetypes) {
        if (auto const record = lackingRecord<OdDbLinetypeTableRecord>(*linetypes, row.name)) {
            record->setComments(row.comments);
            linetypes->add(record);
        }
    }
}

void TemplateFill::addLayerZero()
{
    auto const layers = table(OdDbTableKind::kLayer);
    if (auto const record = lackingRecord<OdDbLayerTableRecord>(*layers, L"0")) {
        record->setPlotStyleName(dictionary(kPlotStyles)->getAt(L"Normal"));
        record->setMaterialId(dictionary(kMaterials)->getAt(L"Global"));
        layers->add(record);
    }
}

void TemplateFill::addStyles()
{
    auto const textStyles = table(OdDbTableKind::kTextStyle);
    if (auto const record = lackingRecord<OdDbTextStyleTableRecord>(*textStyles, L"Standard")) {
        record->setFileName(L"txt");
        textStyles->add(record);
    }
    auto const dimStyles = table(OdDbTableKind::kDimStyle);
    if (!dimStyles->has(L"Standard")) {
        OdSmartPtr<OdDbDimStyleTableRecord> const record(new OdDbDimStyleTableRecord(odDbTemplateDimStyle()));
        record->setReference("DIMTXSTY", textStyles->getAt(L"Standard"));
        dimStyles->add(record);
    }
    auto const applications = table(OdDbTableKind::kRegApp);
    if (auto const record = lackingRecord<OdDbRegAppTableRecord>(*applications, L"ACAD"))
        applications->add(record);
}

void TemplateFill::addViewport()
{
    auto const viewports = table(OdDbTableKind::kViewport);
    if (auto const record = lackingRecord<OdDbViewportTableRecord>(*viewports, L"*Active")) {
        record->setCenterPoint({210, 148.5});
        record->setSize(297, 420.0 / 297.0);
        viewports->add(record);
    }
}

void TemplateFill::addSpaces()
{
    auto const blocks = table(OdDbTableKind::kBlock);
    auto const space = [&blocks](OdDbObjectId present, wchar_t const* name) {
        if (!present.isErased())
            return present;
        if (auto const record = lackingRecord<OdDbBlockTableRecord>(*blocks, name))
            return blocks->add(record);
        return blocks->getAt(name);
    };
    OdDbObjectId const model = space(m_database.getModelSpaceId(), L"*Model_Space");
    OdDbObjectId const paper = space(m_database.getPaperSpaceId(), L"*Paper_Space");
    m_database.setSpaces(model, paper);
    for (OdDbStub* const stub : blocks->records())
        if (!stub->erased)
            completeBlock(*OdDbObjectId(stub).open<OdDbBlockTableRecord>(OdDb::kForWrite));
}

void TemplateFill::completeBlock(OdDbBlockTableRecord& block)
{
    block.completeFrame();
    bool const isSpace = block.objectId() == m_database.getModelSpaceId() || block.isPaperSpace();
    if (!isSpace || odCast<OdDbLayout>(block.getLayoutId().openObject().get()))
        return;
    OdDbObjectId const present = layoutOf(block);
    block.setLayoutId(present.isNull() ? addLayout(block) : present);
}

OdDbObjectId TemplateFill::layoutOf(OdDbBlockTableRecord const& block) const
{
    for (OdDbDictionary::Entry const& entry : dictionary(kLayouts)->entries()) {
        OdDbObjectPtr const object = entry.id.openObject();
        auto const* layout = odCast<OdDbLayout>(object.get());
        if (layout && layout->getBlockTableRecordId() == block.objectId())
            return entry.id;
    }
    return {};
}

OdDbObjectId TemplateFill::addLayout(OdDbBlockTableRecord const& block)
{
    OdDbDictionaryPtr const layouts = dictionary(kLayouts);
    bool const isModel = block.objectId() == m_database.getModelSpaceId();
    OdString name(L"Model");
    int order = 0;
    while (!isModel && (order == 0 || layouts->has(name)))
        name = odFormat(L"Layout%d", ++order);
    OdDbLayoutPtr const layout(new OdDbLayout);
    layout->setLayoutName(name);
    layout->setTabOrder(order);
    layout->setModelType(isModel);
    layout->setBlockTableRecordId(block.objectId());
    return layouts->setAt(name, layout.get());
}

/// Layers of old files can lack a linetype.
void TemplateFill::completeLayers()
{
    auto const layers = table(OdDbTableKind::kLayer);
    OdDbObjectId const continuous = table(OdDbTableKind::kLinetype)->getAt(L"Continuous");
    for (OdDbStub* const stub : layers->records()) {
        auto& layer = *static_cast<OdDbLayerTableRecord*>(stub->object);
        if (layer.linetypeObjectId().isNull())
            OdDbObjectId(stub).open<OdDbLayerTableRecord>(OdDb::kForWrite, true)->setLinetypeObjectId(continuous);
    }
}

void TemplateFill::setCurrentRecords()
{
    for (CurrentRow const& row : kCurrent)
        if (m_database.current(row.kind).isErased())
            m_database.setCurrent(row.kind, m_database.table(row.kind).getAt(row.name));
}

} // namespace

void OdDbDatabase::completeFromTemplate()
{
    OdDbHandle const first = handseed();
    TemplateFill(*this).run();
    if (!m_endFromTemplate.isNull())
        return; // what mending adds later belongs to the drawing
    m_firstFromTemplate = first;
    m_endFromTemplate = handseed();
}
