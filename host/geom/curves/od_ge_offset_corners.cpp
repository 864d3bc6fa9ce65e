#include "host/geom/curves/od_ge_offset_corners.h"

#include "host/geom/curves/od_ge_circ_arc3d.h"
#include "host/geom/curves/od_ge_intersect.h"
#include "host/geom/curves/od_ge_linear3d.h"

#include <algorithm>
#include <cmath>

namespace {

// The whole line or circle on which a piece lies.
std::unique_ptr<OdGeCurve3d> endless(OdGeCurve3d const& piece)
{
    if (!odgeIsArc(piece))
        return std::make_unique<OdGeLine3d>(odgeStartOf(piece), odgeEndOf(piece) - odgeStartOf(piece));
    auto const& arc = static_cast<OdGeCircArc3d const&>(piece);
    return std::make_unique<OdGeCircArc3d>(arc.center(), arc.normal(), arc.refVec(), arc.radius());
}

// By how much the parameter of a piece must go on over its end (or back over its start) to reach a point of its
// line or circle; infinite where that is not possible.
double paramsTo(OdGeCurve3d const& piece, OdGePoint3d const& point, bool atEnd)
{
    double const never = std::numeric_limits<double>::infinity();
    OdGeInterval const interval = piece.getInterval();
    if (!odgeIsArc(piece)) {
        OdGeVector3d const way = odgeEndOf(piece) - odgeStartOf(piece);
        OdGeVector3d const beyond = atEnd ? point - odgeEndOf(piece) : odgeStartOf(piece) - point;
        double const params = beyond.dotProduct(way) / way.lengthSqrd();
        return params >= 0 ? params : never;
    }
    auto const& arc = static_cast<OdGeCircArc3d const&>(piece);
    double const angle = arc.refVec().angleTo(point - arc.center(), arc.normal());
    double const turn = odgeFoldAngle(atEnd ? angle - interval.upper : interval.lower - angle);
    return turn + interval.length() < Oda2PI ? turn : never;
}

double speedOf(OdGeCurve3d const& piece)
{
    return piece.derivative(piece.getInterval().lower).length();
}

std::unique_ptr<OdGeCurve3d> extensionOf(OdGeCurve3d const& piece, double params, bool atEnd)
{
    OdGeInterval const interval = piece.getInterval();
    double const from = atEnd ? interval.upper : interval.lower - params;
    if (!odgeIsArc(piece))
        return std::make_unique<OdGeLineSeg3d>(piece.evalPoint(from), piece.evalPoint(from + params));
    auto const& arc = static_cast<OdGeCircArc3d const&>(piece);
    return std::make_unique<OdGeCircArc3d>(arc.center(), arc.normal(), arc.refVec(), arc.radius(), from,
                                           from + params);
}

} // namespace

OdGeCornerSharpener::OdGeCornerSharpener(Pieces const& pieces, std::vector<bool> const& isCorner,
                                         OdGeOffsetTask const& task, std::vector<OdGeOffsetRun>& runs)
    : m_pieces(pieces), m_isCorner(isCorner), m_task(task), m_runs(runs)
{
    std::vector<OdGeExtents3d> boxes;
    for (OdGeOffsetRun const& run : runs)
        for (OdGeOffsetStretch const& stretch : run) {
            m_obstacles.push_back(pieces[stretch.piece]->trimmed(stretch.from, stretch.to));
            boxes.push_back(m_obstacles.back()->extents());
        }
    m_tree = std::make_unique<OdGeBoxTree>(boxes);
}

void OdGeCornerSharpener::run()
{
    for (OdGeOffsetRun& run : m_runs)
        sharpen(run);
}

void OdGeCornerSharpener::sharpen(OdGeOffsetRun& run)
{
    std::size_t const count = run.size();
    std::vector<bool> isGone(count, false);
    for (std::size_t i = 0; i < count; ++i) {
        std::size_t const before = (i + count - 1) % count;
        std::size_t const after = (i + 1) % count;
        if ((i > 0 && after > 0) || m_task.isClosed)
            isGone[i] = isWholeCorner(run, before, i, after) && extend(run[before], run[i], run[after]);
    }
    std::size_t at = 0;
    std::erase_if(run, [&](OdGeOffsetStretch const&) { return isGone[at++]; });
}

// An arc between the two pieces that it connects, each of which reaches it with its end.
bool OdGeCornerSharpener::isWholeCorner(OdGeOffsetRun const& run, std::size_t before, std::size_t corner,
                                        std::size_t after) const
{
    double const near = 64 * m_task.slack;
    OdGeCurve3d const& piece = *m_pieces[run[corner].piece];
    OdGeCurve3d const& first = *m_pieces[run[before].piece];
    OdGeCurve3d const& second = *m_pieces[run[after].piece];
    auto const isAt = [&](OdGePoint3d const& p, OdGePoint3d const& q) { return p.distanceTo(q) <= near; };
    return m_isCorner[run[corner].piece] && isAt(run[corner].start, odgeStartOf(piece)) &&
           isAt(run[corner].end, odgeEndOf(piece)) && isAt(odgeEndOf(first), odgeStartOf(piece)) &&
           isAt(odgeStartOf(second), odgeEndOf(piece));
}

bool OdGeCornerSharpener::extend(OdGeOffsetStretch& before, OdGeOffsetStretch const& corner,
                                 OdGeOffsetStretch& after)
{
    OdGeCurve3d const& first = *m_pieces[before.piece];
    OdGeCurve3d const& second = *m_pieces[after.piece];
    double least = std::numeric_limits<double>::infinity();
    OdGePoint3d meeting;
    for (OdGeIntersection const& hit : odgeIntersect(*endless(first), *endless(second), m_task.slack)) {
        double const way = paramsTo(first, hit.point, true) * speedOf(first) +
                           paramsTo(second, hit.point, false) * speedOf(second);
        if (way < least && !hit.isOverlap) {
            least = way;
            meeting = hit.point;
        }
    }
    if (!std::isfinite(least))
        return false;
    double const paramsFirst = paramsTo(first, meeting, true);
    double const paramsSecond = paramsTo(second, meeting, false);
    Pieces ways;
    ways.push_back(extensionOf(first, paramsFirst, true));
    ways.push_back(extensionOf(second, paramsSecond, false));
    if (!isFree(*ways.front(), corner.start, meeting) || !isFree(*ways.back(), corner.end, meeting))
        return false;
    for (auto& way : ways) {
        m_extensionBoxes.push_back(way->extents());
        m_extensions.push_back(std::move(way));
    }
    before.to = first.getInterval().upper + paramsFirst;
    after.from = second.getInterval().lower - paramsSecond;
    before.end = after.start = meeting;
    return true;
}

// Meets nothing but at its ends.
bool OdGeCornerSharpener::isFree(OdGeCurve3d const& extension, OdGePoint3d const& from,
                                 OdGePoint3d const& to) const
{
    double const near = 64 * m_task.slack + 1e-6 * from.distanceTo(to);
    bool isFree = true;
    auto const check = [&](OdGeCurve3d const& other) {
        for (OdGeIntersection const& hit : odgeIntersect(extension, other, m_task.slack))
            isFree = isFree && (hit.point.distanceTo(from) <= near || hit.point.distanceTo(to) <= near);
    };
    OdGeExtents3d const box = extension.extents();
    m_tree->visit(box, m_task.slack, [&](std::size_t i) {
        if (isFree)
            check(*m_obstacles[i]);
    });
    for (std::size_t i = 0; isFree && i < m_extensions.size(); ++i)
        if (!m_extensionBoxes[i].isDisjoint(box, m_task.slack))
            check(*m_extensions[i]);
    return isFree;
}
