// The geometry of a spline as an entity: what transformations and stretching make of it, and what is seen of it.
#include "host/db/entities/od_db_plane_transform.h"
#include "host/db/entities/od_db_spline.h"
#include "host/db/entities/od_db_stretch.h"
#include "host/db/entities/od_db_transform.h"
#include "host/db/od_db_property_sink.h"

namespace {

bool areFinite(std::vector<OdGePoint3d> const& points)
{
    return std::ranges::all_of(
        points, [](OdGePoint3d const& point) { return std::isfinite(point.x + point.y + point.z); });
}

std::vector<OdGePoint3d> imagesOf(std::vector<OdGePoint3d> const& points, OdGeMatrix3d const& transformation)
{
    std::vector<OdGePoint3d> images;
    images.reserve(points.size());
    for (OdGePoint3d const& point : points)
        images.push_back(transformation * point);
    return images;
}

void givePath(std::vector<OdGePoint3d> const& points, bool isClosed, OdDbOutlineSink& sink)
{
    constexpr std::size_t kBetweenQuestions = 64;
    if (points.size() == 1)
        sink.point(points.front());
    for (std::size_t i = 1; i < points.size(); ++i) {
        if (i % kBetweenQuestions == 0 && sink.isSatisfied())
            return;
        sink.segment(points[i - 1], points[i]);
    }
    if (isClosed && points.size() > 2)
        sink.segment(points.back(), points.front());
}

} // namespace

OdResult OdDbSpline::transformBy(OdGeMatrix3d const& transformation)
{
    auto const plane = OdDbPlaneTransform::make(transformation, m_normal);
    if (isPlanar() && !plane)
        return eDegenerateGeometry;
    std::vector<OdGePoint3d> controlPoints = imagesOf(m_controlPoints, transformation);
    std::vector<OdGePoint3d> fitPoints = imagesOf(m_fitPoints, transformation);
    if (!areFinite(controlPoints) || !areFinite(fitPoints))
        return eDegenerateGeometry;
    assertWriteEnabled();
    m_controlPoints = std::move(controlPoints);
    m_fitPoints = std::move(fitPoints);
    m_startTangent = transformation * m_startTangent;
    m_endTangent = transformation * m_endTangent;
    if (hasFitData())
        m_fitTolerance *= odDbCleanFactor(transformation.scale());
    if (isPlanar())
        m_normal = plane->normal();
    return eOk;
}

OdResult OdDbSpline::reverseCurve()
{
    auto reversed = curve();
    if (!reversed)
        return eDegenerateGeometry;
    assertWriteEnabled();
    if (!m_controlPoints.empty()) {
        reversed->reverseParam();
        bool const wasPeriodic = isPeriodic();
        takeDefinition(reversed->definition());
        setFlag(kPeriodicFlag, wasPeriodic);
    }
    std::ranges::reverse(m_fitPoints);
    OdGeVector3d const startTangent = m_startTangent;
    m_startTangent = -m_endTangent;
    m_endTangent = -startTangent;
    return eOk;
}

void OdDbSpline::outline(OdDbOutlineSink& sink) const
{
    if (auto const own = curve())
        sink.spline(*own);
    else
        givePath(m_controlPoints.empty() ? m_fitPoints : m_controlPoints, hasFlag(kClosedFlag), sink);
}

std::size_t OdDbSpline::numStretchPoints() const
{
    if (hasFitData())
        return m_fitPoints.size();
    // The last control points of a periodic spline are the first ones again.
    int count = numControlPoints();
    while (count > numControlPoints() - m_degree && repeatOf(count - 1) >= 0)
        --count;
    return static_cast<std::size_t>(count);
}

void OdDbSpline::getStretchPoints(std::vector<OdGePoint3d>& points) const
{
    auto const& own = hasFitData() ? m_fitPoints : m_controlPoints;
    points.insert(points.end(), own.begin(), own.begin() + static_cast<std::ptrdiff_t>(numStretchPoints()));
}

OdResult OdDbSpline::moveStretchPointsAt(std::span<int const> indices, OdGeVector3d const& offset)
{
    auto const isCaught = odDbCaughtPoints(indices, numStretchPoints());
    if (!isCaught)
        return eInvalidIndex;
    auto const numCaught = std::ranges::count(*isCaught, true);
    if (numCaught == 0)
        return eOk;
    if (numCaught == std::ssize(*isCaught))
        return transformBy(OdGeMatrix3d::translation(offset)); // the curve itself goes along unchanged
    if (hasFitData())
        return moveFitPoints(*isCaught, offset);
    assertWriteEnabled();
    for (int i = 0; i < static_cast<int>(isCaught->size()); ++i) {
        if (!(*isCaught)[static_cast<std::size_t>(i)])
            continue;
        OdGePoint3d const moved = getControlPointAt(i) + offset;
        int const repeat = repeatOf(i);
        putControlPoint(i, moved);
        if (repeat >= 0)
            putControlPoint(repeat, moved);
    }
    return eOk;
}

OdResult OdDbSpline::moveFitPoints(std::vector<bool> const& isCaught, OdGeVector3d const& offset)
{
    OdDbSplinePtr const moved(static_cast<OdDbSpline*>(copyFields()));
    for (std::size_t i = 0; i < isCaught.size(); ++i)
        if (isCaught[i])
            moved->m_fitPoints[i] += offset;
    auto const fitted = moved->curveThroughFitPoints();
    if (!fitted)
        return eDegenerateGeometry;
    assertWriteEnabled();
    m_fitPoints = std::move(moved->m_fitPoints);
    takeDefinition(fitted->definition());
    takePlane(*fitted);
    return eOk;
}

void OdDbSpline::listProperties(OdDbPropertySink& sink) const
{
    sink.count(L"degree", m_degree);
    sink.flag(L"closed", isClosed());
    sink.flag(L"periodic", isPeriodic());
    sink.flag(L"rational", isRational());
    sink.flag(L"planar", isPlanar());
    if (isPlanar())
        sink.vector(L"normal", planeNormal());
    if (double length = 0; getLength(length) == eOk)
        sink.distance(L"length", length);
    if (hasFitData()) {
        sink.distance(L"fit tolerance", m_fitTolerance);
        sink.vector(L"start tangent", m_startTangent);
        sink.vector(L"end tangent", m_endTangent);
    }
    for (int i = 0; i < numFitPoints(); ++i) {
        sink.part(L"fit point", i + 1);
        sink.point(L"position", m_fitPoints[static_cast<std::size_t>(i)]);
    }
    for (int i = 0; i < numControlPoints(); ++i) {
        sink.part(L"control point", i + 1);
        sink.point(L"position", getControlPointAt(i));
        if (isRational())
            sink.number(L"weight", weightAt(i));
    }
    for (std::size_t i = 0; i < m_knots.size(); ++i) {
        sink.part(L"knot", static_cast<int>(i) + 1);
        sink.number(L"parameter", m_knots[i]);
    }
}
