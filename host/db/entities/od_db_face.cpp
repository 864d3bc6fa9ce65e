#include "host/db/entities/od_db_face.h"

#include "host/db/od_db_property_sink.h"

OD_DB_DEFINE_CLASS(OdDbFace, OdDbQuad, "3DFACE")

OdDbFieldTable const& OdDbFace::fields()
{
    constexpr std::string_view kMarker = "AcDbFace";
    // clang-format off
    static constexpr OdDbField s_flags[] = {
        odField<&OdDbFace::m_hiddenEdges>(70),
    };
    // clang-format on
    static OdDbFieldTable const s_table(
        {entitySection(), cornerSection(kMarker), {.marker = kMarker, .fields = s_flags, .continues = true}});
    return s_table;
}

bool OdDbFace::isEdgeVisibleAt(int index) const
{
    checkIndex(index);
    return (m_hiddenEdges >> index & 1) == 0;
}

void OdDbFace::setEdgeVisible(int index, bool visible)
{
    checkIndex(index);
    assertWriteEnabled();
    int const bit = 1 << index;
    m_hiddenEdges = static_cast<std::int16_t>(visible ? m_hiddenEdges & ~bit : m_hiddenEdges | bit);
}

OdResult OdDbFace::transformBy(OdGeMatrix3d const& transformation)
{
    for (OdGePoint3d const& corner : worldCorners())
        if (OdGePoint3d const image = transformation * corner; !std::isfinite(image.x + image.y + image.z))
            return eDegenerateGeometry;
    assertWriteEnabled();
    changeFileCorners([&](OdGePoint3d const& corner) { return transformation * corner; });
    return eOk;
}

void OdDbFace::listProperties(OdDbPropertySink& sink) const
{
    for (int i = 0; i < kCorners; ++i) {
        sink.part(L"corner", i + 1);
        sink.point(L"position", getVertexAt(i));
        sink.flag(L"edge visible", isEdgeVisibleAt(i));
    }
}
