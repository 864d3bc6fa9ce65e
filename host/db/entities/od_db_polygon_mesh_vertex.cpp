#include "host/db/entities/od_db_polygon_mesh_vertex.h"

#include "host/db/entities/od_db_polygon_mesh.h"

namespace {

bool isPartOfMesh(OdDbTagList const&, OdDbObject const* whole)
{
    return whole && odCast<OdDbPolygonMesh>(whole);
}

} // namespace

OD_DB_DEFINE_VARIANT_CLASS(OdDbPolygonMeshVertex, OdDbSpaceVertex, "VERTEX", &isPartOfMesh)

OdDbFieldTable const& OdDbPolygonMeshVertex::fields()
{
    // clang-format off
    static constexpr OdDbField s_fields[] = {
        odField<&OdDbPolygonMeshVertex::m_position>(10, OdDbWriteRule::kAlways),
        odField<&OdDbPolygonMeshVertex::m_flags>   (70, OdDbWriteRule::kAlways),
    };
    // clang-format on
    static OdDbFieldTable const s_table(
        {entitySection(),
         vertexSection(),
         {.marker = "AcDbPolygonMeshVertex", .fields = s_fields, .otherMarkers = allMarkers()}});
    return s_table;
}
