// The polyline as a curve, and the entities that come of it.
#include "host/db/entities/od_db_arc.h"
#include "host/db/entities/od_db_line.h"
#include "host/db/entities/od_db_polyline.h"
#include "host/db/entities/od_db_transform.h"
#include "host/geom/curves/od_ge_bulge_segment.h"
#include "host/geom/curves/od_ge_segment_chain3d.h"
#include "host/geom/od_ge_bulge.h"

unsigned OdDbPolyline::numSegments() const
{
    unsigned const count = numVerts();
    return count < 2 ? 0 : isClosed() ? count : count - 1;
}

OdGeVector3d OdDbPolyline::planeNormal() const
{
    return odDbSaneNormal(m_normal).normal();
}

std::unique_ptr<OdGeCurve3d> OdDbPolyline::getOdGeCurve() const
{
    if (numVerts() < 2)
        return nullptr;
    std::vector<OdGePoint2d> points;
    std::vector<double> bulges;
    points.reserve(m_vertices.size());
    if (hasBulges())
        bulges.reserve(m_vertices.size());
    for (Vertex const& each : m_vertices) {
        points.push_back(each.point);
        if (bulges.capacity() > 0)
            bulges.push_back(each.bulge);
    }
    try {
        return std::make_unique<OdGeSegmentChain3d>(std::move(points), std::move(bulges), isClosed(),
                                                    odDbSaneNormal(m_normal), m_elevation);
    } catch (OdError const&) {
        return nullptr; // bulges that are no numbers
    }
}

void OdDbPolyline::takeFrame(OdDbPolyline const& other)
{
    m_normal = other.m_normal;
    m_elevation = other.m_elevation;
    m_thickness = other.m_thickness;
    setPlinegen(other.hasPlinegen());
}

OdDbEntityPtr OdDbPolyline::pieceOf(OdGeCurve3d const&, double from, double to) const
{
    OdDbPolylinePtr const piece(new OdDbPolyline);
    piece->takeFrame(*this);
    piece->setConstantWidth(m_hasVertexWidths ? 0 : m_constantWidth);
    auto const append = [&](OdGePoint2d const& point, double bulge, double startWidth, double endWidth) {
        piece->addVertexAt(piece->numVerts(), point, bulge, startWidth, endWidth);
    };
    unsigned const count = numSegments();
    for (auto i = static_cast<unsigned>(from); i < to; ++i) {
        unsigned const index = i % count;
        Vertex const& vertex = m_vertices[index];
        double const begin = std::max(from - i, 0.0);
        double const end = std::min(to - i, 1.0);
        OdGeBulgeSegment const segment(inPlane(vertex.point), inPlane(nextVertex(index).point), vertex.bulge,
                                       OdGeVector3d::kZAxis);
        bool const isWhole = begin == 0 && end == 1;
        auto const widthAt = [&](double part) {
            double const width = getStartWidthAt(index);
            return width + (getEndWidthAt(index) - width) * part;
        };
        append(begin == 0 ? vertex.point : segment.evalPoint(begin).convert2d(),
               isWhole ? vertex.bulge : segment.bulgeOfPart(begin, end), widthAt(begin), widthAt(end));
        if (i + 1 >= to)
            append(segment.evalPoint(end).convert2d(), 0, widthAt(end), widthAt(end));
    }
    return piece;
}

OdDbEntityPtr OdDbPolyline::offsetEntity(OdGeCurve3d const& curve) const
{
    OdDbEntityPtr const made = OdDbCurve::offsetEntity(curve);
    if (auto* const polyline = odCast<OdDbPolyline>(made.get())) {
        polyline->setPlinegen(hasPlinegen());
        polyline->setConstantWidth(getConstantWidth());
    }
    return made;
}

std::optional<OdGeArcData2d> OdDbPolyline::arcOf(unsigned index) const
{
    Vertex const& from = m_vertices[index];
    auto const arc = odgeArcFromBulge(from.point, nextVertex(index).point, from.bulge);
    bool const isUsable =
        arc && std::isfinite(arc->radius) && std::isfinite(arc->center.x) && std::isfinite(arc->center.y);
    return isUsable ? arc : std::nullopt;
}

OdDbEntityPtr OdDbPolyline::segmentEntity(unsigned index) const
{
    OdGeMatrix3d const toWorld = odDbPlaneToWorld(m_normal);
    Vertex const& from = m_vertices[index];
    Vertex const& to = nextVertex(index);
    if (auto const data = arcOf(index)) {
        OdDbArcPtr const arc(new OdDbArc(toWorld * inPlane(data->center), data->radius,
                                         data->isClockwise ? data->endAngle : data->startAngle,
                                         data->isClockwise ? data->startAngle : data->endAngle, planeNormal()));
        arc->setThickness(m_thickness);
        return arc;
    }
    OdDbLinePtr const line(new OdDbLine(toWorld * inPlane(from.point), toWorld * inPlane(to.point)));
    line->setNormal(planeNormal());
    line->setThickness(m_thickness);
    return line;
}

OdResult OdDbPolyline::explode(std::vector<OdDbEntityPtr>& pieces) const
{
    if (numSegments() == 0)
        return eDegenerateGeometry;
    for (unsigned i = 0; i < numSegments(); ++i) {
        pieces.push_back(segmentEntity(i));
        pieces.back()->setPropertiesFrom(*this);
    }
    return eOk;
}
