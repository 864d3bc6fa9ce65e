#include "host/db/entities/od_db_face_record.h"

#include "host/db/entities/od_db_poly_face_mesh.h"
#include "host/db/od_db_property_sink.h"

#include <limits>

namespace {

constexpr std::string_view kMarker = "AcDbFaceRecord";

bool isFaceOfMesh(OdDbTagList const& tags, OdDbObject const* whole)
{
    return whole && odCast<OdDbPolyFaceMesh>(whole) && odDbIsFaceRecord(tags);
}

} // namespace

OD_DB_DEFINE_VARIANT_CLASS(OdDbFaceRecord, OdDbVertex, "VERTEX", &isFaceOfMesh)

bool odDbIsFaceRecord(OdDbTagList const& tags)
{
    constexpr std::int64_t kPolyFace = 128, kVertexOfMesh = 64;
    if (odDbHasMarker(tags, kMarker))
        return true;
    constexpr int kFlags = 70;
    bool const isFace = (odDbIntegerOf(tags, kFlags) & (kPolyFace | kVertexOfMesh)) == kPolyFace;
    return isFace && !odDbHasMarker(tags, "AcDbPolyFaceMeshVertex");
}

OdDbFieldTable const& OdDbFaceRecord::fields()
{
    using Face = OdDbFaceRecord;
    // clang-format off
    static constexpr OdDbField s_fields[] = {
        odField<&Face::m_position>(10, OdDbWriteRule::kAlways),
        odField<&Face::m_flags>   (70, OdDbWriteRule::kAlways),
        odPlaceField<Face, [](Face& f) -> auto& { return f.m_corners[0]; }>(71),
        odPlaceField<Face, [](Face& f) -> auto& { return f.m_corners[1]; }>(72),
        odPlaceField<Face, [](Face& f) -> auto& { return f.m_corners[2]; }>(73),
        odPlaceField<Face, [](Face& f) -> auto& { return f.m_corners[3]; }>(74),
    };
// clang-format on
static OdDbFieldTable const s_table({entitySection(),
                                     {.marker = kMarker, .fields = s_fields, .otherMarkers = allMarkers()}});
return s_table;
}

OdDbFaceRecord::OdDbFaceRecord(int first, int second, int third, int fourth) : OdDbFaceRecord()
{
    int corner = 0;
    for (int const vertex : {first, second, third, fourth})
        setVertexAt(corner++, vertex);
}

std::size_t OdDbFaceRecord::checked(int corner)
{
    if (corner < 0 || corner >= kCorners)
        throw OdError(eInvalidIndex, odFormat(L"A face has no corner %d", corner));
    return static_cast<std::size_t>(corner);
}

int OdDbFaceRecord::getVertexAt(int corner) const
{
    return std::abs(int{m_corners[checked(corner)]});
}

void OdDbFaceRecord::setVertexAt(int corner, int vertex)
{
    bool const isVisible = isEdgeVisibleAt(corner);
    if (vertex < 0 || vertex > std::numeric_limits<std::int16_t>::max())
        throw OdError(eOutOfRange, odFormat(L"%d is no number of a vertex of a mesh", vertex));
    assertWriteEnabled();
    m_corners[checked(corner)] = static_cast<std::int16_t>(vertex);
    setEdgeVisible(corner, isVisible);
}

bool OdDbFaceRecord::isEdgeVisibleAt(int corner) const
{
    std::size_t const index = checked(corner);
    return m_corners[index] == 0 ? (m_hiddenWithoutVertex >> index & 1) == 0 : m_corners[index] > 0;
}

void OdDbFaceRecord::setEdgeVisible(int corner, bool visible)
{
    std::size_t const index = checked(corner);
    assertWriteEnabled();
    auto const bit = static_cast<std::uint8_t>(1u << index);
    int const vertex = getVertexAt(corner);
    bool const isRemembered = vertex == 0 && !visible;
    m_hiddenWithoutVertex =
        static_cast<std::uint8_t>(isRemembered ? m_hiddenWithoutVertex | bit : m_hiddenWithoutVertex & ~bit);
    m_corners[index] = static_cast<std::int16_t>(visible ? std::min(vertex, 32767) : -vertex);
}

void OdDbFaceRecord::listProperties(OdDbPropertySink& sink) const
{
    static constexpr wchar_t const* s_names[] = {L"first vertex", L"second vertex", L"third vertex",
                                                 L"fourth vertex"};
    for (int corner = 0; corner < kCorners; ++corner) {
        if (getVertexAt(corner) == 0)
            continue;
        sink.count(s_names[corner], getVertexAt(corner));
        if (!isEdgeVisibleAt(corner))
            sink.flag(L"its edge is visible", false);
    }
}
