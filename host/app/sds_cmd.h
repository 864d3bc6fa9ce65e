#pragma once

#include "host/sds/sds.h"

/// Feeds the list to the command processor and returns when its answers are used up; the list stays the caller's.
/// RTNORM; RTERROR when an answer was refused, a name is no command, or the list holds what cannot be an answer.
/// A null list cancels everything that waits: RTNORM, also when nothing does.
int sds_cmd(sds_resbuf const* list);

/// As sds_cmd with pairs of type and value as in sds_buildlist. `sds_command(0)` is an empty list and cancels.
int sds_command(int type, ...);
