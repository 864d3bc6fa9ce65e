#include "host/db/entities/od_db_3d_polyline_vertex.h"

#include "host/db/entities/od_db_3d_polyline.h"

namespace {

bool isPartOf3dPolyline(OdDbTagList const&, OdDbObject const* whole)
{
    return whole && odCast<OdDb3dPolyline>(whole);
}

} // namespace

OD_DB_DEFINE_VARIANT_CLASS(OdDb3dPolylineVertex, OdDbSpaceVertex, "VERTEX", &isPartOf3dPolyline)

OdDbFieldTable const& OdDb3dPolylineVertex::fields()
{
    // clang-format off
    static constexpr OdDbField s_fields[] = {
        odField<&OdDb3dPolylineVertex::m_position>(10, OdDbWriteRule::kAlways),
        odField<&OdDb3dPolylineVertex::m_flags>   (70, OdDbWriteRule::kAlways),
    };
    // clang-format on
    static OdDbFieldTable const s_table(
        {entitySection(),
         vertexSection(),
         {.marker = "AcDb3dPolylineVertex", .fields = s_fields, .otherMarkers = allMarkers()}});
    return s_table;
}
