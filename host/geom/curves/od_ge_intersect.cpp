#include "host/geom/curves/od_ge_intersect.h"

#include "host/geom/curves/od_ge_box_tree.h"
#include "host/geom/curves/od_ge_contact_merger.h"
#include "host/geom/curves/od_ge_ellip_arc3d.h"
#include "host/geom/curves/od_ge_intersect_pairs.h"
#include "host/geom/curves/od_ge_nurb_basis.h"
#include "host/geom/curves/od_ge_segment_chain3d.h"

#include <algorithm>
#include <cmath>

// Both curves are taken apart into simple parts; pairs of parts whose boxes meet go to the formula for their
// classes. What they give is put together again: joints are found by both of their neighbours, and so are
// stretches that run on.

namespace {

using EType = OdGeCurve3d::EType;

// A simple part of a curve and how its parameters translate.
struct Part
{
    std::unique_ptr<OdGeCurve3d> curve;
    OdGeExtents3d box;    ///< empty for lines and rays
    double fromParam = 0; ///< parameters of the whole at the ends of the part
    double toParam = 0;
    double startParam =
        0; ///< the first parameter of the whole at its start; less than fromParam after segments of no length
    OdGeInterval interval;
    bool isPoint = false;
    /// Of an arc that is nearly straight and stands here as a spline: the same arc with the parameter of the
    /// whole.
    std::unique_ptr<OdGeCurve3d> flatArc;
    std::vector<OdGeNurbCurve3d> pieces; ///< Bezier form, for parts that closed formulas do not reach

    bool isUnbounded() const { return !interval.isBounded(); }
    double paramOfWhole(double param) const
    {
        if (flatArc && param != interval.lower && param != interval.upper)
            return fromParam + flatArc->closestParam(curve->evalPoint(param));
        if (isUnbounded() || (fromParam == interval.lower && toParam == interval.upper))
            return param;
        if (param == interval.lower)
            return startParam;
        return fromParam + (toParam - fromParam) * ((param - interval.lower) / interval.length());
    }
};

bool isLinear(EType type)
{
    return type == EType::kLine || type == EType::kRay || type == EType::kLineSeg;
}

// One curve per interval between knots.
std::vector<OdGeNurbCurve3d> bezierPieces(OdGeNurbCurve3d const& curve)
{
    OdGeNurbCurve3d::Definition const& whole = curve.definition();
    std::vector<OdGeNurbCurve3d> pieces;
    for (std::size_t const span : odgeNurbSpans(whole))
        pieces.emplace_back(odgeNurbClamped(odgeNurbInterval(whole, span, OdGePoint3d::kOrigin)));
    return pieces;
}

class PartList
{
public:
    PartList(OdGeCurve3d const& curve, double slack) : m_slack(slack)
    {
        if (curve.type() == EType::kSegmentChain)
            addSegments(static_cast<OdGeSegmentChain3d const&>(curve));
        else if (curve.type() == EType::kNurb)
            addPieces(static_cast<OdGeNurbCurve3d const&>(curve));
        else
            add(curve.copy(), curve.getInterval().lower, curve.getInterval().upper);
    }

    std::vector<Part>& parts() { return m_parts; }

private:
    void addSegments(OdGeSegmentChain3d const& chain)
    {
        // Segments of no length are passed over: what follows begins where they do.
        int begin = 0;
        for (int i = 0; i < chain.numSegments(); ++i) {
            addSegment(chain, i);
            if (m_parts.back().isPoint) {
                m_parts.pop_back();
                continue;
            }
            m_parts.back().startParam = begin;
            begin = i + 1;
        }
        if (m_parts.empty() && chain.numVertices() > 0)
            add(std::make_unique<OdGeLineSeg3d>(chain.vertexAt(0), chain.vertexAt(0)), 0, 0);
    }
    // The center of a nearly straight arc is so far away that nothing exact can be said from there.
    void addSegment(OdGeSegmentChain3d const& chain, int index)
    {
        constexpr double kRounding = 2e-15;
        auto segment = chain.segmentAt(index);
        auto const* arc = dynamic_cast<OdGeCircArc3d const*>(segment.get());
        if (!arc || arc->radius() * kRounding <= m_slack) {
            add(std::move(segment), index, index + 1);
            return;
        }
        auto flatArc = chain.trimmed(index, index + 1);
        add(std::make_unique<OdGeNurbCurve3d>(OdGeNurbCurve3d::of(*flatArc)), index, index + 1);
        m_parts.back().flatArc = std::move(flatArc);
    }
    void addPieces(OdGeNurbCurve3d const& curve)
    {
        for (OdGeNurbCurve3d& piece : bezierPieces(curve)) {
            OdGeInterval const interval = piece.getInterval();
            add(std::make_unique<OdGeNurbCurve3d>(std::move(piece)), interval.lower, interval.upper);
        }
    }
    void add(std::unique_ptr<OdGeCurve3d> curve, double from, double to)
    {
        Part part;
        part.interval = curve->getInterval();
        part.fromParam = from;
        part.toParam = to;
        part.startParam = from;
        if (!part.isUnbounded()) {
            part.box = boxOf(*curve);
            part.isPoint = part.box.minPoint().distanceTo(part.box.maxPoint()) <= m_slack;
        }
        part.curve = std::move(curve);
        m_parts.push_back(std::move(part));
    }
    // The control points bound a spline well enough.
    static OdGeExtents3d boxOf(OdGeCurve3d const& curve)
    {
        if (curve.type() != EType::kNurb)
            return curve.extents();
        auto const& spline = static_cast<OdGeNurbCurve3d const&>(curve);
        return odgeNurbHull(spline.definition(), static_cast<std::size_t>(spline.degree()));
    }

    double m_slack;
    std::vector<Part> m_parts;
};

std::vector<OdGeNurbCurve3d> const& piecesOf(Part& part)
{
    if (part.pieces.empty())
        part.pieces = bezierPieces(OdGeNurbCurve3d::of(*part.curve));
    return part.pieces;
}

// The part of a line or ray that can meet a box, as a Bezier curve whose parameter is that of the line.
std::optional<OdGeNurbCurve3d> clipped(OdGeLinearEnt3d const& line, OdGeExtents3d const& box, double slack)
{
    OdGePoint3d const center = box.center();
    double const radius = box.maxPoint().distanceTo(center) + 2 * slack;
    double const size = line.direction().length();
    double const middle = (center - line.pointOnLine()).dotProduct(line.direction()) / (size * size);
    OdGeInterval const interval = line.getInterval();
    double const from = std::max(interval.lower, middle - radius / size);
    double const to = std::min(interval.upper, middle + radius / size);
    if (!(from < to))
        return std::nullopt;
    OdGeNurbCurve3d::Definition piece;
    piece.knots = OdGeKnotVector({from, from, to, to});
    piece.controlPoints = {line.evalPoint(from), line.evalPoint(to)};
    return OdGeNurbCurve3d(std::move(piece));
}

// Splines have the parameter of the arc at their knots only.
void useParamOfArc(OdGeCurve3d const& arc, OdGeIntersection& contact, double OdGeIntersection::*param)
{
    if (arc.type() != EType::kCircArc && arc.type() != EType::kEllipArc)
        return;
    double exact = arc.closestParam(contact.point);
    exact += std::round((contact.*param - exact) / Oda2PI) * Oda2PI;
    contact.*param = arc.getInterval().clamped(exact);
}

void intersectSplines(Part& a, Part& b, double slack, OdGeContacts& contacts)
{
    OdGeContacts found;
    auto const piecesFor = [&](Part& part, Part const& other) {
        if (!isLinear(part.curve->type()))
            return piecesOf(part);
        auto const clip = clipped(static_cast<OdGeLinearEnt3d const&>(*part.curve), other.box, slack);
        return clip ? std::vector{*clip} : std::vector<OdGeNurbCurve3d>{};
    };
    std::vector<OdGeNurbCurve3d> const piecesB = piecesFor(b, a);
    for (OdGeNurbCurve3d const& pieceA : piecesFor(a, b))
        for (OdGeNurbCurve3d const& pieceB : piecesB)
            odgeIntersectPieces(pieceA, pieceB, slack, found);
    auto const translated = [&](OdGeIntersection contact) {
        useParamOfArc(*a.curve, contact, &OdGeIntersection::paramA);
        useParamOfArc(*b.curve, contact, &OdGeIntersection::paramB);
        return contact;
    };
    for (OdGeIntersection const& point : found.points)
        contacts.points.push_back(translated(point));
    for (OdGeStretch const& stretch : found.stretches)
        contacts.stretches.push_back({translated(stretch.start), translated(stretch.end)});
}

void intersectReversed(Part& a, Part& b, double slack, OdGeContacts& contacts);

void intersectParts(Part& a, Part& b, double slack, OdGeContacts& contacts)
{
    EType const typeA = a.curve->type();
    EType const typeB = b.curve->type();
    if (a.isPoint || b.isPoint) {
        auto const ends = odgeEndContacts(*a.curve, *b.curve, slack);
        if (!ends.empty())
            contacts.points.push_back(ends.front());
    } else if (isLinear(typeA) && isLinear(typeB)) {
        odgeIntersectLines(static_cast<OdGeLinearEnt3d const&>(*a.curve),
                           static_cast<OdGeLinearEnt3d const&>(*b.curve), slack, contacts);
    } else if (isLinear(typeA) && typeB != EType::kNurb) {
        odgeIntersectLineArc(static_cast<OdGeLinearEnt3d const&>(*a.curve), *b.curve, slack, contacts);
    } else if (isLinear(typeB) && typeA != EType::kNurb) {
        intersectReversed(a, b, slack, contacts);
    } else if (typeA == EType::kCircArc && typeB == EType::kCircArc) {
        odgeIntersectCircles(static_cast<OdGeCircArc3d const&>(*a.curve),
                             static_cast<OdGeCircArc3d const&>(*b.curve), slack, contacts);
    } else {
        intersectSplines(a, b, slack, contacts);
    }
}

// Of a line given second.
void intersectReversed(Part& a, Part& b, double slack, OdGeContacts& contacts)
{
    OdGeContacts found;
    intersectParts(b, a, slack, found);
    for (OdGeIntersection& point : found.points) {
        std::swap(point.paramA, point.paramB);
        contacts.points.push_back(point);
    }
}

// Greatest magnitude among the numbers that define a curve, as far as they limit how exact its points are.
double sizeOf(OdGeCurve3d const& curve)
{
    double most = 0;
    auto const add = [&](OdGePoint3d const& p) {
        most = std::max({most, std::abs(p.x), std::abs(p.y), std::abs(p.z)});
    };
    OdGeInterval const interval = curve.getInterval();
    for (double const param : {interval.lower, interval.upper})
        if (std::isfinite(param))
            add(curve.evalPoint(param));
    if (isLinear(curve.type())) {
        add(static_cast<OdGeLinearEnt3d const&>(curve).pointOnLine());
    } else if (curve.type() == EType::kCircArc) {
        auto const& arc = static_cast<OdGeCircArc3d const&>(curve);
        add(arc.center());
        most = std::max(most, arc.radius());
    } else if (curve.type() == EType::kEllipArc) {
        auto const& arc = static_cast<OdGeEllipArc3d const&>(curve);
        add(arc.center());
        most = std::max({most, arc.majorRadius(), arc.minorRadius()});
    }
    return most;
}

// Distances that count as none: the tolerance, and what rounding leaves of coordinates of this size.
double slackFor(OdGeCurve3d const& a, OdGeCurve3d const& b, OdGeTol const& tol)
{
    constexpr double kRounding = 2e-15;
    return tol.equalPoint() + kRounding * std::max(sizeOf(a), sizeOf(b));
}

// Contacts of two parts, with the parameters of the whole curves.
void collect(Part& a, Part& b, double slack, OdGeContacts& contacts)
{
    OdGeContacts found;
    intersectParts(a, b, slack, found);
    auto const ofWhole = [&](OdGeIntersection contact) {
        contact.paramA = a.paramOfWhole(contact.paramA);
        contact.paramB = b.paramOfWhole(contact.paramB);
        return contact;
    };
    for (OdGeIntersection const& point : found.points)
        contacts.points.push_back(ofWhole(point));
    for (OdGeStretch const& stretch : found.stretches)
        contacts.stretches.push_back({ofWhole(stretch.start), ofWhole(stretch.end)});
}

} // namespace

std::vector<OdGeIntersection> odgeIntersect(OdGeCurve3d const& a, OdGeCurve3d const& b, OdGeTol const& tol)
{
    double const slack = slackFor(a, b, tol);
    PartList listA(a, slack);
    PartList listB(b, slack);
    std::vector<OdGeExtents3d> boxes;
    for (Part const& part : listB.parts())
        boxes.push_back(part.box);
    OdGeBoxTree const tree(boxes);
    OdGeContacts contacts;
    for (Part& partA : listA.parts()) {
        if (partA.isUnbounded() || (listB.parts().size() == 1 && listB.parts().front().isUnbounded()))
            for (Part& partB : listB.parts())
                collect(partA, partB, slack, contacts);
        else
            tree.visit(partA.box, slack,
                       [&](std::uint32_t i) { collect(partA, listB.parts()[i], slack, contacts); });
    }
    return OdGeContactMerger(a, b, slack).merged(std::move(contacts));
}
