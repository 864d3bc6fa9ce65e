#include "host/geom/curves/od_ge_offset_outline.h"

#include "host/geom/curves/od_ge_box_tree.h"
#include "host/geom/curves/od_ge_circ_arc3d.h"
#include "host/geom/curves/od_ge_intersect.h"

#include <algorithm>
#include <cmath>

// Points of an offset are right when nothing of the original is nearer than the distance. That changes only where
// pieces meet, so that each stretch between two meetings is right or wrong as a whole.

namespace {

using Pieces = std::vector<std::unique_ptr<OdGeCurve3d>>;

// A place on a piece where another one meets it.
struct Cut
{
    double param = 0;
    OdGePoint3d point;
};

class OutlineCutter
{
public:
    OutlineCutter(OdGeOffsetOutline const& outline, OdGeOffsetTask const& task)
        : m_outline(outline),
          m_pieces(outline.pieces),
          m_task(task),
          m_least(std::abs(task.distance) - outline.allowed - 4 * task.slack),
          m_cuts(outline.pieces.size())
    {
    }

    std::vector<OdGeOffsetStretch> stretches()
    {
        findCuts();
        std::vector<OdGeOffsetStretch> kept;
        for (std::size_t i = 0; i < m_pieces.size(); ++i)
            keepRightParts(i, kept);
        return withoutDoubles(std::move(kept));
    }

private:
    // Stretches that lie on each other: of two that run the same way one is enough, and two that run in opposite
    // ways enclose nothing.
    std::vector<OdGeOffsetStretch> withoutDoubles(std::vector<OdGeOffsetStretch> stretches) const
    {
        double const near = 16 * m_task.slack;
        std::vector<OdGeExtents3d> middles;
        for (OdGeOffsetStretch const& stretch : stretches) {
            OdGePoint3d const middle =
                m_pieces[stretch.piece]->evalPoint(stretch.from + (stretch.to - stretch.from) / 2);
            middles.emplace_back(middle, middle);
        }
        OdGeBoxTree const tree(middles);
        std::vector<bool> isDropped(stretches.size(), false);
        for (std::size_t i = 0; i < stretches.size(); ++i)
            tree.visit(middles[i], near, [&](std::size_t j) {
                if (i >= j || isDropped[i] || isDropped[j])
                    return;
                auto const isNear = [&](OdGePoint3d const& p, OdGePoint3d const& q) {
                    return p.distanceTo(q) <= near;
                };
                OdGeOffsetStretch const& a = stretches[i];
                OdGeOffsetStretch const& b = stretches[j];
                bool const opposes = m_task.isClosed && isNear(a.start, b.end) && isNear(a.end, b.start);
                isDropped[j] = opposes || (isNear(a.start, b.start) && isNear(a.end, b.end));
                isDropped[i] = opposes;
            });
        std::size_t at = 0;
        std::erase_if(stretches, [&](OdGeOffsetStretch const&) { return isDropped[at++]; });
        return stretches;
    }

    void findCuts()
    {
        std::vector<OdGeExtents3d> boxes;
        for (Pieces const* pieces : {&m_outline.pieces, &m_outline.others})
            for (auto const& piece : *pieces)
                boxes.push_back(piece->extents());
        OdGeBoxTree const tree(boxes);
        for (std::size_t i = 0; i < m_pieces.size(); ++i)
            tree.visit(boxes[i], m_task.slack, [&](std::size_t j) {
                if (i < j)
                    cutPair(i, j);
            });
    }

    void cutPair(std::size_t i, std::size_t j)
    {
        bool const isPiece = j < m_pieces.size();
        OdGeCurve3d const& other = isPiece ? *m_pieces[j] : *m_outline.others[j - m_pieces.size()];
        for (OdGeIntersection const& hit : odgeIntersect(*m_pieces[i], other, m_task.slack)) {
            m_cuts[i].push_back({hit.paramA, hit.point});
            if (isPiece)
                m_cuts[j].push_back({hit.paramB, hit.point});
        }
    }

    void keepRightParts(std::size_t index, std::vector<OdGeOffsetStretch>& kept)
    {
        OdGeCurve3d const& piece = *m_pieces[index];
        OdGeInterval const interval = piece.getInterval();
        std::vector<Cut>& cuts = m_cuts[index];
        cuts.push_back({interval.lower, piece.evalPoint(interval.lower)});
        cuts.push_back({interval.upper, piece.evalPoint(interval.upper)});
        std::ranges::stable_sort(cuts, {}, &Cut::param);
        for (std::size_t i = 0; i + 1 < cuts.size(); ++i) {
            Cut const& from = cuts[i];
            Cut const& to = cuts[i + 1];
            bool const isShort = from.point.distanceTo(to.point) <= 2 * m_task.slack &&
                                 to.param - from.param < interval.length() / 2;
            if (!isShort && isRight(piece, from.param, to.param))
                kept.push_back({index, from.param, to.param, from.point, to.point});
        }
    }

    bool isRight(OdGeCurve3d const& piece, double from, double to) const
    {
        for (double const share : {0.5, 0.07, 0.93, 0.27, 0.71})
            if (m_outline.distanceTo(piece.evalPoint(from + (to - from) * share)) < m_least)
                return false;
        return true;
    }

    OdGeOffsetOutline const& m_outline;
    Pieces const& m_pieces;
    OdGeOffsetTask const& m_task;
    double m_least;
    std::vector<std::vector<Cut>> m_cuts;
};

// Puts stretches together, each to the one that begins where it ends.
class RunBuilder
{
public:
    RunBuilder(std::vector<OdGeOffsetStretch> stretches, double near)
        : m_stretches(std::move(stretches)),
          m_near(near),
          m_starts(startBoxes()),
          m_next(m_stretches.size(), kNone),
          m_isFollowed(m_stretches.size(), false)
    {
        for (std::size_t i = 0; i < m_stretches.size(); ++i)
            link(i);
    }

    std::vector<OdGeOffsetRun> runs()
    {
        std::vector<OdGeOffsetRun> runs;
        std::vector<bool> isUsed(m_stretches.size(), false);
        for (bool const fromFreeStarts : {true, false})
            for (std::size_t i = 0; i < m_stretches.size(); ++i) {
                if (isUsed[i] || (fromFreeStarts && m_isFollowed[i]))
                    continue;
                OdGeOffsetRun& run = runs.emplace_back();
                for (std::size_t at = i; at != kNone && !isUsed[at]; at = m_next[at]) {
                    isUsed[at] = true;
                    append(run, m_stretches[at]);
                }
                closeSeam(run);
            }
        return runs;
    }

private:
    static constexpr std::size_t kNone = static_cast<std::size_t>(-1);

    std::vector<OdGeExtents3d> startBoxes() const
    {
        std::vector<OdGeExtents3d> boxes;
        for (OdGeOffsetStretch const& stretch : m_stretches)
            boxes.emplace_back(stretch.start, stretch.start);
        return boxes;
    }

    static bool runsOn(OdGeOffsetStretch const& first, OdGeOffsetStretch const& next)
    {
        return first.piece == next.piece && first.to == next.from;
    }
    // Parts of one piece become one stretch again.
    static void append(OdGeOffsetRun& run, OdGeOffsetStretch const& stretch)
    {
        if (run.empty() || !runsOn(run.back(), stretch)) {
            run.push_back(stretch);
            return;
        }
        run.back().to = stretch.to;
        run.back().end = stretch.end;
    }
    static void closeSeam(OdGeOffsetRun& run)
    {
        if (run.size() < 2 || !runsOn(run.back(), run.front()))
            return;
        run.front().from = run.back().from;
        run.front().start = run.back().start;
        run.pop_back();
    }

    // The nearest free start; of several the one that follows in the order of the pieces.
    void link(std::size_t index)
    {
        OdGePoint3d const end = m_stretches[index].end;
        std::size_t best = kNone;
        std::size_t const count = m_stretches.size();
        m_starts.visit({end, end}, m_near, [&](std::size_t other) {
            bool const isNear = m_stretches[other].start.distanceTo(end) <= m_near;
            auto const order = [&](std::size_t i) { return (i + count - index - 1) % count; };
            if (isNear && !m_isFollowed[other] && (best == kNone || order(other) < order(best)))
                best = other;
        });
        m_next[index] = best;
        if (best != kNone)
            m_isFollowed[best] = true;
    }

    std::vector<OdGeOffsetStretch> m_stretches;
    double m_near;
    OdGeBoxTree m_starts;
    std::vector<std::size_t> m_next;
    std::vector<bool> m_isFollowed;
};

// Twice the area about a polygon through ends and middles of the stretches, and its length.
struct RunSize
{
    double length = 0;
    double area = 0;

    RunSize(OdGeOffsetRun const& run, Pieces const& pieces, OdGeVector3d const& normal)
    {
        OdGePoint3d const pole = run.front().start;
        OdGePoint3d last = pole;
        auto const add = [&](OdGePoint3d const& point) {
            length += point.distanceTo(last);
            area += (last - pole).crossProduct(point - pole).dotProduct(normal);
            last = point;
        };
        for (OdGeOffsetStretch const& stretch : run) {
            add(pieces[stretch.piece]->evalPoint(stretch.from + (stretch.to - stretch.from) / 2));
            add(stretch.end);
        }
    }
};

} // namespace

std::vector<OdGeOffsetRun> odgeOffsetRuns(OdGeOffsetOutline const& outline, OdGeOffsetTask const& task)
{
    double const near = std::max(64 * task.slack, 2 * outline.allowed);
    RunBuilder builder(OutlineCutter(outline, task).stretches(), near);
    std::vector<OdGeOffsetRun> runs = builder.runs();
    std::erase_if(runs, [&](OdGeOffsetRun const& run) {
        RunSize const size(run, outline.pieces, task.normal);
        bool const isClosed = run.front().start.distanceTo(run.back().end) <= near;
        // Where both sides of a closed curve nearly meet, stretches lie on each other and enclose nothing.
        bool const isFlat = isClosed && std::abs(size.area) <= 2 * near * size.length;
        return size.length <= 4 * near || (task.isClosed && (!isClosed || isFlat));
    });
    return runs;
}

Pieces odgeOffsetEnds(OdGeCurve3d const& curve, OdGeOffsetTask const& task)
{
    Pieces ends;
    OdGePoint3d point;
    if (!task.isClosed && curve.hasStartPoint(point))
        ends.push_back(std::make_unique<OdGeCircArc3d>(point, task.normal, std::abs(task.distance)));
    if (!task.isClosed && curve.hasEndPoint(point))
        ends.push_back(std::make_unique<OdGeCircArc3d>(point, task.normal, std::abs(task.distance)));
    return ends;
}
