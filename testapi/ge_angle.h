#pragma once

// For authors of C++ tests: angles as the constructions of ge_tangent_circle.h and ge_circular_arc.h give them.
// A full turn is 6.283185307179586; angles that differ by at most 1e-10 count as equal.

namespace ge {

/// Both angles in radians are reduced by whole turns, each keeping its sign, and compared with a tolerance. There
/// is no wrap-around: an angle just below a turn is not equal to one just above 0, and -90 degrees is not 270.
bool isEqualAngle(double a, double b, double tol);

/// Reduces an angle in radians by whole turns; with `positive`, a negative one gets a turn added. One turn is
/// kept, and made exact: +2 pi always, -2 pi unless `positive`, which turns it into 0. More turns become 0.
void normalizeAngle(double& angle, bool positive);
/// Makes both positive as above; an end before the start gets a turn added.
void normalizeAngles(double& start, double& end);
/// Reduces an angle in degrees by whole turns and makes it positive; 360 is kept.
void normalizeAngleInDegrees(double& angle);

} // namespace ge
