#pragma once

#include "host/app/editor.h"
#include "host/app/selection_region.h"

#include <optional>

namespace ca {

/// What becomes of entities on locked layers: commands that change entities leave them out, and the command line
/// says how many.
enum class ELockedLayers
{
    kLeftOut,
    kIncluded
};

/// Object selection as every editing command has it: picks, windows, polygons, fences, groups, named sets and
/// options until Enter. Yields the entities found, in order of selection; empty when nothing was selected. Becomes
/// the previous selection of the document.
Task<std::vector<OdDbObjectId>> selectObjects(Editor& editor, OdString question = L"Select objects",
                                              ELockedLayers lockedLayers = ELockedLayers::kLeftOut);

/// What was selected, and the last window or polygon that selected by crossing, for commands that change what lies
/// in it: entities that another answer selected may lie beside it. None when no answer was such a region.
struct SelectedObjects
{
    std::vector<OdDbObjectId> ids;
    std::optional<SelectionRegion> crossing;
};
Task<SelectedObjects> selectObjectsByCrossing(Editor& editor, OdString question = L"Select objects",
                                              ELockedLayers lockedLayers = ELockedLayers::kLeftOut);

} // namespace ca
