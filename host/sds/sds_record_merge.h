#pragma once

#include "host/sds/sds_record.h"

namespace ca {

/// The record of an entity with what a list changes. A group of the list takes the place of the entity's groups of
/// that code, of those in the same section (behind the same group 100) where both say sections; where the entity
/// has several, the list has as many, or all of them: then, or where the entity has none, those of the list stand
/// in its order. A group that the entity lacks goes to where entities of the class have it. Extended data of an
/// application is replaced as a whole, that of others stays; an application without data loses it.
///
/// `isKept`: the host knows the class by its groups alone. Nothing when the list gives some of the values of a
/// list of vertices, and it is not clear of which vertices.
std::optional<OdDbTagList> mergedRecord(OdDbTagList const& present, SdsRecord const& changes,
                                        OdDbDatabase& database, bool isKept);

} // namespace ca
