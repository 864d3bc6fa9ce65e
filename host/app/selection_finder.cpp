#include "host/app/selection_finder.h"

#include "host/app/ca_doc.h"
#include "host/app/sys_var.h"
#include "host/db/oa_space.h"
#include "host/db/od_db_database.h"
#include "host/db/records/od_db_block_table_record.h"
#include "host/db/records/od_db_layer_table_record.h"

namespace ca {

namespace {

using EMode = SelectionFinder::EMode;

/// Tells whether the outline of an entity lies in a region or crosses it, as the mode wants.
class RegionSink : public OdDbOutlineSink
{
public:
    RegionSink(SelectionRegion const& region, EMode mode)
        : m_region(region.shape()), m_toPlane(region.worldToPlane()), m_mode(mode)
    {
    }

    void point(OdGePoint3d const& position) override
    {
        OdGePoint2d const p = flat(position);
        note(isWindow() ? m_region.holds(p) : m_region.contains(p));
    }
    void segment(OdGePoint3d const& start, OdGePoint3d const& end) override
    {
        OdGePoint2d const a = flat(start), b = flat(end);
        note(isWindow() ? m_region.holds(a, b) : m_region.crosses(a, b));
    }
    void arc(OdGeEllipticArc const& arc) override
    {
        OdGeEllipticArc image = arc;
        image.transformBy(m_toPlane);
        note(isWindow() ? m_region.holds(image) : m_region.crosses(image));
    }
    void spline(OdGeNurbCurve3d const& curve) override
    {
        if (isBeside(curve.definition().controlPoints))
            return note(false);
        OdGeNurbCurve3d image = curve;
        image.transformBy(m_toPlane);
        note(isWindow() ? m_region.holds(image) : m_region.crosses(image));
    }
    void endless(OdGePoint3d const& base, OdGeVector3d const& direction, bool isRay) override
    {
        note(!isWindow() && m_region.crossesEndless(flat(base), (m_toPlane * direction).convert2d(), isRay));
    }
    void polygon(std::span<OdGePoint3d const> corners) override
    {
        m_corners.clear();
        for (OdGePoint3d const& corner : corners)
            m_corners.push_back(flat(corner));
        note(isWindow() ? m_region.holds(m_corners) : m_region.crosses(m_corners));
    }
    bool isSatisfied() const override { return m_isDecided; }

    bool isFound() const { return m_isFound; }

private:
    bool isWindow() const { return m_mode == EMode::kWindow; }
    OdGePoint2d flat(OdGePoint3d const& point) const { return (m_toPlane * point).convert2d(); }

    bool isBeside(std::vector<OdGePoint3d> const& controlPoints) const
    {
        OdGeExtents2d hull;
        for (OdGePoint3d const& point : controlPoints)
            hull.addPoint(flat(point));
        return m_region.box().isDisjoint(hull, 0);
    }
    /// Of a window every piece has to say yes, else one is enough.
    void note(bool answer)
    {
        if (m_isDecided)
            return;
        m_isFound = answer;
        m_isDecided = answer != isWindow();
    }

    OdGeRegion2d const& m_region;
    OdGeMatrix3d const& m_toPlane;
    EMode m_mode;
    bool m_isFound = false;
    bool m_isDecided = false;
    std::vector<OdGePoint2d> m_corners; ///< kept between polygons, so that they need no memory of their own
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

bool isPickable(OdDbEntity const& entity)
{
    OdDbLayerTableRecord const* const layer = layerOf(entity);
    return entity.isVisible() && !(layer && (layer->isOff() || layer->isFrozen()));
}

bool isFound(OdDbStub const* stub, SelectionRegion const& region, EMode mode)
{
    if (stub->erased || !isPickable(entityOf(stub)))
        return false;
    RegionSink sink(region, mode);
    entityOf(stub).outline(sink);
    return sink.isFound();
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

std::vector<OdDbObjectId> SelectionFinder::in(SelectionRegion const& region, EMode mode) const
{
    std::vector<OdDbObjectId> found;
    for (OdDbStub* const stub : spaceEntities(m_database))
        if (isFound(stub, region, mode))
            found.emplace_back(stub);
    return found;
}

OdDbObjectId SelectionFinder::at(OdGePoint3d const& point) const
{
    OdGePoint2d const center = (m_worldToUcs * point).convert2d();
    OdGeVector2d const reach(m_pickRadius, m_pickRadius);
    SelectionRegion const box(m_worldToUcs, OdGeRegion2d::rectangle({center - reach, center + reach}));
    return lastThat(spaceEntities(m_database),
                    [&](OdDbStub const* stub) { return isFound(stub, box, EMode::kCrossing); });
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
