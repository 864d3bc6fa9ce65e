#include "host/geom/curves/od_ge_nurb_curve3d.h"
#include "host/root/od_error.h"

#include <algorithm>
#include <cmath>

// Cubic splines through points, by their slopes: continuous curvature is a system of equations with three
// diagonals. The control points follow from the polar forms of the cubic pieces.

namespace {

using Definition = OdGeNurbCurve3d::Definition;

// Points with their parameters; a closed path ends with its first point.
struct Path
{
    std::vector<OdGePoint3d> points;
    std::vector<double> params;
    bool isClosed = false;
    OdGeVector3d startTangent; ///< unit vectors, zero where the end is natural
    OdGeVector3d endTangent;

    std::size_t spans() const { return points.size() - 1; }
    double width(std::size_t span) const { return params[span + 1] - params[span]; }
    OdGeVector3d chord(std::size_t span) const { return (points[span + 1] - points[span]) / width(span); }
};

// One equation: before * slope of the point before + own * own slope + after * slope of the point after = right.
struct Equation
{
    double before = 0;
    double own = 0;
    double after = 0;
    OdGeVector3d right;
};

// Gauss's elimination; the equations have dominant diagonals.
std::vector<OdGeVector3d> solve(std::vector<Equation> equations)
{
    for (std::size_t i = 1; i < equations.size(); ++i) {
        double const factor = equations[i].before / equations[i - 1].own;
        equations[i].own -= factor * equations[i - 1].after;
        equations[i].right -= equations[i - 1].right * factor;
    }
    std::vector<OdGeVector3d> values(equations.size());
    for (std::size_t i = equations.size(); i-- > 0;) {
        OdGeVector3d const known = i + 1 < values.size() ? values[i + 1] * equations[i].after : OdGeVector3d{};
        values[i] = (equations[i].right - known) / equations[i].own;
    }
    return values;
}

// Of the point between two spans: equal second derivatives on both sides.
Equation smoothEquation(Path const& path, std::size_t left, std::size_t right)
{
    double const a = 1 / path.width(left);
    double const b = 1 / path.width(right);
    return {a, 2 * (a + b), b, (path.chord(left) * a + path.chord(right) * b) * 3};
}

std::vector<OdGeVector3d> openSlopes(Path const& path)
{
    std::size_t const last = path.spans();
    std::vector<Equation> equations(last + 1);
    for (std::size_t i = 1; i < last; ++i)
        equations[i] = smoothEquation(path, i - 1, i);
    auto const endEquation = [](OdGeVector3d const& tangent, OdGeVector3d const& chord) {
        if (tangent.lengthSqrd() == 0)
            return Equation{1, 2, 1, chord * 3};
        return Equation{0, 1, 0, tangent};
    };
    equations.front() = endEquation(path.startTangent, path.chord(0));
    equations.back() = endEquation(path.endTangent, path.chord(last - 1));
    return solve(std::move(equations));
}

// The two corners that close the system are split off as a matrix of rank one (Sherman and Morrison).
std::vector<OdGeVector3d> closedSlopes(Path const& path)
{
    std::size_t const count = path.spans();
    std::vector<Equation> equations;
    for (std::size_t i = 0; i < count; ++i)
        equations.push_back(smoothEquation(path, (i + count - 1) % count, i));
    double const lower = equations.back().after;
    double const upper = equations.front().before;
    double const pivot = -equations.front().own;
    equations.front().own -= pivot;
    equations.back().own -= lower * upper / pivot;
    std::vector<Equation> corner = equations;
    for (Equation& equation : corner)
        equation.right = {};
    corner.front().right.x = pivot;
    corner.back().right.x += lower;

    std::vector<OdGeVector3d> slopes = solve(std::move(equations));
    std::vector<OdGeVector3d> const unit = solve(std::move(corner));
    double const share = upper / pivot;
    OdGeVector3d const factor =
        (slopes.front() + slopes.back() * share) / (1 + unit.front().x + unit.back().x * share);
    for (std::size_t i = 0; i < count; ++i)
        slopes[i] -= factor * unit[i].x;
    slopes.push_back(slopes.front());
    return slopes;
}

// Control point that belongs to the knots of a point and of its neighbours, from the longer piece beside it.
OdGePoint3d controlPoint(Path const& path, std::vector<OdGeVector3d> const& slopes, std::size_t left,
                         std::size_t right)
{
    bool const fromRight = path.width(right) >= path.width(left);
    std::size_t const span = fromRight ? right : left;
    double const width = path.width(span);
    OdGePoint3d const b1 = path.points[span] + slopes[span] * (width / 3);
    OdGePoint3d const b2 = path.points[span + 1] - slopes[span + 1] * (width / 3);
    if (fromRight)
        return b1 + (b1 - b2) * (path.width(left) / width);
    return b2 + (b2 - b1) * (path.width(right) / width);
}

Definition openSpline(Path const& path)
{
    std::vector<OdGeVector3d> const slopes = openSlopes(path);
    std::size_t const last = path.spans();
    Definition spline;
    spline.degree = 3;
    spline.controlPoints = {path.points.front(), path.points.front() + slopes.front() * (path.width(0) / 3)};
    for (std::size_t i = 1; i < last; ++i)
        spline.controlPoints.push_back(controlPoint(path, slopes, i - 1, i));
    spline.controlPoints.push_back(path.points.back() - slopes.back() * (path.width(last - 1) / 3));
    spline.controlPoints.push_back(path.points.back());
    std::vector<double> knots(3, path.params.front());
    knots.insert(knots.end(), path.params.begin(), path.params.end());
    knots.insert(knots.end(), 3, path.params.back());
    spline.knots = OdGeKnotVector(std::move(knots));
    return spline;
}

Definition closedSpline(Path const& path)
{
    std::vector<OdGeVector3d> const slopes = closedSlopes(path);
    std::size_t const count = path.spans();
    double const period = path.params.back() - path.params.front();
    Definition spline;
    spline.degree = 3;
    spline.isPeriodic = true;
    // The first control point belongs to the knot before the first point.
    for (std::size_t i = 0; i < count + 3; ++i)
        spline.controlPoints.push_back(
            controlPoint(path, slopes, (i + 2 * count - 2) % count, (i + 2 * count - 1) % count));
    std::vector<double> knots;
    for (std::size_t i = 0; i < count + 7; ++i) {
        std::size_t const shifted = i + 3 * count - 3;
        knots.push_back(path.params[shifted % count] + period * (static_cast<double>(shifted / count) - 3));
    }
    spline.knots = OdGeKnotVector(std::move(knots));
    return spline;
}

// Distance up to which points count as equal: what rounding makes of equal ones.
double leastDistance(std::span<OdGePoint3d const> points)
{
    OdGeExtents3d box;
    for (OdGePoint3d const& point : points)
        box.addPoint(point);
    double const farthest = std::max(box.minPoint().asVector().length(), box.maxPoint().asVector().length());
    return points.empty() ? 0 : 1e-12 * box.minPoint().distanceTo(box.maxPoint()) + 1e-15 * farthest;
}

Path pathThrough(std::span<OdGePoint3d const> points, bool isClosed)
{
    double const least = leastDistance(points);
    Path path;
    path.isClosed = isClosed;
    for (OdGePoint3d const& point : points)
        if (path.points.empty() || !(path.points.back().distanceTo(point) <= least))
            path.points.push_back(point);
    if (isClosed && path.points.size() > 1) {
        if (path.points.front().distanceTo(path.points.back()) <= least)
            path.points.pop_back();
        path.points.push_back(path.points.front());
    }
    double param = 0;
    for (std::size_t i = 0; i < path.points.size(); ++i) {
        if (i > 0)
            param += path.points[i].distanceTo(path.points[i - 1]);
        path.params.push_back(param);
    }
    if (path.points.size() < (isClosed ? 3U : 2U) || !std::isfinite(param))
        throw OdError(eInvalidInput, L"a spline needs two different points with coordinates that are numbers");
    return path;
}

OdGeVector3d unit(OdGeVector3d const& v)
{
    double const length = v.length();
    return length > 0 ? v / length : v;
}

OdGeNurbCurve3d splineThrough(Path const& path)
{
    return OdGeNurbCurve3d(path.isClosed ? closedSpline(path) : openSpline(path));
}

// Of the points between two that are kept, the one that the curve misses most; `to` when it misses none.
std::size_t worstMiss(Path const& path, OdGeNurbCurve3d const& curve, std::size_t from, std::size_t to,
                      double tolerance)
{
    double most = tolerance;
    std::size_t worst = to;
    for (std::size_t i = from + 1; i < to; ++i) {
        double const miss = curve.evalPoint(path.params[i]).distanceTo(path.points[i]);
        if (miss > most) {
            most = miss;
            worst = i;
        }
    }
    return worst;
}

// Begins with few of the points and takes in, between any two, the one that is missed most.
OdGeNurbCurve3d fittedSpline(Path const& path, double tolerance)
{
    std::vector<std::size_t> kept = {0, path.spans()};
    if (path.isClosed && path.spans() > 3)
        kept = {0, path.spans() / 3, 2 * path.spans() / 3, path.spans()};
    while (true) {
        Path part = path;
        part.points.clear();
        part.params.clear();
        for (std::size_t const i : kept) {
            part.points.push_back(path.points[i]);
            part.params.push_back(path.params[i]);
        }
        OdGeNurbCurve3d curve = splineThrough(part);
        std::vector<std::size_t> more = {0};
        for (std::size_t i = 1; i < kept.size(); ++i) {
            std::size_t const worst = worstMiss(path, curve, kept[i - 1], kept[i], tolerance);
            if (worst != kept[i])
                more.push_back(worst);
            more.push_back(kept[i]);
        }
        if (more.size() == kept.size())
            return curve;
        kept = std::move(more);
    }
}

} // namespace

OdGeNurbCurve3d OdGeNurbCurve3d::interpolate(std::span<OdGePoint3d const> points, OdGeVector3d const& startTangent,
                                             OdGeVector3d const& endTangent, bool isClosed, double fitTolerance)
{
    Path path = pathThrough(points, isClosed);
    path.startTangent = unit(startTangent);
    path.endTangent = unit(endTangent);
    return fitTolerance > 0 ? fittedSpline(path, fitTolerance) : splineThrough(path);
}
