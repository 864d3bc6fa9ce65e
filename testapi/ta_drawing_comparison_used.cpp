#include "testapi/ta_drawing_comparison_used.h"

#include "testapi/ta_drawing_comparison_bridge.h"
#include "testapi/ta_drawing_comparison_facts.h"

namespace ta {

namespace {

struct NameCode
{
    int code;
    OdDbTableKind table;
};

/// Codes under which tags that are only kept name records, as the style of a leader or the block of a dimension.
constexpr NameCode s_nameCodes[] = {{2, OdDbTableKind::kBlock},
                                    {3, OdDbTableKind::kDimStyle},
                                    {6, OdDbTableKind::kLinetype},
                                    {7, OdDbTableKind::kTextStyle},
                                    {8, OdDbTableKind::kLayer}};

} // namespace

/// Takes the handles of what a tail writes.
class UsedRecords::TailSink : public OdDbTagSink
{
public:
    explicit TailSink(UsedRecords& used) : m_used(used) {}
    void put(OdDbTag const& tag) override { m_used.takeHandle(tag); }

private:
    UsedRecords& m_used;
};

/// Blocks hold blocks to any depth, and damaged drawings blocks that hold themselves: what is found waits in a
/// list instead of being followed at once.
void UsedRecords::add(OdDbEntity const& entity)
{
    takeFromEntity(entity.objectId().stub());
    while (!m_unread.empty()) {
        OdDbObject& record = *m_unread.back()->object;
        m_unread.pop_back();
        takeFrom(record);
        if (auto const* const block = odCast<OdDbBlockTableRecord>(&record))
            for (OdDbStub const* const stub : block->entities())
                takeFromEntity(stub);
    }
}

void UsedRecords::take(OdDbObjectId id)
{
    auto const* const record = id.isErased() ? nullptr : odCast<OdDbSymbolTableRecord>(id.stub()->object);
    auto const* const block = odCast<OdDbBlockTableRecord>(record);
    if (record && !(block && block->isLayout()) && m_records.insert(id.stub()).second)
        m_unread.push_back(id.stub());
}

void UsedRecords::takeHandle(OdDbTag const& tag)
{
    if (tag.kind == OdDbTagKind::kHandle)
        take(DrawingBridge::find(m_database, tag.handle()));
}

void UsedRecords::takeFromEntity(OdDbStub const* stub)
{
    if (stub->erased)
        return;
    takeFrom(*stub->object);
    for (OdDbStub const* const part : static_cast<OdDbEntity const&>(*stub->object).subentities())
        if (!part->erased)
            takeFrom(*part->object);
}

void UsedRecords::takeFrom(OdDbObject& object)
{
    TailSink tails(*this);
    for (OdDbSection const& section : object.fieldTable().sections()) {
        if (m_skipCommonProps && section.marker == kEntityMarker)
            continue;
        for (OdDbField const& field : section.fields)
            if (field.kind == OdDbFieldKind::kReference || field.kind == OdDbFieldKind::kName)
                take(*static_cast<OdDbObjectId const*>(field.place(&object)));
        if (section.writeTail && (!section.isWritten || section.isWritten(object)))
            section.writeTail(object, tails);
    }
    OdDbObjectExtras const* const extras = object.extras();
    if (!extras)
        return;
    for (OdDbObjectExtras::Section const& section : extras->sections)
        takeFromKept(section.tags);
    for (OdDbTag const& tag : extras->extendedData)
        takeHandle(tag);
}

void UsedRecords::takeFromKept(OdDbTagList const& tags)
{
    for (OdDbTag const& tag : tags) {
        takeHandle(tag);
        if (tag.kind != OdDbTagKind::kText)
            continue;
        for (NameCode const& name : s_nameCodes)
            if (name.code == tag.code)
                take(m_database.table(name.table).getAt(OdString::fromUtf8(tag.text)));
    }
}

} // namespace ta
