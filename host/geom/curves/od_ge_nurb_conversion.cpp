#include "host/geom/curves/od_ge_circ_arc3d.h"
#include "host/geom/curves/od_ge_ellip_arc3d.h"
#include "host/geom/curves/od_ge_linear3d.h"
#include "host/geom/curves/od_ge_nurb_basis.h"
#include "host/geom/curves/od_ge_segment_chain3d.h"
#include "host/root/od_error.h"

#include <algorithm>
#include <cmath>

// Exact rational forms: an arc of at most a quarter of an ellipse is a Bezier curve of degree 2 whose middle
// control point is where the tangents of its ends meet, with the cosine of half its sweep as weight.

namespace {

using Definition = OdGeNurbCurve3d::Definition;

// Grows by Bezier pieces of degree 2, or of degree 1 when all are straight.
class PieceList
{
public:
    explicit PieceList(int degree) { m_definition.degree = degree; }

    void start(OdGePoint3d const& point, double param)
    {
        add(point, 1);
        m_knots.assign(static_cast<std::size_t>(m_definition.degree) + 1, param);
    }
    void lineTo(OdGePoint3d const& point, double param)
    {
        if (m_definition.degree == 2)
            add(odgeMidPoint(m_definition.controlPoints.back(), point), 1);
        add(point, 1);
        addKnots(param);
    }
    // point(t) = center + cos t u + sin t v from one parameter to another; the knots run evenly between two
    // others.
    void arcTo(OdGeEllipticArc const& arc, OdGePoint3d const& end, double fromKnot, double toKnot)
    {
        int const count = std::max(1, static_cast<int>(std::ceil(std::abs(arc.sweep()) / OdaPI2 - 1e-9)));
        double const half = arc.sweep() / count / 2;
        for (int i = 1; i <= count; ++i) {
            double const t = arc.start + arc.sweep() * i / count;
            OdGePoint3d const to = i == count ? end : arc.evalPoint(t);
            // From the chord, not from the center, which is far away where an arc is nearly straight.
            OdGeVector3d const height = arc.u * std::cos(t - half) + arc.v * std::sin(t - half);
            add(odgeMidPoint(m_definition.controlPoints.back(), to) + height * (std::sin(half) * std::tan(half)),
                std::cos(half));
            add(to, 1);
            addKnots(fromKnot + (toKnot - fromKnot) * i / count);
        }
    }
    Definition finished()
    {
        m_knots.push_back(m_knots.back());
        m_definition.knots = OdGeKnotVector(std::move(m_knots));
        if (std::ranges::all_of(m_definition.weights, [](double w) { return w == 1; }))
            m_definition.weights.clear();
        return std::move(m_definition);
    }

private:
    void add(OdGePoint3d const& point, double weight)
    {
        m_definition.controlPoints.push_back(point);
        m_definition.weights.push_back(weight);
    }
    void addKnots(double param)
    {
        m_knots.insert(m_knots.end(), static_cast<std::size_t>(m_definition.degree), param);
    }

    Definition m_definition;
    std::vector<double> m_knots;
};

// The greater part of a full turn in one direction or the other ends where it began, exactly.
OdGePoint3d arcEnd(OdGeEllipticArc const& arc)
{
    return std::abs(arc.sweep()) >= Oda2PI - 1e-15 ? arc.startPoint() : arc.endPoint();
}

Definition ofArc(OdGeEllipticArc const& arc)
{
    PieceList pieces(2);
    pieces.start(arc.startPoint(), arc.start);
    pieces.arcTo(arc, arcEnd(arc), arc.start, arc.end);
    return pieces.finished();
}

Definition ofSegment(OdGePoint3d const& start, OdGePoint3d const& end)
{
    PieceList pieces(1);
    pieces.start(start, 0);
    pieces.lineTo(end, 1);
    return pieces.finished();
}

Definition ofChain(OdGeSegmentChain3d const& chain)
{
    if (chain.numVertices() == 0)
        throw OdError(eDegenerateGeometry, L"a chain without vertices is no curve");
    if (chain.numSegments() == 0)
        return ofSegment(chain.vertexAt(0), chain.vertexAt(0));
    PieceList pieces(chain.hasBulges() ? 2 : 1);
    pieces.start(chain.vertexAt(0), 0);
    for (int i = 0; i < chain.numSegments(); ++i) {
        OdGePoint3d const& end = chain.vertexAt((i + 1) % chain.numVertices());
        auto const segment = chain.segmentAt(i);
        if (auto const* arc = dynamic_cast<OdGeCircArc3d const*>(segment.get()))
            pieces.arcTo(arc->ellipticArc(), end, i, i + 1);
        else
            pieces.lineTo(end, i + 1);
    }
    return pieces.finished();
}

} // namespace

OdGeNurbCurve3d OdGeNurbCurve3d::of(OdGeCurve3d const& curve)
{
    switch (curve.type()) {
    case EType::kLine:
    case EType::kRay: throw OdError(eNotApplicable, L"a curve without end has no form as a spline");
    case EType::kLineSeg: {
        auto const& segment = static_cast<OdGeLineSeg3d const&>(curve);
        return OdGeNurbCurve3d(ofSegment(segment.startPoint(), segment.endPoint()));
    }
    case EType::kCircArc: return OdGeNurbCurve3d(ofArc(static_cast<OdGeCircArc3d const&>(curve).ellipticArc()));
    case EType::kEllipArc: return OdGeNurbCurve3d(ofArc(static_cast<OdGeEllipArc3d const&>(curve).ellipticArc()));
    case EType::kSegmentChain: return OdGeNurbCurve3d(ofChain(static_cast<OdGeSegmentChain3d const&>(curve)));
    case EType::kNurb: break;
    }
    return static_cast<OdGeNurbCurve3d const&>(curve);
}

OdGeNurbCurve3d OdGeNurbCurve3d::ofControlPoints(int degree, std::span<OdGePoint3d const> points, bool isClosed)
{
    Definition definition;
    definition.degree = degree;
    definition.isPeriodic = isClosed;
    definition.controlPoints.assign(points.begin(), points.end());
    auto const p = static_cast<std::size_t>(std::clamp(degree, 0, kMostDegree));
    if (isClosed && !points.empty())
        for (std::size_t i = 0; i < p; ++i)
            definition.controlPoints.push_back(points[i % points.size()]);
    std::vector<double> knots;
    auto const spans = static_cast<double>(definition.controlPoints.size()) - static_cast<double>(p);
    for (std::size_t i = 0; i < definition.controlPoints.size() + p + 1; ++i) {
        double const knot = static_cast<double>(i) - static_cast<double>(p);
        knots.push_back(isClosed ? knot : std::clamp(knot, 0.0, std::max(spans, 0.0)));
    }
    definition.knots = OdGeKnotVector(std::move(knots));
    return OdGeNurbCurve3d(std::move(definition));
}
