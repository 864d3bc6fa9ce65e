#pragma once

#include "host/root/od_string.h"

#include <vector>

namespace dxf {

/// The lines of a text with formatting codes (MTEXT) as plain text: what is underlined or overlined has %%u and
/// %%o around it, stacked fractions are written with a stroke, all other formatting is gone.
std::vector<OdString> plainLines(OdString const& formatted);

} // namespace dxf
