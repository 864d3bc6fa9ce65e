#pragma once

#include "host/app/editor.h"

namespace ca {

/// Asks which named coordinate systems to list, and lists them with their origins and axes in the current one.
Task<> listUcs(Editor& editor);
/// Asks for a named coordinate system; "?" lists them. Null after that, throws AnswerRejected for an unknown name.
Task<OdDbObjectId> askUcs(Editor& editor, OdString question);

/// @name Options of UCS
/// @{
Task<> restoreUcs(Editor& editor);
Task<> saveUcs(Editor& editor);
Task<> deleteUcs(Editor& editor);
/// Asks which of them.
Task<> namedUcs(Editor& editor);
/// @}

} // namespace ca
