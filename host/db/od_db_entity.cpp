#include "host/db/od_db_entity.h"

#include "host/db/od_db_database.h"
#include "host/db/od_db_extents.h"
#include "host/db/records/od_db_block_table_record.h"

OD_DEFINE_ABSTRACT_CLASS(OdDbEntity, OdDbObject)

namespace {

/// The block in which an entity stands; the parts of an entity (vertices, attributes) stand where it does.
OdDbBlockTableRecord const* blockOf(OdDbObject const& object)
{
    OdDbObjectId const owner = object.ownerId();
    OdDbObject const* const holder = owner.isValid() ? owner.stub()->object : nullptr;
    bool const isPart = holder && odCast<OdDbEntity>(holder);
    OdDbObjectId const block = isPart ? holder->ownerId() : owner;
    return block.isValid() ? odCast<OdDbBlockTableRecord>(static_cast<OdRxObject const*>(block.stub()->object))
                           : nullptr;
}

void writePaperSpaceFlag(OdDbObject const& object, OdDbTagSink& sink)
{
    if (OdDbBlockTableRecord const* const block = blockOf(object); block && block->isPaperSpace())
        sink.integer(67, 1);
}

} // namespace

OdDbSection OdDbEntity::entitySection()
{
    // clang-format off
    static constexpr OdDbField s_fields[] = {
        odNameField<&OdDbEntity::m_layer>(8, OdDbTableKind::kLayer, OdDbWriteRule::kAlways),
        odNameField<&OdDbEntity::m_linetype>(6, OdDbTableKind::kLinetype),
        odPlaceField<OdDbEntity, [](OdDbEntity& e) -> auto& { return OdCmColorFields::index(e.m_color); }>(62),
        odPlaceField<OdDbEntity, [](OdDbEntity& e) -> auto& { return OdCmColorFields::rgb(e.m_color); }>(420),
        odField<&OdDbEntity::m_lineWeight>(370),
        odField<&OdDbEntity::m_linetypeScale>(48),
        odField<&OdDbEntity::m_invisible>(60),
    };
// clang-format on
return {"AcDbEntity", s_fields, nullptr, &writePaperSpaceFlag};
}

template <class Set>
void OdDbEntity::setOnParts(Set const& set)
{
    if (!partsFollowProperties())
        return;
    for (OdDbEntityPtr const& part : openParts())
        set(*part);
}

void OdDbEntity::setColor(OdCmColor const& color)
{
    assertWriteEnabled();
    m_color = color;
    setOnParts([&](OdDbEntity& part) { part.setColor(color); });
}

void OdDbEntity::setLayer(OdDbObjectId layer)
{
    if (layer.isNull())
        throw OdError(eNullObjectId);
    if (isDBRO() && layer.database() != database())
        throw OdError(eWrongDatabase);
    assertWriteEnabled();
    m_layer = layer;
    setOnParts([&](OdDbEntity& part) { part.setLayer(layer); });
}

OdDbObjectId OdDbEntity::linetypeId() const
{
    return m_linetype.isNull() && database() ? database()->getUsual(OdDbTableKind::kLinetype) : m_linetype;
}

void OdDbEntity::setLinetype(OdDbObjectId linetype)
{
    if (isDBRO() && !linetype.isNull() && linetype.database() != database())
        throw OdError(eWrongDatabase);
    assertWriteEnabled();
    m_linetype = linetype;
    setOnParts([&](OdDbEntity& part) { part.setLinetype(linetype); });
}

void OdDbEntity::setLinetypeScale(double scale)
{
    if (!(scale > 0))
        throw OdError(eOutOfRange);
    assertWriteEnabled();
    m_linetypeScale = scale;
    setOnParts([&](OdDbEntity& part) { part.setLinetypeScale(scale); });
}

void OdDbEntity::setLineWeight(int weight)
{
    if (weight < -3 || weight > 211)
        throw OdError(eOutOfRange);
    assertWriteEnabled();
    m_lineWeight = static_cast<std::int16_t>(weight);
    setOnParts([&](OdDbEntity& part) { part.setLineWeight(weight); });
}

void OdDbEntity::setVisible(bool visible)
{
    assertWriteEnabled();
    m_invisible = visible ? 0 : 1;
    setOnParts([&](OdDbEntity& part) { part.setVisible(visible); });
}

void OdDbEntity::setDatabaseDefaults(OdDbDatabase& database)
{
    assertWriteEnabled();
    OdDbHeader const& header = database.header();
    m_layer = database.getCLAYER();
    m_linetype = database.getCELTYPE();
    m_linetypeScale = header.real("CELTSCALE", 1.0);
    m_color = database.getCECOLOR();
    m_lineWeight = static_cast<std::int16_t>(header.integer("CELWEIGHT", -1));
    setOnParts([&](OdDbEntity& part) { part.setPropertiesFrom(*this); });
}

void OdDbEntity::setPropertiesFrom(OdDbEntity const& other)
{
    assertWriteEnabled();
    m_color = other.m_color;
    m_layer = other.m_layer;
    m_linetype = other.m_linetype;
    m_linetypeScale = other.m_linetypeScale;
    m_lineWeight = other.m_lineWeight;
    m_invisible = other.m_invisible;
    setOnParts([&](OdDbEntity& part) { part.setPropertiesFrom(other); });
}

OdResult OdDbEntity::explode(std::vector<OdDbEntityPtr>&) const
{
    return eNotApplicable;
}

void OdDbEntity::getStretchPoints(std::vector<OdGePoint3d>&) const {}

OdResult OdDbEntity::moveStretchPointsAt(std::span<int const>, OdGeVector3d const&)
{
    return eNotApplicable;
}

void OdDbEntity::listProperties(OdDbPropertySink&) const {}

OdResult OdDbEntity::transformBy(OdGeMatrix3d const&)
{
    return eNotApplicable;
}

void OdDbEntity::outline(OdDbOutlineSink&) const {}

OdGeExtents3d OdDbEntity::extents() const
{
    OdDbExtentsSink sink;
    outline(sink);
    return sink.extents();
}

void OdDbEntity::visitOwned(std::function<void(OdDbStub&)> const& visit) const
{
    OdDbObject::visitOwned(visit);
    for (OdDbStub* const stub : subentities())
        visit(*stub);
    if (OdDbObjectId const end = sequenceEnd(); end.isValid())
        visit(*end.stub());
}
