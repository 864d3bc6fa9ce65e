#pragma once

#include "host/db/od_db_selection_set.h"
#include "host/sds/sds.h"

#include <cstdint>

// Names: two words by which the C programming interface speaks of entities and selection sets. A name with both
// words zero names nothing.

/// A name as a value that can be stored and copied.
struct SdsName
{
    sds_name words = {0, 0};

    bool isNull() const { return words[0] == 0 && words[1] == 0; }
    friend bool operator==(SdsName const&, SdsName const&) = default;
};

namespace ca {

/// The name of a selection set; it keeps the set alive until sds_ssfree. Naming a set again gives the same name,
/// which needs one free all the same. Words are not used again during a run. Null for null.
SdsName nameOf(OdDbSelectionSet* set);
/// The selection set of a name, null when the name is unknown or was freed.
OdDbSelectionSetPtr selectionSetOf(std::int64_t const* name);

/// The name of an object, valid as long as its drawing, also while it is erased.
SdsName nameOf(OdDbObjectId id);
/// The object of a name made by nameOf(); null for any other words and when the drawing is gone.
OdDbObjectId objectIdOf(std::int64_t const* name);

} // namespace ca

// Selection sets in the C programming interface. All return RTNORM, or RTERROR with nothing changed.

/// Releases a name once; RTERROR for an unknown name and for one that was freed.
int sds_ssfree(std::int64_t const* set);
/// Adds an entity to a set. Without a set (null pointer or null name) makes one, empty when there is no entity
/// either. `result` receives the name of the set; it may be the same words as `set`.
int sds_ssadd(std::int64_t const* entity, std::int64_t const* set, std::int64_t* result);
/// Takes an entity out of a set; RTERROR when it is no member.
int sds_ssdel(std::int64_t const* entity, std::int64_t const* set);
/// Number of entities.
int sds_sslength(std::int64_t const* set, std::int64_t* length);
/// RTNORM when the entity is a member.
int sds_ssmemb(std::int64_t const* entity, std::int64_t const* set);
/// The entity at a position from 0.
int sds_ssname(std::int64_t const* set, std::int64_t index, std::int64_t* entity);
