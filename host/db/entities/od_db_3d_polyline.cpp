#include "host/db/entities/od_db_3d_polyline.h"

#include "host/db/audit/od_db_audit_info.h"
#include "host/db/entities/od_db_line.h"
#include "host/db/entities/od_db_spline_points.h"
#include "host/db/od_db_property_sink.h"
#include "host/geom/curves/od_ge_segment_chain3d.h"

namespace {

constexpr std::int16_t kQuadratic = 5;
constexpr std::int16_t kCubic = 6;

constexpr wchar_t const* kTypeNames[] = {L"simple", L"quadratic spline", L"cubic spline"};

bool is3dPolyline(OdDbTagList const& tags, OdDbObject const*)
{
    return odDbPolylineKind(tags) == OdDbPolylineKind::k3d;
}

} // namespace

OD_DB_DEFINE_VARIANT_CLASS(OdDb3dPolyline, OdDbCurve, "POLYLINE", &is3dPolyline)

OdDbFieldTable const& OdDb3dPolyline::fields()
{
    constexpr std::string_view kMarker = "AcDb3dPolyline";
    // clang-format off
    static constexpr OdDbField s_fields[] = {
        odField<&OdDb3dPolyline::m_origin>   (10, OdDbWriteRule::kAlways),
        odField<&OdDb3dPolyline::m_flags>    (70, OdDbWriteRule::kAlways),
        odField<&OdDb3dPolyline::m_curveType>(75),
    };
    // clang-format on
    static OdDbFieldTable const s_table(
        {entitySection(),
         {.marker = kMarker, .fields = {}, .readTail = &readFollowFlag, .writeTail = &writeFollowFlag},
         {.marker = kMarker, .fields = s_fields, .continues = true}});
    return s_table;
}

OdDb::Poly3dType OdDb3dPolyline::polyType() const
{
    if (!hasFlag(kSplineFitFlag))
        return OdDb::k3dSimplePoly;
    return m_curveType == kQuadratic ? OdDb::k3dQuadSplinePoly : OdDb::k3dCubicSplinePoly;
}

void OdDb3dPolyline::setPolyType(OdDb::Poly3dType type)
{
    setFlag(kSplineFitFlag, type != OdDb::k3dSimplePoly);
    m_curveType = type == OdDb::k3dSimplePoly ? 0 : type == OdDb::k3dQuadSplinePoly ? kQuadratic : kCubic;
}

std::vector<OdGePoint3d> OdDb3dPolyline::visiblePoints() const
{
    std::vector<OdGePoint3d> points;
    for (auto it = vertexIterator(); !it.done(); it.step()) {
        auto const& vertex = static_cast<OdDb3dPolylineVertex const&>(it.peek());
        if (!hasFlag(kSplineFitFlag) || !vertex.isControlVertex())
            points.push_back(vertex.position());
    }
    return points;
}

std::unique_ptr<OdGeCurve3d> OdDb3dPolyline::getOdGeCurve() const
{
    std::vector<OdGePoint3d> points = visiblePoints();
    if (points.size() < 2)
        return nullptr;
    return std::make_unique<OdGeSegmentChain3d>(std::move(points), isClosed());
}

OdResult OdDb3dPolyline::transformBy(OdGeMatrix3d const& transformation)
{
    transformVertices(transformation);
    return eOk;
}

void OdDb3dPolyline::outline(OdDbOutlineSink& sink) const
{
    constexpr std::size_t kBetweenQuestions = 64;
    std::vector<OdGePoint3d> const points = visiblePoints();
    if (points.size() == 1)
        sink.point(points.front());
    for (std::size_t i = 1; i < points.size(); ++i) {
        if (i % kBetweenQuestions == 0 && sink.isSatisfied())
            return;
        sink.segment(points[i - 1], points[i]);
    }
    if (isClosed() && points.size() > 1)
        sink.segment(points.back(), points.front());
}

OdResult OdDb3dPolyline::explode(std::vector<OdDbEntityPtr>& pieces) const
{
    std::vector<OdGePoint3d> const points = visiblePoints();
    if (points.size() < 2)
        return eDegenerateGeometry;
    for (std::size_t i = isClosed() ? 0 : 1; i < points.size(); ++i) {
        // The closing segment is the last one.
        std::size_t const end = isClosed() ? (i + 1) % points.size() : i;
        std::size_t const start = isClosed() ? i : i - 1;
        pieces.emplace_back(new OdDbLine(points[start], points[end]));
        pieces.back()->setPropertiesFrom(*this);
    }
    return eOk;
}

OdResult OdDb3dPolyline::reverseCurve()
{
    std::vector<OdDb3dPolylineVertexPtr> shown, controls;
    for (OdDb3dPolylineVertexPtr const vertex : openParts())
        (vertex->isControlVertex() ? controls : shown).push_back(vertex);
    assertWriteEnabled();
    for (std::vector<OdDb3dPolylineVertexPtr> const* const vertices : {&shown, &controls}) {
        std::vector<OdGePoint3d> before;
        for (OdDb3dPolylineVertexPtr const& vertex : *vertices)
            before.push_back(vertex->position());
        for (std::size_t i = 0; i < before.size(); ++i)
            (*vertices)[i]->setPosition(before[before.size() - 1 - i]);
    }
    return eOk;
}

OdDbEntityPtr OdDb3dPolyline::pieceOf(OdGeCurve3d const& curve, double from, double to) const
{
    OdDb3dPolylinePtr const made(new OdDb3dPolyline);
    auto const piece = curve.trimmed(from, to);
    for (OdGePoint3d const& point : static_cast<OdGeSegmentChain3d const&>(*piece).vertices())
        made->appendVertex(new OdDb3dPolylineVertex(point));
    return made;
}

std::vector<OdDb3dPolylineVertexPtr> OdDb3dPolyline::frame() const
{
    std::vector<OdDb3dPolylineVertexPtr> vertices, all;
    for (auto it = vertexIterator(); !it.done(); it.step()) {
        all.emplace_back(it.peek().clone());
        bool const isInFrame = hasFlag(kSplineFitFlag) ? all.back()->isControlVertex()
                                                       : all.back()->vertexType() != OdDb::k3dFitVertex;
        if (isInFrame)
            vertices.push_back(all.back());
        all.back()->setVertexType(OdDb::k3dSimpleVertex);
    }
    return vertices.empty() ? all : vertices; // a damaged polyline may have lost its frame
}

void OdDb3dPolyline::replaceVertices(std::vector<OdDb3dPolylineVertexPtr> const& vertices, OdDb::Poly3dType type)
{
    replaceAllVertices(vertices);
    setPolyType(type);
}

OdResult OdDb3dPolyline::straighten()
{
    assertWriteEnabled();
    replaceVertices(frame(), OdDb::k3dSimplePoly);
    return eOk;
}

OdResult OdDb3dPolyline::splineFit(OdDb::Poly3dType type, int segments)
{
    if (type == OdDb::k3dSimplePoly || segments < 1)
        return eInvalidInput;
    std::vector<OdDb3dPolylineVertexPtr> vertices = frame();
    std::vector<OdGePoint3d> points;
    for (OdDb3dPolylineVertexPtr const& vertex : vertices)
        points.push_back(vertex->position());
    int const degree = type == OdDb::k3dQuadSplinePoly ? 2 : 3;
    std::vector<OdGePoint3d> const made = odDbSplinePoints(points, degree, isClosed(), segments);
    if (made.empty())
        return eDegenerateGeometry;
    assertWriteEnabled();
    for (OdDb3dPolylineVertexPtr const& vertex : vertices)
        vertex->setVertexType(OdDb::k3dControlVertex);
    for (OdGePoint3d const& point : made) {
        vertices.emplace_back(new OdDb3dPolylineVertex(point));
        vertices.back()->setVertexType(OdDb::k3dFitVertex);
        vertices.back()->setPropertiesFrom(*this);
    }
    replaceVertices(vertices, type);
    return eOk;
}

void OdDb3dPolyline::listProperties(OdDbPropertySink& sink) const
{
    sink.text(L"type", kTypeNames[polyType()]);
    sink.flag(L"closed", isClosed());
    double length = 0;
    if (getLength(length) == eOk)
        sink.distance(L"length", length);
    int number = 0;
    for (auto it = vertexIterator(); !it.done(); it.step()) {
        auto const& vertex = static_cast<OdDbVertex const&>(it.peek());
        sink.part(vertex.isControlVertex() ? L"control vertex" : L"vertex", ++number);
        vertex.listProperties(sink);
    }
}

void OdDb3dPolyline::audit(OdDbAuditInfo& info) const
{
    OdDbVertexSequence::audit(info);
    auditKindFlag(k3dFlag, info);
    if (visiblePoints().empty())
        info.reportUseless(*this, numParts() == 0 ? L"it has no vertices" : L"it has no vertices that are shown");
}
