// A block reference taken apart, and what else belongs to handling it as a whole: stretching, listing.
#include "host/db/entities/od_db_block_reference.h"
#include "host/db/entities/od_db_circular_entity.h"
#include "host/db/entities/od_db_curve.h"
#include "host/db/entities/od_db_extruded_outline.h"
#include "host/db/entities/od_db_stretch.h"
#include "host/db/od_db_database.h"
#include "host/db/od_db_property_sink.h"
#include "host/db/records/od_db_block_table_record.h"
#include "host/geom/curves/od_ge_circ_arc3d.h"
#include "host/geom/curves/od_ge_ellip_arc3d.h"

namespace {

using Pieces = std::vector<OdDbEntityPtr>;

constexpr int kByBlockWeight = -2;

/// Gives entities of a block what they take from the reference that shows them.
class Inheritance
{
public:
    Inheritance(OdDbBlockReference const& from, OdDbDatabase& database)
        : m_from(from),
          m_layerZero(database.getLayerZeroId()),
          m_byBlock(database.table(OdDbTableKind::kLinetype).getAt(L"ByBlock"))
    {
    }

    void giveTo(OdDbEntity& entity) const
    {
        if (entity.layerId() == m_layerZero && !m_from.layerId().isNull())
            entity.setLayer(m_from.layerId());
        if (entity.color().isByBlock())
            entity.setColor(m_from.color());
        if (!m_byBlock.isNull() && entity.linetypeId() == m_byBlock)
            entity.setLinetype(m_from.linetypeId());
        if (entity.lineWeight() == kByBlockWeight)
            entity.setLineWeight(m_from.lineWeight());
        for (auto it = entity.partIterator(); !it.done(); it.step())
            giveTo(*it.entity(OdDb::kForWrite));
    }

private:
    OdDbBlockReference const& m_from;
    OdDbObjectId m_layerZero;
    OdDbObjectId m_byBlock;
};

/// The circle or arc as an ellipse after a transformation that makes it one; null where it collapses. A thickness
/// would be lost: ellipses have none.
OdDbEntityPtr imageOfCircle(OdDbCurve const& circle, OdGeMatrix3d const& transformation)
{
    auto const* const circular = odCast<OdDbCircularEntity>(&circle);
    if (!circular || circular->thickness() != 0)
        return {};
    auto const curve = circle.getOdGeCurve();
    auto const* const arc = dynamic_cast<OdGeCircArc3d const*>(curve.get());
    if (!arc)
        return {};
    try {
        OdGeEllipArc3d const image(arc->ellipticArc().transformBy(transformation));
        OdDbEntityPtr const ellipse = odDbEntityOf(image, image.normal());
        ellipse->setPropertiesFrom(circle);
        return ellipse;
    } catch (OdError const&) {
        return {}; // seen from the edge
    }
}

/// Takes references apart. References within are taken apart too where they cannot be placed as a whole.
class Explosion
{
public:
    OdResult takeApart(OdDbBlockReference const& reference, Pieces& pieces);

private:
    static constexpr std::size_t kMostNested = 1'000'000;

    OdResult place(OdDbEntityPtr const& entity, OdGeMatrix3d const& placement, Pieces& pieces);
    OdResult placeAll(Pieces const& entities, OdGeMatrix3d const& placement, Pieces& pieces);

    std::vector<OdDbObjectId> m_blocks; ///< from the outermost to the one being taken apart
    std::size_t m_numNested = 0;        ///< pieces of references within references
};

OdResult Explosion::takeApart(OdDbBlockReference const& reference, Pieces& pieces)
{
    if (!reference.isExplodable())
        return eNotApplicable;
    OdDbObjectId const block = reference.blockTableRecord();
    if (std::ranges::find(m_blocks, block) != m_blocks.end())
        return eSelfReference;
    m_blocks.push_back(block);
    OdGeMatrix3d const placement = reference.blockTransform();
    Inheritance const inheritance(reference, *block.database());
    OdResult result = eOk;
    for (auto it = block.open<OdDbBlockTableRecord>()->newIterator(); result == eOk && !it.done(); it.step()) {
        OdDbEntityPtr const copy(it.entity()->clone());
        inheritance.giveTo(*copy);
        result = m_blocks.size() > 1 && ++m_numNested > kMostNested ? eOutOfRange : place(copy, placement, pieces);
    }
    m_blocks.pop_back();
    return result;
}

OdResult Explosion::placeAll(Pieces const& entities, OdGeMatrix3d const& placement, Pieces& pieces)
{
    for (OdDbEntityPtr const& entity : entities)
        if (OdResult const result = place(entity, placement, pieces); result != eOk)
            return result;
    return eOk;
}

OdResult Explosion::place(OdDbEntityPtr const& entity, OdGeMatrix3d const& placement, Pieces& pieces)
{
    OdResult const result = entity->transformBy(placement);
    if (result == eOk)
        pieces.push_back(entity);
    if (result != eDegenerateGeometry)
        return result;
    Pieces parts;
    if (auto const* const reference = odCast<OdDbBlockReference>(entity.get())) {
        OdResult const apart = takeApart(*reference, parts);
        return apart == eOk ? placeAll(parts, placement, pieces) : apart;
    }
    auto const* const curve = odCast<OdDbCurve>(entity.get());
    if (!curve)
        return result;
    if (curve->explode(parts) == eOk)
        return placeAll(parts, placement, pieces);
    OdDbEntityPtr const image = imageOfCircle(*curve, placement);
    if (image)
        pieces.push_back(image);
    return image ? eOk : result;
}

} // namespace

bool OdDbBlockReference::isExplodable() const
{
    OdDbBlockTableRecord const* const record = block();
    return !lacksBlock() && !record->isFromExternalReference() && record->isExplodable();
}

OdResult OdDbBlockReference::explode(std::vector<OdDbEntityPtr>& pieces) const
{
    Pieces made;
    OdResult const result = Explosion().takeApart(*this, made);
    if (result == eOk)
        pieces.insert(pieces.end(), made.begin(), made.end());
    return result;
}

void OdDbBlockReference::getStretchPoints(std::vector<OdGePoint3d>& points) const
{
    points.push_back(position());
}

OdResult OdDbBlockReference::moveStretchPointsAt(std::span<int const> indices, OdGeVector3d const& offset)
{
    return odDbStretchWhole(*this, indices, offset);
}

void OdDbBlockReference::listProperties(OdDbPropertySink& sink) const
{
    sink.reference(L"block", m_block);
    sink.point(L"position", position());
    sink.number(L"x scale factor", m_scale.sx);
    sink.number(L"y scale factor", m_scale.sy);
    sink.number(L"z scale factor", m_scale.sz);
    sink.direction(L"rotation", rotation(), m_normal);
    odDbListExtrusion(sink, m_normal, 0);
    listGrid(sink);
    int number = 0;
    for (OdDbPartIterator it = attributeIterator(); !it.done(); it.step()) {
        sink.part(L"attribute", ++number);
        it.peek().listProperties(sink);
    }
}
