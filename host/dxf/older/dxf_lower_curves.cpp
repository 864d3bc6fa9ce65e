// Curves that older releases do not have, as POLYLINEs.
#include "host/dxf/older/dxf_lower_replace.h"
#include "host/dxf/older/dxf_lower_spline.h"

#include "host/db/entities/od_db_ellipse.h"
#include "host/geom/od_ge_matrix3d.h"

#include <algorithm>
#include <cmath>

namespace dxf {

namespace {

constexpr int kClosed = 1;
constexpr int k3d = 8;
constexpr int k3dVertex = 32;
constexpr int kFullTurnSteps = 128; // a chord is off by less than a third of a thousandth of the radius

struct Vertex
{
    OdGePoint3d point;
    double startWidth = 0;
    double endWidth = 0;
    double bulge = 0;
};

struct Polyline
{
    std::vector<Vertex> vertices;
    std::int64_t flags = 0;
    double elevation = 0;
    double thickness = 0;
    double width = 0; ///< of all vertices
    OdGeVector3d normal = OdGeVector3d::kZAxis;

    bool is3d() const { return (flags & k3d) != 0; }
};

void putVertex(TagSpan original, Polyline const& polyline, Vertex const& vertex, ReplacementTarget const& target)
{
    OdDbTagSink& sink = target.sink;
    putFurtherHead(original, "VERTEX", target.handles.take(), handleOf(original), sink);
    sink.text(100, "AcDbVertex");
    sink.text(100, polyline.is3d() ? "AcDb3dPolylineVertex" : "AcDb2dVertex");
    putPoint(10, vertex.point, sink);
    if (vertex.startWidth != 0 || vertex.endWidth != 0) {
        sink.real(40, vertex.startWidth);
        sink.real(41, vertex.endWidth);
    }
    if (vertex.bulge != 0)
        sink.real(42, vertex.bulge);
    sink.integer(70, polyline.is3d() ? k3dVertex : 0);
}

bool putPolyline(TagSpan original, Polyline const& polyline, ReplacementTarget const& target)
{
    if (polyline.vertices.empty())
        return false;
    OdDbTagSink& sink = target.sink;
    putHead(original, "POLYLINE", sink);
    sink.text(100, polyline.is3d() ? "AcDb3dPolyline" : "AcDb2dPolyline");
    sink.integer(66, 1);
    putPoint(10, {0, 0, polyline.elevation}, sink);
    if (polyline.thickness != 0)
        sink.real(39, polyline.thickness);
    sink.integer(70, polyline.flags);
    if (polyline.width != 0) {
        sink.real(40, polyline.width);
        sink.real(41, polyline.width);
    }
    putNormal(polyline.normal, sink);
    putAll(extendedDataOf(original), sink);
    for (Vertex const& vertex : polyline.vertices)
        putVertex(original, polyline, vertex, target);
    putFurtherHead(original, "SEQEND", target.handles.take(), handleOf(original), sink);
    return true;
}

/// A polyline through points of the world: within the plane of the normal where all lie in one, else in space.
bool putThrough(TagSpan original, std::vector<OdGePoint3d> points, bool isClosed, OdGeVector3d const& normal,
                ReplacementTarget const& target)
{
    if (points.size() < 2 || !std::all_of(points.begin(), points.end(), isFinite))
        return false;
    if (isClosed && points.front().isEqualTo(points.back()))
        points.pop_back();
    OdGeMatrix3d const toPlane = OdGeMatrix3d::worldToPlane(normal);
    double const level = (toPlane * points.front()).z;
    bool const isFlat = std::all_of(points.begin(), points.end(), [&](OdGePoint3d const& point) {
        return std::abs((toPlane * point).z - level) <= OdGeContext::gTol.equalPoint();
    });
    Polyline polyline;
    polyline.flags = (isClosed ? kClosed : 0) | (isFlat ? 0 : k3d);
    if (isFlat) {
        polyline.normal = normal;
        polyline.elevation = level;
    }
    for (OdGePoint3d const& point : points) {
        OdGePoint3d const inPlane = toPlane * point;
        if (isFlat && !isFinite(inPlane))
            return false;
        polyline.vertices.push_back({isFlat ? OdGePoint3d(inPlane.x, inPlane.y, level) : point});
    }
    return putPolyline(original, polyline, target);
}

} // namespace

bool putLightPolyline(TagSpan record, ReplacementTarget const& target)
{
    constexpr std::int64_t kSharedFlags = 1 | 128; // closed, linetype goes on across vertices
    TagSpan const section = sectionOf(record, "AcDbPolyline");
    Polyline polyline;
    polyline.flags = integerOf(section, 70) & kSharedFlags;
    polyline.elevation = realOf(section, 38);
    polyline.thickness = realOf(section, 39);
    polyline.width = realOf(section, 43);
    polyline.normal = normalOf(section);
    for (OdDbTag const& tag : section) {
        if (tag.kind != OdDbTagKind::kReal)
            continue;
        if (tag.code == 10)
            polyline.vertices.push_back({{tag.real, 0, polyline.elevation}});
        if (polyline.vertices.empty())
            continue;
        Vertex& vertex = polyline.vertices.back();
        switch (tag.code) {
        case 20: vertex.point.y = tag.real; break;
        case 40: vertex.startWidth = tag.real; break;
        case 41: vertex.endWidth = tag.real; break;
        case 42: vertex.bulge = tag.real; break;
        default: break;
        }
    }
    if (polyline.width != 0)
        for (Vertex& vertex : polyline.vertices)
            vertex.startWidth = vertex.endWidth = polyline.width;
    return putPolyline(record, polyline, target);
}

bool putEllipse(TagSpan record, ReplacementTarget const& target)
{
    TagSpan const section = sectionOf(record, "AcDbEllipse");
    OdGePoint3d const center = pointOf(section, 10);
    OdGeVector3d const major = pointOf(section, 11, {1, 0, 0}).asVector();
    OdGeVector3d const normal = normalOf(section).normal();
    OdGeVector3d const minor = normal.crossProduct(major) * realOf(section, 40, 1);
    double const start = realOf(section, 41);
    double const sweep = odDbEllipseSweep(start, realOf(section, 42, Oda2PI));
    int const steps = std::max(2, static_cast<int>(std::ceil(sweep / Oda2PI * kFullTurnSteps)));
    std::vector<OdGePoint3d> points;
    for (int i = 0; i <= steps; ++i) {
        double const angle = start + sweep * i / steps;
        points.push_back(center + major * std::cos(angle) + minor * std::sin(angle));
    }
    bool const isFull = sweep == Oda2PI;
    if (isFull)
        points.pop_back();
    return putThrough(record, std::move(points), isFull, normal, target);
}

bool putSpline(TagSpan record, ReplacementTarget const& target)
{
    TagSpan const section = sectionOf(record, "AcDbSpline");
    bool const isClosed = (integerOf(section, 70) & kClosed) != 0;
    std::vector<OdGePoint3d> points =
        splinePoints({static_cast<int>(integerOf(section, 71, 3)), realsOf(section, 40), pointsOf(section, 10),
                      realsOf(section, 41)});
    if (points.empty())
        points = pointsOf(section, 11); // the points that the curve was drawn through
    return putThrough(record, std::move(points), isClosed, normalOf(section), target);
}

bool putLeader(TagSpan record, ReplacementTarget const& target)
{
    TagSpan const section = sectionOf(record, "AcDbLeader");
    return putThrough(record, pointsOf(section, 10), false, normalOf(section), target);
}

} // namespace dxf
