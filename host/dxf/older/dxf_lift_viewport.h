#pragma once

#include "host/dxf/older/dxf_lift_header.h"
#include "host/dxf/older/dxf_lift_record.h"

namespace dxf {

/// VIEWPORT up to R14: the view, which stood in extended data, becomes groups of the record. Layers that are
/// frozen in it stand under their code of today, but by name.
void liftViewport(LiftRecord& record, LiftHeader const& header);

} // namespace dxf
