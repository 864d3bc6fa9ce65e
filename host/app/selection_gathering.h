#pragma once

#include "host/app/editor.h"
#include "host/app/selection_region.h"

#include <optional>

namespace ca {

/// The selection that grows and shrinks while objects are asked for.
class SelectionGathering
{
public:
    explicit SelectionGathering(Editor& editor);

    void setRemoving(bool removing) { m_isRemoving = removing; }
    bool isRemoving() const { return m_isRemoving; }
    OdDbSelectionSet& set() { return *m_set; }

    /// Adds or removes and says so: "3 found (1 duplicate), 7 total".
    void take(std::vector<OdDbObjectId> const& ids);
    /// The same for what was found by pointing at it, with the groups that belong to it.
    void takePicked(std::vector<OdDbObjectId> ids);
    /// What lies in a region.
    void takeInside(SelectionRegion const& region);
    /// What a region crosses. It becomes the last crossing, unless this removes.
    void takeCrossing(SelectionRegion const& region);
    /// Takes back the last of these calls.
    void undo();

    /// The last window or polygon that selected by crossing and was not taken back.
    std::optional<SelectionRegion> lastCrossing() const;

private:
    struct Step
    {
        bool removed;
        std::vector<OdDbObjectId> ids;
        std::optional<SelectionRegion> crossing;
    };
    void report(std::size_t found, std::size_t changed);

    Editor& m_editor;
    OdDbSelectionSetPtr m_set;
    std::vector<Step> m_steps;
    bool m_isRemoving = false;
};

} // namespace ca
