#pragma once

#include "host/sds/sds.h"

#include <cstdint>

// clang-format off
/// Makes a selection set without asking anybody. Modes, in any case, with an optional "_" in front:
///
/// | mode       | what is found                                          | points                                |
/// |------------|--------------------------------------------------------|---------------------------------------|
/// | null or "" | what lies under a point                                | `pt1`                                 |
/// | "W", "C"   | by window or crossing                                  | `pt1` and `pt2`                       |
/// | "WP", "CP" | by a polygon, as window or crossing                    | `pt1`: a list of three points or more |
/// | "F"        | what a fence crosses                                   | `pt1`: a list of two points or more   |
/// | "L", "P"   | the last entity, the previous selection                |                                       |
/// | "A"        | all of the active space that is not frozen             |                                       |
/// | "X"        | everything in the drawing's spaces, whatever its layer |                                       |
///
/// `pt1` and `pt2` are three coordinates each, or `pt1` is a list of result buffers of the types RTPOINT and
/// RT3DPOINT (sds_resbuf const*); coordinates are those of the user coordinate system. `filter` (may be null) is a
/// list of group codes and values, angles in radians, that all have to agree with the entity's own: texts are
/// patterns with wildcards without regard to case, reals agree within 1e-10. RTNORM with the name of the set in
/// `result`; RTERROR, and nothing has changed, when nothing is found, a point is missing, the mode or a type in the
/// filter is unknown, or no drawing is open.
int sds_ssget(wchar_t const* mode, void const* pt1, double const* pt2, sds_resbuf const* filter,
              std::int64_t* result);
// clang-format on
