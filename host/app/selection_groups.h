#pragma once

#include "host/app/ca_doc.h"
#include "host/db/od_db_object_id.h"

#include <optional>
#include <vector>

namespace ca {

/// The members of the group of this name that stand in the active space; nothing without such a group.
std::optional<std::vector<OdDbObjectId>> groupMembers(CaDoc const& document, OdString const& name);

/// What was picked, each entity followed by the rest of the selectable groups that it is in, if PICKSTYLE wants
/// groups to be picked as one.
std::vector<OdDbObjectId> withTheirGroups(CaDoc const& document, std::vector<OdDbObjectId> picked);

} // namespace ca
