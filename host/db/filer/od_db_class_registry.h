#pragma once

#include "host/root/od_rx_class.h"

#include <string_view>

/// Classes by their name in drawing files. A second class of one name terminates the program with a message.
namespace odDbClassRegistry {
/// Null for names that the host does not know; such records are kept raw.
OdRxClass* find(std::string_view dxfName);
/// The name under which a class is registered; empty when it is not.
std::string_view dxfNameOf(OdRxClass const* cls);
} // namespace odDbClassRegistry
