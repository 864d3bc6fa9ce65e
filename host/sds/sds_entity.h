#pragma once

#include "host/sds/sds.h"

// Entities in the C programming interface, as lists of groups: one node for each group of the entity's record in
// drawing files, but
// - in front the entity's name (group -1), which drawing files do not have,
// - points are one node each, of three coordinates (z is 0 for points of two),
// - angles (groups 50 to 58) are radians,
// - references (groups 330 to 369, 390 to 399, 480, 481) are names of objects, handles (5, 105, 320 to 329, 1005)
//   texts,
// - extended data stands behind a node of type -3 without a value: the name of an application (group 1001), then
//   its groups.
// Making entities, and walking over them: host/app/sds_entities.h. Changes are part of the undo record that is
// running.

/// The groups of an entity without extended data. Null for a name of no entity, for an erased one and when memory
/// is short. The list is the caller's: ca::freeRbList.
sds_resbuf* sds_entget(std::int64_t const* entity);

/// The same with the extended data of applications: nodes of type RTSTR with names, which may hold wildcards.
sds_resbuf* sds_entgetx(std::int64_t const* entity, sds_resbuf const* applications);

/// Changes the entity that group -1 names. The list says what changes: the groups that it holds take the place of
/// the entity's groups of the same code (in the same section, where the list says sections with group 100). Of
/// groups that an entity has several times the list holds as many, or all that describe the list: those of a
/// polyline's vertices, the pieces of a text. Groups that say where the entity stands (5, 330, 67, 410, reactors)
/// are passed over. RTNORM; RTERROR, and nothing has changed, for a list that is malformed, of another type than
/// the entity, with names of linetypes, styles or blocks that the drawing lacks (layers and applications are
/// added), or that would give an entity which an audit finds something wrong with that was right before.
int sds_entmod(sds_resbuf const* list);

/// Erases an entity, or brings it back when it is erased. RTERROR for names of no entity and of parts (vertices,
/// attributes), which come and go with the whole.
int sds_entdel(std::int64_t const* entity);
