#pragma once

#include "host/app/editor.h"

namespace ca {

/// What becomes of entities on locked layers: commands that change entities leave them out, and the command line
/// says how many.
enum class ELockedLayers
{
    kLeftOut,
    kIncluded
};

/// Object selection as every editing command has it: picks, windows, named sets and options until Enter. Yields
/// the entities found, in order of selection; empty when nothing was selected. Becomes the previous selection of
/// the document.
Task<std::vector<OdDbObjectId>> selectObjects(Editor& editor, OdString question = L"Select objects",
                                              ELockedLayers lockedLayers = ELockedLayers::kLeftOut);

} // namespace ca
