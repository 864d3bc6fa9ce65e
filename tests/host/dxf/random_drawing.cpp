#include "tests/host/dxf/random_drawing.h"

#include "host/db/entities/od_db_attribute.h"
#include "host/db/entities/od_db_sequence_end.h"
#include "host/db/entities/od_db_vertices.h"
#include "host/db/filer/od_db_class_registry.h"
#include "host/db/od_db_raw_object.h"
#include "host/db/records/od_db_block_table_record.h"
#include "host/db/records/od_db_table_kinds.h"

namespace {

constexpr std::string_view kUnknownEntities[] = {"GADGET", "HATCH", "ACAD_PROXY_ENTITY", "HELIX", "3DSOLID"};
constexpr std::string_view kUnknownObjects[] = {"THING", "XRECORD", "ACAD_PROXY_OBJECT", "FIELD", "SUN"};
constexpr std::string_view kKnownSections[] = {"HEADER", "CLASSES", "TABLES", "BLOCKS", "ENTITIES", "OBJECTS"};

OdDbObjectPtr created(OdRxClass const& cls)
{
    return OdRxObjectPtr(cls.create());
}

class Builder
{
public:
    Builder(std::uint64_t seed, EOddities oddities);
    OdDbDatabasePtr build();

private:
    static constexpr int kEach = 2; ///< objects of each class

    /// Handles for the objects and for nothing, in no order.
    std::vector<OdDbHandle> shuffledHandles();
    void sortClasses();
    void addRecords();
    void addBlock();
    void addObjects();
    void addEntities();
    void addEntity(OdDbEntityPtr const& entity);
    void addParts(OdDbEntity& whole);
    void addFileContent();
    void addHeaderVariables();
    OdDbTagList unknownRecords();
    OdDbObjectId add(OdDbObject& object, OdDbObjectId owner);
    OdDbTagList comments();

    OdDbDatabasePtr m_database = new OdDbDatabase;
    RandomValues m_values;
    std::vector<OdDbHandle> m_freeHandles;
    RandomRecord m_record;
    std::vector<OdRxClass const*> m_entityClasses;
    std::vector<OdRxClass const*> m_objectClasses;
    std::vector<OdRxClass const*> m_partClasses;
    std::vector<OdDbBlockTableRecord*> m_blocks;
};

Builder::Builder(std::uint64_t seed, EOddities oddities)
    : m_values(seed), m_freeHandles(shuffledHandles()), m_record(*m_database, m_values, m_freeHandles, oddities)
{
    m_database->disableUndoRecording(true);
    m_database->setBeingRead(true);
    sortClasses();
}

std::vector<OdDbHandle> Builder::shuffledHandles()
{
    constexpr std::uint64_t kCount = 1000;
    std::uint64_t const first = m_database->handseed().value();
    std::vector<OdDbHandle> handles;
    for (std::uint64_t i = 0; i < kCount; ++i)
        handles.emplace_back(first + i);
    for (std::uint64_t i = kCount; i > 1; --i)
        std::swap(handles[i - 1], handles[m_values.below(i)]);
    m_database->raiseHandseed(OdDbHandle(first + kCount));
    return handles;
}

OdDbDatabasePtr Builder::build()
{
    addRecords();
    addObjects();
    addEntities();
    addHeaderVariables();
    addFileContent();
    m_database->setBeingRead(false);
    return m_database;
}

/// Which classes are entities and which objects that stand by themselves; tables know the classes of their
/// records.
void Builder::sortClasses()
{
    for (OdRxClass const* const cls : odrxClassDictionary::all()) {
        bool const isPart = cls == OdDbBlockBegin::desc() || cls == OdDbBlockEnd::desc() ||
                            cls == OdDbAttribute::desc() || cls == OdDbSequenceEnd::desc() ||
                            cls->isDerivedFrom(OdDbVertex::desc());
        bool const isInFiles = !odDbClassRegistry::dxfNameOf(cls).empty();
        if (cls == OdDbAttribute::desc() || (isInFiles && cls->isDerivedFrom(OdDbVertex::desc())))
            m_partClasses.push_back(cls);
        if (!isInFiles || isPart || cls->isDerivedFrom(OdDbSymbolTableRecord::desc()))
            continue;
        if (cls->isDerivedFrom(OdDbEntity::desc()))
            m_entityClasses.push_back(cls);
        else if (created(*cls)->standsAmongFileObjects())
            m_objectClasses.push_back(cls);
        else
            throw OdError(eNotApplicable, L"No place is known for objects of the class " + cls->name());
    }
    auto const byName = [](OdRxClass const* a, OdRxClass const* b) { return a->name() < b->name(); };
    std::sort(m_entityClasses.begin(), m_entityClasses.end(), byName);
    std::sort(m_partClasses.begin(), m_partClasses.end(), byName);
    std::sort(m_objectClasses.begin(), m_objectClasses.end(), byName);
}

OdDbObjectId Builder::add(OdDbObject& object, OdDbObjectId owner)
{
    m_record.fill(object);
    OdDbHandle const handle = m_freeHandles.back();
    m_freeHandles.pop_back();
    return m_database->addOdDbObject(&object, owner, handle);
}

void Builder::addRecords()
{
    for (OdDbTableKindInfo const& kind : odDbTableKinds()) {
        OdDbSymbolTable& table = m_database->table(kind.kind);
        if (kind.kind != OdDbTableKind::kBlock)
            for (OdDbStub const* const stub : table.records())
                m_record.canBeNamed(kind.kind, static_cast<OdDbSymbolTableRecord const&>(*stub->object));
    }
    for (int i = 0; i < kEach; ++i)
        for (OdDbTableKindInfo const& kind : odDbTableKinds()) {
            if (kind.kind == OdDbTableKind::kBlock) {
                addBlock();
                continue;
            }
            OdDbSymbolTable& table = m_database->table(kind.kind);
            OdDbSymbolTableRecordPtr const record = OdRxObjectPtr(kind.recordClass()->create());
            add(*record, table.objectId());
            table.adopt(*record);
            m_record.canBeNamed(kind.kind, *record);
        }
}

void Builder::addBlock()
{
    OdDbSymbolTable& table = m_database->table(OdDbTableKind::kBlock);
    OdDbBlockTableRecordPtr const block = new OdDbBlockTableRecord;
    OdDbObjectId const id = add(*block, table.objectId());
    table.adopt(*block);
    OdSmartPtr<OdDbBlockBegin> const begin = new OdDbBlockBegin;
    OdSmartPtr<OdDbBlockEnd> const end = new OdDbBlockEnd;
    for (OdDbEntity* const frame : {static_cast<OdDbEntity*>(begin.get()), static_cast<OdDbEntity*>(end.get())}) {
        frame->setLayer(m_database->getLayerZeroId());
        add(*frame, id);
    }
    block->adoptBegin(*begin);
    block->adoptEnd(*end);
    m_blocks.push_back(block.get());
}

void Builder::addObjects()
{
    for (int i = 0; i < kEach; ++i) {
        for (OdRxClass const* const cls : m_objectClasses)
            add(*created(*cls), m_record.byHandle(m_values.pick(m_freeHandles)));
        for (std::string_view const name : kUnknownObjects)
            add(*OdDbObjectPtr(new OdDbRawObject(name)), m_database->getNamedObjectsDictionaryId());
    }
}

/// The blocks are filled one after another; the entities of a block refer to those before it alone.
void Builder::addEntities()
{
    std::vector<OdDbBlockTableRecord*> const own = m_blocks;
    for (OdDbBlockTableRecord* const block : own) {
        m_blocks = {block};
        for (OdRxClass const* const cls : m_entityClasses)
            addEntity(created(*cls));
        m_record.canBeNamed(OdDbTableKind::kBlock, *block);
    }
    m_blocks.clear();
    for (OdDbObjectId const space : {m_database->getModelSpaceId(), m_database->getPaperSpaceId()})
        m_blocks.push_back(space.open<OdDbBlockTableRecord>().get());
    for (int i = 0; i < kEach; ++i) {
        for (OdRxClass const* const cls : m_entityClasses)
            addEntity(created(*cls));
        for (std::string_view const name : kUnknownEntities)
            addEntity(new OdDbRawEntity(name));
    }
}

void Builder::addEntity(OdDbEntityPtr const& entity)
{
    OdDbBlockTableRecord& block = *m_values.pick(m_blocks);
    entity->setLayer(m_database->getLayerZeroId());
    add(*entity, block.objectId());
    block.adopt(*entity);
    addParts(*entity);
}

void Builder::addParts(OdDbEntity& whole)
{
    if (odCast<OdDbRawEntity>(&whole))
        return; // it would take anything
    std::vector<OdRxClass const*> classes;
    for (OdRxClass const* const cls : m_partClasses)
        if (whole.takesPart(*OdDbEntityPtr(created(*cls))))
            classes.push_back(cls);
    if (classes.empty())
        return;
    for (auto count = m_values.below(4); count > 0; --count) {
        OdDbEntityPtr const part = created(*m_values.pick(classes));
        part->setLayer(whole.layerId());
        add(*part, whole.objectId());
        whole.adoptPart(*part);
    }
    if (whole.subentities().empty())
        return;
    OdSmartPtr<OdDbSequenceEnd> const end = new OdDbSequenceEnd;
    end->setLayer(whole.layerId());
    add(*end, whole.objectId());
    whole.adoptSequenceEnd(*end);
}

OdDbTagList Builder::comments()
{
    OdDbTagList list;
    m_record.putComments(list);
    return list;
}

/// Records of no table and no class.
OdDbTagList Builder::unknownRecords()
{
    OdDbTagList list;
    for (auto count = m_values.below(3); count > 0; --count) {
        list.text(0, "ROW");
        m_record.putTags(list, RandomRecord::recordCodes());
    }
    return list;
}

void Builder::addFileContent()
{
    OdDbFileContent& content = m_database->fileContent();
    for (std::string_view const name : kKnownSections) {
        content.sections.push_back({std::string(name), comments(), comments(), {}});
        if (m_values.oneIn(2))
            content.sections.push_back(
                {"NEWS" + std::to_string(m_values.below(10)), comments(), comments(), unknownRecords()});
    }
    OdDbTagList thumbnail;
    thumbnail.integer(90, m_values.integer(32));
    for (auto count = m_values.below(5); count > 0; --count)
        thumbnail.binary(310, m_values.bytes());
    content.sections.push_back({"THUMBNAILIMAGE", comments(), {}, thumbnail});
    for (OdDbTableKindInfo const& kind : odDbTableKinds())
        content.tables.push_back({std::string(kind.fileName), unknownRecords(), comments()});
    OdDbTagList table;
    table.handle(5, m_freeHandles.back());
    unknownRecords().writeTo(table);
    content.tables.push_back({"NEWTABLE", table, comments()});
    content.closingComments = comments();
}

void Builder::addHeaderVariables()
{
    OdDbHeader& header = m_database->editHeader();
    for (int i = 0; i < 10; ++i) {
        OdDbTagList value;
        int const code = m_values.pick(RandomRecord::recordCodes());
        if (code != 9 && code != 999)
            value.put(m_values.tag(code, m_freeHandles));
        header.set("VARIABLE" + std::to_string(i), std::move(value));
    }
    OdDbTagList point;
    for (int const code : {10, 20, 30})
        point.real(code, m_values.real());
    m_record.putComments(point);
    header.set("POINT", std::move(point));
}

} // namespace

OdDbDatabasePtr randomDrawing(std::uint64_t seed, EOddities oddities)
{
    return Builder(seed, oddities).build();
}
