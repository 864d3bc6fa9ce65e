#pragma once

#include "host/root/od_string.h"

#include <vector>

/// The lines of a text with formatting codes as plain text: what is underlined or overlined has %%u and %%o around
/// it, stacked fractions are written with a stroke, all other formatting is gone. There is always one line at
/// least.
std::vector<OdString> odDbPlainLines(OdString const& formatted);
