#pragma once

#include "host/sds/sds_entity.h"

// Entities of the current drawing in the C programming interface. What a list is: host/sds/sds_entity.h.

/// Makes an entity of a list and puts it into the active space (paper space where group 67 says 1), or into the
/// block that is being defined. The type (group 0) and the groups of the geometry have to be there, in any order;
/// groups 100 need not. Without a layer it is on the current one; other groups that the list does not say have the
/// meaning that they have in files: by layer, standard, none. A layer or an application that the drawing lacks is
/// added. Names, handles, owners and reactors are passed over. An entity of a class that the host does not know is
/// kept as its groups stand; its list has to say groups 100, AcDbEntity and those of the class.
///
/// POLYLINE, and INSERT with group 66 not 0, begin a sequence: their vertices or attributes follow, one list each,
/// then SEQEND, which makes it all. BLOCK begins the definition of a block; the entities up to ENDBLK, which makes
/// it, stand in it. A block of this name is redefined; "*U" becomes "*U" and a number.
///
/// RTNORM; RTERROR, and nothing is made, for a malformed list, an unknown type, missing values and those that an
/// audit finds fault with, names of linetypes, styles or blocks that the drawing lacks, references to model space
/// or sheets, a list that does not belong where the sequence is, and without a drawing. A sequence goes on after
/// that, unless it was its SEQEND or ENDBLK that failed. Null forgets sequences that have not ended.
int sds_entmake(sds_resbuf const* list);

/// The last entity of the active space that is not erased, parts aside; RTERROR when there is none.
int sds_entlast(std::int64_t* result);

/// The entity that follows another one: its first part, the next part, the end mark behind the parts, the next
/// entity in the same space or block; without one (null pointer or null name) the first of the active space.
/// Erased entities are passed over. RTERROR at the end.
int sds_entnext(std::int64_t const* entity, std::int64_t* result);
