#pragma once

#include "host/geom/curves/od_ge_curve3d.h"

#include <random>
#include <string>

/// A bounded curve to try what holds for all curves.
struct CurveSample
{
    std::string name;
    std::shared_ptr<OdGeCurve3d const> curve;
};

/// Each class several times: whole and in part, in several planes, tiny, far away, flat, nearly straight, and with
/// random values.
std::vector<CurveSample> curveSamples();
std::vector<CurveSample> closedCurveSamples();

/// Greatest coordinate of the curve: what rounding and tolerances are measured by.
double coordinateSize(OdGeCurve3d const& curve);

class RandomNumbers
{
public:
    double between(double low, double high) { return std::uniform_real_distribution<double>(low, high)(m_random); }
    OdGeVector3d vector(double size) { return {between(-size, size), between(-size, size), between(-size, size)}; }
    OdGePoint3d pointNear(OdGeExtents3d const& box);
    double paramOf(OdGeCurve3d const& curve);

private:
    std::mt19937 m_random{4711};
};
