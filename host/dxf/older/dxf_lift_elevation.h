#pragma once

#include "host/dxf/older/dxf_lift_header.h"
#include "host/dxf/older/dxf_lift_record.h"

namespace dxf {

/// Before R11 entities lay in the plane and had an elevation (group 38): points that lack z get it.
void liftElevation(LiftRecord& record, LiftHeader const& header);

} // namespace dxf
