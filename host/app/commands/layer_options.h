#pragma once

#include "host/app/editor.h"
#include "host/db/records/od_db_layer_table_record.h"

namespace ca {

// The options of -LAYER that change layers named in a list. Each function runs the option of a keyword, and is
// false when the keyword is not one of its own.

/// Options that switch something: On, Off, Freeze, Thaw, Lock, Unlock.
Task<bool> runLayerStateOption(Editor& editor, OdString keyword);
/// Options that ask for a value first: Color, Ltype, LWeight, Plot, Description.
Task<bool> runLayerPropertyOption(Editor& editor, OdString keyword);

OdDbSymbolTable& layerTable(Editor& editor);
OdDbLayerTableRecordPtr currentLayer(Editor& editor);

} // namespace ca
