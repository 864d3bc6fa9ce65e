#pragma once

#include "host/app/commands/entity_changes.h"

namespace ca {

/// The questions and the copies of a polar array.
Task<> arrayPolar(Editor& editor, Ids ids);

/// Refuses more copies than MAXARRAY.
void refuseLargeArray(Editor& editor, double elements, std::size_t objects);

} // namespace ca
