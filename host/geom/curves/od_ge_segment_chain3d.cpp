#include "host/geom/curves/od_ge_segment_chain3d.h"

#include "host/geom/curves/od_ge_bulge_segment.h"
#include "host/geom/curves/od_ge_circ_arc3d.h"
#include "host/geom/curves/od_ge_linear3d.h"
#include "host/geom/curves/od_ge_turn.h"
#include "host/root/od_error.h"

OdGeSegmentChain3d::OdGeSegmentChain3d(std::vector<OdGePoint3d> points, bool isClosed)
    : m_points(std::move(points)), m_isClosed(isClosed)
{
}

OdGeSegmentChain3d::OdGeSegmentChain3d(std::vector<OdGePoint2d> points, std::vector<double> bulges, bool isClosed,
                                       OdGeVector3d const& normal, double elevation)
    : m_bulges(std::move(bulges)), m_isClosed(isClosed), m_hasOwnPlane(true)
{
    OdGeMatrix3d const toWorld = OdGeMatrix3d::planeToWorld(normal);
    m_normal = toWorld.column(2);
    m_points.reserve(points.size());
    for (OdGePoint2d const& point : points)
        m_points.push_back(toWorld * OdGePoint3d(point.x, point.y, elevation));
    if (!m_bulges.empty())
        m_bulges.resize(m_points.size(), 0.0);
    for (double const bulge : m_bulges) {
        if (!std::isfinite(bulge))
            throw OdError(eOutOfRange);
    }
}

int OdGeSegmentChain3d::numSegments() const
{
    int const count = numVertices();
    return count < 2 ? 0 : m_isClosed ? count : count - 1;
}

OdGePoint3d const& OdGeSegmentChain3d::vertexAt(int index) const
{
    if (index < 0 || index >= numVertices())
        throw OdError(eInvalidIndex);
    return m_points[static_cast<std::size_t>(index)];
}

double OdGeSegmentChain3d::bulgeAt(int index) const
{
    if (index < 0 || index >= numVertices())
        throw OdError(eInvalidIndex);
    return m_bulges.empty() ? 0 : m_bulges[static_cast<std::size_t>(index)];
}

bool OdGeSegmentChain3d::hasBulges() const
{
    return std::any_of(m_bulges.begin(), m_bulges.end(),
                       [](double bulge) { return std::abs(bulge) > OdGeBulgeSegment::kStraight; });
}

OdGePoint3d const& OdGeSegmentChain3d::segmentEnd(int index) const
{
    return vertexAt((index + 1) % numVertices());
}

OdGeBulgeSegment OdGeSegmentChain3d::bulgeSegment(int index) const
{
    return {vertexAt(index), segmentEnd(index), bulgeAt(index), m_normal};
}

std::unique_ptr<OdGeCurve3d> OdGeSegmentChain3d::segmentAt(int index) const
{
    if (index < 0 || index >= numSegments())
        throw OdError(eInvalidIndex);
    OdGePoint3d const& start = vertexAt(index);
    OdGeBulgeSegment const segment = bulgeSegment(index);
    if (segment.sweep() == 0 || start.isEqualTo(segmentEnd(index)))
        return std::make_unique<OdGeLineSeg3d>(start, segmentEnd(index));
    OdGeVector3d const toCenter = segment.toCenter();
    return std::make_unique<OdGeCircArc3d>(start + toCenter, segment.sweep() > 0 ? m_normal : -m_normal,
                                           -toCenter / toCenter.length(), segment.radius(), 0,
                                           std::abs(segment.sweep()));
}

std::unique_ptr<OdGeCurve3d> OdGeSegmentChain3d::copy() const
{
    return std::make_unique<OdGeSegmentChain3d>(*this);
}

OdGeInterval OdGeSegmentChain3d::getInterval() const
{
    return {0, static_cast<double>(numSegments())};
}

OdGeSegmentChain3d::Place OdGeSegmentChain3d::placeOf(double param) const
{
    int const last = numSegments() - 1;
    if (!(param > 0)) // numbers that are none as well
        return {0, 0};
    if (param >= last + 1)
        return {last, 1};
    double const whole = std::floor(param);
    return {static_cast<int>(whole), param - whole};
}

OdGePoint3d OdGeSegmentChain3d::evalPoint(double param) const
{
    if (numSegments() == 0)
        return m_points.empty() ? OdGePoint3d() : m_points.front();
    Place const place = placeOf(param);
    return bulgeSegment(place.segment).evalPoint(place.part);
}

OdGeVector3d OdGeSegmentChain3d::derivative(double param, int order) const
{
    requireOrder(order);
    if (numSegments() == 0)
        return {};
    Place const place = placeOf(param);
    return bulgeSegment(place.segment).derivative(place.part, order);
}

double OdGeSegmentChain3d::length(double from, double to) const
{
    if (numSegments() == 0)
        return 0;
    if (from > to)
        return -length(to, from);
    Place const first = placeOf(from);
    Place const last = placeOf(to);
    double sum = 0;
    for (int i = first.segment; i <= last.segment; ++i) {
        double const begin = i == first.segment ? first.part : 0;
        double const end = i == last.segment ? last.part : 1;
        sum += bulgeSegment(i).length() * (end - begin);
    }
    return sum;
}

double OdGeSegmentChain3d::closestParam(OdGePoint3d const& point) const
{
    double closest = 0;
    OdGePoint3d place = evalPoint(0);
    double least = place.distanceTo(point);
    for (int i = 0; i < numSegments(); ++i) {
        OdGeBulgeSegment const segment = bulgeSegment(i);
        double const part = segment.closestParam(point);
        OdGePoint3d const found = segment.evalPoint(part);
        double const distance = found.distanceTo(point);
        if (!(distance < least))
            continue;
        // Places apart from each other are equally near though rounding tells their distances apart; next to a
        // joint the nearer one is meant.
        constexpr double kApart = 1e-6;
        bool const isApart = found.distanceTo(place) > kApart * distance;
        if (isApart && distance >= least - odgeCoordinateNoise(point, found))
            continue;
        closest = i + part;
        place = found;
        least = distance;
    }
    return closest;
}

OdGeExtents3d OdGeSegmentChain3d::extents() const
{
    OdGeExtents3d box;
    for (OdGePoint3d const& point : m_points)
        box.addPoint(point);
    if (hasBulges()) {
        for (int i = 0; i < numSegments(); ++i)
            bulgeSegment(i).addExtents(box);
    }
    return box;
}

std::vector<double> OdGeSegmentChain3d::breakParams() const
{
    std::vector<double> joints;
    for (int i = 1; i < numSegments(); ++i)
        joints.push_back(i);
    return joints;
}

double OdGeSegmentChain3d::sweptArea(OdGePoint3d const& pole, OdGeVector3d const& normal) const
{
    double sum = 0;
    double const side = m_normal.dotProduct(normal);
    for (int i = 0; i < numSegments(); ++i) {
        sum += (vertexAt(i) - pole).crossProduct(segmentEnd(i) - pole).dotProduct(normal) +
               bulgeSegment(i).doubledChordArea() * side;
    }
    return sum;
}
