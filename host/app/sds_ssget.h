#pragma once

#include "host/sds/sds.h"

#include <cstdint>

/// Makes a selection set without asking anybody. Modes, in any case, with an optional "_" in front:
///   "X"  everything in the drawing's spaces, whatever its layer      "A"  all of the active space that is not
///   frozen "L"  the last entity            "P"  the previous selection      "W", "C"  window or crossing from pt1
///   to pt2 null or ""  what lies under pt1
/// Points are three coordinates in the user coordinate system. `filter` (may be null) is a list of group codes and
/// values that all have to agree with the entity's own: texts are patterns with wildcards without regard to case,
/// reals agree within 1e-10. RTNORM with the name of the set in `result`; RTERROR, and nothing has changed, when
/// nothing is found, a point is missing, the mode or a type in the filter is unknown, or no drawing is open.
int sds_ssget(wchar_t const* mode, double const* pt1, double const* pt2, sds_resbuf const* filter,
              std::int64_t* result);
