#include "testapi/ta_pline_data.h"

#include <algorithm>
#include <cmath>

namespace ta {

namespace {

double valueOr0(OdGeDoubleArray const& values, std::size_t index)
{
    return index < values.size() ? values[index] : 0.0;
}

/// The items from `from` up to but without `to`, as far as they are there.
template <class T>
OdArray<T> slice(OdArray<T> const& items, std::size_t from, std::size_t to)
{
    auto const at = [&](std::size_t index) {
        return items.begin() + static_cast<std::ptrdiff_t>(std::min(index, items.size()));
    };
    return OdArray<T>(at(from), at(to));
}

/// Appends values that belong to vertices, `perVertex` each; where only one side has values, those of the other
/// become 0.
void appendValues(OdGeDoubleArray& values, std::size_t kept, OdGeDoubleArray const& added, std::size_t count,
                  std::size_t perVertex)
{
    if (values.empty() && added.empty())
        return;
    values.resize(kept * perVertex);
    values.append(added);
    values.resize((kept + count) * perVertex);
}

/// Point of a segment at a part of its length, computed here because the commands under test use the curves of the
/// host. All is expressed by the chord: nearly straight arcs keep their digits.
OdGePoint3d pointOfSegment(OdGePoint3d const& start, OdGePoint3d const& end, double bulge, double part)
{
    OdGeVector3d const chord = end - start;
    double const halfSweep = 2 * std::atan(bulge);
    double const sine = std::sin(halfSweep);
    if (sine == 0)
        return start + chord * part;
    // The chord to the point lies between the tangent at the start and the chord of the whole.
    double const turn = (part - 1) * halfSweep;
    double const scale = std::sin(part * halfSweep) / sine;
    return {start.x + (chord.x * std::cos(turn) - chord.y * std::sin(turn)) * scale,
            start.y + (chord.x * std::sin(turn) + chord.y * std::cos(turn)) * scale, start.z + chord.z * part};
}

/// The bulge of a part of an arc: the tangent of a quarter of its sweep.
double bulgeOfPart(double bulge, double part)
{
    return std::tan(std::atan(bulge) * part);
}

} // namespace

void CPlineData::add(OdGePoint3d const& pt, double bulge, double startWidth, double endWidth)
{
    points.append(pt);
    bulges.append(bulge);
    widths.append(startWidth).append(endWidth);
}

void CPlineData::append(CPlineData const& other)
{
    CPlineData const added(other); // may be this one
    bool const isJoined = !points.empty() && !added.points.empty() && points.last() == added.points.first();
    if (isJoined)
        points.removeLast();
    appendValues(bulges, points.size(), added.bulges, added.points.size(), 1);
    appendValues(widths, points.size(), added.widths, added.points.size(), 2);
    points.append(added.points);
}

void CPlineData::copy(int from, int to, CPlineData& out) const
{
    if (from < 0 || from > to || to >= numVertices())
        throw OdError(eInvalidIndex);
    auto const begin = static_cast<std::size_t>(from);
    auto const end = static_cast<std::size_t>(to) + 1;
    CPlineData part;
    part.points = slice(points, begin, end);
    part.bulges = slice(bulges, begin, end);
    part.widths = slice(widths, 2 * begin, 2 * end);
    out = std::move(part);
}

void CPlineData::cutFirst()
{
    points = slice(points, 1, points.size());
    bulges = slice(bulges, 1, bulges.size());
    widths = slice(widths, 2, widths.size());
}

void CPlineData::cutLast()
{
    points.resize(std::max<std::size_t>(points.size(), 1) - 1);
    bulges.resize(std::max<std::size_t>(bulges.size(), 1) - 1);
    widths.resize(std::max<std::size_t>(widths.size(), 2) - 2);
}

void CPlineData::reverse()
{
    points.reverse();
    if (bulges.size() >= 2) {
        std::reverse(bulges.begin(), bulges.end() - 1);
        for (double& bulge : bulges)
            bulge = -bulge;
    }
    if (widths.size() >= 3) {
        std::reverse(widths.begin(), widths.end() - 2);
        std::swap(widths[widths.size() - 2], widths.last());
    }
}

CPlineData::Vertex CPlineData::vertexAt(int param) const
{
    if (param == numVertices()) {
        double const width = vertexAt(param - 1).endWidth;
        return {points.first(), 0, width, width};
    }
    auto const index = static_cast<std::size_t>(param);
    return {points[index], valueOr0(bulges, index), valueOr0(widths, 2 * index), valueOr0(widths, 2 * index + 1)};
}

CPlineData::Vertex CPlineData::divide(Vertex& segment, OdGePoint3d const& end, double part)
{
    double const width = segment.startWidth + (segment.endWidth - segment.startWidth) * part;
    Vertex const rest{pointOfSegment(segment.point, end, segment.bulge, part),
                      bulgeOfPart(segment.bulge, 1 - part), width, segment.endWidth};
    segment.bulge = bulgeOfPart(segment.bulge, part);
    segment.endWidth = width;
    return rest;
}

void CPlineData::dropMissing(CPlineData const& whole)
{
    if (whole.bulges.empty())
        bulges.clear();
    if (whole.widths.empty())
        widths.clear();
}

void CPlineData::splitAtPrm(double prm, int numSegments, CPlineData& first, CPlineData* second) const
{
    if (numVertices() < 2 || (numSegments != numVertices() && numSegments != numVertices() - 1))
        throw OdError(eInvalidInput);
    double const vertexParam = std::round(prm);
    bool const isAtVertex = OdEqual(prm, vertexParam);
    double const param = isAtVertex ? vertexParam : prm;
    if (!(param >= 0 && param <= numSegments))
        throw OdError(eOutOfRange);

    auto const index = static_cast<int>(param);
    CPlineData head;
    CPlineData tail;
    for (int i = 0; i < index; ++i)
        head.add(vertexAt(i));
    Vertex place = vertexAt(index);
    if (!isAtVertex) {
        Vertex const rest = divide(place, vertexAt(index + 1).point, param - index);
        head.add(place);
        place = rest;
    }
    tail.add(place);
    double const width = head.widths.empty() ? place.startWidth : head.widths.last();
    head.add(place.point, 0, width, width);
    for (int i = index + 1; i <= numSegments; ++i)
        tail.add(vertexAt(i));

    head.dropMissing(*this);
    tail.dropMissing(*this);
    first = std::move(head);
    if (second)
        *second = std::move(tail);
}

} // namespace ta
