#include "host/geom/curves/od_ge_nurb_basis.h"
#include "host/root/od_error.h"

#include <BSplCLib.hxx>
#include <Standard_Failure.hxx>

// Raising the degree, done by OpenCASCADE.

namespace {

using Definition = OdGeNurbCurve3d::Definition;

// Knots, each given once, with how often each of them counts.
struct CountedKnots
{
    std::vector<double> knots;
    std::vector<int> counts;

    explicit CountedKnots(std::vector<double> const& flat)
    {
        for (double const knot : flat) {
            if (knots.empty() || knots.back() < knot) {
                knots.push_back(knot);
                counts.push_back(0);
            }
            ++counts.back();
        }
    }
};

std::vector<double> flatKnots(TColStd_Array1OfReal const& knots, TColStd_Array1OfInteger const& counts)
{
    std::vector<double> flat;
    for (int i = knots.Lower(); i <= knots.Upper(); ++i)
        flat.insert(flat.end(), static_cast<std::size_t>(counts(i)), knots(i));
    return flat;
}

template <class Array, class Value>
Array toArray(std::vector<Value> const& values)
{
    // A view on our own memory.
    return Array(values.front(), 1, static_cast<int>(values.size()));
}

// The curve is clamped.
Definition elevate(Definition const& old, int degree)
{
    CountedKnots const oldKnots(old.knots.asVector());
    auto const knots = toArray<TColStd_Array1OfReal>(oldKnots.knots);
    auto const counts = toArray<TColStd_Array1OfInteger>(oldKnots.counts);
    int const points = static_cast<int>(old.controlPoints.size());
    TColgp_Array1OfPnt poles(1, points);
    for (int i = 1; i <= points; ++i) {
        OdGePoint3d const& p = old.controlPoints[static_cast<std::size_t>(i) - 1];
        poles(i).SetCoord(p.x, p.y, p.z);
    }
    TColStd_Array1OfReal weights(1, points);
    for (int i = 1; old.isRational() && i <= points; ++i)
        weights(i) = old.weights[static_cast<std::size_t>(i) - 1];

    int const rise = degree - old.degree;
    int const newPoints = points + rise * (knots.Length() - 1);
    int const newKnotCount = BSplCLib::IncreaseDegreeCountKnots(old.degree, degree, false, counts);
    TColgp_Array1OfPnt newPoles(1, newPoints);
    TColStd_Array1OfReal newWeights(1, newPoints);
    TColStd_Array1OfReal newKnots(1, newKnotCount);
    TColStd_Array1OfInteger newCounts(1, newKnotCount);
    BSplCLib::IncreaseDegree(old.degree, degree, false, poles, old.isRational() ? &weights : nullptr, knots,
                             counts, newPoles, old.isRational() ? &newWeights : nullptr, newKnots, newCounts);

    Definition raised;
    raised.degree = degree;
    raised.knots = OdGeKnotVector(flatKnots(newKnots, newCounts), old.knots.tolerance());
    for (int i = 1; i <= newPoints; ++i) {
        raised.controlPoints.emplace_back(newPoles(i).X(), newPoles(i).Y(), newPoles(i).Z());
        if (old.isRational())
            raised.weights.push_back(newWeights(i));
    }
    return raised;
}

} // namespace

OdGeNurbCurve3d OdGeNurbCurve3d::elevated(int degree) const
{
    if (degree < this->degree() || degree > kMostDegree)
        throw OdError(eInvalidInput,
                      odFormat(L"a curve of degree %d cannot get the degree %d", this->degree(), degree));
    if (degree == this->degree())
        return *this;
    try {
        return OdGeNurbCurve3d(elevate(odgeNurbClamped(m_definition), degree));
    } catch (Standard_Failure const&) {
        throw OdError(eDegenerateGeometry, odFormat(L"the curve cannot get the degree %d", degree));
    }
}
