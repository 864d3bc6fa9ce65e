#pragma once

// For tests of solids and surfaces, which are compared by their mass properties, and of numbers that are known to
// a number of digits.

#include "testapi/ta_host.h"

namespace ta {

/// Mass properties of a body of density 1 in world coordinates and drawing units; all zero, and no extents, at
/// first.
struct MassProperties
{
    double m_volume = 0;
    OdGePoint3d m_centroid;
    double m_momentsOfInertia[3] = {};  ///< about the X, Y and Z axis
    double m_productsOfInertia[3] = {}; ///< integrals of xy, yz and zx
    double m_principalMoments[3] = {};
    OdGeVector3d m_principalAxes[3];
    double m_radiiOfGyration[3] = {};
    OdGeExtents3d m_extents;
};

/// @name Decimal form of a number
/// The degree is the number of digits before the decimal point, so that the mantissa of most numbers above 1 lies
/// in (0.1, 1): 250 is 0.25 of degree 3. Exact powers of ten have the mantissa 1 (100 is 1 of degree 2), and
/// numbers below 1 one in [1, 10) times a tenth less: 0.05 is 0.5 of degree -1. Of 0 the degree is minus infinity
/// and the mantissa no number.
/// @{
double getMantissaAndDegree(double const& x, double& degree);
/// The integer part of log10(abs(x)), cut off towards 0.
double getDegree(double const& x);
/// For an `a` of less than 1e-14 in magnitude: the numbers differ by at most `tolerance`. For others: their
/// mantissas differ by at most `relTol`, or, where that asks for more, by a unit of the 14th digit. Degrees are
/// not compared: 1 and 10 are equal, and 1000 and 1000.5 are not, since their mantissas are 1 and 0.10005.
bool doublesAreEqual(double const& a, double const& b, double const& relTol, double const& tolerance);
/// @}

/// @name Failures
/// Each fails the running test.
/// @{
/// Where no modeler can handle the entity, or the modeler has no result.
void getMassProps(OdDbEntity const* entity, MassProperties& props);
/// At the first of these that differs: volume, to the accuracy that the preferences give to mass properties;
/// centroid and extents, to `tolerance`. Moments, products, axes and radii are not compared.
void compareMassProps(MassProperties const& mp1, MassProperties const& mp2, double tolerance);
void compareMassProps(OdDbEntity const* pEnt1, OdDbEntity const* pEnt2, double tolerance);
/// @}

} // namespace ta
