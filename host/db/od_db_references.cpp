#include "host/db/od_db_references.h"

#include "host/db/od_db_database.h"
#include "host/db/records/od_db_block_table_record.h"
#include "host/db/records/od_db_table_kinds.h"

namespace {

/// Codes under which kept tags can name a record.
constexpr int kFirstNameCode = 1;
constexpr int kLastNameCode = 9;
constexpr int kXdataApplication = 1001;
constexpr int kXdataLayer = 1003;

/// Tables whose records are referred to by name.
constexpr OdDbTableKind kNamed[] = {OdDbTableKind::kBlock, OdDbTableKind::kLayer, OdDbTableKind::kLinetype,
                                    OdDbTableKind::kTextStyle, OdDbTableKind::kDimStyle};

} // namespace

class OdDbReferences::Collector
{
public:
    Collector(OdDbReferences& references, OdDbDatabase& database)
        : m_references(references), m_database(database), m_tails(*this)
    {
    }

    void collect()
    {
        for (std::size_t kind = 0; kind < kOdDbTableKinds; ++kind)
            take(m_database.current(static_cast<OdDbTableKind>(kind)));
        for (OdDbHeader::Variable const& variable : m_database.header().variables())
            takeKept(variable.tags);
        for (OdDbTableKindInfo const& kind : odDbTableKinds())
            collectTable(m_database.table(kind.kind));
        for (OdDbStub const* const stub : m_database.fileObjects())
            collectFrom(stub);
    }

private:
    /// Takes the handles of what a tail writes.
    class TailSink : public OdDbTagSink
    {
    public:
        explicit TailSink(Collector& collector) : m_collector(collector) {}
        void put(OdDbTag const& tag) override
        {
            if (tag.kind == OdDbTagKind::kHandle)
                m_collector.takeHandle(tag.handle());
        }

    private:
        Collector& m_collector;
    };

    void take(OdDbObjectId id)
    {
        if (!id.isNull())
            m_references.m_referenced.insert(id.stub());
    }
    void takeHandle(OdDbHandle handle) { take(m_database.getOdDbObjectId(handle)); }

    void takeName(OdDbTableKind kind, OdString const& name) { take(m_database.table(kind).getAt(name)); }

    /// Not from the table itself, which may list its records.
    void collectTable(OdDbSymbolTable const& table)
    {
        for (OdDbStub const* const stub : table.records()) {
            collectFrom(stub);
            auto const* const block = stub->erased ? nullptr : odCast<OdDbBlockTableRecord>(stub->object);
            if (block)
                collectBlock(*block);
        }
    }

    void collectBlock(OdDbBlockTableRecord const& block)
    {
        for (OdDbObjectId const frame : {block.beginId(), block.endId()})
            if (frame.isValid())
                collectFrom(frame.stub());
        for (OdDbStub const* const stub : block.entities()) {
            collectFrom(stub);
            if (stub->erased)
                continue;
            auto const& entity = static_cast<OdDbEntity const&>(*stub->object);
            for (OdDbStub const* const part : entity.subentities())
                collectFrom(part);
            if (OdDbObjectId const end = entity.sequenceEnd(); end.isValid())
                collectFrom(end.stub());
        }
    }

    void collectFrom(OdDbStub const* stub)
    {
        if (stub->erased)
            return;
        OdDbObject& object = *stub->object;
        for (OdDbSection const& section : object.fieldTable().sections()) {
            for (OdDbField const& field : section.fields)
                if (field.kind == OdDbFieldKind::kReference || field.kind == OdDbFieldKind::kName)
                    take(*static_cast<OdDbObjectId const*>(field.place(&object)));
            if (section.writeTail && (!section.isWritten || section.isWritten(object)))
                section.writeTail(object, m_tails);
        }
        OdDbObjectExtras const* const extras = object.extras();
        if (!extras)
            return;
        for (OdDbObjectExtras::Section const& section : extras->sections)
            takeKept(section.tags);
        takeExtendedData(extras->extendedData);
    }

    void takeKept(OdDbTagList const& tags)
    {
        for (OdDbTag const& tag : tags) {
            if (tag.kind == OdDbTagKind::kHandle)
                takeHandle(tag.handle());
            else if (tag.kind == OdDbTagKind::kText && tag.code >= kFirstNameCode && tag.code <= kLastNameCode)
                for (OdDbTableKind const kind : kNamed)
                    takeName(kind, OdString::fromUtf8(tag.text));
        }
    }

    void takeExtendedData(OdDbTagList const& tags)
    {
        for (OdDbTag const& tag : tags) {
            if (tag.kind == OdDbTagKind::kHandle)
                takeHandle(tag.handle());
            else if (tag.code == kXdataApplication)
                m_references.m_applications.insert(OdString::fromUtf8(tag.text).makeUpper());
            else if (tag.code == kXdataLayer)
                takeName(OdDbTableKind::kLayer, OdString::fromUtf8(tag.text));
        }
    }

    OdDbReferences& m_references;
    OdDbDatabase& m_database;
    TailSink m_tails;
};

OdDbReferences::OdDbReferences(OdDbDatabase& database)
{
    Collector(*this, database).collect();
}
