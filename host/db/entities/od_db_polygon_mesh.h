#pragma once

#include "host/db/entities/od_db_polygon_mesh_vertex.h"

namespace OdDb {
enum PolyMeshType
{
    kSimpleMesh = 0,
    kQuadSurfaceMesh = 5,
    kCubicSurfaceMesh = 6,
    kBezierSurfaceMesh = 8
};
} // namespace OdDb

/// Surface of M x N vertices, N after N along the rows. Where a smooth surface was fitted, its own vertices are
/// shown, as many in each direction as the densities say, and the control vertices stay as its frame.
class OdDbPolygonMesh : public OdDbVertexSequence<OdDbEntity>
{
    OD_DB_DECLARE_CLASS(OdDbPolygonMesh)
public:
    OdDbPolygonMesh() { m_flags = kMeshFlag; }

    /// Number of rows.
    int mSize() const { return std::max<int>(m_mSize, 0); }
    /// Number of vertices in each row.
    int nSize() const { return std::max<int>(m_nSize, 0); }
    /// May be set before the vertices are there. Throw OdError(eOutOfRange) for less than 2 or more than 32767; so
    /// below.
    void setMSize(int size) { setCount(&OdDbPolygonMesh::m_mSize, size); }
    void setNSize(int size) { setCount(&OdDbPolygonMesh::m_nSize, size); }
    /// The last row is joined to the first.
    bool isMClosed() const { return hasFlag(kMClosedFlag); }
    void makeMClosed() { setFlag(kMClosedFlag, true); }
    void makeMOpen() { setFlag(kMClosedFlag, false); }
    /// The last vertex of each row is joined to the first.
    bool isNClosed() const { return hasFlag(kNClosedFlag); }
    void makeNClosed() { setFlag(kNClosedFlag, true); }
    void makeNOpen() { setFlag(kNClosedFlag, false); }
    int mSurfaceDensity() const { return std::max<int>(m_mDensity, 0); }
    int nSurfaceDensity() const { return std::max<int>(m_nDensity, 0); }
    void setMSurfaceDensity(int density) { setCount(&OdDbPolygonMesh::m_mDensity, density); }
    void setNSurfaceDensity(int density) { setCount(&OdDbPolygonMesh::m_nDensity, density); }
    OdDb::PolyMeshType polyMeshType() const;
    /// Says what the vertices are; it does not make them.
    void setPolyMeshType(OdDb::PolyMeshType type);

    /// Becomes the last vertex; its id is null while the mesh is in no drawing. Throws OdError: eAlreadyInDb,
    /// eNotOpenForWrite.
    OdDbObjectId appendVertex(OdDbPolygonMeshVertex* vertex) { return appendPart(vertex); }
    OdRxClass* partClass() const override { return OdDbPolygonMeshVertex::desc(); }

    OdResult transformBy(OdGeMatrix3d const& transformation) override;
    /// The edges of the cells, as far as vertices are there.
    void outline(OdDbOutlineSink& sink) const override;
    /// A 3D face for each cell.
    OdResult explode(std::vector<OdDbEntityPtr>& pieces) const override;
    OdString partsProblem() const override;
    void listProperties(OdDbPropertySink& sink) const override;
    void audit(OdDbAuditInfo& info) const override;

private:
    static constexpr std::int16_t kMClosedFlag = 1;
    static constexpr std::int16_t kSplineFitFlag = 4;
    static constexpr std::int16_t kMeshFlag = 16;
    static constexpr std::int16_t kNClosedFlag = 32;

    struct Grid;
    Grid visibleGrid() const;
    bool hasSurfaceVertices() const;
    void setCount(std::int16_t OdDbPolygonMesh::*member, int count);

    std::int16_t m_mSize = 0;
    std::int16_t m_nSize = 0;
    std::int16_t m_mDensity = 0;
    std::int16_t m_nDensity = 0;
    std::int16_t m_surfaceType = 0;
};
using OdDbPolygonMeshPtr = OdSmartPtr<OdDbPolygonMesh>;
