#include "host/geom/curves/od_ge_box_tree.h"
#include "host/geom/curves/od_ge_circ_arc3d.h"
#include "host/geom/curves/od_ge_linear3d.h"
#include "host/geom/curves/od_ge_offset_corners.h"
#include "host/geom/curves/od_ge_segment_chain3d.h"
#include "host/geom/od_ge_bulge.h"

#include <algorithm>
#include <cmath>

// Each segment is moved aside on its own. At corners that open up, neighbours are extended until they meet; at the
// others they overlap and are cut. Arcs without radius left are passed over: what their neighbours overlap takes
// their place.

namespace {

using Curves = std::vector<std::unique_ptr<OdGeCurve3d>>;

Curves segmentsOf(OdGeSegmentChain3d const& chain, double slack)
{
    Curves segments;
    for (int i = 0; i < chain.numSegments(); ++i) {
        auto segment = chain.segmentAt(i);
        if (segment->length() > slack)
            segments.push_back(std::move(segment));
    }
    return segments;
}

std::unique_ptr<OdGeCurve3d> movedAside(OdGeCurve3d const& segment, OdGeOffsetTask const& task)
{
    if (odgeIsArc(segment)) {
        auto arc = std::make_unique<OdGeCircArc3d>(static_cast<OdGeCircArc3d const&>(segment));
        double const radius = arc->radius() + (arc->normal().dotProduct(task.normal) > 0 ? 1 : -1) * task.distance;
        if (radius <= task.slack)
            return nullptr;
        arc->setRadius(radius);
        return arc;
    }
    OdGePoint3d const start = odgeStartOf(segment);
    OdGePoint3d const end = odgeEndOf(segment);
    OdGeVector3d const aside = task.rightOf(end - start) * task.distance;
    return std::make_unique<OdGeLineSeg3d>(start + aside, end + aside);
}

class ChainOffset
{
public:
    ChainOffset(OdGeSegmentChain3d const& chain, OdGeOffsetTask const& task)
        : m_chain(chain), m_task(task), m_segments(segmentsOf(chain, task.slack))
    {
    }

    Curves run()
    {
        std::vector<OdGeExtents3d> boxes;
        for (auto const& segment : m_segments)
            boxes.push_back(segment->extents());
        OdGeBoxTree const tree(boxes);
        m_outline.distanceTo = [&](OdGePoint3d const& point) {
            return tree.nearest(point, std::numeric_limits<double>::infinity(),
                                [&](std::size_t i) { return m_segments[i]->distanceTo(point); });
        };
        m_outline.allowed = 1e-9 * std::abs(m_task.distance) + 16 * m_task.slack;
        addPieces(m_task, m_outline.pieces, m_isCorner);
        if (!m_task.isClosed) {
            std::vector<bool> unused;
            m_outline.others = odgeOffsetEnds(m_chain, m_task);
            addPieces(m_task.opposite(), m_outline.others, unused);
        }
        std::vector<OdGeOffsetRun> runs = odgeOffsetRuns(m_outline, m_task);
        OdGeCornerSharpener(m_outline.pieces, m_isCorner, m_task, runs).run();
        Curves chains;
        for (OdGeOffsetRun const& run : runs)
            chains.push_back(chainOf(run));
        return chains;
    }

private:
    // In the order of the segments, each followed by the arc about the corner at its end.
    void addPieces(OdGeOffsetTask const& task, Curves& pieces, std::vector<bool>& isCorner) const
    {
        std::size_t const count = m_segments.size();
        Curves aside;
        for (auto const& segment : m_segments)
            aside.push_back(movedAside(*segment, task));
        for (std::size_t i = 0; i < count; ++i) {
            std::size_t const next = (i + 1) % count;
            if (aside[i]) {
                pieces.push_back(aside[i]->copy()); // the last corner looks at the first piece again
                isCorner.push_back(false);
            }
            if (!aside[i] || !aside[next] || i == next || (next == 0 && !task.isClosed))
                continue;
            if (auto corner = roundedCorner(task, i, odgeEndOf(*aside[i]), next, odgeStartOf(*aside[next]))) {
                pieces.push_back(std::move(corner));
                isCorner.push_back(true);
            }
        }
    }

    std::unique_ptr<OdGeCurve3d> roundedCorner(OdGeOffsetTask const& task, std::size_t index,
                                               OdGePoint3d const& from, std::size_t next,
                                               OdGePoint3d const& to) const
    {
        OdGeVector3d const in = m_segments[index]->derivative(m_segments[index]->getInterval().upper);
        OdGeVector3d const out = m_segments[next]->derivative(m_segments[next]->getInterval().lower);
        bool const turnsBack = in.dotProduct(out) < 0 && in.isParallelTo(out, 1e-9);
        bool const opens = turnsBack || in.crossProduct(out).dotProduct(task.normal) * task.distance > 0;
        if (!opens || from.distanceTo(to) <= task.slack)
            return nullptr;
        OdGePoint3d const corner = odgeStartOf(*m_segments[next]);
        OdGeVector3d const axis = task.distance > 0 ? task.normal : -task.normal;
        double const sweep = (from - corner).angleTo(to - corner, axis);
        return std::make_unique<OdGeCircArc3d>(corner, axis, from - corner, std::abs(task.distance), 0, sweep);
    }

    std::unique_ptr<OdGeCurve3d> chainOf(OdGeOffsetRun const& run) const
    {
        bool const keepsNormal = m_chain.normal().isParallelTo(m_task.normal, 1e-9);
        OdGeVector3d const normal = keepsNormal ? m_chain.normal() : m_task.normal;
        OdGeMatrix3d const toPlane = OdGeMatrix3d::worldToPlane(normal);
        double const elevation = (toPlane * run.front().start).z;
        bool const isClosed = m_task.isClosed;
        std::vector<OdGePoint2d> points;
        std::vector<double> bulges;
        for (OdGeOffsetStretch const& stretch : run) {
            points.push_back((toPlane * stretch.start).convert2d());
            OdGeCurve3d const& piece = *m_outline.pieces[stretch.piece];
            double sweep = 0;
            if (odgeIsArc(piece))
                sweep = (stretch.to - stretch.from) *
                        (static_cast<OdGeCircArc3d const&>(piece).normal().dotProduct(normal) > 0 ? 1 : -1);
            bulges.push_back(odgeBulgeFromSweep(sweep));
        }
        if (!isClosed) {
            points.push_back((toPlane * run.back().end).convert2d());
            bulges.push_back(0);
        }
        return std::make_unique<OdGeSegmentChain3d>(std::move(points), std::move(bulges), isClosed, normal,
                                                    elevation);
    }

    OdGeSegmentChain3d const& m_chain;
    OdGeOffsetTask const& m_task;
    Curves m_segments;
    OdGeOffsetOutline m_outline;
    std::vector<bool> m_isCorner; ///< of the pieces: an arc that rounds a corner
};

} // namespace

Curves odgeOffsetChain(OdGeSegmentChain3d const& chain, OdGeOffsetTask const& task)
{
    return ChainOffset(chain, task).run();
}
