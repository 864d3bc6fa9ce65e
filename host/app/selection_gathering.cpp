#include "host/app/selection_gathering.h"

#include "host/app/selection_finder.h"
#include "host/app/selection_groups.h"
#include "host/db/od_db_database.h"

#include <algorithm>

namespace ca {

SelectionGathering::SelectionGathering(Editor& editor)
    : m_editor(editor), m_set(OdDbSelectionSet::create(&editor.db()))
{
}

void SelectionGathering::take(std::vector<OdDbObjectId> const& ids)
{
    std::vector<OdDbObjectId> changed;
    for (OdDbObjectId const id : ids) {
        if (m_set->member(id) != m_isRemoving)
            continue;
        if (m_isRemoving)
            m_set->remove(id);
        else
            m_set->append(id);
        changed.push_back(id);
    }
    report(ids.size(), changed.size());
    m_steps.push_back({m_isRemoving, std::move(changed), std::nullopt});
}

void SelectionGathering::takePicked(std::vector<OdDbObjectId> ids)
{
    take(withTheirGroups(m_editor.doc(), std::move(ids)));
}

void SelectionGathering::takeInside(SelectionRegion const& region)
{
    takePicked(SelectionFinder(m_editor.doc()).in(region, SelectionFinder::EMode::kWindow));
}

void SelectionGathering::takeCrossing(SelectionRegion const& region)
{
    takePicked(SelectionFinder(m_editor.doc()).in(region, SelectionFinder::EMode::kCrossing));
    if (!m_isRemoving)
        m_steps.back().crossing = region;
}

void SelectionGathering::undo()
{
    if (m_steps.empty()) {
        m_editor.message(L"Nothing to undo.");
        return;
    }
    for (OdDbObjectId const id : m_steps.back().ids) {
        if (m_steps.back().removed)
            m_set->append(id);
        else
            m_set->remove(id);
    }
    m_steps.pop_back();
    m_editor.message(odFormat(L"%lld total", static_cast<long long>(m_set->numEntities())));
}

std::optional<SelectionRegion> SelectionGathering::lastCrossing() const
{
    auto const last =
        std::find_if(m_steps.rbegin(), m_steps.rend(), [](Step const& step) { return step.crossing.has_value(); });
    return last == m_steps.rend() ? std::nullopt : last->crossing;
}

void SelectionGathering::report(std::size_t found, std::size_t changed)
{
    OdString text = odFormat(L"%lld found", static_cast<long long>(found));
    if (m_isRemoving)
        text += odFormat(L", %lld removed", static_cast<long long>(changed));
    else if (changed < found)
        text += odFormat(L" (%lld duplicate)", static_cast<long long>(found - changed));
    if (m_set->numEntities() != changed || m_isRemoving)
        text += odFormat(L", %lld total", static_cast<long long>(m_set->numEntities()));
    m_editor.message(text);
}

} // namespace ca
