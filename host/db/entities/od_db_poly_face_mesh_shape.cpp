// The faces of a polyface mesh as areas, lines and points.
#include "host/db/entities/od_db_face.h"
#include "host/db/entities/od_db_line.h"
#include "host/db/entities/od_db_point.h"
#include "host/db/entities/od_db_poly_face_mesh.h"

/// The corners of a face that exist, with what is said of their edges.
struct OdDbPolyFaceMesh::Corners
{
    std::array<OdGePoint3d, OdDbFaceRecord::kCorners> points;
    std::array<bool, OdDbFaceRecord::kCorners> isEdgeVisible{};
    std::size_t count = 0;
};

namespace {

/// A triangle has its third corner twice, and no edge between the two.
OdDbFace fourCorners(auto const& corners)
{
    auto const& at = corners.points;
    return {at[0], at[1], at[2], corners.count == 3 ? at[2] : at[3]};
}

} // namespace

std::vector<OdGePoint3d> OdDbPolyFaceMesh::vertexPositions() const
{
    std::vector<OdGePoint3d> positions;
    for (auto it = vertexIterator(); !it.done(); it.step())
        if (auto const* const vertex = odCast<OdDbPolyFaceMeshVertex>(&it.peek()))
            positions.push_back(vertex->position());
    return positions;
}

/// Calls `use` with the corners of each face that has any, until it returns false.
template <class Use>
void OdDbPolyFaceMesh::forEachFace(Use const& use) const
{
    std::vector<OdGePoint3d> const positions = vertexPositions();
    for (auto it = vertexIterator(); !it.done(); it.step()) {
        auto const* const face = odCast<OdDbFaceRecord>(&it.peek());
        if (!face)
            continue;
        Corners corners;
        for (int i = 0; i < OdDbFaceRecord::kCorners; ++i) {
            auto const vertex = static_cast<std::size_t>(face->getVertexAt(i));
            if (vertex == 0 || vertex > positions.size())
                continue;
            corners.points[corners.count] = positions[vertex - 1];
            corners.isEdgeVisible[corners.count++] = face->isEdgeVisibleAt(i);
        }
        if (corners.count > 0 && !use(corners))
            return;
    }
}

void OdDbPolyFaceMesh::outline(OdDbOutlineSink& sink) const
{
    std::size_t faces = 0;
    forEachFace([&](Corners const& corners) {
        ++faces;
        auto const& at = corners.points;
        switch (corners.count) {
        case 1: sink.point(at[0]); break;
        case 2: sink.segment(at[0], at[1]); break;
        default: fourCorners(corners).outline(sink);
        }
        return !sink.isSatisfied();
    });
    if (faces == 0)
        for (OdGePoint3d const& position : vertexPositions())
            sink.point(position);
}

OdResult OdDbPolyFaceMesh::explode(std::vector<OdDbEntityPtr>& pieces) const
{
    std::size_t const before = pieces.size();
    forEachFace([&](Corners const& corners) {
        pieces.push_back(pieceOf(corners));
        pieces.back()->setPropertiesFrom(*this);
        return true;
    });
    return pieces.size() == before ? eDegenerateGeometry : eOk;
}

OdDbEntityPtr OdDbPolyFaceMesh::pieceOf(Corners const& corners)
{
    auto const& at = corners.points;
    if (corners.count == 1) {
        OdDbPointPtr const point(new OdDbPoint);
        point->setPosition(at[0]);
        return point;
    }
    if (corners.count == 2)
        return new OdDbLine(at[0], at[1]);
    bool const isTriangle = corners.count == 3;
    OdDbFacePtr const face(new OdDbFace(fourCorners(corners)));
    for (int i = 0; i < static_cast<int>(corners.count); ++i)
        if (!corners.isEdgeVisible[static_cast<std::size_t>(i)])
            face->makeEdgeInvisibleAt(isTriangle && i == 2 ? 3 : i);
    return face;
}
