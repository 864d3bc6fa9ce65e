#pragma once

#include "host/app/editor.h"

namespace ca {

/// Entities that show nothing.
enum class EIdleEntities
{
    kZeroLength, ///< curves, points not among them
    kEmptyText   ///< texts without characters, or of blanks only
};

/// Erases them from model space and the sheets, but not from blocks and locked layers, and says how many.
void purgeEntities(Editor& editor, EIdleEntities which);

} // namespace ca
