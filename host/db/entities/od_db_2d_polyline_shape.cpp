// The curve of a 2D polyline, and what is made of it.
#include "host/db/entities/od_db_2d_polyline.h"
#include "host/db/entities/od_db_extruded_outline.h"
#include "host/db/entities/od_db_transform.h"
#include "host/geom/curves/od_ge_segment_chain3d.h"

OdDbBulgeChain OdDb2dPolyline::visibleChain() const
{
    OdDbBulgeChain chain{{}, isClosed(), elevation(), odDbSaneNormal(m_normal)};
    bool const hidesFrame = hasFlag(kSplineFitFlag);
    for (auto it = vertexIterator(); !it.done(); it.step()) {
        auto const& vertex = static_cast<OdDb2dVertex const&>(it.peek());
        if (!hidesFrame || !vertex.isControlVertex())
            chain.vertices.push_back({vertex.position().convert2d(), vertex.bulge(),
                                      vertex.startWidthOr(defaultStartWidth()),
                                      vertex.endWidthOr(defaultEndWidth())});
    }
    return chain;
}

std::unique_ptr<OdGeCurve3d> OdDb2dPolyline::getOdGeCurve() const
{
    OdDbBulgeChain const chain = visibleChain();
    if (chain.numSegments() == 0)
        return nullptr;
    std::vector<OdGePoint2d> points;
    std::vector<double> bulges;
    for (OdDbBulgeChain::Vertex const& vertex : chain.vertices) {
        points.push_back(vertex.point);
        bulges.push_back(vertex.bulge);
    }
    return std::make_unique<OdGeSegmentChain3d>(std::move(points), std::move(bulges), chain.isClosed, chain.normal,
                                                chain.elevation);
}

void OdDb2dPolyline::outline(OdDbOutlineSink& sink) const
{
    OdDbBulgeChain const chain = visibleChain();
    odDbOutlineExtruded(sink, odDbExtrusion(m_normal, m_thickness),
                        [&chain](OdDbOutlineSink& flat) { chain.outline(flat); });
}

OdResult OdDb2dPolyline::transformBy(OdGeMatrix3d const& transformation)
{
    auto const plane = OdDbPlaneTransform::make(transformation, m_normal);
    if (!plane || (!plane->keepsShape() && visibleChain().hasBulgesOrWidths()) ||
        (m_thickness != 0 && !plane->keepsExtrusion()))
        return eDegenerateGeometry;
    assertWriteEnabled();
    moveVertices(*plane);
    if (plane->keepsShape()) {
        m_startWidth *= plane->scale();
        m_endWidth *= plane->scale();
    }
    m_thickness *= plane->extrusionScale();
    m_normal = plane->normal();
    return eOk;
}

void OdDb2dPolyline::moveVertices(OdDbPlaneTransform const& plane)
{
    double const before = m_origin.z;
    m_origin.z = (plane * OdGePoint3d(0, 0, before)).z;
    for (OdDb2dVertexPtr const vertex : openParts()) {
        bool const isInPlane = vertex->position().z == before;
        vertex->moveInPlane(plane);
        if (isInPlane) // rounding must not lift it out of there
            vertex->setPosition({vertex->position().x, vertex->position().y, m_origin.z});
    }
}

OdResult OdDb2dPolyline::moveStretchPointsAt(std::span<int const> indices, OdGeVector3d const& offset)
{
    if (indices.size() == numParts())
        return transformBy(OdGeMatrix3d::translation(offset));
    OdGeVector3d const inPlane = odDbWorldToPlane(m_normal) * offset;
    return OdDbVertexSequence::moveStretchPointsAt(indices, {inPlane.x, inPlane.y, 0});
}

OdResult OdDb2dPolyline::explode(std::vector<OdDbEntityPtr>& pieces) const
{
    std::vector<OdDbEntityPtr> const made = visibleChain().explode(m_thickness);
    for (OdDbEntityPtr const& piece : made) {
        piece->setPropertiesFrom(*this);
        pieces.push_back(piece);
    }
    return made.empty() ? eDegenerateGeometry : eOk;
}

OdResult OdDb2dPolyline::reverseCurve()
{
    std::vector<OdDb2dVertexPtr> shown, frame;
    for (OdDb2dVertexPtr const vertex : openParts())
        (vertex->isControlVertex() ? frame : shown).push_back(vertex);
    assertWriteEnabled();
    for (std::vector<OdDb2dVertexPtr> const* const vertices : {&shown, &frame}) {
        std::size_t const count = vertices->size();
        std::vector<OdDb2dVertexPtr> before;
        for (OdDb2dVertexPtr const& vertex : *vertices)
            before.push_back(vertex->clone());
        for (std::size_t i = 0; i < count; ++i)
            (*vertices)[i]->takeReversed(*before[count - 1 - i], *before[(2 * count - 2 - i) % count]);
    }
    return eOk;
}

OdDb2dPolylinePtr OdDb2dPolyline::emptyLike() const
{
    OdDb2dPolylinePtr const made(new OdDb2dPolyline);
    made->m_flags = m_flags & kLinetypeGenerationFlag;
    made->m_origin = m_origin;
    made->m_thickness = m_thickness;
    made->m_normal = m_normal;
    return made;
}

OdDbEntityPtr OdDb2dPolyline::offsetEntity(OdGeCurve3d const& curve) const
{
    if (curve.type() != OdGeCurve3d::EType::kSegmentChain)
        return OdDbVertexSequence::offsetEntity(curve);
    auto const& chain = static_cast<OdGeSegmentChain3d const&>(curve);
    OdDb2dPolylinePtr const made = emptyLike();
    made->setClosed(chain.isClosedChain());
    double const side = chain.normal().dotProduct(planeNormal()) < 0 ? -1 : 1;
    for (int i = 0; i < chain.numVertices(); ++i) {
        double const bulge = chain.bulges().empty() ? 0 : side * chain.bulgeAt(i);
        made->appendVertex(new OdDb2dVertex(odDbToPlane(chain.vertexAt(i), m_normal), bulge));
    }
    return made;
}

OdDbEntityPtr OdDb2dPolyline::pieceOf(OdGeCurve3d const& curve, double from, double to) const
{
    std::vector<OdDbBulgeChain::Vertex> const vertices = visibleChain().vertices;
    OdDb2dPolylinePtr const made = emptyLike();
    auto const place = [&](double param) {
        double const end = curve.getInterval().upper;
        return odDbToPlane(curve.evalPoint(param > end ? param - end : param), m_normal);
    };
    for (double at = from; at < to;) {
        double const segment = std::floor(at);
        double const next = std::min(segment + 1, to);
        OdDbBulgeChain::Vertex const& vertex = vertices[static_cast<std::size_t>(segment) % vertices.size()];
        auto const width = [&](double param) {
            return vertex.startWidth + (vertex.endWidth - vertex.startWidth) * (param - segment);
        };
        double const bulge = next - at == 1 ? vertex.bulge : std::tan(std::atan(vertex.bulge) * (next - at));
        made->appendVertex(new OdDb2dVertex(place(at), bulge, width(at), width(next)));
        at = next;
    }
    made->appendVertex(new OdDb2dVertex(place(to)));
    return made;
}
