#include "testapi/ta_compare_utils.h"

#include "testapi/ta_assert.h"

#include <algorithm>
#include <cmath>

namespace ta {

namespace {

constexpr char s_area[] = "testapi/ta_utils";
constexpr double s_nearZero = 1e-14;
constexpr double s_mostDigits = 14; // that two numbers can be asked to have in common

template <class T>
void copyThree(T const (&from)[3], T (&to)[3])
{
    std::copy(std::begin(from), std::end(from), std::begin(to));
}

} // namespace

double getMantissaAndDegree(double const& x, double& degree)
{
    double integer = 0;
    double const fraction = std::modf(std::log10(std::abs(x)), &integer);
    // A negative logarithm has a negative fraction and keeps its integer part.
    degree = fraction > 0 ? integer + 1 : integer;
    return x / std::pow(10.0, degree);
}

double getDegree(double const& x)
{
    return std::trunc(std::log10(std::abs(x)));
}

bool doublesAreEqual(double const& a, double const& b, double const& relTol, double const& tolerance)
{
    if (std::abs(a) < s_nearZero)
        return std::abs(a - b) <= tolerance;
    double degreeA = 0, degreeB = 0;
    double const mantissaA = getMantissaAndDegree(a, degreeA);
    double const mantissaB = getMantissaAndDegree(b, degreeB);
    double const degree = std::max(degreeA, degreeB);
    double const allowed =
        getDegree(relTol) + degree <= -s_mostDigits ? std::pow(10.0, -s_mostDigits - degree) : relTol;
    return std::abs(mantissaA - mantissaB) <= allowed;
}

void getMassProps(OdDbEntity const* entity, MassProperties& props)
{
    tdx::Modeler const* const pModeler = tdx::getModeler(entity);
    TA_CHECK(pModeler != nullptr);
    tdx::MassProperties found;
    TA_CHECK(pModeler->massProperties(*entity, found) == eOk);
    props.m_volume = found.volume;
    props.m_centroid = found.centroid;
    copyThree(found.momentsOfInertia, props.m_momentsOfInertia);
    copyThree(found.productsOfInertia, props.m_productsOfInertia);
    copyThree(found.principalMoments, props.m_principalMoments);
    copyThree(found.principalAxes, props.m_principalAxes);
    copyThree(found.radiiOfGyration, props.m_radiiOfGyration);
    props.m_extents = found.extents;
}

void compareMassProps(MassProperties const& mp1, MassProperties const& mp2, double tolerance)
{
    double const relTol = ca::preferences().massPropAccuracy();
    double const absTol = relTol / 1e-12 * tolerance;
    TA_CHECK(doublesAreEqual(mp1.m_volume, mp2.m_volume, relTol, tolerance));
    TA_CHECK(mp1.m_centroid.isEqualTo(mp2.m_centroid, absTol));
    TA_CHECK(mp1.m_extents.minPoint().isEqualTo(mp2.m_extents.minPoint(), absTol));
    TA_CHECK(mp1.m_extents.maxPoint().isEqualTo(mp2.m_extents.maxPoint(), absTol));
}

void compareMassProps(OdDbEntity const* pEnt1, OdDbEntity const* pEnt2, double tolerance)
{
    MassProperties mp1, mp2;
    getMassProps(pEnt1, mp1);
    getMassProps(pEnt2, mp2);
    compareMassProps(mp1, mp2, tolerance);
}

} // namespace ta
