#pragma once

#include "host/app/editor.h"

namespace ca {

// Questions for a number that offer the present value: Enter leaves it as it is. The default is added to the
// prompt.

Task<double> askDistance(Editor& editor, Prompt prompt, double present);
Task<int> askInteger(Editor& editor, Prompt prompt, int present);

} // namespace ca
