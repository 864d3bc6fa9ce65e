#pragma once

#include "host/dxf/older/dxf_lift_header.h"
#include "host/dxf/older/dxf_lift_record.h"

namespace dxf {

/// Dimension styles up to R14: names of arrow blocks stand, still as names, under today's codes; units and fit,
/// which had other variables, are added as today's.
void liftDimensionStyle(LiftRecord& record, LiftHeader const& header);

} // namespace dxf
