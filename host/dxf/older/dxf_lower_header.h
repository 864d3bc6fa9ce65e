#pragma once

#include "host/dxf/older/dxf_lower_names.h"
#include "host/dxf/older/dxf_lower_record.h"

namespace dxf {

/// Puts a header variable, name (group 9) and value, as an older release has it, with the variables of that
/// release that it stands for; or reports that it is left out.
/// `seed`: the next free handle where the file needs more handles than the drawing, else null.
void putOldVariable(TagSpan variable, LowerContext const& context, LegacyNames const& names, OdDbHandle seed,
                    OdDbTagSink& sink);

} // namespace dxf
