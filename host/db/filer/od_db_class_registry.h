#pragma once

#include "host/db/filer/od_db_tag_list.h"
#include "host/root/od_rx_class.h"

#include <string_view>

class OdDbObject;

/// Classes by their name in drawing files. A second class of one name terminates the program with a message,
/// unless the two are variants, told apart by their tests (OD_DB_DEFINE_VARIANT_CLASS).
namespace odDbClassRegistry {
/// The class that has the name without any test. Null for names that the host does not know; such records are kept
/// raw.
OdRxClass* find(std::string_view dxfName);
/// There are classes of this name that only the tags of a record tell.
bool hasVariants(std::string_view dxfName);
/// The class of a record: a variant whose test holds, else the one that find() gives.
OdRxClass* choose(std::string_view dxfName, OdDbTagList const& tags, OdDbObject const* whole = nullptr);
/// The name under which a class is registered; empty when it is not.
std::string_view dxfNameOf(OdRxClass const* cls);
} // namespace odDbClassRegistry
