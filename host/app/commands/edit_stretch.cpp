// STRETCH: what a crossing window or polygon caught of each entity moves, the rest stays.
#include "host/app/ca_doc.h"
#include "host/app/command_registry.h"
#include "host/app/commands/base_point.h"
#include "host/app/commands/displacement.h"
#include "host/app/commands/entity_changes.h"
#include "host/app/select_objects.h"
#include "host/app/selection_finder.h"

#include <unordered_set>

namespace ca {

namespace {

class Stretching
{
public:
    Stretching(Editor& editor, std::optional<SelectionRegion> const& region, OdGeVector3d const& way)
        : m_region(region), m_way(way)
    {
        if (!region)
            return;
        auto const found = SelectionFinder(editor.doc()).in(*region, SelectionFinder::EMode::kCrossing);
        m_touched.insert(found.begin(), found.end());
    }

    /// Entities that were not selected by the region move as a whole.
    OdResult apply(OdDbEntity& entity) const
    {
        return m_touched.contains(entity.objectId()) ? stretch(entity) : move(entity);
    }

private:
    OdResult move(OdDbEntity& entity) const { return entity.transformBy(OdGeMatrix3d::translation(m_way)); }

    OdResult stretch(OdDbEntity& entity) const
    {
        std::vector<OdGePoint3d> points;
        entity.getStretchPoints(points);
        if (points.empty())
            return m_region->contains(basePointOf(entity)) ? move(entity) : eOk;
        std::vector<int> caught;
        for (std::size_t i = 0; i < points.size(); ++i)
            if (m_region->contains(points[i]))
                caught.push_back(static_cast<int>(i));
        return caught.empty() ? eOk : entity.moveStretchPointsAt(caught, m_way);
    }

    std::optional<SelectionRegion> m_region;
    OdGeVector3d m_way;
    std::unordered_set<OdDbObjectId> m_touched;
};

Task<> stretchCommand(Editor& editor)
{
    editor.message(L"Select objects to stretch by crossing-window or crossing-polygon...");
    SelectedObjects const selected = co_await selectObjectsByCrossing(editor);
    if (selected.ids.empty())
        co_return;
    OdGeVector3d const way = co_await askWay(editor);
    Stretching const stretching(editor, selected.crossing, way);
    std::size_t left = 0;
    for (OdDbObjectId const id : selected.ids)
        left += stretching.apply(*id.open<OdDbEntity>(OdDb::kForWrite)) == eOk ? 0 : 1;
    reportLeft(editor, left, L"stretched");
}

constexpr CommandDef s_commands[] = {{L"STRETCH", L"S", kPlain, &stretchCommand}};
CommandRegistrar const s_register(s_commands);

} // namespace

} // namespace ca
