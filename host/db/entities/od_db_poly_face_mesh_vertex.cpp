#include "host/db/entities/od_db_poly_face_mesh_vertex.h"

#include "host/db/entities/od_db_poly_face_mesh.h"

namespace {

bool isVertexOfMesh(OdDbTagList const& tags, OdDbObject const* whole)
{
    return whole && odCast<OdDbPolyFaceMesh>(whole) && !odDbIsFaceRecord(tags);
}

} // namespace

OD_DB_DEFINE_VARIANT_CLASS(OdDbPolyFaceMeshVertex, OdDbVertex, "VERTEX", &isVertexOfMesh)

OdDbFieldTable const& OdDbPolyFaceMeshVertex::fields()
{
    // clang-format off
    static constexpr OdDbField s_fields[] = {
        odField<&OdDbPolyFaceMeshVertex::m_position>(10, OdDbWriteRule::kAlways),
        odField<&OdDbPolyFaceMeshVertex::m_flags>   (70, OdDbWriteRule::kAlways),
    };
    // clang-format on
    static OdDbFieldTable const s_table(
        {entitySection(),
         vertexSection(),
         {.marker = "AcDbPolyFaceMeshVertex", .fields = s_fields, .otherMarkers = allMarkers()}});
    return s_table;
}
