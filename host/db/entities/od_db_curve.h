#pragma once

#include "host/db/od_db_entity.h"
#include "host/geom/curves/od_ge_curve3d.h"

/// Base of entities that are a curve: lines, arcs, polylines, splines. Parameters are those of the curve that
/// getOdGeCurve() gives; where they are angles, whole turns more or less mean the same place. Results are in world
/// coordinates. What fails gives an error and changes nothing.
class OdDbCurve : public OdDbEntity
{
    OD_DECLARE_CLASS(OdDbCurve)
public:
    /// The curve itself; null where the data of a damaged entity make none.
    virtual std::unique_ptr<OdGeCurve3d> getOdGeCurve() const = 0;
    /// Ends where it starts.
    virtual bool isClosed() const;

    /// eDegenerateGeometry where there is no curve, eNotApplicable where the curve has no such end.
    OdResult getStartPoint(OdGePoint3d& point) const;
    OdResult getEndPoint(OdGePoint3d& point) const;
    OdResult getStartParam(double& param) const;
    OdResult getEndParam(double& param) const;
    /// eOutOfRange for parameters and distances outside the curve; so below.
    OdResult getPointAtParam(double param, OdGePoint3d& point) const;
    OdResult getFirstDeriv(double param, OdGeVector3d& derivative) const;
    /// Distances are along the curve from its start; eNotApplicable for a construction line.
    OdResult getDistAtParam(double param, double& distance) const;
    OdResult getParamAtDist(double distance, double& param) const;
    OdResult getPointAtDist(double distance, OdGePoint3d& point) const;
    /// eInvalidInput for a point that is not on the curve under the global tolerance.
    OdResult getParamAtPoint(OdGePoint3d const& point, double& param) const;
    /// With `extend` also where an arc, a line or a ray would go on.
    OdResult getClosestPointTo(OdGePoint3d const& point, OdGePoint3d& closest, bool extend = false) const;
    /// eNotApplicable for endless curves.
    OdResult getLength(double& length) const;
    /// Area that the curve encloses, an open one closed by a straight line; 0 for straight ones. eNotApplicable
    /// for endless curves and curves out of a plane.
    OdResult getArea(double& area) const;

    /// The curves at this distance in the plane of the entity, positive to the right of the direction seen against
    /// the normal (a circle grows), with the properties of this one, in no drawing. None where nothing remains.
    /// eNotApplicable for curves out of a plane.
    virtual OdResult getOffsetCurves(double distance, std::vector<OdDbEntityPtr>& curves) const;
    /// The pieces between parameters, in ascending order within the curve (eInvalidInput otherwise), with the
    /// properties of this one, in no drawing; at an end there is nothing to split. A closed curve gives as many
    /// pieces as there are parameters, the last going over the start.
    virtual OdResult getSplitCurves(std::span<double const> params, std::vector<OdDbEntityPtr>& curves) const;
    /// Runs the other way; eNotApplicable for what has its direction from its class: rays, circles, arcs.
    /// Polylines begin at what was their last vertex then, closed ones too.
    virtual OdResult reverseCurve();
    /// Normal of the plane in which the entity was drawn; (0, 0, 1) where it has none.
    virtual OdGeVector3d planeNormal() const { return {0, 0, 1}; }

protected:
    OdDbCurve() = default;
    /// The piece from one parameter to another as an entity, without properties: how getSplitCurves() makes its
    /// pieces. `curve` is that of getOdGeCurve().
    virtual OdDbEntityPtr pieceOf(OdGeCurve3d const& curve, double from, double to) const;
    /// An offset curve as an entity, without properties.
    virtual OdDbEntityPtr offsetEntity(OdGeCurve3d const& curve) const;
    /// Signed length of an extrusion along planeNormal(), for the pieces to have it too.
    virtual double curveThickness() const { return 0; }

private:
    template <class Use>
    OdResult withCurve(Use const& use) const;
    template <class Use>
    OdResult withParam(double param, Use const& use) const;
    void takeOver(OdDbEntityPtr const& made, std::vector<OdDbEntityPtr>& curves) const;
};
using OdDbCurvePtr = OdSmartPtr<OdDbCurve>;

/// The entity of a curve, without properties, in no drawing: line, ray, construction line, circle, arc, ellipse,
/// spline, lightweight polyline or, for chains out of a plane parallel to that of the normal, a 3D polyline. Flat
/// ones get the normal where they lie in its plane; arcs may get the opposite one, to run the same way
/// counterclockwise. `thickness` is the extrusion along the normal and goes to those that have one.
OdDbEntityPtr odDbEntityOf(OdGeCurve3d const& curve, OdGeVector3d const& normal, double thickness = 0);
