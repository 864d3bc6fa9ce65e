#pragma once

#include "host/dxf/older/dxf_lower_names.h"
#include "host/dxf/older/dxf_lower_record.h"

namespace dxf {

/// The VIEWPORT has its view in extended data (ACAD, MVIEW) and nowhere else.
bool hasOldView(TagSpan record);
/// Puts a VIEWPORT in the form that it has before R2000: with its view in extended data.
void putOldViewport(TagSpan record, LowerContext const& context, LegacyNames const& names, OdDbTagSink& sink);

} // namespace dxf
