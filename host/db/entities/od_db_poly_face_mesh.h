#pragma once

#include "host/db/entities/od_db_face_record.h"
#include "host/db/entities/od_db_poly_face_mesh_vertex.h"

/// Mesh of faces that share vertices. Its parts are the vertices, then the faces.
class OdDbPolyFaceMesh : public OdDbVertexSequence<OdDbEntity>
{
    OD_DB_DECLARE_CLASS(OdDbPolyFaceMesh)
public:
    OdDbPolyFaceMesh() { m_flags = kPolyFaceFlag; }

    /// @name Counted, whatever the file said
    /// @{
    int numVertices() const;
    int numFaces() const;
    /// @}

    /// Becomes the last vertex, before the faces; its id is null while the mesh is in no drawing. Throws OdError:
    /// eAlreadyInDb, eNotOpenForWrite; so the next one.
    OdDbObjectId appendVertex(OdDbPolyFaceMeshVertex* vertex);
    OdDbObjectId appendFaceRecord(OdDbFaceRecord* face);
    bool takesPart(OdDbEntity const& part) const override;

    OdResult transformBy(OdGeMatrix3d const& transformation) override;
    /// Each face, as far as it has corners.
    void outline(OdDbOutlineSink& sink) const override;
    /// A 3D face, line or point for each face, by the number of its corners.
    OdResult explode(std::vector<OdDbEntityPtr>& pieces) const override;
    OdString partsProblem() const override;
    void listProperties(OdDbPropertySink& sink) const override;
    void audit(OdDbAuditInfo& info) const override;

protected:
    bool takesPartInStretching(OdDbEntity const& part) const override
    {
        return odCast<OdDbPolyFaceMeshVertex>(&part) != nullptr;
    }

private:
    static constexpr std::int16_t kPolyFaceFlag = 64;
    static constexpr std::int64_t kNotSaid = -1;

    static bool readCounts(OdDbObject& object, OdDbTag const& tag);
    static void writeCounts(OdDbObject const& object, OdDbTagSink& sink);
    std::size_t indexBehindVertices() const;
    void forgetSaidCounts();
    static void auditFace(OdDbFaceRecord const& face, int vertices, OdDbAuditInfo& info);

    struct Corners;
    std::vector<OdGePoint3d> vertexPositions() const;
    template <class Use>
    void forEachFace(Use const& use) const;
    static OdDbEntityPtr pieceOf(Corners const& corners);

    /// What the file said of the numbers of its parts, for audits.
    std::int64_t m_saidVertices = kNotSaid;
    std::int64_t m_saidFaces = kNotSaid;
};
using OdDbPolyFaceMeshPtr = OdSmartPtr<OdDbPolyFaceMesh>;
