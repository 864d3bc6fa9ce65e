// How polylines stand in drawing files: count, flags and widths first, then the vertices, then the normal.
#include "host/db/entities/od_db_polyline.h"

OD_DB_DEFINE_CLASS(OdDbPolyline, OdDbCurve, "LWPOLYLINE")

namespace {

enum InFile : std::uint8_t
{
    kStartWidth = 1,
    kEndWidth = 2,
    kBulge = 4,
    kIdentifier = 8
};

constexpr int kCount = 90;
constexpr std::string_view kMarker = "AcDbPolyline";

} // namespace

OdDbFieldTable const& OdDbPolyline::fields()
{
    // clang-format off
    static constexpr OdDbField s_head[] = {
        odField<&OdDbPolyline::m_flags>        (70, OdDbWriteRule::kAlways),
        odField<&OdDbPolyline::m_constantWidth>(43),
        odField<&OdDbPolyline::m_elevation>    (38),
        odField<&OdDbPolyline::m_thickness>    (39),
    };
    static constexpr OdDbField s_end[] = {
        odField<&OdDbPolyline::m_normal>(210),
    };
    // clang-format on
    static OdDbFieldTable const s_table({
        entitySection(),
        {.marker = kMarker, .fields = {}, .readTail = &readVertex, .writeTail = &writeCount},
        {.marker = kMarker, .fields = s_head, .writeTail = &writeVertices, .continues = true},
        {.marker = kMarker, .fields = s_end, .continues = true},
    });
    return s_table;
}

bool OdDbPolyline::readVertex(OdDbObject& object, OdDbTag const& tag)
{
    auto& polyline = static_cast<OdDbPolyline&>(object);
    std::vector<Vertex>& vertices = polyline.m_vertices;
    if (tag.code == kCount)
        return true; // the vertices themselves are counted
    if (tag.code == 91 && tag.kind == OdDbTagKind::kInteger && !vertices.empty()) {
        vertices.back().identifier = static_cast<std::int32_t>(tag.integer);
        vertices.back().inFile |= kIdentifier;
        return true;
    }
    if (tag.kind != OdDbTagKind::kReal || (tag.code != 10 && vertices.empty()))
        return false;
    auto const take = [&](double& place, InFile bit) {
        place = tag.real;
        vertices.back().inFile |= bit;
        return true;
    };
    switch (tag.code) {
    case 10: vertices.emplace_back().point.x = tag.real; return true;
    case 20: vertices.back().point.y = tag.real; return true;
    case 40: polyline.m_hasVertexWidths |= tag.real != 0; return take(vertices.back().startWidth, kStartWidth);
    case 41: polyline.m_hasVertexWidths |= tag.real != 0; return take(vertices.back().endWidth, kEndWidth);
    case 42: return take(vertices.back().bulge, kBulge);
    default: return false;
    }
}

void OdDbPolyline::writeCount(OdDbObject const& object, OdDbTagSink& sink)
{
    sink.integer(kCount, static_cast<OdDbPolyline const&>(object).numVerts());
}

void OdDbPolyline::writeVertices(OdDbObject const& object, OdDbTagSink& sink)
{
    for (Vertex const& each : static_cast<OdDbPolyline const&>(object).m_vertices) {
        bool const hasWidths = each.startWidth != 0 || each.endWidth != 0;
        sink.real(10, each.point.x);
        sink.real(20, each.point.y);
        if (hasWidths || each.inFile & kStartWidth)
            sink.real(40, each.startWidth);
        if (hasWidths || each.inFile & kEndWidth)
            sink.real(41, each.endWidth);
        if (each.bulge != 0 || each.inFile & kBulge)
            sink.real(42, each.bulge);
        if (each.identifier != 0 || each.inFile & kIdentifier)
            sink.integer(91, each.identifier);
    }
}
