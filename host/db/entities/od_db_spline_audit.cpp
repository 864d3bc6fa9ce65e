// What an audit says of a spline: whether its data make a curve, and the nearest data that do.
#include "host/db/audit/od_db_audit_info.h"
#include "host/db/entities/od_db_spline.h"

namespace {

using Definition = OdGeNurbCurve3d::Definition;

void zeroWhatIsNoNumber(std::vector<OdGePoint3d>& points)
{
    for (OdGePoint3d& point : points)
        for (double* const coordinate : {&point.x, &point.y, &point.z})
            if (!std::isfinite(*coordinate))
                *coordinate = 0;
}

bool areUsable(std::vector<double> const& weights, std::size_t count)
{
    return weights.size() == count &&
           std::ranges::all_of(weights, [](double weight) { return weight > 0 && std::isfinite(weight); });
}

bool areAtOnePlace(std::vector<OdGePoint3d> const& points)
{
    return std::ranges::all_of(points, [&](OdGePoint3d const& point) { return point.isEqualTo(points.front()); });
}

/// Keeps of the definition what can be used; there are two control points at least.
Definition mended(Definition definition)
{
    zeroWhatIsNoNumber(definition.controlPoints);
    auto const most = std::min<std::size_t>(definition.controlPoints.size() - 1, OdGeNurbCurve3d::kMostDegree);
    definition.degree = std::clamp(definition.degree, 1, static_cast<int>(most));
    if (definition.isRational() && !areUsable(definition.weights, definition.controlPoints.size()))
        definition.weights.clear();
    if (!definition.problem().isEmpty())
        definition.isPeriodic = false;
    if (!definition.problem().isEmpty())
        definition.knots =
            OdGeNurbCurve3d::ofControlPoints(definition.degree, definition.controlPoints).definition().knots;
    return definition;
}

} // namespace

void OdDbSpline::mend()
{
    assertWriteEnabled();
    bool const isJustPeriod = usableDefinition().problem().isEmpty();
    auto const fitted = isJustPeriod ? std::nullopt : curveThroughFitPoints();
    takeDefinition(fitted ? fitted->definition() : mended(definition()));
}

void OdDbSpline::audit(OdDbAuditInfo& info) const
{
    OdDbCurve::audit(info);
    if (m_controlPoints.size() < 2 && !curveThroughFitPoints()) {
        bool const showsLines = !areAtOnePlace(m_fitPoints);
        return showsLines ? info.report(*this, L"no curve can be made through its fit points")
                          : info.reportUseless(*this, L"its points make no curve");
    }
    OdString const problem = m_controlPoints.empty() ? OdString() : definition().problem();
    bool const isJustPeriod = usableDefinition().problem().isEmpty();
    // Programs call closed curves periodic, too, whose knots are not.
    if (problem.isEmpty() || (isJustPeriod && isClosed()))
        return;
    OdString const remedy = isJustPeriod              ? L"no longer called periodic"
                            : curveThroughFitPoints() ? L"made anew from its fit points"
                                                      : L"made anew from its control points";
    info.report(*this, problem, remedy, [](OdDbObject& object) { static_cast<OdDbSpline&>(object).mend(); });
}
