#include "host/db/entities/od_db_block_reference.h"

#include "host/db/entities/od_db_transform.h"
#include "host/db/od_db_database.h"
#include "host/db/records/od_db_block_table_record.h"

OD_DB_DEFINE_CLASS(OdDbBlockReference, OdDbEntity, "INSERT")

namespace {

constexpr int kFollowFlag = 66;

} // namespace

OdDbFieldTable OdDbBlockReference::tableWith(std::string_view marker, std::span<OdDbField const> more,
                                             std::span<std::string_view const> otherMarkers)
{
    using Ref = OdDbBlockReference;
    // clang-format off
    static constexpr OdDbField s_fields[] = {
        odNameField<&Ref::m_block>      (2, OdDbTableKind::kBlock, OdDbWriteRule::kAlways),
        odField<&Ref::m_position>       (10, OdDbWriteRule::kAlways),
        odPlaceField<Ref, [](Ref& r) -> double& { return r.m_scale.sx; }>(41),
        odPlaceField<Ref, [](Ref& r) -> double& { return r.m_scale.sy; }>(42),
        odPlaceField<Ref, [](Ref& r) -> double& { return r.m_scale.sz; }>(43),
        odField<&Ref::m_rotation>       (50),
    };
    static constexpr OdDbField s_end[] = {
        odField<&Ref::m_normal>         (210),
    };
    // clang-format on
    return OdDbFieldTable({
        entitySection(),
        {.marker = marker,
         .fields = {},
         .readTail = &readFollowFlag,
         .writeTail = &writeFollowFlag,
         .otherMarkers = otherMarkers},
        {.marker = marker, .fields = s_fields, .continues = true},
        {.marker = marker,
         .fields = more,
         .readTail = more.empty() ? &readSingleGrid : nullptr,
         .writeTail = more.empty() ? &writeSingleGrid : nullptr,
         .continues = true},
        {.marker = marker, .fields = s_end, .continues = true},
    });
}

OdDbFieldTable const& OdDbBlockReference::fields()
{
    static OdDbFieldTable const s_table = tableWith("AcDbBlockReference", {});
    return s_table;
}

bool OdDbBlockReference::readFollowFlag(OdDbObject&, OdDbTag const& tag)
{
    return tag.code == kFollowFlag; // the attributes themselves tell
}

void OdDbBlockReference::writeFollowFlag(OdDbObject const& object, OdDbTagSink& sink)
{
    auto const& reference = static_cast<OdDbBlockReference const&>(object);
    if (reference.numParts() > 0 || !reference.sequenceEnd().isNull())
        sink.integer(kFollowFlag, 1);
}

/// Counts and spacings of one cell mean nothing; they stay where they were, before the normal.
bool OdDbBlockReference::readSingleGrid(OdDbObject& object, OdDbTag const& tag)
{
    constexpr int kGridCodes[] = {70, 71, 44, 45};
    bool const isOfGrid = std::ranges::find(kGridCodes, tag.code) != std::end(kGridCodes);
    if (isOfGrid)
        static_cast<OdDbBlockReference&>(object).m_singleGrid.makeIfNull().put(tag);
    return isOfGrid;
}

void OdDbBlockReference::writeSingleGrid(OdDbObject const& object, OdDbTagSink& sink)
{
    if (auto const& reference = static_cast<OdDbBlockReference const&>(object); reference.m_singleGrid)
        reference.m_singleGrid.get()->writeTo(sink);
}

OdDbBlockTableRecord const* OdDbBlockReference::block() const
{
    return m_block.isValid() ? odCast<OdDbBlockTableRecord>(m_block.stub()->object) : nullptr;
}

void OdDbBlockReference::setBlockTableRecord(OdDbObjectId block)
{
    if (block.isNull())
        throw OdError(eNullObjectId);
    if (isDBRO() && block.database() != database())
        throw OdError(eWrongDatabase);
    auto const record = block.open<OdDbBlockTableRecord>();
    auto const* owner = ownerId().isValid() ? odCast<OdDbBlockTableRecord>(ownerId().stub()->object) : nullptr;
    if (owner && !owner->isLayout() && (owner == record.get() || record->contains(ownerId())))
        throw OdError(eSelfReference);
    assertWriteEnabled();
    m_block = block;
}

OdGePoint3d OdDbBlockReference::position() const
{
    return odDbToWorld(m_position, m_normal);
}

void OdDbBlockReference::setPosition(OdGePoint3d const& position)
{
    assertWriteEnabled();
    m_position = odDbToPlane(position, m_normal);
}

void OdDbBlockReference::setScaleFactors(OdGeScale3d const& factors)
{
    for (double const factor : {factors.sx, factors.sy, factors.sz})
        if (factor == 0 || !std::isfinite(factor))
            throw OdError(eOutOfRange, odFormat(L"%g is no scale factor", factor));
    assertWriteEnabled();
    m_scale = factors;
}

void OdDbBlockReference::setRotation(double angle)
{
    assertWriteEnabled();
    m_rotation = OdDbAngle::ofRadians(angle);
}

void OdDbBlockReference::setNormal(OdGeVector3d const& normal)
{
    OdGeVector3d const unit = odDbUnitNormal(normal);
    assertWriteEnabled();
    m_position = odDbToPlane(position(), unit);
    m_normal = unit;
}
