#pragma once

#include "host/app/editor.h"

namespace ca {

/// Object selection as every editing command has it: picks, windows, named sets and options until Enter. Yields the
/// entities found, in order of selection, without those on locked layers (the command line says how many); empty
/// when nothing was selected. Becomes the previous selection of the document.
Task<std::vector<OdDbObjectId>> selectObjects(Editor& editor, OdString question = L"Select objects");

} // namespace ca
