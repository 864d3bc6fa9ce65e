#pragma once

#include <array>
#include <cmath>

/// Integral of a function, and the integral of its magnitude as the measure of what can be lost to rounding.
struct OdGeIntegral
{
    double value = 0;
    double magnitude = 0;
};

/// Gauss's rule with ten points.
template <class Function>
OdGeIntegral odgeGauss10(Function const& function, double from, double to)
{
    static constexpr std::array<double, 5> kNodes = {0.1488743389816312, 0.4333953941292472, 0.6794095682990244,
                                                     0.8650633666889845, 0.9739065285171717};
    static constexpr std::array<double, 5> kWeights = {0.2955242247147529, 0.2692667193099963, 0.2190863625159820,
                                                       0.1494513491505806, 0.0666713443086881};
    double const middle = from + (to - from) / 2;
    double const half = (to - from) / 2;
    OdGeIntegral sum;
    for (std::size_t i = 0; i < kNodes.size(); ++i) {
        double const left = function(middle - half * kNodes[i]);
        double const right = function(middle + half * kNodes[i]);
        sum.value += kWeights[i] * (left + right);
        sum.magnitude += kWeights[i] * (std::abs(left) + std::abs(right));
    }
    return {sum.value * half, sum.magnitude * half};
}

/// Gauss's rule on halves of halves until what a further halving changes is at most `allowed`; from <= to. Where
/// the function is not smooth, the depth ends it.
template <class Function>
double odgeIntegrateHalves(Function const& function, double from, double to, double allowed, double whole,
                           int depth)
{
    double const middle = from + (to - from) / 2;
    double const left = odgeGauss10(function, from, middle).value;
    double const right = odgeGauss10(function, middle, to).value;
    if (depth == 0 || !(std::abs(left + right - whole) > allowed))
        return left + right;
    return odgeIntegrateHalves(function, from, middle, allowed, left, depth - 1) +
           odgeIntegrateHalves(function, middle, to, allowed, right, depth - 1);
}

/// The integral, good to the share `precision` of the integral of the magnitude.
template <class Function>
double odgeIntegrate(Function const& function, double from, double to, double precision = 1e-13)
{
    constexpr int kDepth = 24;
    OdGeIntegral const whole = odgeGauss10(function, from, to);
    return odgeIntegrateHalves(function, from, to, precision * whole.magnitude, whole.value, kDepth);
}
