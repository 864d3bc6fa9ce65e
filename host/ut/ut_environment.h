#pragma once

#include "host/root/od_string.h"

#include <cstddef>

namespace ut {

/// Value of an environment variable. False, with `value` as it was, when it is unset or empty.
bool getEnvironment(OdString const& name, OdString* value);

/// Replaces references to environment variables: %NAME%, $NAME, ${NAME}. A name that is not set stays as written,
/// with its signs; a value is not searched for references again. Behind "$" a name is letters, digits and "_" and
/// does not begin with a digit; between "%" signs it is anything.
OdString expandEnvironmentStrings(OdString const& text);

/// The same into a buffer of `size` characters. Returns the size that the expansion needs, with its terminator;
/// when that is more than `size`, nothing is written. 0 for a null text, or a null buffer of some size.
std::size_t expandEnvironmentStrings(wchar_t const* text, wchar_t* buffer, std::size_t size);

} // namespace ut
