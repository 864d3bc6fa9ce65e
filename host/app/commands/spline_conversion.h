#pragma once

#include "host/app/editor.h"

namespace ca {

/// SPLINE Object: asks for spline-fit polylines and replaces them by the splines whose frames they show. DELOBJ
/// says whether the polylines go.
Task<> convertToSplines(Editor& editor);

} // namespace ca
