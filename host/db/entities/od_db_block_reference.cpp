#include "host/db/entities/od_db_block_reference.h"

#include "host/db/entities/od_db_transform.h"
#include "host/db/od_db_database.h"
#include "host/db/records/od_db_block_table_record.h"

#include <limits>

OD_DB_DEFINE_CLASS(OdDbBlockReference, OdDbEntity, "INSERT")

namespace {

constexpr int kFollowFlag = 66;
constexpr std::string_view kSingleMarker = "AcDbBlockReference";
constexpr std::string_view kGridMarker = "AcDbMInsertBlock";

} // namespace

OdDbFieldTable const& OdDbBlockReference::fields()
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
        odField<&Ref::m_columns>        (70),
        odField<&Ref::m_rows>           (71),
        odField<&Ref::m_columnSpacing>  (44),
        odField<&Ref::m_rowSpacing>     (45),
        odField<&Ref::m_normal>         (210),
    };
    // clang-format on
    auto const head = [](std::string_view marker, auto isWritten) {
        return OdDbSection{.marker = marker,
                           .fields = {},
                           .readTail = &readFollowFlag,
                           .writeTail = &writeFollowFlag,
                           .isWritten = isWritten};
    };
    auto const body = [](std::string_view marker, auto isWritten) {
        return OdDbSection{.marker = marker, .fields = s_fields, .continues = true, .isWritten = isWritten};
    };
    static OdDbFieldTable const s_table({entitySection(), head(kSingleMarker, &isSingleInFile),
                                         body(kSingleMarker, &isSingleInFile), head(kGridMarker, &isGridInFile),
                                         body(kGridMarker, &isGridInFile)});
    return s_table;
}

bool OdDbBlockReference::isGridInFile(OdDbObject const& object)
{
    static int const s_group = fields().groupOf(kGridMarker);
    auto const& reference = static_cast<OdDbBlockReference const&>(object);
    return reference.columns() > 1 || reference.rows() > 1 || fields().wasRead(object, s_group);
}

bool OdDbBlockReference::readFollowFlag(OdDbObject&, OdDbTag const& tag)
{
    return tag.code == kFollowFlag; // the attributes themselves tell
}

void OdDbBlockReference::writeFollowFlag(OdDbObject const& object, OdDbTagSink& sink)
{
    auto const& reference = static_cast<OdDbBlockReference const&>(object);
    if (reference.hasAttributes() || !reference.sequenceEnd().isNull())
        sink.integer(kFollowFlag, 1);
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

void OdDbBlockReference::setGrid(int columns, int rows)
{
    for (int const count : {columns, rows})
        if (count < 1 || count > std::numeric_limits<std::int16_t>::max())
            throw OdError(eOutOfRange, odFormat(L"%d is no number of columns or rows", count));
    assertWriteEnabled();
    m_columns = static_cast<std::int16_t>(columns);
    m_rows = static_cast<std::int16_t>(rows);
}

void OdDbBlockReference::setColumnSpacing(double spacing)
{
    assertWriteEnabled();
    m_columnSpacing = spacing;
}

void OdDbBlockReference::setRowSpacing(double spacing)
{
    assertWriteEnabled();
    m_rowSpacing = spacing;
}

OdDbObjectId OdDbBlockReference::appendAttribute(OdDbAttribute* attribute)
{
    OdDbAttributePtr const keep(attribute);
    if (!database())
        throw OdError(eNotInDatabase);
    if (attribute->isDBRO())
        throw OdError(eAlreadyInDb);
    assertWriteEnabled();
    if (attribute->layerId().isNull())
        attribute->setLayer(layerId());
    OdDbObjectId const id = database()->addOdDbObject(attribute, objectId());
    m_attributes.push_back(id.stub());
    if (sequenceEnd().isNull()) {
        OdDbSequenceEndPtr const end(new OdDbSequenceEnd);
        end->setLayer(layerId());
        m_sequenceEnd.stub = database()->addOdDbObject(end, objectId()).stub();
    }
    return id;
}

bool OdDbBlockReference::hasAttributes() const
{
    return !attributeIterator().done();
}

OdDbObjectId OdDbBlockReference::sequenceEnd() const
{
    OdDbObjectId const id(m_sequenceEnd.stub);
    return id.isErased() ? OdDbObjectId() : id;
}
