// The polyline as a curve, and the entities that come of it.
#include "host/db/entities/od_db_extruded_outline.h"
#include "host/db/entities/od_db_polyline.h"
#include "host/db/entities/od_db_transform.h"
#include "host/geom/curves/od_ge_bulge_segment.h"
#include "host/geom/curves/od_ge_segment_chain3d.h"

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

OdDbBulgeChain OdDbPolyline::chain() const
{
    OdDbBulgeChain chain{{}, isClosed(), m_elevation, odDbSaneNormal(m_normal)};
    chain.vertices.reserve(numVerts());
    for (unsigned i = 0; i < numVerts(); ++i)
        chain.vertices.push_back({m_vertices[i].point, m_vertices[i].bulge, getStartWidthAt(i), getEndWidthAt(i)});
    return chain;
}

void OdDbPolyline::outline(OdDbOutlineSink& sink) const
{
    OdDbBulgeChain const whole = chain();
    odDbOutlineExtruded(sink, odDbExtrusion(m_normal, m_thickness),
                        [&whole](OdDbOutlineSink& flat) { whole.outline(flat); });
}

OdResult OdDbPolyline::explode(std::vector<OdDbEntityPtr>& pieces) const
{
    std::vector<OdDbEntityPtr> const made = chain().explode(m_thickness);
    for (OdDbEntityPtr const& piece : made) {
        piece->setPropertiesFrom(*this);
        pieces.push_back(piece);
    }
    return made.empty() ? eDegenerateGeometry : eOk;
}
