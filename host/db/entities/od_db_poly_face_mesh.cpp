#include "host/db/entities/od_db_poly_face_mesh.h"

#include "host/db/audit/od_db_audit_info.h"
#include "host/db/od_db_property_sink.h"

#include <limits>

namespace {

constexpr int kVertexCount = 71;
constexpr int kFaceCount = 72;

bool isPolyFaceMesh(OdDbTagList const& tags, OdDbObject const*)
{
    return odDbPolylineKind(tags) == OdDbPolylineKind::kPolyFace;
}

template <class Part>
int countOf(OdDbPartIterator parts)
{
    int count = 0;
    for (; !parts.done(); parts.step())
        count += odCast<Part>(&parts.peek()) ? 1 : 0;
    return count;
}

} // namespace

OD_DB_DEFINE_VARIANT_CLASS(OdDbPolyFaceMesh, OdDbEntity, "POLYLINE", &isPolyFaceMesh)

OdDbFieldTable const& OdDbPolyFaceMesh::fields()
{
    constexpr std::string_view kMarker = "AcDbPolyFaceMesh";
    // clang-format off
    static constexpr OdDbField s_fields[] = {
        odField<&OdDbPolyFaceMesh::m_origin>(10, OdDbWriteRule::kAlways),
        odField<&OdDbPolyFaceMesh::m_flags> (70, OdDbWriteRule::kAlways),
    };
    // clang-format on
    static OdDbFieldTable const s_table(
        {entitySection(),
         {.marker = kMarker, .fields = {}, .readTail = &readFollowFlag, .writeTail = &writeFollowFlag},
         {.marker = kMarker, .fields = s_fields, .continues = true},
         {.marker = kMarker,
          .fields = {},
          .readTail = &readCounts,
          .writeTail = &writeCounts,
          .continues = true}});
    return s_table;
}

bool OdDbPolyFaceMesh::readCounts(OdDbObject& object, OdDbTag const& tag)
{
    auto& mesh = static_cast<OdDbPolyFaceMesh&>(object);
    if ((tag.code != kVertexCount && tag.code != kFaceCount) || tag.kind != OdDbTagKind::kInteger)
        return false;
    (tag.code == kVertexCount ? mesh.m_saidVertices : mesh.m_saidFaces) = tag.integer;
    return true;
}

void OdDbPolyFaceMesh::writeCounts(OdDbObject const& object, OdDbTagSink& sink)
{
    static constexpr int kMost = std::numeric_limits<std::int16_t>::max();
    auto const& mesh = static_cast<OdDbPolyFaceMesh const&>(object);
    auto const put = [&sink](int code, int count, std::int64_t said) {
        if (count != 0 || said != kNotSaid)
            sink.integer(code, std::min(count, kMost));
    };
    put(kVertexCount, mesh.numVertices(), mesh.m_saidVertices);
    put(kFaceCount, mesh.numFaces(), mesh.m_saidFaces);
}

int OdDbPolyFaceMesh::numVertices() const
{
    return countOf<OdDbPolyFaceMeshVertex>(vertexIterator());
}

int OdDbPolyFaceMesh::numFaces() const
{
    return countOf<OdDbFaceRecord>(vertexIterator());
}

bool OdDbPolyFaceMesh::takesPart(OdDbEntity const& part) const
{
    return odCast<OdDbPolyFaceMeshVertex>(&part) || odCast<OdDbFaceRecord>(&part);
}

OdDbObjectId OdDbPolyFaceMesh::appendVertex(OdDbPolyFaceMeshVertex* vertex)
{
    std::size_t const index = indexBehindVertices();
    forgetSaidCounts();
    return insertPart(vertex, index);
}

OdDbObjectId OdDbPolyFaceMesh::appendFaceRecord(OdDbFaceRecord* face)
{
    forgetSaidCounts();
    return appendPart(face);
}

/// Behind the last vertex; faces that files have before it stay there.
std::size_t OdDbPolyFaceMesh::indexBehindVertices() const
{
    std::size_t const count = partList()->size();
    std::size_t index = count;
    while (index > 0 && odCast<OdDbFaceRecord>(&partList()->at(index - 1)))
        --index;
    return index;
}

/// They were about the parts that the file had.
void OdDbPolyFaceMesh::forgetSaidCounts()
{
    assertWriteEnabled();
    m_saidVertices = m_saidFaces = kNotSaid;
}

OdResult OdDbPolyFaceMesh::transformBy(OdGeMatrix3d const& transformation)
{
    transformVertices(transformation);
    return eOk;
}

void OdDbPolyFaceMesh::listProperties(OdDbPropertySink& sink) const
{
    sink.count(L"vertices", numVertices());
    sink.count(L"faces", numFaces());
    int vertices = 0, faces = 0;
    for (auto it = vertexIterator(); !it.done(); it.step()) {
        auto const& part = static_cast<OdDbVertex const&>(it.peek());
        if (odCast<OdDbFaceRecord>(&part))
            sink.part(L"face", ++faces);
        else
            sink.part(L"vertex", ++vertices);
        part.listProperties(sink);
    }
}

void OdDbPolyFaceMesh::audit(OdDbAuditInfo& info) const
{
    OdDbVertexSequence::audit(info);
    auditKindFlag(kPolyFaceFlag, info);
    if (OdString const problem = partsProblem(); !problem.isEmpty())
        info.report(*this, problem, L"counts corrected",
                    [](OdDbObject& object) { static_cast<OdDbPolyFaceMesh&>(object).forgetSaidCounts(); });
    if (numFaces() == 0)
        info.reportUseless(*this, L"it has no faces");
    int const vertices = numVertices();
    for (auto it = vertexIterator(); !it.done(); it.step())
        if (auto const* const face = odCast<OdDbFaceRecord>(&it.peek()))
            auditFace(*face, vertices, info);
}

OdString OdDbPolyFaceMesh::partsProblem() const
{
    int vertices = 0, faces = 0;
    for (auto it = vertexIterator(false); !it.done(); it.step(false)) // the file counted what was erased since
        ++(odCast<OdDbFaceRecord>(&it.peek()) ? faces : vertices);
    auto const isWrong = [](std::int64_t said, int count) { return said != kNotSaid && said != count; };
    if (!isWrong(m_saidVertices, vertices) && !isWrong(m_saidFaces, faces))
        return {};
    return odFormat(L"its file said that it has %lld vertices and %lld faces; it has %d and %d",
                    static_cast<long long>(std::max(m_saidVertices, std::int64_t{0})),
                    static_cast<long long>(std::max(m_saidFaces, std::int64_t{0})), vertices, faces);
}

/// Corners that no vertex of the mesh has are not shown.
void OdDbPolyFaceMesh::auditFace(OdDbFaceRecord const& face, int vertices, OdDbAuditInfo& info)
{
    for (int corner = 0; corner < OdDbFaceRecord::kCorners; ++corner)
        if (int const vertex = face.getVertexAt(corner); vertex > vertices)
            info.report(
                face, odFormat(L"corner %d is vertex %d of %d", corner + 1, vertex, vertices), L"corner removed",
                [corner](OdDbObject& object) { static_cast<OdDbFaceRecord&>(object).setVertexAt(corner, 0); });
}
