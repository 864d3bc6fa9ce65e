#include "host/db/entities/od_db_polygon_mesh.h"

#include "host/db/audit/od_db_audit_info.h"
#include "host/db/entities/od_db_face.h"
#include "host/db/od_db_property_sink.h"

#include <limits>

namespace {

bool isMesh(OdDbTagList const& tags, OdDbObject const*)
{
    return odDbPolylineKind(tags) == OdDbPolylineKind::kMesh;
}

wchar_t const* nameOf(OdDb::PolyMeshType type)
{
    switch (type) {
    case OdDb::kQuadSurfaceMesh: return L"quadratic surface";
    case OdDb::kCubicSurfaceMesh: return L"cubic surface";
    case OdDb::kBezierSurfaceMesh: return L"Bezier surface";
    default: return L"simple";
    }
}

} // namespace

OD_DB_DEFINE_VARIANT_CLASS(OdDbPolygonMesh, OdDbEntity, "POLYLINE", &isMesh)

OdDbFieldTable const& OdDbPolygonMesh::fields()
{
    constexpr std::string_view kMarker = "AcDbPolygonMesh";
    // clang-format off
    static constexpr OdDbField s_fields[] = {
        odField<&OdDbPolygonMesh::m_origin>     (10, OdDbWriteRule::kAlways),
        odField<&OdDbPolygonMesh::m_flags>      (70, OdDbWriteRule::kAlways),
        odField<&OdDbPolygonMesh::m_mSize>      (71),
        odField<&OdDbPolygonMesh::m_nSize>      (72),
        odField<&OdDbPolygonMesh::m_mDensity>   (73),
        odField<&OdDbPolygonMesh::m_nDensity>   (74),
        odField<&OdDbPolygonMesh::m_surfaceType>(75),
    };
    // clang-format on
    static OdDbFieldTable const s_table(
        {entitySection(),
         {.marker = kMarker, .fields = {}, .readTail = &readFollowFlag, .writeTail = &writeFollowFlag},
         {.marker = kMarker, .fields = s_fields, .continues = true}});
    return s_table;
}

void OdDbPolygonMesh::setCount(std::int16_t OdDbPolygonMesh::*member, int count)
{
    if (count < 2 || count > std::numeric_limits<std::int16_t>::max())
        throw OdError(eOutOfRange, odFormat(L"%d is no number of rows or vertices of a mesh", count));
    assertWriteEnabled();
    this->*member = static_cast<std::int16_t>(count);
}

OdDb::PolyMeshType OdDbPolygonMesh::polyMeshType() const
{
    switch (m_surfaceType) {
    case OdDb::kQuadSurfaceMesh:
    case OdDb::kCubicSurfaceMesh:
    case OdDb::kBezierSurfaceMesh: return static_cast<OdDb::PolyMeshType>(m_surfaceType);
    default: return OdDb::kSimpleMesh;
    }
}

void OdDbPolygonMesh::setPolyMeshType(OdDb::PolyMeshType type)
{
    setFlag(kSplineFitFlag, type != OdDb::kSimpleMesh);
    m_surfaceType = static_cast<std::int16_t>(type);
}

/// The vertices that are shown, and how many of them make a row.
struct OdDbPolygonMesh::Grid
{
    std::vector<OdGePoint3d> points;
    std::size_t rows = 0;
    std::size_t columns = 0;
    bool isMClosed = false;
    bool isNClosed = false;

    std::size_t index(std::size_t row, std::size_t column) const
    {
        return row % rows * columns + column % columns;
    }
    bool has(std::size_t row, std::size_t column) const { return index(row, column) < points.size(); }
    OdGePoint3d const& at(std::size_t row, std::size_t column) const { return points[index(row, column)]; }
    /// Rows that hold vertices, whatever the file says of their number.
    std::size_t filledRows() const { return columns == 0 ? 0 : (points.size() + columns - 1) / columns; }
};

OdDbPolygonMesh::Grid OdDbPolygonMesh::visibleGrid() const
{
    Grid grid;
    grid.isMClosed = isMClosed();
    grid.isNClosed = isNClosed();
    bool const isSmooth = polyMeshType() != OdDb::kSimpleMesh;
    bool const hasFit = isSmooth && hasSurfaceVertices();
    for (auto it = vertexIterator(); !it.done(); it.step()) {
        auto const& vertex = static_cast<OdDbPolygonMeshVertex const&>(it.peek());
        if (!hasFit || !vertex.isControlVertex())
            grid.points.push_back(vertex.position());
    }
    grid.rows = static_cast<std::size_t>(hasFit ? mSurfaceDensity() : mSize());
    grid.columns = static_cast<std::size_t>(hasFit ? nSurfaceDensity() : nSize());
    return grid;
}

/// A smooth mesh that lost the vertices of its surface shows its frame.
bool OdDbPolygonMesh::hasSurfaceVertices() const
{
    for (auto it = vertexIterator(); !it.done(); it.step())
        if (!static_cast<OdDbPolygonMeshVertex const&>(it.peek()).isControlVertex())
            return true;
    return false;
}

OdResult OdDbPolygonMesh::transformBy(OdGeMatrix3d const& transformation)
{
    transformVertices(transformation);
    return eOk;
}

void OdDbPolygonMesh::outline(OdDbOutlineSink& sink) const
{
    Grid const grid = visibleGrid();
    std::size_t const rows = std::min(grid.rows, grid.filledRows());
    std::size_t given = 0;
    auto const edge = [&](std::size_t row, std::size_t column, std::size_t nextRow, std::size_t nextColumn) {
        if (!grid.has(row, column) || !grid.has(nextRow, nextColumn))
            return;
        sink.segment(grid.at(row, column), grid.at(nextRow, nextColumn));
        ++given;
    };
    for (std::size_t row = 0; row < rows; ++row) {
        if (sink.isSatisfied())
            return;
        for (std::size_t column = 0; column < grid.columns; ++column) {
            if (column + 1 < grid.columns || (grid.isNClosed && grid.columns > 2))
                edge(row, column, row, column + 1);
            if (row + 1 < grid.rows || (grid.isMClosed && grid.rows > 2))
                edge(row, column, row + 1, column);
        }
    }
    if (given == 0) // counts that make no cells, or hardly a vertex
        for (OdGePoint3d const& point : grid.points)
            sink.point(point);
}

OdResult OdDbPolygonMesh::explode(std::vector<OdDbEntityPtr>& pieces) const
{
    Grid const grid = visibleGrid();
    std::size_t const rowCells =
        std::min(grid.isMClosed ? grid.rows : std::max<std::size_t>(grid.rows, 1) - 1, grid.filledRows());
    std::size_t const columnCells = grid.isNClosed ? grid.columns : std::max<std::size_t>(grid.columns, 1) - 1;
    std::size_t const before = pieces.size();
    for (std::size_t row = 0; row < rowCells; ++row)
        for (std::size_t column = 0; column < columnCells; ++column) {
            if (!grid.has(row, column) || !grid.has(row, column + 1) || !grid.has(row + 1, column) ||
                !grid.has(row + 1, column + 1))
                continue;
            pieces.emplace_back(new OdDbFace(grid.at(row, column), grid.at(row, column + 1),
                                             grid.at(row + 1, column + 1), grid.at(row + 1, column)));
            pieces.back()->setPropertiesFrom(*this);
        }
    return pieces.size() == before ? eDegenerateGeometry : eOk;
}

void OdDbPolygonMesh::listProperties(OdDbPropertySink& sink) const
{
    sink.text(L"type", nameOf(polyMeshType()));
    sink.count(L"M size", mSize());
    sink.count(L"N size", nSize());
    sink.flag(L"closed in M direction", isMClosed());
    sink.flag(L"closed in N direction", isNClosed());
    if (polyMeshType() != OdDb::kSimpleMesh) {
        sink.count(L"M density", mSurfaceDensity());
        sink.count(L"N density", nSurfaceDensity());
    }
    int number = 0;
    for (auto it = vertexIterator(); !it.done(); it.step()) {
        auto const& vertex = static_cast<OdDbVertex const&>(it.peek());
        sink.part(vertex.isControlVertex() ? L"control vertex" : L"vertex", ++number);
        vertex.listProperties(sink);
    }
}

void OdDbPolygonMesh::audit(OdDbAuditInfo& info) const
{
    OdDbVertexSequence::audit(info);
    auditKindFlag(kMeshFlag, info);
    if (numParts() == 0) {
        info.reportUseless(*this, L"it has no vertices");
        return;
    }
    if (OdString const problem = partsProblem(); !problem.isEmpty())
        info.report(*this, problem);
}

OdString OdDbPolygonMesh::partsProblem() const
{
    Grid const grid = visibleGrid();
    if (grid.points.size() == grid.rows * grid.columns)
        return {};
    return odFormat(L"it has %lld vertices instead of %lld times %lld", static_cast<long long>(grid.points.size()),
                    static_cast<long long>(grid.rows), static_cast<long long>(grid.columns));
}
