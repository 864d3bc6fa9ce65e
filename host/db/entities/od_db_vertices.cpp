#include "host/db/entities/od_db_vertices.h"

#include "host/db/audit/od_db_audit_info.h"
#include "host/db/entities/od_db_curve.h"
#include "host/db/od_db_property_sink.h"

OD_DEFINE_ABSTRACT_CLASS(OdDbVertex, OdDbEntity)
OD_DEFINE_ABSTRACT_CLASS(OdDbSpaceVertex, OdDbVertex)

std::span<std::string_view const> OdDbVertex::allMarkers()
{
    static constexpr std::string_view s_markers[] = {"AcDb2dVertex", "AcDb3dPolylineVertex",
                                                     "AcDbPolygonMeshVertex", "AcDbPolyFaceMeshVertex",
                                                     "AcDbFaceRecord"};
    return s_markers;
}

void OdDbVertex::setPosition(OdGePoint3d const& position)
{
    assertWriteEnabled();
    m_position = position;
}

void OdDbVertex::setFlag(std::int16_t flag, bool on)
{
    assertWriteEnabled();
    m_flags = static_cast<std::int16_t>(on ? m_flags | flag : m_flags & ~flag);
}

OdResult OdDbVertex::transformBy(OdGeMatrix3d const& transformation)
{
    setPosition(transformation * m_position);
    return eOk;
}

void OdDbVertex::listProperties(OdDbPropertySink& sink) const
{
    sink.point(L"position", m_position);
}

OdDb::Vertex3dType OdDbSpaceVertex::vertexType() const
{
    return isControlVertex()           ? OdDb::k3dControlVertex
           : (m_flags & kFitFlag) != 0 ? OdDb::k3dFitVertex
                                       : OdDb::k3dSimpleVertex;
}

void OdDbSpaceVertex::setVertexType(OdDb::Vertex3dType type)
{
    setFlag(kControlFlag, type == OdDb::k3dControlVertex);
    setFlag(kFitFlag, type == OdDb::k3dFitVertex);
}

OdDbPolylineKind odDbPolylineKind(OdDbTagList const& tags)
{
    using Kind = OdDbPolylineKind;
    struct Sign
    {
        std::string_view marker;
        std::int64_t flag;
        Kind kind;
    };
    // Of several flags the first one here counts.
    constexpr Sign kSigns[] = {{"AcDbPolyFaceMesh", 64, Kind::kPolyFace},
                               {"AcDbPolygonMesh", 16, Kind::kMesh},
                               {"AcDb3dPolyline", 8, Kind::k3d},
                               {"AcDb2dPolyline", 0, Kind::k2d}};
    constexpr int kMarker = 100, kFlags = 70;
    std::int64_t flags = 0;
    for (OdDbTag const tag : tags) {
        if (tag.code == kFlags && tag.kind == OdDbTagKind::kInteger && flags == 0)
            flags = tag.integer;
        if (tag.code == kMarker)
            for (Sign const& sign : kSigns)
                if (tag.text == sign.marker)
                    return sign.kind;
    }
    for (Sign const& sign : kSigns)
        if ((flags & sign.flag) != 0)
            return sign.kind;
    return Kind::k2d;
}

template <class Base>
void OdDbVertexSequence<Base>::setFlag(std::int16_t flag, bool on)
{
    this->assertWriteEnabled();
    m_flags = static_cast<std::int16_t>(on ? m_flags | flag : m_flags & ~flag);
}

template <class Base>
bool OdDbVertexSequence<Base>::readFollowFlag(OdDbObject&, OdDbTag const& tag)
{
    return tag.code == kFollowFlag;
}

template <class Base>
void OdDbVertexSequence<Base>::writeFollowFlag(OdDbObject const&, OdDbTagSink& sink)
{
    sink.integer(kFollowFlag, 1);
}

template <class Base>
void OdDbVertexSequence<Base>::transformVertices(OdGeMatrix3d const& transformation)
{
    this->assertWriteEnabled();
    for (OdDbEntityPtr const& part : this->openParts())
        part->transformBy(transformation);
}

template <class Base>
void OdDbVertexSequence<Base>::getStretchPoints(std::vector<OdGePoint3d>& points) const
{
    OdGeMatrix3d const toWorld = verticesToWorld();
    for (auto it = vertexIterator(); !it.done(); it.step())
        if (takesPartInStretching(it.peek()))
            points.push_back(toWorld * static_cast<OdDbVertex const&>(it.peek()).position());
}

template <class Base>
OdResult OdDbVertexSequence<Base>::moveStretchPointsAt(std::span<int const> indices, OdGeVector3d const& offset)
{
    std::vector<OdDbVertexPtr> vertices;
    for (OdDbEntityPtr const& part : this->openParts())
        if (takesPartInStretching(*part))
            vertices.push_back(part);
    for (int const index : indices)
        if (index < 0 || static_cast<std::size_t>(index) >= vertices.size())
            return eInvalidIndex;
    this->assertWriteEnabled();
    for (int const index : indices) {
        OdDbVertex& vertex = *vertices[static_cast<std::size_t>(index)];
        vertex.setPosition(vertex.position() + offset);
    }
    return eOk;
}

template <class Base>
void OdDbVertexSequence<Base>::auditKindFlag(std::int16_t flag, OdDbAuditInfo& info) const
{
    if (hasFlag(flag))
        return;
    info.report(*this, L"its flags do not say what kind of polyline it is", L"flag set",
                [flag](OdDbObject& object) { static_cast<OdDbVertexSequence&>(object).setFlag(flag, true); });
}

template class OdDbVertexSequence<OdDbEntity>;
template class OdDbVertexSequence<OdDbCurve>;
