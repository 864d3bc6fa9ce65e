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

void OdDbEntity::setColor(OdCmColor const& color)
{
    assertWriteEnabled();
    m_color = color;
}

void OdDbEntity::setLayer(OdDbObjectId layer)
{
    if (layer.isNull())
        throw OdError(eNullObjectId);
    if (isDBRO() && layer.database() != database())
        throw OdError(eWrongDatabase);
    assertWriteEnabled();
    m_layer = layer;
}

void OdDbEntity::setLinetype(OdDbObjectId linetype)
{
    if (isDBRO() && !linetype.isNull() && linetype.database() != database())
        throw OdError(eWrongDatabase);
    assertWriteEnabled();
    m_linetype = linetype;
}

void OdDbEntity::setLinetypeScale(double scale)
{
    if (!(scale > 0))
        throw OdError(eOutOfRange);
    assertWriteEnabled();
    m_linetypeScale = scale;
}

void OdDbEntity::setLineWeight(int weight)
{
    if (weight < -3 || weight > 211)
        throw OdError(eOutOfRange);
    assertWriteEnabled();
    m_lineWeight = static_cast<std::int16_t>(weight);
}

void OdDbEntity::setVisible(bool visible)
{
    assertWriteEnabled();
    m_invisible = visible ? 0 : 1;
}

void OdDbEntity::setDatabaseDefaults(OdDbDatabase& database)
{
    assertWriteEnabled();
    OdDbHeader const& header = database.header();
    m_layer = database.getCLAYER();
    m_linetype = database.getCELTYPE();
    m_linetypeScale = header.real("CELTSCALE", 1.0);
    m_color = OdCmColor(static_cast<std::int16_t>(header.integer("CECOLOR", OdCmColor::kByLayer)));
    m_lineWeight = static_cast<std::int16_t>(header.integer("CELWEIGHT", -1));
}

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
