#include "host/db/entities/od_db_spline.h"

#include "host/db/entities/od_db_transform.h"

namespace {

constexpr double kUsualFitTolerance = 1e-10;
constexpr int kFitDegree = 3; // that of interpolated curves, which can be raised

template <class T>
T const& checkedAt(std::vector<T> const& list, int index)
{
    if (index < 0 || index >= static_cast<int>(list.size()))
        throw OdError(eInvalidIndex);
    return list[static_cast<std::size_t>(index)];
}

void checkTolerance(double tolerance)
{
    if (!(tolerance >= 0) || !std::isfinite(tolerance))
        throw OdError(eOutOfRange, odFormat(L"%g is no tolerance", tolerance));
}

/// A unit vector across the direction, as near to `wanted` as can be.
OdGeVector3d directionAcross(OdGeVector3d const& direction, OdGeVector3d const& wanted)
{
    OdGeVector3d const unit = direction.normal();
    OdGeVector3d const across = wanted - unit * wanted.dotProduct(unit);
    return across.isZeroLength() ? unit.perpVector() : odDbCleanDirection(across, wanted);
}

OdGeNurbCurve3d curveThrough(std::span<OdGePoint3d const> points, OdGeVector3d const& startTangent,
                             OdGeVector3d const& endTangent, int degree, double fitTolerance, bool isClosed)
{
    auto curve = OdGeNurbCurve3d::interpolate(points, startTangent, endTangent, isClosed, fitTolerance);
    return degree > kFitDegree && degree <= OdGeNurbCurve3d::kMostDegree ? curve.elevated(degree) : curve;
}

/// The same curve with knots that are clamped at its ends.
OdGeNurbCurve3d clamped(OdGeNurbCurve3d const& curve)
{
    OdGeInterval const whole = curve.getInterval();
    return static_cast<OdGeNurbCurve3d const&>(*curve.trimmed(whole.lower, whole.upper));
}

} // namespace

void OdDbSpline::setFlag(std::int16_t flag, bool on)
{
    m_flags = static_cast<std::int16_t>(on ? m_flags | flag : m_flags & ~flag);
}

bool OdDbSpline::isClosed() const
{
    auto const own = curve();
    return own ? own->isClosed() : hasFlag(kClosedFlag);
}

OdGeVector3d OdDbSpline::planeNormal() const
{
    return isPlanar() ? odDbSaneNormal(m_normal) : OdGeVector3d::kZAxis;
}

OdGePoint3d OdDbSpline::getControlPointAt(int index) const
{
    return checkedAt(m_controlPoints, index);
}

double OdDbSpline::weightAt(int index) const
{
    checkedAt(m_controlPoints, index);
    auto const position = static_cast<std::size_t>(index);
    return position < m_weights.size() ? m_weights[position] : 1.0;
}

int OdDbSpline::repeatOf(int index) const
{
    int const distinct = numControlPoints() - m_degree;
    if (!isPeriodic() || m_degree < 1 || distinct < 1)
        return -1;
    int const other = index >= distinct ? index - distinct : index < m_degree ? index + distinct : -1;
    bool const isSame = other >= 0 && getControlPointAt(other).isEqualTo(getControlPointAt(index));
    return isSame ? other : -1;
}

/// The plane stays unless the point leaves it; a single point cannot bring a spline into one.
void OdDbSpline::putControlPoint(int index, OdGePoint3d const& point)
{
    OdGeVector3d const offset = point - m_controlPoints[static_cast<std::size_t>(index)];
    if (std::abs(offset.dotProduct(m_normal)) > OdGeContext::gTol.equalPoint())
        setFlag(kPlanarFlag, false);
    setFlag(kLinearFlag, false);
    m_controlPoints[static_cast<std::size_t>(index)] = point;
}

void OdDbSpline::setControlPointAt(int index, OdGePoint3d const& point)
{
    checkedAt(m_controlPoints, index);
    assertWriteEnabled();
    int const repeat = repeatOf(index);
    putControlPoint(index, point);
    if (repeat >= 0)
        putControlPoint(repeat, point);
    forgetFitData();
}

void OdDbSpline::getNurbsData(int& degree, bool& rational, bool& closed, bool& periodic,
                              OdGePoint3dArray& controlPoints, OdGeKnotVector& knots, OdGeDoubleArray& weights,
                              double& controlPtTol) const
{
    degree = m_degree;
    rational = isRational();
    closed = hasFlag(kClosedFlag);
    periodic = isPeriodic();
    controlPoints = OdGePoint3dArray(m_controlPoints.begin(), m_controlPoints.end());
    knots = OdGeKnotVector(m_knots, m_knotTolerance);
    weights = OdGeDoubleArray(m_weights.begin(), m_weights.end());
    for (std::size_t i = 0; rational && m_weights.empty() && i < m_controlPoints.size(); ++i)
        weights.append(1.0);
    controlPtTol = m_controlTolerance;
}

void OdDbSpline::setNurbsData(int degree, bool rational, bool closed, bool periodic,
                              OdGePoint3dArray const& controlPoints, OdGeKnotVector const& knots,
                              OdGeDoubleArray const& weights, double controlPtTol)
{
    checkTolerance(controlPtTol);
    Definition definition{degree, periodic, knots, {controlPoints.begin(), controlPoints.end()}, {}};
    if (rational)
        definition.weights.assign(weights.begin(), weights.end());
    if (rational && weights.empty())
        definition.weights.assign(controlPoints.size(), 1.0);
    OdString const problem = definition.problem();
    definition.isPeriodic = periodic && problem.isEmpty();
    OdGeNurbCurve3d const curve(std::move(definition));
    if (periodic && !curve.isPeriodic() && !curve.isClosed())
        throw OdError(eInvalidInput, problem);
    assertWriteEnabled();
    takeDefinition(curve.definition());
    takePlane(curve);
    setFlag(kClosedFlag, closed);
    setFlag(kPeriodicFlag, periodic);
    m_controlTolerance = controlPtTol;
    forgetFitData();
}

void OdDbSpline::setCurve(OdGeNurbCurve3d const& curve)
{
    assertWriteEnabled();
    takeDefinition(curve.definition());
    takePlane(curve);
    setFlag(kClosedFlag, curve.isClosed());
    forgetFitData();
}

void OdDbSpline::takeDefinition(Definition const& definition)
{
    m_degree = static_cast<std::int16_t>(definition.degree);
    setFlag(kPeriodicFlag, definition.isPeriodic);
    setFlag(kRationalFlag, definition.isRational());
    m_knots = definition.knots.asVector();
    m_knotTolerance = definition.knots.tolerance();
    m_weights = definition.weights;
    m_controlPoints = definition.controlPoints;
}

void OdDbSpline::takePlane(OdGeNurbCurve3d const& curve)
{
    OdGeVector3d const before = odDbSaneNormal(m_normal);
    bool const isLinear = curve.isLinear(OdGeContext::gTol);
    auto const plane = isLinear ? std::nullopt : curve.plane(OdGeContext::gTol);
    setFlag(kLinearFlag, isLinear);
    setFlag(kPlanarFlag, isLinear || plane);
    m_normal = OdGeVector3d::kZAxis;
    if (plane) {
        OdGeVector3d const normal = plane->normal();
        m_normal = odDbCleanDirection(normal.dotProduct(before) < 0 ? -normal : normal, before);
    } else if (isLinear) {
        OdGeInterval const range = curve.getInterval();
        OdGeVector3d const direction = curve.evalPoint(range.upper) - curve.evalPoint(range.lower);
        m_normal = direction.isZeroLength() ? before : directionAcross(direction, before);
    }
}

OdResult OdDbSpline::getFitPointAt(int index, OdGePoint3d& point) const
{
    if (!hasFitData())
        return eNotApplicable;
    if (index < 0 || index >= numFitPoints())
        return eInvalidIndex;
    point = m_fitPoints[static_cast<std::size_t>(index)];
    return eOk;
}

OdResult OdDbSpline::getFitTangents(OdGeVector3d& startTangent, OdGeVector3d& endTangent) const
{
    if (!hasFitData())
        return eNotApplicable;
    startTangent = m_startTangent;
    endTangent = m_endTangent;
    return eOk;
}

void OdDbSpline::setFitData(OdGePoint3dArray const& points, OdGeVector3d const& startTangent,
                            OdGeVector3d const& endTangent, int degree, double fitTolerance, bool isClosed)
{
    if (degree < kFitDegree || degree > OdGeNurbCurve3d::kMostDegree)
        throw OdError(eOutOfRange, odFormat(L"A spline through points cannot have the degree %d", degree));
    checkTolerance(fitTolerance);
    std::vector<OdGePoint3d> list(points.begin(), points.end());
    OdGeNurbCurve3d const curve = curveThrough(list, startTangent, endTangent, degree, fitTolerance, isClosed);
    assertWriteEnabled();
    // Programs write closed curves through points so: called periodic, with the knots of an open curve.
    takeDefinition(curve.isPeriodic() ? clamped(curve).definition() : curve.definition());
    takePlane(curve);
    setFlag(kClosedFlag, isClosed);
    setFlag(kPeriodicFlag, curve.isPeriodic());
    m_fitPoints = std::move(list);
    m_startTangent = startTangent;
    m_endTangent = endTangent;
    m_fitTolerance = fitTolerance;
}

void OdDbSpline::purgeFitData()
{
    assertWriteEnabled();
    if (auto const fitted = m_controlPoints.empty() ? curveThroughFitPoints() : std::nullopt) {
        takeDefinition(fitted->definition());
        takePlane(*fitted);
    }
    forgetFitData();
}

void OdDbSpline::forgetFitData()
{
    m_fitPoints = {};
    m_startTangent = m_endTangent = {};
    m_fitTolerance = kUsualFitTolerance;
}

OdDbSpline::Definition OdDbSpline::definition() const
{
    return {m_degree, isPeriodic(), OdGeKnotVector(m_knots, m_knotTolerance), m_controlPoints, m_weights};
}

OdDbSpline::Definition OdDbSpline::usableDefinition() const
{
    Definition own = definition();
    own.isPeriodic = own.isPeriodic && own.problem().isEmpty();
    return own;
}

std::optional<OdGeNurbCurve3d> OdDbSpline::curveThroughFitPoints() const
{
    bool const hasTwo = std::ranges::any_of(
        m_fitPoints, [this](OdGePoint3d const& point) { return !point.isEqualTo(m_fitPoints.front()); });
    if (!hasTwo)
        return std::nullopt;
    try {
        return curveThrough(m_fitPoints, m_startTangent, m_endTangent, m_degree, m_fitTolerance,
                            hasFlag(kClosedFlag));
    } catch (OdError const&) {
        return std::nullopt; // of numbers beyond all measure no curve can be made
    }
}

std::optional<OdGeNurbCurve3d> OdDbSpline::curve() const
{
    if (m_controlPoints.empty())
        return curveThroughFitPoints();
    Definition own = usableDefinition();
    if (!own.problem().isEmpty())
        return std::nullopt;
    return OdGeNurbCurve3d(std::move(own));
}

std::unique_ptr<OdGeCurve3d> OdDbSpline::getOdGeCurve() const
{
    auto own = curve();
    return own ? std::make_unique<OdGeNurbCurve3d>(*std::move(own)) : nullptr;
}
