#include "host/app/selection_finder.h"

#include "host/app/ca_doc.h"
#include "host/app/sys_var.h"
#include "host/db/oa_space.h"
#include "host/db/od_db_database.h"
#include "host/db/records/od_db_block_table_record.h"
#include "host/db/records/od_db_layer_table_record.h"
#include "host/geom/od_ge_rectangle_test.h"

namespace ca {

namespace {

/// Tells how the outline of an entity lies to a rectangle.
class RectangleSink : public OdDbOutlineSink
{
public:
    RectangleSink(OdGeExtents2d const& rectangle, OdGeMatrix3d const& toPlane, bool needsAll)
        : m_rectangle(rectangle), m_toPlane(toPlane), m_needsAll(needsAll)
    {
    }

    void point(OdGePoint3d const& position) override
    {
        OdGePoint2d const p = flat(position);
        note(odgeRectangleTest::inside(m_rectangle, p), odgeRectangleTest::inside(m_rectangle, p));
    }
    void segment(OdGePoint3d const& start, OdGePoint3d const& end) override
    {
        OdGePoint2d const a = flat(start), b = flat(end);
        note(odgeRectangleTest::inside(m_rectangle, a, b), odgeRectangleTest::crosses(m_rectangle, a, b));
    }
    void arc(OdGeEllipticArc const& arc) override
    {
        OdGeEllipticArc image = arc;
        image.transformBy(m_toPlane);
        note(odgeRectangleTest::inside(m_rectangle, image), odgeRectangleTest::crosses(m_rectangle, image));
    }
    void polygon(std::span<OdGePoint3d const> corners) override
    {
        std::vector<OdGePoint2d> flatCorners;
        bool isInside = true;
        for (OdGePoint3d const& corner : corners) {
            flatCorners.push_back(flat(corner));
            isInside = isInside && odgeRectangleTest::inside(m_rectangle, flatCorners.back());
        }
        note(isInside, odgeRectangleTest::crosses(m_rectangle, flatCorners));
    }
    bool isSatisfied() const override { return m_needsAll ? !m_allInside : m_someCrosses; }

    bool isFound() const { return m_needsAll ? m_hasPieces && m_allInside : m_someCrosses; }

private:
    OdGePoint2d flat(OdGePoint3d const& point) const
    {
        OdGePoint3d const image = m_toPlane * point;
        return {image.x, image.y};
    }
    void note(bool isInside, bool crosses)
    {
        m_hasPieces = true;
        m_allInside = m_allInside && isInside;
        m_someCrosses = m_someCrosses || crosses;
    }

    OdGeExtents2d m_rectangle;
    OdGeMatrix3d const& m_toPlane;
    bool m_needsAll;
    bool m_hasPieces = false;
    bool m_allInside = true;
    bool m_someCrosses = false;
};

OdDbLayerTableRecord const* layerOf(OdDbEntity const& entity)
{
    OdDbObjectId const id = entity.layerId();
    return id.isValid() ? odCast<OdDbLayerTableRecord>(id.stub()->object) : nullptr;
}

std::vector<OdDbStub*> const& spaceEntities(OdDbDatabase const& database)
{
    OdDbObjectId const space = oa::getActiveSpace(&database);
    return static_cast<OdDbBlockTableRecord const*>(space.stub()->object)->entities();
}

OdDbEntity const& entityOf(OdDbStub const* stub)
{
    return *static_cast<OdDbEntity const*>(stub->object);
}

/// The latest entity for which the condition holds, or null.
template <class Condition>
OdDbObjectId lastThat(std::vector<OdDbStub*> const& entities, Condition condition)
{
    auto const it = std::find_if(entities.rbegin(), entities.rend(), condition);
    return it == entities.rend() ? OdDbObjectId() : OdDbObjectId(*it);
}

/// Half the side of the pick box, in drawing units. A view without a window is thought to be this many pixels
/// high.
double pickRadius(CaDoc const& document)
{
    constexpr double kViewPixels = 686.0;
    double const height = std::get<double>(SysVar::find(L"VIEWSIZE")->value(&document));
    int const pixels = std::get<int>(SysVar::find(L"PICKBOX")->value(&document));
    return pixels * height / kViewPixels;
}

} // namespace

SelectionFinder::SelectionFinder(CaDoc const& document)
    : m_database(*document.database()),
      m_worldToUcs(oa::ucsToWorld(&m_database).inverse()),
      m_pickRadius(pickRadius(document))
{
}

bool SelectionFinder::isPickable(OdDbEntity const& entity) const
{
    OdDbLayerTableRecord const* const layer = layerOf(entity);
    return entity.isVisible() && !(layer && (layer->isOff() || layer->isFrozen()));
}

std::vector<OdDbObjectId> SelectionFinder::inRectangle(OdGePoint3d const& corner, OdGePoint3d const& opposite,
                                                       EMode mode) const
{
    OdGeExtents2d rectangle;
    for (OdGePoint3d const& point : {m_worldToUcs * corner, m_worldToUcs * opposite})
        rectangle.addPoint({point.x, point.y});
    std::vector<OdDbObjectId> found;
    for (OdDbStub* const stub : spaceEntities(m_database)) {
        if (stub->erased || !isPickable(entityOf(stub)))
            continue;
        RectangleSink sink(rectangle, m_worldToUcs, mode == EMode::kWindow);
        entityOf(stub).outline(sink);
        if (sink.isFound())
            found.emplace_back(stub);
    }
    return found;
}

OdDbObjectId SelectionFinder::at(OdGePoint3d const& point) const
{
    OdGePoint3d const center = m_worldToUcs * point;
    OdGeExtents2d box;
    box.addPoint({center.x - m_pickRadius, center.y - m_pickRadius});
    box.addPoint({center.x + m_pickRadius, center.y + m_pickRadius});
    return lastThat(spaceEntities(m_database), [&](OdDbStub const* stub) {
        if (stub->erased || !isPickable(entityOf(stub)))
            return false;
        RectangleSink sink(box, m_worldToUcs, false);
        entityOf(stub).outline(sink);
        return sink.isFound();
    });
}

std::vector<OdDbObjectId> SelectionFinder::all() const
{
    std::vector<OdDbObjectId> found;
    for (OdDbStub* const stub : spaceEntities(m_database)) {
        if (stub->erased)
            continue;
        OdDbLayerTableRecord const* const layer = layerOf(entityOf(stub));
        if (!layer || !layer->isFrozen())
            found.emplace_back(stub);
    }
    return found;
}

OdDbObjectId SelectionFinder::last() const
{
    return lastThat(spaceEntities(m_database), [](OdDbStub const* stub) { return !stub->erased; });
}

bool isOnLockedLayer(OdDbObjectId entity)
{
    OdDbLayerTableRecord const* const layer = layerOf(entityOf(entity.stub()));
    return layer && layer->isLocked();
}

} // namespace ca
