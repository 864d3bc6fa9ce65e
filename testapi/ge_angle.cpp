#include "testapi/ge_angle.h"

#include <cmath>

namespace ge {

namespace {

constexpr double kAngleTol = 1e-10;
constexpr double kTurn = 6.283185307179586;
constexpr double kTurnAndTol = 6.283185307279586;
constexpr double kTurnInDegrees = 360.0;
constexpr double kTurnAndTolInDegrees = 360.0000000001;

bool isNear(double angle, double target)
{
    return std::abs(angle - target) <= kAngleTol;
}

} // namespace

bool isEqualAngle(double a, double b, double tol)
{
    double const difference = std::fmod(a, kTurn) - std::fmod(b, kTurn);
    return -tol <= difference && difference <= tol;
}

void normalizeAngle(double& angle, bool positive)
{
    if (isNear(angle, kTurn)) {
        angle = kTurn;
        return;
    }
    if (!positive && isNear(angle, -kTurn))
        angle = -kTurn;
    if (std::abs(angle) > kTurnAndTol)
        angle = std::fmod(angle, kTurn);
    if (positive && angle < -kAngleTol)
        angle += kTurn;
}

void normalizeAngles(double& start, double& end)
{
    normalizeAngle(start, true);
    normalizeAngle(end, true);
    if (start - kAngleTol > end)
        end += kTurn;
}

void normalizeAngleInDegrees(double& angle)
{
    if (std::abs(angle) > kTurnAndTolInDegrees)
        angle = std::fmod(angle, kTurnInDegrees);
    if (angle < -kAngleTol)
        angle += kTurnInDegrees;
}

} // namespace ge
