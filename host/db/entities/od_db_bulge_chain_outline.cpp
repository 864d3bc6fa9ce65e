// What is seen of a flat polyline: segments, arcs, their widths.
#include "host/db/entities/od_db_bulge_chain.h"
#include "host/db/entities/od_db_transform.h"

namespace {

/// Half the widths at both ends of a segment; negative ones of damaged files show as none.
struct HalfWidths
{
    double start;
    double end;

    HalfWidths(double startWidth, double endWidth)
        : start(std::max(startWidth, 0.0) / 2), end(std::max(endWidth, 0.0) / 2)
    {
    }
    bool isNone() const { return start == 0 && end == 0; }
};

/// Puts the pieces of segments, given in coordinates of the plane at its height, into the world.
class WidePieces
{
public:
    WidePieces(OdGeMatrix3d const& toWorld, double elevation, OdDbOutlineSink& sink)
        : m_toWorld(toWorld), m_elevation(elevation), m_sink(sink)
    {
    }

    void place(OdGePoint2d const& point) const { m_sink.point(world(point)); }
    void line(OdGePoint2d const& from, OdGePoint2d const& to) const { m_sink.segment(world(from), world(to)); }
    void give(OdGeArcData2d const& arc) const
    {
        m_sink.arc(OdGeEllipticArc::inPlane(arc, m_elevation).transformBy(m_toWorld));
    }

    void straight(OdGePoint2d const& from, OdGePoint2d const& to, HalfWidths const& half) const
    {
        OdGeVector2d const along = to - from;
        double const length = along.length();
        if (!(length > 0))
            return line(from, to);
        OdGeVector2d const across = along.perpVector() / length;
        std::vector<OdGePoint3d> corners;
        corners.push_back(world(from + across * half.start));
        if (half.start > 0)
            corners.push_back(world(from - across * half.start));
        corners.push_back(world(to - across * half.end));
        if (half.end > 0)
            corners.push_back(world(to + across * half.end));
        m_sink.polygon(corners);
    }

    void arc(OdGeArcData2d const& middle, HalfWidths const& half) const
    {
        give(middle);
        for (double const side : {1.0, -1.0})
            border(middle, side * half.start, side * half.end);
        endOf(middle, middle.startAngle, half.start);
        endOf(middle, middle.endAngle, half.end);
    }

private:
    OdGePoint3d world(OdGePoint2d const& point) const
    {
        return m_toWorld * OdGePoint3d(point.x, point.y, m_elevation);
    }
    void endOf(OdGeArcData2d const& middle, double angle, double half) const
    {
        OdGeVector2d const across = OdGeVector2d(std::cos(angle), std::sin(angle)) * half;
        OdGePoint2d const end = middle.pointAt(angle);
        if (half > 0)
            m_sink.segment(world(end - across), world(end + across));
    }
    /// The line at a distance from the arc that changes evenly.
    void border(OdGeArcData2d const& middle, double startDistance, double endDistance) const
    {
        if (startDistance != endDistance)
            return taperedBorder(middle, startDistance, endDistance);
        OdGeArcData2d moved = middle;
        moved.radius += startDistance;
        if (moved.radius != 0)
            give(moved);
    }
    void taperedBorder(OdGeArcData2d const& middle, double startDistance, double endDistance) const;

    OdGeMatrix3d const& m_toWorld;
    double m_elevation;
    OdDbOutlineSink& m_sink;
};

void WidePieces::taperedBorder(OdGeArcData2d const& middle, double startDistance, double endDistance) const
{
    constexpr double kStep = Oda2PI / 96; // a cubic through these points leaves the spiral by less than 1e-7 radii
    double const sweep = middle.isClockwise ? -middle.sweep() : middle.sweep();
    double const growth = (endDistance - startDistance) / sweep;
    auto const directionAt = [&](double turn) {
        double const angle = middle.startAngle + turn;
        return OdGeVector2d(std::cos(angle), std::sin(angle));
    };
    auto const distanceAt = [&](double turn) { return middle.radius + startDistance + growth * turn; };
    auto const tangentAt = [&](double turn) {
        OdGeVector2d const out = directionAt(turn);
        OdGeVector2d const tangent =
            (out * growth + out.perpVector() * distanceAt(turn)) * std::copysign(1, sweep);
        return m_toWorld * OdGeVector3d(tangent.x, tangent.y, 0);
    };
    int const steps = std::max(4, static_cast<int>(std::ceil(std::abs(sweep) / kStep)));
    std::vector<OdGePoint3d> points;
    for (int i = 0; i <= steps; ++i) {
        double const turn = sweep * i / steps;
        points.push_back(world(middle.center + directionAt(turn) * distanceAt(turn)));
    }
    m_sink.spline(OdGeNurbCurve3d::interpolate(points, tangentAt(0), tangentAt(sweep)));
}

void giveSegment(OdDbBulgeChain const& chain, std::size_t segment, WidePieces const& pieces)
{
    OdDbBulgeChain::Vertex const& from = chain.vertices[segment];
    HalfWidths const half(from.startWidth, from.endWidth);
    auto const arc = chain.arcOf(segment);
    if (arc && !half.isNone())
        pieces.arc(*arc, half);
    else if (arc)
        pieces.give(*arc);
    else if (!half.isNone())
        pieces.straight(from.point, chain.endOf(segment).point, half);
    else
        pieces.line(from.point, chain.endOf(segment).point);
}

} // namespace

void OdDbBulgeChain::outline(OdDbOutlineSink& sink) const
{
    constexpr std::size_t kBetweenQuestions = 64;
    OdGeMatrix3d const toWorld = odDbPlaneToWorld(normal);
    WidePieces const pieces(toWorld, elevation, sink);
    if (vertices.size() == 1)
        pieces.place(vertices.front().point);
    for (std::size_t i = 0; i < numSegments(); ++i) {
        if (i % kBetweenQuestions == kBetweenQuestions - 1 && sink.isSatisfied())
            return;
        giveSegment(*this, i, pieces);
    }
}
