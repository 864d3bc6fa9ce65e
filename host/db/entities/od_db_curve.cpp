#include "host/db/entities/od_db_curve.h"

#include "host/geom/curves/od_ge_circ_arc3d.h"
#include "host/geom/curves/od_ge_ellip_arc3d.h"
#include "host/geom/curves/od_ge_linear3d.h"
#include "host/geom/curves/od_ge_offset.h"

OD_DEFINE_ABSTRACT_CLASS(OdDbCurve, OdDbEntity)

namespace {

/// The parameter as one within the range of the curve; nothing when it is outside.
std::optional<double> paramWithin(OdGeCurve3d const& curve, double param)
{
    using enum OdGeCurve3d::EType;
    if (!std::isfinite(param))
        return std::nullopt;
    OdGeInterval const range = curve.getInterval();
    bool const countsTurns = curve.type() == kCircArc || curve.type() == kEllipArc;
    if (countsTurns && !range.contains(param))
        param = range.lower + odgeFoldAngle(param - range.lower);
    if (!range.contains(param))
        return std::nullopt;
    return range.clamped(param);
}

/// Where the curve would go on beyond its ends; null where it would not.
std::unique_ptr<OdGeCurve3d> extended(OdGeCurve3d const& curve)
{
    using enum OdGeCurve3d::EType;
    switch (curve.type()) {
    case kRay:
    case kLineSeg: {
        auto const& line = static_cast<OdGeLinearEnt3d const&>(curve);
        if (line.direction().isZeroLength())
            return nullptr;
        return std::make_unique<OdGeLine3d>(line.pointOnLine(), line.direction());
    }
    case kCircArc: {
        auto const& arc = static_cast<OdGeCircArc3d const&>(curve);
        return std::make_unique<OdGeCircArc3d>(arc.center(), arc.normal(), arc.refVec(), arc.radius());
    }
    case kEllipArc: {
        auto const& arc = static_cast<OdGeEllipArc3d const&>(curve);
        return std::make_unique<OdGeEllipArc3d>(arc.center(), arc.majorAxis(), arc.minorAxis());
    }
    default: return nullptr;
    }
}

bool isSameParam(double a, double b)
{
    return OdEqual(a, b, OdGeContext::gTol.equalVector());
}

/// The parameters at which a curve is to be cut, within its range and in ascending order. eOutOfRange,
/// eInvalidInput.
OdResult findCuts(OdGeCurve3d const& curve, bool isClosed, std::span<double const> params,
                  std::vector<double>& cuts)
{
    OdGeInterval const range = curve.getInterval();
    bool isCutAtSeam = false;
    for (double const param : params) {
        std::optional<double> const cut = paramWithin(curve, param);
        if (!cut)
            return eOutOfRange;
        if (isSameParam(*cut, range.lower) || isSameParam(*cut, range.upper))
            isCutAtSeam = true;
        else if (!cuts.empty() && *cut <= cuts.back())
            return eInvalidInput;
        else
            cuts.push_back(*cut);
    }
    if (isClosed && isCutAtSeam)
        cuts.insert(cuts.begin(), range.lower);
    return isClosed && cuts.empty() ? eInvalidInput : eOk;
}

/// The normal against which a curve is offset: that of its own plane, on the side of the entity's normal. A
/// straight one has the plane in which it goes on level. Nothing for curves out of a plane.
std::optional<OdGeVector3d> offsetNormal(OdGeCurve3d const& curve, OdGeVector3d const& entityNormal)
{
    if (curve.isLinear()) {
        OdGeInterval const range = curve.getInterval();
        OdGeVector3d const along = curve.derivative(range.isBounded() ? range.lower : 0).normal();
        return entityNormal - along * entityNormal.dotProduct(along);
    }
    std::optional<OdGePlane> const plane = curve.plane();
    if (!plane)
        return std::nullopt;
    OdGeVector3d const normal = plane->normal();
    if (normal.isParallelTo(entityNormal))
        return entityNormal;
    return normal.dotProduct(entityNormal) < 0 ? -normal : normal;
}

} // namespace

template <class Use>
OdResult OdDbCurve::withCurve(Use const& use) const
{
    std::unique_ptr<OdGeCurve3d> const curve = getOdGeCurve();
    if (!curve)
        return eDegenerateGeometry;
    try {
        return use(*curve);
    } catch (OdError const& error) {
        return error.code();
    }
}

template <class Use>
OdResult OdDbCurve::withParam(double param, Use const& use) const
{
    return withCurve([&](OdGeCurve3d const& curve) {
        std::optional<double> const within = paramWithin(curve, param);
        if (!within)
            return eOutOfRange;
        return use(curve, *within);
    });
}

bool OdDbCurve::isClosed() const
{
    std::unique_ptr<OdGeCurve3d> const curve = getOdGeCurve();
    return curve && curve->isClosed();
}

OdResult OdDbCurve::getStartPoint(OdGePoint3d& point) const
{
    return withCurve([&](OdGeCurve3d const& curve) { return curve.hasStartPoint(point) ? eOk : eNotApplicable; });
}

OdResult OdDbCurve::getEndPoint(OdGePoint3d& point) const
{
    return withCurve([&](OdGeCurve3d const& curve) { return curve.hasEndPoint(point) ? eOk : eNotApplicable; });
}

OdResult OdDbCurve::getStartParam(double& param) const
{
    return withCurve([&](OdGeCurve3d const& curve) {
        OdGeInterval const range = curve.getInterval();
        if (!range.isBoundedBelow())
            return eNotApplicable;
        param = range.lower;
        return eOk;
    });
}

OdResult OdDbCurve::getEndParam(double& param) const
{
    return withCurve([&](OdGeCurve3d const& curve) {
        OdGeInterval const range = curve.getInterval();
        if (!range.isBoundedAbove())
            return eNotApplicable;
        param = range.upper;
        return eOk;
    });
}

OdResult OdDbCurve::getPointAtParam(double param, OdGePoint3d& point) const
{
    return withParam(param, [&](OdGeCurve3d const& curve, double within) {
        point = curve.evalPoint(within);
        return eOk;
    });
}

OdResult OdDbCurve::getFirstDeriv(double param, OdGeVector3d& derivative) const
{
    return withParam(param, [&](OdGeCurve3d const& curve, double within) {
        derivative = curve.derivative(within);
        return eOk;
    });
}

OdResult OdDbCurve::getDistAtParam(double param, double& distance) const
{
    return withParam(param, [&](OdGeCurve3d const& curve, double within) {
        OdGeInterval const range = curve.getInterval();
        if (!range.isBoundedBelow())
            return eNotApplicable;
        distance = curve.length(range.lower, within);
        return eOk;
    });
}

OdResult OdDbCurve::getParamAtDist(double distance, double& param) const
{
    return withCurve([&](OdGeCurve3d const& curve) {
        OdGeInterval const range = curve.getInterval();
        if (!range.isBoundedBelow())
            return eNotApplicable;
        double const length = curve.length();
        double const tol = OdGeContext::gTol.equalPoint();
        if (!(distance >= -tol && distance <= length + tol) || !std::isfinite(distance))
            return eOutOfRange;
        param = curve.paramAtLength(range.lower, std::clamp(distance, 0.0, length));
        return eOk;
    });
}

OdResult OdDbCurve::getPointAtDist(double distance, OdGePoint3d& point) const
{
    double param = 0;
    OdResult const result = getParamAtDist(distance, param);
    return result == eOk ? getPointAtParam(param, point) : result;
}

OdResult OdDbCurve::getParamAtPoint(OdGePoint3d const& point, double& param) const
{
    return withCurve([&](OdGeCurve3d const& curve) {
        double found = 0;
        if (!curve.isOn(point, &found))
            return eInvalidInput;
        param = found;
        return eOk;
    });
}

OdResult OdDbCurve::getClosestPointTo(OdGePoint3d const& point, OdGePoint3d& closest, bool extend) const
{
    return withCurve([&](OdGeCurve3d const& curve) {
        std::unique_ptr<OdGeCurve3d> const whole = extend ? extended(curve) : nullptr;
        closest = (whole ? *whole : curve).closestPointTo(point);
        return eOk;
    });
}

OdResult OdDbCurve::getLength(double& length) const
{
    return withCurve([&](OdGeCurve3d const& curve) {
        if (!curve.getInterval().isBounded())
            return eNotApplicable;
        length = curve.length();
        return eOk;
    });
}

OdResult OdDbCurve::getArea(double& area) const
{
    return withCurve([&](OdGeCurve3d const& curve) {
        if (!curve.getInterval().isBounded())
            return eNotApplicable;
        std::optional<OdGePlane> const plane = curve.plane();
        if (!plane && !curve.isLinear())
            return eNotApplicable;
        area = plane ? std::abs(curve.signedArea(plane->normal())) : 0;
        return eOk;
    });
}

void OdDbCurve::takeOver(OdDbEntityPtr const& made, std::vector<OdDbEntityPtr>& curves) const
{
    made->setPropertiesFrom(*this);
    curves.push_back(made);
}

OdResult OdDbCurve::getOffsetCurves(double distance, std::vector<OdDbEntityPtr>& curves) const
{
    return withCurve([&](OdGeCurve3d const& curve) {
        std::optional<OdGeVector3d> const normal = offsetNormal(curve, planeNormal());
        if (!normal)
            return eNotApplicable;
        std::vector<OdDbEntityPtr> made;
        for (std::unique_ptr<OdGeCurve3d> const& each : odgeOffset(curve, *normal, distance))
            takeOver(offsetEntity(*each), made);
        curves.insert(curves.end(), made.begin(), made.end());
        return eOk;
    });
}

OdResult OdDbCurve::getSplitCurves(std::span<double const> params, std::vector<OdDbEntityPtr>& curves) const
{
    return withCurve([&](OdGeCurve3d const& curve) {
        OdGeInterval const range = curve.getInterval();
        bool const goesRound = isClosed();
        std::vector<double> cuts;
        if (OdResult const result = findCuts(curve, goesRound, params, cuts); result != eOk)
            return result;
        if (goesRound) {
            cuts.push_back(cuts.front() + range.length());
        } else {
            cuts.insert(cuts.begin(), range.lower);
            cuts.push_back(range.upper);
        }
        std::vector<OdDbEntityPtr> made;
        for (std::size_t i = 0; i + 1 < cuts.size(); ++i)
            takeOver(pieceOf(curve, cuts[i], cuts[i + 1]), made);
        curves.insert(curves.end(), made.begin(), made.end());
        return eOk;
    });
}

OdResult OdDbCurve::reverseCurve()
{
    return eNotApplicable;
}

OdDbEntityPtr OdDbCurve::pieceOf(OdGeCurve3d const& curve, double from, double to) const
{
    return odDbEntityOf(*curve.trimmed(from, to), planeNormal(), curveThickness());
}

OdDbEntityPtr OdDbCurve::offsetEntity(OdGeCurve3d const& curve) const
{
    return odDbEntityOf(curve, planeNormal(), curveThickness());
}
