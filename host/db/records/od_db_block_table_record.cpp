#include "host/db/records/od_db_block_table_record.h"

#include "host/db/entities/od_db_attribute_definition.h"
#include "host/db/entities/od_db_block_reference.h"
#include "host/db/od_db_database.h"

#include <unordered_set>

OD_DB_DEFINE_CLASS(OdDbBlockBegin, OdDbEntity, "BLOCK")
OD_DB_DEFINE_CLASS(OdDbBlockEnd, OdDbEntity, "ENDBLK")
OD_DB_DEFINE_CLASS(OdDbBlockTableRecord, OdDbSymbolTableRecord, "BLOCK_RECORD")

OdDbFieldTable const& OdDbBlockBegin::fields()
{
    // clang-format off
    static constexpr OdDbField s_fields[] = {
        odField<&OdDbBlockBegin::m_flags>       (70, OdDbWriteRule::kAlways),
        odField<&OdDbBlockBegin::m_origin>      (10, OdDbWriteRule::kAlways),
        odField<&OdDbBlockBegin::m_externalPath>(1, OdDbWriteRule::kAlways),
        odField<&OdDbBlockBegin::m_description> (4),
    };
    // clang-format on
    static OdDbFieldTable const s_table({entitySection(), {"AcDbBlockBegin", s_fields, &readNames, &writeNames}});
    return s_table;
}

bool OdDbBlockBegin::readNames(OdDbObject& object, OdDbTag const& tag)
{
    if (tag.code == 2)
        static_cast<OdDbBlockBegin&>(object).m_fileName = OdString::fromUtf8(tag.text);
    return tag.code == 2 || tag.code == 3;
}

void OdDbBlockBegin::writeNames(OdDbObject const& object, OdDbTagSink& sink)
{
    auto const record = object.ownerId().open<OdDbBlockTableRecord>(OdDb::kForRead, true);
    sink.text(2, record->getName());
    sink.text(3, record->getName());
}

OdDbFieldTable const& OdDbBlockEnd::fields()
{
    static OdDbFieldTable const s_table({entitySection(), {"AcDbBlockEnd", {}}});
    return s_table;
}

OdDbFieldTable const& OdDbBlockTableRecord::fields()
{
    // clang-format off
    static constexpr OdDbField s_fields[] = {
        odField<&OdDbBlockTableRecord::m_name>      (2, OdDbWriteRule::kAlways),
        odField<&OdDbBlockTableRecord::m_layout>    (340, OdDbWriteRule::kAlways),
        odField<&OdDbBlockTableRecord::m_units>     (70, OdDbWriteRule::kAlways),
        odField<&OdDbBlockTableRecord::m_explodable>(280, OdDbWriteRule::kAlways),
        odField<&OdDbBlockTableRecord::m_scaling>   (281, OdDbWriteRule::kAlways),
    };
    // clang-format on
    static OdDbFieldTable const s_table({{"AcDbSymbolTableRecord", {}}, {"AcDbBlockTableRecord", s_fields}});
    return s_table;
}

void OdDbBlockTableRecord::addedToDatabase()
{
    if (!database()->isBeingRead())
        completeFrame();
}

void OdDbBlockTableRecord::completeFrame()
{
    auto const complete = [this](OdDbStub*& place, OdDbEntity* entity) {
        OdDbEntityPtr const keep(entity);
        if (place)
            return;
        entity->setLayer(database()->getLayerZeroId());
        place = database()->addOdDbObject(entity, objectId()).stub();
    };
    complete(m_frame.begin, new OdDbBlockBegin);
    complete(m_frame.end, new OdDbBlockEnd);
}

void OdDbBlockTableRecord::adoptBegin(OdDbBlockBegin& begin)
{
    m_frame.begin = begin.objectId().stub();
}

void OdDbBlockTableRecord::adoptEnd(OdDbBlockEnd& end)
{
    m_frame.end = end.objectId().stub();
}

OdDbBlockBegin& OdDbBlockTableRecord::begin() const
{
    if (!m_frame.begin)
        throw OdError(eNotInDatabase);
    return *static_cast<OdDbBlockBegin*>(m_frame.begin->object);
}

OdGePoint3d OdDbBlockTableRecord::origin() const
{
    return begin().m_origin;
}

void OdDbBlockTableRecord::setOrigin(OdGePoint3d const& point)
{
    auto const head = beginId().open<OdDbBlockBegin>(OdDb::kForWrite);
    head->assertWriteEnabled();
    head->m_origin = point;
}

OdString OdDbBlockTableRecord::description() const
{
    return begin().m_description;
}

void OdDbBlockTableRecord::setDescription(OdString const& text)
{
    auto const head = beginId().open<OdDbBlockBegin>(OdDb::kForWrite);
    head->assertWriteEnabled();
    head->m_description = text;
}

bool OdDbBlockTableRecord::isLayout() const
{
    return !m_layout.isNull() || getName().equalsNoCase(L"*Model_Space") || isPaperSpace();
}

bool OdDbBlockTableRecord::isPaperSpace() const
{
    return getName().left(12).equalsNoCase(L"*Paper_Space");
}

bool OdDbBlockTableRecord::isFromExternalReference() const
{
    constexpr int kExternal = 4;
    return m_frame.begin && (begin().m_flags & kExternal) != 0;
}

bool OdDbBlockTableRecord::hasAttributeDefinitions() const
{
    return std::any_of(m_entities.begin(), m_entities.end(), [](OdDbStub* stub) {
        auto const* definition = stub->erased ? nullptr : odCast<OdDbAttributeDefinition>(stub->object);
        return definition && !definition->isConstant();
    });
}

void OdDbBlockTableRecord::setLayoutId(OdDbObjectId layout)
{
    assertWriteEnabled();
    m_layout = layout;
}

void OdDbBlockTableRecord::setExplodable(bool explodable)
{
    assertWriteEnabled();
    m_explodable = explodable ? 1 : 0;
}

OdDbObjectId OdDbBlockTableRecord::appendOdDbEntity(OdDbEntity* entity)
{
    OdDbEntityPtr const keep(entity);
    if (!database())
        throw OdError(eNotInDatabase);
    if (entity->isDBRO())
        throw OdError(eAlreadyInDb);
    if (!isWriteEnabled())
        throw OdError(eNotOpenForWrite);
    if (auto const* reference = odCast<OdDbBlockReference>(entity); reference && !isLayout()) {
        OdDbObjectId const block = reference->blockTableRecord();
        if (block == objectId() || (block.isValid() && block.open<OdDbBlockTableRecord>()->contains(objectId())))
            throw OdError(eSelfReference);
    }
    if (entity->layerId().isNull())
        entity->setLayer(database()->getCLAYER());
    OdDbObjectId const id = database()->addOdDbObject(entity, objectId());
    m_entities.push_back(id.stub());
    return id;
}

bool OdDbBlockTableRecord::contains(OdDbObjectId other) const
{
    std::unordered_set<OdDbObjectId> seen;
    std::vector<OdDbBlockTableRecord const*> toVisit{this};
    while (!toVisit.empty()) {
        OdDbBlockTableRecord const& block = *toVisit.back();
        toVisit.pop_back();
        for (OdDbStub* const stub : block.m_entities) {
            auto const* reference = stub->erased ? nullptr : odCast<OdDbBlockReference>(stub->object);
            if (!reference || !reference->blockTableRecord().isValid())
                continue;
            OdDbObjectId const target = reference->blockTableRecord();
            if (target == other)
                return true;
            if (seen.insert(target).second)
                toVisit.push_back(static_cast<OdDbBlockTableRecord const*>(target.stub()->object));
        }
    }
    return false;
}

void OdDbBlockTableRecord::visitOwned(std::function<void(OdDbStub&)> const& visit) const
{
    OdDbSymbolTableRecord::visitOwned(visit);
    for (OdDbStub* const stub : m_entities)
        visit(*stub);
    for (OdDbStub* const stub : {m_frame.begin, m_frame.end})
        if (stub)
            visit(*stub);
}
